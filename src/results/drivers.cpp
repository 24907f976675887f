// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/drivers.h"

#include "store/names.h"

namespace circuidex::results {

DriverRecord DriverBoxes::record() const
{
    DriverRecord record;
    for (std::size_t i = 0; i < record.size(); ++i)
        record[i] = boxes[i].text();
    return record;
}

void DriverBoxes::show(const DriverRecord &record)
{
    for (std::size_t i = 0; i < record.size(); ++i)
        boxes[i].set(record[i]);
}

DriverRecord readDriver(const Season &season, std::string_view number)
{
    DriverRecord record;
    for (std::size_t i = 0; i < record.size(); ++i)
        record[i] = season.driver(driverFields[i].prefix, number);
    return record;
}

DriverRecord completed(DriverRecord record, DriverScreen screen)
{
    for (std::size_t i = 0; i < record.size(); ++i)
        if (record[i].empty())
            record[i] = screen == DriverScreen::newDriver ? driverFields[i].newDefault : driverFields[i].profileDefault;
    return record;
}

void storeDriver(const WritableSeason &season, std::string_view number, const DriverRecord &record, DriverScreen screen)
{
    season.write(keys::N, keys::driver("N°", number), number);
    const std::size_t fields = screen == DriverScreen::newDriver ? newDriverFields : record.size();
    for (std::size_t i = 0; i < fields; ++i)
        season.write(keys::N, keys::driver(driverFields[i].prefix, number), record[i]);
}

std::string enterNames(const Season &season, std::string_view number, DriverRecord &record)
{
    DriverRecord entered = record;
    for (std::size_t i = 0; i < record.size(); ++i) {
        const std::string_view prefix = driverFields[i].prefix;
        if (prefix != "nom" && prefix != "ecurie")
            continue;
        EnteredName name = enteredName(record[i], season.driver(prefix, number));
        if (!name.fits())
            return name.refusal;
        entered[i] = std::move(name.name);
    }
    record = std::move(entered);
    return {};
}

int firstFreeNumber(const Season &season)
{
    int number = 1;
    while (number < 1000 && !season.driver("N°", number).empty())
        ++number;
    return number;
}

std::string careerSeasons(const Season &season, std::string_view name)
{
    return name.empty() ? std::string() : season.read(keys::gp, keys::noo(name));
}

void storeCareerSeasons(const WritableSeason &season, std::string_view name, std::string_view seasons)
{
    if (!name.empty() && careerSeasons(season, name) != seasons)
        season.write(keys::gp, keys::noo(name), seasons);
}

}
