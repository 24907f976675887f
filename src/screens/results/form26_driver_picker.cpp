// SPDX-License-Identifier: GPL-3.0-or-later
// Form26, the drivers of a season.
#include "kinds/picker.h"
#include "shell/screens.h"

namespace circuidex::screens {

namespace {

class Form26 : public Picker {
public:
    Form26(Context &context, const QString &name, const QString &title);

private:
    void load();
};

Form26::Form26(Context &theContext, const QString &name, const QString &title)
    : Picker(theContext, name, title,
             {PickList::drivers, u"Label6"_s, 0, driverSlots, 2, 480, u"Pilote"_s, true})
{
    for (int number = 1; number <= driverSlots; ++number)
        list().set(u"Numero", number - 1, QString::number(number));
    addYear([this] { load(); });
    load();
}

void Form26::load()
{
    const Season shown = season();
    std::vector<std::string> names;
    for (int number = 1; number <= driverSlots; ++number)
        names.push_back(shown.nom(number));
    showNames(names);
}

}

ScreenRows form26()
{
    return {screenRow<Form26>(u"Form26"_s, u"Liste des Pilotes"_s)};
}

}
