// SPDX-License-Identifier: GPL-3.0-or-later
// Form42, the teams of a season.
#include "kinds/picker.h"
#include "results/team_list.h"
#include "shell/screens.h"

namespace circuidex::screens {

namespace {

class Form42 : public Picker {
public:
    Form42(Context &context, const QString &name, const QString &title);

private:
    void load();
};

Form42::Form42(Context &theContext, const QString &name, const QString &title)
    : Picker(theContext, name, title,
             {PickList::teams, u"Text3"_s, 1, results::teamListTeams + 1, 1, 340, u"Ecurie"_s, false})
{
    for (int number = 1; number <= results::teamListDrivers; ++number)
        hidden(u"Label6"_s, {}, {}, number);
    hidden(u"Command1"_s, {}, [this] { load(); });
    addYear([this] { load(); });
    load();
}

void Form42::load()
{
    const std::vector<std::string> entries = results::teamsByFirstDriver(season(), 1, results::teamListDrivers);
    for (int number = 1; number <= results::teamListDrivers; ++number)
        setText(u"Label6"_s, qt(entries[static_cast<std::size_t>(number - 1)]), number);
    showNames(results::teamList(season()));
}

}

ScreenRows form42()
{
    return {screenRow<Form42>(u"Form42"_s, u"Liste des Ecuries"_s)};
}

}
