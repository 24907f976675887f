// Form46, the first start of the program on a machine: fetch all that the server has, come back later, begin with
// nothing, or with the example seasons. The main screen is out of sight until the choice is made.
#include "kinds/update_runner.h"
#include "online/examples.h"
#include "platform/platform.h"
#include "platform/program_folder.h"
#include "results/main_record.h"
#include "results/navigation.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

class Form46 : public Screen {
public:
    Form46(Context &context, const QString &name, const QString &title);

protected:
    void closing() override;

private:
    void addStep(QVBoxLayout &layout, const QString &heading, const QString &text);
    QWidget *withoutDownload();
    void download();
    void later();
    void takeExamples();

    Label *m_said = nullptr;
    bool m_toDownload = false;
};

Form46::Form46(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    if (Screen *main = context.screens.find(u"Form1"_s)) {
        main->setWindowState(Qt::WindowNoState);
        main->putAway(500000);
    }
    auto *layout = page();
    auto *welcome = styled(u"Bienvenue dans Circuidex, le logiciel de statistique de Formule 1"_s, "large");
    welcome->setAlignment(Qt::AlignCenter);
    layout->addSpacing(look::gap);
    layout->addWidget(welcome);
    layout->addSpacing(look::gap);
    addStep(*layout, u"Etape 1:"_s,
            u"Connectez-vous a Internet et laissez Circuidex y accéder lorsque votre Firewall (ou Parefeu) vous le "
            "demandera"_s);
    addStep(*layout, u"Etape 2:"_s,
            u"Le logiciel va aller chercher les derniers résultats de F1 sur Internet quand vous cliquerez sur le "
            "bouton \"Télécharger la Mise à Jour\", ne touchez a rien jusqu'a ce que le programme se soit lancé "
            "automatiquement après avoir téléchargé ces fichiers"_s);
    auto *row = new QHBoxLayout;
    auto *fetch = button(u"Command1"_s, u"Télécharger la Mise à Jour"_s, [this] { download(); });
    fetch->makeMain();
    row->addWidget(fetch, 1);
    row->addWidget(button(u"Command2"_s, u"Fermer le logiciel et télécharger plus tard"_s, [this] { later(); }), 1);
    layout->addLayout(row);
    layout->addWidget(withoutDownload());
    m_said = add(u"avis"_s, new Label);
    m_said->setObjectName(u"lost"_s);
    m_said->setWordWrap(true);
    m_said->setMinimumHeight(2 * look::rowHeight); // its place, so that nothing jumps when it says something
    m_said->setAlignment(Qt::AlignTop);
    layout->addWidget(m_said);
    body()->setMinimumWidth(720);
}

void Form46::addStep(QVBoxLayout &layout, const QString &heading, const QString &text)
{
    auto *inside = new QVBoxLayout;
    auto *words = new Label(text);
    words->setWordWrap(true);
    inside->addWidget(words);
    layout.addWidget(card(heading, inside));
}

QWidget *Form46::withoutDownload()
{
    auto *row = new QHBoxLayout;
    row->addWidget(button(u"Command3"_s, u"Commencer sans télécharger"_s, [this] { close(); }), 1);
    if (!exampleFolder().empty())
        row->addWidget(button(u"Command4"_s, u"Prendre les saisons d'exemple"_s, [this] { takeExamples(); }), 1);
    return card(u"Sans Internet:"_s, row);
}

// Without a server there is nothing to wait for: the first start stays one.
void Form46::download()
{
    if (const QString obstacle = updateObstacle(context); !obstacle.isEmpty())
        return m_said->setText(obstacle);
    results::markFirstSeason(context.store);
    m_toDownload = true;
    close();
}

void Form46::later()
{
    results::forgetMarkedSeason(context.main);
    context.platform.endProgram();
}

// Then the main screen opens as it does on a folder that had them before.
void Form46::takeExamples()
{
    if (context.store.readOnly())
        return m_said->setText(u"Le dossier est ouvert en lecture seule : rien ne peut y être copié."_s);
    const bool all = online::copyExamples(exampleFolder(), context.store.folder());
    context.store.newMoment();
    results::openMarkedSeason(context.main);
    results::openOnLastRecorded(context.main);
    if (!all)
        context.main.said.set("Les saisons d'exemple n'ont pas toutes pu être copiées");
    close();
}

// The next screen comes before this one is gone: without any the program would end.
void Form46::closing()
{
    Screen *update = m_toDownload ? context.screens.open(u"Form67"_s) : nullptr;
    if (update)
        update->press(u"Command5"_s);
    else
        context.screens.bringMainBack();
}

}

ScreenRows form46()
{
    return {screenRow<Form46>(u"Form46"_s, u"Premier lancement de Circuidex"_s)};
}

}
