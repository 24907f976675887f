// The charts that compare four drivers or teams Grand Prix by Grand Prix: points added up (Form8, Form41) with the
// subjects two by two in bars and words, place at the finish (Form45), place on the grid (Form53) and a team's points
// in each race (Form71). Each is a row of one table.
#include "kinds/chart_screen.h"
#include "kinds/picker.h"
#include "kinds/place_names.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>

#include <algorithm>

namespace circuidex::screens {

using namespace charts;

namespace {

// What a chart shows beside its lines.
struct PointChartRow {
    ChartControls controls;
    PickList list;
    std::string_view word; // to the list, before the number of the series
    std::string_view explanation = {};
    std::array<EdgeCaption, 9> captions = {};
    std::array<std::pair<std::string_view, std::string_view>, 3> links = {}; // to other charts: caption, screen

    bool hasPairs() const { return !controls.instance.leads.empty(); }
    bool hasLinks() const { return !links[0].first.empty(); }
    bool byNumber() const { return controls.instance.subject == Subject::driverNumber; }
};

constexpr std::string_view driverTip = "Cliquez ici pour mettre en valeur ce pilote";
constexpr std::string_view teamTip = "Cliquez ici pour mettre en valeur cette écurie";
constexpr std::string_view driverAverageTip =
    "Cliquez ici pour mettre en valeur ce pilote et montrer sa moyenne mobile";
constexpr std::string_view teamAverageTip =
    "Cliquez ici pour mettre en valeur cette écurie et montrer sa moyenne mobile";
constexpr std::array<std::string_view, seriesCount> averageMarkers{"Label13", "Label17", "Label18", "Label21"};

const PointChartRow chartRows[] = {
    {.controls = {.instance = form8,
                  .markers = {"Label46", "Label47", "Label48", "Label49"},
                  .markerTip = driverTip,
                  .custom = "Personalisée:",
                  .entersWidth = true,
                  .waits = true},
     .list = PickList::drivers,
     .word = "n",
     .links = {{{"Progression Ecurie", "Form41"},
                {"Progression Classement", "Form45"},
                {"Progression Grille", "Form53"}}}},
    {.controls = {.instance = form41,
                  .markers = {"Label46", "Label22", "Label23", "Label24"},
                  .markerTip = teamTip,
                  .custom = "Personalisée:"},
     .list = PickList::teams,
     .word = "en"},
    {.controls =
         {.instance = form45, .markers = averageMarkers, .markerTip = driverAverageTip, .custom = "Personalisée :"},
     .list = PickList::drivers,
     .word = "pn",
     .explanation = "Ce graphique correspond a l'évolution du classement des pilotes a l'arrivée de chaque GP, elle "
                    "traduit donc l'évolution et les tendences des pilotes.",
     .captions = {{{"1er", 1920, 1},
                   {"2nd", 2640, 2},
                   {"3ème", 3360, 3},
                   {"4ème", 4200, 4},
                   {"5ème", 5040, 5},
                   {"6ème", 5880, 6},
                   {"7ème", 6720, 7},
                   {"8ème", 7440, 8},
                   {"9 et +", 8040, unplaced}}}},
    {.controls =
         {.instance = form53, .markers = averageMarkers, .markerTip = driverAverageTip, .custom = "Personalisée :"},
     .list = PickList::drivers,
     .word = "2pn",
     .explanation = "Ce graphique correspond a l'évolution du classement des pilotes sur la Grille de Départ de chaque "
                    "GP, elle traduit donc l'évolution et les tendences des pilotes.",
     .captions = {{{"1er", 1800, 1},
                   {"3ème", 2520, 3},
                   {"6ème", 3240, 6},
                   {"9ème", 4080, 9},
                   {"12ème", 4920, 12},
                   {"15ème", 5760, 15},
                   {"18ème", 6600, 18},
                   {"20ème", 7320, 20},
                   {"22-26ème", 8040, notOnGrid}}}},
    {.controls = {.instance = form71,
                  .markers = averageMarkers,
                  .markerTip = teamAverageTip,
                  .custom = "Personalisée :",
                  .waits = true},
     .list = PickList::teams,
     .word = "ptsgpecu",
     .explanation = "Ce graphique correspond a l'évolution du nombre de points que marquent chaque écurie au cours des "
                    "différents Grands Prix de la saison.",
     .captions = {{{"18 pts", 1800, 18},
                   {"16 pts", 2520, 16},
                   {"14 pts", 3240, 14},
                   {"12 pts", 4080, 12},
                   {"10 pts", 4920, 10},
                   {"8 pts", 5760, 8},
                   {"6 pts", 6600, 6},
                   {"4 pts", 7320, 4},
                   {"0 - 2 pts", 8040, 0}}}},
};

// The controls of the four subjects, in the order of their lines.
const std::array<QString, seriesCount> numberBoxes{u"Text1"_s, u"Text2"_s, u"Text5"_s, u"Text4"_s};
const std::array<QString, seriesCount> nameLabels{u"Label3"_s, u"Label5"_s, u"Label16"_s, u"Label15"_s};
const std::array<QString, seriesCount> cellArrays{u"Text3"_s, u"Text4"_s, u"Label6"_s, u"lblpt"_s};
const std::array<QString, seriesCount> totals{u"pt1"_s, u"pt2"_s, u"Label18"_s, u"Label17"_s};
constexpr std::array<int, seriesCount> pointIndexes{7, 6, 4, 5}; // of Label4
constexpr std::array<double, seriesCount> barTops{1440, 1560, 2085, 2205};
constexpr double barLeft = 480, barHeight = 120, barGap = 12;

const PointChartRow &rowOf(const QString &screen)
{
    const auto found = std::find_if(std::begin(chartRows), std::end(chartRows), [&](const PointChartRow &row) {
        return qt(row.controls.instance.screen) == screen;
    });
    if (found == std::end(chartRows))
        qFatal("no chart for %s", qPrintable(screen));
    return *found;
}

double barWidth(const SeasonChart &chart, int bar)
{
    const Pair &pair = chart.pair(bar / 2);
    return bar % 2 == 0 ? pair.barA : pair.barB;
}

TwipRect barPlace(const SeasonChart &chart, int bar)
{
    return {barLeft, barTops[std::size_t(bar)], barWidth(chart, bar), barHeight};
}

QString pointsText(const QString &number)
{
    return number + (number == u"0" || number == u"1" ? u" point"_s : u" points"_s);
}

class PointChart : public ChartScreen {
public:
    // The row is found by the screen's name.
    PointChart(Context &context, const QString &name, const QString &title);

protected:
    void takeSubjects() override;
    void showSubjects() override;
    QString meaning(int series, int slot) const override;
    std::vector<EdgeCaption> edgeCaptions() const override;

private:
    QWidget *subjects();
    QLayout *subject(int series);
    QWidget *pairs();
    QLayout *pair(int index);
    QLayout *foot();
    QLayout *links();
    void registerCells();
    void registerBar(int bar);
    void choose(int series);
    void showPair(int index);
    QString unplacedCaption() const;

