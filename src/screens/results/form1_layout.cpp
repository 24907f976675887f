// How Form1 is laid out: three columns of cards. What its buttons do stands in form1_main.cpp.
#include "screens/results/form1_main.h"

#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "results/options.h"
#include "screens/results/form1_side_screens.h"
#include "shell/look.h"
#include "kinds/page_view.h"
#include "kinds/place_names.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QGridLayout>

#include <vector>

namespace circuidex::screens {

namespace {

const QString numberTip = u"Double-cliquez pour accéder à la liste"_s;
const QString nameTip = u"Double-cliquez ici pour modifier l'arrivée du GP. Cliquez sur \"Enregistrer les modifications du GP "
                        "séléctionné\" pour prendre en compte vos modifications."_s;

// Labels that simply open a screen, that of web pages at an address.
struct PlainOpening {
    QString control, caption, screen, tip;
    void (*open)(const Context &) = nullptr;
};

void openSite(const Context &context)
{
    openPage(context, projectSite(context), u"site"_s);
}

void openForum(const Context &context)
{
    openPage(context, forum(context), u"maj"_s);
}

const PlainOpening plainLabels[] = {
    {u"Label72"_s, u"Mise à Jour en Ligne"_s, u"Form67"_s, u"Mettre à jour Circuidex"_s},
    {u"Label73"_s, u"Infos MàJ"_s, u"Form44"_s, u"Dernières informations concernant Circuidex et ses mises à jour"_s},
    {u"Label18"_s, u"Forum"_s, u"Form97"_s, u"Aller sur le Forum Circuidex"_s, openForum},
    {u"Label19"_s, u"Site"_s, u"Form97"_s, u"Aller sur le site Circuidex"_s, openSite},
    {u"Label17"_s, u"Options"_s, u"Form93"_s, u"Options de Circuidex"_s},
    {u"Label51"_s, u"A Propos"_s, u"Form17"_s, {}},
};

QLabel *caption(const QString &words)
{
    return styled(words, "hint");
}

// A card in what is left below the others: as high as it must be, and no reason to keep the window from shrinking.
class LeftOver : public QWidget {
public:
    explicit LeftOver(QWidget *inside) : m_inside(inside) { inside->setParent(this); }
    QSize sizeHint() const override { return {0, m_inside->heightForWidth(leastWidth)}; }
    QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void resizeEvent(QResizeEvent *) override { m_inside->setGeometry(rect()); }

private:
    static constexpr int leastWidth = 1000; // pixels
    QWidget *m_inside;
};

}

void Form1::layOut()
{
    auto *rows = new QVBoxLayout(body());
    rows->setContentsMargins(look::gap, look::gap, look::gap, look::gap);
    rows->setSpacing(look::gap);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    auto *race = new QVBoxLayout;
    race->setSpacing(look::gap);
    race->addWidget(selectionCard());
    race->addWidget(resultCard());
    race->addWidget(remarkCard(), 1);
    auto *commands = new QVBoxLayout;
    commands->setSpacing(look::gap);
    commands->addWidget(grandPrixCommands());
    commands->addWidget(windowCommands());
    commands->addStretch(1);
    commands->addWidget(footer());
    columns->addLayout(race, 5);
    columns->addWidget(picturesCard(), 4);
    columns->addLayout(commands, 3);
    rows->addLayout(columns, 1);
    rows->addWidget(displayCard());
}

// Why and how the display can take the mode that the screens are made for.
QWidget *Form1::displayCard()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    const auto words = [&](int which, const QString &text) {
        auto *label = add(u"Adaptation"_s, new Label(text), which);
        label->setWordWrap(true);
        layout->addWidget(label);
    };
    words(0, u"Si vous voyez cette case c'est que la résolution de votre écran est mal adaptée au logiciel. Pour adapter "
             "automatiquement la résolution d'écran a Circuidex, et ainsi disposer de statistiques en plein écran, cochez "
             "l'option suivante :"_s);
    auto *tick = add(u"Check1"_s, new QCheckBox(u"Adapter la résolution d'écran a Circuidex"_s));
    connect(tick, &QCheckBox::clicked, this, [this] {
        results::setAdaptsDisplay(m_main.writableSeason(), true);
        adapt();
    });
    layout->addWidget(tick, 0, Qt::AlignLeft);
    words(1, u"Votre écran adoptera une résolution de 1024x768 durant l'éxécution du logiciel et restaurera les anciens "
             "paramètres après sa fermeture. Pour désactiver l'option d'ajustement automatique de résolution, allez dans les "
             "options du logiciel et cliquez sur \"Désactiver l'ajustement automatique de résolution\"."_s);
    const QString heading = u"Résolution d'écran"_s;
    ShapeControl &frame = shape(u"Frame1"_s);
    frame.textNow = [heading] { return heading; };
    frame.geometryNow = [this] { return TwipRect{120, 11640, place().width - 240, m_display->sizeHint().height() * twipsPerPixel}; };
    m_display = new LeftOver(card(heading, layout));
    m_display->hide();
    return m_display;
}

