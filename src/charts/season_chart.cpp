// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/season_chart.h"

#include "store/names.h"

namespace circuidex::charts {

namespace {

constexpr std::string_view bordergraph = "bordergraph", bordergraphtxt = "bordergraphtxt";
constexpr std::string_view normalMode = "1", customMode = "2";

std::string keptOr(const Season &season, std::string_view section, std::string_view key, std::string_view otherwise)
{
    std::string kept = key.empty() ? std::string() : season.read(section, key);
    return kept.empty() ? std::string(otherwise) : kept;
}

void keep(const WritableSeason &season, std::string_view section, std::string_view key, const std::string &text)
{
    if (!key.empty())
        season.write(section, key, text);
}

// Of one series; none where the subjects aren't kept.
std::string subjectKey(const SettingKeys &keys, std::size_t series)
{
    return keys.subjects.empty() ? std::string() : keys::join(keys.subjects, std::to_string(series + 1));
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
    resumeThickness(season);
    for (std::size_t s = 0; s < subjects.size(); ++s) {
        const std::string otherwise = firstSubject(static_cast<int>(s), season);
        subjects[s].set(keptOr(season, keys.subjectsSection, subjectKey(keys, s), otherwise));
    }
    if (m_instance.scaled())
        scale.set(keptOr(season, keys.scaleSection, keys.scale, m_instance.defaultScale));
}

void SeasonChart::resumeThickness(const WritableSeason &season)
{
    const SettingKeys &keys = m_instance.keys;
    if (keys.resumes != Resumes::nothing)
        width.set(keptOr(season, bordergraphtxt, keys.width, "2"));
    if (keys.resumes != Resumes::thickness)
        return;
    const std::string mode = season.read(bordergraph, keys.thickness);
    if (mode == normalMode)
        drawNormal(season);
    else if (mode == customMode)
        drawCustom(season);
}

std::string SeasonChart::firstSubject(int series, const Season &season) const
{
    if (m_instance.subject == Subject::driverNumber)
        return std::to_string(series + 1);
    if (m_instance.firstSubjects.empty())
        return std::string(clickHere);
    return season.driver(m_instance.firstSubjects, series + 1);
}

void SeasonChart::close(const WritableSeason &season) const
{
    const SettingKeys &keys = m_instance.keys;
    for (std::size_t s = 0; s < subjects.size(); ++s)
        keep(season, keys.subjectsSection, subjectKey(keys, s), subjects[s].text());
    keep(season, keys.scaleSection, keys.scale, scale.text());
    if (keys.resumes == Resumes::widthKeptAtClosing)
        keep(season, bordergraphtxt, keys.width, width.text());
}

void SeasonChart::draw(const WritableSeason &season, const results::Scale &points)
{
    readValues(season, points);
    m_mask = maskLeft(end(season));
    nameSeries(season);
    if (!m_instance.leads.empty())
        for (const int index : {1, 0})
            drawPair(index, season);
    for (int s = 0; s < seriesCount; ++s)
        drawSeries(s, season.numbers());
    if (m_instance.average == AverageOf::values)
        drawNormal(season);
    else
        parkAverage();
}

void SeasonChart::readValues(const Season &season, const results::Scale &points)
{
    Subjects texts;
    for (int s = 0; s < seriesCount; ++s)
        texts[static_cast<std::size_t>(s)] = subject(s);
    if (!m_instance.ofSeasons())
        m_values = m_instance.read(season, points, texts);
    for (int s = 0; s < seriesCount && m_instance.ofSeasons(); ++s) {
        const SeriesCells year = m_instance.read(seasonOf(s, season), points, {subject(s)});
        m_values.cells[static_cast<std::size_t>(s)] = year.cells[0];
        m_values.restarts[static_cast<std::size_t>(s)] = year.restarts[0];
    }
}

// A season that is no year leaves the years that were told before.
void SeasonChart::nameSeries(const Season &season)
{
    for (int s = 0; s < seriesCount; ++s) {
        const auto at = static_cast<std::size_t>(s);
        if (m_instance.showsDrivers)
            m_drivers[at] = subject(s).empty()
                ? statistics::TeamDrivers()
                : statistics::driversOfTeam(seasonOf(s, season), subject(s), driverSlots);
        if (!m_instance.ofSeasons())
            m_names[at] = m_instance.subject == Subject::driverNumber ? season.nom(subject(s)) : subject(s);
        else if (!season.stem().empty())
            m_names[at] = season.numbers().stepped(season.stem(), -s);
    }
}

Season SeasonChart::seasonOf(int series, const Season &season) const
{
    if (!m_instance.ofSeasons())
        return season;
    return Season(season.store(), seasonStem(season.numbers().stepped(season.stem(), -series)));
}

const std::string &SeasonChart::subject(int series) const
{
    return subjects[m_instance.ofSeasons() ? 0 : static_cast<std::size_t>(series)].text();
}

void SeasonChart::drawSeries(int series, const Numbers &numbers)
{
    const auto s = static_cast<std::size_t>(series);
    const Values values = numbersIn(m_values.cells[s], numbers);
    if (m_instance.clears == Clears::firstRace)
        m_curves[s].y[1] = m_instance.base;
    else if (m_instance.clears == Clears::allRaces)
        m_curves[s] = flat(m_instance.base);
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
    keep(season, bordergraph, m_instance.keys.thickness, std::string(normalMode));
    if (m_instance.average == AverageOf::values)
        parkAverage();
}

void SeasonChart::drawCustom(const WritableSeason &season)
{
    if (const auto pixels = charts::lineWidth(season.numbers().value(width.text())))
        m_widths.fill(*pixels);
    keep(season, bordergraph, m_instance.keys.thickness, std::string(customMode));
    if (m_instance.keys.resumes != Resumes::widthKeptAtClosing)
        keep(season, bordergraphtxt, m_instance.keys.width, width.text());
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

std::string SeasonChart::total(int series, const Season &season) const
{
    const std::string &whose = subject(series);
    if (whose.empty())
        return {};
    return m_instance.subject == Subject::driverNumber ? season.driver("nbpts", whose)
                                                       : season.read(keys::N, keys::ptsecurie(whose));
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
        sum = restartsAt(series, k) ? 0 : sum + numbers.value(cell(series, k)).value_or(0);
    return sum;
}

bool SeasonChart::restartsAt(int series, int slot) const
{
    return m_values.restarts[static_cast<std::size_t>(series)][static_cast<std::size_t>(slot)];
}

void SeasonChart::setCell(int series, int slot, const std::string &text)
{
    m_values.cells[static_cast<std::size_t>(series)][static_cast<std::size_t>(slot)] = text;
}

std::vector<Tick> SeasonChart::ticks(const Numbers &numbers) const
{
    if (!m_instance.scaled() && m_instance.axis.empty())
        return {};
    return axisTicks(m_instance.base, unit(numbers), m_instance.paper.top, m_instance.paper.bottom);
}

}
