// SPDX-License-Identifier: GPL-3.0-or-later
// Form94, a driver and his team at one Grand Prix: where he started and finished and what the team scored there in each
// of the last ten seasons, and who won.
#include "kinds/empty_note.h"
#include "kinds/lookup_screen.h"
#include "kinds/picker.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/table_menu.h"
#include "statistics/circuits.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

constexpr int rows = statistics::yearsAtCircuit;
constexpr int yearWidth = 64, figureWidth = 120, winnerWidth = 170; // pixels

class Form94 : public LookupScreen {
public:
    Form94(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QLayout *tables();
    QWidget *tableCard(const QString &caption, std::vector<Column> columns);
    void ask(); // Command1
    void show(int row, const statistics::YearAtCircuit &year);
    void set(const QString &array, int index, const std::string &text) { setText(array, qt(text), index); }

    Field m_year; // the screen's tag: the season in hand
    Field m_driver, m_team, m_gp; // nomecurie, nompilote, nomgp
};

Form94::Form94(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_year(theContext.main.an.text()),
      m_driver(theContext.main.season().nom(1)), m_gp(theContext.main.gp.text())
{
    hidden(u"Tag"_s, m_year);
    auto *layout = page();
    layout->addWidget(question());
    layout->addLayout(tables());
    layout->addLayout(footRow(u"Label14"_s));
    layout->setSizeConstraint(QLayout::SetFixedSize);
    add(emptyNote, noteOver(*Screen::tables().front(), u"Label6"_s, context, results::Need::race));
    ask();
}

QWidget *Form94::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    m_known.offerDrivers(box(*row, u"Pilote:"_s, u"nomecurie"_s, m_driver, 190, [this] { ask(); }));
    row->addWidget(
        list(u"Command4"_s, [this] { openPicker(context.screens, PickList::drivers, u"pilotcompaan94"_s); }));
    row->addSpacing(look::gap);
    row->addWidget(styled(u"Ecurie:"_s, "hint"));
    auto *team = add(u"nompilote"_s, new Label);
    team->setFixedWidth(130);
    bind(team, m_team);
    row->addWidget(team);
    m_known.offerGrandsPrix(box(*row, u"Grand Prix:"_s, u"nomgp"_s, m_gp, 160, [this] { ask(); }));
    auto *races = button(u"Command2"_s, u"Liste"_s,
                         [this] { openPicker(context.screens, PickList::grandsPrix, u"courseanalyse94"_s); });
    races->setToolTip(u"Choisir un Grand Prix dans la liste"_s);
    row->addWidget(races);
    row->addStretch(1);
    row->addWidget(
        mainButton(u"Command1"_s, u"Ouvrir"_s, u"Montrer les dix dernières saisons (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

QLayout *Form94::tables()
{
    const auto ofYears = [this](const QString &caption, const QString &figure, int firstIndex) {
        return tableCard(caption,
                         {{u"Label5"_s, u"Année"_s, yearWidth, Qt::AlignHCenter, {}, firstIndex},
                          {u"Label6"_s, figure, figureWidth, Qt::AlignRight, {}, firstIndex}});
    };
    auto *row = new QHBoxLayout;
    row->setSpacing(look::gap);
    row->addWidget(ofYears(u"Position sur la grille de départ:"_s, u"Place"_s, 0));
    row->addWidget(ofYears(u"Classement à l'arrivée:"_s, u"Place"_s, rows));
    row->addWidget(ofYears(u"Points marqués par l'écurie:"_s, u"Points"_s, 2 * rows));
    row->addWidget(tableCard(
        u"Les 10 derniers vainqueurs:"_s,
        {{u"Label11"_s, u"Année"_s, yearWidth, Qt::AlignHCenter}, {u"Label12"_s, u"Vainqueur"_s, winnerWidth}}));
    return row;
}

QWidget *Form94::tableCard(const QString &caption, std::vector<Column> columns)
{
    const int wide = columns[0].width + columns[1].width + 2;
    Table *made = table(std::move(columns), rows);
    made->setFixedSize(wide, made->rowsHigh(rows));
    allowSorting(*made);
    auto *layout = new QVBoxLayout;
    layout->addWidget(made);
    return card(caption, layout);
}

void Form94::ask()
{
    m_year.set(context.main.an.text());
    const auto record = statistics::recordAtCircuit(context.store, m_driver.text(), m_gp.text(), m_year.text());
    m_team.set(record ? record->team : std::string());
    control(u"nomecurie"_s)->tag = record ? qt(record->number) : QString();
    for (int row = 0; row < rows; ++row)
        show(row, record ? record->years[static_cast<std::size_t>(row)] : statistics::YearAtCircuit());
}

void Form94::show(int row, const statistics::YearAtCircuit &year)
{
    for (int table = 0; table < 3; ++table)
        set(u"Label5"_s, row + table * rows, year.year);
    set(u"Label6"_s, row, year.grid);
    set(u"Label6"_s, row + rows, year.finish);
    set(u"Label6"_s, row + 2 * rows, year.teamPoints);
    set(u"Label11"_s, row, year.year);
    set(u"Label12"_s, row, year.winner);
}

}

ScreenRows form94()
{
    return {screenRow<Form94>(u"Form94"_s, u"Résultats d'un Pilote et d'une Ecurie sur un Circuit"_s)};
}

}
