// SPDX-License-Identifier: GPL-3.0-or-later
// Form38, the drivers of the season as a plain list to read and print.
#include "kinds/empty_note.h"
#include "kinds/place_names.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/table_menu.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex::screens {

namespace {

class Form38 : public Screen {
public:
    Form38(Context &context, const QString &name, const QString &title);
};

Form38::Form38(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    auto *drivers = table({{u"Label1"_s, QString(), 60, Qt::AlignRight},
                           {u"Text1"_s, u"Pilote"_s}},
                          driverSlots);
    drivers->horizontalHeader()->hide();
    add(emptyNote, noteOver(*drivers, u"Text1"_s, context, results::Need::drivers));
    const Season season = context.main.season();
    for (int i = 0; i < driverSlots; ++i) {
        drivers->set(u"Label1", i, placeName(i + 1));
        drivers->set(u"Text1", i, qt(season.nom(i + 1)));
    }
    allowSorting(*drivers);
    drivers->setFixedHeight(drivers->rowsHigh(driverSlots));
    auto *foot = footRow(u"Label38"_s);
    auto *layout = page();
    layout->addWidget(drivers);
    layout->addLayout(foot);
    setFixedWidth(320);
    setFocus(); // of the screen, so that no name looks chosen
}

}

ScreenRows form38()
{
    return {screenRow<Form38>(u"Form38"_s, u"Liste des pilotes"_s)};
}

}
