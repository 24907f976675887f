// SPDX-License-Identifier: GPL-3.0-or-later
// How long the store takes to parse, read and write a season, beside other readers of the same file.
#include "store/store.h"
#include "store/text.h"

#ifdef CIRCUIDEX_BENCH_QT
#include <QSettings>
#endif

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>

#ifdef CIRCUIDEX_BENCH_GLIB
#include <glib.h>
#endif

using namespace circuidex;

namespace {

const char *const races[] = {"Australie",      "Malaisie", "Bahreïn",         "Brésil",  "Imola",
                             "Espagne",        "Monaco",   "Grande bretagne", "Canada",  "France",
                             "Europe",         "Autriche", "Allemagne",       "Hongrie", "Turquie",
                             "Italie (monza)", "Belgique", "Japon",           "Chine",   "Émirats"};
const char *const teams[] = {"Ferrari", "Renault", "McLaren", "Williams", "Toyota", "Sauber", "Jordan", "Minardi"};

std::string numbered(std::string_view text, int number)
{
    return std::string(text).append(std::to_string(number));
}

// A season of some 20 KB in UTF-8, with the keys that the program writes.
std::string seasonText()
{
    std::string text;
    const auto line = [&text](std::string_view key, std::string_view value) {
        text.append(key).append("=").append(value).append("\r\n");
    };
    text += "[N°]\r\n";
    for (int driver = 1; driver <= 26; ++driver) {
        line(numbered("nom", driver), numbered("Élodie d'Arcy ", driver));
        line(numbered("ecurie", driver), teams[driver % 8]);
        for (const char *counter : {"nbpts", "vic", "nbpol", "nbpod", "abandon", "nbgp", "meilleurtour", "titre"})
            line(numbered(counter, driver), std::to_string(driver * 3 % 17));
    }
    for (const char *team : teams)
        for (int slot = 0; slot < 20; ++slot)
            line(numbered(std::string(team).append("ecuriepts/gp"), slot), std::to_string(slot % 18));
    for (const char *race : races) {
        line(std::string("pol").append(race), "7");
        for (int place = 1; place <= 8; ++place)
            line(numbered(std::string(race).append("grilledepart"), place - 2), numbered("Élodie ", place));
    }
    for (int driver = 1; driver <= 26; ++driver)
        for (const char *team : {"dernier", "prochain"})
            line(numbered(std::string("contrat").append(team), driver), teams[driver % 7]);
    text += "[gp]\r\n";
    for (int slot = 0; slot < 20; ++slot)
        line(numbered("namegp", slot), races[slot]);
    text += "[podium]\r\n";
    for (const char *race : races)
        for (int place = 1; place <= 8; ++place)
            line(numbered("podium", place).append(race), std::to_string(place + 3));
    return text;
}

const std::string &seasonBytes()
{
    static const std::string bytes = toCodePage(seasonText());
    return bytes;
}

class Folder {
public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "circuidex-bench-XXXXXX").string();
        if (const char *made = ::mkdtemp(name.data()))
            m_path = made;
        std::ofstream(m_path / "f12005.ini", std::ios::binary) << seasonBytes();
        std::ofstream(m_path / "utf8.ini", std::ios::binary) << seasonText();
    }
    ~Folder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;
    const std::filesystem::path &path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

// Opening a file and reading one key of it, from nothing.

void openStore(benchmark::State &state)
{
    const Folder folder;
    for (auto _ : state)
        benchmark::DoNotOptimize(Store(folder.path()).LireINI("2005", "podium", "podium1Brésil"));
    state.SetLabel(std::to_string(seasonBytes().size()) + " bytes");
}
BENCHMARK(openStore)->Unit(benchmark::kMicrosecond);

#ifdef CIRCUIDEX_BENCH_QT
void openQSettings(benchmark::State &state)
{
    const Folder folder;
    const std::string path = (folder.path() / "utf8.ini").string();
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming(); // QSettings shares what is parsed already: each round has a file of its own
        const std::string fresh = numbered(path, ++round);
        std::filesystem::copy_file(path, fresh);
        state.ResumeTiming();
        benchmark::DoNotOptimize(QSettings(QString::fromStdString(fresh), QSettings::IniFormat)
                                     .value(QStringLiteral("podium/podium1Monaco"))
                                     .toString());
    }
}
BENCHMARK(openQSettings)->Unit(benchmark::kMicrosecond)->Iterations(500);
#endif

