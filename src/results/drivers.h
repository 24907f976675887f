// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The record of a driver within a season: which box of the driver screens stands for which key, what an empty box becomes
// when the driver is stored. Team totals are never touched from here: points won stay with
// the team they were won for.
#include "results/left_entry.h"
#include "store/field.h"
#include "store/season.h"

#include <array>

namespace circuidex::results {

struct DriverField {
    std::string_view control;        // of the box on the driver screens
    std::string_view prefix;         // of the key in section N°
    std::string_view newDefault;     // what an empty box becomes for a new driver
    std::string_view profileDefault; // and for one stored from his profile
};

// In the order of writing. A new driver has the first eleven; his profile has all. Podiums and Grands Prix of a new
// driver thus have no counter until his profile is stored or a new season begins.
inline constexpr std::array<DriverField, 14> driverFields{{
    {"age", "age", "", ""},
    {"Text1", "nom", "", ""},
    {"Text2", "nbpts", "0", "0"},
    {"Text3", "champion", "", ""},
    {"Text4", "vic", "0", "0"},
    {"Text5", "pol", "0", "0"},
    {"Text6", "natio", "", ""},
    {"Text7", "ptstot", "0", "0"},
    {"Text8", "ecurie", "Aucune", ""},
    {"Label22", "pi", "", ""},
    {"Label21", "path", "", ""},
    {"Text9", "nbgp", "", "0"},
    {"Text11", "podiums", "", "0"},
    {"Text12", "sitweb", "", ""},
}};
inline constexpr std::size_t newDriverFields = 11;

using DriverRecord = std::array<std::string, driverFields.size()>; // in the order of driverFields

// The row of a key prefix that is there.
constexpr std::size_t driverField(std::string_view prefix)
{
    std::size_t at = 0;
    while (driverFields[at].prefix != prefix)
        ++at;
    return at;
}

// What a driver screen shows: the number, the boxes and two pictures.
struct DriverBoxes {
    Field nopilot;
    std::array<Field, driverFields.size()> boxes; // in the order of driverFields
    Field picture1, Image1;                       // the files on show; empty: blank
    TypedEntry entry;                             // what of it isn't stored

    Field &box(std::string_view prefix) { return boxes[driverField(prefix)]; }
    DriverRecord record() const;
    void show(const DriverRecord &record);
};

// The driver on show in his profile and in the sheet of ratios beside it.
struct DriverProfile : DriverBoxes {
    Field lblecuriE, ecuriE; // his team's picture: the path stored, and the file on show
    Field seasons;           // of his career
    Field ratiosOf;          // the name that the sheet was worked out for
    std::array<Field, 10> ratios;
};

DriverRecord readDriver(const Season &season, std::string_view number);

enum class DriverScreen { newDriver, profile };

// The record with its defaults filled in.
DriverRecord completed(DriverRecord record, DriverScreen screen);

void storeDriver(const WritableSeason &season, std::string_view number, const DriverRecord &record, DriverScreen screen);

// The record as the user entered it: blanks and quotes around the names of driver and team are taken off. A sentence in
// French, and the record as it was, when a name can't be carried by the files; the names held by that number may stay.
std::string enterNames(const Season &season, std::string_view number, DriverRecord &record);

// The first number from 1 up that no driver holds; 27 and more when all 26 are taken.
int firstFreeNumber(const Season &season);

// Seasons of a driver's career, by his name; empty when nobody counted them.
std::string careerSeasons(const Season &season, std::string_view name);
void storeCareerSeasons(const WritableSeason &season, std::string_view name, std::string_view seasons); // not for an empty name

}
