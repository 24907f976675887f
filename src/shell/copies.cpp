// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/copies.h"

#include "shell/accessibility.h"
#include "shell/chart_view.h"
#include "shell/screens.h"
#include "store/dialogs.h"

#include <QHeaderView>
#include <QSaveFile>

#include <algorithm>
#include <set>

namespace circuidex {

using table_text::Grid;
using table_text::Sheet;

namespace {

std::string inOneLine(QString title)
{
    return title.replace(u'\n', u' ').trimmed().toStdString();
}

// Logical rows and columns, as the view has them.
struct Part {
    std::vector<int> rows, columns;
};

std::vector<int> inSightOf(const QHeaderView &header)
{
    std::vector<int> sections;
    for (int i = 0; i < header.count(); ++i)
        if (const int section = header.logicalIndex(i); !header.isSectionHidden(section))
            sections.push_back(section);
    return sections;
}

// A row says something by a cell with a name; the others are fixed, as the numbers of the rows.
bool rowSpeaks(const CellModel &model, int row)
{
    const auto &columns = model.columns();
    for (int column = 0; column < model.columnCount(); ++column) {
        const Column &at = columns[std::size_t(column)];
        const bool named = !at.name.isEmpty() || row < at.rowNames.size();
        if (named && !model.cell(row, column).text().trimmed().isEmpty())
            return true;
    }
    return false;
}

bool columnSpeaks(const CellModel &model, int column)
{
    if (!model.columns()[std::size_t(column)].title.trimmed().isEmpty())
        return true;
    for (int row = 0; row < model.rowCount(); ++row)
        if (!model.cell(row, column).text().isEmpty())
            return true;
    return false;
}

Part allOf(const Table &table)
{
    Part part{inSightOf(*table.verticalHeader()), inSightOf(*table.horizontalHeader())};
    while (!part.rows.empty() && !rowSpeaks(table.model(), part.rows.back()))
        part.rows.pop_back();
    std::erase_if(part.columns, [&table](int column) { return !columnSpeaks(table.model(), column); });
    return part;
}

Grid taken(const Table &table, const Part &part, const std::function<bool(int row, int column)> &wanted)
{
    const CellModel &model = table.model();
    Grid grid{table.accessibleName().toStdString(), {}, {}};
    for (const int column : part.columns) {
        const Column &at = model.columns()[std::size_t(column)];
        grid.columns.push_back({inOneLine(at.title), bool(at.align & Qt::AlignRight)});
    }
    for (const int row : part.rows) {
        auto &cells = grid.rows.emplace_back();
        for (const int column : part.columns) {
            const Cell &cell = model.cell(row, column);
            const auto back = cell.back();
            if (wanted(row, column))
                cells.push_back({cell.text().toStdString(), back ? back->name().toUpper().toStdString() : ""});
            else
                cells.push_back({});
        }
    }
    return grid;
}

// The widgets that are registered controls.
std::set<const QWidget *> controlsOf(const Screen &screen)
{
    std::set<const QWidget *> widgets;
    for (const QString &name : screen.controlNames()) {
        const QString index = name.section(u'(', 1).chopped(name.endsWith(u')') ? 1 : 0);
        const Control *control =
            screen.control(name.section(u'(', 0, 0), index.isEmpty() ? std::nullopt : std::optional(index.toInt()));
        if (const auto *of = dynamic_cast<const WidgetControl *>(control))
            widgets.insert(of->widget());
    }
    return widgets;
}

// What a box holds: all that a screen without tables has to say, and beside tables the boxes that are filled in and the
// large words over them.
QString saidBy(const QWidget &widget, bool besideTables)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(&widget))
        return edit->text();
    if (const auto *remark = qobject_cast<const QPlainTextEdit *>(&widget))
        return besideTables ? QString() : remark->toPlainText();
    const auto *label = qobject_cast<const QLabel *>(&widget);
    const bool told = label && (besideTables ? label->objectName() == u"large" : label->focusPolicy() == Qt::NoFocus);
    return told ? label->text() : QString();
}

void addCharts(const Screen &screen, Sheet &sheet)
{
    for (const ChartView *view : screen.findChildren<ChartView *>())
        if (view->asGrid && view->isVisibleTo(&screen))
            sheet.grids.push_back(view->asGrid());
}

bool namesYear(const QString &text)
{
    return text.size() == 4 && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

}

QString seasonOnShow(const Screens &screens)
{
    const Screen *main = screens.find(u"Form1"_s);
    return main ? main->text(u"an"_s) : QString();
}

Grid gridOf(const Table &table)
{
    return taken(table, allOf(table), [](int, int) { return true; });
}

Grid selectionOf(const Table &table)
{
    std::set<std::pair<int, int>> chosen;
    std::set<int> rows, columns;
    for (const QModelIndex &at : table.selectionModel()->selectedIndexes()) {
        chosen.emplace(at.row(), at.column());
        rows.insert(at.row());
        columns.insert(at.column());
    }
    if (chosen.empty())
        return gridOf(table);
    Part part{inSightOf(*table.verticalHeader()), inSightOf(*table.horizontalHeader())};
    std::erase_if(part.rows, [&rows](int row) { return !rows.contains(row); });
    std::erase_if(part.columns, [&columns](int column) { return !columns.contains(column); });
    return taken(table, part, [&chosen](int row, int column) { return chosen.contains({row, column}); });
}

Sheet sheetOf(const Screen &screen, const QString &season, const Table *only)
{
    Sheet sheet{screen.title().trimmed().toStdString(), season.toStdString(), {}, {}};
    for (const Table *table : screen.tables())
        if (only ? table == only : table->isVisibleTo(&screen))
            sheet.grids.push_back(gridOf(*table));
    if (!only)
        addCharts(screen, sheet);
    const auto controls = controlsOf(screen);
    const auto *body = screen.findChild<QWidget *>(u"body"_s);
    for (const auto &[widget, caption] : captionsIn(body ? *body : screen)) {
        if (!controls.contains(widget) || !widget->isVisibleTo(&screen))
            continue;
        const QString said = saidBy(*widget, !sheet.grids.empty()).trimmed();
        const bool nameless = caption.isEmpty() && qobject_cast<const QLineEdit *>(widget); // beside what it numbers
        if (said.isEmpty() || nameless)
            continue;
        sheet.facts.emplace_back(caption.toStdString(), said.toStdString());
        if (namesYear(said))
            sheet.season.clear();
    }
    return sheet;
}

void saveAs(Dialogs &dialogs, const QString &title, const QString &filter, const QByteArray &bytes)
{
    const auto path = dialogs.chooseNewFile(title.toStdString(), filter.toStdString());
    if (!path)
        return;
    QSaveFile file(qt(*path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        dialogs.message("Le fichier « " + *path + " » n'a pas pu être enregistré.");
}

QByteArray csvFile(const std::string &text)
{
    return "\xEF\xBB\xBF" + QByteArray::fromStdString(text);
}

char csvSeparator(char decimal)
{
    return decimal == ',' ? ';' : ',';
}

}