Edit *Form1::edit(const QString &name, Field &field, int width, const QString &tip)
{
    auto *made = add(name, new Edit);
    if (width > 0)
        made->setFixedWidth(width);
    made->setToolTip(tip);
    bind(made, field);
    return made;
}

Label *Form1::pointedCommand(const QString &name, const QString &caption, std::function<void()> handler)
{
    Label *label = command(name, caption, std::move(handler));
    m_pointed << name;
    label->onHover = [this, name] { control(name)->setFore(look::pointed); };
    label->onLeave = [this, name] { control(name)->setFore(look::unpointed); };
    return label;
}

QWidget *Form1::selectionCard()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    const auto arrow = [this](const QString &name, const QString &caption, void (*go)(results::MainRecord &),
                              const QString &tip) {
        auto *made = button(name, caption, [this, go] {
            const Waiting waiting(*this);
            go(m_main);
        });
        made->setToolTip(tip);
        made->setFixedWidth(34);
        return made;
    };
    auto *previous =
        arrow(u"Command9"_s, u"◀"_s, results::previousGrandPrix, u"Grand Prix précédent (Page préc.)"_s);
    auto *next = arrow(u"Command8"_s, u"▶"_s, results::nextGrandPrix, u"Grand Prix suivant (Page suiv.)"_s);
    auto *yearBack =
        arrow(u"Command29"_s, u"◀"_s, results::previousSeason, u"Saison précédente (Ctrl+Page préc.)"_s);
    auto *yearOn = arrow(u"Command28"_s, u"▶"_s, results::nextSeason, u"Saison suivante (Ctrl+Page suiv.)"_s);

    auto *gp = edit(u"gp"_s, m_main.gp, 0, u"Nom du Grand Prix ; Entrée l'ouvre"_s);
    gp->setProperty("title", true);
    auto *an = edit(u"an"_s, m_main.an, 70, u"Saison ; Entrée l'ouvre"_s);
    an->setAlignment(Qt::AlignCenter);
    connect(gp, &QLineEdit::returnPressed, this, [this] { press(u"Command17"_s); });
    connect(an, &QLineEdit::returnPressed, this, [this] { results::showSeason(m_main); });
    auto *dat = edit(u"dat"_s, m_main.dat, 70, u"Date a laquelle se déroule le Grand-Prix"_s);
    dat->setAlignment(Qt::AlignCenter);

    auto *season = new QHBoxLayout;
    season->addWidget(caption(u"Ouvrir la Saison"_s));
    season->addWidget(yearBack);
    season->addWidget(an);
    season->addWidget(yearOn);
    season->addStretch(1);
    season->addWidget(caption(u"Date:"_s));
    season->addWidget(dat);
    auto *race = new QHBoxLayout;
    race->addWidget(caption(u"Grand Prix:"_s));
    race->addWidget(previous);
    race->addWidget(raceNumber());
    race->addWidget(gp, 1);
    race->addWidget(next);
    grid->addLayout(season, 0, 0);
    grid->addLayout(race, 1, 0);
    grid->addLayout(selectionCommands(), 2, 0);
    return card(u"Selection du GP:"_s, grid);
}

