// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/unpacking.h"

#include "online/archive_names.h"
#include "online/archives.h"
#include "online/update_notice.h"
#include "store/temporary_folder.h"

#include <gtest/gtest.h>

#include <map>

using namespace circuidex;
using namespace circuidex::online;
using namespace circuidex::test;
namespace fs = std::filesystem;

namespace {

const SecretKey ours = newKey(), others = newKey();

std::string serversWith(const SecretKey &key)
{
    return "[serveurs]\r\nmaj=http://127.0.0.1\r\ncle=" + publicKeyLine(key.publicKey()) + "\r\n";
}

// All files below a folder with their content, but the lock and the copies.
std::map<std::string, std::string> filesOf(const fs::path &folder)
{
    std::map<std::string, std::string> files;
    for (const auto &entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files[entry.path().lexically_relative(folder).string()] = content(entry.path());
    return files;
}

Members many(std::size_t count)
{
    Members all(count);
    for (std::size_t i = 0; i < count; ++i)
        all[i] = {"Photos/" + std::to_string(i) + ".jpg", "x"};
    return all;
}

std::string changed(std::string bytes, const std::string &from, const std::string &to)
{
    for (std::size_t at = 0; (at = bytes.find(from, at)) != bytes.npos; at += to.size())
        bytes.replace(at, from.size(), to);
    return bytes;
}

// The same with the number of another compression in both headers of the first entry.
std::string packedOddly(std::string bytes)
{
    constexpr char bzip2 = 12;
    bytes[8] = bytes[bytes.find("PK\1\2") + 10] = bzip2;
    return bytes;
}

struct Hostile {
    const char *what;
    std::string bytes;
    const char *said; // part of the reason
    const char *archive = "miseajour.zip";
    const SecretKey *key = nullptr;
};

// Each with a good file in front, so that something would be seen if it were not refused whole.
std::string beside(const Member &bad)
{
    return zipOf({{"f12006.ini", "[gp]\r\nnogp=1\r\n"}, bad});
}

std::string signedWith(const SecretKey &key, const std::string &archive, std::uint64_t number, const Members &members)
{
    return zipOf(withManifest(members, archive, number, &key));
}

std::vector<Hostile> hostileArchives()
{
    const Members season{{"f12006.ini", "[gp]\r\nnogp=1\r\n"}};
    const std::string good = zipOf(season), genuine = signedWith(ours, "miseajour.zip", 7, season);
    const std::string regular("\0\0\xA4\x81", 4); // kind and permissions, as the directory has them
    const Members listed = withManifest(season, "miseajour.zip", 7, &ours);
    Members otherList = listed, otherFile = listed, more = listed, less = listed, wrong = listed;
    otherList[0].content += std::string(64, 'a') + "  A1.txt\n";
    otherFile[2].content += "nogp=2\r\n";
    more.push_back({"A1.txt", "x"});
    less.pop_back();
    wrong.erase(wrong.begin() + 1);
    wrong[1].content += "nogp=2\r\n";
    return {
        {"up", beside({"../f12005.ini", "x"}), "sort du dossier"},
        {"up, deeper", beside({"Photos/../../a.txt", "x"}), "sort du dossier"},
        {"up, the other slash", beside({"Photos\\..\\..\\a.txt", "x"}), "sort du dossier"},
        {"root", beside({"/tmp/a.txt", "x"}), "sort du dossier"},
        {"root, the other slash", beside({"\\a.txt", "x"}), "sort du dossier"},
        {"drive", beside({"C:\\a.txt", "x"}), "sort du dossier"},
        {"drive, no slash", beside({"c:a.txt", "x"}), "sort du dossier"},
        {"stream", beside({"a.txt:b.txt", "x"}), "signe"},
        {"control character", beside({"a\n.txt", "x"}), "signe"},
        {"not UTF-8", beside({"a\xFF.txt", "x"}), "caractère"},
        {"link", beside({"a.txt", "", AE_IFLNK, 0777, "/etc/passwd"}), "ni un fichier"},
        {"device", changed(good, regular, {"\0\0\xA4\x21", 4}), "ni un fichier"},
        {"disk", changed(good, regular, {"\0\0\xA4\x61", 4}), "ni un fichier"},
        {"reserved", beside({"Photos/NUL.txt", "x"}), "Windows"},
        {"reserved, small, blank", beside({"con .txt", "x"}), "Windows"},
        {"reserved port", beside({"Com3/a.txt", "x"}), "Windows"},
        {"reserved port, raised", beside({"lpt\u00B2.txt", "x"}), "Windows"},
        {"ends in a dot", beside({"a.txt.", "x"}), "point"},
        {"twice", beside({"f12006.ini", "x"}), "deux fois"},
        {"twice, other case", beside({"F12006.INI", "x"}), "deux fois"},
        {"twice, accents", zipOf({{"É.txt", "x"}, {"é.txt", "x"}}), "deux fois"},
        {"twice by slashes", beside({".\\\\f12006.ini", "x"}), "deux fois"},
        {"file and folder", beside({"f12006.ini/a.txt", "x"}), "fichier et un dossier"},
        {"too many", zipOf(many(20'001)), "20 000"},
        {"bomb", zipOf({{"a.txt", std::string(6 << 20, ' ')}}), "200 fois"},
        {"encrypted", zipOf(season, "zip:encryption=zipcrypt"), "chiffrée"},
        {"bzip2", packedOddly(good), "inhabituelle"},
        {"empty file", "", "lisible"},
        {"no archive", "PK\3\4 rien", "abîmée"},
        {"cut", good.substr(0, good.size() / 2), "abîmée"},
        {"wrong checksum", changed(zipOf(season, "zip:compression=store"), "nogp=1", "nogp=9"), "abîmée"},
        {"nothing in it", zipOf({{"Photos", "", AE_IFDIR}}), "vide"},
        {"extractor's own", beside({".circuidex-numeros", "x"}), "réserve"},
        {"copies", beside({"sauvegardes/f12005.ini", "x"}), "réserve"},
        {"other archive", beside({"photos.zip", "x"}), "réserve"},
        {"program, no key", beside({"circuidex", "x"}), "donnée"},
        {"script, no key", beside({"Photos/a.sh", "x"}), "donnée"},
        {"library, no key", beside({"platforms/liba.so", "x"}), "donnée"},
        {"servers, no key", beside({"Serveurs.INI", "x"}), "donnée"},
        {"program's archive, no key", zipOf(season), "signée", "Circuidex.zip"},
        {"another content than listed, no key", zipOf(wrong), "contenu"},
        {"unsigned", good, "pas signée", "miseajour.zip", &ours},
        {"list without signature", zipOf(withManifest(season, "miseajour.zip", 7, nullptr)), "pas signée",
         "miseajour.zip", &ours},
        {"another's signature", genuine, "autre clé", "miseajour.zip", &others},
        {"changed list", zipOf(otherList), "pas celle de ce contenu", "miseajour.zip", &ours},
        {"changed file", zipOf(otherFile), "contenu", "miseajour.zip", &ours},
        {"unlisted file", zipOf(more), "pas celui de cette", "miseajour.zip", &ours},
        {"listed file absent", zipOf(less), "pas celui de cette", "miseajour.zip", &ours},
        {"signed for another", genuine, "signature est celle de", "Photos.zip", &ours},
        {"older", signedWith(ours, "miseajour.zip", 4, season), "plus ancienne", "miseajour.zip", &ours},
    };
}

TEST(Unpacking, RefusesHostileArchivesWhole)
{
    for (const Hostile &hostile : hostileArchives()) {
        SCOPED_TRACE(hostile.what);
        const TemporaryFolder folder;
        layDown(folder / "f12005.ini", "[gp]\r\nnogp=18\r\n");
        layDown(folder / hostile.archive, hostile.bytes);
        if (hostile.key) {
            layDown(folder / "serveurs.ini", serversWith(*hostile.key));
            layDown(folder / ".circuidex-numeros",
                    "[" + publicKeyLine(hostile.key->publicKey()) + "]\r\nmiseajour.zip=5\r\n");
        }
        const auto before = filesOf(folder.path());
        const std::vector<std::string> said = unpackAll(folder.path());
        ASSERT_EQ(said.size(), 1u);
        EXPECT_NE(said[0].find(hostile.said), std::string::npos) << said[0];
        EXPECT_EQ(said[0].find('\n'), std::string::npos);
        EXPECT_EQ(filesOf(folder.path()), before);
        EXPECT_FALSE(fs::exists(folder / ".circuidex-maj"));
    }
}

TEST(Unpacking, PutsDataInPlaceAndKeepsWhatItReplaces)
{
    const TemporaryFolder folder;
    layDown(folder / "F12006.INI", "[gp]\r\nnogp=1\r\n");
    layDown(folder / "A1.txt", "mon article");
    fs::create_directories(folder / "photos/Circuits");
    layDown(
        folder / "miseajour.zip",
        zipOf({{"./f12006.ini", "[gp]\r\nnogp=2\r\n", AE_IFREG, 0755}, {"a1.TXT", "autre"}, {"Année", " 2006 \r\n"}}));
    layDown(folder / "Photos.zip",
            zipOf({{"Photos", "", AE_IFDIR},
                   {"Photos\\Circuits\\Monaco.jpg", "image"},
                   {"Photos/Actu/Räikkönen.jpg", "image"}}));
    EXPECT_EQ(unpackAll(folder.path()), std::vector<std::string>());
    std::map<std::string, std::string> files = filesOf(folder.path());
    std::vector<std::string> kept;
    std::erase_if(files, [&](const auto &file) {
        const bool copy = file.first.starts_with("Sauvegardes/");
        if (copy)
            kept.push_back(file.second);
        return copy;
    });
    std::sort(kept.begin(), kept.end());
    EXPECT_EQ(kept, (std::vector<std::string>{"[gp]\r\nnogp=1\r\n", "mon article"}));
    EXPECT_EQ(files,
              (std::map<std::string, std::string>{{"F12006.INI", "[gp]\r\nnogp=2\r\n"},
                                                  {"A1.txt", "autre"},
                                                  {"Année", " 2006 \r\n"},
                                                  {"photos/Circuits/Monaco.jpg", "image"},
                                                  {"photos/Actu/Räikkönen.jpg", "image"}}));
    EXPECT_EQ(fs::status(folder / "F12006.INI").permissions() & fs::perms::owner_exec, fs::perms::none);
}

TEST(Unpacking, ReplacesTheProgramWhenSignedAndNeverByAnOlderOne)
{
    const TemporaryFolder folder;
    layDown(folder / "serveurs.ini", serversWith(ours));
    const auto edition = [&](std::uint64_t number) {
        layDown(folder / "Circuidex.zip",
                signedWith(ours, "Circuidex.zip", number, {{"circuidex", std::to_string(number), AE_IFREG, 0755}}));
        return unpackAll(folder.path()).size();
    };
    EXPECT_EQ(edition(20), 0u);
    EXPECT_NE(fs::status(folder / "circuidex").permissions() & fs::perms::owner_exec, fs::perms::none);
    EXPECT_EQ(edition(20), 0u); // the same again harms nothing
    EXPECT_EQ(edition(19), 1u);
    EXPECT_EQ(content(folder / "circuidex"), "20");
    layDown(folder / "serveurs.ini", std::string("[serveurs]\0\0\0\0", 14));
    EXPECT_EQ(edition(21), 1u); // the key may be in there
}

TEST(Unpacking, LeavesLinksAndFoldersInTheWayAlone)
{
    const TemporaryFolder folder, elsewhere;
    layDown(elsewhere / "f12006.ini", "x");
    fs::create_directory_symlink(elsewhere.path(), folder / "Photos");
    fs::create_symlink(elsewhere / "f12006.ini", folder / "f12006.ini");
    fs::create_directory(folder / "A1.txt");
    for (const char *name : {"Photos/a.jpg", "f12006.ini", "A1.txt"}) {
        layDown(folder / "miseajour.zip", zipOf({{name, "y"}}));
        EXPECT_EQ(unpackAll(folder.path()).size(), 1u) << name;
    }
    EXPECT_EQ(elsewhere.names(), std::vector<std::string>{"f12006.ini"});
    EXPECT_EQ(content(elsewhere / "f12006.ini"), "x");
}

TEST(Unpacking, TellsTheNextStartOnce)
{
    const TemporaryFolder folder;
    leaveNotice(folder.path(), {"Un.", "Deux."});
    EXPECT_EQ(takeNotice(folder.path()), "Un.\nDeux.");
    EXPECT_EQ(takeNotice(folder.path()), "");
    EXPECT_TRUE(folder.names().empty());
}

}
