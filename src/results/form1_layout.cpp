// How Form1 is laid out: three columns of cards. What its buttons do stands in form1_main.cpp.
#include "results/form1_main.h"

#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "results/side_screens.h"
#include "shell/look.h"
#include "shell/place_names.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

namespace {

const QString numberTip = QStringLiteral("Double-cliquez pour accéder à la liste");
const QString nameTip = QStringLiteral(
    "Double-cliquez ici pour modifier l'arrivée du GP. Cliquez sur \"Enregistrer les modifications du GP "
    "séléctionné\" pour prendre en compte vos modifications.");

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

QLabel *caption(const char *words)
{
    return styled(qt(words), "hint");
}

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
    made->setToolTip(qt(tip));
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
    auto *open =
        pointedCommand(QStringLiteral("Label12"), QStringLiteral("Ouvrir le GP"), [this] { showGrandPrix(m_main); });
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
        connect(numberBox, &QLineEdit::textEdited, this,
                [this, &nameField](const QString &typed) { nameField.set(m_main.season().nom(typed.toStdString())); });
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
    remark->setToolTip(QStringLiteral("Marquez ici les faite de course, ATTENTION: ne faites pas de sauts de ligne"));
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
        auto *made = add(qt(name), new Picture);
        made->setOutline(outline);
        made->setToolTip(qt(tip));
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
    layout->addWidget(
        command(QStringLiteral("Label67"), QStringLiteral("Supprimer la photo"), [this] { removeRacePicture(m_main); }),
        0, Qt::AlignRight);
    auto *film = add(QStringLiteral("Label52"), new Label(QStringLiteral("Insérer ou Visionner une Vidéo")));
    film->makeCommand();
    film->setProperty("film", true);
    film->setAlignment(Qt::AlignCenter);
    film->setToolTip(
        QStringLiteral("Clic 'bouton blanc' = Insertion d'une vidéo - Clic 'bouton vert' = Lecture de la vidéo"));
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
    films->addWidget(
        command(QStringLiteral("Label64"), QStringLiteral("Supprimer la vidéo"), [this] { removeFilm(m_main); }));
    layout->addLayout(films);
    return card({}, layout);
}

QWidget *Form1::grandPrixCommands()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(5);
    const auto plain = [&](const char *name, const char *label, const char *tip, std::function<void()> handler) {
        auto *made = button(qt(name), qt(label), std::move(handler));
        made->setToolTip(qt(tip));
        made->setProperty("quietly", true);
        layout->addWidget(made);
        return made;
    };
    plain("Command26", "Enregistrer un Grand-Prix", "Grille de départ, puis résultat, nom par nom (Ctrl+E)", [this] {
        startAssistant();
    })->makeMain();
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
        label->setToolTip(qt(tip));
        layout->addWidget(label);
    };
    wrapped(pointedCommand(QStringLiteral("Label43"), QStringLiteral("Enregistrer les modifications du GP séléctionné"),
                           [this] { amend(true); }),
            "Remplace le résultat enregistré par celui qui est affiché (Ctrl+S)");
    wrapped(
        pointedCommand(QStringLiteral("Label41"), QStringLiteral("Supprimer le GP séléctionné"), [this] { cancel(); }),
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
    for (const char *name :
         {"Command2", "Command32", "Command20", "Command11", "Command31", "Command15", "Command33", "Command24"})
        layout->addWidget(sideButton(qt(name)));
    return card(QStringLiteral("Commandes des Fenêtres:"), layout);
}

QWidget *Form1::footer()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(0);
    int at = 0;
    for (const PlainOpening &row : plainLabels) {
        auto *label = command(qt(row.control), qt(row.caption), [this, row] { context.screens.open(qt(row.screen)); });
        label->setToolTip(qt(row.tip));
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
    auto *made = button(name, qt(sideScreenOf(name.toStdString())->caption), [this, name] { pressToggle(name); });
    made->setProperty("quietly", true);
    return made;
}

// Opens the side screen of a button, or closes it. A menu first closes the other five.

}
