// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/archive_names.h"

#include "store/backups.h"
#include "store/names.h"
#include "store/text.h"

#include <algorithm>
#include <array>

namespace circuidex::online {

namespace {

using namespace std::string_view_literals;

constexpr std::array textEndings{".txt"sv};
constexpr std::array pictureEndings{".jpg"sv, ".jpeg"sv, ".png"sv, ".gif"sv, ".bmp"sv, ".webp"sv};
constexpr std::array filmEndings{".avi"sv, ".mpg"sv, ".mpeg"sv, ".wmv"sv, ".mp4"sv,
                                 ".m4v"sv, ".mov"sv, ".mkv"sv,  ".webm"sv};
constexpr std::array devices{"con"sv, "prn"sv, "aux"sv, "nul"sv, "conin$"sv, "conout$"sv, "clock$"sv};
constexpr std::array archives{resultsArchive, programArchive, picturesArchive};

constexpr std::size_t longestPart = 240; // bytes
constexpr std::size_t longestPath = 1000;

template <typename Endings>
bool endsAs(const std::string &lower, const Endings &endings)
{
    return std::any_of(endings.begin(), endings.end(), [&](std::string_view ending) {
        return lower.size() > ending.size() && lower.ends_with(ending);
    });
}

// Whatever stands behind the first dot, "NUL.txt" is the device; so are COM1 to COM9 and LPT1 to LPT9, also with a
// raised 1, 2 or 3.
bool isDevice(const std::string &lowerPart)
{
    std::string stem = lowerPart.substr(0, lowerPart.find('.'));
    while (stem.ends_with(' '))
        stem.pop_back();
    if (std::find(devices.begin(), devices.end(), stem) != devices.end())
        return true;
    const bool port = stem.starts_with("com") || stem.starts_with("lpt");
    const std::string number = port ? stem.substr(3) : std::string();
    constexpr std::array raised{"\xC2\xB9"sv, "\xC2\xB2"sv, "\xC2\xB3"sv};
    return (number.size() == 1 && number[0] >= '0' && number[0] <= '9') ||
        std::find(raised.begin(), raised.end(), number) != raised.end();
}

const char *faultOfPart(const std::string &part)
{
    const std::string lower = foldedName(part);
    if (part == "..")
        return "sort du dossier du programme";
    if (part.size() > longestPart)
        return "est trop long";
    if (part.ends_with('.') || part.ends_with(' '))
        return "finit par un point ou un blanc";
    if (isDevice(lower))
        return "est un nom que Windows se réserve";
    if (lower.starts_with(ownPrefix))
        return "est un nom que Circuidex se réserve";
    return nullptr;
}

const char *faultOfWhole(std::string_view stored, const std::string &slashed)
{
    const auto control = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; };
    if (slashed.starts_with('/') || (slashed.size() > 1 && slashed[1] == ':'))
        return "sort du dossier du programme";
    if (std::any_of(stored.begin(), stored.end(), control) || slashed.find_first_of("<>:\"|?*") != slashed.npos)
        return "contient un signe qu'un nom de fichier n'a pas";
    if (toUtf8(toCodePage(stored)) != stored)
        return "contient un caractère que les fichiers de données n'ont pas";
    return slashed.size() > longestPath ? "est trop long" : nullptr;
}

// The copies of the user's files, and the archives beside which this one lies.
const char *faultOfPlace(const std::string &path)
{
    const std::string lower = foldedName(path.substr(0, path.find('/')));
    const bool taken = lower == foldedName(backups::folderName) ||
        std::any_of(archives.begin(), archives.end(), [&](std::string_view name) { return lower == foldedName(name); });
    return taken ? "est un nom que Circuidex se réserve" : nullptr;
}

}

CleanName cleanName(std::string_view stored)
{
    std::string slashed(stored);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    const char *fault = stored.empty() ? "manque" : faultOfWhole(stored, slashed);
    CleanName clean;
    for (std::size_t at = 0; !fault && at < slashed.size();) {
        const std::size_t end = std::min(slashed.find('/', at), slashed.size());
        const std::string part = slashed.substr(at, end - at);
        at = end + 1;
        if (part.empty() || part == ".")
            continue;
        fault = faultOfPart(part);
        clean.path += (clean.path.empty() ? "" : "/") + part;
    }
    if (!fault)
        fault = faultOfPlace(clean.path);
    return fault ? CleanName{{}, fault} : clean;
}

std::string foldedName(std::string_view path)
{
    std::string lower = folded(path);
    constexpr std::array<std::array<std::string_view, 2>, 4> rest{{{"Š", "š"}, {"Œ", "œ"}, {"Ž", "ž"}, {"Ÿ", "ÿ"}}};
    for (const auto &[capital, small] : rest)
        for (std::size_t at = 0; (at = lower.find(capital, at)) != lower.npos; at += small.size())
            lower.replace(at, capital.size(), small);
    return lower;
}

std::string shownName(std::string_view stored)
{
    std::string plain = toUtf8(toCodePage(stored.substr(0, 200)));
    std::replace_if(
        plain.begin(), plain.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, '?');
    return inQuotes(plain);
}

bool isData(std::string_view path)
{
    const std::string lower = foldedName(path);
    const std::string name = lower.substr(lower.find_last_of('/') + 1);
    const bool atTop = name.size() == lower.size();
    const bool dataFile = atTop && ((name.starts_with("f1") && name.ends_with(".ini")) || name == "année");
    return !name.starts_with('.') &&
        (dataFile || endsAs(name, textEndings) || endsAs(name, pictureEndings) || endsAs(name, filmEndings));
}

bool isKept(std::string_view path)
{
    const std::string lower = foldedName(path);
    return lower.find('/') == lower.npos && (lower.ends_with(".ini") || lower.ends_with(".txt") || lower == "année");
}

bool isFilmName(std::string_view name)
{
    const CleanName clean = cleanName(name);
    return clean.fits() && clean.path == name && name.find('/') == name.npos && !name.starts_with('.') &&
        endsAs(foldedName(name), filmEndings);
}

}