QWidget *Form1::raceNumber()
{
    auto *number = add(u"Label13"_s, new Label);
    number->setObjectName(u"large"_s);
    number->setAlignment(Qt::AlignCenter);
    number->setFixedWidth(34);
    number->setToolTip(u"Numéro de la course dans la saison"_s);
    auto &follow = timer(u"Timer2"_s, 30, TimerControl::Kind::standing, [this, number] {
        const auto shown = m_main.store.numbers().sum(m_main.Label40.text(), "1");
        number->setText(qt(shown.value_or("")));
    });
    listen(m_main.Label40, [&follow](const std::string &) { follow.kick(); });
    follow.kick();
    return number;
}

QLayout *Form1::selectionCommands()
{
    auto *commands = new QHBoxLayout;
    auto *open =
        pointedCommand(u"Label12"_s, u"Ouvrir le GP"_s, [this] { results::showGrandPrix(m_main); });
    open->setToolTip(u"Affiche le Grand Prix nommé ci-dessus (F5)"_s);
    auto *fresh = pointedCommand(u"Label36"_s, u"Nouveau GP"_s, [this] {
        const Waiting waiting(*this);
        results::goToFirstFreeSlot(m_main);
    });
    fresh->setToolTip(u"Va au premier Grand Prix à enregistrer (Ctrl+N)"_s);
    commands->addWidget(open, 0, Qt::AlignVCenter);
    commands->addWidget(fresh, 0, Qt::AlignVCenter);
    commands->addStretch(1);
    commands->addWidget(sideButton(u"Command16"_s));
    return commands;
}

QWidget *Form1::resultCard()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(6);
    const auto row = [&](int at, const QString &place, const QString &number, Field &numberField, const QString &name,
                         Field &nameField, const QString &reason) {
        grid->addWidget(styled(place, "place"), at, 0);
        Edit *numberBox = edit(number, numberField, 44, numberTip);
        numberBox->setAlignment(Qt::AlignRight);
        Edit *nameBox = edit(name, nameField, 0, nameTip);
        grid->addWidget(numberBox, at, 1);
        grid->addWidget(nameBox, at, 2);
        for (Edit *box : {numberBox, nameBox})
            box->onDoubleClick = [this, reason] { openDriverList(reason); };
        // A number typed by hand shows at once whose it is.
        connect(numberBox, &QLineEdit::textEdited, this,
                [this, &nameField](const QString &typed) { nameField.set(m_main.season().nom(typed.toStdString())); });
        connect(nameBox, &QLineEdit::returnPressed, this,
                [this, nameBox, &numberField, &nameField] { nameTyped(nameBox, numberField, nameField); });
        connect(nameBox, &QLineEdit::editingFinished, this, [this, nameBox, &numberField, &nameField] {
            if (nameBox->isModified())
                nameTyped(nameBox, numberField, nameField);
        });
        connect(nameBox, &QLineEdit::textEdited, this, [this] { m_main.said.set(""); });
        listen(m_main.said, [nameBox](const std::string &) { setMark(*nameBox, "refused", false); });
    };
    auto &follow = timer(u"nompolelabel"_s, 250, TimerControl::Kind::standing,
                         [this] { m_main.Text9.set(m_main.season().nom(m_main.Text39.text())); });
    for (Field *of : {&m_main.Text39, &m_main.an, &m_main.gp}) // the same number is another driver in another season
        listen(*of, [&follow](const std::string &) { follow.kick(); });
    row(0, u"Pole-Position"_s, u"Text39"_s, m_main.Text39, u"Text9"_s,
        m_main.Text9, u"pole"_s);
    for (int place = 1; place <= classifiedPlaces; ++place)
        row(place, placeName(place), u"Text%1"_s.arg(place), m_main.number(place),
            u"Text%1"_s.arg(30 + place), m_main.name(place), QString::number(place));
    auto *podium = pointedCommand(u"Label47"_s, u"Visualiser le podium"_s, [this] {
        showPodium();
        if (Screen *shown = context.screens.find(u"Form12"_s))
            shown->setText(u"Label11"_s, qt(m_main.gp.text()));
    });
    grid->addWidget(podium, classifiedPlaces + 1, 1, 1, 2, Qt::AlignLeft);
    grid->setColumnMinimumWidth(0, 86);
    grid->setColumnStretch(2, 1);
    return card(u"Classement du Grand Prix:"_s, grid);
}

