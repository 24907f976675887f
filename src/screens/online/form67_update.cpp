// SPDX-License-Identifier: GPL-3.0-or-later
// Form67, the update: the news of the server, the five runs of downloads that end in the extractor and in the end of
// the program, and how far the transfer is. The run itself belongs to the program (kinds/update_runner); this screen
// may be closed in the middle of it.
#include "kinds/display_mode.h"
#include "kinds/page_view.h"
#include "kinds/update_runner.h"
#include "platform/platform.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QProgressBar>

namespace circuidex::screens {

namespace {

using online::UpdateRun;

constexpr int stepsWidth = 470; // pixels

class Form67 : public PageScreen {
public:
    Form67(Context &context, const QString &name, const QString &title, std::shared_ptr<UpdateRunner> runner);

protected:
    void closing() override { m_runner->cancel(); }
    void keyPressEvent(QKeyEvent *event) override;

private:
    void registerHidden();
    QLayout *steps();
    QWidget *step(const QString &heading, const QString &text, std::initializer_list<QWidget *> below);
    QWidget *lowBandwidth();
    QWidget *manualRoad();
    QWidget *news();
    QWidget *progress();
    QWidget *publicData();
    Button *runButton(const QString &name, const QString &caption, UpdateRun which);
    void run(UpdateRun which);
    void followDownload();
    void showState();
    void showProgress(int percent, qint32 received, qint32 total, qint32 third);
    void leaveForSite();

