#include "charts/season_chart.h"

namespace circuidex::charts {

namespace {

constexpr std::string_view bordergraph = "bordergraph", bordergraphtxt = "bordergraphtxt", plots = "plots";
constexpr std::string_view normalMode = "1", customMode = "2";

std::string keptOr(const Season &season, std::string_view section, std::string_view key, std::string_view otherwise)
{
    std::string kept = season.read(section, key);
    return kept.empty() ? std::string(otherwise) : kept;
}

std::string numbered(std::string_view key, std::size_t index)
{
    return std::string(key) + std::to_string(index + 1);
}

}

SeasonChart::SeasonChart(const Instance &instance) : m_instance(instance)
{
    m_curves.fill(flat(instance.base));
    parkAverage();
    m_pairs[0].sentence = "Informations";
    m_pairs[1].sentence = "Informations2";
}

void SeasonChart::open(const WritableSeason &season)
{
    const SettingKeys &keys = m_instance.keys;
    width.set(keptOr(season, bordergraphtxt, keys.width, "2"));
    const std::string mode = season.read(bordergraph, keys.thickness);
    if (mode == normalMode)
        drawNormal(season);
    else if (mode == customMode)
        drawCustom(season);
    for (std::size_t s = 0; s < subjects.size(); ++s) {
        const bool byNumber = m_instance.subject == Subject::driverNumber;
        const std::string otherwise = byNumber ? std::to_string(s + 1) : std::string(clickHere);
        subjects[s].set(keptOr(season, plots, numbered(keys.subjects, s), otherwise));
    }
    if (m_instance.scaled())
        scale.set(keptOr(season, plots, keys.scale, m_instance.defaultScale));
}

void SeasonChart::close(const WritableSeason &season) const
{
    for (std::size_t s = 0; s < subjects.size(); ++s)
        season.write(plots, numbered(m_instance.keys.subjects, s), subjects[s].text());
    if (m_instance.scaled())
        season.write(plots, m_instance.keys.scale, scale.text());
}

void SeasonChart::draw(const WritableSeason &season, const results::Scale &points)
{
    m_values = m_instance.read(season, points, chosen());
    m_mask = maskLeft(end(season));
    for (int s = 0; s < seriesCount; ++s)
        m_names[static_cast<std::size_t>(s)] = named(s, season);
    if (!m_instance.leads.empty())
        for (const int index : {1, 0})
            drawPair(index, season);
    for (int s = 0; s < seriesCount; ++s)
        drawSeries(s, season.numbers());
    if (m_instance.rule == Rule::level)
        drawNormal(season);
    else
        parkAverage();
}

void SeasonChart::drawSeries(int series, const Numbers &numbers)
{
    const auto s = static_cast<std::size_t>(series);
    const Values values = numbersIn(m_values.cells[s], numbers);
    switch (m_instance.rule) {
    case Rule::runningTotal:
        m_curves[s] = runningTotal(m_instance.base, unit(numbers), values);
        break;
    case Rule::level:
        m_curves[s] = levels(m_instance.level(), values);
        break;
    case Rule::gain:
        drawGains(m_curves[s], m_instance.base, unit(numbers), values);
        break;
    case Rule::cumulatedGain:
        drawCumulatedGains(m_curves[s], m_instance.base, unit(numbers), values, m_values.restarts[s]);
        break;
    }
}

void SeasonChart::drawPair(int index, const Season &season)
{
    const int a = 2 * index, b = a + 1;
    Pair &pair = m_pairs[static_cast<std::size_t>(index)];
    pair.totalA = total(a, season);
    pair.totalB = total(b, season);
    compare(pair, name(a), name(b), m_instance.leads, season.numbers());
}

void SeasonChart::drawNormal(const WritableSeason &season)
{
    m_widths = thin;
    season.write(bordergraph, m_instance.keys.thickness, normalMode);
    if (m_instance.average == AverageOf::values)
        parkAverage();
}

void SeasonChart::drawCustom(const WritableSeason &season)
{
    if (const auto pixels = charts::lineWidth(season.numbers().value(width.text())))
        m_widths.fill(*pixels);
    season.write(bordergraph, m_instance.keys.thickness, customMode);
    season.write(bordergraphtxt, m_instance.keys.width, width.text());
}

void SeasonChart::highlight(int series, const Numbers &numbers)
{
    const auto s = static_cast<std::size_t>(series);
    m_widths = highlighted(series);
    if (m_instance.average == AverageOf::values)
        averageOfValues(m_average, m_instance.level(), numbersIn(m_values.cells[s], numbers));
    else if (m_instance.average == AverageOf::curve)
        averageOfCurve(m_average, m_curves[s]);
    m_averageShown = m_instance.average != AverageOf::nothing;
}

void SeasonChart::parkAverage()
{
    m_average = m_instance.average == AverageOf::values ? parked(aboveFrame, aboveFrame) : parked(belowFrame, farBelow);
    m_averageShown = false;
}

Subjects SeasonChart::chosen() const
{
    Subjects texts;
    for (std::size_t s = 0; s < subjects.size(); ++s)
        texts[s] = subjects[s].text();
    return texts;
}

std::optional<int> SeasonChart::end(const Season &season) const
{
    switch (m_instance.ends) {
    case Ends::nowhere:
        break;
    case Ends::atResults:
        return firstWithoutResult(season);
    case Ends::atGrids:
        return firstWithoutGrid(season);
    case Ends::atPoints:
        return firstWithoutPoints(m_values);
    }
    return std::nullopt;
}

std::string SeasonChart::named(int series, const Season &season) const
{
    const std::string &subject = subjects[static_cast<std::size_t>(series)].text();
    return m_instance.subject == Subject::driverNumber ? season.nom(subject) : subject;
}

std::string SeasonChart::total(int series, const Season &season) const
{
    const std::string &subject = subjects[static_cast<std::size_t>(series)].text();
    if (subject.empty())
        return {};
    return m_instance.subject == Subject::driverNumber ? season.driver("nbpts", subject)
                                                       : season.read(keys::N, keys::ptsecurie(subject));
}

std::optional<double> SeasonChart::unit(const Numbers &numbers) const
{
    if (!m_instance.scaled())
        return m_instance.unit;
    const auto factor = numbers.value(scale.text());
    return factor ? std::optional(*factor * m_instance.unit) : std::nullopt;
}

const std::string &SeasonChart::cell(int series, int slot) const
{
    return m_values.cells[static_cast<std::size_t>(series)][static_cast<std::size_t>(slot)];
}

double SeasonChart::sumTo(int series, int slot, const Numbers &numbers) const
{
    double sum = 0;
    for (int k = 0; k <= slot; ++k)
        sum += numbers.value(cell(series, k)).value_or(0);
    return sum;
}

void SeasonChart::setCell(int series, int slot, const std::string &text)
{
    m_values.cells[static_cast<std::size_t>(series)][static_cast<std::size_t>(slot)] = text;
}

std::vector<Tick> SeasonChart::ticks(const Numbers &numbers) const
{
    if (!m_instance.scaled())
        return {};
    return axisTicks(m_instance.base, unit(numbers), m_instance.paper.top, m_instance.paper.bottom);
}

}
