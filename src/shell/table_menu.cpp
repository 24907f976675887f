// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/table_menu.h"

#include "shell/copies.h"
#include "shell/find_line.h"
#include "shell/screen.h"
#include "shell/table_sort.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>

namespace circuidex {

struct TableMenu::Entry {
    QString caption, keyName;
    QKeyCombination key;
    std::function<void()> run;
    bool offered = true;
};

TableMenu::TableMenu(Table &table, Surroundings surroundings)
    : QObject(&table), m_table(table), m_surroundings(std::move(surroundings))
{
    table.installEventFilter(this);
    table.viewport()->installEventFilter(this);
}

TableMenu *TableMenu::of(const Table &table)
{
    for (QObject *child : table.children())
        if (auto *menu = dynamic_cast<TableMenu *>(child))
            return menu;
    return nullptr;
}

std::vector<TableMenu::Entry> TableMenu::entries(int column)
{
    const auto held = Qt::CTRL | Qt::SHIFT;
    const bool sorts = m_sort && column >= 0;
    return {
        {u"Copier"_s, u"Ctrl+C"_s, Qt::CTRL | Qt::Key_C, [this] { copy(false); }},
        {u"Copier tout le tableau"_s, u"Maj+Ctrl+C"_s, held | Qt::Key_C, [this] { copy(true); }},
        {},
        {u"Enregistrer en CSV…"_s, u"Maj+Ctrl+S"_s, held | Qt::Key_S, [this] { save(u"csv"_s); }},
        {u"Enregistrer en HTML…"_s, u"Maj+Ctrl+H"_s, held | Qt::Key_H, [this] { save(u"html"_s); }},
        {{}, {}, {}, {}, sorts},
        {u"Trier par cette colonne"_s, u"Maj+Ctrl+T"_s, held | Qt::Key_T, [this, column] { m_sort->by(column); },
         sorts},
        {u"Ordre d'origine"_s, u"Maj+Ctrl+O"_s, held | Qt::Key_O, [this] { m_sort->back(); },
         m_sort && m_sort->sorted()},
        {},
        {u"Rechercher…"_s, u"Ctrl+F"_s, Qt::CTRL | Qt::Key_F, [this] { find(); }},
    };
}

void TableMenu::open(const QPoint &at, int column)
{
    auto *menu = new QMenu(&m_table);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Entry &entry : entries(column)) {
        if (!entry.offered)
            continue;
        if (entry.caption.isEmpty())
            menu->addSeparator();
        else
            connect(menu->addAction(entry.caption + u'\t' + entry.keyName), &QAction::triggered, this, entry.run);
    }
    menu->popup(at);
}

bool TableMenu::onKey(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_F3 && m_find) {
        m_find->step(event.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1);
        return true;
    }
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier, Qt::Key(event.key()));
    const QModelIndex now = m_table.currentIndex();
    for (const Entry &entry : entries(now.isValid() ? now.column() : 0))
        if (entry.offered && entry.run && entry.key == pressed) {
            entry.run();
            return true;
        }
    return false;
}

void TableMenu::copy(bool all)
{
    const auto grid = all ? gridOf(m_table) : selectionOf(m_table);
    QGuiApplication::clipboard()->setText(qt(table_text::asTabs(grid)));
}

void TableMenu::save(const QString &kind)
{
    const table_text::Sheet sheet = sheetOf(m_surroundings.screen, m_surroundings.season(), &m_table);
    const QString title = qt(sheet.title + (sheet.season.empty() ? "" : " " + sheet.season));
    if (kind == u"csv")
        saveAs(m_surroundings.dialogs, title, csvFilter, csvFile(asCsv(sheet, csvSeparator(m_surroundings.decimal()))));
    else
        saveAs(m_surroundings.dialogs, title, u"Page HTML (*.html)"_s, QByteArray::fromStdString(asHtml(sheet)));
}

void TableMenu::find()
{
    if (!m_find)
        m_find = new FindLine(m_table);
    m_find->open();
}

void TableMenu::allowSorting()
{
    if (!m_sort)
        m_sort = new TableSort(m_table);
}

// By the menu key it opens at the current cell.
bool TableMenu::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_table && event->type() == QEvent::KeyPress)
        return onKey(*static_cast<QKeyEvent *>(event));
    if (event->type() != QEvent::ContextMenu)
        return false;
    const auto *asked = static_cast<QContextMenuEvent *>(event);
    const bool byMouse = asked->reason() == QContextMenuEvent::Mouse;
    const QModelIndex at =
        byMouse ? m_table.indexAt(m_table.viewport()->mapFromGlobal(asked->globalPos())) : m_table.currentIndex();
    const QPoint corner = m_table.viewport()->mapToGlobal(m_table.visualRect(at).bottomLeft());
    open(byMouse ? asked->globalPos() : corner, at.isValid() ? at.column() : -1);
    return true;
}

void allowSorting(Table &table)
{
    if (TableMenu *menu = TableMenu::of(table))
        menu->allowSorting();
}

}
