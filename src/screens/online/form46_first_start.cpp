// SPDX-License-Identifier: GPL-3.0-or-later
// Form46, the start page of a folder that has no season yet. At the left what the server has: fetch it all, or come
// back later; beside it all that needs no network: the example seasons, a new season, another folder, or nothing at
// all. The main screen is out of sight until the choice is made.
#include "kinds/folder_choice.h"
#include "kinds/update_runner.h"
#include "online/examples.h"
#include "platform/platform.h"
#include "platform/program_folder.h"
#include "results/main_record.h"
#include "results/navigation.h"
#include "results/new_season.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"

#include <QBoxLayout>
#include <QDate>

namespace circuidex::screens {

namespace {

constexpr int startWidth = 920, offerWidth = 210; // pixels

class Form46 : public Screen {
public:
    Form46(Context &context, const QString &name, const QString &title);

protected:
    void closing() override;

private:
    QLayout *download();
    void addStep(QVBoxLayout &layout, const QString &heading, const QString &text);
    QWidget *withoutDownload();
    QLayout *newSeason();
    void tellSeason();
    void fetch();
    void later();
    void takeExamples();
    void beginSeason();
    void openFolder();

    Edit *m_season = nullptr;
    QLabel *m_seasonSays = nullptr;
    Label *m_said = nullptr;
    bool m_toDownload = false;
};

Form46::Form46(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    if (Screen *main = context.screens.find(u"Form1"_s)) {
        main->setWindowState(Qt::WindowNoState);
        main->putAway(500000);
    }
    auto *welcome = styled(u"Bienvenue dans Circuidex, le logiciel de statistique de Formule 1"_s, "large");
    welcome->setAlignment(Qt::AlignCenter);
    auto *both = new QHBoxLayout;
    both->setSpacing(2 * look::gap);
    both->addLayout(download(), 1);
    both->addWidget(withoutDownload(), 1);
    m_said = add(u"avis"_s, new Label);
    m_said->setObjectName(u"lost"_s);
    m_said->setWordWrap(true);
    m_said->setMinimumHeight(2 * look::rowHeight); // its place, so that nothing jumps when it says something
    m_said->setAlignment(Qt::AlignTop);
    auto *layout = page();
    layout->addSpacing(look::gap);
    layout->addWidget(welcome);
    layout->addSpacing(look::gap);
    layout->addLayout(both);
    layout->addWidget(m_said);
    setFixedSize(startWidth, heightForWidth(startWidth));
    if (!updateObstacle(context).isEmpty()) // nothing to be fetched from
        static_cast<WidgetControl *>(control(u"Command5"_s))->widget()->setFocus();
}

QLayout *Form46::download()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(look::gap);
    addStep(*layout, u"Etape 1:"_s,
            u"Connectez-vous a Internet et laissez Circuidex y accéder lorsque votre Firewall (ou Parefeu) vous le "
            "demandera"_s);
    addStep(*layout, u"Etape 2:"_s,
            u"Le logiciel va aller chercher les derniers résultats de F1 sur Internet quand vous cliquerez sur le "
            "bouton \"Télécharger la Mise à Jour\", ne touchez a rien jusqu'a ce que le programme se soit lancé "
            "automatiquement après avoir téléchargé ces fichiers"_s);
    auto *start = button(u"Command1"_s, u"Télécharger la Mise à Jour"_s, [this] { fetch(); });
    start->makeMain();
    layout->addWidget(start);
    layout->addWidget(button(u"Command2"_s, u"Fermer le logiciel et télécharger plus tard"_s, [this] { later(); }));
    layout->addStretch(1);
    return layout;
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
    auto *offers = new QVBoxLayout;
    offers->setSpacing(2 * look::gap);
    const auto offer = [&](QWidget *made, QWidget *says) {
        made->setFixedWidth(offerWidth);
        auto *row = new QHBoxLayout;
        row->setSpacing(2 * look::gap);
        row->addWidget(made, 0, Qt::AlignVCenter);
        row->addWidget(says, 1);
        offers->addLayout(row);
    };
    const auto hint = [](const QString &says) {
        auto *made = styled(says, "hint");
        made->setWordWrap(true);
        return made;
    };
    if (!exampleFolder().empty())
        offer(button(u"Command4"_s, u"Saisons d'exemple"_s, [this] { takeExamples(); }),
              hint(u"De vraies saisons, complètes, pour regarder et pour essayer"_s));
    m_seasonSays = hint({});
    m_seasonSays->setMinimumHeight(2 * look::rowHeight);
    auto *season = new QWidget;
    season->setLayout(newSeason());
    offer(season, m_seasonSays);
    offer(button(u"Command7"_s, u"Importer des saisons…"_s, [this] { context.screens.open(u"Importer"_s); }),
          hint(u"De vraies saisons depuis 1950, de données publiques : d'un fichier ou d'Internet"_s));
    offer(button(u"Command6"_s, u"Ouvrir un dossier"_s, [this] { openFolder(); }),
          hint(u"Des saisons qui sont déjà sur cette machine : Circuidex travaillera dans ce dossier"_s));
    offer(button(u"Command3"_s, u"Commencer sans télécharger"_s, [this] { close(); }), hint(u"La saison 2005, vide"_s));
    offers->addStretch(1);
    return card(u"Sans Internet:"_s, offers);
}

QLayout *Form46::newSeason()
{
    m_season = add(u"saison"_s, new Edit);
    m_season->setFixedWidth(52);
    m_season->setAlignment(Qt::AlignCenter);
    m_season->setToolTip(u"L'année de la saison"_s);
    connect(m_season, &QLineEdit::textChanged, this, [this] { tellSeason(); });
    connect(m_season, &QLineEdit::returnPressed, this, [this] { beginSeason(); });
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(button(u"Command5"_s, u"Nouvelle saison"_s, [this] { beginSeason(); }), 1);
    row->addWidget(m_season);
    m_season->setText(QString::number(QDate::currentDate().year()));
    return row;
}

void Form46::tellSeason()
{
    const std::string before = results::seasonBefore(context.store, m_season->text().toStdString());
    m_seasonSays->setText(before.empty() ? u"Vide : calendrier, pilotes et première course en trois étapes"_s
                                         : u"Avec les pilotes et les écuries de %1"_s.arg(qt(before)));
}

// Without a server there is nothing to wait for: the first start stays one.
void Form46::fetch()
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
    if (!all && context.store.yearMarker().empty())
        return m_said->setText(u"Les saisons d'exemple n'ont pas pu être copiées : le disque est plein, ou le dossier "
                               "n'accepte pas l'écriture."_s);
    results::openMarkedSeason(context.main);
    results::openOnLastRecorded(context.main);
    if (!all)
        context.main.said.set("Les saisons d'exemple n'ont pas toutes pu être copiées");
    close();
}

void Form46::beginSeason()
{
    if (results::beginSeason(context.main, m_season->text().trimmed().toStdString()))
        close();
}

// There the same page shows up, unless it has a season; here the first start stays one.
void Form46::openFolder()
{
    m_said->setText(openAnotherFolder(context, [this] { context.platform.endProgram(); }));
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
