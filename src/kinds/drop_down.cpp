// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/drop_down.h"

#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/window_system.h"

#include <QBoxLayout>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>

namespace circuidex {

namespace {

constexpr int rowHeight = 26, leastWidth = 184; // pixels

const menus::Menu &menuNamed(const QString &name)
{
    const menus::Menu *found = menus::find(name.toStdString());
    if (!found)
        qFatal("no menu %s", qPrintable(name));
    return *found;
}

QString numbered(const QString &name, int number)
{
    return name + QString::number(number);
}

// What its longest line needs, in pixels. Headings are bold, so all lines are measured so.
int widthOf(const menus::Menu &menu, int arrowWidth)
{
    QFont bold = QGuiApplication::font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    int words = metrics.horizontalAdvance(qt(menu.heading));
    for (const menus::Entry &entry : menu.entries()) {
        const int arrow = menus::find(entry.screen) ? arrowWidth : 0;
        words = std::max(words, metrics.horizontalAdvance(qt(entry.caption)) + arrow);
    }
    return std::max(leastWidth, words + 6 * look::gap);
}

int widestSide(const menus::Menu &menu, int arrowWidth)
{
    int widest = 0;
    for (const menus::Entry &entry : menu.entries())
        if (const menus::Menu *side = menus::find(entry.screen))
            widest = std::max(widest, widthOf(*side, arrowWidth));
    return widest;
}

}

DropDown::DropDown(Context &theContext, const QString &name, const QString &title)
    : MenuPage(theContext, name, title, Chrome::none), m_menu(menuNamed(name)), m_fond(control(u"Fond"_s))
{
    if (onWayland())
        setWindowFlags(Qt::Popup | Qt::FramelessWindowHint);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    setRowHeight(rowHeight);
    layout()->setContentsMargins(1, 1, 1, 1);
    layOut();
    setFixedSize(widthOf(m_menu, arrowWidth), sizeHint().height());
    if (m_menu.dropDown()) {
        timer(u"Timer1"_s, 100, TimerControl::Kind::once, [this] { raise(); });
        standBesideButton();
    } else {
        standBesideParent();
    }
}

void DropDown::layOut()
{
    auto *column = new QVBoxLayout(body());
    column->setContentsMargins(3, 3, 3, 3);
    column->setSpacing(1);
    int number = 1;
    Label *heading = addText(*column, numbered(u"Label"_s, number++), qt(m_menu.heading), "heading");
    heading->setFixedHeight(rowHeight);
    if (!m_menu.help.empty()) {
        heading->setCursor(Qt::PointingHandCursor);
        heading->setToolTip(u"Aide sur les courbes et graphiques"_s);
        heading->onClick = [this] { showHelp(); };
    }
    column->addWidget(makeRule());
    for (const menus::Entry &entry : m_menu.entries()) {
        const QString name = numbered(u"Label"_s, number);
        if (entry.screen.empty()) {
            column->addWidget(makeRule());
            addText(*column, name, captionOf(entry), "heading")->setFixedHeight(rowHeight);
        } else {
            const QString arrow = menus::find(entry.screen) ? numbered(u"Fleche"_s, number) : QString();
            addEntry(
                *column, name, captionOf(entry), reachable(entry), [this, &entry] { choose(entry); }, arrow);
        }
        ++number;
    }
    column->addWidget(makeRule());
    addEntry(*column, numbered(u"Label"_s, number), u"Fermer"_s, true, [this] { close(); });
}

void DropDown::choose(const menus::Entry &entry)
{
    if (menus::find(entry.screen))
        return openSide(entry);
    openTarget(entry);
    DropDown *parent = parentMenu();
    close();
    if (parent)
        parent->close();
}

void DropDown::openSide(const menus::Entry &entry)
{
    closeSides();
    if (auto *side = dynamic_cast<DropDown *>(context.screens.open(qt(entry.screen))))
        side->belongTo(entry.tag);
}

void DropDown::closeSides()
{
    for (const menus::Entry &entry : m_menu.entries())
        if (menus::find(entry.screen))
            context.screens.close(qt(entry.screen));
}

void DropDown::closing()
{
    closeSides();
}

void DropDown::showHelp()
{
    if (Screen *help = context.screens.open(u"Form27"_s))
        help->setText(u"Text1"_s, help->text(qt(m_menu.help)));
}

void DropDown::belongTo(std::string_view tag)
{
    m_fond->tag = qt(tag);
    standBesideParent();
}

DropDown *DropDown::parentMenu() const
{
    const menus::Menu *parent = menus::parentOf(m_menu.name, m_fond->tag.toStdString());
    return parent ? dynamic_cast<DropDown *>(context.screens.find(qt(parent->name))) : nullptr;
}

double DropDown::topOf(const DropDown &side) const
{
    int number = 2;
    for (const menus::Entry &entry : m_menu.entries()) {
        if (entry.screen == side.m_menu.name)
            return control(numbered(u"Label"_s, number))->geometry().top;
        ++number;
    }
    return 0;
}

const QWidget *DropDown::owner() const
{
    const DropDown *parent = parentMenu();
    return parent ? parent : Screen::owner();
}

void DropDown::standBesideParent()
{
    const DropDown *parent = parentMenu();
    if (!parent)
        return;
    const TwipRect own = menus::besideParent(m_menu.standing, parent->place(), place(), parent->topOf(*this));
    setPlace(own.left, own.top);
}

void DropDown::standBesideButton()
{
    const QRect room = Screen::room();
    const TwipRect display{room.x() * twipsPerPixel, room.y() * twipsPerPixel, room.width() * twipsPerPixel,
                           room.height() * twipsPerPixel};
    TwipRect beside = display;
    const Screen *main = context.screens.find(u"Form1"_s);
    if (const Control *opener = main ? main->control(qt(m_menu.button)) : nullptr) {
        beside = opener->geometry();
        beside.left += main->place().left;
        beside.top += main->place().top;
    }
    const TwipRect own = menus::besideButton(beside, place(), display, widestSide(m_menu, arrowWidth) * twipsPerPixel);
    setPlace(own.left, own.top);
}

void DropDown::keyPressEvent(QKeyEvent *event)
{
    const Line *line = current();
    DropDown *parent = parentMenu();
    switch (event->key()) {
    case Qt::Key_Right:
        if (line && leadsOn(*line))
            line->label->onClick();
        return;
    case Qt::Key_Left:
        if (m_menu.dropDown())
            return closeSides();
        [[fallthrough]];
    case Qt::Key_Escape:
        close();
        if (parent)
            parent->present();
        return;
    default:
        MenuPage::keyPressEvent(event);
    }
}

}
