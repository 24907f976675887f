// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all tables race by race: a row for each Grand Prix of a season, with figures that say by their colour
// whether they are better or worse. The Grand Prix that the main screen shows stands in bold, and a double click on a
// name opens that Grand Prix. Its parts serve the tables of a race's drivers too.
#include "kinds/lookup_screen.h"
#include "standings/tone.h"

#include <vector>

namespace circuidex {

// Shows a race of a season on its own screen. Nothing happens when the season's calendar has none of that name.
void openGrandPrix(Context &context, const std::string &year, const std::string &gpName);

inline const QString openTip = u"Double-cliquez pour ouvrir ce Grand Prix"_s;

// Absent for a figure without a tone.
std::optional<QColor> colourOf(standings::Tone tone);

// The text of a figure and the colour of its tone; without one the cell takes the colour given.
void showFigure(Table &table, QStringView column, int index, const standings::Toned &figure,
                std::optional<QColor> plain = Qt::white);

struct Meaning {
    QColor colour;
    QString words;
};
QWidget *legend(const QString &caption, const std::vector<Meaning> &meanings); // in one line

class RaceTable : public LookupScreen {
public:
    RaceTable(Context &context, const QString &name, const QString &title);

protected:
    // A row for each slot of the calendar: its number, `Label6` for the Grand Prix, and the columns given.
    Table *raceTable(const QString &gpTitle, std::vector<Column> columns);
    // The same for many narrow columns that have colours of their own: small heads in two lines.
    Table *wideTable(const QString &gpTitle, std::vector<Column> columns);
    // The name in a row, of the season that opening it will lead to.
    void setRace(int row, const std::string &gpName, const std::string &year);

private:
    void markShown(int row); // in bold, if it is the Grand Prix of the main screen

    Table *m_races = nullptr;
    std::string m_year;
};

}
