#include "results/main_record.h"

#include "results/simulation.h"

namespace circuidex::results {

// Blanks and quotes around a year are taken off as it is typed.
MainRecord::MainRecord(Store &files, Dialogs &boxes, Surroundings machine)
    : store(files), dialogs(boxes), surroundings(std::move(machine))
{
    an.listen(m_alive, [this](const std::string &typed) {
        if (std::string year = enteredName(typed).name; isYear(year))
            an.set(std::move(year));
    });
}

std::string MainRecord::quietNotice() const
{
    const std::string noYear = isYear(an.text())
        ? ""
        : "La saison " + inQuotes(an.text()) + " n'est pas une année de quatre chiffres : rien n'y est conservé.";
    std::string lines;
    for (const std::string &line : {noYear, store.notice(), simulationNotice(store), overwritten})
        if (!line.empty())
            lines += (lines.empty() ? "" : "\n") + line;
    return lines;
}

std::string MainRecord::actionOnRace(std::string_view what) const
{
    return std::string(what).append(" ").append(ofName(enteredName(gp.text()).name)).append(" ").append(an.text());
}

bool MainRecord::enterGrandPrix()
{
    const EnteredName entered = enteredName(gp.text());
    if (!isYear(an.text()))
        dialogs.message("La saison " + inQuotes(an.text()) +
                        " n'est pas une année de quatre chiffres : rien n'est enregistré.");
    else if (!entered.fits())
        dialogs.message(entered.refusal);
    else
        gp.set(entered.name);
    return isYear(an.text()) && entered.fits();
}

Scale MainRecord::scale() const
{
    Scale scale;
    for (int place = 1; place <= classifiedPlaces; ++place)
        scale[place] = ptspilot[place].text();
    return scale;
}

void MainRecord::setScale(const Scale &scale)
{
    for (int place = 1; place <= classifiedPlaces; ++place)
        ptspilot[place].set(scale[place]);
}

void MainRecord::refreshScale()
{
    if (closeScaleEditor)
        closeScaleEditor();
    else
        setScale(loadScale(season()));
}

}
