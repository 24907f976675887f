// SPDX-License-Identifier: GPL-3.0-or-later
// The key file and the store beside four other readers of such files, on one season of the sample and on a file of
// 1 MB, all in one run: a table of times and of ratios to ours, in Markdown, as it stands in docs/performance.md.
//
//     key_files SAMPLE
//
// Each figure is the middle one of many short rounds. The others read the same text in UTF-8. QSettings always works on
// a file; the other three on bytes in memory, as our key file does.
#include "store/store.h"
#include "store/text.h"

#include <QSettings>

#include <INIReader.h>
#define SI_NO_CONVERSION
#include <SimpleIni.h>
#include <glib.h>
#include <ini.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>

using namespace circuidex;
namespace fs = std::filesystem;

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char *section = "podium", *key = "podium3Monaco";

template <typename Value>
void keep(const Value &value)
{
    asm volatile("" : : "r"(&value) : "memory");
}

// Nanoseconds of one call: the middle of 31 rounds of about a millisecond. What `before` does isn't counted.
double nanoseconds(const std::function<void()> &work, const std::function<void()> &before = nullptr)
{
    const auto time = [&](long calls) {
        if (before)
            before();
        const auto start = Clock::now();
        for (long i = 0; i < calls; ++i)
            work();
        return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / static_cast<double>(calls);
    };
    const long calls = before ? 1 : std::max(1L, static_cast<long>(1e6 / std::max(1.0, time(1))));
    double rounds[31];
    for (double &round : rounds)
        round = time(calls);
    std::nth_element(std::begin(rounds), rounds + 15, std::end(rounds));
    return rounds[15];
}

struct Row {
    const char *name;
    double ours, store, qt, glib, simple, inih; // 0: can't be done
};

struct Text {
    std::string name, utf8, bytes;
};

class Comparison {
public:
    Comparison(const Text &text, fs::path folder) : m_text(text), m_folder(std::move(folder))
    {
        write("f12004.ini", text.bytes);
        write("utf8.ini", text.utf8);
    }

    Row parse()
    {
        const std::string &utf8 = m_text.utf8;
        std::string fresh;
        int round = 0;
        return {"parse",
                nanoseconds([&] { keep(KeyFile(m_text.bytes)); }),
                nanoseconds([&] { keep(Store(m_folder).readBytes("2004", section, key)); }),
                nanoseconds([&] { keep(QSettings(QString::fromStdString(fresh), QSettings::IniFormat).allKeys()); },
                            [&] { // QSettings remembers what it has parsed: each round has a file of its own
                                fresh = (m_folder / ("q" + std::to_string(++round) + ".ini")).string();
                                fs::copy_file(m_folder / "utf8.ini", fresh, fs::copy_options::overwrite_existing);
                            }),
                nanoseconds([&] { g_key_file_free(loaded()); }),
                nanoseconds([&] {
                    CSimpleIniA ini;
                    ini.LoadData(utf8);
                    keep(ini);
                }),
                nanoseconds([&] { keep(INIReader(utf8.data(), utf8.size())); })};
    }

    Row read()
    {
        const KeyFile ours(m_text.bytes);
        const Store store(m_folder);
        const QSettings settings(path("utf8.ini"), QSettings::IniFormat);
        GKeyFile *const glib = loaded();
        CSimpleIniA simple;
        simple.LoadData(m_text.utf8);
        const INIReader inih(m_text.utf8.data(), m_text.utf8.size());
        const QString name = QStringLiteral("podium/podium3Monaco");
        const Row row{"read a key",
                      nanoseconds([&] { keep(ours.value(section, key)); }),
                      nanoseconds([&] { keep(store.LireINI("2004", section, key)); }),
                      nanoseconds([&] { keep(settings.value(name).toString()); }),
                      nanoseconds([&] { g_free(g_key_file_get_string(glib, section, key, nullptr)); }),
                      nanoseconds([&] { keep(simple.GetValue(section, key)); }),
                      nanoseconds([&] { keep(inih.Get(section, key, "")); })};
        g_key_file_free(glib);
        return row;
    }

    // A key with another value, or a new key, and all bytes of the file with it.
    Row change(const char *name, bool append)
    {
        int round = 0;
        const auto next = [&] { return append ? "new" + std::to_string(++round) : std::string(key); };
        const auto value = [&] { return std::to_string(++round % 26 + 1); };
        KeyFile ours(m_text.bytes);
        Store store(m_folder);
        QSettings settings(path("utf8.ini"), QSettings::IniFormat);
        GKeyFile *const glib = loaded();
        CSimpleIniA simple;
        simple.LoadData(m_text.utf8);
        const Row row{name,
                      nanoseconds([&] {
                          ours.set(section, next(), value());
                          keep(ours.bytes());
                      }),
                      nanoseconds([&] { store.EcrireINI("2004", section, next(), value()); }),
                      nanoseconds([&] {
                          settings.setValue(QStringLiteral("podium/") + QString::fromStdString(next()),
                                            QString::fromStdString(value()));
                          settings.sync();
                      }),
                      nanoseconds([&] {
                          g_key_file_set_string(glib, section, next().c_str(), value().c_str());
                          g_free(g_key_file_to_data(glib, nullptr, nullptr));
                      }),
                      nanoseconds([&] {
                          simple.SetValue(section, next().c_str(), value().c_str());
                          std::string bytes;
                          simple.Save(bytes);
                          keep(bytes);
                      }),
                      0};
        g_key_file_free(glib);
        write("f12004.ini", m_text.bytes);
        write("utf8.ini", m_text.utf8);
        return row;
    }

