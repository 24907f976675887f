// SPDX-License-Identifier: GPL-3.0-or-later
// What the program tells of itself: its versions and whom it owes thanks (Form62), what others said of it (Form64), the
// readme (Form66), the picture of its makers (Form74) and its sheet of figures (Form99). Nothing but text.
#include "kinds/opening_picture.h"
#include "shell/fixed_text.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/season.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QGridLayout>

#include <span>

namespace circuidex::screens {

namespace {

struct Fact {
    QString head, text;
};

const Fact versions[]{
    {u"5.0 - Révision 1 : novembre 2026"_s,
     u"Les fichiers des saisons, l'enregistrement d'un Grand Prix, la fenêtre principale"_s},
    {u"5.0 - Révision 2 : novembre 2026"_s, u"Pilotes, écuries, grille de départ, listes, assistants"_s},
    {u"5.0 - Révision 3 : novembre 2026"_s, u"Classements, courbes, menus"_s},
    {u"5.0 - Révision 4 : novembre 2026"_s, u"Vainqueurs, archives, statistiques, nouvelle saison"_s},
    {u"5.0 - Révision 5 : novembre 2026"_s,
     u"Copies de sauvegarde, fichiers abîmés, résumés de saison, progressions en course"_s},
    {u"5.0 - Révision 6 : novembre 2026"_s, u"Circuits, pronostics, simulation, comparaisons entre saisons"_s},
    {u"5.0 - Révision 7 : novembre 2026"_s, u"Galeries, journal, lecture des films, aide"_s},
};

const QString thanks[]{
    u"F1DB, dont les données publiques (CC BY 4.0) ont donné les saisons d'exemple"_s,
    u"Qt, pour les fenêtres, les courbes et l'impression"_s,
    u"mpv, pour la lecture des films"_s,
    u"Debian, sur laquelle Circuidex est construit et essayé"_s,
};

const QString marks[]{
    u"À ce jour, aucun site n'a noté Circuidex."_s,
    u"Il n'a reçu ni prix ni récompense."_s,
    u"Ses seules notes sont celles de ses essais : ils sont rejoués à chaque changement."_s,
    u"Les points de ses saisons d'exemple sont ceux des classements officiels de 2003 et 2004."_s,
};

class TextScreen : public Screen {
public:
    using Screen::Screen;

protected:
    // A label of its own name on each line, from `first` on.
    void addLines(QBoxLayout &layout, std::span<const QString> lines, int first);
};

void TextScreen::addLines(QBoxLayout &layout, std::span<const QString> lines, int first)
{
    for (const QString &line : lines)
        layout.addWidget(add(u"Label%1"_s.arg(first++), new Label(line)));
}

class Form62 : public TextScreen {
public:
    Form62(Context &theContext, const QString &name, const QString &title) : TextScreen(theContext, name, title)
    {
        auto *layout = page();
        layout->addWidget(card(u"Versions"_s, history()));
        auto *owed = new QVBoxLayout;
        owed->setSpacing(4);
        addLines(*owed, thanks, 40);
        layout->addWidget(card(u"Remerciements"_s, owed));
        auto *foot = new QHBoxLayout;
        foot->addWidget(command(u"Label1"_s, u"Récompenses"_s, [this] { context.screens.open(u"Form64"_s); }));
        foot->addStretch(1);
        layout->addLayout(foot);
        resize(720, sizeHint().height());
    }

private:
    QLayout *history()
    {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(2 * look::gap);
        grid->setVerticalSpacing(4);
        int row = 0;
        for (const Fact &version : versions) {
            grid->addWidget(add(u"Label%1"_s.arg(2 + 2 * row), new Label(version.head)), row, 0);
            grid->addWidget(add(u"Label%1"_s.arg(3 + 2 * row), new Label(version.text)), row, 1);
            ++row;
        }
        grid->setColumnStretch(1, 1);
        return grid;
    }
};

class Form64 : public TextScreen {
public:
    Form64(Context &theContext, const QString &name, const QString &title) : TextScreen(theContext, name, title)
    {
        auto *layout = new QVBoxLayout;
        layout->setSpacing(look::gap);
        addLines(*layout, marks, 1);
        page()->addWidget(card({}, layout));
        resize(600, sizeHint().height());
    }
};

class Form66 : public Screen {
public:
    Form66(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
    {
        auto *text = add(u"Text1"_s, new ReadOnlyText);
        text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        text->setPlainText(fixedText(u"lisezmoi"_s));
        page()->addWidget(text);
        resize(640, 620);
    }
};

class Form74 : public Screen {
public:
    Form74(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
    {
        auto *picture = add(u"Image1"_s, new OpeningPicture);
        picture->setMinimumSize(480, 300);
        auto *words =
            add(u"Label1"_s, new Label(u"Circuidex n'a pas de photo de ceux qui l'écrivent : voici son dessin."_s));
        words->setAlignment(Qt::AlignCenter);
        auto *layout = page();
        layout->addWidget(picture, 1);
        layout->addWidget(words);
        resize(560, 420);
    }
};

class Form99 : public Screen {
public:
    Form99(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
    {
        auto *grid = new QGridLayout;
        grid->setHorizontalSpacing(3 * look::gap);
        grid->setVerticalSpacing(6);
        int row = 0;
        for (const Fact &fact : sheet()) {
            grid->addWidget(styled(fact.head, "hint"), row, 0);
            grid->addWidget(add(u"Label%1"_s.arg(20 + row), new Label(fact.text)), row, 1);
            ++row;
        }
        grid->setColumnStretch(1, 1);
        auto *layout = page();
        layout->addWidget(card(u"Circuidex"_s, grid));
        layout->addLayout(footRow(u"Label14"_s));
        resize(560, sizeHint().height());
    }

private:
    std::vector<Fact> sheet() const
    {
        return {{u"Version"_s, u"5.0.0.7"_s},
                {u"Premier fichier"_s, u"22 novembre 2026"_s},
                {u"Langage"_s, u"C++20"_s},
                {u"Fenêtres"_s, u"%1, avec Qt %2"_s.arg(context.screens.rows().size()).arg(QLatin1String(qVersion()))},
                {u"Pilotes par saison"_s, QString::number(driverSlots)},
                {u"Grands Prix par saison"_s, QString::number(gpSlots)},
                {u"Places qui marquent"_s, QString::number(classifiedPlaces)},
                {u"Données"_s, u"fichiers texte, un par saison, en Windows-1252"_s},
                {u"Saisons d'exemple"_s, u"2003 à 2005, d'après F1DB (CC BY 4.0)"_s}};
    }
};

}

ScreenRows form62()
{
    return {screenRow<Form62>(u"Form62"_s, u"Différentes Versions de Circuidex et Remerciments"_s),
            screenRow<Form64>(u"Form64"_s, u"Récompenses"_s), screenRow<Form66>(u"Form66"_s, u"Lisez-moi"_s),
            screenRow<Form74>(u"Form74"_s, u"Photo développeur"_s),
            screenRow<Form99>(u"Form99"_s, u"Fiche d'identitée de Circuidex"_s)};
}

}
