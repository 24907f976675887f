#include "results/form1_main.h"

#include "platform/platform.h"
#include "results/amending.h"
#include "results/form26_pickers.h"
#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "results/new_season.h"
#include "results/recording.h"
#include "shell/look.h"
#include "shell/place_names.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

namespace circuidex {

namespace {

const QString numberTip = QStringLiteral("Double-cliquez pour accéder à la liste");
const QString nameTip = QStringLiteral(
    "Double-cliquez ici pour modifier l'arrivée du GP. Cliquez sur \"Enregistrer les modifications du GP "
    "séléctionné\" pour prendre en compte vos modifications.");

// The buttons that open a side screen and show by "[F] " that it is open.
struct SideScreen {
    const char *button, *caption, *openCaption, *screen;
    bool menu; // the six menus exclude each other
};

constexpr SideScreen sideScreens[] = {
    {"Command1", "Nouveau Pilote", "[F] Nouveau Pilote", "Form2", false},
    {"Command2", "Ouvrir/Modifier Pilote", "[F] Ouvrir/Modifier Pilote", "Form3", false},
    {"Command3", "Ouvrir GP", "[F] Ouvrir GP", "Form4", false},
    {"Command4", "Classement Constructeur", "[F] Classement Constructeur", "Form5", false},
    {"Command6", "Classement Pilote", "[F] Classement Pilote", "Form6", false},
    {"Command7", "Classement Complet", "[F] Classement Complet", "Form7", false},
    {"Command11", "Courbes et Graphiques", "[F] Courbes et Graphiques", "Form43", true},
    {"Command13", "Galerie Photo", "[F] Galerie Photo", "Form15", false},
    {"Command15", "Vainqueurs / Grille de Départ", "[F] Vainqueurs / Grille de Départ", "Form22", true},
    {"Command16", "Liste", "[F]Liste", "Form25", false},
    {"Command19", "Classement d'un Pilote", "[F] Classement d'un Pilote", "Form31", false},
    {"Command20", "Statistiques", "[F] Statistiques", "Form52", true},
    {"Command22", "Classement Momentané", "[F] Classement Momentané", "Form36", false},
    {"Command24", "Toutes les Fenêtres", "[F] Toutes les Fenêtres", "Form59", false},
    {"Command31", "Comparaison entre Saisons", "[F] Comparaison entre Saisons", "Form84", true},
    {"Command32", "Classement", "[F] Classement", "Form57", true},
    {"Command33", "Multimédia", "[F] Multimédia", "Form58", true},
};

// Buttons and labels that simply open a screen.
struct PlainOpening {
    const char *control, *caption, *screen, *tip;
};

constexpr PlainOpening plainLabels[] = {
    {"Label72", "Mise à Jour en Ligne", "Form67", "Mettre à jour Circuidex"},
    {"Label73", "Infos MàJ", "Form44", "Dernières informations concernant Circuidex et ses mises à jour"},
    {"Label18", "Forum", "Form97", ""},
    {"Label19", "Site", "Form97", ""},
    {"Label17", "Options", "Form93", ""},
    {"Label51", "A Propos", "Form17", ""},
};

QString utf8(const char *words)
{
    return QString::fromUtf8(words);
}

const SideScreen *sideScreenOf(const QString &button)
{
    for (const SideScreen &side : sideScreens)
        if (button == utf8(side.button))
            return &side;
    return nullptr;
}

QLabel *caption(const char *words)
{
    return styled(utf8(words), "hint");
}

}

Form1::Form1(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title, Chrome::mainWindow), m_main(theContext.main)
{
    setMouseTracking(true);
    registerHidden();
    layOut();
    listen(m_main.gp, [this](const std::string &typed) { gpTyped(typed); });
    context.screens.onChange = [this](const QString &screen, bool open) { screenChanged(screen, open); };
    comeBack();
    start();
}

// What opening the program does: the marked season, its last Grand Prix, scale, "nogp" and skin.
void Form1::start()
{
    if (openMarkedSeason(m_main))
        context.screens.open(QStringLiteral("Form46"));
    openOnLastRecorded(m_main);
    context.skin = skinNamed(context.store.LireINI(keys::galerie, "skin", "couleur"));
    dress();
}

void Form1::registerHidden()
{
    const auto press = [this](const char *name, const char *caption, std::function<void()> handler) {
        hidden(utf8(name), utf8(caption), std::move(handler));
    };
    press("Command5", "Enregistrer le Grand Prix", [this] { record(); });
    press("Command10", "", {});
    press("Command12", "", {});
    press("Command17", "", [this] { showGrandPrix(m_main); });
    press("Command23", "enregistrer modifs", [this] { amend(false); });
    press("Command27", "enregistrement spécial pour émulations", [this] {
        if (recordSimulatedGrandPrix(m_main) == Recording::done)
            showPodium();
    });
    press("Command14", "Galerie Vidéo", [this] {
        if (context.screens.open(QStringLiteral("frmmain")))
            setPlace(0, 50000);
    });
    press("Command18", "Journal", [this] { context.screens.open(QStringLiteral("Form28")); });
    for (const char *covered : {"Command1", "Command4", "Command6", "Command7", "Command13", "Command19", "Command22"})
        press(covered, sideScreenOf(utf8(covered))->caption, [this, covered] { pressToggle(utf8(covered)); });

    const auto keep = [this](const char *name, Field &field, std::optional<int> index = std::nullopt) {
        hidden(utf8(name), field, index);
    };
    keep("Label40", m_main.Label40);
    keep("Labell", m_main.Labell);
    keep("Label50", m_main.Label50);
    keep("a", m_main.a);
    keep("pol", m_main.pol);
    keep("vic", m_main.vic);
    keep("pts", m_main.pts);
    keep("lblrec", m_main.lblrec);
    for (int i = 0; i < classifiedPlaces; ++i)
        keep("ptspilot", m_main.ptspilot[static_cast<std::size_t>(i)], i);
    hidden(QStringLiteral("iMg"));
    hidden(QStringLiteral("Image6")).onHover = [this] { unpoint(); };

    using Kind = TimerControl::Kind;
    m_records = &timer(QStringLiteral("Timerrecords"), 0, Kind::once, [this] {
        for (const char *list : {"Command13", "Command14", "Command15"})
            if (Screen *statistics = context.screens.openUnseen(QStringLiteral("Form32")))
                statistics->press(utf8(list));
        context.screens.close(QStringLiteral("Form32"));
        context.screens.close(QStringLiteral("Form4"));
    });
    m_newSeason = &timer(QStringLiteral("Timer55"), 0, Kind::once, [this] { clearNewSeason(); });
    m_lap = &timer(QStringLiteral("Timerlap"), 0, Kind::once, [this] { context.screens.open(QStringLiteral("Form13")); });
    m_img = &timer(QStringLiteral("Timerimg"), 0, Kind::once, [this] { context.screens.open(QStringLiteral("Form13")); });
    m_vid = &timer(QStringLiteral("Timervid"), 0, Kind::once, [this] { playFilm(); });
}

void Form1::layOut()
{
    auto *columns = new QHBoxLayout(body());
    columns->setContentsMargins(look::gap, look::gap, look::gap, look::gap);
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
}

Edit *Form1::edit(const QString &name, Field &field, int width, const char *tip)
{
    auto *made = add(name, new Edit);
    if (width > 0)
        made->setFixedWidth(width);
    made->setToolTip(utf8(tip));
    bind(made, field);
    return made;
}

Label *Form1::pointedCommand(const QString &name, const QString &caption, std::function<void()> handler)
{
    Label *label = command(name, caption, std::move(handler));
    m_pointed << name;
    label->onHover = [this, name] { control(name)->setFore(look::pointed); };
    label->onLeave = [this, name] { control(name)->setFore(QColor(Qt::black)); };
    return label;
}

// The pointer is over the background: all command labels are black again.
void Form1::unpoint()
{
    for (const QString &name : m_pointed)
        control(name)->setFore(QColor(Qt::black));
}

void Form1::mouseMoveEvent(QMouseEvent *event)
{
    Screen::mouseMoveEvent(event);
    control(QStringLiteral("Image6"))->hover();
}

QWidget *Form1::selectionCard()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    auto *previous = button(QStringLiteral("Command9"), QStringLiteral("◀"), [this] {
        const Waiting waiting(*this);
        previousGrandPrix(m_main);
    });
    previous->setToolTip(QStringLiteral("Grand Prix précédent (Page préc.)"));
    auto *next = button(QStringLiteral("Command8"), QStringLiteral("▶"), [this] {
        const Waiting waiting(*this);
        nextGrandPrix(m_main);
    });
    next->setToolTip(QStringLiteral("Grand Prix suivant (Page suiv.)"));
    auto *yearBack = button(QStringLiteral("Command29"), QStringLiteral("◀"), [this] { previousSeason(m_main); });
    yearBack->setToolTip(QStringLiteral("Saison précédente (Ctrl+Page préc.)"));
    auto *yearOn = button(QStringLiteral("Command28"), QStringLiteral("▶"), [this] { nextSeason(m_main); });
    yearOn->setToolTip(QStringLiteral("Saison suivante (Ctrl+Page suiv.)"));
    for (QPushButton *arrow : {previous, next, yearBack, yearOn})
        arrow->setFixedWidth(34);