    const PointChartRow &m_row;
    std::array<Label *, charts::seriesCount> m_names{};
    std::array<ChartView *, 2> m_bars{};
    std::array<Label *, 2> m_sentences{};
    std::array<Label *, charts::seriesCount> m_points{};
};

PointChart::PointChart(Context &theContext, const QString &name, const QString &title)
    : ChartScreen(theContext, name, title, rowOf(name).controls), m_row(rowOf(name))
{
    if (m_row.controls.instance.average == AverageOf::values)
        registerCells();
    auto *chart = new QVBoxLayout;
    if (!m_row.explanation.empty())
        chart->addWidget(styled(qt(m_row.explanation), "hint"));
    chart->addWidget(view(), 1);
    auto *layout = page();
    layout->addWidget(subjects());
    if (m_row.hasPairs())
        layout->addWidget(pairs());
    layout->addWidget(card({}, chart), 1);
    layout->addLayout(foot());
    resize(1000, m_row.hasLinks() ? 752 : m_row.hasPairs() ? 736 : 700);
    begin();
}

// The values that the moving average is taken of, cell i for the Grand Prix of slot i - 1.
void PointChart::registerCells()
{
    for (int s = 0; s < seriesCount; ++s)
        for (int i = 1; i <= slotsRead; ++i)
            hidden(cellArrays[std::size_t(s)], {}, {}, i).onChange =
                [this, s, i](const QString &text) { m_chart.setCell(s, i - 1, text.toStdString()); };
}

void PointChart::choose(int series)
{
    openPicker(context.screens, m_row.list, qt(m_row.word) + QString::number(series + 1));
}

QWidget *PointChart::subjects()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    for (int s = 0; s < seriesCount; ++s)
        row->addLayout(subject(s), 1);
    return card({}, row);
}

QLayout *PointChart::subject(int series)
{
    const auto s = std::size_t(series);
    const QString tip = u"Choisir dans la liste"_s;
    auto *swatch = new QLabel;
    swatch->setFixedSize(14, 6);
    swatch->setStyleSheet(look::swatch(colour(series)));
    auto *row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(swatch);
    row->addWidget(marker(series));
    if (m_row.byNumber()) {
        auto *number = add(numberBoxes[s], new Edit);
        number->setFixedWidth(30);
        number->setAlignment(Qt::AlignCenter);
        number->setToolTip(tip);
        number->onClick = [this, series] { choose(series); };
        onEnter(number, [this] { draw(); });
        bind(number, m_chart.subjects[s]);
        row->addWidget(number);
    }
    m_names[s] = command(nameLabels[s], {}, [this, series] { choose(series); });
    m_names[s]->setToolTip(tip);
    m_names[s]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    row->addWidget(m_names[s], 1);
    return row;
}

QWidget *PointChart::pairs()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(24);
    for (const int index : {0, 1})
        row->addLayout(pair(index), 1);
    return card({}, row);
}

