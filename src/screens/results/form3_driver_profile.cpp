// Form3, the profile of a driver: his whole record, his pictures and his team's, and beside it the sheet of his ratios,
// Form14, which moves with it. Emptying the fields and storing them puts a new driver into the slot.
#include "kinds/driver_form.h"
#include "kinds/page_view.h"
#include "kinds/picker.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/driver_sheet.h"

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
    QSize takes() const override;

private:
    QWidget *identityCard();
    QWidget *figuresCard();
    QWidget *picturesCard();
    QLayout *foot();
    void compareButton(QGridLayout &grid, int row, const QString &name, const QString &statistic);

    void askForName();
    void placeSheet();
    void showTeamLarge();

    results::DriverProfile &m_profile;
    TimerControl *m_click = nullptr;
};

Form3::Form3(Context &theContext, const QString &name, const QString &title) :
    DriverScreenBase(theContext, name, title, theContext.main.profile), m_profile(theContext.main.profile)
{
    m_profile.nopilot.set("1");
    statistics::openProfile(m_main);
    hidden(u"Label25"_s, m_profile.seasons);
    hidden(u"lblecuriE"_s, m_profile.lblecuriE);
    hidden(u"Command1"_s, {}, [this] { results::readProfile(m_main); });
    listen(m_profile.seasons, [this](const std::string &) { results::keepSeasons(m_main); });
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
    context.screens.open(u"Form14"_s);
    placeSheet();
    askForName();
}

// A number without a driver is ready to take one.
void Form3::askForName()
{
    auto *name = static_cast<WidgetControl *>(control(u"Text1"_s))->widget();
    if (text(u"Text1"_s).isEmpty())
        name->setFocus();
}

QWidget *Form3::identityCard()
{
    const auto open = [this] { statistics::openProfile(m_main); };
    auto *number = numberBox(44);
    number->setToolTip(u"N° du pilote ; Entrée l'ouvre"_s);
    connect(number, &QLineEdit::returnPressed, this, open);
    auto *back = button(u"Command8"_s, u"◀"_s, [this] { statistics::stepProfileInSeason(m_main, -1); });
    auto *on = button(u"Command7"_s, u"▶"_s, [this] { statistics::stepProfileInSeason(m_main, 1); });
    back->setToolTip(u"Pilote précédent (Page préc.)"_s);
    on->setToolTip(u"Pilote suivant (Page suiv.)"_s);
    const auto go = [this](const QString &arrow) {
        press(arrow);
        askForName();
    };
    shortcut(
        Qt::Key_PageUp, [go] { go(u"Command8"_s); }, u"Pilote précédent"_s);
    shortcut(
        Qt::Key_PageDown, [go] { go(u"Command7"_s); }, u"Pilote suivant"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(back);
    row->addWidget(number);
    row->addWidget(on);
    row->addWidget(button(u"Command3"_s, u"Ouvrir"_s, open));
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
    site->onDoubleClick = [this, site] { openPage(context, site->text()); };
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
    bind(seasons, m_profile.seasons);
    auto *sentence = new QHBoxLayout;
    sentence->setSpacing(6);
    sentence->addWidget(styled(u"Ce pilote a éfféctué"_s, "hint"));
    sentence->addWidget(seasons);
    sentence->addWidget(styled(u"saisons en Formule 1"_s, "hint"));
    sentence->addStretch(1);
    grid->addLayout(sentence, at, 0, 1, 2);
    compareButton(*grid, at++, u"Command15"_s, u"Command7"_s);
    grid->addWidget(styled(u"Champion du monde:"_s, "hint"), at++, 0, 1, 3);
    grid->addWidget(box(u"Text3"_s), at, 0, 1, 3); // room for seven titles and more
    grid->setColumnStretch(1, 1);
    return card({}, grid);
}

QWidget *Form3::picturesCard()
{
    auto *team = add(u"ecuriE"_s, new Picture);
    team->setOutline(Outline::car);
    team->setToolTip(u"Clic = Agrandissement - Double-clic = Insertion d'une image"_s);
    team->onClick = [this] { m_click->start(250); };
    team->onDoubleClick = [this] {
        m_click->stop();
        results::chooseTeamPicture(m_main);
    };
    bind(team, m_profile.ecuriE);
    auto *layout = new QVBoxLayout;
    layout->addWidget(picture(u"picture1"_s, m_profile.picture1, "path", Outline::driver), 4);
    layout->addWidget(picture(u"Image1"_s, m_profile.Image1, "pi", Outline::driver), 4);
    layout->addWidget(team, 2);
    return card({}, layout);
}

QLayout *Form3::foot()
{
    auto *row = footRow(u"Label15"_s);
    row->insertWidget(1, quietLine(m_main.said), 9);
    row->addWidget(command(u"Label11"_s, u"Annuler"_s, [this] { close(); }));
    row->addWidget(button(u"Command5"_s, u"Vider les champs"_s, [this] { results::emptyProfile(m_profile); }));
    auto *store = button(u"Command4"_s, u"Enregistrer modifications"_s, [this] { results::storeProfile(m_main); });
    store->makeMain();
    store->setToolTip(u"Enregistrer ce pilote sous son numéro (Ctrl+S)"_s);
    shortcut(
        u"Ctrl+S"_s, [this] { press(u"Command4"_s); }, u"Enregistrer ce pilote sous son numéro"_s);
    row->addWidget(store);
    return row;
}

void Form3::placeSheet()
{
    if (Screen *sheet = context.screens.find(u"Form14"_s))
        sheet->setPlace((x() + width()) * twipsPerPixel, y() * twipsPerPixel);
}

void Form3::moveEvent(QMoveEvent *event)
{
    Screen::moveEvent(event);
    placeSheet();
}

// The sheet stands at its right edge.
QSize Form3::takes() const
{
    const Screen *sheet = context.screens.find(u"Form14"_s);
    return size() + QSize(sheet ? sheet->width() : 0, 0);
}

void Form3::showTeamLarge()
{
    const QString path = text(u"ecuriE"_s);
    if (const Screen *viewer = path.isEmpty() ? nullptr : context.screens.open(u"Form16"_s))
        viewer->setText(u"Image1"_s, path);
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
