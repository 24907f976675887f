// SPDX-License-Identifier: GPL-3.0-or-later
// Form93, the options: the colour of the title bars, which the next screens opened take, light or dark appearance and
// the size of the text, which are the user's on this machine, the way out of the automatic change of the display's
// mode, and the folder that the program works in.
#include "kinds/display_mode.h"
#include "kinds/folder_choice.h"
#include "results/options.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"

#include <QBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>
#include <functional>
#include <span>

namespace circuidex::screens {

namespace {

struct Choice {
    QString button, caption;
    std::string_view couleur;
};

const Choice choices[]{
    {u"Command1"_s, u"Bleu"_s, "bleu"},
    {u"Command2"_s, u"Vert"_s, "vert"},
    {u"Command3"_s, u"Rouge"_s, "rouge"},
    {u"Command4"_s, u"Orange"_s, "orange"},
};

struct Wish { // what is kept, and what stands beside the button that chooses it
    QString button, caption;
    std::string kept;
};

const Wish appearances[]{
    {u"systeme"_s, u"selon le système"_s, ""},
    {u"claire"_s, u"claire"_s, look::light},
    {u"sombre"_s, u"sombre"_s, look::dark},
};

const Wish sizes[]{
    {u"texte100"_s, u"100 %"_s, ""},
    {u"texte110"_s, u"110 %"_s, "110"},
    {u"texte125"_s, u"125 %"_s, "125"},
    {u"texte150"_s, u"150 %"_s, "150"},
};

class Form93 : public Screen {
public:
    Form93(Context &context, const QString &name, const QString &title);

private:
    QWidget *colours();
    QWidget *appearance();
    QWidget *textSize();
    QHBoxLayout *wishes(std::span<const Wish> from, const std::string &key, const std::function<void()> &chosen);
    QWidget *adaptation();
    void stopAdapting();
    QWidget *folder();
    void choose(std::string_view couleur);
};

Form93::Form93(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    hidden(u"Command5"_s, u"validation"_s, [this] { context.skin = skinNamed(results::chosenSkin(context.store)); });
    auto *layout = page();
    layout->addWidget(colours());
    layout->addWidget(appearance());
    layout->addWidget(textSize());
    layout->addWidget(folder());
    layout->addWidget(adaptation());
    resize(420, sizeHint().height());
}

QWidget *Form93::colours()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(look::gap);
    for (const Choice &choice : choices) {
        auto *swatch = new QLabel;
        swatch->setFixedSize(14, 14);
        look::dress(*swatch, look::swatch(look::colour(skinNamed(choice.couleur).main)));
        row->addWidget(swatch);
        row->addWidget(button(choice.button, choice.caption, [this, &choice] { choose(choice.couleur); }), 1);
    }
    return card(u"Couleur de la barre de titre:"_s, row);
}

// One of them is always marked: the first where nothing else is kept.
QHBoxLayout *Form93::wishes(std::span<const Wish> from, const std::string &key, const std::function<void()> &chosen)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(2 * look::gap);
    const std::string kept = context.platform.remembered(key);
    const auto known = std::find_if(from.begin(), from.end(), [&](const Wish &wish) { return wish.kept == kept; });
    for (const Wish &wish : from) {
        auto *made = option(wish.button, wish.caption, [this, key, chosen, &wish] {
            context.platform.remember(key, wish.kept);
            chosen();
        });
        const QSignalBlocker quiet(made);
        made->setChecked(&wish == &(known == from.end() ? from.front() : *known));
        row->addWidget(made);
    }
    row->addStretch(1);
    return row;
}

QWidget *Form93::appearance()
{
    return card(u"Apparence:"_s,
                wishes(appearances, "apparence", [this] { look::appear(context.platform.remembered("apparence")); }));
}

QWidget *Form93::textSize()
{
    auto *said = styled(u"Au prochain démarrage de Circuidex"_s, "hint");
    auto *layout = new QVBoxLayout;
    layout->addLayout(wishes(sizes, "texte", [] {}));
    layout->addWidget(said);
    return card(u"Taille du texte:"_s, layout);
}

QWidget *Form93::folder()
{
    auto *path = styled(qt(context.store.folder().string()), "hint");
    path->setWordWrap(true);
    auto *said = add(u"avis"_s, new Label);
    said->setObjectName(u"lost"_s);
    said->setWordWrap(true);
    said->hide();
    auto *open = button(u"dossier"_s, u"Ouvrir un autre dossier"_s, [this, said] {
        said->setText(openAnotherFolder(context, [this] {
            if (Screen *main = context.screens.find(u"Form1"_s))
                main->close();
        }));
        said->setVisible(!said->text().isEmpty());
    });
    open->setToolTip(u"Circuidex s'y ouvre, et s'en souvient"_s);
    auto *layout = new QVBoxLayout;
    layout->addWidget(path);
    layout->addWidget(open, 0, Qt::AlignLeft);
    layout->addWidget(said);
    return card(u"Dossier des saisons:"_s, layout);
}

QWidget *Form93::adaptation()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(add(u"Label3"_s, new Label(u"Pour désactiver l'ajustement automatique de résolution, cliquez "_s)));
    row->addWidget(command(u"Label4"_s, u"ICI"_s, [this] { stopAdapting(); }));
    row->addStretch(1);
    return card(u"Ajustement automatique de résolution:"_s, row);
}

void Form93::stopAdapting()
{
    stopAdaptingDisplay(context);
    context.screens.bringMainBack();
    close();
    if (const Screen *main = context.screens.find(u"Form1"_s))
        main->setText(u"Check1"_s, u"faux"_s);
}

void Form93::choose(std::string_view couleur)
{
    results::keepSkin(context.store, couleur);
    press(u"Command5"_s);
    close();
}

}

ScreenRows form93()
{
    return {screenRow<Form93>(u"Form93"_s, u"Options de Circuidex"_s)};
}

}