#ifdef CIRCUIDEX_BENCH_GLIB
void openGKeyFile(benchmark::State &state)
{
    const Folder folder;
    const std::string path = (folder.path() / "utf8.ini").string();
    for (auto _ : state) {
        GKeyFile *file = g_key_file_new();
        g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr);
        char *value = g_key_file_get_string(file, "podium", "podium1Monaco", nullptr);
        benchmark::DoNotOptimize(value);
        g_free(value);
        g_key_file_free(file);
    }
}
BENCHMARK(openGKeyFile)->Unit(benchmark::kMicrosecond);
#endif

// Reading a key of a season that is parsed already.

void readStore(benchmark::State &state)
{
    const Folder folder;
    const Store store(folder.path());
    for (auto _ : state)
        benchmark::DoNotOptimize(store.LireINI("2005", "N°", "Ferrariecuriepts/gp4"));
}
BENCHMARK(readStore);

void readStoreAccented(benchmark::State &state)
{
    const Folder folder;
    const Store store(folder.path());
    for (auto _ : state)
        benchmark::DoNotOptimize(store.LireINI("2005", "N°", "Brésilgrilledepart3"));
}
BENCHMARK(readStoreAccented);

#ifdef CIRCUIDEX_BENCH_QT
void readQSettings(benchmark::State &state)
{
    const Folder folder;
    const QSettings settings(QString::fromStdString((folder.path() / "utf8.ini").string()), QSettings::IniFormat);
    const QString key = QStringLiteral("podium/podium1Monaco");
    for (auto _ : state)
        benchmark::DoNotOptimize(settings.value(key).toString());
}
BENCHMARK(readQSettings);
#endif

#ifdef CIRCUIDEX_BENCH_GLIB
void readGKeyFile(benchmark::State &state)
{
    const Folder folder;
    GKeyFile *file = g_key_file_new();
    g_key_file_load_from_file(file, (folder.path() / "utf8.ini").c_str(), G_KEY_FILE_NONE, nullptr);
    for (auto _ : state) {
        char *value = g_key_file_get_string(file, "podium", "podium1Monaco", nullptr);
        benchmark::DoNotOptimize(value);
        g_free(value);
    }
    g_key_file_free(file);
}
BENCHMARK(readGKeyFile);
#endif

// The parts without a file.

void parse(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(KeyFile(seasonBytes()));
}
BENCHMARK(parse)->Unit(benchmark::kMicrosecond);

void replaceInMemory(benchmark::State &state)
{
    KeyFile file(seasonBytes());
    int round = 0;
    for (auto _ : state)
        file.set("podium", "podium1Monaco", ++round % 2 ? "7" : "12");
}
BENCHMARK(replaceInMemory);

void appendInMemory(benchmark::State &state)
{
    KeyFile file(seasonBytes());
    int round = 0;
    for (auto _ : state) {
        if (++round % 256 == 0)
            file = KeyFile(seasonBytes());
        file.set("gp", numbered("new", round), "7");
    }
}
BENCHMARK(appendInMemory);

// Writing, with the file in its place each time.

void writeReplace(benchmark::State &state)
{
    const Folder folder;
    Store store(folder.path());
    int round = 0;
    for (auto _ : state)
        store.EcrireINI("2005", "podium", "podium1Brésil", std::to_string(++round));
}
BENCHMARK(writeReplace)->Unit(benchmark::kMicrosecond);

void writeAppend(benchmark::State &state)
{
    const Folder folder;
    Store store(folder.path());
    int round = 0;
    for (auto _ : state)
        store.EcrireINI("2005", "gp", numbered("new", ++round), "7");
}
BENCHMARK(writeAppend)->Unit(benchmark::kMicrosecond)->Iterations(1000);

// What recording a Grand Prix comes to.
void record200WritesAndSettle(benchmark::State &state)
{
    const Folder folder;
    Store store(folder.path());
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int i = 0; i < 200; ++i)
            store.EcrireINI("2005", "podium", numbered("recorded", i), std::to_string(round));
        store.settle();
    }
}
BENCHMARK(record200WritesAndSettle)->Unit(benchmark::kMillisecond)->UseRealTime();

void settleAfterOneWrite(benchmark::State &state)
{
    const Folder folder;
    Store store(folder.path());
    int round = 0;
    for (auto _ : state) {
        store.EcrireINI("2005", "podium", "podium1Brésil", std::to_string(++round));
        store.settle();
    }
}
BENCHMARK(settleAfterOneWrite)->Unit(benchmark::kMicrosecond)->UseRealTime();

}
