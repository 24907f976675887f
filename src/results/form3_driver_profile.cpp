#include "results/form3_driver_profile.h"

#include "results/form26_pickers.h"
#include "results/media_of_grand_prix.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

namespace {

const QString replaceNote = QStringLiteral(
    "Note: Si vous voulez entrer un nouveau pilote ou en remplacer un, allez sur le N° de pilote voulu, cliquez sur "
    "'Vider les champs' et entrez ses caractéristiques, cliquez ensuite sur 'Enregistrer modifications'");

}

Form3::Form3(Context &theContext, const QString &name, const QString &title) :
    DriverScreenBase(theContext, name, title, DriverScreen::profile)
{
    m_number.set("1");
    hidden(QStringLiteral("Label25"), m_seasons);
    hidden(QStringLiteral("lblecuriE"));
    hidden(QStringLiteral("Command1"), {}, [this] { read(); });
    m_click = &timer(QStringLiteral("dblclik"), 0, TimerControl::Kind::once, [this] { showTeamLarge(); });
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    auto *fields = new QVBoxLayout;
    fields->setSpacing(look::gap);
    fields->addWidget(identityCard());
    fields->addWidget(figuresCard());
    columns->addLayout(fields, 5);
    columns->addWidget(picturesCard(), 3);
    auto *note = styled(replaceNote, "hint");
    note->setWordWrap(true);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(look::gap);
    layout->addLayout(columns, 1);
    layout->addWidget(note);
    layout->addLayout(foot());
    resize(600, 620);
    read();
    context.screens.open(QStringLiteral("Form14"));
    listen(m_seasons, [this](const std::string &seasons) {
        if (Screen *ratios = sheet())
            ratios->setText(QStringLiteral("Text1"), qt(seasons));
    });
    open();
    placeSheet();
}

QWidget *Form3::identityCard()
{
    auto *number = add(QStringLiteral("nopilot"), new Edit);
    number->setFixedWidth(44);
    number->setAlignment(Qt::AlignRight);
    number->setToolTip(QStringLiteral("N° du pilote ; Entrée l'ouvre"));
    bind(number, m_number);
    connect(number, &QLineEdit::returnPressed, this, [this] { open(); });
    auto *back = button(QStringLiteral("Command8"), QStringLiteral("◀"), [this] { step("1", "2", "Command3"); });
    auto *on = button(QStringLiteral("Command7"), QStringLiteral("▶"), [this] { step("26", "25", "Command2"); });
    back->setToolTip(QStringLiteral("Pilote précédent"));
    on->setToolTip(QStringLiteral("Pilote suivant"));
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(back);
    row->addWidget(number);
    row->addWidget(on);
    row->addWidget(button(QStringLiteral("Command3"), QStringLiteral("Ouvrir"), [this] { open(); }));
    row->addWidget(button(QStringLiteral("Command2"), QStringLiteral("Liste"), [this] {
        openPicker(context.screens, PickList::drivers, QStringLiteral("fr3"));
    }));
    row->addStretch(1);
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(5);
    grid->addWidget(styled(QStringLiteral("N° du pilote:"), "hint"), 0, 0);
    grid->addLayout(row, 0, 1, 1, 2);
    box(*grid, 1, "Text1", QStringLiteral("Nom du pilote:"))->setProperty("title", true);
    box(*grid, 2, "age", QStringLiteral("Né le:"));
    box(*grid, 3, "Text6", QStringLiteral("Nationalité:"));
    box(*grid, 4, "Text8", QStringLiteral("Ecurie:"));
    grid->addWidget(button(QStringLiteral("Command6"), QStringLiteral("Liste"), [this] {
                       openPicker(context.screens, PickList::teams, QStringLiteral("plot1"));
                   }),
                    4, 2);
    Edit *site = box(*grid, 5, "Text12", QStringLiteral("Site Web:"));
    site->setToolTip(QStringLiteral("Double-clic = Ouvrir le site"));
    site->onDoubleClick = [this, site] {
        if (Screen *browser = context.screens.open(QStringLiteral("Form97")))
            browser->setText(QStringLiteral("Adresse"), site->text());
    };
    grid->setColumnStretch(1, 1);
    return card({}, grid);
}

