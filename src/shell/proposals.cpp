// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/proposals.h"

#include "shell/look.h"
#include "shell/text.h"
#include "shell/widgets.h"

#include <QListWidget>

#include <algorithm>
#include <utility>

namespace circuidex {

namespace {

constexpr int leastWidth = 160; // pixels

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}

Proposals::Proposals(Edit *box, std::function<Offers(const QString &)> offers)
    : QObject(box), m_box(box), m_offers(std::move(offers))
{
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, [this](const QString &text) { typed(text); });
    // What comes from elsewhere, as a row that is loaded, is nobody's slip. Of a key it is told behind textEdited.
    connect(box, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text == std::exchange(m_typed, QString()))
            return;
        closeList();
        showSpelling({});
    });
}

bool Proposals::listSeen() const
{
    return m_list && m_list->isVisible();
}

void Proposals::typed(const QString &text)
{
    if (m_taking)
        return;
    m_typed = text;
    const Offers offers = m_offers(text);
    showList(offers);
    showSpelling(offers.spelling);
}

void Proposals::showList(const Offers &offers)
{
    if (offers.names.isEmpty())
        return closeList();
    if (!m_list) {
        m_list = new QListWidget(m_box->window());
        m_list->setObjectName(u"proposals"_s);
        m_list->setAccessibleName(u"Propositions"_s);
        m_list->setFocusPolicy(Qt::NoFocus);
        m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_list->setUniformItemSizes(true);
        m_list->setSpacing(0);
        m_list->setTextElideMode(Qt::ElideRight);
        connect(this, &QObject::destroyed, m_list.data(), &QObject::deleteLater);
        connect(m_list, &QListWidget::itemClicked, this, [this](const QListWidgetItem *item) {
            take(item->text());
            emit m_box->editingFinished();
        });
    }
    m_list->clear();
    m_list->addItems(offers.names);
    m_list->setCurrentRow(offers.firstChosen ? 0 : -1);
    placeList();
    m_list->show();
    m_list->raise();
}

// Below the box, or above it where the window ends.
void Proposals::placeList()
{
    const QWidget &window = *m_box->window();
    const int width = std::max({m_box->width(), leastWidth, m_list->sizeHintForColumn(0) + 2 * look::gap});
    const int height = m_list->count() * m_list->sizeHintForRow(0) + 2;
    const QPoint below = m_box->mapTo(m_box->window(), QPoint(0, m_box->height() + 1));
    const int above = below.y() - m_box->height() - 2 - height;
    const int top = below.y() + height > window.height() && above > 0 ? above : below.y();
    const int left = std::max(0, std::min(below.x(), window.width() - width - 1));
    m_list->setGeometry(left, top, std::min(width, window.width() - 2), height);
}

// At the right end, where the text of such a short name doesn't reach.
void Proposals::showSpelling(const QString &spelling)
{
    if (spelling.isEmpty() && !m_spelling)
        return;
    if (!m_spelling) {
        m_spelling = new Label({}, m_box);
        m_spelling->setObjectName(u"spelling"_s);
        m_spelling->setCursor(Qt::PointingHandCursor);
        m_spelling->setToolTip(u"Clic ou Ctrl+Entrée : prendre ce nom"_s);
    }
    m_spelling->setText(spelling.isEmpty() ? QString() : spelling + u" ?"_s);
    m_spelling->onClick = [this, spelling] {
        take(spelling);
        emit m_box->editingFinished();
    };
    m_spelling->setVisible(!spelling.isEmpty());
    const QSize size = m_spelling->sizeHint();
    m_spelling->setGeometry(m_box->width() - size.width() - 4, 2, size.width(), m_box->height() - 4);
    m_box->setTextMargins(0, 0, spelling.isEmpty() ? 0 : size.width(), 0);
}

void Proposals::closeList()
{
    if (m_list)
        m_list->hide();
}

// As typed: it can be undone, and who listens to typing hears it.
void Proposals::take(const QString &name)
{
    m_taking = true;
    m_box->selectAll();
    m_box->insert(name);
    m_taking = false;
    closeList();
    showSpelling({});
}

void Proposals::step(int by)
{
    const int rows = m_list->count();
    const int now = m_list->currentRow();
    m_list->setCurrentRow(now < 0 ? (by > 0 ? 0 : rows - 1) : std::clamp(now + by, 0, rows - 1));
}

// True when the key is done with. Enter and Tab go on to the box and do there what they always do.
bool Proposals::keyInList(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Down:
    case Qt::Key_Up:
        step(event.key() == Qt::Key_Down ? 1 : -1);
        return true;
    case Qt::Key_Escape:
        closeList();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        if (const QListWidgetItem *chosen = m_list->currentItem())
            take(chosen->text());
        closeList();
        return false;
    default:
        return false;
    }
}

bool Proposals::keyPressed(const QKeyEvent &event)
{
    if (isEnter(event) && event.modifiers().testFlag(Qt::ControlModifier)) {
        const bool offered = m_spelling && m_spelling->isVisibleTo(m_box);
        if (offered)
            take(m_spelling->text().chopped(2));
        return offered;
    }
    const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    return listSeen() && plain && keyInList(event);
}

bool Proposals::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_box)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress)
        return keyPressed(*static_cast<QKeyEvent *>(event));
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
        closeList();
    else if (event->type() == QEvent::Resize && m_spelling && m_spelling->isVisibleTo(m_box))
        showSpelling(m_spelling->text().chopped(2));
    return false;
}

}
