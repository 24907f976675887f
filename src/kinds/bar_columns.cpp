// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/bar_columns.h"

#include "kinds/empty_note.h"
#include "kinds/picker.h"
#include "kinds/place_names.h"
#include "results/main_record.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QWheelEvent>

#include <algorithm>

namespace circuidex {

using namespace charts;
using standings::Stage;

namespace {

// Twips. The places of one block stand side by side, each with the bars of its seasons.
struct Lay {
    double baseline, first, pitch;
    double inset, width; // of the bars within a place
};

constexpr Lay finishLay(bool single)
{
    return single ? Lay{6000, 60, 1260, 142, 975} : Lay{6000, 60, 1260, 120, 255};
}
constexpr Lay gridLay(bool single)
{
    return single ? Lay{3960, 60, 600, 52, 495} : Lay{3960, 60, 600, 24, 138};
}

constexpr double seenWidth = 10380, barRoom = 4000, countHeight = 210, captionHeight = 240;
constexpr double stripStart = 120, stripEnd = -5520, stripWidth = 15720, stripTop = 6600;
constexpr double stripStep = 20, wheelStep = 600;
constexpr int tickInterval = 10; // milliseconds
constexpr double leastTarget = 300; // a low bar is clicked as well
constexpr int viewWidth = 720, viewHeight = 243; // pixels
constexpr int mostRaces = 20;
const QString running = u"l l"_s;

Lay lay(Stage stage, bool single)
{
    return stage == Stage::grid ? gridLay(single) : finishLay(single);
}

}

BarColumns::BarColumns(Context &theContext, const QString &name, const QString &title, ColumnsKind kind)
    : BarDisplay(theContext, name, title), m_kind(std::move(kind)), m_year(theContext.main.an.text()),
      m_counts(m_kind.seasons.size()), m_shown(m_kind.seasons.size()), m_heights(m_kind.seasons.size()),
      m_finish(block(Stage::finish)), m_grid(block(Stage::grid)), m_stripLeft(stripStart)
{
    const Season season(context.store, m_year.text());
    m_subject.set(m_kind.counted == Counted::team ? season.ecurie(1) : season.nom(1));
    m_races.set(std::to_string(racesRun(season)));
    if (m_kind.subject != u"nompilote")
        hidden(u"nompilote"_s, m_driver);
    auto *layout = page();
    layout->addWidget(question());
    layout->addWidget(finish());
    layout->addWidget(grid());
    auto *foot = footRow(m_kind.print);
    foot->addWidget(mainButton(u"Command1"_s, u"Ok"_s, u"Compter ses places (Entrée)"_s, [this] { draw(); }));
    layout->addLayout(foot);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    add(emptyNote, noteOver(*m_finish.view, context));
    draw();
}

QWidget *BarColumns::question()
{
    const bool team = m_kind.counted == Counted::team;
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *subject = box(*row, team ? u"Ecurie:"_s : u"Pilote:"_s, m_kind.subject, m_subject, 0, [this] { draw(); });
    m_known.offerSubjects(subject, team);
    row->addWidget(list(u"Command4"_s, [this] {
        openPicker(context.screens, m_kind.counted == Counted::team ? PickList::teams : PickList::drivers, m_kind.word,
                   qt(m_year.text()));
    }));
    row->addSpacing(12);
    auto *races = box(*row, u"Epreuve N°:"_s, u"noggp"_s, m_races, 40, [this] { draw(); });
    arrows(*row, races, {u"Command7"_s, u"Une épreuve de moins"_s, Qt::Key_PageUp, [this] { stepCount(-1, 1); }},
           {u"Command6"_s, u"Une épreuve de plus"_s, Qt::Key_PageDown, [this] { stepCount(1, mostRaces); }});
    m_lastRace = styled({}, "hint");
    m_lastRace->setFixedWidth(110);
    row->addWidget(m_lastRace);
    if (single())
        box(*row, u"Saison:"_s, u"an"_s, m_year, 52, [this] { draw(); });
    else
        hidden(u"an"_s, m_year);
    return card({}, row);
}

QWidget *BarColumns::finish()
{
    auto *head = new QHBoxLayout;
    head->addWidget(styled(u"Classement a l'arrivée:"_s, "caption"));
    head->addStretch(1);
    if (!single())
        head->addLayout(heads());
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addWidget(m_finish.view);
    return card({}, layout);
}

QLayout *BarColumns::heads()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Légende:"_s, "hint"));
    SeasonKey::Heads names;
    SeasonKey::Colours colours;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const ColumnsOfSeason &season = m_kind.seasons[i];
        auto *head = add(season.head, new Label);
        head->setContentsMargins(8, 2, 8, 2);
        row->addWidget(head);
        names[i] = {season.head};
        colours[i] = season.finishColours.front();
    }
    m_key.emplace(*this, names, colours);
    return row;
}