void Form3::compareButton(QGridLayout &grid, int row, const char *name, const char *statistic)
{
    auto *made = button(QString::fromLatin1(name), QStringLiteral("..."), [this, statistic] {
        if (const Screen *field = context.screens.open(QStringLiteral("Form69")))
            field->press(QString::fromLatin1(statistic));
    });
    made->setToolTip(QStringLiteral("Cliquez ici pour comparer ce pilote a l'ensemble du plateau"));
    made->setFixedWidth(34);
    grid.addWidget(made, row, 2);
}

QWidget *Form3::figuresCard()
{
    struct Row {
        const char *control, *caption, *button, *statistic;
    };
    static constexpr Row rows[] = {
        {"Text2", "Nombre de points au championnat actuel:", "Command9", "Command8"},
        {"Text7", "Nombre de points total:", "Command10", "Command3"},
        {"Text4", "Nombre de victoire:", "Command11", "Command4"},
        {"Text5", "Nombre de poles:", "Command12", "Command6"},
        {"Text11", "Nombre de podiums:", "Command13", "Command5"},
        {"Text9", "Nombre de GP:", "Command14", "Command2"},
    };
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(5);
    int at = 0;
    for (const Row &row : rows) {
        Edit *figure = box(*grid, at, row.control, QString::fromUtf8(row.caption));
        figure->setAlignment(Qt::AlignRight);
        compareButton(*grid, at++, row.button, row.statistic);
    }
    auto *seasons = add(QStringLiteral("Text10"), new Edit);
    seasons->setFixedWidth(44);
    seasons->setAlignment(Qt::AlignRight);
    bind(seasons, m_seasons);
    auto *sentence = new QHBoxLayout;
    sentence->setSpacing(6);
    sentence->addWidget(styled(QStringLiteral("Ce pilote a éfféctué"), "hint"));
    sentence->addWidget(seasons);
    sentence->addWidget(styled(QStringLiteral("saisons en Formule 1"), "hint"));
    sentence->addStretch(1);
    grid->addLayout(sentence, at, 0, 1, 2);
    compareButton(*grid, at++, "Command15", "Command7");
    grid->addWidget(styled(QStringLiteral("Champion du monde:"), "hint"), at++, 0, 1, 3);
    grid->addWidget(add(QStringLiteral("Text3"), new Edit), at, 0, 1, 3); // room for seven titles and more
    grid->setColumnStretch(1, 1);
    return card({}, grid);
}

QWidget *Form3::picturesCard()
{
    auto *team = add(QStringLiteral("ecuriE"), new Picture);
    team->setOutline(Outline::car);
    team->setToolTip(QStringLiteral("Clic = Agrandissement - Double-clic = Insertion d'une image"));
    team->onClick = [this] { m_click->start(250); };
    team->onDoubleClick = [this] { chooseTeamPicture(); };
    auto *layout = new QVBoxLayout;
    layout->addWidget(picture("picture1", "Label21", "path", Outline::driver), 4);
    layout->addWidget(picture("Image1", "Label22", "pi", Outline::driver), 4);
    layout->addWidget(team, 2);
    return card({}, layout);
}

QLayout *Form3::foot()
{
    auto *row = new QHBoxLayout;
    row->addWidget(printCommand(QStringLiteral("Label15")));
    row->addStretch(1);
    row->addWidget(command(QStringLiteral("Label11"), QStringLiteral("Annuler"), [this] { close(); }));
    row->addWidget(button(QStringLiteral("Command5"), QStringLiteral("Vider les champs"), [this] { emptyFields(); }));
    auto *store = button(QStringLiteral("Command4"), QStringLiteral("Enregistrer modifications"), [this] { storeAll(); });
    store->makeMain();
    row->addWidget(store);
    return row;
}

Screen *Form3::sheet() const
{
    return context.screens.find(QStringLiteral("Form14"));
}

