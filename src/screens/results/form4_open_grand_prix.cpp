// SPDX-License-Identifier: GPL-3.0-or-later
// Form4, a Grand Prix as it was: result, grid with teams, and both championships at that moment. It opens on the Grand Prix
// of the main screen and then walks on its own, through Grands Prix and seasons.
#include "kinds/empty_note.h"
#include "kinds/name_entry.h"
#include "kinds/picker.h"
#include "kinds/place_names.h"
#include "results/amending.h"
#include "results/main_record.h"
#include "results/open_grand_prix.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>

#include <algorithm>

namespace circuidex::screens {

namespace {

constexpr int shownRows = 8; // of both standings

QStringList namesFrom(int first)
{
    QStringList names;
    for (int i = 0; i < classifiedPlaces; ++i)
        names << u"Text%1"_s.arg(first + i);
    return names;
}

class Form4 : public Screen {
public:
    Form4(Context &context, const QString &name, const QString &title);

private:
    void registerHidden();
    QLayout *head();
    QWidget *resultCard();
    QWidget *gridCard();
    QWidget *standingsCard();

    Season season() const { return Season(context.store, m_year.text()); }
    void showResultOnly(); // the fields and the grid, without teams and standings
    void showGrid(const results::Grid &grid);
    void load();           // all but the standings
    void showStandings();
    void open(); // all at once, by the cursor
    void openNamed();
    void step(double by, int last);
    void stepAndShow(double by);
    void changeYear(double by);
    void findSlot();
    void supp();
    void unlight();
    void light(int place);
    void showPodium();

