#include "results/form4_open_grand_prix.h"

#include "results/amending.h"
#include "results/form26_pickers.h"
#include "shell/look.h"
#include "shell/place_names.h"

#include <QBoxLayout>

#include <algorithm>

namespace circuidex {

namespace {

constexpr int shownRows = 8; // of both standings

QStringList namesFrom(int first)
{
    QStringList names;
    for (int i = 0; i < classifiedPlaces; ++i)
        names << QStringLiteral("Text%1").arg(first + i);
    return names;
}

}

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
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 10);
    layout->setSpacing(look::gap);
    layout->addLayout(head());
    layout->addLayout(columns, 1);
    resize(1000, 740);
    open();
}

void Form4::registerHidden()
{
    const auto press = [this](const char *name, std::function<void()> handler) {
        hidden(QString::fromLatin1(name), {}, std::move(handler));
    };
    hidden(QStringLiteral("Label40"), m_cursor);
    m_delay = &timer(QStringLiteral("Timer1"), 0, TimerControl::Kind::once, [this] { showStandings(); });
    hidden(QStringLiteral("Command1"), QStringLiteral("supp"), [this] { supp(); });
    press("Command3", [this] {
        load();
        m_delay->start(m_delay->interval() + 500);
    });
    press("Command8", [this] { step(1, gpSlots); });
    press("Command9", [this] { step(-1, gpSlots); });
    press("Command10", [this] { unlight(); });
    press("Command11", [this] { showStandings(); });
    press("Command12", [this] { findSlot(); });
}

QLayout *Form4::head()
{
    const auto arrow = [this](const char *name, const char *sign, const char *tip, std::function<void()> handler) {
        auto *made = button(QString::fromLatin1(name), QString::fromUtf8(sign), std::move(handler));
        made->setFixedWidth(34);
        made->setToolTip(QString::fromUtf8(tip));
        return made;
    };
    auto *number = add(QStringLiteral("Label17"), new Label);
    number->setObjectName(QStringLiteral("large"));
    number->setFixedWidth(30);
    number->setAlignment(Qt::AlignCenter);
    auto &follow = timer(QStringLiteral("Timer2"), 30, TimerControl::Kind::standing, [this, number] {
        number->setText(qt(context.store.numbers().sum(m_cursor.text(), "1").value_or("")));
    });
    listen(m_cursor, [&follow](const std::string &) { follow.kick(); });
    follow.kick();
    auto *gp = add(QStringLiteral("gp"), new Edit);
    gp->setProperty("title", true);
    bind(gp, m_race.gp);
    auto *year = add(QStringLiteral("Text9"), new Edit);
    year->setFixedWidth(64);
    year->setAlignment(Qt::AlignCenter);
    bind(year, m_year);
    connect(gp, &QLineEdit::returnPressed, this, [this] { openNamed(); });
    connect(year, &QLineEdit::returnPressed, this, [this] { open(); });
    auto *row = new QHBoxLayout;
    row->addWidget(arrow("Command7", "◀", "Grand Prix précédent", [this] { stepAndShow(-1); }));
    row->addWidget(number);
    row->addWidget(arrow("Command6", "▶", "Grand Prix suivant", [this] { stepAndShow(1); }));
    row->addWidget(gp, 1);
    row->addWidget(button(QStringLiteral("Command2"), QStringLiteral("Liste"), [this] {
        openPicker(context.screens, PickList::grandsPrix, QStringLiteral("fr4"));
    }));
    row->addSpacing(12);
    row->addWidget(styled(QStringLiteral("Saison"), "hint"));
    row->addWidget(arrow("Command13", "◀", "Saison précédente", [this] { changeYear(-1); }));
    row->addWidget(year);
    row->addWidget(arrow("Command14", "▶", "Saison suivante", [this] { changeYear(1); }));
    auto *openButton = button(QStringLiteral("Command5"), QStringLiteral("Ouvrir"), [this] { open(); });
    openButton->makeMain();
    row->addWidget(openButton);
    return row;
}

QWidget *Form4::resultCard()
{
    m_result = table({{{}, QStringLiteral("Place"), 52, Qt::AlignRight},
                      {{}, QStringLiteral("N°"), 38, Qt::AlignRight, {}, 0, false, namesFrom(1)},
                      {{}, QStringLiteral("Pilote"), 0, Qt::AlignLeft,
                       QStringLiteral("Cliquez pour voir sa place sur la grille"), 0, true, namesFrom(31)},
                      {QStringLiteral("Text10"), QStringLiteral("Ecurie"), 92}},
                     classifiedPlaces);
    m_result->setFixedHeight(m_result->rowsHigh(classifiedPlaces));
    for (int place = 1; place <= classifiedPlaces; ++place)
        m_result->model().cell(place - 1, 0).setText(placeName(place));
    m_result->onPress = [this](const QString &cell, int row) {
        if (cell.startsWith(u"Text3"))
            light(row + 1);
    };
    auto *pole = add(QStringLiteral("Text39"), new Edit);
    pole->setFixedWidth(44);
    pole->setAlignment(Qt::AlignRight);
    bind(pole, m_race.Text39);
    auto *poleName = new Label;
    const auto namePole = [this, poleName](const std::string &) { poleName->setText(qt(season().nom(m_race.Text39.text()))); };
    listen(m_race.Text39, namePole);
    listen(m_year, namePole); // the same number is another driver in another season
    auto *poleRow = new QHBoxLayout;
    poleRow->addWidget(styled(QStringLiteral("Pole-Position"), "place"));
    poleRow->addWidget(pole);
    poleRow->addWidget(poleName, 1);
    auto *remark = add(QStringLiteral("Text41"), new Remark);
    bind(remark, m_race.Text41);
    auto *layout = new QVBoxLayout;
    layout->addLayout(poleRow);
    layout->addWidget(m_result);
    layout->addWidget(button(QStringLiteral("Command4"), QStringLiteral("Visionner Podium"), [this] { showPodium(); }), 0,
                      Qt::AlignLeft);
    layout->addSpacing(8);
    layout->addWidget(styled(QStringLiteral("Faits de course:"), "caption"));
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
    return card(QStringLiteral("Classement du Grand Prix:"), layout);
}

