// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/table_text.h"

#include <algorithm>
#include <cstdio>

namespace circuidex::table_text {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// A sign, digits with a decimal separator, and a unit in letters.
bool isFigure(std::string_view text)
{
    std::size_t at = 1;
    const auto skip = [&](auto wanted) {
        const std::size_t from = at;
        while (at < text.size() && wanted(text[at]))
            ++at;
        return at - from;
    };
    skip([](char c) { return c == ' '; });
    const bool digits = skip(isDigit) > 0;
    if (digits && at < text.size() && (text[at] == ',' || text[at] == '.')) {
        ++at;
        skip(isDigit);
    }
    const bool apart = skip([](char c) { return c == ' '; }) > 0;
    if (apart && digits)
        skip([](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
    return at == text.size();
}

bool anyTitle(const Grid &grid)
{
    return std::any_of(grid.columns.begin(), grid.columns.end(), [](const Column &c) { return !c.title.empty(); });
}

// The rows of a grid, its titles first, each cell through `form`.
template <class Form>
std::string lines(const Grid &grid, char separator, Form form)
{
    std::string text;
    const auto add = [&](const auto &cells, auto textOf) {
        std::string_view before;
        for (const auto &cell : cells) {
            text.append(before);
            text += form(textOf(cell));
            before = std::string_view(&separator, 1);
        }
        text += '\n';
    };
    if (anyTitle(grid))
        add(grid.columns, [](const Column &column) { return column.title; });
    for (const auto &row : grid.rows)
        add(row, [](const Cell &cell) { return cell.text; });
    return text;
}

std::string tabbed(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
    return inCell(text);
}

std::string quoted(const std::string &text, char separator)
{
    const std::string cell = inCell(text);
    const bool plain = cell.find_first_of("\"\n\r\t") == std::string::npos &&
        cell.find(separator) == std::string::npos && !cell.starts_with(' ') && !cell.ends_with(' ');
    if (plain)
        return cell;
    std::string inside;
    for (const char c : cell)
        inside += c == '"' ? std::string("\"\"") : std::string(1, c);
    return '"' + inside + '"';
}

std::string escaped(std::string_view text)
{
    std::string html;
    for (const char c : text)
        switch (c) {
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        case '&':
            html += "&amp;";
            break;
        case '"':
            html += "&quot;";
            break;
        case '\n':
            html += "<br>";
            break;
        default:
            if (static_cast<unsigned char>(c) >= ' ' || c == '\t')
                html += c;
        }
    return html;
}

std::string element(std::string_view tag, const std::string &attributes, const std::string &content)
{
    return '<' + std::string(tag) + attributes + '>' + content + "</" + std::string(tag) + '>';
}

std::string table(const Grid &grid)
{
    std::string html = "<table>\n", titles;
    for (const Column &column : grid.columns)
        titles += element("th", column.toRight ? " class=\"d\"" : "", escaped(column.title));
    if (anyTitle(grid))
        html += element("tr", "", titles) + '\n';
    for (const auto &row : grid.rows) {
        std::string cells;
        for (std::size_t i = 0; i < row.size(); ++i) {
            std::string attributes = grid.columns[i].toRight ? " class=\"d\"" : "";
            if (!row[i].back.empty())
                attributes += " style=\"background:" + escaped(row[i].back) + '"';
            cells += element("td", attributes, escaped(row[i].text));
        }
        html += element("tr", "", cells) + '\n';
    }
    return html + "</table>\n";
}

std::string json(std::string_view text)
{
    std::string string = "\"";
    for (const char c : text) {
        char code[8];
        if (c == '"' || c == '\\')
            string += std::string("\\") + c;
        else if (static_cast<unsigned char>(c) < ' ')
            string.append(code, static_cast<std::size_t>(std::snprintf(code, sizeof code, "\\u%04x", c)));
        else
            string += c;
    }
    return string + '"';
}

template <class List, class Form>
std::string joined(const List &list, Form form, const char *between)
{
    std::string text;
    for (const auto &each : list)
        text += (text.empty() ? "" : between) + form(each);
    return text;
}

std::string json(const Grid &grid)
{
    const auto row = [](const auto &cells) {
        return "\n        [" +
            joined(
                   cells, [](const Cell &cell) { return json(cell.text); }, ", ") +
            ']';
    };
    return "\n    {\n      \"nom\": " + json(grid.name) + ",\n      \"colonnes\": [" +
        joined(
               grid.columns, [](const Column &column) { return json(column.title); }, ", ") +
        "],\n      \"lignes\": [" + joined(grid.rows, row, ",") + "]\n    }";
}

Grid factsAsGrid(const Sheet &sheet)
{
    Grid grid{sheet.title, {{"Rubrique"}, {"Valeur"}}, {}};
    for (const auto &[caption, value] : sheet.facts)
        grid.rows.push_back({{caption}, {value}});
    return grid;
}

}

std::string inCell(std::string_view text)
{
    const bool formula = !text.empty() && std::string_view("=+-@\t\r").find(text.front()) != std::string_view::npos;
    const bool sign = text.size() == 1 && text.front() != '\t' && text.front() != '\r';
    const bool figure = formula && (text.front() == '+' || text.front() == '-') && isFigure(text);
    return (formula && !sign && !figure ? "'" : "") + std::string(text);
}

std::string asTabs(const Grid &grid)
{
    return lines(grid, '\t', [](const std::string &text) { return tabbed(text); });
}

std::string asCsv(const Grid &grid, char separator)
{
    return lines(grid, separator, [separator](const std::string &text) { return quoted(text, separator); });
}

std::string asCsv(const Sheet &sheet, char separator)
{
    if (sheet.grids.empty())
        return asCsv(factsAsGrid(sheet), separator);
    return joined(
        sheet.grids, [separator](const Grid &grid) { return asCsv(grid, separator); }, "\n");
}

std::string asHtml(const Sheet &sheet)
{
    const std::string title = sheet.title + (sheet.season.empty() ? "" : " – saison " + sheet.season);
    std::string html = "<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n" +
        element("title", "", escaped(title)) +
        "\n<style>\nbody { font-family:sans-serif; color:#1F2733; }\ntable { border-collapse:collapse; margin:1em 0; "
        "}\n"
        "th, td { border:1px solid #D9DDE3; padding:2px 8px; text-align:left; }\nth { background:#F4F5F7; }\n"
        ".d { text-align:right; }\n</style>\n</head>\n<body>\n" +
        element("h1", "", escaped(title)) + '\n';
    for (const auto &[caption, value] : sheet.facts)
        html += element("p", "", escaped(caption) + (caption.empty() ? "" : " : ") + element("b", "", escaped(value))) +
            '\n';
    for (const Grid &grid : sheet.grids) {
        if (sheet.grids.size() > 1 && !grid.name.empty())
            html += element("h2", "", escaped(grid.name)) + '\n';
        html += table(grid);
    }
    return html + "</body>\n</html>\n";
}

std::string asJson(const Sheet &sheet)
{
    const auto fact = [](const auto &each) {
        return "\n    {\"rubrique\": " + json(each.first) + ", \"valeur\": " + json(each.second) + '}';
    };
    return "{\n  \"titre\": " + json(sheet.title) + ",\n  \"saison\": " + json(sheet.season) + ",\n  \"rubriques\": [" +
        joined(sheet.facts, fact, ",") + "],\n  \"tableaux\": [" +
        joined(
               sheet.grids, [](const Grid &grid) { return json(grid); }, ",") +
        "]\n}\n";
}

}
