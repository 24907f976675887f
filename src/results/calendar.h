// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The calendar as the user enters it: the name and the date of the Grand Prix in each slot.
#include "store/season.h"

#include <array>
#include <optional>

namespace circuidex::results {

struct CalendarEntry {
    std::string name, date;
    bool empty() const { return name.empty() && date.empty(); }
};
using Calendar = std::array<CalendarEntry, gpSlots>;

Calendar loadCalendar(const Season &season);

// A date stands under the name of its Grand Prix; without one there is nowhere to keep it. A sentence in French and
// nothing written when a new name can't be carried by the files.
std::string enterCalendar(const WritableSeason &season, Calendar calendar);

// A free slot before this one, those behind moving back. False, and nothing moved, when the last one isn't free.
bool insertSlot(Calendar &calendar, int slot);
void removeSlot(Calendar &calendar, int slot); // those behind move up
// Changes place with the slot before (-1) or behind (1). False at the ends.
bool moveSlot(Calendar &calendar, int slot, int by);

// A day of a year, as the calendar holds it, "16/10".
struct Day {
    int day, month;
};
std::optional<Day> dayOf(std::string_view date); // absent for what is no day; a year behind it is passed over
std::string dateText(Day day);

}