QWidget *BarColumns::grid()
{
    auto *head = new QHBoxLayout;
    head->addWidget(styled(u"Classement sur la grille:"_s, "caption"));
    head->addStretch(1);
    registerStrip(*head);
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addWidget(m_grid.view);
    return card({}, layout);
}

BarColumns::Block BarColumns::block(Stage stage)
{
    Block made{stage, new ChartView, {}};
    made.view->setFixedSize(viewWidth, viewHeight);
    for (int place = 1; place <= lastPlace(stage); ++place)
        for (int season = 0; season < int(m_kind.seasons.size()); ++season)
            addColumn(made, season, place);
    made.view->asGrid = [this, stage, columns = made.columns] {
        std::vector<Bar> bars;
        for (const Column &column : columns)
            bars.push_back(column.bar);
        return figures(stage, yearsShown(), bars);
    };
    return made;
}

void BarColumns::addColumn(Block &block, int season, int place)
{
    const ColumnsOfSeason &of = m_kind.seasons[std::size_t(season)];
    const bool onGrid = block.stage == Stage::grid;
    const auto &colours = onGrid ? of.gridColours : of.finishColours;
    const Column column{bar(onGrid ? of.grid : of.finish, place - 1,
                            colours[std::min(std::size_t(place), colours.size()) - 1], block.stage, place,
                            [this, stage = block.stage, season, place] { return extent(stage, season, place); }),
                        season};
    column.bar.control->tipNow = [this, stage = block.stage, season, place] {
        const PlaceCounts &counts = m_shown[std::size_t(season)];
        return QString::number(stage == Stage::grid ? counts.grid[place] : counts.finish[place]);
    };
    if (m_kind.leadsToRaces)
        column.bar.control->onPress = [this, column] { listRacesOf(column); };
    block.columns.push_back(column);
}

// On the strip where it belongs, on the screen for the finish.
TwipRect BarColumns::extent(Stage stage, int season, int place) const
{
    const Lay at = lay(stage, single());
    const BarLengths &heights = m_heights[std::size_t(season)];
    const double height = stage == Stage::grid ? heights.grid[place] : heights.finish[place];
    return {at.first + at.pitch * (place - 1) + at.inset + at.width * season, at.baseline - height, at.width, height};
}

void BarColumns::registerStrip(QLayout &row)
{
    shape(u"Frame1"_s).geometryNow = [this] {
        return TwipRect{m_stripLeft, stripTop, stripWidth, gridLay(single()).baseline + captionHeight};
    };
    m_back = direction(u"Command2"_s, u"Timer1"_s, u"<"_s, u"Cliquez ici pour défiler sur la gauche"_s, stripStep);
    m_on = direction(u"Command3"_s, u"Timer2"_s, u">"_s, u"Cliquez ici pour défiler sur la droite"_s, -stripStep);
    connect(m_back.button, &QPushButton::clicked, this, [this] { turn(m_back, m_on); });
    connect(m_on.button, &QPushButton::clicked, this, [this] { turn(m_on, m_back); });
    row.addWidget(m_back.button);
    row.addWidget(m_on.button);
    m_grid.view->onReach = [this](int target) { bringIntoView(target); };
    m_grid.view->installEventFilter(this);
}

BarColumns::Direction BarColumns::direction(const QString &name, const QString &timerName, const QString &arrow,
                                            const QString &tip, double step)
{
    auto *made = button(name, arrow, {});
    made->setToolTip(tip);
    made->setFixedWidth(34);
    const bool back = step > 0;
    TimerControl &clock =
        timer(timerName, 0, TimerControl::Kind::repeating, [this, back] { tick(back ? m_back : m_on); });
    return {made, &clock, arrow, step};
}

// Runs its way, or stops all when it runs.
void BarColumns::turn(const Direction &own, const Direction &other)
{
    other.timer->stop();
    if (own.button->text() == running) {
        own.timer->stop();
        own.button->setText(own.arrow);
        return;
    }
    own.timer->start(tickInterval);
    own.button->setText(running);
    other.button->setText(other.arrow);
}

void BarColumns::tick(const Direction &own)
{
    const double left = own.step > 0 ? m_stripLeft - stripStart : stripEnd - m_stripLeft; // beyond its end
    if (m_kind.passesEnds ? left > 0 : left >= 0) {
        own.timer->stop();
        own.button->setText(running);
        return;
    }
    m_stripLeft += own.step;
    show(m_grid);
}

void BarColumns::halt()
{
    for (const Direction &way : {m_back, m_on}) {
        way.timer->stop();
        way.button->setText(way.arrow);
    }
}

void BarColumns::slide(double by)
{
    halt();
    m_stripLeft = std::clamp(m_stripLeft + by, stripEnd, stripStart);
    show(m_grid);
}

// A bar that the keyboard came to, with all bars of its place.
void BarColumns::bringIntoView(int target)
{
    const Lay at = gridLay(single());
    const double left = m_stripLeft + at.first + at.pitch * (m_grid.columns[std::size_t(target)].bar.place - 1);
    if (left < 0)
        slide(-left);
    else if (left + at.pitch > seenWidth)
        slide(seenWidth - at.pitch - left);
}

