#pragma once
// Names as the data files take them: Grands Prix and nationalities in French as the sample seasons write them, drivers
// and teams as published, in the letters of the data files' code page.
#include "publicdata/data.h"

#include <string>
#include <string_view>

namespace circuidex::publicdata {

// "great-britain" is "Grande bretagne". One of which no French name is known bears the published one.
std::string frenchName(const GrandPrix &grandPrix);

// Of a man: "germany" is "Allemand". Empty for no country.
std::string frenchNationality(const Data &data, int country);

// The nearest letters that the files have ("Kubica" for "Kubiça", "?" for a letter of another script), without the
// signs that keys can't hold. Names that the files take come back as they are.
std::string nameForFiles(std::string_view published);

// Without accents, signs and difference of case, to find a name that is spelt otherwise.
std::string plainName(std::string_view name);

}
