// SPDX-License-Identifier: GPL-3.0-or-later
// Form23, all wins of one driver over the twenty years that end with the open season.
#include "kinds/picker.h"
#include "kinds/race_list.h"
#include "results/main_record.h"
#include "shell/screens.h"
#include "standings/driver_standings.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

static_assert(RaceList::rows * RaceList::columns == standings::shownWins);

QString counted(std::size_t wins)
{
    return wins == 0 ? u"aucune victoire"_s
        : wins == 1  ? u"1 victoire"_s
                     : u"%1 victoires"_s.arg(wins);
}

class Form23 : public RaceList {
public:
    Form23(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    void ask(); // Command1
    QString searched(std::size_t wins) const;
    void step(int by);

    Field m_driver; // Text1
    Field m_number{"0"}; // nopilott, where the arrows stand
    Label *m_count = nullptr;
};

Form23::Form23(Context &theContext, const QString &name, const QString &title)
    : RaceList(theContext, name, title), m_count(new Label)
{
    hidden(u"nopilott"_s, m_number);
    layOut(question(), racePanel(m_count), foot());
    press(u"Command4"_s);
}

QWidget *Form23::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = m_known.offerDrivers(box(*row, u"Pilote:"_s, u"Text1"_s, m_driver, 0, [this] { ask(); }));
    driver->setToolTip(u"Tapez aussi le nom d'un ancien pilote, puis Entrée"_s);
    arrows(*row, driver, {u"Command5"_s, u"Pilote précédent"_s, Qt::Key_PageUp, [this] { step(-1); }},
           {u"Command4"_s, u"Pilote suivant"_s, Qt::Key_PageDown, [this] { step(1); }});
    row->addWidget(
        list(u"Command6"_s, [this] { openPicker(context.screens, PickList::drivers, QString()); }));
    row->addSpacing(8);
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s,
                              u"Chercher ses victoires (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

// The search goes through the winners of each Grand Prix, so their screen, if it was open, is closed at the end.
void Form23::ask()
{
    const Waiting waiting(*this);
    const auto wins = standings::winsOfDriver(context.store, m_driver.text(), context.main.an.text());
    showRaces(wins);
    m_count->setText(searched(wins.size()));
    context.screens.close(u"Form20"_s);
}

// Whose wins were counted in which years, whatever is typed from now on.
QString Form23::searched(std::size_t wins) const
{
    const std::string last = context.main.an.text();
    const auto first = context.store.numbers().difference(last, std::to_string(standings::searchedYears - 1));
    if (m_driver.empty() || !first)
        return {};
    return u"%1, de %2 à %3 : %4"_s.arg(qt(m_driver.text()), qt(*first), qt(last), counted(wins));
}

void Form23::step(int by)
{
    m_number.set(standings::steppedDriver(m_number.text(), by, context.store.numbers()));
    m_driver.set(context.main.season().nom(m_number.text()));
    ask();
}

}

ScreenRows form23()
{
    return {screenRow<Form23>(u"Form23"_s, u"Victoires par Pilote"_s)};
}

}
