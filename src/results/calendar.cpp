#include "results/calendar.h"

namespace circuidex::results {

Calendar readCalendar(const Season &season)
{
    Calendar calendar;
    int slot = 0;
    for (CalendarRow &row : calendar) {
        row.gpName = season.namegp(slot++);
        if (!row.gpName.empty())
            row.date = season.read(keys::gp, keys::dategp(row.gpName));
    }
    return calendar;
}

void storeCalendar(const WritableSeason &season, const Calendar &calendar)
{
    int slot = 0;
    for (const CalendarRow &row : calendar) {
        season.write(keys::gp, keys::namegp(slot++), row.gpName);
        if (!row.gpName.empty())
            season.write(keys::gp, keys::dategp(row.gpName), row.date);
    }
}

}
