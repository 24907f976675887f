#include "standings/form21_wins_by_season.h"

#include "results/main_screen.h"
#include "shell/look.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex {

Form21::Form21(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_year(theContext.main.an.text()), m_shown(theContext.main.an.text())
{
    hidden(QStringLiteral("Label2"), m_shown);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(look::gap);
    layout->addWidget(question());
    m_rows = table({{{}, QStringLiteral("N°"), 40, Qt::AlignRight},
                    {QStringLiteral("Label6"), QStringLiteral("Grand Prix"), 170},
                    {QStringLiteral("Label11"), QStringLiteral("Vainqueur du GP:")},
                    {QStringLiteral("Text1"), QStringLiteral("Ecurie:"), 140}},
                   gpSlots);
    m_rows->setFixedHeight(m_rows->rowsHigh(gpSlots));
    layout->addWidget(m_rows);
    layout->addLayout(foot());
    setFixedWidth(660);
    ask();
}

QWidget *Form21::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *year = box(*row, QStringLiteral("Saison:"), QStringLiteral("Text2"), m_year, 64, [this] {
        m_shown.set(m_year.text());
        ask();
    });
    arrows(*row, year, {"Command7", QStringLiteral("Saison précédente"), Qt::Key_PageUp, [this] { stepYear("-1"); }},
           {"Command6", QStringLiteral("Saison suivante"), Qt::Key_PageDown, [this] { stepYear("1"); }});
    row->addWidget(mainButton(QStringLiteral("Command1"), QStringLiteral("Ouvrir"),
                              QStringLiteral("Montrer cette saison (Entrée)"), [this] { ask(); }));
    row->addStretch(1);
    auto *champion = add(QStringLiteral("Label5"), new Label);
    champion->setObjectName(QStringLiteral("large"));
    champion->setFixedWidth(196);
    bind(champion, m_champion);
    row->addWidget(styled(QStringLiteral("Champion du monde:"), "hint"));
    row->addWidget(champion);
    return card({}, row);
}

void Form21::ask()
{
    const SeasonWinners winners = seasonWinners(Season(context.store, m_shown.text()), m_year.text());
    int index = 0;
    for (const RaceWinner &race : winners.races) {
        m_rows->model().cell(index, 0).setText(race.gp.empty() ? QString() : QString::number(index + 1));
        m_rows->set(u"Label6", index, qt(race.gp));
        m_rows->set(u"Label11", index, qt(race.winner));
        m_rows->set(u"Text1", index, qt(race.team));
        const bool champion = !race.winner.empty() && race.winner == winners.champion;
        m_rows->setBack(u"Label11", index, champion ? std::optional(look::chosen) : std::nullopt);
        ++index;
    }
    m_champion.set(winners.champion);
    m_shown.set(m_year.text());
}

void Form21::stepYear(const char *by)
{
    for (Field *year : {&m_year, &m_shown})
        year->set(context.store.numbers().sum(year->text(), by).value_or(year->text()));
    ask();
}

}
