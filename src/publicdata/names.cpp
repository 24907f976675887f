#include "publicdata/names.h"

#include "store/names.h"
#include "store/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace circuidex::publicdata {

namespace {

struct Word {
    std::string_view id, french;
};

// clang-format off
constexpr Word races[] = { // by id
    {"70th-anniversary", "70e anniversaire"}, {"abu-dhabi", "Abou Dabi"}, {"argentina", "Argentine"},
    {"australia", "Australie"}, {"austria", "Autriche"}, {"azerbaijan", "Azerbaïdjan"}, {"bahrain", "Bahreïn"},
    {"barcelona-catalunya", "Barcelone-Catalogne"}, {"belgium", "Belgique"}, {"brazil", "Brésil"},
    {"caesars-palace", "Caesars Palace"}, {"canada", "Canada"}, {"china", "Chine"}, {"dallas", "Dallas"},
    {"detroit", "Detroit"}, {"eifel", "Eifel"}, {"emilia-romagna", "Emilie-Romagne"}, {"europe", "Europe"},
    {"france", "France"}, {"germany", "Allemagne"}, {"great-britain", "Grande bretagne"}, {"hungary", "Hongrie"},
    {"india", "Inde"}, {"indianapolis", "Indianapolis"}, {"italy", "Italie"}, {"japan", "Japon"},
    {"korea", "Corée du sud"}, {"las-vegas", "Las Vegas"}, {"luxembourg", "Luxembourg"}, {"malaysia", "Malaisie"},
    {"mexico", "Mexique"}, {"mexico-city", "Mexico"}, {"miami", "Miami"}, {"monaco", "Monaco"}, {"morocco", "Maroc"},
    {"netherlands", "Pays-bas"}, {"pacific", "Pacifique"}, {"pescara", "Pescara"}, {"portugal", "Portugal"},
    {"qatar", "Qatar"}, {"russia", "Russie"}, {"sakhir", "Sakhir"}, {"san-marino", "Saint-Marin"},
    {"sao-paulo", "São Paulo"}, {"saudi-arabia", "Arabie saoudite"}, {"singapore", "Singapour"},
    {"south-africa", "Afrique du sud"}, {"spain", "Espagne"}, {"styria", "Styrie"}, {"sweden", "Suède"},
    {"switzerland", "Suisse"}, {"turkey", "Turquie"}, {"tuscany", "Toscane"}, {"united-states", "Etats-unis"},
    {"united-states-west", "Etats-unis ouest"},
};

constexpr Word nationalities[] = { // by country
    {"andorra", "Andorran"}, {"argentina", "Argentin"}, {"australia", "Australien"}, {"austria", "Autrichien"},
    {"bahrain", "Bahreïnien"}, {"barbados", "Barbadien"}, {"belgium", "Belge"}, {"brazil", "Brésilien"},
    {"bulgaria", "Bulgare"}, {"canada", "Canadien"}, {"chile", "Chilien"}, {"china", "Chinois"},
    {"colombia", "Colombien"}, {"croatia", "Croate"}, {"czech-republic", "Tchèque"}, {"denmark", "Danois"},
    {"east-germany", "Est-allemand"}, {"estonia", "Estonien"}, {"finland", "Finlandais"}, {"france", "Français"},
    {"germany", "Allemand"}, {"greece", "Grec"}, {"hungary", "Hongrois"}, {"india", "Indien"},
    {"indonesia", "Indonésien"}, {"ireland", "Irlandais"}, {"israel", "Israélien"}, {"italy", "Italien"},
    {"jamaica", "Jamaïcain"}, {"japan", "Japonais"}, {"kenya", "Kényan"}, {"latvia", "Letton"},
    {"liechtenstein", "Liechtensteinois"}, {"malaysia", "Malaisien"}, {"mexico", "Mexicain"},
    {"monaco", "Monégasque"}, {"morocco", "Marocain"}, {"netherlands", "Néerlandais"},
    {"new-zealand", "Néo-zélandais"}, {"norway", "Norvégien"}, {"poland", "Polonais"}, {"portugal", "Portugais"},
    {"qatar", "Qatarien"}, {"romania", "Roumain"}, {"russia", "Russe"}, {"saudi-arabia", "Saoudien"},
    {"slovenia", "Slovène"}, {"south-africa", "Sud-africain"}, {"south-korea", "Sud-coréen"}, {"spain", "Espagnol"},
    {"sweden", "Suédois"}, {"switzerland", "Suisse"}, {"thailand", "Thaïlandais"}, {"turkey", "Turc"},
    {"ukraine", "Ukrainien"}, {"united-kingdom", "Britannique"}, {"united-states-of-america", "Américain"},
    {"uruguay", "Uruguayen"}, {"venezuela", "Vénézuélien"}, {"zambia", "Zambien"}, {"zimbabwe", "Zimbabwéen"},
};
// clang-format on

template <std::size_t N>
std::string_view french(const Word (&words)[N], std::string_view id)
{
    const auto found = std::ranges::lower_bound(words, id, {}, &Word::id);
    return found != std::end(words) && found->id == id ? found->french : std::string_view();
}

// The letters from U+00C0 and from U+0100 on, without their accents.
constexpr std::string_view latin = "AAAAAAACEEEEIIIIDNOOOOO?OUUUUYTsaaaaaaaceeeeiiiidnooooo?ouuuuyty";
constexpr std::string_view extended = "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlLlLlNnNnNnnNnOoOo"
                                      "OoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
static_assert(latin.size() == 64 && extended.size() == 128);

// The character that begins at a place, which moves on behind it; valid UTF-8 as all published text is.
std::uint32_t nextCharacter(std::string_view text, std::size_t &at)
{
    const auto first = static_cast<unsigned char>(text[at++]);
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    std::uint32_t character = more == 0 ? first : first & (0x3Fu >> more);
    for (int i = 0; i < more && at < text.size(); ++i)
        character = character << 6 | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
    return character;
}

// Empty for a mark that stands over the letter before it.
std::string plainLetter(std::uint32_t character)
{
    if (character < 0x80)
        return std::string(1, static_cast<char>(character));
    if (character >= 0xC0 && character < 0x100)
        return std::string(latin.substr(character - 0xC0, 1));
    if (character >= 0x100 && character < 0x180)
        return std::string(extended.substr(character - 0x100, 1));
    if (character >= 0x300 && character < 0x370)
        return {};
    if (character == 0x2018 || character == 0x2019 || character == 0x02BC)
        return "'";
    if (character >= 0x2010 && character <= 0x2015)
        return "-";
    return character == 0xA0 || character == 0x202F ? " " : "?";
}

}

