// SPDX-License-Identifier: GPL-3.0-or-later
// Form14, the sheet of ratios beside the profile of a driver, Form3: the same driver, the same seasons.
#include "results/driver_screens.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/driver_sheet.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form14 : public Screen {
public:
    Form14(Context &context, const QString &name, const QString &title);
    void print(Printing how) override; // beside a profile, so without the words that keep the place
};

void Form14::print(Printing how)
{
    setText(u"Label13"_s, {});
    Screen::print(how);
}

Form14::Form14(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title)
{
    results::MainRecord &main = theContext.main;
    hidden(u"Command1"_s, {}, [&main] { statistics::countSeason(main); });
    hidden(u"Command2"_s, u">>"_s, [&main] { statistics::stepProfile(main, 1); });
    hidden(u"Command3"_s, u"<<"_s, [&main] { statistics::stepProfile(main, -1); });
    hidden(u"Actualiser"_s, {}, [&main] { statistics::showRatios(main); });
    auto *driver = add(u"Label24"_s, new Label);
    driver->setObjectName(u"large"_s);
    bind(driver, main.profile.ratiosOf);
    auto *seasons = add(u"Text1"_s, new Edit);
    seasons->setFixedWidth(44);
    seasons->setAlignment(Qt::AlignRight);
    bind(seasons, main.profile.seasons);
    listen(main.profile.seasons, [&main](const std::string &) { results::keepSeasons(main); });
    auto *head = new QHBoxLayout;
    head->addWidget(driver, 1);
    head->addWidget(styled(u"Saisons en F1:"_s, "hint"));
    head->addWidget(seasons);
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    int at = 0;
    for (const statistics::RatioRow &row : statistics::ratioRows) {
        auto *caption = styled(qt(row.caption), "hint");
        caption->setWordWrap(true);
        auto *value = add(u"Label10"_s, new Label, row.index);
        value->setObjectName(u"figure"_s);
        bind(value, main.profile.ratios[static_cast<std::size_t>(row.index)]);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(80);
        auto *compare = button(qt(row.button), u"..."_s, [this, row] {
            if (const Screen *field = context.screens.open(u"Form69"_s))
                field->press(qt(row.statistic));
        });
        compare->setToolTip(u"Cliquez ici pour comparer ce pilote a l'ensemble du plateau"_s);
        leadsTo(*compare, u"Form69"_s);
        compare->setFixedWidth(34);
        grid->addWidget(caption, at, 0);
        grid->addWidget(value, at, 1);
        grid->addWidget(compare, at, 2);
        ++at;
    }
    grid->setColumnStretch(0, 1);
    auto *zone = add(u"Label13"_s, new Label(u"ZONE D'IMPRESSION POUR LE PROFIL"_s));
    zone->setObjectName(u"hint"_s);
    auto *toPrinter =
        command(u"Label12"_s, u"Imprimer - A coté d'une fiche Pilote"_s, [this] { print(Printing::atOnce); });
    auto *layout = page();
    layout->addLayout(head);
    layout->addWidget(card({}, grid));
    layout->addStretch(1);
    layout->addWidget(zone, 0, Qt::AlignCenter);
    layout->addWidget(toPrinter, 0, Qt::AlignRight);
    resize(400, 620);
}

}

ScreenRows form14()
{
    return {screenRow<Form14>(u"Form14"_s, u"Statistiques"_s)};
}

}
