// SPDX-License-Identifier: GPL-3.0-or-later
// How often a driver stood at each place, in level bars: in the season on show (Form51), where a bar leads to its
// races, and in a row of seasons (Form77), where it leads to the lists of places.
#include "charts/bar_fit.h"
#include "kinds/bar_display.h"
#include "kinds/empty_note.h"
#include "kinds/picker.h"
#include "kinds/place_names.h"
#include "results/main_record.h"
#include "shell/look.h"

#include <QBoxLayout>

namespace circuidex::screens {

using namespace charts;
using standings::Stage;

namespace {

constexpr double barLeft = 1440, frameWidth = 7995, rowPitch = 240; // twips
constexpr double captionLeft = 600, countWidth = 600;
constexpr double barGap = 15; // of a row, above and below the painted bar
constexpr double leastTarget = 480; // a short bar is clicked as well
constexpr int viewWidth = 720, rowPixels = 15;
constexpr int seasonsBefore = 2; // of the span that Form77 opens with
const QString racesScreen = u"Form33"_s;

// The rows of the grid or of the finish.
struct Rows {
    Stage stage;
    QString title, bars, counts; // controls
    int firstIndex;
    double top, height;

    int places() const { return lastPlace(stage); }
    int index(int place) const { return place - 1 + firstIndex; }
    double rowTop(int place) const { return top + rowPitch * (place - 1); }
};

const std::array<Rows, 2> blocks{{{Stage::finish, u"Classement a l'arrivée:"_s, u"GrapH2"_s, u"Label3"_s, 0, 1800, 255},
                                  {Stage::grid, u"Classement sur la grille:"_s, u"graph"_s, u"Text4"_s, 1, 4440, 240}}};

struct PlaceBarsKind {
    bool overSeasons;
    QString word; // to the list of drivers
};

class PlaceBars : public BarDisplay {
public:
    PlaceBars(Context &context, const QString &name, const QString &title, PlaceBarsKind kind);

private:
    struct Block {
        const Rows &rows;
        std::vector<Bar> bars;
        std::vector<Control *> counts;
        ChartView *view;
    };
    QWidget *question();
    QWidget *block(const Rows &rows);
    QWidget *answer();
    void draw(); // Command1
    void step(int by, int end);
    void show(const Block &block) const;
    void addRow(ChartPicture &picture, const Block &block, int place) const;
    void follow(const Bar &bar) const;
    void listInSeason(const Bar &bar) const;
    Season namesFrom() const;

