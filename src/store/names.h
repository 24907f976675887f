#pragma once
// What the user may name: a name becomes part of keys and file names, so it must come back from the data files as it was
// typed. Asked wherever a name enters (Grand Prix, driver, team, season); what a file holds already isn't judged again.
#include <string>
#include <string_view>

namespace circuidex {

// In characters: the longest key made of a name stays as short as the longest value.
inline constexpr std::size_t longestName = 240;

struct EnteredName {
    std::string name; // without the blanks and quotes around it
    std::string refusal; // a sentence in French for what the files can't carry; empty for a name that may be stored
    bool fits() const { return refusal.empty(); }
};

// `held` is what the file holds in this place: the same again is no new name and fits.
EnteredName enteredName(std::string_view typed, std::string_view held = {});

// A season is named by the four digits of its year.
bool isYear(std::string_view season);

// The stem of the season's file. What is no year names no file: it reads empty and keeps nothing.
std::string seasonStem(std::string_view season);

// "de Chine", "d'Espagne".
std::string ofName(std::string_view name);

// A text to be quoted in a message: in quotes, cut when it is long.
std::string inQuotes(std::string_view text);

}