bool BarColumns::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel)
        return BarDisplay::eventFilter(watched, event);
    const QPoint turned = static_cast<QWheelEvent *>(event)->angleDelta();
    slide((turned.x() + turned.y() > 0 ? 1 : -1) * wheelStep);
    return true;
}

void BarColumns::stepCount(int by, int end)
{
    m_races.set(context.store.numbers().stepped(m_races.text(), by, end));
    draw();
}

void BarColumns::draw()
{
    std::optional<Waiting> waiting;
    if (m_kind.waits)
        waiting.emplace(*this);
    if (count()) {
        m_shown = m_counts;
        m_heights = barHeights(m_counts, m_kind.gridTrace);
    }
    tell();
    show(m_finish);
    show(m_grid);
}

// Side by side, a season in which the team has nobody counts nothing; alone it changes no bar.
bool BarColumns::count()
{
    const Numbers &numbers = context.store.numbers();
    const int run = slotsAsked(m_races.text(), numbers);
    std::string year = m_year.text();
    bool found = false;
    m_years.clear();
    for (PlaceCounts &counts : m_counts) {
        const Season season(context.store, year);
        const auto counted = placeCounts(season, m_kind.counted, m_subject.text(), run);
        counts = counted.value_or(PlaceCounts{});
        found |= counted.has_value();
        if (const auto drivers = driversCounted(season, m_kind.counted, m_subject.text()); !drivers.empty())
            m_driver.set(drivers.back());
        m_years.push_back(year);
        year = numbers.difference(year, "1").value_or(year);
    }
    return found || !single();
}

void BarColumns::tell() const
{
    for (const Block *block : {&m_finish, &m_grid})
        for (const Column &column : block->columns) {
            const PlaceCounts &counts = m_counts[std::size_t(column.season)];
            const int place = column.bar.place;
            column.bar.control->tag =
                QString::number(block->stage == Stage::grid ? counts.grid[place] : counts.finish[place]);
        }
    if (m_key)
        m_key->show(context.store, m_year.text(),
                    m_kind.counted == Counted::team ? comparisons::SubjectKind::team : comparisons::SubjectKind::driver,
                    m_subject.text());
    m_lastRace->setText(lastRace());
}

// Up to which race is counted.
QString BarColumns::lastRace() const
{
    const int run = slotsAsked(m_races.text(), context.store.numbers());
    return run == 0 ? QString() : qt(Season(context.store, m_year.text()).namegp(run - 1));
}

QStringList BarColumns::yearsShown() const
{
    QStringList years;
    for (std::size_t i = 0; i < m_kind.seasons.size(); ++i)
        years << (i < m_years.size() ? qt(m_years[i]) : QString());
    return years;
}

void BarColumns::show(const Block &block) const
{
    const Lay at = lay(block.stage, single());
    const double shift = block.stage == Stage::grid ? m_stripLeft : 0, top = at.baseline - barRoom - countHeight;
    ChartPicture picture;
    picture.region = {0, top, seenWidth, at.baseline + captionHeight - top};
    picture.paper = {0, top, seenWidth, at.baseline - top};
    picture.title = u"%1 – %2 – %3 %4"_s.arg(
        block.stage == Stage::grid ? u"Classement sur la grille"_s : u"Classement a l'arrivée"_s, qt(m_subject.text()),
        single() ? u"saison"_s : u"saisons"_s, yearsShown().join(u", "_s));
    for (const Column &column : block.columns) {
        paint(picture, column.bar, shift, Grows::up, leastTarget,
              single() ? QString() : u", saison "_s + qt(m_years[std::size_t(column.season)]));
        if (const QString count = column.bar.control->tip(); count != u"0") {
            const TwipRect bar = picture.bars.back().place;
            picture.texts.push_back(
                {{bar.left, bar.top - countHeight, bar.width, countHeight}, count, Qt::AlignCenter, {}, look::ink});
        }
    }
    addPlaces(picture, block);
    block.view->setPicture(std::move(picture));
}

void BarColumns::addPlaces(ChartPicture &picture, const Block &block) const
{
    const Lay at = lay(block.stage, single());
    const double shift = block.stage == Stage::grid ? m_stripLeft : 0;
    for (int place = 1; place <= lastPlace(block.stage); ++place) {
        const double left = shift + at.first + at.pitch * (place - 1), top = picture.region.top;
        picture.texts.push_back({{left, at.baseline, at.pitch, captionHeight}, placeName(place)});
        if (place % 2 == 0 && !single()) // so that the eye keeps the seasons of a place together
            picture.masks.push_back({{left, top, at.pitch, at.baseline - top}, look::level});
    }
    picture.axes.push_back({{{0, at.baseline}, {seenWidth, at.baseline}}, look::line});
}

void BarColumns::listRacesOf(const Column &column) const
{
    const QString year = qt(m_years[std::size_t(column.season)]);
    listRaces(column.bar, qt(m_subject.text()), year, year);
}

}
