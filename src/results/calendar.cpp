// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/calendar.h"

#include "store/history.h"
#include "store/names.h"

#include <algorithm>

namespace circuidex::results {

namespace {

std::size_t at(int slot)
{
    return static_cast<std::size_t>(slot);
}

// One or two figures at the beginning, taken off the text; 0 for none.
int takeFigures(std::string_view &text)
{
    int number = 0;
    for (int i = 0; i < 2 && !text.empty() && text.front() >= '0' && text.front() <= '9'; ++i) {
        number = 10 * number + (text.front() - '0');
        text.remove_prefix(1);
    }
    return number;
}

}

Calendar loadCalendar(const Season &season)
{
    Calendar calendar;
    for (int slot = 0; slot < gpSlots; ++slot) {
        CalendarEntry &entry = calendar[at(slot)];
        entry.name = season.namegp(slot);
        if (!entry.name.empty())
            entry.date = season.read(keys::gp, keys::dategp(entry.name));
    }
    return calendar;
}

std::string enterCalendar(const WritableSeason &season, Calendar calendar)
{
    int slot = 0;
    for (CalendarEntry &entry : calendar) {
        EnteredName name = enteredName(entry.name, season.namegp(slot++));
        if (!name.fits())
            return name.refusal;
        entry.name = std::move(name.name);
    }
    const Action undoable(season.store(), "calendrier " + season.stem());
    slot = 0;
    for (const CalendarEntry &entry : calendar) {
        season.write(keys::gp, keys::namegp(slot++), entry.name);
        if (!entry.name.empty())
            season.write(keys::gp, keys::dategp(entry.name), entry.date);
    }
    return {};
}

bool insertSlot(Calendar &calendar, int slot)
{
    if (!calendar.back().empty())
        return false;
    std::rotate(calendar.begin() + slot, calendar.end() - 1, calendar.end());
    return true;
}

void removeSlot(Calendar &calendar, int slot)
{
    calendar[at(slot)] = {};
    std::rotate(calendar.begin() + slot, calendar.begin() + slot + 1, calendar.end());
}

bool moveSlot(Calendar &calendar, int slot, int by)
{
    if (slot + by < 0 || slot + by >= gpSlots)
        return false;
    std::swap(calendar[at(slot)], calendar[at(slot + by)]);
    return true;
}

std::optional<Day> dayOf(std::string_view date)
{
    constexpr std::array<int, 12> days{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int day = takeFigures(date);
    if (!date.starts_with('/'))
        return std::nullopt;
    date.remove_prefix(1);
    const int month = takeFigures(date);
    const bool ends = date.empty() || date.starts_with('/');
    if (!ends || month < 1 || month > 12 || day < 1 || day > days[at(month - 1)])
        return std::nullopt;
    return Day{day, month};
}

std::string dateText(Day day)
{
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    return two(day.day) + "/" + two(day.month);
}

}