// One number on or back through the sheet, which keeps the seasons of the driver left.
void Form3::step(const char *stop, const char *beside, const char *sheetButton)
{
    if (m_number.text() == stop)
        m_number.set(beside);
    if (Screen *ratios = sheet())
        ratios->press(QString::fromLatin1(sheetButton));
    open();
}

// The number on show anew: fields, sheet, seasons and pictures.
void Form3::open()
{
    read();
    if (Screen *ratios = sheet()) {
        for (int row = 0; row < 10; ++row) // a ratio that can't be worked out leaves its row empty
            ratios->setText(QStringLiteral("Label10"), {}, row);
        ratios->press(QStringLiteral("Actualiser"));
        m_seasons.set(ratios->text(QStringLiteral("Text1")).toStdString());
    }
    fillBlankPictures();
}

void Form3::read()
{
    readFields();
    if (text(QStringLiteral("Text12")).isEmpty())
        setText(QStringLiteral("Text12"), QStringLiteral("http://"));
}

void Form3::showPictures()
{
    DriverScreenBase::showPictures();
    const std::string team = text(QStringLiteral("Text8")).toStdString();
    setText(QStringLiteral("lblecuriE"), qt(season().read(keys::N, keys::lblecuriE(team))));
    setText(QStringLiteral("ecuriE"), qt(findPicture(text(QStringLiteral("lblecuriE")).toStdString())));
    if (text(QStringLiteral("picture1")).isEmpty())
        setText(QStringLiteral("picture1"),
                qt(findPicture(defaultPhoto(m_main.folder(), text(QStringLiteral("Text1")).toStdString()))));
}

void Form3::fillBlankPictures()
{
    const auto fill = [this](const QString &control, const std::string &stored) {
        if (text(control).isEmpty())
            setText(control, qt(findPicture(stored)));
    };
    const std::string anybody = m_main.folder() + "\\photos\\Pilotes\\photo_XXX.jpg";
    fill(QStringLiteral("picture1"), anybody);
    fill(QStringLiteral("Image1"), anybody);
    fill(QStringLiteral("ecuriE"), defaultTeamPicture(m_main.folder(), text(QStringLiteral("Text8")).toStdString()));
}

// Number, address and pictures stay; the name goes first, so that the seasons of the driver who leaves stay his.
void Form3::emptyFields()
{
    setText(QStringLiteral("Text1"), {});
    for (const DriverField &field : driverFields)
        if (field.control != "Text12" && !field.control.starts_with("Label"))
            setText(QString::fromLatin1(field.control.data(), static_cast<qsizetype>(field.control.size())), {});
    m_seasons.set("");
}

void Form3::storeAll()
{
    store();
    if (m_seasons.empty())
        m_seasons.set("1");
    storeCareerSeasons(season(), text(QStringLiteral("Text1")).toStdString(), m_seasons.text());
}

void Form3::placeSheet()
{
    if (Screen *ratios = sheet())
        ratios->setPlace((x() + width()) * twipsPerPixel, y() * twipsPerPixel);
}

void Form3::moveEvent(QMoveEvent *event)
{
    Screen::moveEvent(event);
    placeSheet();
}

void Form3::showTeamLarge()
{
    const QString path = text(QStringLiteral("ecuriE"));
    if (const Screen *viewer = path.isEmpty() ? nullptr : context.screens.open(QStringLiteral("Form16")))
        viewer->setText(QStringLiteral("Image1"), path);
}

void Form3::chooseTeamPicture()
{
    m_click->stop();
    const auto chosen = choosePictureFile(context.dialogs, "Image");
    if (!chosen)
        return;
    season().write(keys::N, keys::lblecuriE(text(QStringLiteral("Text8")).toStdString()), *chosen);
    setText(QStringLiteral("lblecuriE"), qt(*chosen));
    setText(QStringLiteral("ecuriE"), qt(findPicture(*chosen)));
}

void Form3::closing()
{
    context.screens.close(QStringLiteral("Form14"));
}

}
