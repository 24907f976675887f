// SPDX-License-Identifier: GPL-3.0-or-later
// Form32, the statistics of the season: at the press of a button one figure of all drivers, or one of the three
// all-time lists, as a ranked table with bars. An all-time list is written back in its order when it has been shown.
#include "kinds/ranked_bars.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/season_statistics.h"

namespace circuidex::screens {

namespace {

const QString winsScreen = u"Form23"_s, racesScreen = u"Form33"_s;

class Form32 : public RankedBars {
public:
    Form32(Context &context, const QString &name, const QString &title);

protected:
    void openRow(int row) override;

private:
    ModeGroup group(const QString &heading, const QColor &ground, bool allTime);
    void registerHidden();
    void choose(const statistics::Statistic &statistic); // one of the fifteen buttons
    void compute(); // Command1
    void show(const statistics::StatisticTable &made);
    void keep(); // Command16

    standings::Standings m_shown;
    Field m_word; // Label2
    Field m_first, m_rank; // first, classement
};

Form32::Form32(Context &theContext, const QString &name, const QString &title) : RankedBars(theContext, name, title)
{
    registerHidden();
    layOut({group(u"Saison en cours:"_s, look::chosen, false), group(u"Records historiques:"_s, look::loss, true)},
           Coloured::ground, u"Label12"_s);
    describeRows(u"Pilote"_s, u"Cliquez pour voir les Grands Prix derrière ce chiffre"_s);
}

void Form32::registerHidden()
{
    hidden(u"Label2"_s, m_word);
    hidden(u"first"_s, m_first);
    hidden(u"classement"_s, m_rank);
    hidden(u"Command1"_s, {}, [this] { compute(); });
    hidden(u"Command16"_s, {}, [this] { keep(); });
    for (int i = 1; i <= driverSlots; ++i)
        for (const QString &array : {u"Text1"_s, u"Text2"_s, u"lblpt"_s})
            hidden(array, {}, {}, i);
}

RankedBars::ModeGroup Form32::group(const QString &heading, const QColor &ground, bool allTime)
{
    ModeGroup made{heading, ground, {}};
    for (const statistics::Statistic &statistic : statistics::seasonStatistics)
        if (statistic.allTime.has_value() == allTime)
            made.modes.push_back({qt(statistic.button), qt(statistic.caption), qt(statistic.title),
                                  [this, &statistic] { choose(statistic); }});
    return made;
}

void Form32::choose(const statistics::Statistic &statistic)
{
    m_word.set(std::string(statistic.word));
    compute();
    if (statistic.allTime)
        keep();
}

void Form32::compute()
{
    if (const statistics::Statistic *statistic = statistics::statisticNamed(m_word.text()))
        show(statistics::statisticTable(context.main.season(), *statistic));
}

void Form32::show(const statistics::StatisticTable &made)
{
    for (int i = 1; i <= driverSlots; ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        setText(u"Text1"_s, qt(made.names[at]), i);
        setText(u"Text2"_s, qt(made.figures[at]), i);
        setText(u"lblpt"_s, qt(made.table.rows[at].gap), i);
    }
    m_rank.set(std::to_string(made.table.rank));
    m_first.set(made.first ? std::to_string(*made.first) : std::string());
    showRows(made.table.rows, made.bars);
    m_shown = made.table;
}

void Form32::keep()
{
    if (const statistics::Statistic *statistic = statistics::statisticNamed(m_word.text()))
        statistics::keepAllTimeList(context.store, *statistic, m_shown);
}

// All wins of a driver from the list of wins; from a count of the season the races behind it, if there are any.
void Form32::openRow(int row)
{
    const QString driver = rowName(row);
    if (m_word.text() == "t20vic") {
        if (const Screen *wins = context.screens.open(winsScreen)) {
            wins->setText(u"Text1"_s, driver);
            wins->press(u"Command1"_s);
        }
        return;
    }
    context.screens.close(racesScreen);
    const auto what = standings::countedRaces(m_word.text());
    if (!what || standings::racesWith(context.main.season(), *what, driver.toStdString()).empty())
        return;
    if (const Screen *races = context.screens.open(racesScreen))
        races->setText(u"Label2"_s, driver);
}

}

ScreenRows form32()
{
    return {screenRow<Form32>(u"Form32"_s, u"Statistiques de la Saison"_s,
                              [](Screen &screen) { screen.press(u"Command17"_s); })};
}

}