QWidget *Form1::remarkCard()
{
    auto *layout = new QVBoxLayout;
    auto *remark = add(u"Text41"_s, new Remark);
    remark->setToolTip(u"Marquez ici les faite de course, ATTENTION: ne faites pas de sauts de ligne"_s);
    bind(remark, m_main.Text41);
    layout->addWidget(remark);
    auto *status = add(u"Label11"_s, new Label);
    status->setObjectName(u"status"_s);
    bind(status, m_main.Label11);
    layout->addWidget(status);
    layout->addWidget(quietLine(m_main.said));
    auto *lost = new Label;
    lost->setObjectName(u"lost"_s);
    lost->setWordWrap(true);
    lost->setVisible(!m_main.writesLost.text().empty());
    bind(lost, m_main.writesLost);
    listen(m_main.writesLost, [lost](const std::string &said) { lost->setVisible(!said.empty()); });
    layout->addWidget(add(u"nonconservees"_s, lost));
    return card(u"Faits de course:"_s, layout);
}

QWidget *Form1::picturesCard()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    const auto picture = [&](const QString &name, Field &field, TimerControl *single, void (*choose)(results::MainRecord &),
                             Outline outline, const QString &tip) {
        auto *made = add(name, new Picture);
        made->setOutline(outline);
        made->setToolTip(tip);
        bind(made, field);
        made->onClick = [single] { single->start(250); };
        made->onDoubleClick = [this, single, choose] {
            single->stop();
            choose(m_main);
        };
        layout->addWidget(made, 1);
    };
    picture(u"Image1"_s, m_main.Image1, m_lap, results::chooseCircuitPicture, Outline::circuit,
            u"Tracé du Grand Prix (Clic = Agrandissement - Double-clic = Insértion de l'image du tracé)"_s);
    layout->addWidget(command(u"Label69"_s, u"Supprimer la photo du circuit"_s,
                              [this] { results::removeCircuitPicture(m_main); }),
                      0, Qt::AlignRight);
    picture(u"Image2"_s, m_main.Image2, m_img, results::chooseRacePicture, Outline::race,
            u"Image associée au Grand Prix (Clic = Agrandissement - Double-clic = Insértion d'une image)"_s);
    layout->addWidget(
        command(u"Label67"_s, u"Supprimer la photo"_s, [this] { results::removeRacePicture(m_main); }),
        0, Qt::AlignRight);
    addFilm(layout);
    return card({}, layout);
}

void Form1::addFilm(QVBoxLayout *layout)
{
    auto *film = add(u"Label52"_s, new Label(u"Insérer ou Visionner une Vidéo"_s));
    film->makeCommand();
    film->setProperty("film", true);
    film->setAlignment(Qt::AlignCenter);
    film->setToolTip(
        u"Clic 'bouton blanc' = Insertion d'une vidéo - Clic 'bouton vert' = Lecture de la vidéo"_s);
    film->onClick = [this] { filmClicked(); };
    film->onDoubleClick = [this] {
        m_vid->stop();
        results::chooseFilm(m_main);
    };
    const auto paint = [this](const std::string &state) {
        control(u"Label52"_s)->setBack(state.empty() ? look::plain : look::atHand);
    };
    paint(m_main.film.text());
    listen(m_main.film, paint);
    layout->addWidget(film);
    auto *films = new QHBoxLayout;
    auto *load = command(u"Label20"_s, u"Télécharger des Vidéos"_s,
                         [this] { context.screens.open(u"Form96"_s); });
    load->setToolTip(u"Télécharger les vidéos des dernières courses"_s);
    leadsTo(*load, u"Form96"_s);
    films->addWidget(load);
    films->addStretch(1);
    films->addWidget(
        command(u"Label64"_s, u"Supprimer la vidéo"_s, [this] { results::removeFilm(m_main); }));
    layout->addLayout(films);
}

