// Form21, one season: winner and team of each Grand Prix, and the champion. For a year without a file the archive tells
// the winners.
#include "kinds/lookup_screen.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

class Form21 : public LookupScreen {
public:
    Form21(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    void ask(); // Command1
    void stepYear(int by);

    Field m_year; // Text2, as typed
    Field m_shown; // Label2, the season that the rows come from; it takes over what was typed when it has been shown
    Field m_champion; // Label5
    Table *m_rows = nullptr;
};

Form21::Form21(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_year(theContext.main.an.text()), m_shown(theContext.main.an.text())
{
    hidden(u"Label2"_s, m_shown);
    auto *layout = page();
    layout->addWidget(question());
    m_rows = table({{{}, u"N°"_s, 40, Qt::AlignRight},
                    {u"Label6"_s, u"Grand Prix"_s, 170},
                    {u"Label11"_s, u"Vainqueur du GP:"_s},
                    {u"Text1"_s, u"Ecurie:"_s, 140}},
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
    auto *year = box(*row, u"Saison:"_s, u"Text2"_s, m_year, 64, [this] {
        m_shown.set(m_year.text());
        ask();
    });
    arrows(*row, year, {u"Command7"_s, u"Saison précédente"_s, Qt::Key_PageUp, [this] { stepYear(-1); }},
           {u"Command6"_s, u"Saison suivante"_s, Qt::Key_PageDown, [this] { stepYear(1); }});
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s,
                              u"Montrer cette saison (Entrée)"_s, [this] { ask(); }));
    row->addStretch(1);
    auto *champion = add(u"Label5"_s, new Label);
    champion->setObjectName(u"large"_s);
    champion->setFixedWidth(196);
    bind(champion, m_champion);
    row->addWidget(styled(u"Champion du monde:"_s, "hint"));
    row->addWidget(champion);
    return card({}, row);
}

void Form21::ask()
{
    const standings::SeasonWinners winners = standings::seasonWinners(Season(context.store, m_shown.text()), m_year.text());
    int index = 0;
    for (const standings::RaceWinner &race : winners.races) {
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

void Form21::stepYear(int by)
{
    for (Field *year : {&m_year, &m_shown})
        year->set(context.store.numbers().stepped(year->text(), by));
    ask();
}

}

ScreenRows form21()
{
    return {screenRow<Form21>(u"Form21"_s, u"Victoires par Saison"_s)};
}

}
