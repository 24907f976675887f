// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/menu_page.h"

#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>

#include <algorithm>

namespace circuidex {

MenuPage::MenuPage(Context &theContext, const QString &name, const QString &title, Chrome chrome)
    : Screen(theContext, name, title, chrome)
{
    body()->setObjectName(u"menu"_s);
    style()->unpolish(body()); // it has been dressed as an ordinary one
    style()->polish(body());
    body()->setMouseTracking(true);
    hidden(u"Fond"_s).onHover = [this] { rest(); };
}

Label *MenuPage::makeLabel(const QString &control, const QString &caption)
{
    auto *label = add(control, new Label(caption, body()));
    this->control(control)->setBack(look::menu);
    return label;
}

Label *MenuPage::addText(QBoxLayout &into, const QString &control, const QString &caption, const char *style)
{
    auto *label = makeLabel(control, caption);
    label->setProperty("menu", QString::fromLatin1(style));
    into.addWidget(label);
    return label;
}

Label *MenuPage::addEntry(QBoxLayout &into, const QString &control, const QString &caption, bool reachable,
                          std::function<void()> choose, const QString &arrow)
{
    auto *label = makeLabel(control, caption);
    label->setFixedHeight(m_rowHeight);
    m_lines.push_back(std::make_unique<Line>(Line{control, arrow, label, reachable}));
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(label, 1);
    std::vector<Label *> parts{label};
    if (!arrow.isEmpty()) {
        parts.push_back(makeLabel(arrow, u"►"_s));
        parts.back()->setFixedWidth(arrowWidth);
        row->addWidget(parts.back());
    }
    for (Label *part : parts) {
        part->setProperty("menu", reachable ? u"entry"_s : u"absent"_s);
        part->setFixedHeight(m_rowHeight);
        if (!reachable) {
            part->setToolTip(notYet);
            continue;
        }
        part->setCursor(Qt::PointingHandCursor);
        part->onClick = choose;
        part->onHover = [this, line = m_lines.back().get()] { point(*line); };
    }
    into.addLayout(row);
    return label;
}

QWidget *MenuPage::makeRule()
{
    auto *line = new QFrame;
    line->setObjectName(u"menurule"_s);
    line->setFixedHeight(1);
    return line;
}

QString MenuPage::captionOf(const menus::Entry &entry) const
{
    const QString caption = qt(entry.caption);
    return entry.season ? caption + qt(context.main.an.text()) : caption;
}

bool MenuPage::reachable(const menus::Entry &entry) const
{
    return context.screens.exists(qt(entry.screen));
}

void MenuPage::openTarget(const menus::Entry &entry)
{
    const Waiting waiting(*this);
    Screen *target = context.screens.open(qt(entry.screen));
    if (target && !entry.press.empty())
        target->press(qt(entry.press));
    Screen *main = context.screens.find(u"Form1"_s);
    if (target && main && entry.insteadOfMain)
        main->putAway();
}

void MenuPage::paint(const Line &line, const QColor &colour)
{
    control(line.name)->setBack(colour);
    if (!line.arrow.isEmpty())
        control(line.arrow)->setBack(colour);
}

void MenuPage::rest()
{
    for (const auto &line : m_lines)
        paint(*line, look::menu);
}

// The keyboard goes on from where the pointer is.
void MenuPage::point(const Line &line)
{
    paint(line, look::chosen);
    line.label->setFocus();
}

const MenuPage::Line *MenuPage::current() const
{
    for (const auto &line : m_lines)
        if (line->label == focusWidget())
            return line.get();
    return nullptr;
}

void MenuPage::step(int by)
{
    std::vector<const Line *> lines;
    for (const auto &line : m_lines)
        if (line->reachable)
            lines.push_back(line.get());
    if (lines.empty())
        return;
    const auto at = std::find(lines.begin(), lines.end(), current());
    const auto count = static_cast<int>(lines.size());
    const int from = at != lines.end() ? static_cast<int>(at - lines.begin()) : by > 0 ? -1 : count;
    rest();
    point(*lines[static_cast<std::size_t>((from + by + count) % count)]);
}

void MenuPage::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        return step(1);
    case Qt::Key_Up:
        return step(-1);
    default:
        Screen::keyPressEvent(event);
    }
}

bool MenuPage::focusNextPrevChild(bool next)
{
    step(next ? 1 : -1);
    return true;
}

// Between the labels the pointer is over the background.
void MenuPage::mouseMoveEvent(QMouseEvent *event)
{
    Screen::mouseMoveEvent(event);
    if (childAt(event->position().toPoint()) == body())
        control(u"Fond"_s)->hover();
}

}