    auto *gp = edit(QStringLiteral("gp"), m_main.gp, 0, "Nom du Grand Prix ; Entrée l'ouvre");
    gp->setProperty("title", true);
    auto *an = edit(QStringLiteral("an"), m_main.an, 70, "Saison ; Entrée l'ouvre");
    an->setAlignment(Qt::AlignCenter);
    for (Edit *box : {gp, an})
        connect(box, &QLineEdit::returnPressed, this, [this] { press(QStringLiteral("Command17")); });
    auto *dat = edit(QStringLiteral("dat"), m_main.dat, 70, "Date a laquelle se déroule le Grand-Prix");
    dat->setAlignment(Qt::AlignCenter);

    auto *number = add(QStringLiteral("Label13"), new Label);
    number->setObjectName(QStringLiteral("large"));
    number->setAlignment(Qt::AlignCenter);
    number->setFixedWidth(34);
    number->setToolTip(QStringLiteral("Numéro de la course dans la saison"));
    auto &follow = timer(QStringLiteral("Timer2"), 30, TimerControl::Kind::standing, [this, number] {
        const auto shown = m_main.store.numbers().sum(m_main.Label40.text(), "1");
        number->setText(qt(shown.value_or("")));
    });
    listen(m_main.Label40, [&follow](const std::string &) { follow.kick(); });
    follow.kick();

