// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/empty_note.h"

#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QEvent>

#include <algorithm>

namespace circuidex {

using results::Need;

namespace {

QString sentence(Need lack)
{
    switch (lack) {
    case Need::drivers:
        return u"Pas encore de pilotes en %1 :\n« Ouvrir/Modifier Pilote » les inscrit."_s;
    case Need::teams:
        return u"Aucun pilote n'a d'écurie en %1 :\n« Ouvrir/Modifier Pilote » la lui donne."_s;
    case Need::calendar:
        return u"Pas encore de calendrier en %1 :\n« Calendrier » l'inscrit."_s;
    case Need::race:
        break;
    }
    return u"Pas encore de course en %1 :\n« Enregistrer un Grand-Prix » l'inscrit."_s;
}

// As the button named does it. What shows nothing makes room for it.
void lead(Context &context, Need lack, const QString &from)
{
    context.screens.close(from);
    Screen *main = context.screens.find(u"Form1"_s);
    if (lack == Need::drivers || lack == Need::teams)
        context.screens.open(u"Form3"_s);
    else if (main && lack == Need::race && context.main.gp.empty())
        main->press(u"Label36"_s); // the first race of the calendar
    if (main && lack >= Need::calendar)
        main->press(lack == Need::race ? u"Command26"_s : u"Command21"_s);
}

std::optional<Missing> missingIn(Context &context, Need need, const QString &from)
{
    const Season season = context.main.season();
    const auto lack = results::firstLack(season, need);
    if (!lack)
        return std::nullopt;
    return Missing{sentence(*lack).arg(qt(context.main.an.text())),
                   [&context, lack = *lack, from] { circuidex::lead(context, lack, from); }};
}

QString screenOf(const QWidget &part)
{
    const auto *screen = qobject_cast<const Screen *>(part.window());
    return screen ? screen->name() : QString();
}

bool blank(const CellModel &table, const QString &name)
{
    for (int column = 0; column < table.columnCount(); ++column)
        for (int row = 0; table.columns()[static_cast<std::size_t>(column)].name == name && row < table.rowCount();
             ++row)
            if (!table.cell(row, column).text().isEmpty())
                return false;
    return true;
}

}

EmptyNote::EmptyNote(QWidget &over, std::function<std::optional<Missing>()> missing)
    : Label({}, &over), m_over(over), m_missing(std::move(missing))
{
    setObjectName(u"empty"_s);
    setAlignment(Qt::AlignCenter);
    hide();
    over.installEventFilter(this);
    if (const auto *table = qobject_cast<Table *>(&over))
        table->viewport()->installEventFilter(this);
}

// Nothing may come or go while its surroundings are being painted.
bool EmptyNote::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_over && (event->type() == QEvent::Show || event->type() == QEvent::Resize))
        look();
    else if (event->type() == QEvent::Paint && !m_due && m_missing().has_value() == isHidden()) {
        m_due = true;
        QMetaObject::invokeMethod(
            this, [this] { look(); }, Qt::QueuedConnection);
    }
    return Label::eventFilter(watched, event);
}

void EmptyNote::look()
{
    m_due = false;
    auto missing = m_missing();
    setVisible(missing.has_value());
    setText(missing ? missing->says : QString());
    onClick = missing ? std::move(missing->lead) : nullptr;
    setAttribute(Qt::WA_TransparentForMouseEvents, !onClick);
    setCursor(onClick ? Qt::PointingHandCursor : Qt::ArrowCursor);
    setFocusPolicy(onClick ? Qt::TabFocus : Qt::NoFocus);
    if (!missing)
        return;
    ensurePolished();
    setWordWrap(false);
    const int wide = std::min(m_over.width() - 2 * look::gap, sizeHint().width());
    setWordWrap(true);
    const int high = heightForWidth(wide);
    setGeometry((m_over.width() - wide) / 2, (m_over.height() - high) / 3, wide, high);
    raise();
}

EmptyNote *noteOver(Table &table, const QString &column, Context &context, Need need)
{
    return new EmptyNote(table, [&table, column, &context, need] {
        return blank(table.model(), column) ? missingIn(context, need, screenOf(table)) : std::nullopt;
    });
}

EmptyNote *noteOver(Table &table, const QString &column, const QString &says)
{
    return new EmptyNote(table, [&table, column, says] {
        return blank(table.model(), column) ? std::optional(Missing{says}) : std::nullopt;
    });
}

EmptyNote *noteOver(QWidget &chart, Context &context)
{
    return new EmptyNote(chart, [&chart, &context] {
        return results::hasRace(context.main.season()) ? std::nullopt : missingIn(context, Need::race, screenOf(chart));
    });
}

}