    PlaceBarsKind m_kind;
    Field m_driver; // Text5
    Field m_number; // nopilott, where the arrows stand
    Field m_newest, m_oldest, m_season; // Text1, Text2, an; only over seasons
    PlaceCounts m_counts;
    BarLengths m_widths;
    std::vector<Block> m_blocks;
};

template <class Grid, class Finish>
auto &at(Grid &grid, Finish &finish, Stage stage, int place)
{
    return stage == Stage::grid ? grid[place] : finish[place];
}

PlaceBars::PlaceBars(Context &theContext, const QString &name, const QString &title, PlaceBarsKind kind)
    : BarDisplay(theContext, name, title), m_kind(std::move(kind)), m_number(m_kind.overSeasons ? "0" : "1"),
      m_newest(theContext.main.an.text()), m_season(theContext.main.an.text())
{
    const Numbers &numbers = context.store.numbers();
    m_oldest.set(numbers.difference(m_newest.text(), std::to_string(seasonsBefore)).value_or(""));
    hidden(u"nopilott"_s, m_number);
    if (m_kind.overSeasons)
        hidden(u"an"_s, m_season);
    layOut(question(), answer(), foot());
    add(emptyNote, noteOver(*m_blocks.front().view, context));
    if (m_kind.overSeasons) {
        step(1, driverSlots);
    } else {
        m_driver.set(namesFrom().nom(1));
        draw();
    }
}

QWidget *PlaceBars::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = m_known.offerDrivers(box(*row, u"Nom du Pilote:"_s, u"Text5"_s, m_driver, 0, [this] { draw(); }));
    arrows(*row, driver, {u"Command2"_s, u"Pilote précédent"_s, Qt::Key_PageUp, [this] { step(-1, 1); }},
           {u"Command3"_s, u"Pilote suivant"_s, Qt::Key_PageDown, [this] { step(1, driverSlots); }});
    row->addWidget(list(u"Command4"_s, [this] { openPicker(context.screens, PickList::drivers, m_kind.word); }));
    row->addSpacing(8);
    if (m_kind.overSeasons) {
        box(*row, u"De l'année"_s, u"Text1"_s, m_newest, 52, [this] { draw(); });
        box(*row, u"à l'année"_s, u"Text2"_s, m_oldest, 52, [this] { draw(); });
        row->addSpacing(8);
    }
    row->addWidget(mainButton(u"Command1"_s, u"Valider"_s, u"Compter ses places (Entrée)"_s, [this] { draw(); }));
    return card({}, row);
}

QWidget *PlaceBars::answer()
{
    auto *all = new QWidget;
    auto *layout = new QVBoxLayout(all);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(look::gap);
    for (const Rows &rows : blocks)
        layout->addWidget(block(rows));
    return all;
}

QWidget *PlaceBars::block(const Rows &rows)
{
    Block made{rows, {}, {}, new ChartView};
    made.view->setFixedSize(viewWidth, rowPixels * rows.places());
    for (int place = 1; place <= rows.places(); ++place) {
        const QColor colour = look::levelBars[std::size_t(place - 1) % 2];
        const Bar bar = this->bar(rows.bars, rows.index(place), colour, rows.stage, place, [this, &rows, place] {
            return TwipRect{barLeft, rows.rowTop(place), at(m_widths.grid, m_widths.finish, rows.stage, place),
                            rows.height};
        });
        bar.control->tipNow = [] { return u"Cliquez pour plus d'informations"_s; };
        bar.control->onPress = [this, bar] { follow(bar); };
        ShapeControl &count = shape(rows.counts, rows.index(place));
        count.textNow = [control = bar.control] { return control->tag; };
        count.tipNow = [] { return u"Nombre de fois ou le pilote a été classé a cette place"_s; };
        bar.control->textNow = [control = bar.control] { return control->tag == u"0" ? QString() : control->tag; };
        made.bars.push_back(bar);
        made.counts.push_back(&count);
    }
    made.view->asGrid = [stage = rows.stage, bars = made.bars] { return figures(stage, {u"Nombre"_s}, bars); };
    auto *layout = new QVBoxLayout;
    layout->addWidget(made.view);
    m_blocks.push_back(std::move(made));
    return card(rows.title, layout);
}

// Where the arrows find their names.
Season PlaceBars::namesFrom() const
{
    return m_kind.overSeasons ? Season(context.store, m_season.text()) : context.main.season();
}

void PlaceBars::step(int by, int end)
{
    m_number.set(context.store.numbers().stepped(m_number.text(), by, end));
    m_driver.set(namesFrom().nom(m_number.text()));
    draw();
}

void PlaceBars::draw()
{
    m_counts = m_kind.overSeasons
        ? placeCountsOver(context.store, m_driver.text(), m_newest.text(), m_oldest.text())
        : *placeCounts(context.main.season(), Counted::driver, m_driver.text(), standings::slotsRead);
    m_season.set(context.main.an.text());
    m_widths = barWidths(m_counts);
    for (const Block &block : m_blocks) {
        for (const Bar &bar : block.bars)
            bar.control->tag = QString::number(at(m_counts.grid, m_counts.finish, bar.stage, bar.place));
        show(block);
    }
}

void PlaceBars::show(const Block &block) const
{
    ChartPicture picture;
    const double height = rowPitch * block.rows.places();
    picture.region = {captionLeft, block.rows.top, barLeft + frameWidth + countWidth - captionLeft, height};
    picture.paper = {barLeft, block.rows.top, frameWidth, height};
    const std::string years = m_kind.overSeasons ? "saisons " + m_oldest.text() + " à " + m_newest.text()
                                                 : "saison " + context.main.an.text();
    picture.title = u"%1 – %2 – %3"_s.arg(block.rows.title, qt(m_driver.text()), qt(years));
    for (int place = 1; place <= block.rows.places(); ++place)
        addRow(picture, block, place);
    picture.axes.push_back({{{barLeft, block.rows.top}, {barLeft, block.rows.top + height}}, look::line});
    block.view->setPicture(std::move(picture));
}

void PlaceBars::addRow(ChartPicture &picture, const Block &block, int place) const
{
    const Bar &bar = block.bars[std::size_t(place - 1)];
    const Control *count = block.counts[std::size_t(place - 1)];
    const double top = block.rows.rowTop(place);
    paint(picture, bar, 0, Grows::right, leastTarget);
    ChartBlock &painted = picture.bars.back();
    painted.place.top = top + barGap;
    painted.place.height = rowPitch - 2 * barGap;
    picture.targets.back().place.height = rowPitch;
    picture.texts.push_back({{captionLeft, top, barLeft - captionLeft - 90, rowPitch},
                             placeName(place),
                             Qt::AlignRight | Qt::AlignVCenter,
                             [] { return u"Classement"_s; }});
    picture.texts.push_back({{barLeft + frameWidth, top, countWidth - 60, rowPitch},
                             count->text(),
                             Qt::AlignRight | Qt::AlignVCenter,
                             [count] { return count->tip(); },
                             count->text() == u"0" ? look::faint : look::ink});
    picture.texts.push_back({{barLeft + 90, top, leastTarget, rowPitch},
                             bar.control->text(),
                             Qt::AlignLeft | Qt::AlignVCenter,
                             {},
                             look::onLevelBars[std::size_t(place - 1) % 2]});
}

void PlaceBars::follow(const Bar &bar) const
{
    if (m_kind.overSeasons)
        listRaces(bar, qt(m_driver.text()), qt(m_oldest.text()), qt(m_newest.text()));
    else
        listInSeason(bar);
}

// In the list of races behind a count, which then doesn't look for them itself.
void PlaceBars::listInSeason(const Bar &bar) const
{
    context.screens.close(racesScreen);
    Screen *list = context.screens.open(racesScreen);
    if (!list)
        return;
    list->setText(u"Timer1"_s, u"0"_s);
    list->setText(u"Label2"_s, qt(m_driver.text()));
    for (int row = 1; const std::string &race :
                      racesHeld(standings::seasonPlaces(context.main.season()), bar.stage, bar.place, m_driver.text()))
        list->setText(u"Text3"_s, qt(race), row++);
}

}

ScreenRows form51()
{
    return {kindRow<PlaceBars>(u"Form51"_s, u"Classement Graphique par Pilote sur la Saison"_s,
                               PlaceBarsKind{false, u"statplot"_s}),
            kindRow<PlaceBars>(u"Form77"_s, u"Classement Graphique par Pilote a Long Terme"_s,
                               PlaceBarsKind{true, u"carriereplot"_s})};
}

}
