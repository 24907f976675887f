// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/picker_routes.h"

#include <charconv>

namespace circuidex {

namespace {

using enum PickList;
using enum Mark;
using enum NumberForm;

// The four subjects of a chart, in the order of its series, and the three of a comparison.
constexpr std::string_view seriesNumbers = "Text1|Text2|Text5|Text4";
constexpr std::string_view seriesNames = "Label3|Label5|Label16|Label15";
constexpr std::string_view comparedNames = "Text1|Text7|Text9";

constexpr Route routes[] = {
    // Result, champion and grid.
    {drivers, label2, "#", 1, 8, "Form1", slot, "Text#", "Text3#"},
    {drivers, label2, "pole", 0, 0, "Form1", slot, "Text39", "Text9"},
    {drivers, label2, "winner", 0, 0, "Form39", slot, "Text40", ""},
    {drivers, label2, "class#", 0, 25, "Form48", tagOfName, "", "Text99(#)"},
    {drivers, label2, "fr3", 0, 0, "Form3", slot, "nopilot", "", {"Command3"}},
    // Standings and lists.
    {drivers, label2, "fr6", 0, 0, "Form6", slot, "nopilott", "Text5", {"Command1"}},
    {drivers, label2, "f31", 0, 0, "Form31", slot, "", "Text1", {"Command2"}},
    {drivers, label2, "classgrid", 0, 0, "Form56", slot, "", "Text1", {"Command2"}},
    {drivers, label2, "resum", 0, 0, "Form60", row, "no", "Text1", {"Command2"}},
    {drivers, tag, "classcarriere", 0, 0, "Form75", row, "nopilott", "Text1", {"Command1"}},
    {drivers, tag, "classcarriere2", 0, 0, "Form76", row, "nopilott", "Text1", {"Command1"}},
    {drivers, tag, "pilotcompaan94", 0, 0, "Form94", slot, "", "nomecurie", {"Command1"}},
    // Charts and comparisons of a season.
    {drivers, label2, "n#", 1, 4, "Form8", slot, seriesNumbers, seriesNames, {"Command1"}},
    {drivers, label2, "nprog#", 1, 4, "Form101", slot, seriesNumbers, seriesNames, {"Command1"}},
    {drivers, label2, "nprog2#", 1, 4, "Form102", slot, seriesNumbers, seriesNames, {"Command1"}},
    {drivers, label2, "pn#", 1, 4, "Form45", slot, "", seriesNames, {"Command1"}},
    {drivers, label2, "2pn#", 1, 4, "Form53", slot, "", seriesNames, {"Command1"}},
    {drivers, label2, "p#mom", 1, 3, "Form36", row, "no|no2|no3", comparedNames, {"Command2"}},
    {drivers, label2, "statplot", 0, 0, "Form51", slot, "", "Text5", {"Command1"}},
    {drivers, tag, "carriereplot", 0, 0, "Form77", row, "nopilott", "Text5", {"Command1"}},
    // Comparisons between seasons.
    {drivers, tag, "pilotcompaan81", 0, 0, "Form81", slot, "", "Text1", {"Command1"}},
    {drivers, tag, "pilotcompaan83", 0, 0, "Form83", slot, "", "Text1", {"Command1"}},
    {drivers, tag, "pilotcompaan85", 0, 0, "Form85", slot, "", "nompilote", {"Command1"}},
    {drivers, tag, "pilotcompaan86", 0, 0, "Form86", slot, "", "nompilote", {"Command1"}},
    {drivers, tag, "pilotcompaan89", 0, 0, "Form89", slot, "", "nompilote", {"Command1"}},
    {drivers, tag, "pilotcompaan92", 0, 0, "Form92", slot, "", "nomecurie", {"Command1"}},
    {drivers, tag, "progressioncompasaison103", 0, 0, "Form103", slot, "", "nompilote", {"Command1"}},
    {drivers, tag, "progressioncompasaison104", 0, 0, "Form104", slot, "", "nompilote", {"Command1"}},

    {teams, label2, "plot1", 0, 0, "Form3", slot, "", "Text8"},
    {teams, label2, "classlist", 0, 0, "Form5", slot, "", "Text5", {"Command1"}},
    {teams, label2, "en#", 1, 4, "Form41", slot, "", seriesNames, {"Command1"}},
    {teams, label2, "ptsgpecu#", 1, 4, "Form71", slot, "", seriesNames, {"Command1"}},
    {teams, label2, "comparatifecu#", 1, 3, "Form73", slot, "", comparedNames, {"Command2"}},
    {teams, label2, "resecurie", 0, 0, "Form61", slot, "", "Text1", {"Command2"}},
    {teams, label2, "resecurie100", 0, 0, "Form100", slot, "", "Text1", {"Command2"}},
    {teams, label2, "compaecuf80", 0, 0, "Form80", slot, "", "Text1", {"Command1"}},
    {teams, label2, "compaecuf82", 0, 0, "Form82", slot, "", "Text1", {"Command1"}},
    {teams, label2, "graphcompasaison87", 0, 0, "Form87", slot, "", "nompilote", {"Command1"}},
    {teams, label2, "graphcompasaison88", 0, 0, "Form88", slot, "", "nompilote", {"Command1"}},
    {teams, label2, "graphcompasaison90", 0, 0, "Form90", slot, "", "nomecurie", {"Command1"}},
    {teams, label2, "graphcompasaison91", 0, 0, "Form91", slot, "", "nomecurie", {"Command1"}},
    {teams, label2, "#graphecuprogr105", 1, 4, "Form105", slot, "", seriesNames, {"Command1"}},
    {teams, label2, "#graphecuprogr106", 1, 4, "Form106", slot, "", seriesNames, {"Command1"}},
    {teams, label2, "graphecuprogr107", 0, 0, "Form107", slot, "", "nompilote", {"Command1"}},
    {teams, label2, "graphecuprogr108", 0, 0, "Form108", slot, "", "nompilote", {"Command1"}},

    {grandsPrix, label2, "f34#", 0, 21, "Form34", slot, "", "Text3(#)"},
    {grandsPrix, tag, "courseanalyse94", 0, 0, "Form94", slot, "", "nomgp", {"Command1"}},
    {grandsPrix, tag, "progresscourse", 0, 0, "Form50", slot, "", "Text5", {"Command1"}},
    {grandsPrix, label2, "compaecu", 0, 0, "Form78", slot, "", "Text1", {"Command55"}},
    {grandsPrix, label2, "compapilot", 0, 0, "Form79", slot, "", "Text1", {"Command55"}},
    {grandsPrix, label2, "fr4", 0, 0, "Form4", slot, "", "gp", {"Command3", "Command12"}},
    {grandsPrix, label2, "circ68", 0, 0, "Form68", slot, "", "gp", {"Command1"}},
    {grandsPrix, label2, "old", 0, 0, "Form36", slot, "", "Text2", {"Command1"}},
    {grandsPrix, label2, "classmom", 0, 0, "Form36", slot, "", "Text2", {"Command1"}},
    {grandsPrix, label2, "a1", 0, 0, "Form20", slot, "", "Text1", {"Command1"}},
    {grandsPrix, label2, "a2", 0, 0, "Form24", slot, "", "Text2", {"Command1"}},
};

// Where a choice goes without a word.
constexpr Route otherwise[] = {
    {drivers, label2, "", 0, 0, "Form23", slot, "", "Text1", {"Command1"}, true},
    {grandsPrix, label2, "", 0, 0, "Form1", slot, "", "gp", {"Command17"}},
};

// The number that the word of a route has in this word; absent when it is another word.
std::optional<int> numberIn(const Route &route, std::string_view word)
{
    const auto at = route.word.find('#');
    if (at == std::string_view::npos)
        return route.word == word ? std::optional(route.first) : std::nullopt;
    const std::string_view before = route.word.substr(0, at), after = route.word.substr(at + 1);
    if (word.size() <= before.size() + after.size() || !word.starts_with(before) || !word.ends_with(after))
        return std::nullopt;
    const std::string_view digits = word.substr(before.size(), word.size() - before.size() - after.size());
    int number = -1;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool plain = read.ec == std::errc() && digits == std::to_string(number);
    return plain && number >= route.first && number <= route.last ? std::optional(number) : std::nullopt;
}

struct Found {
    const Route *route;
    int number;
};

std::optional<Found> find(PickList list, std::string_view word)
{
    for (const Route &route : routes)
        if (route.list == list)
            if (const auto number = numberIn(route, word))
                return Found{&route, *number};
    return std::nullopt;
}

// "Text3(#)" for the number 4 is Text3, index 4; of "a|b|c" the control of that number.
ControlName control(std::string_view pattern, int position, int number)
{
    if (pattern.find('|') != std::string_view::npos) {
        for (; position > 0; --position)
            pattern.remove_prefix(pattern.find('|') + 1);
        return {std::string(pattern.substr(0, pattern.find('|'))), std::nullopt};
    }
    const auto at = pattern.find('#');
    if (at == std::string_view::npos)
        return {std::string(pattern), std::nullopt};
    if (pattern.ends_with("(#)"))
        return {std::string(pattern.substr(0, at - 1)), number};
    return {std::string(pattern.substr(0, at)) + std::to_string(number), std::nullopt};
}

Destination leading(const Found &found)
{
    const Route &to = *found.route;
    const int position = found.number - to.first;
    return {to.screen,  to.form, control(to.number, position, found.number), control(to.name, position, found.number),
            to.buttons, to.opens};
}

}

std::span<const Route> allRoutes()
{
    return routes;
}

std::optional<Destination> destination(PickList list, std::string_view tagText, std::string_view label2Text)
{
    for (const std::string_view word : {tagText, label2Text})
        if (const auto found = find(list, word))
            return leading(*found);
    for (const Route &route : otherwise)
        if (route.list == list)
            return leading({&route, 0});
    return std::nullopt;
}

Mark markOf(PickList list, std::string_view word)
{
    const auto found = find(list, word);
    return found ? found->route->mark : label2;
}

}