    auto *season = new QHBoxLayout;
    season->addWidget(caption("Ouvrir la Saison"));
    season->addWidget(yearBack);
    season->addWidget(an);
    season->addWidget(yearOn);
    season->addStretch(1);
    season->addWidget(caption("Date:"));
    season->addWidget(dat);
    auto *race = new QHBoxLayout;
    race->addWidget(caption("Grand Prix:"));
    race->addWidget(previous);
    race->addWidget(number);
    race->addWidget(gp, 1);
    race->addWidget(next);
    auto *commands = new QHBoxLayout;
    auto *open = pointedCommand(QStringLiteral("Label12"), QStringLiteral("Ouvrir le GP"),
                                [this] { showGrandPrix(m_main); });
    open->setToolTip(QStringLiteral("Affiche le Grand Prix nommé ci-dessus (F5)"));
    auto *fresh = pointedCommand(QStringLiteral("Label36"), QStringLiteral("Nouveau GP"), [this] {
        const Waiting waiting(*this);
        goToFirstFreeSlot(m_main);
    });
    fresh->setToolTip(QStringLiteral("Va au premier Grand Prix à enregistrer (Ctrl+N)"));
    commands->addWidget(open, 0, Qt::AlignVCenter);
    commands->addWidget(fresh, 0, Qt::AlignVCenter);
    commands->addStretch(1);
    commands->addWidget(sideButton(QStringLiteral("Command16")));
    grid->addLayout(season, 0, 0);
    grid->addLayout(race, 1, 0);
    grid->addLayout(commands, 2, 0);
    return card(QStringLiteral("Selection du GP:"), grid);
}

