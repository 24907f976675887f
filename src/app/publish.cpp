// SPDX-License-Identifier: GPL-3.0-or-later
// For whoever keeps a server: makes the keys, the signed archives and the list of videos that programs fetch from it.
// docs/man/publier.1 tells how.
#include "online/archive_names.h"
#include "online/checked_archive.h"
#include "online/publishing.h"
#include "store/disk.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::online;

namespace {

constexpr const char *usage =
    "usage : publier cle FICHIER\n"
    "        publier miseajour|photos|circuidex DOSSIER [--cle FICHIER] [--numero N] [--vers DOSSIER]\n"
    "        publier videos LISTE [--vers DOSSIER]\n"
    "        publier verifier ARCHIVE [--cle CLE_PUBLIQUE]\n";

struct Order {
    std::string word, subject;
    std::map<std::string, std::string> options; // "--cle"
    std::string option(const std::string &name, const std::string &otherwise = {}) const
    {
        const auto at = options.find(name);
        return at == options.end() ? otherwise : at->second;
    }
};

int fail(const std::string &why)
{
    std::fprintf(stderr, "publier : %s\n", why.c_str());
    return 1;
}

bool writeWhole(const std::string &path, const std::string &bytes)
{
    disk::Stamp after;
    return disk::replace(path, bytes, false, after);
}

// The secret half is for its owner alone, and never takes the place of another key.
int makeKey(const Order &order)
{
    const int file = ::open(order.subject.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    if (file < 0)
        return fail(order.subject + " existe déjà ou ne peut pas être écrit");
    const SecretKey key = newKey();
    const std::string text = secretKeyText(key);
    const bool written =
        ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()) && ::fsync(file) == 0;
    if (::close(file) != 0 || !written || !writeWhole(order.subject + ".pub", publicKeyText(key.publicKey())))
        return fail("la clé n'a pas pu être écrite");
    std::printf("cle=%s\n", publicKeyLine(key.publicKey()).c_str());
    return 0;
}

int makeArchive(const Order &order, std::string_view archive)
{
    Edition edition{std::string(archive), numberNow(), std::nullopt};
    if (const std::string number = order.option("--numero"); !number.empty()) {
        const auto [end, problem] = std::from_chars(number.data(), number.data() + number.size(), edition.number);
        if (problem != std::errc() || end != number.data() + number.size())
            return fail("le numéro n'en est pas un : " + number);
    }
    if (const std::string keyFile = order.option("--cle"); !keyFile.empty()) {
        std::string text;
        disk::read(keyFile, text);
        edition.key = parseSecretKey(text);
        if (!edition.key)
            return fail(keyFile + " n'est pas une clé secrète sans mot de passe");
    }
    const std::string place = order.option("--vers", ".");
    if (const std::string fault = pack(order.subject, edition, place); !fault.empty())
        return fail(edition.archive + " : " + fault);
    std::printf("%s/%s numéro %llu, %s\n", place.c_str(), edition.archive.c_str(),
                static_cast<unsigned long long>(edition.number), edition.key ? "signée" : "sans signature");
    return 0;
}

int makeVideoList(const Order &order)
{
    std::string lines;
    if (disk::read(order.subject, lines).kind != disk::Kind::file)
        return fail(order.subject + " n'est pas lisible");
    const VideoList list = videoList(lines);
    if (!list.fault.empty())
        return fail(list.fault);
    const std::string path = order.option("--vers", ".") + "/f1galerievideo.ini";
    return writeWhole(path, list.bytes) ? 0 : fail(path + " n'a pas pu être écrit");
}

int verify(const Order &order)
{
    std::string key = order.option("--cle"), text;
    if (disk::read(key, text).kind == disk::Kind::file)
        if (const auto parsed = parsePublicKey(text))
            key = publicKeyLine(*parsed);
    const std::string name = order.subject.substr(order.subject.find_last_of('/') + 1);
    const CheckedArchive checked = checkArchive(order.subject, name, {key, 0});
    if (!checked.fits())
        return fail(name + " : " + checked.refusal);
    for (const ArchivedFile &file : checked.files)
        std::printf("%s  %s\n", hex(file.hash).c_str(), file.path.c_str());
    return 0;
}

int obey(const Order &order)
{
    if (order.word == "cle")
        return makeKey(order);
    if (order.word == "miseajour")
        return makeArchive(order, resultsArchive);
    if (order.word == "photos")
        return makeArchive(order, picturesArchive);
    if (order.word == "circuidex")
        return makeArchive(order, programArchive);
    if (order.word == "videos")
        return makeVideoList(order);
    if (order.word == "verifier")
        return verify(order);
    std::fputs(usage, stderr);
    return 2;
}

}

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const std::vector<std::string> known{"--cle", "--numero", "--vers"};
    Order order;
    bool good = words.size() >= 2 && words.size() % 2 == 0;
    for (std::size_t i = 0; good && i < words.size(); i += 2)
        if (i == 0)
            order = {words[0], words[1], {}};
        else
            good = std::find(known.begin(), known.end(), words[i]) != known.end() &&
                order.options.emplace(words[i], words[i + 1]).second;
    if (!good) {
        std::fputs(usage, stderr);
        return 2;
    }
    return obey(order);
}
