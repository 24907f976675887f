// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/subjects_chart.h"

#include "kinds/place_names.h"
#include "shell/look.h"

#include <QBoxLayout>

namespace circuidex {

using namespace charts;

namespace {

// The controls of the four subjects, in the order of their lines.
const std::array<QString, seriesCount> numberBoxes{u"Text1"_s, u"Text2"_s, u"Text5"_s, u"Text4"_s};
const std::array<QString, seriesCount> nameLabels{u"Label3"_s, u"Label5"_s, u"Label16"_s, u"Label15"_s};
const std::array<QString, seriesCount> cellArrays{u"Text3"_s, u"Text4"_s, u"Label6"_s, u"lblpt"_s};
const std::array<QString, seriesCount> totals{u"pt1"_s, u"pt2"_s, u"Label18"_s, u"Label17"_s};
constexpr std::array<int, seriesCount> pointIndexes{7, 6, 4, 5}; // of Label4
constexpr std::array<double, seriesCount> barTops{1440, 1560, 2085, 2205};
constexpr double barLeft = 480, barHeight = 120, barGap = 12;

double barWidth(const SeasonChart &chart, int bar)
{
    const Pair &pair = chart.pair(bar / 2);
    return bar % 2 == 0 ? pair.barA : pair.barB;
}

TwipRect barPlace(const SeasonChart &chart, int bar)
{
    return {barLeft, barTops[std::size_t(bar)], barWidth(chart, bar), barHeight};
}

}

SubjectsChart::SubjectsChart(Context &theContext, const QString &name, const QString &title,
                             const SubjectsChartRow &row)
    : ChartScreen(theContext, name, title, row.controls), m_row(row)
{
    if (m_row.controls.instance.average == AverageOf::values)
        registerCells();
}

void SubjectsChart::layOut(QWidget *added)
{
    auto *chart = new QVBoxLayout;
    if (!m_row.explanation.empty())
        chart->addWidget(styled(qt(m_row.explanation), "hint"));
    chart->addWidget(view(), 1);
    auto *layout = page();
    layout->addWidget(subjects());
    if (m_row.hasPairs())
        layout->addWidget(pairs());
    layout->addWidget(card({}, chart), 1);
    if (added)
        layout->addWidget(added);
    layout->addLayout(foot());
    resize(1000, m_row.hasLinks() ? 752 : m_row.hasPairs() ? 736 : 700);
    begin();
}

// The values that the moving average is taken of, cell i for the Grand Prix of slot i - 1.
void SubjectsChart::registerCells()
{
    for (int s = 0; s < seriesCount; ++s)
        for (int i = 1; i <= slotsRead; ++i)
            hidden(cellArrays[std::size_t(s)], {}, {}, i).onChange = [this, s, i](const QString &text) {
                m_chart.setCell(s, i - 1, text.toStdString());
            };
}

void SubjectsChart::choose(int series)
{
    openPicker(context.screens, m_row.list, qt(m_row.word) + QString::number(series + 1) + qt(m_row.wordEnd));
}

QWidget *SubjectsChart::subjects()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    for (int s = 0; s < seriesCount; ++s) {
        auto *column = new QVBoxLayout;
        column->setSpacing(4);
        column->addLayout(subject(s));
        if (m_row.controls.instance.showsDrivers)
            column->addLayout(driversPanel(s, u"Ecurie %1:"_s.arg(s + 1)));
        row->addLayout(column, 1);
    }
    return card({}, row);
}

QLayout *SubjectsChart::subject(int series)
{
    const auto s = std::size_t(series);
    const QString tip = u"Choisir dans la liste"_s;
    auto *swatch = new QLabel;
    swatch->setFixedSize(14, 6);
    look::dress(*swatch, look::swatch(colour(series)));
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

QWidget *SubjectsChart::pairs()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(24);
    for (const int index : {0, 1})
        row->addLayout(pair(index), 1);
    return card({}, row);
}

QLayout *SubjectsChart::pair(int index)
{
    auto *points = new QVBoxLayout;
    points->setSpacing(0);
    for (const int bar : {2 * index, 2 * index + 1}) {
        registerBar(bar);
        auto *number = m_points[std::size_t(bar)] = add(u"Label4"_s, new Label, pointIndexes[std::size_t(bar)]);
        number->setObjectName(u"figure"_s);
        number->setFixedSize(52, 15);
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        points->addWidget(number);
    }
    auto *bars = m_bars[std::size_t(index)] = new ChartView;
    bars->setContextMenuPolicy(Qt::NoContextMenu);
    bars->setFocusPolicy(Qt::NoFocus);
    bars->setFixedHeight(30);
    auto *sentence = m_sentences[std::size_t(index)] = add(index == 0 ? u"Label6"_s : u"Label21"_s, new Label);
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

void SubjectsChart::registerBar(int bar)
{
    ShapeControl &made = shape(u"stat1"_s, bar);
    made.setBack(look::pairBars[std::size_t(bar)]);
    made.geometryNow = [this, bar] { return barPlace(m_chart, bar); };
    hidden(totals[std::size_t(bar)]);
}

QLayout *SubjectsChart::foot()
{
    auto *row = settingsRow(!m_row.hasLinks());
    row->addWidget(drawButton());
    auto *rows = new QVBoxLayout;
    rows->setSpacing(6);
    rows->addLayout(row);
    if (m_row.hasLinks())
        rows->addLayout(links());
    return rows;
}

// To the other charts.
QLayout *SubjectsChart::links()
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
void SubjectsChart::takeSubjects()
{
    for (std::size_t s = 0; s < m_names.size() && !m_row.byNumber(); ++s)
        m_chart.subjects[s].set(m_names[s]->text().toStdString());
}

void SubjectsChart::showSubjects()
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

void SubjectsChart::showPair(int index)
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

std::vector<EdgeCaption> SubjectsChart::edgeCaptions() const
{
    return m_row.captions[0].text.empty() ? std::vector<EdgeCaption>{}
                                          : std::vector(m_row.captions.begin(), m_row.captions.end());
}

QString SubjectsChart::unplacedCaption() const
{
    return qt(m_row.captions.back().text);
}

QString SubjectsChart::pictureTitle() const
{
    QStringList names;
    for (int s = 0; s < charts::seriesCount; ++s)
        if (const QString name = seriesName(s); !name.isEmpty())
            names << name;
    return title() + u" – saison "_s + qt(season().stem()) + u" – "_s + names.join(u", "_s);
}

QString SubjectsChart::valueText(int series, int slot) const
{
    const Instance &chart = m_row.controls.instance;
    if (!chart.downFrom)
        return ChartScreen::valueText(series, slot);
    const auto place = context.store.numbers().value(m_chart.cell(series, slot));
    return place && *place >= 1 && *place < *chart.downFrom ? placeName(int(*place)) : unplacedCaption();
}

}
