#include "results/calendar.h"

#include "store/history.h"
#include "store/names.h"

namespace circuidex::results {

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

}
