// SPDX-License-Identifier: GPL-3.0-or-later
// Form75 and Form76, one driver and one place over several seasons: the races that he started from there, or finished
// there.
#include "kinds/picker.h"
#include "kinds/race_list.h"
#include "results/main_record.h"
#include "shell/screens.h"
#include "standings/classification.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

constexpr int lastNumber = driverSlots + 1; // where the arrows stop: nobody
constexpr const char *seasonsBefore = "2"; // of the span that the screen opens with

struct RacesKind {
    standings::Stage stage;
    QStringView word; // told to the list of drivers
};

class RacesAtPlace : public RaceList {
public:
    RacesAtPlace(Context &context, const QString &name, const QString &title, RacesKind kind);

private:
    QWidget *question();
    QLayout *driverRow();
    QLayout *spanRow();
    void ask(); // Command1
    void stepDriver(int by, int end);
    void stepPlace(int by, int end);

    RacesKind m_kind;
    Field m_driver, m_place{"1"}; // Text1, Text2
    Field m_first, m_last; // Text3, Text4, the years
    Field m_number{"0"}; // nopilott, where the arrows stand
    Field m_season; // an, in which they stand
    Label *m_sentence = nullptr; // Label3
    QLabel *m_count = nullptr;
};

RacesAtPlace::RacesAtPlace(Context &theContext, const QString &name, const QString &title, RacesKind kind)
    : RaceList(theContext, name, title), m_kind(kind), m_last(theContext.main.an.text()),
      m_season(theContext.main.an.text())
{
    m_first.set(context.store.numbers().difference(m_last.text(), seasonsBefore).value_or(""));
    hidden(u"nopilott"_s, m_number);
    hidden(u"an"_s, m_season);
    m_sentence = add(u"Label3"_s, new Label(u"Liste des GP :"_s));
    m_count = styled({}, "hint");
    layOut(question(), racePanel(m_sentence), foot(m_count));
    press(u"Command4"_s);
}

QWidget *RacesAtPlace::question()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(6);
    layout->addLayout(driverRow());
    layout->addLayout(spanRow());
    return card({}, layout);
}

QLayout *RacesAtPlace::driverRow()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = m_known.offerDrivers(box(*row, u"Pilote:"_s, u"Text1"_s, m_driver, 0, [this] { ask(); }));
    driver->setReadOnly(true);
    arrows(*row, driver, {u"Command5"_s, u"Pilote précédent"_s, Qt::Key_PageUp, [this] { stepDriver(-1, 1); }},
           {u"Command4"_s, u"Pilote suivant"_s, Qt::Key_PageDown, [this] { stepDriver(1, lastNumber); }});
    row->addWidget(
        list(u"Command6"_s, [this] { openPicker(context.screens, PickList::drivers, m_kind.word.toString()); }));
    return row;
}

QLayout *RacesAtPlace::spanRow()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *place = box(*row, u"Place:"_s, u"Text2"_s, m_place, 40, [this] { ask(); });
    place->setReadOnly(true);
    arrows(*row, place, {u"Command7"_s, u"Une place plus haut"_s, Qt::Key_Left, [this] { stepPlace(-1, 1); }},
           {u"Command8"_s, u"Une place plus bas"_s, Qt::Key_Right,
            [this] { stepPlace(1, standings::lastPlace(m_kind.stage)); }});
    row->addSpacing(16);
    box(*row, u"De l'année"_s, u"Text3"_s, m_first, 64, [this] { ask(); });
    box(*row, u"à l'année"_s, u"Text4"_s, m_last, 64, [this] { ask(); });
    row->addStretch(1);
    row->addWidget(mainButton(u"Command1"_s, u"Valider"_s, u"Chercher ces Grands Prix (Entrée)"_s, [this] { ask(); }));
    return row;
}

void RacesAtPlace::ask()
{
    const Waiting waiting(*this);
    const auto found = standings::racesAtPlace(
        context.store, {m_kind.stage, m_driver.text(), m_place.text(), m_first.text(), m_last.text()});
    m_season.set(context.main.an.text());
    if (!found)
        return;
    showRaces(found->races);
    m_sentence->setText(qt(found->sentence));
    m_count->setText((found->races.size() == 1 ? u"%1 Grand Prix"_s : u"%1 Grands Prix"_s).arg(found->races.size()));
}

void RacesAtPlace::stepDriver(int by, int end)
{
    m_number.set(context.store.numbers().stepped(m_number.text(), by, end));
    m_driver.set(Season(context.store, m_season.text()).nom(m_number.text()));
    ask();
}

void RacesAtPlace::stepPlace(int by, int end)
{
    m_place.set(context.store.numbers().stepped(m_place.text(), by, end));
    ask();
}

}

ScreenRows form75()
{
    return {kindRow<RacesAtPlace>(u"Form75"_s, u"Grille de Départ par Pilote par Place"_s,
                                  RacesKind{standings::Stage::grid, u"classcarriere"}),
            kindRow<RacesAtPlace>(u"Form76"_s, u"Classement par Pilote par Place"_s,
                                  RacesKind{standings::Stage::finish, u"classcarriere2"})};
}

}