    results::MainRecord &m_main;
    const NameEntry m_known{context.main};
    results::RaceFields m_race;
    Field m_cursor; // Label40
    Field m_year;   // Text9
    Table *m_result = nullptr, *m_grid = nullptr, *m_drivers = nullptr, *m_teams = nullptr;
    TimerControl *m_delay = nullptr;
};

Form4::Form4(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main), m_cursor(theContext.main.Label40.text()),
    m_year(theContext.main.an.text())
{
    registerHidden();
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    columns->addWidget(resultCard(), 4);
    columns->addWidget(gridCard(), 4);
    columns->addWidget(standingsCard(), 3);
    auto *layout = page();
    layout->addLayout(head());
    layout->addLayout(columns, 1);
    resize(1000, 740);
    open();
}

void Form4::registerHidden()
{
    const auto press = [this](const QString &name, std::function<void()> handler) {
        hidden(name, {}, std::move(handler));
    };
    hidden(u"Label40"_s, m_cursor);
    m_delay = &timer(u"Timer1"_s, 0, TimerControl::Kind::once, [this] { showStandings(); });
    hidden(u"Command1"_s, u"supp"_s, [this] { supp(); });
    press(u"Command3"_s, [this] {
        load();
        m_delay->start(m_delay->interval() + 500);
    });
    press(u"Command8"_s, [this] { step(1, gpSlots); });
    press(u"Command9"_s, [this] { step(-1, gpSlots); });
    press(u"Command10"_s, [this] { unlight(); });
    press(u"Command11"_s, [this] { showStandings(); });
    press(u"Command12"_s, [this] { findSlot(); });
}

QLayout *Form4::head()
{
    const auto arrow = [this](const QString &name, const QString &sign, const QString &tip, std::function<void()> handler) {
        auto *made = button(name, sign, std::move(handler));
        made->setFixedWidth(34);
        made->setToolTip(tip);
        return made;
    };
    auto *number = add(u"Label17"_s, new Label);
    number->setObjectName(u"large"_s);
    number->setFixedWidth(30);
    number->setAlignment(Qt::AlignCenter);
    auto &follow = timer(u"Timer2"_s, 30, TimerControl::Kind::standing, [this, number] {
        number->setText(qt(context.store.numbers().sum(m_cursor.text(), "1").value_or("")));
    });
    listen(m_cursor, [&follow](const std::string &) { follow.kick(); });
    follow.kick();
    auto *gp = m_known.offerGrandsPrix(add(u"gp"_s, new Edit));
    gp->setProperty("title", true);
    bind(gp, m_race.gp);
    auto *year = add(u"Text9"_s, new Edit);
    year->setFixedWidth(64);
    year->setAlignment(Qt::AlignCenter);
    bind(year, m_year);
    connect(gp, &QLineEdit::returnPressed, this, [this] { openNamed(); });
    connect(year, &QLineEdit::returnPressed, this, [this] { open(); });
    auto *row = new QHBoxLayout;
    row->addWidget(arrow(u"Command7"_s, u"◀"_s, u"Grand Prix précédent"_s, [this] { stepAndShow(-1); }));
    row->addWidget(number);
    row->addWidget(arrow(u"Command6"_s, u"▶"_s, u"Grand Prix suivant"_s, [this] { stepAndShow(1); }));
    row->addWidget(gp, 1);
    row->addWidget(button(u"Command2"_s, u"Liste"_s, [this] {
        openPicker(context.screens, PickList::grandsPrix, u"fr4"_s);
    }));
    row->addSpacing(12);
    row->addWidget(styled(u"Saison"_s, "hint"));
    row->addWidget(arrow(u"Command13"_s, u"◀"_s, u"Saison précédente"_s, [this] { changeYear(-1); }));
    row->addWidget(year);
    row->addWidget(arrow(u"Command14"_s, u"▶"_s, u"Saison suivante"_s, [this] { changeYear(1); }));
    auto *openButton = button(u"Command5"_s, u"Ouvrir"_s, [this] { open(); });
    openButton->makeMain();
    row->addWidget(openButton);
    return row;
}

QWidget *Form4::resultCard()
{
    m_result = table({{{}, u"Place"_s, 52, Qt::AlignRight},
                      {{}, u"N°"_s, 38, Qt::AlignRight, {}, 0, false, namesFrom(1)},
                      {{}, u"Pilote"_s, 0, Qt::AlignLeft,
                       u"Cliquez pour voir sa place sur la grille"_s, 0, true, namesFrom(31)},
                      {u"Text10"_s, u"Ecurie"_s, 92}},
                     classifiedPlaces);
    m_result->setFixedHeight(m_result->rowsHigh(classifiedPlaces));
    for (int place = 1; place <= classifiedPlaces; ++place)
        m_result->model().cell(place - 1, 0).setText(placeName(place));
    m_result->onPress = [this](const QString &cell, int row) {
        if (cell.startsWith(u"Text3"))
            light(row + 1);
    };
    auto *pole = add(u"Text39"_s, new Edit);
    pole->setFixedWidth(44);
    pole->setAlignment(Qt::AlignRight);
    bind(pole, m_race.Text39);
    auto *poleName = new Label;
    const auto namePole = [this, poleName](const std::string &) { poleName->setText(qt(season().nom(m_race.Text39.text()))); };
    listen(m_race.Text39, namePole);
    listen(m_year, namePole); // the same number is another driver in another season
    auto *poleRow = new QHBoxLayout;
    poleRow->addWidget(styled(u"Pole-Position"_s, "place"));
    poleRow->addWidget(pole);
    poleRow->addWidget(poleName, 1);
    auto *remark = add(u"Text41"_s, new Remark);
    bind(remark, m_race.Text41);
    auto *layout = new QVBoxLayout;
    layout->addLayout(poleRow);
    layout->addWidget(m_result);
    layout->addWidget(button(u"Command4"_s, u"Visionner Podium"_s, [this] { showPodium(); }), 0,
                      Qt::AlignLeft);
    layout->addSpacing(8);
    layout->addWidget(styled(u"Faits de course:"_s, "caption"));
    layout->addWidget(remark, 1);
    for (int place = 1; place <= classifiedPlaces; ++place) {
        const auto follow = [this, place](Field &field, int column) {
            listen(field, [this, place, column](const std::string &text) {
                m_result->model().cell(place - 1, column).setText(qt(text));
            });
        };
        follow(m_race.number(place), 1);
        follow(m_race.name(place), 2);
    }
    return card(u"Classement du Grand Prix:"_s, layout);
}

QWidget *Form4::gridCard()
{
    m_grid = table({{{}, u"Place"_s, 62, Qt::AlignRight},
                    {u"Text99"_s, u"Pilote"_s},
                    {u"Text11"_s, u"Ecurie"_s, 92}},
                   gridPlaces);
    for (int place = 1; place <= gridPlaces; ++place)
        m_grid->model().cell(place - 1, 0).setText(placeName(place));
    add(emptyNote, noteOver(*m_grid, u"Text99"_s, context, results::Need::race));
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_grid);
    return card(u"Grille de Départ"_s, layout);
}

QWidget *Form4::standingsCard()
{
    const auto standing = [this](const QString &name, const QString &points, const QString &title) {
        Table *made = table({{{}, QString(), 30, Qt::AlignRight},
                             {name, title},
                             {points, u"Points"_s, 62, Qt::AlignRight}},
                            shownRows);
        made->setFixedHeight(made->rowsHigh(shownRows));
        for (int row = 0; row < shownRows; ++row)
            made->model().cell(row, 0).setText(QString::number(row + 1));
        return made;
    };
    m_drivers = standing(u"Label16"_s, u"Label19"_s, u"Pilote"_s);
    m_teams = standing(u"Label20"_s, u"Label21"_s, u"Ecurie"_s);
    auto *layout = new QVBoxLayout;
    layout->addWidget(styled(u"Championnat des pilotes"_s, "hint"));
    layout->addWidget(m_drivers);
    layout->addSpacing(10);
    layout->addWidget(styled(u"Championnat des constructeurs"_s, "hint"));
    layout->addWidget(m_teams);
    layout->addStretch(1);
    auto *check = command(u"verifier"_s, u"Vérifier avec des données publiques…"_s, [this] {
        if (Screen *reading = context.screens.open(u"Verifier"_s)) {
            reading->setText(u"saison"_s, qt(m_year.text()));
            reading->press(u"comparer"_s);
        }
    });
    check->setToolTip(u"La saison à côté de celle des données publiques, course par course"_s);
    layout->addWidget(check, 0, Qt::AlignRight);
    return card(u"Classement après ce Grand Prix"_s, layout);
}

void Form4::showResultOnly()
{
    m_race.gp.set(season().read(keys::gp, keys::namegp(m_cursor.text())));
    results::showResult(m_race, season());
    showGrid(results::loadGrid(season(), m_race.gp.text()));
}

void Form4::showGrid(const results::Grid &grid)
{
    for (int place = 1; place <= gridPlaces; ++place)
        m_grid->set(u"Text99", place - 1, qt(grid[place]));
}

void Form4::load()
{
    const Season shown = season();
    results::showResult(m_race, shown);
    const results::Grid grid = results::loadGrid(shown, m_race.gp.text());
    const auto teamsOfGrid = results::gridTeams(shown, grid);
    showGrid(grid);
    for (int place = 1; place <= gridPlaces; ++place)
        m_grid->set(u"Text11", place - 1, qt(teamsOfGrid[place]));
    for (int place = 1; place <= classifiedPlaces; ++place)
        m_result->set(u"Text10", place - 1, qt(shown.ecurie(m_race.number(place).text())));
}

void Form4::showStandings()
{
    const Waiting waiting(*this);
    const int slot = static_cast<int>(std::clamp(context.store.numbers().value(m_cursor.text()).value_or(-1), -1.0, 21.0));
    const auto fill = [](Table &table, QStringView name, QStringView points, const std::vector<results::StandingRow> &rows) {
        for (int i = 0; i < shownRows; ++i) {
            const bool held = i < static_cast<int>(rows.size());
            table.set(name, i, held ? qt(rows[static_cast<std::size_t>(i)].name) : QString());
            table.set(points, i, held ? qt(rows[static_cast<std::size_t>(i)].points) : QString());
        }
    };
    m_main.refreshScale();
    fill(*m_drivers, u"Label16", u"Label19", results::driversAfter(season(), slot, m_main.scale()));
    fill(*m_teams, u"Label20", u"Label21", results::teamsAfter(season(), slot));
}

void Form4::open()
{
    const Waiting waiting(*this);
    m_race.gp.set(season().read(keys::gp, keys::namegp(m_cursor.text())));
    load();
    showStandings();
}

// The race by the name that was typed, wherever it stands in the calendar.
void Form4::openNamed()
{
    const Waiting waiting(*this);
    findSlot();
    load();
    showStandings();
}

// One slot on or back, between the first and the given last one.
void Form4::step(double by, int last)
{
    if (const auto slot = context.store.numbers().value(m_cursor.text()))
        m_cursor.set(context.store.numbers().text(std::clamp(*slot + by, by > 0 ? -1.0 : 0.0, double(last))));
    showResultOnly();
}

// Quick steps put the standings off.
void Form4::stepAndShow(double by)
{
    step(by, gpSlots - 1);
    load();
    m_delay->start(m_delay->interval() + 1500);
}

void Form4::changeYear(double by)
{
    m_year.set(context.store.numbers().stepped(m_year.text(), by));
    open();
}

void Form4::findSlot()
{
    if (const auto slot = results::slotNamed(season(), m_race.gp.text()))
        m_cursor.set(std::to_string(*slot));
}

void Form4::supp()
{
    results::subtractResult(WritableSeason(context.store, seasonStem(m_year.text())), m_cursor.text(), m_main.scale());
    showResultOnly();
}

void Form4::unlight()
{
    for (Table *table : {m_result, m_grid})
        for (int row = 0; row < table->model().rowCount(); ++row)
            for (int column = 1; column < table->model().columnCount(); ++column)
                table->model().cell(row, column).setBack(look::plain);
}

// The driver's result and his start place in one colour.
void Form4::light(int place)
{
    unlight();
    const QString driver = qt(m_race.name(place).text());
    for (int i = 0; i < gridPlaces && !driver.isEmpty(); ++i) {
        if (m_grid->text(u"Text99", i) != driver)
            continue;
        m_result->model().cell(place - 1, 2).setBack(look::chosen);
        m_result->setBack(u"Text10", place - 1, look::chosen);
        m_grid->setBack(u"Text99", i, look::chosen);
        m_grid->setBack(u"Text11", i, look::chosen);
        m_grid->scrollTo(m_grid->model().index(i, 1));
        return;
    }
}

void Form4::showPodium()
{
    Screen *podium = context.screens.open(u"Form12"_s);
    for (int place = 1; podium && place <= 3; ++place)
        podium->setText(u"Label%1"_s.arg(6 + place), qt(m_race.number(place).text()));
    if (podium)
        podium->setText(u"Label11"_s, qt(m_race.gp.text()));
}

}

ScreenRows form4()
{
    return {screenRow<Form4>(u"Form4"_s, u"Ouverture de Grand-Prix"_s)};
}

}
