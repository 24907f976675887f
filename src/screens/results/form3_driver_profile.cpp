// Form3, the profile of a driver: his whole record, his pictures and his team's, and beside it the sheet of his ratios,
// Form14, which moves with it. Emptying the fields and storing them puts a new driver into the slot.
#include "kinds/driver_form.h"
#include "kinds/picker.h"
#include "results/media_of_grand_prix.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

const QString replaceNote = u"Note: Si vous voulez entrer un nouveau pilote ou en remplacer un, allez sur le N° de pilote voulu, cliquez sur "
    "'Vider les champs' et entrez ses caractéristiques, cliquez ensuite sur 'Enregistrer modifications'"_s;

class Form3 : public DriverScreenBase {
public:
    Form3(Context &context, const QString &name, const QString &title);

protected:
    void closing() override;
    void moveEvent(QMoveEvent *event) override;
    void showPictures() override;

private:
    QWidget *identityCard();
    QWidget *figuresCard();
    QWidget *picturesCard();
    QLayout *foot();
    void compareButton(QGridLayout &grid, int row, const QString &name, const QString &statistic);

    void step(const char *stop, const char *beside, const QString &sheetButton);
    void open();
    void read();
    void emptyFields();
    void storeAll();
    void fillBlankPictures();
    void placeSheet();
    Screen *sheet() const;
    void showTeamLarge();
    void chooseTeamPicture();

    Field m_seasons; // Text10
    TimerControl *m_click = nullptr;
};

Form3::Form3(Context &theContext, const QString &name, const QString &title) :
    DriverScreenBase(theContext, name, title, results::DriverScreen::profile)
{
    m_number.set("1");
    hidden(u"Label25"_s, m_seasons);
    hidden(u"lblecuriE"_s);
    hidden(u"Command1"_s, {}, [this] { read(); });
    m_click = &timer(u"dblclik"_s, 0, TimerControl::Kind::once, [this] { showTeamLarge(); });
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
    auto *layout = page();
    layout->addLayout(columns, 1);
    layout->addWidget(note);
    layout->addLayout(foot());
    resize(600, 620);
    read();
    context.screens.open(u"Form14"_s);
    listen(m_seasons, [this](const std::string &seasons) {
        if (Screen *ratios = sheet())
            ratios->setText(u"Text1"_s, qt(seasons));
    });
    open();
    placeSheet();
}

QWidget *Form3::identityCard()
{
    auto *number = add(u"nopilot"_s, new Edit);
    number->setFixedWidth(44);
    number->setAlignment(Qt::AlignRight);
    number->setToolTip(u"N° du pilote ; Entrée l'ouvre"_s);
    bind(number, m_number);
    connect(number, &QLineEdit::returnPressed, this, [this] { open(); });
    auto *back = button(u"Command8"_s, u"◀"_s, [this] { step("1", "2", u"Command3"_s); });
    auto *on = button(u"Command7"_s, u"▶"_s, [this] { step("26", "25", u"Command2"_s); });
    back->setToolTip(u"Pilote précédent (Page préc.)"_s);
    on->setToolTip(u"Pilote suivant (Page suiv.)"_s);
    shortcut(Qt::Key_PageUp, [this] { press(u"Command8"_s); });
    shortcut(Qt::Key_PageDown, [this] { press(u"Command7"_s); });
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(back);
    row->addWidget(number);
    row->addWidget(on);
    row->addWidget(button(u"Command3"_s, u"Ouvrir"_s, [this] { open(); }));
    row->addWidget(button(u"Command2"_s, u"Liste"_s, [this] {
        openPicker(context.screens, PickList::drivers, u"fr3"_s);
    }));
    row->addStretch(1);
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(5);
    grid->addWidget(styled(u"N° du pilote:"_s, "hint"), 0, 0);
    grid->addLayout(row, 0, 1, 1, 2);
    box(*grid, 1, u"Text1"_s, u"Nom du pilote:"_s)->setProperty("title", true);
    box(*grid, 2, u"age"_s, u"Né le:"_s);
    box(*grid, 3, u"Text6"_s, u"Nationalité:"_s);
    box(*grid, 4, u"Text8"_s, u"Ecurie:"_s);
    grid->addWidget(button(u"Command6"_s, u"Liste"_s, [this] {
                       openPicker(context.screens, PickList::teams, u"plot1"_s);
                   }),
                    4, 2);
    Edit *site = box(*grid, 5, u"Text12"_s, u"Site Web:"_s);
    site->setToolTip(u"Double-clic = Ouvrir le site"_s);
    site->onDoubleClick = [this, site] {
        if (Screen *browser = context.screens.open(u"Form97"_s))
            browser->setText(u"Adresse"_s, site->text());
    };
    grid->setColumnStretch(1, 1);
    return card({}, grid);
}