QWidget *Form1::resultCard()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(6);
    const auto row = [&](int at, const QString &place, const QString &number, Field &numberField, const QString &name,
                         Field &nameField, const QString &reason) {
        grid->addWidget(styled(place, "place"), at, 0);
        Edit *numberBox = edit(number, numberField, 44, numberTip.toUtf8().constData());
        numberBox->setAlignment(Qt::AlignRight);
        Edit *nameBox = edit(name, nameField, 0, nameTip.toUtf8().constData());
        grid->addWidget(numberBox, at, 1);
        grid->addWidget(nameBox, at, 2);
        for (Edit *box : {numberBox, nameBox})
            box->onDoubleClick = [this, reason] { openDriverList(reason); };
        // A number typed by hand shows at once whose it is.
        connect(numberBox, &QLineEdit::textEdited, this, [this, &nameField](const QString &typed) {
            nameField.set(m_main.season().nom(typed.toStdString()));
        });
    };
    auto &follow = timer(QStringLiteral("nompolelabel"), 250, TimerControl::Kind::standing,
                         [this] { m_main.Text9.set(m_main.season().nom(m_main.Text39.text())); });
    for (Field *of : {&m_main.Text39, &m_main.an, &m_main.gp}) // the same number is another driver in another season
        listen(*of, [&follow](const std::string &) { follow.kick(); });
    row(0, QStringLiteral("Pole-Position"), QStringLiteral("Text39"), m_main.Text39, QStringLiteral("Text9"),
        m_main.Text9, QStringLiteral("pole"));
    for (int place = 1; place <= classifiedPlaces; ++place)
        row(place, placeName(place), QStringLiteral("Text%1").arg(place), m_main.number(place),
            QStringLiteral("Text%1").arg(30 + place), m_main.name(place), QString::number(place));
    auto *podium = pointedCommand(QStringLiteral("Label47"), QStringLiteral("Visualiser le podium"), [this] {
        showPodium();
        if (Screen *shown = context.screens.find(QStringLiteral("Form12")))
            shown->setText(QStringLiteral("Label11"), qt(m_main.gp.text()));
    });
    grid->addWidget(podium, classifiedPlaces + 1, 1, 1, 2, Qt::AlignLeft);
    grid->setColumnMinimumWidth(0, 86);
    grid->setColumnStretch(2, 1);
    return card(QStringLiteral("Classement du Grand Prix:"), grid);
}

QWidget *Form1::remarkCard()
{
    auto *layout = new QVBoxLayout;
    auto *remark = add(QStringLiteral("Text41"), new Remark);
    remark->setToolTip(
        QStringLiteral("Marquez ici les faite de course, ATTENTION: ne faites pas de sauts de ligne"));
    bind(remark, m_main.Text41);
    layout->addWidget(remark);
    auto *status = add(QStringLiteral("Label11"), new Label);
    status->setObjectName(QStringLiteral("status"));
    bind(status, m_main.Label11);
    layout->addWidget(status);
    auto *lost = new Label;
    lost->setObjectName(QStringLiteral("lost"));
    lost->setWordWrap(true);
    lost->setVisible(!m_main.writesLost.text().empty());
    bind(lost, m_main.writesLost);
    listen(m_main.writesLost, [lost](const std::string &said) { lost->setVisible(!said.empty()); });
    layout->addWidget(add(QStringLiteral("nonconservees"), lost));
    return card(QStringLiteral("Faits de course:"), layout);
}

