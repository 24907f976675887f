// SPDX-License-Identifier: GPL-3.0-or-later
// Form31 and Form56, one driver in one season: his place in each Grand Prix, at the finish or on the grid.
#include "kinds/picker.h"
#include "kinds/race_table.h"
#include "results/main_record.h"
#include "shell/screens.h"
#include "standings/classification.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

struct PlacesKind {
    standings::Stage stage;
    QStringView column; // title over the places
    QStringView word; // told to the list of drivers
};

constexpr PlacesKind finish{standings::Stage::finish, u"Position a l'Arrivée:", u"f31"};
constexpr PlacesKind grid{standings::Stage::grid, u"Position sur la Grille:", u"classgrid"};

class PlacesOfDriver : public RaceTable {
public:
    PlacesOfDriver(Context &context, const QString &name, const QString &title, PlacesKind kind);

private:
    QWidget *question();
    void ask(); // Command2
    void step(int by, int end);
    Season season() const { return Season(context.store, m_year.text()); }

    PlacesKind m_kind;
    Field m_driver, m_year; // Text1, Text2
    Field m_number{"1"}; // Label40, where the arrows stand
    Table *m_rows = nullptr;
};

PlacesOfDriver::PlacesOfDriver(Context &theContext, const QString &name, const QString &title, PlacesKind kind)
    : RaceTable(theContext, name, title), m_kind(kind), m_year(theContext.main.an.text())
{
    hidden(u"Label40"_s, m_number);
    m_driver.set(season().nom(1));
    m_rows = raceTable(u"Grand Prix"_s, {{u"Label11"_s, m_kind.column.toString(), 400}});
    layOut(question(), m_rows, foot());
    ask();
}

QWidget *PlacesOfDriver::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = m_known.offerDrivers(box(*row, u"Pilote:"_s, u"Text1"_s, m_driver, 0, [this] { ask(); }));
    driver->setReadOnly(true);
    arrows(*row, driver, {u"Command3"_s, u"Pilote précédent"_s, Qt::Key_PageUp, [this] { step(-1, 1); }},
           {u"Command4"_s, u"Pilote suivant"_s, Qt::Key_PageDown, [this] { step(1, driverSlots); }});
    row->addWidget(list(u"Command1"_s, [this] {
        openPicker(context.screens, PickList::drivers, m_kind.word.toString(), qt(m_year.text()));
    }));
    row->addSpacing(8);
    box(*row, u"Saison:"_s, u"Text2"_s, m_year, 64, [this] { ask(); });
    row->addSpacing(8);
    row->addWidget(mainButton(u"Command2"_s, u"Ouvrir"_s, u"Montrer ses places (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

void PlacesOfDriver::ask()
{
    const Waiting waiting(*this);
    for (int index = 0; const auto &row : standings::placesOfDriver(season(), m_kind.stage, m_driver.text())) {
        setRace(index, row.gp, m_year.text());
        m_rows->set(u"Label11", index++, qt(row.place));
    }
}

void PlacesOfDriver::step(int by, int end)
{
    m_number.set(context.store.numbers().stepped(m_number.text(), by, end));
    m_driver.set(season().nom(m_number.text()));
    ask();
}

}

ScreenRows form31()
{
    return {kindRow<PlacesOfDriver>(u"Form31"_s, u"Classement d'un Pilote"_s, finish),
            kindRow<PlacesOfDriver>(u"Form56"_s, u"Grille de Départ par Pilote"_s, grid)};
}

}
