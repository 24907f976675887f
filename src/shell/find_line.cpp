// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/find_line.h"

#include "shell/table.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollArea>
#include <QToolButton>

#include <algorithm>

namespace circuidex {

namespace {

constexpr int widest = 340; // pixels

}

FindLine::FindLine(Table &table) : QFrame(&table), m_table(table), m_text(new Edit), m_count(new QLabel)
{
    setObjectName(u"find"_s);
    setAccessibleName(u"Rechercher dans le tableau"_s);
    setFocusProxy(m_text);
    m_text->setPlaceholderText(u"Rechercher"_s);
    m_text->setAccessibleName(u"Rechercher dans le tableau"_s);
    m_text->installEventFilter(this);
    m_count->setTextFormat(Qt::PlainText);
    m_count->setObjectName(u"hint"_s);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(4, 3, 4, 3);
    row->setSpacing(4);
    row->addWidget(m_text, 1);
    row->addWidget(m_count);
    const auto sign = [this, row](const QString &words, const QString &tip, auto pressed) {
        auto *made = new QToolButton;
        made->setText(words);
        made->setToolTip(tip);
        made->setAutoRaise(true);
        made->setFocusPolicy(Qt::NoFocus);
        connect(made, &QToolButton::clicked, this, pressed);
        row->addWidget(made);
    };
    sign(u"<"_s, u"Précédent (Maj+Entrée)"_s, [this] { step(-1); });
    sign(u">"_s, u"Suivant (Entrée)"_s, [this] { step(1); });
    sign(u"×"_s, u"Fermer (Échap)"_s, [this] { leave(); });
    connect(m_text, &QLineEdit::textChanged, this, [this] { typed(); });
    table.installEventFilter(this);
}

const QString FindLine::text() const
{
    return m_text->text();
}

void FindLine::open()
{
    const QModelIndex now = m_table.currentIndex();
    m_from = now.isValid()
        ? Place{m_table.verticalHeader()->visualIndex(now.row()), m_table.horizontalHeader()->visualIndex(now.column())}
        : Place{0, 0};
    settle();
    QFrame::show();
    raise();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    typed();
}

std::vector<FindLine::Place> FindLine::hits() const
{
    std::vector<Place> found;
    const QString wanted = folded(m_text->text().trimmed());
    const CellModel &model = m_table.model();
    for (int row = 0; !wanted.isEmpty() && row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column) {
            const int logicalRow = m_table.verticalHeader()->logicalIndex(row);
            const int logicalColumn = m_table.horizontalHeader()->logicalIndex(column);
            if (folded(model.cell(logicalRow, logicalColumn).text()).contains(wanted))
                found.push_back({row, column});
        }
    return found;
}

// The first one from where the search began.
void FindLine::typed()
{
    const auto found = hits();
    const auto from = std::lower_bound(found.begin(), found.end(), m_from);
    show(found, from == found.end() ? 0 : std::size_t(from - found.begin()));
}

void FindLine::step(int by)
{
    const auto found = hits();
    if (found.empty())
        return show(found, 0);
    const QModelIndex index = m_table.currentIndex();
    const Place now{m_table.verticalHeader()->visualIndex(index.row()),
                    m_table.horizontalHeader()->visualIndex(index.column())};
    const auto after =
        by > 0 ? std::upper_bound(found.begin(), found.end(), now) : std::lower_bound(found.begin(), found.end(), now);
    const std::size_t at = std::size_t(after - found.begin());
    if (by > 0)
        show(found, at == found.size() ? 0 : at);
    else
        show(found, at == 0 ? found.size() - 1 : at - 1);
}

// Brings the hit to sight: in the table, and the table in its window.
void FindLine::show(const std::vector<Place> &found, std::size_t at)
{
    const bool none = found.empty();
    m_count->setText(m_text->text().trimmed().isEmpty() ? QString()
                         : none                         ? u"aucun"_s
                                                        : u"%1 sur %2"_s.arg(at + 1).arg(found.size()));
    setMark(*m_count, "none", none);
    if (none)
        return;
    const QModelIndex index = m_table.model().index(m_table.verticalHeader()->logicalIndex(found[at].row),
                                                    m_table.horizontalHeader()->logicalIndex(found[at].column));
    m_table.selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    m_table.scrollTo(index);
    for (QWidget *above = m_table.parentWidget(); above; above = above->parentWidget())
        if (auto *area = qobject_cast<QScrollArea *>(above)) {
            const QRect cell = m_table.visualRect(index);
            const QPoint middle = m_table.viewport()->mapTo(area->widget(), cell.center());
            area->ensureVisible(middle.x(), middle.y(), cell.width() / 2, cell.height() + height());
        }
}

// At the foot of what is seen of the table.
void FindLine::settle()
{
    const QRect seen =
        m_table.visibleRegion().boundingRect().isEmpty() ? m_table.rect() : m_table.visibleRegion().boundingRect();
    const int wide = std::min(widest, m_table.width() - 4);
    const int high = sizeHint().height();
    setGeometry(m_table.width() - wide - 2, std::min(seen.bottom(), m_table.height()) - high - 1, wide, high);
}

void FindLine::leave()
{
    hide();
    m_table.setFocus(Qt::OtherFocusReason);
}

bool FindLine::onKey(QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Escape:
        leave();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F3:
        step(event.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
        return true;
    default:
        return false;
    }
}

// Escape and Enter are the line's, before the window's shortcuts take them.
bool FindLine::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_table) {
        if (event->type() == QEvent::Resize && isVisible())
            settle();
        return false;
    }
    if (event->type() == QEvent::KeyPress)
        return onKey(*static_cast<QKeyEvent *>(event));
    return false;
}

// A click beside its buttons isn't for the cell behind.
bool FindLine::event(QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease)
        return true;
    return QFrame::event(event);
}

}
