#pragma once
// The calendar as the user enters it: the name and the date of the Grand Prix in each slot.
#include "store/season.h"

#include <array>

namespace circuidex::results {

struct CalendarEntry {
    std::string name, date;
};
using Calendar = std::array<CalendarEntry, gpSlots>;

// A date stands under the name of its Grand Prix; without one there is nowhere to keep it. A sentence in French and
// nothing written when a new name can't be carried by the files.
std::string enterCalendar(const WritableSeason &season, Calendar calendar);

}
