#include "store/names.h"

#include "store/text.h"

#include <algorithm>

namespace circuidex {

namespace {

std::string_view withoutBlanks(std::string_view text)
{
    constexpr std::string_view blanks = " \t\v\f\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Blanks and quotes may stand around one another.
std::string_view bare(std::string_view text)
{
    text = withoutBlanks(text);
    while (text.size() > 1 && text.front() == text.back() && (text.front() == '"' || text.front() == '\''))
        text = withoutBlanks(text.substr(1, text.size() - 2));
    return text;
}

bool isControl(char c)
{
    constexpr std::string_view open = "\x7F\x81\x8D\x8F\x90\x9D"; // the code page has no sign for them
    return static_cast<unsigned char>(c) < ' ' || open.find(c) != open.npos;
}

// Null for a name that the files carry.
const char *fault(const std::string &name)
{
    const std::string bytes = toCodePage(name);
    if (std::any_of(bytes.begin(), bytes.end(), isControl))
        return "il contient un saut de ligne ou un caractère de commande";
    if (bytes.find_first_of("=[]") != bytes.npos)
        return "il contient un des signes = [ ] dont les fichiers de données se servent";
    if (bytes.size() > longestName)
        return "il a plus de 240 caractères";
    if (toUtf8(bytes) != name)
        return "il contient un caractère que les fichiers de données n'ont pas";
    return nullptr;
}

}

EnteredName enteredName(std::string_view typed, std::string_view held)
{
    if (!typed.empty() && typed == held)
        return {std::string(typed), {}};
    EnteredName entered{std::string(bare(typed)), {}};
    if (const char *what = fault(entered.name))
        entered.refusal = "Le nom " + inQuotes(entered.name) + " ne peut pas être enregistré : " + what + ".";
    return entered;
}

bool isYear(std::string_view season)
{
    return season.size() == 4 && season.find_first_not_of("0123456789") == season.npos;
}

std::string seasonStem(std::string_view season)
{
    return isYear(season) ? std::string(season) : std::string("/").append(season);
}

std::string ofName(std::string_view name)
{
    constexpr std::string_view vowels[] = {"a", "e", "i", "o", "u", "é", "è", "ê", "à", "â", "î", "ô"};
    const std::string lower = folded(name);
    const bool elides = std::any_of(std::begin(vowels), std::end(vowels),
                                    [&](std::string_view each) { return lower.starts_with(each); });
    return std::string(elides ? "d'" : "de ").append(name);
}

std::string inQuotes(std::string_view text)
{
    constexpr std::size_t most = 40;
    std::size_t end = std::min(text.size(), most);
    while (end > 0 && end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0u) == 0x80)
        --end; // no character in half
    return std::string("\"").append(text.substr(0, end)).append(end < text.size() ? "…\"" : "\"");
}

}