void Form3::compareButton(QGridLayout &grid, int row, const QString &name, const QString &statistic)
{
    auto *made = button(name, u"..."_s, [this, statistic] {
        if (const Screen *field = context.screens.open(u"Form69"_s))
            field->press(statistic);
    });
    made->setToolTip(u"Cliquez ici pour comparer ce pilote a l'ensemble du plateau"_s);
    leadsTo(*made, u"Form69"_s);
    made->setFixedWidth(34);
    grid.addWidget(made, row, 2);
}

QWidget *Form3::figuresCard()
{
    struct Row {
        QString control, caption, button, statistic;
    };
    static const Row rows[] = {
        {u"Text2"_s, u"Nombre de points au championnat actuel:"_s, u"Command9"_s, u"Command8"_s},
        {u"Text7"_s, u"Nombre de points total:"_s, u"Command10"_s, u"Command3"_s},
        {u"Text4"_s, u"Nombre de victoire:"_s, u"Command11"_s, u"Command4"_s},
        {u"Text5"_s, u"Nombre de poles:"_s, u"Command12"_s, u"Command6"_s},
        {u"Text11"_s, u"Nombre de podiums:"_s, u"Command13"_s, u"Command5"_s},
        {u"Text9"_s, u"Nombre de GP:"_s, u"Command14"_s, u"Command2"_s},
    };
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(5);
    int at = 0;
    for (const Row &row : rows) {
        Edit *figure = box(*grid, at, row.control, row.caption);
        figure->setAlignment(Qt::AlignRight);
        compareButton(*grid, at++, row.button, row.statistic);
    }
    auto *seasons = add(u"Text10"_s, new Edit);
    seasons->setFixedWidth(44);
    seasons->setAlignment(Qt::AlignRight);
    bind(seasons, m_seasons);
    auto *sentence = new QHBoxLayout;
    sentence->setSpacing(6);
    sentence->addWidget(styled(u"Ce pilote a éfféctué"_s, "hint"));
    sentence->addWidget(seasons);
    sentence->addWidget(styled(u"saisons en Formule 1"_s, "hint"));
    sentence->addStretch(1);
    grid->addLayout(sentence, at, 0, 1, 2);
    compareButton(*grid, at++, u"Command15"_s, u"Command7"_s);
    grid->addWidget(styled(u"Champion du monde:"_s, "hint"), at++, 0, 1, 3);
    grid->addWidget(add(u"Text3"_s, new Edit), at, 0, 1, 3); // room for seven titles and more
    grid->setColumnStretch(1, 1);
    return card({}, grid);
}

QWidget *Form3::picturesCard()
{
    auto *team = add(u"ecuriE"_s, new Picture);
    team->setOutline(Outline::car);
    team->setToolTip(u"Clic = Agrandissement - Double-clic = Insertion d'une image"_s);
    team->onClick = [this] { m_click->start(250); };
    team->onDoubleClick = [this] { chooseTeamPicture(); };
    auto *layout = new QVBoxLayout;
    layout->addWidget(picture(u"picture1"_s, u"Label21"_s, "path", Outline::driver), 4);
    layout->addWidget(picture(u"Image1"_s, u"Label22"_s, "pi", Outline::driver), 4);
    layout->addWidget(team, 2);
    return card({}, layout);
}

