// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/chart_menu.h"

#include "shell/chart_view.h"
#include "shell/copies.h"
#include "shell/text.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

namespace circuidex {

ChartMenu::ChartMenu(ChartView &view, Dialogs &dialogs) : QObject(&view), m_view(view), m_dialogs(dialogs)
{
    view.setContextMenuPolicy(Qt::ActionsContextMenu);
    add(u"copierimage"_s, u"Copier l'image"_s, u"Ctrl+C"_s,
        [this] { QGuiApplication::clipboard()->setImage(m_view.image()); });
    add(u"enregistrerpng"_s, u"Enregistrer en PNG…"_s, u"Ctrl+Shift+S"_s, [this] { save(u"png"_s, m_view.png()); });
    add(u"enregistrersvg"_s, u"Enregistrer en SVG…"_s, {}, [this] { save(u"svg"_s, m_view.svg()); });
    add(u"enregistrerpdf"_s, u"Enregistrer en PDF…"_s, {}, [this] { save(u"pdf"_s, m_view.pdf()); });
    if (view.asGrid)
        add(u"enregistrercsv"_s, u"Enregistrer les chiffres en CSV…"_s, {}, [this] { saveFigures(); });
}

bool ChartMenu::on(const ChartView &view)
{
    for (const QObject *child : view.children())
        if (dynamic_cast<const ChartMenu *>(child))
            return true;
    return false;
}

void ChartMenu::add(const QString &name, const QString &caption, const QString &key, std::function<void()> run)
{
    auto *action = new QAction(caption, &m_view);
    action->setShortcut(QKeySequence(key));
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, std::move(run));
    m_view.addAction(action);
    m_entries.push_back({name, action});
}

void ChartMenu::save(const QString &kind, const QByteArray &bytes)
{
    saveAs(m_dialogs, m_view.title(), u"Images %1 (*.%2)"_s.arg(kind.toUpper(), kind), bytes);
}

void ChartMenu::saveFigures()
{
    saveAs(m_dialogs, m_view.title(), csvFilter, csvFile(asCsv(m_view.asGrid(), csvSeparator(decimal()))));
}

}
