// SPDX-License-Identifier: GPL-3.0-or-later
// Form69, the statistics of the field: at the press of a button all drivers, or all teams, by one figure of sixteen.
// The driver's profile and the sheet beside it lead here to compare him with the others.
#include "kinds/ranked_bars.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/field_statistics.h"

#include <algorithm>

namespace circuidex::screens {

namespace {

// Where a click on a row leads, by the title on show; with any other title it does nothing.
struct Explained {
    QString title, screen, box, tip;
};
const Explained explained[] = {
    {u"Nombre de points dans le championnat pilote"_s, u"Form6"_s, u"Text5"_s,
     u"Cliquez pour voir ce pilote dans le classement"_s},
    {u"Nombre de points dans le championnat constructeur"_s, u"Form5"_s, u"Text5"_s,
     u"Cliquez pour voir cette écurie dans le classement"_s},
    {u"Nombre de victoires"_s, u"Form23"_s, u"Text1"_s, u"Cliquez pour voir les victoires de ce pilote"_s},
};

class Form69 : public RankedBars {
public:
    Form69(Context &context, const QString &name, const QString &title);

protected:
    void openRow(int row) override;

private:
    ModeGroup group(const QString &heading, const QColor &ground, statistics::FieldGroup which);
    void choose(const statistics::FieldStatistic &statistic); // one of the sixteen buttons
    void sort(); // Command1
    void show(const statistics::RankedField &field);
    const Explained *explanation() const; // null for a title that leads nowhere

    statistics::FieldEntries m_entries; // the tags of Text3 and Text4
    Field m_rank; // classement
};

Form69::Form69(Context &theContext, const QString &name, const QString &title) : RankedBars(theContext, name, title)
{
    using enum statistics::FieldGroup;
    hidden(u"classement"_s, m_rank);
    hidden(u"Command9"_s, u"clear"_s, [this] { show({}); });
    hidden(u"Command1"_s, u"bouton tri"_s, [this] { sort(); });
    layOut({group(u"Championnats:"_s, look::second, championships), group(u"Carrières:"_s, look::loss, careers),
            group(u"Parts des Grands Prix:"_s, look::gain, shares), group(u"Par saison:"_s, look::chosen, perSeason)},
           Coloured::buttons, u"Label2"_s);
    press(u"Command8"_s);
}

RankedBars::ModeGroup Form69::group(const QString &heading, const QColor &ground, statistics::FieldGroup which)
{
    ModeGroup made{heading, ground, {}};
    for (const statistics::FieldStatistic &statistic : statistics::fieldStatistics)
        if (statistic.group == which)
            made.modes.push_back({qt(statistic.button), qt(statistic.caption), qt(statistic.title),
                                  [this, &statistic] { choose(statistic); }});
    return made;
}

void Form69::choose(const statistics::FieldStatistic &statistic)
{
    m_entries = statistics::fieldEntries(context.main.season(), statistic);
    for (int i = 1; i <= driverSlots; ++i) {
        control(u"Text3"_s, i)->tag = qt(m_entries[static_cast<std::size_t>(i - 1)].name);
        control(u"Text4"_s, i)->tag = qt(m_entries[static_cast<std::size_t>(i - 1)].value);
    }
    sort();
    const Explained *leads = explanation();
    describeRows(statistic.key == statistics::teamKey ? u"Ecurie"_s : u"Pilote"_s, leads ? leads->tip : QString());
}

void Form69::sort()
{
    show(statistics::rankField(m_entries, context.store.numbers()));
}

void Form69::show(const statistics::RankedField &field)
{
    showRows(field.rows, field.bars);
    m_rank.set(std::to_string(field.rank));
}

const Explained *Form69::explanation() const
{
    const auto *found = std::find_if(std::begin(explained), std::end(explained),
                                     [title = text(u"Label3"_s)](const Explained &e) { return e.title == title; });
    return found == std::end(explained) ? nullptr : found;
}

void Form69::openRow(int row)
{
    const Explained *leads = explanation();
    const QString name = rowName(row);
    if (!leads || name.isEmpty())
        return;
    if (const Screen *opened = context.screens.open(leads->screen)) {
        opened->setText(leads->box, name);
        opened->press(u"Command1"_s);
    }
}

}

ScreenRows form69()
{
    return {screenRow<Form69>(u"Form69"_s, u"Statistiques du Plateau"_s)};
}

}
