#pragma once
// The calendar of a season: the Grand Prix of each slot and its date. A date stands under the name of its Grand Prix;
// without one there is nowhere to keep it. Naming a slot anew leaves the results under the old name.
#include "store/season.h"

#include <array>

namespace circuidex::results {

struct CalendarRow {
    std::string gpName, date;
};

using Calendar = std::array<CalendarRow, gpSlots>; // by slot

Calendar readCalendar(const Season &season);
void storeCalendar(const WritableSeason &season, const Calendar &calendar);

}
