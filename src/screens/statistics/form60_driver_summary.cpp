// SPDX-License-Identifier: GPL-3.0-or-later
// Form60, one driver's season race by race: his places, what he gained in the race and his points, with their sums. The
// season is that of the main screen, and a year typed here becomes it.
#include "kinds/picker.h"
#include "kinds/race_table.h"
#include "results/grid.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/season_summary.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

const QString stale = u"1"_s; // the tag of the first points while the scale in use may be another season's

std::vector<Column> columns()
{
    constexpr int width = 96;
    constexpr Qt::Alignment right = Qt::AlignRight;
    return {
        {u"Text4"_s, u"Position sur la Grille:"_s, width, right},
        {u"Label11"_s, u"Position a l'Arrivée:"_s, width, right},
        {u"lblpt"_s, u"Progression en Course:"_s, width, right, u"Places gagnées entre la grille et l'arrivée"_s, 1},
        {u"Label2"_s, u"Cumul des Progressions:"_s, width, right},
        {u"Text6"_s, u"Points Gagnés par GP:"_s, width, right, u"Selon le barème de la saison"_s},
        {u"Text5"_s, u"Cumul des Points:"_s, width, right}};
}

class Form60 : public RaceTable {
public:
    Form60(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    void ask(); // Command2
    void askTyped();
    void refreshScale();
    void step(int by, int end);
    void showRow(int index, const statistics::DriverSummaryRow &row);

    Field m_driver, m_year, m_team; // Text1 to Text3
    Field m_slot{"1"}; // Label40, where the arrows stand
    Field m_row{"0"}; // no, the driver's number less one
    Table *m_rows = nullptr;
};

Form60::Form60(Context &theContext, const QString &name, const QString &title)
    : RaceTable(theContext, name, title), m_driver(theContext.main.season().nom(1)), m_year(theContext.main.an.text())
{
    hidden(u"Label40"_s, m_slot);
    hidden(u"no"_s, m_row);
    m_rows = raceTable(u"Nom du Grand-Prix:"_s, columns());
    m_rows->setAlternatingRowColors(false);
    m_rows->setTitleLines(2);
    m_rows->setFixedHeight(m_rows->rowsHigh(gpSlots));
    layOut(question(), m_rows,
           foot(legend({},
                       {{look::gain, u"Places gagnées"_s},
                        {look::chosen, u"Place gardée"_s},
                        {look::loss, u"Places perdues"_s}})));
    listen(m_year, [this](const std::string &year) {
        context.main.an.set(year);
        m_rows->cell(u"Text6", 0)->tag = stale;
    });
    refreshScale();
    ask();
}

QWidget *Form60::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = m_known.offerDrivers(box(*row, u"Pilote:"_s, u"Text1"_s, m_driver, 0, [this] { askTyped(); }));
    arrows(*row, driver, {u"Command3"_s, u"Pilote précédent"_s, Qt::Key_PageUp, [this] { step(-1, 1); }},
           {u"Command4"_s, u"Pilote suivant"_s, Qt::Key_PageDown, [this] { step(1, driverSlots); }});
    row->addWidget(
        list(u"Command1"_s, [this] { openPicker(context.screens, PickList::drivers, u"resum"_s, qt(m_year.text())); }));
    row->addSpacing(8);
    auto *year = box(*row, u"Saison:"_s, u"Text2"_s, m_year, 60, [this] { ask(); });
    year->setToolTip(u"Cette saison devient aussi celle de l'écran principal"_s);
    row->addSpacing(8);
    box(*row, u"Ecurie:"_s, u"Text3"_s, m_team, 120, [this] { ask(); })->setReadOnly(true);
    row->addWidget(mainButton(u"Command2"_s, u"Ouvrir"_s, u"Montrer sa saison (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

void Form60::refreshScale()
{
    context.main.refreshScale();
    m_rows->cell(u"Text6", 0)->tag.clear();
}

// A name that was typed brings its own team along.
void Form60::askTyped()
{
    if (const auto number = results::driverNamed(context.main.season(), m_driver.text()))
        m_row.set(std::to_string(*number - 1));
    ask();
}

void Form60::ask()
{
    const Waiting waiting(*this);
    if (m_rows->cell(u"Text6", 0)->tag == stale)
        refreshScale();
    const Season season = context.main.season();
    const std::string number = season.numbers().sum(m_row.text(), "1").value_or("");
    const auto summary = statistics::driverSummary(season, context.main.scale(), m_driver.text(), number);
    m_team.set(summary.team);
    for (int index = 0; const statistics::DriverSummaryRow &row : summary.rows) {
        setRace(index, row.gp, season.stem());
        showRow(index++, row);
    }
}

void Form60::showRow(int index, const statistics::DriverSummaryRow &row)
{
    m_rows->set(u"Text4", index, qt(row.grid));
    m_rows->set(u"Label11", index, qt(row.finish));
    showFigure(*m_rows, u"lblpt", index + 1, row.gain);
    showFigure(*m_rows, u"Label2", index, row.gainSum);
    m_rows->set(u"Text6", index, qt(row.points));
    m_rows->set(u"Text5", index, qt(row.pointsSum));
}

void Form60::step(int by, int end)
{
    const Numbers &numbers = context.store.numbers();
    m_slot.set(numbers.stepped(m_slot.text(), by, end));
    m_row.set(numbers.difference(m_slot.text(), "1").value_or(m_row.text()));
    m_driver.set(context.main.season().nom(m_slot.text()));
    ask();
}

}

ScreenRows form60()
{
    return {screenRow<Form60>(u"Form60"_s, u"Résumé de Saison par Pilote"_s)};
}

}
