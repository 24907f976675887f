// SPDX-License-Identifier: GPL-3.0-or-later
// Form93, the options: the colour of the title bars, which the next screens opened take, the way out of the automatic
// change of the display's mode, and the folder that the program works in.
#include "kinds/display_mode.h"
#include "kinds/folder_choice.h"
#include "results/options.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"

#include <QBoxLayout>

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

class Form93 : public Screen {
public:
    Form93(Context &context, const QString &name, const QString &title);

private:
    QWidget *colours();
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
        swatch->setStyleSheet(look::swatch(look::colour(skinNamed(choice.couleur).main)));
        row->addWidget(swatch);
        row->addWidget(button(choice.button, choice.caption, [this, &choice] { choose(choice.couleur); }), 1);
    }
    return card(u"Couleur de la barre de titre:"_s, row);
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
