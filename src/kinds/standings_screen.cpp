// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/standings_screen.h"

#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QShortcut>

namespace circuidex {

StandingsScreen::StandingsScreen(Context &theContext, const QString &name, const QString &title, StandingsKind kind)
    : RankedScreen(theContext, name, title), m_kind(std::move(kind)), m_season(theContext.main.season())
{
    hidden(u"nopilott"_s, m_number);
    m_standings.rows.resize(static_cast<std::size_t>(m_kind.rows));
    auto *layout = page();
    layout->addWidget(favouriteCard());
    m_table = rankedTable(m_kind.columns, m_kind.rows, [this](int row) {
        m_favourite.set(m_standings.rows[static_cast<std::size_t>(row - 1)].name);
        apply();
    });
    layout->addWidget(m_table);
    layout->addLayout(foot());
    m_table->setFocus();
}

Button *StandingsScreen::action(const QString &control, const QString &caption, const QString &tip,
                                const QKeySequence &key, std::function<void()> handler)
{
    Button *made = button(control, caption, std::move(handler));
    made->setToolTip(tip);
    connect(new QShortcut(key, this), &QShortcut::activated, made, [made] { made->click(); });
    return made;
}

QWidget *StandingsScreen::favouriteCard()
{
    auto *favourite = add(u"Text5"_s, new Edit);
    favourite->setReadOnly(true);
    favourite->setProperty("title", true);
    bind(favourite, m_favourite);
    auto *back = action(u"Command2"_s, u"<"_s, m_kind.previousTip, Qt::Key_PageUp, [this] { step(-1); });
    auto *on = action(u"Command3"_s, u">"_s, m_kind.nextTip, Qt::Key_PageDown, [this] { step(1); });
    auto *list = action(u"Command4"_s, u"Liste"_s, u"Choisir dans la liste (Ctrl+L)"_s,
                        QKeySequence(u"Ctrl+L"_s), [this] {
                            if (const Screen *opened = context.screens.open(m_kind.list))
                                opened->setText(u"Label2"_s, m_kind.word);
                        });
    m_rank = add(u"classement"_s, new Label);
    m_rank->setObjectName(u"large"_s);
    m_rank->setFixedWidth(28);
    m_rank->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(m_kind.caption, "hint"));
    for (Button *arrow : {back, on})
        arrow->setFixedWidth(34);
    row->addWidget(back);
    row->addWidget(favourite, 1);
    row->addWidget(on);
    row->addWidget(list);
    row->addSpacing(10);
    row->addWidget(styled(u"Classement:"_s, "hint"));
    row->addWidget(m_rank);
    return card({}, row);
}

QLayout *StandingsScreen::foot()
{
    auto *apply = button(u"Command1"_s, u"Ok"_s, [this] { this->apply(); });
    apply->setToolTip(u"Mesurer les écarts par rapport au favori (Entrée)"_s);
    apply->makeMain();
    auto *row = footRow(u"Label14"_s);
    row->addWidget(styled(u"Saison %1"_s.arg(qt(context.main.an.text())), "hint"));
    row->addSpacing(look::gap);
    row->addWidget(apply);
    return row;
}

void StandingsScreen::findFavourite()
{
    m_number.set(standings::arrowsStand(m_season, m_kind.arrows));
    step(1);
    step(-1);
}

void StandingsScreen::fill(standings::Standings standings)
{
    m_standings = std::move(standings);
    show();
}

void StandingsScreen::step(int by)
{
    m_number.set(next(by));
    m_favourite.set(nameAt(m_number.text()));
    apply();
}

void StandingsScreen::apply()
{
    choose(m_standings, m_favourite.text(), m_season.numbers());
    show();
}

void StandingsScreen::show()
{
    int index = 0;
    for (const standings::StandingsRow &row : m_standings.rows) {
        ++index;
        m_table->set(u"Text3", index, qt(row.name));
        if (m_kind.columns[0].tip.isEmpty()) // names that share a row may be too long for it
            m_table->cell(u"Text3", index)->setTip(qt(row.name));
        m_table->set(u"Text4", index, qt(row.points));
        m_table->set(u"Label6", index, qt(row.team));
        m_table->set(u"lblpt", index, qt(row.gap));
        light(*m_table, index, row.favourite ? std::optional(look::chosen) : std::nullopt);
    }
    m_rank->setText(QString::number(m_standings.rank));
}

void StandingsScreen::closing()
{
    standings::keepFavourite(context.main.writableSeason(), m_kind.arrows, m_number.text());
}

void StandingsScreen::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        apply();
    else
        RankedScreen::keyPressEvent(event);
}

}
