// SPDX-License-Identifier: GPL-3.0-or-later
// Form98, the editor of the list of films that lies on the server: it changes the copy in the program folder, which is
// then put on the server by hand.
#include "online/video_catalogue.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form98 : public Screen {
public:
    Form98(Context &context, const QString &name, const QString &title);

private:
    QLayout *rows();
    QLayout *arrows();
    void show(const online::Catalogue &catalogue);
    online::Catalogue typed() const;
    void slide(void (*way)(online::Catalogue &));
};

Form98::Form98(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    auto *purpose = styled(u"Cette fenêtre est réservée aux développeur du logiciel afin de créer le fichier *.ini qui "
                           "permettra la mise a jour de la liste des vidéos téléchargeables depuis le serveur. Nom de "
                           "la vidéo : NomDuGP + Année + .avi (accepte les espaces pour le nom du Grand Prix)"_s,
                           "hint");
    purpose->setWordWrap(true);
    auto *both = new QHBoxLayout;
    both->addLayout(rows(), 1);
    both->addLayout(arrows());
    auto *foot = footRow(u"Label14"_s);
    auto *keep = button(u"Command1"_s, u"Enregistrer"_s, [this] {
        online::writeCatalogue(context.store, typed());
        close();
    });
    keep->makeMain();
    foot->addWidget(button(u"Command2"_s, u"Annuler"_s, [this] { close(); }));
    foot->addWidget(keep);
    auto *layout = page();
    layout->addWidget(purpose);
    layout->addWidget(card({}, both), 1);
    layout->addLayout(foot);
    body()->setMinimumWidth(760);
    show(online::readCatalogue(context.store));
}

QLayout *Form98::rows()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(look::gap);
    grid->addWidget(styled(u"Description de la Vidéo:"_s, "caption"), 0, 1);
    grid->addWidget(styled(u"Nom de la Vidéo:"_s, "caption"), 0, 2);
    for (int place = 1; place <= online::cataloguePlaces; ++place) {
        grid->addWidget(styled(QString::number(place), "place"), place, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(add(u"Text4"_s, new Edit, place), place, 1);
        grid->addWidget(add(u"Text3"_s, new Edit, place), place, 2);
    }
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(2, 2);
    grid->setRowStretch(online::cataloguePlaces + 1, 1);
    return grid;
}

QLayout *Form98::arrows()
{
    auto *layout = new QVBoxLayout;
    const auto arrow = [&](const QString &name, const QString &sign, const QString &tip,
                           void (*way)(online::Catalogue &)) {
        auto *made = button(name, sign, [this, way] { slide(way); });
        made->setToolTip(tip);
        made->setFixedWidth(34);
        layout->addWidget(made);
    };
    layout->addStretch(1);
    arrow(u"Command4"_s, u"▲"_s, u"Glissement vers le Haut"_s, online::slideUp);
    arrow(u"Command3"_s, u"▼"_s, u"Glissement vers le Bas"_s, online::slideDown);
    layout->addStretch(1);
    return layout;
}

void Form98::show(const online::Catalogue &catalogue)
{
    for (int place = 1; place <= online::cataloguePlaces; ++place) {
        setText(u"Text4"_s, qt(catalogue[place].description), place);
        setText(u"Text3"_s, qt(catalogue[place].file), place);
    }
}

online::Catalogue Form98::typed() const
{
    online::Catalogue catalogue;
    for (int place = 1; place <= online::cataloguePlaces; ++place)
        catalogue[place] = {text(u"Text4"_s, place).toStdString(), text(u"Text3"_s, place).toStdString()};
    return catalogue;
}

void Form98::slide(void (*way)(online::Catalogue &))
{
    online::Catalogue catalogue = typed();
    way(catalogue);
    show(catalogue);
}

}

ScreenRows form98()
{
    return {screenRow<Form98>(u"Form98"_s, u"Configurer les Vidéos en Ligne"_s)};
}

}