QLayout *Form3::foot()
{
    auto *row = footRow(u"Label15"_s);
    row->insertWidget(1, quietLine(m_main.said), 9);
    row->addWidget(command(u"Label11"_s, u"Annuler"_s, [this] { close(); }));
    row->addWidget(button(u"Command5"_s, u"Vider les champs"_s, [this] { emptyFields(); }));
    auto *store = button(u"Command4"_s, u"Enregistrer modifications"_s, [this] { storeAll(); });
    store->makeMain();
    store->setToolTip(u"Enregistrer ce pilote sous son numéro (Ctrl+S)"_s);
    shortcut(u"Ctrl+S"_s, [this] { press(u"Command4"_s); });
    row->addWidget(store);
    return row;
}

Screen *Form3::sheet() const
{
    return context.screens.find(u"Form14"_s);
}

// One number on or back through the sheet, which keeps the seasons of the driver left.
void Form3::step(const char *stop, const char *beside, const QString &sheetButton)
{
    if (m_number.text() == stop)
        m_number.set(beside);
    if (Screen *ratios = sheet())
        ratios->press(sheetButton);
    open();
}

// The number on show anew: fields, sheet, seasons and pictures.
void Form3::open()
{
    read();
    if (Screen *ratios = sheet()) {
        for (int row = 0; row < 10; ++row) // a ratio that can't be worked out leaves its row empty
            ratios->setText(u"Label10"_s, {}, row);
        ratios->press(u"Actualiser"_s);
        m_seasons.set(ratios->text(u"Text1"_s).toStdString());
    }
    fillBlankPictures();
}

void Form3::read()
{
    readFields();
    if (text(u"Text12"_s).isEmpty())
        setText(u"Text12"_s, u"http://"_s);
}

void Form3::showPictures()
{
    DriverScreenBase::showPictures();
    const std::string team = text(u"Text8"_s).toStdString();
    setText(u"lblecuriE"_s, qt(season().read(keys::N, keys::lblecuriE(team))));
    setText(u"ecuriE"_s, qt(findPicture(text(u"lblecuriE"_s).toStdString())));
    if (text(u"picture1"_s).isEmpty())
        setText(u"picture1"_s,
                qt(findPicture(results::defaultPhoto(m_main.folder(), text(u"Text1"_s).toStdString()))));
}

void Form3::fillBlankPictures()
{
    const auto fill = [this](const QString &control, const std::string &stored) {
        if (text(control).isEmpty())
            setText(control, qt(findPicture(stored)));
    };
    const std::string anybody = m_main.folder() + "\\photos\\Pilotes\\photo_XXX.jpg";
    fill(u"picture1"_s, anybody);
    fill(u"Image1"_s, anybody);
    fill(u"ecuriE"_s, results::defaultTeamPicture(m_main.folder(), text(u"Text8"_s).toStdString()));
}

// Number, address and pictures stay; the name goes first, so that the seasons of the driver who leaves stay his.
void Form3::emptyFields()
{
    setText(u"Text1"_s, {});
    for (const results::DriverField &field : results::driverFields)
        if (field.control != "Text12" && !field.control.starts_with("Label"))
            setText(qt(field.control), {});
    m_seasons.set("");
}

void Form3::storeAll()
{
    if (!store())
        return;
    if (m_seasons.empty())
        m_seasons.set("1");
    results::storeCareerSeasons(writableSeason(), text(u"Text1"_s).toStdString(), m_seasons.text());
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
    const QString path = text(u"ecuriE"_s);
    if (const Screen *viewer = path.isEmpty() ? nullptr : context.screens.open(u"Form16"_s))
        viewer->setText(u"Image1"_s, path);
}

void Form3::chooseTeamPicture()
{
    m_click->stop();
    const EnteredName team = enteredName(text(u"Text8"_s).toStdString());
    if (!team.fits())
        return context.dialogs.message(team.refusal);
    const auto chosen = results::choosePictureFile(context.dialogs, "Image");
    if (!chosen)
        return;
    writableSeason().write(keys::N, keys::lblecuriE(team.name), *chosen);
    setText(u"lblecuriE"_s, qt(*chosen));
    setText(u"ecuriE"_s, qt(findPicture(*chosen)));
}

void Form3::closing()
{
    context.screens.close(u"Form14"_s);
}

}

ScreenRows form3()
{
    return {screenRow<Form3>(u"Form3"_s, u"Profil Pilote"_s)};
}

}
