// SPDX-License-Identifier: GPL-3.0-or-later
// Form78 and Form79, the points of all teams and of all drivers in four seasons, after the same number of races. The
// number of races steps, or follows the name of a Grand Prix of the current season.
#include "kinds/picker.h"
#include "kinds/season_table.h"
#include "results/main_record.h"
#include "results/team_list.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

struct FieldKind {
    SeasonTableKind table;
    int ahead; // the number of races is so far ahead of noggp, the slot where the table stands
    int first, last; // where the arrows stop
    QString word; // told to the list of Grands Prix
    bool teams;
};

class FieldBetweenSeasons : public SeasonTable {
public:
    FieldBetweenSeasons(Context &context, const QString &name, const QString &title, FieldKind kind);

private:
    QWidget *question();
    int races() const; // counted from noggp
    void ask(); // Command1
    void openSlot(); // Command2
    void askNamed(); // Command55
    void step(int by, int end);
    void keepTeams();

    FieldKind m_kind;
    Field m_gp, m_races, m_slot; // Text1, Text2, noggp
};

FieldBetweenSeasons::FieldBetweenSeasons(Context &theContext, const QString &name, const QString &title, FieldKind kind)
    : SeasonTable(theContext, name, title, kind.table), m_kind(std::move(kind))
{
    hidden(u"noggp"_s, m_slot);
    hidden(u"Command55"_s, u"chercher le bon nogp en fonction du nom"_s, [this] { askNamed(); });
    if (m_kind.teams)
        hidden(u"Command2"_s, u"open gp"_s, [this] { openSlot(); });
    for (int slot = 0; m_kind.teams && slot <= driverSlots; ++slot)
        hidden(u"Label6"_s, {}, {}, slot);
    layOut(question(), answer(), legendFoot());
    listen(m_races, [this](const std::string &number) { // a number typed is the one that counts
        m_slot.set(context.store.numbers().difference(number, std::to_string(m_kind.ahead)).value_or(m_slot.text()));
    });
    m_slot.set(std::to_string(comparisons::firstRaceToCome(season()) - m_kind.ahead));
    openSlot();
}

QWidget *FieldBetweenSeasons::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    m_known.offerGrandsPrix(box(*row, u"Grand Prix:"_s, u"Text1"_s, m_gp, 0, [this] {
        askNamed();
    }))->setToolTip(u"Tapez le nom d'un Grand Prix de la saison, puis Entrée"_s);
    row->addWidget(list(u"Command6"_s, [this] { openPicker(context.screens, PickList::grandsPrix, m_kind.word); }));
    row->addSpacing(16);
    auto *number = box(*row, u"Epreuve N°:"_s, u"Text2"_s, m_races, 44, [this] { ask(); });
    number->setToolTip(u"Nombre d'épreuves comptées dans chaque saison"_s);
    arrows(*row, number, {u"Command5"_s, u"Une épreuve de moins"_s, Qt::Key_PageUp, [this] { step(-1, m_kind.first); }},
           {u"Command4"_s, u"Une épreuve de plus"_s, Qt::Key_PageDown, [this] { step(1, m_kind.last); }});
    row->addSpacing(8);
    row->addWidget(openButton([this] { ask(); }));
    return card({}, row);
}

int FieldBetweenSeasons::races() const
{
    const auto slot = context.store.numbers().value(m_slot.text());
    return static_cast<int>(
        std::clamp(slot.value_or(-m_kind.ahead) + m_kind.ahead, 0.0, 1.0 * comparisons::racesSearched));
}

void FieldBetweenSeasons::ask()
{
    const Waiting waiting(*this);
    if (m_kind.teams) {
        keepTeams();
        show(comparisons::teamField(seasons(), races()));
        return;
    }
    m_slot.set(
        context.store.numbers().difference(m_races.text(), std::to_string(m_kind.ahead)).value_or(m_slot.text()));
    if (races() > 0)
        m_gp.set(season().namegp(races() - 1));
    show(comparisons::driverField(seasons(), races()));
}

// The work list of the teams, each at its first driver.
void FieldBetweenSeasons::keepTeams()
{
    for (int slot = 1; const std::string &team : results::teamsByFirstDriver(season(), 1, results::teamListDrivers))
        setText(u"Label6"_s, qt(team), slot++);
}

void FieldBetweenSeasons::openSlot()
{
    const Numbers &numbers = context.store.numbers();
    m_races.set(numbers.sum(m_slot.text(), std::to_string(m_kind.ahead)).value_or(m_races.text()));
    if (m_kind.teams)
        m_gp.set(season().read(keys::gp, keys::namegp(m_slot.text())));
    ask();
}

void FieldBetweenSeasons::askNamed()
{
    m_slot.set(std::to_string(comparisons::slotSearched(season(), m_gp.text())));
    openSlot();
}

void FieldBetweenSeasons::step(int by, int end)
{
    m_races.set(context.store.numbers().stepped(m_races.text(), by, end));
    openSlot();
}

}

ScreenRows form78()
{
    const QString points = u"Nombre de points:"_s;
    return {kindRow<FieldBetweenSeasons>(
                u"Form78"_s, u"Comparaison entre Saisons du Nombre du Plateau Ecurie"_s,
                FieldKind{
                    {u"Ecuries:"_s, 13, points, comparisons::SubjectKind::team, false}, 1, 0, 19, u"compaecu"_s, true}),
            kindRow<FieldBetweenSeasons>(
                u"Form79"_s, u"Comparaison entre Saisons du Nombre du Plateau Pilote"_s,
                FieldKind{{u"Pilotes:"_s, driverSlots, points, comparisons::SubjectKind::driver, false},
                          2,
                          1,
                          20,
                          u"compapilot"_s,
                          false})};
}

}
