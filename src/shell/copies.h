// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a screen shows, taken off it for other programs: its tables as they stand in the view, and the boxes that say
// what they are about. A screen without a table, as a profile or a podium, is a list of what its boxes hold.
#include "store/table_text.h"

#include <QByteArray>
#include <QString>

namespace circuidex {

class Dialogs;
class Screen;
class Screens;
class Table;

// The season that the main screen shows; empty without one.
QString seasonOnShow(const Screens &screens);

// Rows in the order of the view; without the empty ones at its end and without columns that hold nothing.
table_text::Grid gridOf(const Table &table);

// The same of the selected cells, each under its column; of all when nothing is selected.
table_text::Grid selectionOf(const Table &table);

// With one table alone, or with all that can be seen. The season stands in it unless a box of the screen names a year.
table_text::Sheet sheetOf(const Screen &screen, const QString &season, const Table *only = nullptr);

// Asks for a file and writes it; the title is the name proposed. The user is told when it can't be done.
void saveAs(Dialogs &dialogs, const QString &title, const QString &filter, const QByteArray &bytes);

inline const QString csvFilter = QStringLiteral("Tableur CSV (*.csv)");
QByteArray csvFile(const std::string &text); // with the mark by which a spreadsheet knows UTF-8

// Between cells of a CSV file: a semicolon where the comma stands in numbers.
char csvSeparator(char decimal);

}