QWidget *Form1::picturesCard()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    const auto picture = [&](const char *name, Field &field, TimerControl *single, void (*choose)(MainScreen &),
                             Outline outline, const char *tip) {
        auto *made = add(utf8(name), new Picture);
        made->setOutline(outline);
        made->setToolTip(utf8(tip));
        bind(made, field);
        made->onClick = [single] { single->start(250); };
        made->onDoubleClick = [this, single, choose] {
            single->stop();
            choose(m_main);
        };
        layout->addWidget(made, 1);
    };
    picture("Image1", m_main.Image1, m_lap, chooseCircuitPicture, Outline::circuit,
            "Tracé du Grand Prix (Clic = Agrandissement - Double-clic = Insértion de l'image du tracé)");
    layout->addWidget(command(QStringLiteral("Label69"), QStringLiteral("Supprimer la photo du circuit"),
                              [this] { removeCircuitPicture(m_main); }),
                      0, Qt::AlignRight);
    picture("Image2", m_main.Image2, m_img, chooseRacePicture, Outline::race,
            "Image associée au Grand Prix (Clic = Agrandissement - Double-clic = Insértion d'une image)");
    layout->addWidget(command(QStringLiteral("Label67"), QStringLiteral("Supprimer la photo"),
                              [this] { removeRacePicture(m_main); }),
                      0, Qt::AlignRight);
    auto *film = add(QStringLiteral("Label52"), new Label(QStringLiteral("Insérer ou Visionner une Vidéo")));
    film->makeCommand();
    film->setProperty("film", true);
    film->setAlignment(Qt::AlignCenter);
    film->setToolTip(QStringLiteral(
        "Clic 'bouton blanc' = Insertion d'une vidéo - Clic 'bouton vert' = Lecture de la vidéo"));
    film->onClick = [this] { filmClicked(); };
    film->onDoubleClick = [this] {
        m_vid->stop();
        chooseFilm(m_main);
    };
    const auto paint = [this](const std::string &state) {
        control(QStringLiteral("Label52"))->setBack(state.empty() ? QColor(255, 255, 255) : QColor(0, 255, 0));
    };
    paint(m_main.film.text());
    listen(m_main.film, paint);
    layout->addWidget(film);
    auto *films = new QHBoxLayout;
    auto *load = command(QStringLiteral("Label20"), QStringLiteral("Télécharger des Vidéos"),
                         [this] { context.screens.open(QStringLiteral("Form96")); });
    load->setToolTip(QStringLiteral("Télécharger les vidéos des dernières courses"));
    films->addWidget(load);
    films->addStretch(1);
    films->addWidget(command(QStringLiteral("Label64"), QStringLiteral("Supprimer la vidéo"),
                             [this] { removeFilm(m_main); }));
    layout->addLayout(films);
    return card({}, layout);
}