std::string frenchName(const GrandPrix &grandPrix)
{
    const std::string_view name = french(races, grandPrix.id);
    return name.empty() ? nameForFiles(grandPrix.name) : std::string(name);
}

std::string frenchNationality(const Data &data, int country)
{
    if (country < 0)
        return {};
    const Country &home = data.countries[static_cast<std::size_t>(country)];
    const std::string_view name = french(nationalities, home.id);
    return name.empty() ? nameForFiles(home.demonym) : std::string(name);
}

std::string nameForFiles(std::string_view published)
{
    std::string name;
    for (std::size_t at = 0; at < published.size();) {
        const std::size_t begin = at;
        const std::uint32_t character = nextCharacter(published, at);
        const std::string_view letter = published.substr(begin, at - begin);
        if (character < ' ' || character == 0x7F || character == '=' || character == '[' || character == ']')
            name += ' ';
        else
            name += toUtf8(toCodePage(letter)) == letter ? std::string(letter) : plainLetter(character);
    }
    constexpr std::size_t most = 60; // characters; no name of the sport comes near
    while (toCodePage(name).size() > most)
        name = toUtf8(toCodePage(name).substr(0, most));
    name = enteredName(name).name;
    return name.empty() || !enteredName(name).fits() ? "?" : name;
}

std::string plainName(std::string_view name)
{
    std::string plain;
    for (std::size_t at = 0; at < name.size();)
        for (const char letter : plainLetter(nextCharacter(name, at)))
            if (letter >= 'A' && letter <= 'Z')
                plain += static_cast<char>(letter - 'A' + 'a');
            else if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9'))
                plain += letter;
    return plain;
}

}