QWidget *Form4::gridCard()
{
    m_grid = table({{{}, QStringLiteral("Place"), 62, Qt::AlignRight},
                    {QStringLiteral("Text99"), QStringLiteral("Pilote")},
                    {QStringLiteral("Text11"), QStringLiteral("Ecurie"), 92}},
                   gridPlaces);
    for (int place = 1; place <= gridPlaces; ++place)
        m_grid->model().cell(place - 1, 0).setText(placeName(place));
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_grid);
    return card(QStringLiteral("Grille de Départ"), layout);
}

QWidget *Form4::standingsCard()
{
    const auto standing = [this](const char *name, const char *points, const char *title) {
        Table *made = table({{{}, QString(), 30, Qt::AlignRight},
                             {QString::fromLatin1(name), QString::fromUtf8(title)},
                             {QString::fromLatin1(points), QStringLiteral("Points"), 62, Qt::AlignRight}},
                            shownRows);
        made->setFixedHeight(made->rowsHigh(shownRows));
        for (int row = 0; row < shownRows; ++row)
            made->model().cell(row, 0).setText(QString::number(row + 1));
        return made;
    };
    m_drivers = standing("Label16", "Label19", "Pilote");
    m_teams = standing("Label20", "Label21", "Ecurie");
    auto *layout = new QVBoxLayout;
    layout->addWidget(styled(QStringLiteral("Championnat des pilotes"), "hint"));
    layout->addWidget(m_drivers);
    layout->addSpacing(10);
    layout->addWidget(styled(QStringLiteral("Championnat des constructeurs"), "hint"));
    layout->addWidget(m_teams);
    layout->addStretch(1);
    return card(QStringLiteral("Classement après ce Grand Prix"), layout);
}

void Form4::showResultOnly()
{
    m_race.gp.set(season().read(keys::gp, keys::namegp(m_cursor.text())));
    showResult(m_race, season());
    showGrid(loadGrid(season(), m_race.gp.text()));
}

void Form4::showGrid(const Grid &grid)
{
    for (int i = 0; i < gridPlaces; ++i)
        m_grid->set(u"Text99", i, qt(grid[static_cast<std::size_t>(i)]));
}

void Form4::load()
{
    const Season shown = season();
    showResult(m_race, shown);
    const Grid grid = loadGrid(shown, m_race.gp.text());
    const auto teamsOfGrid = gridTeams(shown, grid);
    showGrid(grid);
    for (int i = 0; i < gridPlaces; ++i)
        m_grid->set(u"Text11", i, qt(teamsOfGrid[static_cast<std::size_t>(i)]));
    for (int place = 1; place <= classifiedPlaces; ++place)
        m_result->set(u"Text10", place - 1, qt(shown.ecurie(m_race.number(place).text())));
}

void Form4::showStandings()
{
    const Waiting waiting(*this);
    const int slot = static_cast<int>(std::clamp(context.store.numbers().value(m_cursor.text()).value_or(-1), -1.0, 21.0));
    const auto fill = [](Table &table, QStringView name, QStringView points, const std::vector<StandingRow> &rows) {
        for (int i = 0; i < shownRows; ++i) {
            const bool held = i < static_cast<int>(rows.size());
            table.set(name, i, held ? qt(rows[static_cast<std::size_t>(i)].name) : QString());
            table.set(points, i, held ? qt(rows[static_cast<std::size_t>(i)].points) : QString());
        }
    };
    m_main.refreshScale();
    fill(*m_drivers, u"Label16", u"Label19", driversAfter(season(), slot, m_main.scale()));
    fill(*m_teams, u"Label20", u"Label21", teamsAfter(season(), slot));
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
    if (const auto year = context.store.numbers().value(m_year.text()))
        m_year.set(context.store.numbers().text(*year + by));
    open();
}

void Form4::findSlot()
{
    if (const auto slot = slotNamed(season(), m_race.gp.text()))
        m_cursor.set(std::to_string(*slot));
}

void Form4::supp()
{
    subtractResult(season(), m_cursor.text(), m_main.scale());
    showResultOnly();
}

void Form4::unlight()
{
    for (Table *table : {m_result, m_grid})
        for (int row = 0; row < table->model().rowCount(); ++row)
            for (int column = 1; column < table->model().columnCount(); ++column)
                table->model().cell(row, column).setBack(QColor(Qt::white));
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
    Screen *podium = context.screens.open(QStringLiteral("Form12"));
    for (int place = 1; podium && place <= 3; ++place)
        podium->setText(QStringLiteral("Label%1").arg(6 + place), qt(m_race.number(place).text()));
    if (podium)
        podium->setText(QStringLiteral("Label11"), qt(m_race.gp.text()));
}

}
