// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a screen shows, as text for other programs: tab-separated for the clipboard, CSV, HTML and JSON. All text is
// UTF-8, and figures stand as on the screen, with the user's decimal separator. A name from a file is only ever text:
// no quote, line break or markup in it breaks the form, and no spreadsheet takes it for a formula.
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace circuidex::table_text {

struct Column {
    std::string title;
    bool toRight = false;
};

struct Cell {
    std::string text;
    std::string back = {}; // as "#C0C0FF"; empty for none
};

struct Grid {
    std::string name; // told where a sheet has several
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows; // each as wide as the columns
};

struct Sheet {
    std::string title, season; // no season where none is on show
    std::vector<std::pair<std::string, std::string>> facts; // what the tables are about, as "Pilote" and his name
    std::vector<Grid> grids;
};

// A text in a cell of a spreadsheet: behind an apostrophe where it would be taken for a formula. A number with its sign
// ("-3", "+ 10 pts") and a sign alone stay as they are.
std::string inCell(std::string_view text);

// A line a row, titles first unless there are none.
std::string asTabs(const Grid &grid); // a tab or a line break within a cell becomes a blank
std::string asCsv(const Grid &grid, char separator);

// Several tables stand one below the other, with an empty line between them. A sheet of facts alone is a table of them.
std::string asCsv(const Sheet &sheet, char separator);
std::string asHtml(const Sheet &sheet); // a page of its own
std::string asJson(const Sheet &sheet); // the values as texts

}