    std::shared_ptr<UpdateRunner> m_runner;
    std::vector<QWidget *> m_runButtons;
    QLabel *m_what = nullptr, *m_state = nullptr;
    QProgressBar *m_bar = nullptr;
};

Form67::Form67(Context &theContext, const QString &name, const QString &title, std::shared_ptr<UpdateRunner> runner)
    : PageScreen(theContext, name, title), m_runner(std::move(runner))
{
    registerHidden();
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    columns->addLayout(steps());
    auto *side = new QVBoxLayout;
    side->setSpacing(look::gap);
    side->addWidget(news(), 1);
    side->addWidget(progress());
    side->addWidget(publicData());
    columns->addLayout(side, 1);
    auto *foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(command(u"Label71"_s, u"Réduire cette fenêtre"_s, [this] { showMinimized(); }));
    auto *layout = page();
    layout->addLayout(columns, 1);
    layout->addLayout(foot);
    resize(1000, sizeHint().height());
    followDownload();
    send(updateServer(context, u"/progtelech.htm"_s), u"maj"_s);
}

// The sources and destinations of the archives, what the events of a transfer say, and the buttons that other screens
// press.
void Form67::registerHidden()
{
    for (std::size_t i = 0; i < online::updateArchives.size(); ++i) {
        const online::UpdateArchive &archive = online::updateArchives[i];
        const QString number = i == 0 ? QString() : QString::number(i + 1);
        hidden(u"Source"_s + number, updateServer(context, qt(archive.path)));
        hidden(u"Destination"_s + number, destinationText(context, archive.file));
    }
    for (const QString &box : {u"Text1"_s, u"Text2"_s, u"Text3"_s, u"Text4"_s})
        hidden(box);
    hidden(u"Command5"_s, u"premier lancement de circuidex"_s, [this] { run(UpdateRun::firstStart); });
    hidden(u"Command8"_s, u"Command8"_s, [this] { restoreDisplay(context); });
}

QLayout *Form67::steps()
{
    auto *journal =
        button(u"Command7"_s, u"Ouvrir Journal des Mises à Jour"_s, [this] { context.screens.open(u"Form44"_s); });
    auto *full = runButton(u"Command6"_s, u"Mettre à Jour Circuidex"_s, UpdateRun::full);
    full->makeMain();
    auto *fullRow = new QVBoxLayout;
    fullRow->addWidget(full);
    auto *layout = new QVBoxLayout;
    layout->setSpacing(look::gap);
    layout->addWidget(step(u"Etape 1: Connexion à Internet"_s,
                           u"Connectez-vous a Internet et laissez Circuidex y accéder lorsque votre Firewall (ou "
                           "Parefeu) vous le demandera"_s,
                           {}));
    layout->addWidget(step(u"Etape 2: Consultation du Journal des Mises à Jour"_s,
                           u"Consultez le Journal des Mises à Jour de Circuidex. Celui ci référence toutes les "
                           "dernières modifications incluses dans la mise à jour (Nouvelle version logicielle, "
                           "résultats de GP disponibles...)"_s,
                           {journal}));
    layout->addWidget(step(u"Etape 3: Téléchargement de la Mise à Jour de Circuidex"_s,
                           u"Si vous êtes intéréssé par les nouveautés proposés dans le Journal des Mises à Jour, "
                           "cliquez sur le bouton \"Mettre à Jour Circuidex\" et attendez que le logiciel se ferme et "
                           "se relance automatiquement"_s,
                           {}));
    layout->addWidget(card(u"Mise à Jour de Circuidex"_s, fullRow));
    layout->addWidget(lowBandwidth());
    layout->addWidget(manualRoad());
    layout->addStretch(1);
    return layout;
}

// What it is for, small and bold, what to do, and with which buttons.
QWidget *Form67::step(const QString &heading, const QString &text, std::initializer_list<QWidget *> below)
{
    auto *layout = new QVBoxLayout;
    auto *words = new Label(text);
    words->setWordWrap(true);
    layout->addWidget(words);
    for (QWidget *widget : below) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        layout->addWidget(widget, 0, label && label->wordWrap() ? Qt::Alignment() : Qt::AlignLeft);
    }
    QWidget *made = card(heading, layout);
    made->setFixedWidth(stepsWidth);
    return made;
}

QWidget *Form67::lowBandwidth()
{
    auto *layout = new QVBoxLayout;
    layout->addWidget(runButton(u"Command1"_s, u"Mise à Jour des Résultats"_s, UpdateRun::results));
    layout->addWidget(runButton(u"Command3"_s, u"Mise à Jour du Logiciel"_s, UpdateRun::program));
    layout->addWidget(runButton(u"Command4"_s, u"Mise à jour pour Nouvelle Saison"_s, UpdateRun::newSeason));
    return card(u"Mise à Jour avec modem bas débit"_s, layout);
}

QWidget *Form67::manualRoad()
{
    auto *manual = command(u"Label4"_s,
                           u"Vous pouvez aussi accéder au mode de mise a jour manuel, si l'automatique ne marche pas, "
                           "cliquez ici"_s,
                           [this] {
                               if (Screen *main = context.screens.find(u"Form1"_s))
                                   main->showMinimized();
                               context.screens.open(u"Form35"_s);
                               close();
                           });
    manual->setWordWrap(true);
    auto *site = command(u"Label15"_s, u"Cliquez ici pour accéder au site"_s, [this] { leaveForSite(); });
    site->setEnabled(!projectSite(context).isEmpty());
    site->setToolTip(site->isEnabled() ? u"Ouvre le site dans le navigateur et ferme Circuidex"_s
                                       : u"Site à régler dans serveurs.ini"_s);
    return step(u"Etape 4: Procédure de Mise à Jour manuelle"_s,
                u"Si Circuidex se relance aussitôt sans rien de nouveau, la mise à jour automatique a échoué. Dans ce "
                "cas, prenez le patch correctif sur le site, dans la rubrique \"Telechargements\""_s,
                {site, manual});
}

QWidget *Form67::news()
{
    auto *layout = new QVBoxLayout;
    layout->addWidget(view(), 1);
    layout->insertLayout(0, addressRow());
    return card(u"Dernières nouvelles Circuidex (A consulter a chaque mise a jour) :"_s, layout);
}

QWidget *Form67::progress()
{
    m_bar = new QProgressBar;
    m_bar->setRange(0, 1);
    m_bar->setValue(0);
    ShapeControl &bar = shape(u"ProgressBar1"_s);
    bar.textNow = [this] { return QString::number(m_bar->value()); };
    bar.tipNow = [this] { return QString::number(m_bar->maximum()); };
    m_what = add(u"Archive"_s, new Label);
    m_what->setObjectName(u"figure"_s);
    m_state = add(u"Etat"_s, new Label);
    m_state->setWordWrap(true);
    m_state->setMinimumHeight(2 * look::rowHeight); // so that nothing jumps with a longer one
    m_state->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *head = new QHBoxLayout;
    head->addWidget(styled(u"Progression du téléchargement:"_s, "hint"));
    head->addStretch(1);
    head->addWidget(m_what);
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addWidget(m_bar);
    layout->addWidget(m_state);
    layout->addWidget(button(u"Command2"_s, u"Annuler le téléchargement"_s,
                             [this] {
                                 m_runner->cancel();
                                 close();
                             }),
                      0, Qt::AlignRight);
    return card(u"Progression de la Mise à Jour"_s, layout);
}

// Seasons from elsewhere, and something to check one's own against.
QWidget *Form67::publicData()
{
    auto *layout = new QHBoxLayout;
    layout->setSpacing(look::gap);
    layout->addWidget(button(u"importer"_s, u"Importer des saisons…"_s, [this] { context.screens.open(u"Importer"_s); }));
    layout->addWidget(button(u"verifier"_s, u"Vérifier avec des données publiques…"_s,
                             [this] { context.screens.open(u"Verifier"_s); }));
    return card(u"Données publiques"_s, layout);
}

Button *Form67::runButton(const QString &name, const QString &caption, UpdateRun which)
{
    auto *made = button(name, caption, [this, which] { run(which); });
    m_runButtons.push_back(made);
    return made;
}

// One at a time. Where nothing can be fetched, the old archives stay and the program runs on.
void Form67::run(UpdateRun which)
{
    if (m_runner->running())
        return;
    if (const QString obstacle = updateObstacle(context); !obstacle.isEmpty())
        return m_state->setText(obstacle);
    UpdateRunner::Places places;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QString number = i == 0 ? QString() : QString::number(i + 1);
        places[i] = {text(u"Source"_s + number), text(u"Destination"_s + number)};
    }
    m_runner->begin(context, which, places);
    showState();
}