    // Without a store: the file read and parsed for each key, by the reader that keeps nothing but the key sought.
    double rereading()
    {
        const auto match = [](void *found, const char *in, const char *name, const char *value) {
            if (std::string_view(in) == section && std::string_view(name) == key)
                *static_cast<std::string *>(found) = value;
            return 1;
        };
        const std::string file = (m_folder / "utf8.ini").string();
        return nanoseconds([&] {
            std::string found;
            ini_parse(file.c_str(), match, &found);
            keep(found);
        });
    }

private:
    void write(const char *name, const std::string &bytes)
    {
        std::ofstream(m_folder / name, std::ios::binary | std::ios::trunc) << bytes;
    }
    QString path(const char *name) const { return QString::fromStdString((m_folder / name).string()); }
    GKeyFile *loaded() const
    {
        GKeyFile *file = g_key_file_new();
        g_key_file_load_from_data(file, m_text.utf8.data(), m_text.utf8.size(), G_KEY_FILE_NONE, nullptr);
        return file;
    }

    const Text &m_text;
    fs::path m_folder;
};

void print(const Row &row)
{
    const auto cell = [&row](double time) {
        char text[64] = "–";
        const char *const form = time < 1e4 ? "%.0f ns (%.1f)" : time < 1e6 ? "%.0f µs (%.1f)" : "%.1f ms (%.1f)";
        const double unit = time < 1e4 ? 1 : time < 1e6 ? 1e3 : 1e6;
        if (time > 0)
            std::snprintf(text, sizeof text, form, time / unit, time / row.ours);
        return std::string(text);
    };
    std::printf("| %s | %s | %s | %s | %s | %s | %s |\n", row.name, cell(row.ours).c_str(), cell(row.store).c_str(),
                cell(row.qt).c_str(), cell(row.glib).c_str(), cell(row.simple).c_str(), cell(row.inih).c_str());
}

// The season again and again, each time in sections of other names.
std::string enlarged(const std::string &season, std::size_t size)
{
    std::string all = season;
    for (int copy = 2; all.size() < size; ++copy)
        for (const char c : season) {
            if (c == ']')
                all += " " + std::to_string(copy);
            all += c;
        }
    return all;
}

// A start with 77 seasons on the disk beside the one that is shown: what the first read and the first write cost.
void manySeasons(const fs::path &folder, const std::string &season)
{
    const auto start = [&folder](bool write) {
        Store store(folder);
        store.protect();
        keep(store.LireINI("2004", section, key));
        if (write)
            store.EcrireINI("2004", section, key, std::to_string(Clock::now().time_since_epoch().count()));
    };
    std::printf("\n| Seasons on the disk | start and first read | and the first write of the run |\n|---|---|---|\n");
    for (const int count : {1, 77}) {
        for (int year = 2005; year < 2004 + count; ++year) {
            const fs::path file = folder / ("f1" + std::to_string(year) + ".ini");
            std::ofstream(file, std::ios::binary) << season;
            fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
        }
        start(true); // the very first run copies them all
        std::printf("| %d | %.0f µs | %.0f µs |\n", count, nanoseconds([&] { start(false); }) / 1e3,
                    nanoseconds([&] { start(true); }, [] {}) / 1e3);
    }
}

}

int main(int argc, char **argv)
{
    std::ifstream in(argc > 1 ? fs::path(argv[1]) / "f12004.ini" : fs::path(), std::ios::binary);
    const std::string season(std::istreambuf_iterator<char>(in), {});
    if (season.empty()) {
        std::fprintf(stderr, "usage: key_files SAMPLE\n");
        return 2;
    }
    for (const std::size_t size : {season.size(), std::size_t(1'000'000)}) {
        std::string name = (fs::temp_directory_path() / "circuidex-bench-XXXXXX").string();
        const fs::path folder = ::mkdtemp(name.data());
        Text text{{}, {}, enlarged(season, size)};
        text.utf8 = toUtf8(text.bytes);
        Comparison comparison(text, folder);
        std::printf("\n| %zu bytes | key file | store | QSettings | GKeyFile | SimpleIni | inih |\n"
                    "|---|---|---|---|---|---|---|\n",
                    text.bytes.size());
        print(comparison.parse());
        const Row read = comparison.read();
        print(read);
        print(comparison.change("replace a value", false));
        print(comparison.change("append a key", true));
        const double again = comparison.rereading();
        std::printf("\nReading the file again for each key: %.0f µs, %.0f times a read of the store.\n", again / 1e3,
                    again / read.store);
        if (size == season.size())
            manySeasons(folder, season);
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
}
