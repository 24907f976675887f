// SPDX-License-Identifier: GPL-3.0-or-later
// Form21, Form63 and Form55, one season: who won each Grand Prix, or who held one place at the finish or on the grid,
// with his team, and the champion. For a year without a file the archive tells the winners.
#include "kinds/race_table.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "standings/classification.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

struct HoldersKind {
    standings::Stage stage;
    bool winners; // the first place alone
    QStringView column; // title over the drivers
    QStringView yearBack, yearOn; // controls
};

constexpr HoldersKind winners{standings::Stage::finish, true, u"Vainqueur du GP:", u"Command7", u"Command6"};
constexpr HoldersKind finishers{standings::Stage::finish, false, u"Pilote à cette place:", u"Command6", u"Command5"};
constexpr HoldersKind starters{standings::Stage::grid, false, u"Pilote à cette place:", u"Command6", u"Command5"};

class HoldersOfPlace : public RaceTable {
public:
    HoldersOfPlace(Context &context, const QString &name, const QString &title, HoldersKind kind);

private:
    QWidget *question();
    void addPlace(QBoxLayout &row);
    void ask(); // Command1
    void stepPlace(int by, int end);
    void stepYear(int by);

    HoldersKind m_kind;
    standings::LaggingYear m_year; // Text2 and Label2
    Field m_place{"1"}; // Text3
    Field m_champion; // Label5
    Table *m_rows = nullptr;
};

HoldersOfPlace::HoldersOfPlace(Context &theContext, const QString &name, const QString &title, HoldersKind kind)
    : RaceTable(theContext, name, title), m_kind(kind), m_year(theContext.main.an.text())
{
    hidden(u"Label2"_s, m_year.shown);
    m_rows =
        raceTable(u"Grand Prix"_s, {{u"Label11"_s, m_kind.column.toString(), 380}, {u"Text1"_s, u"Ecurie:"_s, 210}});
    layOut(question(), m_rows, foot(styled(u"En couleur: le champion du monde"_s, "hint")));
    ask();
}

QWidget *HoldersOfPlace::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    if (!m_kind.winners)
        addPlace(*row);
    auto *year = box(*row, u"Saison:"_s, u"Text2"_s, m_year.typed, 60, [this] {
        m_year.shown.set(m_year.typed.text());
        ask();
    });
    arrows(*row, year,
           {m_kind.yearBack.toString(), u"Saison précédente"_s, m_kind.winners ? Qt::Key_PageUp : Qt::Key_Left,
            [this] { stepYear(-1); }},
           {m_kind.yearOn.toString(), u"Saison suivante"_s, m_kind.winners ? Qt::Key_PageDown : Qt::Key_Right,
            [this] { stepYear(1); }});
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s, u"Montrer cette saison (Entrée)"_s, [this] { ask(); }));
    row->addStretch(1);
    auto *champion = add(u"Label5"_s, new Label);
    champion->setObjectName(u"figure"_s);
    champion->setFixedWidth(138);
    bind(champion, m_champion);
    row->addWidget(styled(u"Champion du monde:"_s, "hint"));
    row->addWidget(champion);
    return card({}, row);
}

void HoldersOfPlace::addPlace(QBoxLayout &row)
{
    auto *place = box(row, u"Place:"_s, u"Text3"_s, m_place, 36, [this] { ask(); });
    arrows(row, place, {u"Command3"_s, u"Une place plus haut"_s, Qt::Key_PageUp, [this] { stepPlace(-1, 1); }},
           {u"Command2"_s, u"Une place plus bas"_s, Qt::Key_PageDown,
            [this] { stepPlace(1, standings::lastPlace(m_kind.stage)); }});
    row.addSpacing(8);
}

void HoldersOfPlace::ask()
{
    const Waiting waiting(*this);
    const std::string season = m_year.shown.text();
    const standings::SeasonWinners holders = m_year.open(context.store, m_kind.stage, m_place.text());
    for (int index = 0; const standings::RaceWinner &race : holders.races) {
        setRace(index, race.gp, season);
        m_rows->set(u"Label11", index, qt(race.winner));
        m_rows->set(u"Text1", index, qt(race.team));
        const bool champion = !race.winner.empty() && race.winner == holders.champion;
        m_rows->setBack(u"Label11", index, champion ? std::optional(look::chosen) : std::nullopt);
        ++index;
    }
    m_champion.set(holders.champion);
}

void HoldersOfPlace::stepPlace(int by, int end)
{
    m_place.set(context.store.numbers().stepped(m_place.text(), by, end));
    ask();
}

void HoldersOfPlace::stepYear(int by)
{
    m_year.step(by, context.store.numbers());
    ask();
}

}

ScreenRows form21()
{
    return {kindRow<HoldersOfPlace>(u"Form21"_s, u"Victoires par Saison"_s, winners),
            kindRow<HoldersOfPlace>(u"Form63"_s, u"Classement par Saison"_s, finishers),
            kindRow<HoldersOfPlace>(u"Form55"_s, u"Grille de Départ par Saison"_s, starters)};
}

}