QLayout *PointChart::pair(int index)
{
    auto *points = new QVBoxLayout;
    points->setSpacing(0);
    for (const int bar : {2 * index, 2 * index + 1}) {
        registerBar(bar);
        auto *number = m_points[std::size_t(bar)] =
            add(u"Label4"_s, new Label, pointIndexes[std::size_t(bar)]);
        number->setObjectName(u"figure"_s);
        number->setFixedSize(52, 15);
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        points->addWidget(number);
    }
    auto *bars = m_bars[std::size_t(index)] = new ChartView;
    bars->setContextMenuPolicy(Qt::NoContextMenu);
    bars->setFocusPolicy(Qt::NoFocus);
    bars->setFixedHeight(30);
    auto *sentence = m_sentences[std::size_t(index)] =
        add(index == 0 ? u"Label6"_s : u"Label21"_s, new Label);
    sentence->setWordWrap(true);
    sentence->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    sentence->setFixedHeight(2 * sentence->fontMetrics().lineSpacing() + 2);
    auto *upper = new QHBoxLayout;
    upper->setSpacing(6);
    upper->addWidget(bars, 1);
    upper->addLayout(points);
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addLayout(upper);
    layout->addWidget(sentence);
    return layout;
}

void PointChart::registerBar(int bar)
{
    ShapeControl &made = shape(u"stat1"_s, bar);
    made.setBack(look::pairBars[std::size_t(bar)]);
    made.geometryNow = [this, bar] { return barPlace(m_chart, bar); };
    hidden(totals[std::size_t(bar)]);
}

QLayout *PointChart::foot()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    if (!m_row.hasLinks())
        row->addWidget(printCommand(u"Label7"_s));
    row->addLayout(thicknessRow());
    row->addSpacing(12);
    if (m_row.controls.instance.scaled())
        row->addLayout(scaleRow());
    row->addStretch(1);
    row->addWidget(drawButton());
    auto *rows = new QVBoxLayout;
    rows->setSpacing(6);
    rows->addLayout(row);
    if (m_row.hasLinks())
        rows->addLayout(links());
    return rows;
}

