// SPDX-License-Identifier: GPL-3.0-or-later
// Form33, the races behind one number of the season statistics. A moment after it opened it asks which statistic is on
// show; where none has races behind it, it closes again.
#include "kinds/empty_note.h"
#include "kinds/race_table.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screen.h"
#include "shell/screens.h"
#include "shell/table_menu.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

const QString statisticsScreen = u"Form32"_s, raceScreen = u"Form4"_s;

class Form33 : public Screen {
public:
    Form33(Context &context, const QString &name, const QString &title);

private:
    void fill();
    void openRace(int row);

    Table *m_races = nullptr;
};

Form33::Form33(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    auto *driver = add(u"Label2"_s, new Label);
    driver->setObjectName(u"large"_s);
    auto *head = new QHBoxLayout;
    head->addWidget(styled(u"Pilote :"_s, "hint"));
    head->addWidget(driver, 1);
    m_races = table({{{}, u"N°"_s, 40, Qt::AlignRight},
                     {u"Text3"_s, u"Grand Prix"_s, 0, Qt::AlignLeft,
                      u"Cliquez pour ouvrir ce Grand Prix, double-cliquez pour le refermer"_s, 1, true}},
                    static_cast<int>(standings::listedRaces));
    m_races->setFixedHeight(m_races->rowsHigh(static_cast<int>(standings::listedRaces)));
    add(emptyNote, noteOver(*m_races, u"Text3"_s, context, results::Need::race));
    allowSorting(*m_races);
    m_races->onPress = [this](const QString &column, int row) {
        if (!column.isEmpty())
            openRace(row);
    };
    m_races->onDoubleClick = [this](const QString &, int) { context.screens.close(raceScreen); };
    auto *foot = footRow(u"Label12"_s);
    auto *layout = page();
    layout->addLayout(head);
    layout->addWidget(m_races);
    layout->addLayout(foot);
    setFixedWidth(320);
    setFocus(); // of the screen, so that no race looks chosen
    timer(u"Timer1"_s, 100, TimerControl::Kind::once, [this] { fill(); });
}

// The races are looked through one by one, for which an opened Grand Prix gives way.
void Form33::fill()
{
    context.screens.close(raceScreen);
    const Screen *statistics = context.screens.find(statisticsScreen);
    const auto what = standings::countedRaces(statistics ? statistics->text(u"Label2"_s).toStdString() : "");
    const std::string driver = text(u"Label2"_s).toStdString();
    int row = 0;
    for (const std::string &race :
         what ? standings::racesWith(context.main.season(), *what, driver) : std::vector<std::string>()) {
        ++row;
        m_races->model().cell(row - 1, 0).setText(QString::number(row));
        m_races->set(u"Text3", row, qt(race));
    }
    if (row == 0)
        close();
}

// A podium's row names the place too and opens nothing.
void Form33::openRace(int row)
{
    const QString race = m_races->text(u"Text3", row);
    const Screen *statistics = context.screens.find(statisticsScreen);
    if (race.isEmpty() || (statistics && statistics->text(u"Label2"_s) == u"pod"))
        return;
    openGrandPrix(context, context.main.an.text(), race.toStdString());
}

}

ScreenRows form33()
{
    return {screenRow<Form33>(u"Form33"_s, u"Liste des Grands-Prix"_s)};
}

}