QWidget *Form1::grandPrixCommands()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(3);
    const auto plain = [&](const QString &name, const QString &label, const QString &tip, std::function<void()> handler) {
        auto *made = button(name, label, std::move(handler));
        made->setToolTip(tip);
        made->setProperty("quietly", true);
        layout->addWidget(made);
        return made;
    };
    plain(u"Command26"_s, u"Enregistrer un Grand-Prix"_s, u"Grille de départ, puis résultat, nom par nom (Ctrl+E)"_s, [this] {
        startAssistant();
    })->makeMain();
    layout->addWidget(sideButton(u"Command3"_s));
    plain(u"Command30"_s, u"Grille de Départ"_s, u"Voir et modifier la grille (Ctrl+G)"_s,
          [this] { context.screens.open(u"Form48"_s); });
    plain(u"Command21"_s, u"Calendrier"_s, u"Les courses de la saison"_s, [this] {
        if (context.screens.open(u"Form34"_s))
            putAway();
    });
    plain(u"Command25"_s, u"Créer Nouvelle Saison"_s, u"Passer à la saison suivante"_s,
          [this] { context.screens.open(u"Form39"_s); });
    const auto wrapped = [&](Label *label, const QString &tip) {
        label->setWordWrap(true);
        label->setToolTip(tip);
        layout->addWidget(label);
    };
    wrapped(pointedCommand(u"Label43"_s, u"Enregistrer les modifications du GP séléctionné"_s,
                           [this] { amend(true); }),
            u"Remplace le résultat enregistré par celui qui est affiché (Ctrl+S)"_s);
    wrapped(
        pointedCommand(u"Label41"_s, u"Supprimer le GP séléctionné"_s, [this] { cancel(); }),
        u"Retire le résultat de ce Grand Prix de tous les totaux"_s);
    wrapped(command(u"Label68"_s, u"Changer le barème d'attribution des points"_s,
                    [this] { context.screens.open(u"Form30"_s); }),
            u"Les points des huit premières places"_s);
    return card(u"Commandes de Grand-prix:"_s, layout);
}

QWidget *Form1::windowCommands()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(3);
    for (const QString &name :
         {u"Command2"_s, u"Command32"_s, u"Command20"_s, u"Command11"_s, u"Command31"_s, u"Command15"_s, u"Command33"_s, u"Command24"_s})
        layout->addWidget(sideButton(name));
    return card(u"Commandes des Fenêtres:"_s, layout);
}

QWidget *Form1::footer()
{
    auto *rows = new QVBoxLayout;
    rows->setSpacing(0);
    std::vector<Label *> labels;
    for (const PlainOpening &row : plainLabels) {
        labels.push_back(command(row.control, row.caption, [this, row] {
            row.open ? row.open(context) : void(context.screens.open(row.screen));
        }));
        labels.back()->setToolTip(row.tip);
        leadsTo(*labels.back(), row.screen);
    }
    labels.push_back(command(u"historique"_s, u"Historique"_s, [this] { context.screens.open(u"Historique"_s); }));
    labels.back()->setToolTip(
        u"Les dernières actions, pour les annuler (Ctrl+Z) ou les rétablir (Maj+Ctrl+Z) (Ctrl+H)"_s);
    labels.push_back(command(u"Label71"_s, u"Réduire"_s, [this] { showMinimized(); }));
    labels.push_back(command(u"Label53"_s, u"Quitter"_s, [this] { leave(); }));
    labels.back()->setToolTip(u"Fermer Circuidex"_s);
    auto next = labels.begin();
    for (const int count : {2, 4, 3}) {
        auto *row = new QHBoxLayout;
        for (int i = 0; i < count; ++i)
            row->addWidget(*next++);
        row->addStretch(1);
        rows->addLayout(row);
    }
    rows->addWidget(addresses());
    return card({}, rows);
}

// The site's and the contact's names, where they are known.
QWidget *Form1::addresses()
{
    const QString names = QStringList{projectSite(context), contactAddress(context)}.join(u"   "_s).trimmed();
    auto *made = command(u"Label15"_s, names, [this] { openSite(context); });
    made->setVisible(!names.isEmpty());
    return made;
}

QWidget *Form1::sideButton(const QString &name)
{
    auto *made = button(name, qt(sideScreenOf(name.toStdString())->caption), [this, name] { pressToggle(name); });
    made->setProperty("quietly", true);
    leadsTo(*made, qt(sideScreenOf(name.toStdString())->screen));
    return made;
}

}