void Form67::followDownload()
{
    connect(&m_runner->download(), &QtDownload::DownloadProgress, this, &Form67::showProgress);
    connect(&m_runner->download(), &QtDownload::DownloadStatus, this, [this](const QString &status) {
        setText(u"Text4"_s, status);
        showState();
    });
    showState();
}

void Form67::showState()
{
    for (QWidget *each : m_runButtons)
        each->setEnabled(!m_runner->running());
    m_what->setText(m_runner->fetching());
    if (m_runner->running())
        m_state->setText(text(u"Text4"_s));
}

// A bar without an end stands for a transfer whose size the server doesn't tell.
void Form67::showProgress(int percent, qint32 received, qint32 total, qint32 third)
{
    setText(u"Text1"_s, u"%1 %"_s.arg(percent));
    setText(u"Text2"_s, u"%1 / %2"_s.arg(received).arg(total));
    setText(u"Text3"_s, QString::number(third));
    m_bar->setRange(0, total);
    m_bar->setValue(received);
}

void Form67::leaveForSite()
{
    press(u"Command8"_s);
    context.platform.openAddress(projectSite(context).toStdString());
    context.platform.endProgram();
}

// While the buttons of the bar are out of reach, Escape closes nothing by chance either.
void Form67::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || control(u"Image4apa"_s)->inSight())
        PageScreen::keyPressEvent(event);
}

}

ScreenRows form67()
{
    return {kindRow<Form67>(u"Form67"_s, u"Mise a Jour"_s, std::make_shared<UpdateRunner>())};
}

}