QWidget *Form1::grandPrixCommands()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(5);
    const auto plain = [&](const char *name, const char *label, const char *tip, std::function<void()> handler) {
        auto *made = button(utf8(name), utf8(label), std::move(handler));
        made->setToolTip(utf8(tip));
        made->setProperty("quietly", true);
        layout->addWidget(made);
        return made;
    };
    plain("Command26", "Enregistrer un Grand-Prix", "Grille de départ, puis résultat, nom par nom (Ctrl+E)",
          [this] { startAssistant(); })
        ->makeMain();
    layout->addWidget(sideButton(QStringLiteral("Command3")));
    plain("Command30", "Grille de Départ", "Voir et modifier la grille (Ctrl+G)",
          [this] { context.screens.open(QStringLiteral("Form48")); });
    plain("Command21", "Calendrier", "Les courses de la saison", [this] {
        if (context.screens.open(QStringLiteral("Form34")))
            setPlace(0, 50000);
    });
    plain("Command25", "Créer Nouvelle Saison", "Passer à la saison suivante",
          [this] { context.screens.open(QStringLiteral("Form39")); });
    const auto wrapped = [&](Label *label, const char *tip) {
        label->setWordWrap(true);
        label->setToolTip(utf8(tip));
        layout->addWidget(label);
    };
    wrapped(pointedCommand(QStringLiteral("Label43"),
                           QStringLiteral("Enregistrer les modifications du GP séléctionné"), [this] { amend(true); }),
            "Remplace le résultat enregistré par celui qui est affiché (Ctrl+S)");
    wrapped(pointedCommand(QStringLiteral("Label41"), QStringLiteral("Supprimer le GP séléctionné"),
                           [this] { cancel(); }),
            "Retire le résultat de ce Grand Prix de tous les totaux");
    wrapped(command(QStringLiteral("Label68"), QStringLiteral("Changer le barème d'attribution des points"),
                    [this] { context.screens.open(QStringLiteral("Form30")); }),
            "Les points des huit premières places");
    return card(QStringLiteral("Commandes de Grand-prix:"), layout);
}

QWidget *Form1::windowCommands()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(5);
    for (const char *name : {"Command2", "Command32", "Command20", "Command11", "Command31", "Command15", "Command33",
                             "Command24"})
        layout->addWidget(sideButton(utf8(name)));
    return card(QStringLiteral("Commandes des Fenêtres:"), layout);
}

QWidget *Form1::footer()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(0);
    int at = 0;
    for (const PlainOpening &row : plainLabels) {
        auto *label = command(utf8(row.control), utf8(row.caption),
                              [this, row] { context.screens.open(utf8(row.screen)); });
        label->setToolTip(utf8(row.tip));
        grid->addWidget(label, at / 2, at % 2, Qt::AlignLeft);
        ++at;
    }
    auto *minimise = command(QStringLiteral("Label71"), QStringLiteral("Réduire"), [this] { showMinimized(); });
    auto *leave = command(QStringLiteral("Label53"), QStringLiteral("Quitter"), [this] { close(); });
    leave->setToolTip(QStringLiteral("Fermer Circuidex"));
    grid->addWidget(minimise, at / 2, 0, Qt::AlignLeft);
    grid->addWidget(leave, at / 2, 1, Qt::AlignLeft);
    return card({}, grid);
}

QWidget *Form1::sideButton(const QString &name)
{
    auto *made = button(name, utf8(sideScreenOf(name)->caption), [this, name] { pressToggle(name); });
    made->setProperty("quietly", true);
    return made;
}

// Opens the side screen of a button, or closes it. A menu first closes the other five.
void Form1::pressToggle(const QString &name)
{
    const SideScreen &side = *sideScreenOf(name);
    if (name == u"Command4") // what finishers without a team left behind
        m_main.season().write(keys::N, "ptsecurie", "0");
    if (side.menu)
        for (const SideScreen &other : sideScreens)
            if (other.menu && &other != &side)
                context.screens.close(utf8(other.screen));
    if (context.screens.isOpen(utf8(side.screen))) {
        context.screens.close(utf8(side.screen));
        return;
    }
    const Waiting waiting(*this);
    if (name == u"Command7")
        m_main.refreshScale();
    context.screens.open(utf8(side.screen));
}

void Form1::screenChanged(const QString &screen, bool open)
{
    for (const SideScreen &side : sideScreens)
        if (screen == utf8(side.screen))
            setText(utf8(side.button), utf8(open ? side.openCaption : side.caption));
}

void Form1::openDriverList(const QString &reason)
{
    openPicker(context.screens, PickList::drivers, reason);
}

void Form1::gpTyped(const std::string &typed)
{
    if (typed != "kkkkk")
        return;
    context.dialogs.message("TEST gp_Change() N°16");
    context.screens.open(QStringLiteral("Form19"));
    m_main.gp.set("");
}