// To the other charts.
QLayout *PointChart::links()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(printCommand(u"Label7"_s));
    row->addStretch(1);
    for (std::size_t i = 0; i < m_row.links.size(); ++i)
        row->addWidget(button(u"Command%1"_s.arg(i + 6), qt(m_row.links[i].first),
                              [this, i] { context.screens.open(qt(m_row.links[i].second)); }));
    return row;
}

// A name that a list handed over stands in the label; a driver's number in its box reaches the chart by itself.
void PointChart::takeSubjects()
{
    for (std::size_t s = 0; s < m_names.size() && !m_row.byNumber(); ++s)
        m_chart.subjects[s].set(m_names[s]->text().toStdString());
}

void PointChart::showSubjects()
{
    for (int s = 0; s < seriesCount; ++s) {
        const auto at = std::size_t(s);
        m_names[at]->setText(qt(m_row.byNumber() ? m_chart.name(s) : m_chart.subjects[at].text()));
        if (m_row.controls.instance.average == AverageOf::values)
            for (int i = 1; i <= slotsRead; ++i)
                setText(cellArrays[at], qt(m_chart.cell(s, i - 1)), i);
    }
    for (int index = 0; index < 2 && m_row.hasPairs(); ++index)
        showPair(index);
}

void PointChart::showPair(int index)
{
    const Pair &pair = m_chart.pair(index);
    ChartPicture picture;
    picture.region = picture.paper = {barLeft, barTops[std::size_t(2 * index)], fullBar, 2 * barHeight};
    for (const int bar : {2 * index, 2 * index + 1}) {
        const QString points = qt(bar % 2 == 0 ? pair.totalA : pair.totalB);
        m_points[std::size_t(bar)]->setText(points);
        setText(totals[std::size_t(bar)], points);
        TwipRect place = barPlace(m_chart, bar);
        place.height -= barGap;
        picture.bars.push_back({place, look::pairBars[std::size_t(bar)]});
    }
    m_bars[std::size_t(index)]->setPicture(std::move(picture));
    m_sentences[std::size_t(index)]->setText(qt(pair.sentence));
    m_sentences[std::size_t(index)]->setToolTip(qt(pair.sentence));
}

std::vector<EdgeCaption> PointChart::edgeCaptions() const
{
    return m_row.captions[0].text.empty() ? std::vector<EdgeCaption>{}
                                          : std::vector(m_row.captions.begin(), m_row.captions.end());
}

QString PointChart::unplacedCaption() const
{
    return qt(m_row.captions.back().text);
}

// Points of the race and, where they are added up, so far; or the place.
QString PointChart::meaning(int series, int slot) const
{
    const Instance &chart = m_row.controls.instance;
    const Numbers &numbers = context.store.numbers();
    const QString name = qt(m_chart.name(series)) + u" : "_s;
    const auto value = numbers.value(m_chart.cell(series, slot));
    if (chart.downFrom)
        return name + (value && *value >= 1 && *value < *chart.downFrom ? placeName(int(*value)) : unplacedCaption());
    const QString scored = qt(numbers.text(value.value_or(0)));
    if (chart.rule == Rule::level)
        return name + pointsText(scored);
    const QString sum = qt(numbers.text(m_chart.sumTo(series, slot, numbers)));
    return name + u"%1 (+%2)"_s.arg(pointsText(sum), scored);
}

}

ScreenRows form8()
{
    return {screenRow<PointChart>(u"Form8"_s, u"Graphique des Points Pilote"_s),
            screenRow<PointChart>(u"Form41"_s, u"Graphique des Points Ecurie"_s),
            screenRow<PointChart>(u"Form45"_s, u"Classement Pilote à l'Arrivée"_s),
            screenRow<PointChart>(u"Form53"_s, u"Grille de Départ par Pilote"_s),
            screenRow<PointChart>(u"Form71"_s, u"Nombre de Points par GP par Ecurie"_s)};
}

}
