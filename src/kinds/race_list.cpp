// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/race_list.h"

#include "kinds/empty_note.h"
#include "kinds/race_table.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QScrollBar>

namespace circuidex {

namespace {

constexpr int columnWidth = 200; // pixels
// The panel's left edge in twips, and the step of the arrows: one column.
constexpr double atStart = 120, columnStep = 2050;
constexpr double atEnd = atStart - (RaceList::columns - RaceList::seenColumns) * columnStep;
const QString array = u"Label11"_s;

}

RaceList::RaceList(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_panel(&hidden(u"Picture1"_s))
{
    m_panel->setGeometry({atStart, 0, columns * columnStep, rows * look::rowHeight * twipsPerPixel});
}

QWidget *RaceList::racePanel(Label *heading)
{
    std::vector<Column> shown;
    for (int column = 0; column < columns; ++column)
        shown.push_back({array, {}, columnWidth, Qt::AlignLeft, {}, column * rows});
    m_races = table(std::move(shown), rows);
    m_races->horizontalHeader()->hide();
    m_races->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_races->setFixedSize(seenColumns * columnWidth + 2, m_races->rowsHigh(rows));
    m_races->onDoubleClick = [this](const QString &, int index) { openRace(index); };
    add(emptyNote, noteOver(*m_races, array, context, results::Need::race));
    heading->setObjectName(u"caption"_s);
    heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a longer name moves nothing
    const auto arrow = [this](const QString &name, const QString &sign, const QString &tip, double by) {
        auto *made = button(name, sign, [this, by] { scroll(by); });
        made->setToolTip(tip);
        made->setFixedWidth(34);
        return made;
    };
    auto *head = new QHBoxLayout;
    head->addWidget(heading, 1);
    head->addWidget(arrow(u"Command2"_s, u"<"_s, u"Vers le début de la liste"_s, columnStep));
    head->addWidget(arrow(u"Command3"_s, u">"_s, u"Vers la fin de la liste"_s, -columnStep));
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addWidget(m_races);
    return card({}, layout);
}

void RaceList::showRaces(const std::vector<std::string> &races)
{
    for (int i = 0; i < rows * columns; ++i) {
        const auto at = static_cast<std::size_t>(i);
        Cell *cell = m_races->cell(array, i);
        cell->setText(at < races.size() ? qt(races[at]) : QString());
        cell->setTip(at < races.size() ? openTip : QString());
    }
}

void RaceList::scroll(double by)
{
    TwipRect place = m_panel->geometry();
    if (place.left == (by > 0 ? atStart : atEnd))
        return;
    place.left += by;
    m_panel->setGeometry(place);
    m_races->horizontalScrollBar()->setValue(static_cast<int>((atStart - place.left) / columnStep * columnWidth));
}

void RaceList::openRace(int index)
{
    const std::string race = m_races->text(array, index).toStdString();
    constexpr std::string_view between = " - ";
    if (const auto at = race.rfind(between); at != std::string::npos)
        openGrandPrix(context, race.substr(at + between.size()), race.substr(0, at));
}

}