void Form1::showPodium()
{
    Screen *podium = context.screens.open(QStringLiteral("Form12"));
    for (int place = 1; podium && place <= 3; ++place)
        podium->setText(QStringLiteral("Label%1").arg(6 + place), qt(m_main.number(place).text()));
}

void Form1::afterResult()
{
    showPodium();
    context.screens.close(QStringLiteral("Form32"));
    m_records->start(10);
}

void Form1::record()
{
    const Waiting waiting(*this);
    if (recordGrandPrix(m_main) == Recording::done)
        afterResult();
}

void Form1::amend(bool byUser)
{
    const Waiting waiting(*this);
    amendGrandPrix(m_main, byUser ? Amendment::byUser : Amendment::byProgram);
    afterResult();
    context.screens.close(QStringLiteral("Form4"));
}

void Form1::cancel()
{
    const Waiting waiting(*this);
    cancelGrandPrix(m_main);
}

// The grid first, unseen behind its assistant, then the result: Form49 leads on to Form40, which presses Command5.
void Form1::startAssistant()
{
    if (!mayStartAssistant(m_main))
        return;
    context.screens.close(QStringLiteral("Form48")); // it may show another race, or hold edits
    if (Screen *grid = context.screens.open(QStringLiteral("Form48")))
        grid->setPlace(0, 160000);
    showMinimized();
    context.screens.open(QStringLiteral("Form49"));
}

void Form1::filmClicked()
{
    if (m_main.film.empty()) {
        m_vid->stop();
        chooseFilm(m_main);
    } else {
        m_vid->start(250);
    }
}

void Form1::playFilm()
{
    if (Screen *gallery = context.screens.open(QStringLiteral("frmmain"))) {
        gallery->setText(QStringLiteral("Command8"), qt(filmPath(m_main)));
        gallery->press(QStringLiteral("Command8"));
        return;
    }
    context.platform.play(m_main.surroundings.findFile(filmPath(m_main)));
}

// A passage before that is still waiting isn't forgotten.
void Form1::clearTotalsSoon(const QString &season)
{
    if (!m_newSeason->tag.isEmpty())
        clearNewSeason();
    m_newSeason->tag = season;
    m_newSeason->start(500);
}

// The timer's tag says which season was passed to: another one may be open by now.
void Form1::clearNewSeason()
{
    const QString season = std::exchange(m_newSeason->tag, {});
    clearTotals(season.isEmpty() ? m_main.season() : Season(context.store, season.toStdString()));
}

void Form1::comeBack()
{
    setWindowState(Qt::WindowNoState);
    setPlace(0, 0);
    const QRect display = QGuiApplication::primaryScreen()->availableGeometry();
    resize(QSize(1024, 768).expandedTo(QSize(std::min(display.width(), 1400), std::min(display.height(), 900))));
}

void Form1::keyPressEvent(QKeyEvent *event)
{
    const bool control = event->modifiers() == Qt::ControlModifier;
    const auto pressed = [this](const char *name) { press(utf8(name)); };
    switch (event->key()) {
    case Qt::Key_PageDown: return pressed(control ? "Command28" : "Command8");
    case Qt::Key_PageUp: return pressed(control ? "Command29" : "Command9");
    case Qt::Key_Right: return pressed("Command8");
    case Qt::Key_Left: return pressed("Command9");
    case Qt::Key_F5: return pressed("Label12");
    default: break;
    }
    if (control && event->key() == Qt::Key_N)
        return pressed("Label36");
    if (control && event->key() == Qt::Key_E)
        return pressed("Command26");
    if (control && event->key() == Qt::Key_S)
        return pressed("Label43");
    if (control && event->key() == Qt::Key_G)
        return pressed("Command30");
    Screen::keyPressEvent(event);
}

void Form1::closing()
{
    if (!m_newSeason->tag.isEmpty())
        clearNewSeason();
    context.store.setYearMarker(m_main.an.text());
    context.screens.onChange = {};
    for (const QString &name : context.screens.openNames())
        context.screens.close(name);
}

}
