// How long the user waits for public data: reading a release of full size, planning, importing and comparing seasons.
//
//     public_data [RELEASE]      all figures; without a release of one's own, of one made of the tests' small one: the
//     same
//                                seasons again and again under other years, some 60 MB unpacked
//     public_data read RELEASE   reading alone, for the memory that it takes
#include "online/archives.h"
#include "publicdata/comparison.h"
#include "publicdata/import.h"
#include "publicdata/reading.h"
#include "store/temporary_folder.h"

#include <chrono>
#include <cstdio>
#include <functional>

#include <nlohmann/json.hpp>

#include <archive.h>
#include <archive_entry.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace circuidex;
using namespace circuidex::test;
using namespace circuidex::publicdata;

namespace {

constexpr int copies = 7;

Members filesOf(const std::string &zip)
{
    Members files;
    archive *const from = archive_read_new();
    archive_read_support_format_zip(from);
    archive_read_open_filename(from, zip.c_str(), 1 << 16);
    for (archive_entry *entry = nullptr; archive_read_next_header(from, &entry) == ARCHIVE_OK;) {
        std::string text(static_cast<std::size_t>(archive_entry_size(entry)), '\0');
        archive_read_data(from, text.data(), text.size());
        files.push_back({archive_entry_pathname(entry), text});
    }
    archive_read_free(from);
    return files;
}

// Seasons follow one another from 1950 on.
void shift(nlohmann::ordered_json &row, const std::map<int, int> &places, int copy)
{
    const int seasons = static_cast<int>(places.size());
    if (row.contains("year"))
        row["year"] = 1950 + copy * seasons + places.at(row["year"].get<int>());
    for (const char *const key : {"raceId", row.contains("round") ? "id" : "raceId"})
        if (row.contains(key))
            row[key] = row[key].get<int>() + copy * 10'000;
}

std::size_t fullRelease(const std::string &small, const std::string &into)
{
    Members files = filesOf(small);
    std::map<int, int> places;
    for (const Member &file : files)
        if (file.name == "f1db-seasons.json")
            for (const auto &row : nlohmann::json::parse(file.content))
                places.emplace(row["year"].get<int>(), static_cast<int>(places.size()));
    std::size_t size = 0;
    for (Member &file : files) {
        if (file.name.starts_with("f1db-races") || file.name.starts_with("f1db-seasons")) {
            const auto rows = nlohmann::ordered_json::parse(file.content);
            nlohmann::ordered_json all = nlohmann::ordered_json::array();
            for (int copy = 0; copy < copies; ++copy)
                for (nlohmann::ordered_json row : rows) {
                    shift(row, places, copy);
                    all.push_back(std::move(row));
                }
            file.content = all.dump(2);
        }
        size += file.content.size();
    }
    layDown(into, zipOf(files));
    return size;
}

template <typename Work>
double seconds(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double processorTime()
{
    rusage used = {};
    ::getrusage(RUSAGE_SELF, &used);
    const auto s = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return s(used.ru_utime) + s(used.ru_stime);
}

int readAlone(const std::string &file)
{
    std::string refusal;
    const double wall = seconds([&] { refusal = readPublicData(file).refusal; });
    rusage used = {};
    ::getrusage(RUSAGE_SELF, &used);
    std::printf("read            %6.2f s, %.2f s of processor time, at most %ld MB  %s\n", wall, processorTime(),
                used.ru_maxrss / 1024, refusal.c_str());
    return refusal.empty() ? 0 : 1;
}

void import(const std::string &what, const Data &data, const std::vector<int> &years)
{
    const TemporaryFolder folder;
    Store store(folder.path());
    double longest = 0, compared = 0;
    const double before = processorTime();
    const double wall = seconds([&] {
        std::vector<ImportedSeason> seasons;
        for (const int year : years)
            seasons.push_back({*planSeason(data, year), false});
        Import run(store, data, std::move(seasons));
        for (bool more = true; more;)
            longest = std::max(longest, seconds([&] { more = run.step(); }));
        if (!run.done())
            std::printf("%s\n", run.failure().c_str());
    });
    const double processor = processorTime() - before;
    for (const int year : years)
        compared = std::max(compared, seconds([&] { compareSeason(Season(store, std::to_string(year)), data); }));
    std::printf("%-15s %6.2f s, %.2f s of processor time, longest step %.0f ms, longest comparison %.0f ms\n",
                what.c_str(), wall, processor, longest * 1000, compared * 1000);
}

}

int main(int argc, char **argv)
{
    if (argc == 3 && std::string_view(argv[1]) == "read")
        return readAlone(argv[2]);
    const std::string small = CIRCUIDEX_TESTDATA "/f1db-json-splitted.zip";
    const TemporaryFolder folder;
    const std::string full = argc == 2 ? argv[1] : (folder / "release.zip").string();
    if (argc == 1)
        std::printf("a release of %zu MB unpacked\n", fullRelease(small, full) >> 20);
    std::fflush(stdout);
    if (const pid_t child = ::fork(); child == 0)
        ::execl("/proc/self/exe", argv[0], "read", full.c_str(), nullptr);
    ::wait(nullptr);
    const ReadData release = readPublicData(full), twelve = readPublicData(small);
    std::vector<int> years;
    for (const Championship &each : twelve.data.championships)
        years.push_back(each.year);
    import("a season", twelve.data, {2004});
    import("twelve seasons", twelve.data, years);
    years.clear();
    for (const Championship &each : release.data.championships)
        years.push_back(each.year);
    if (!years.empty()) {
        import("the last season", release.data, {years.back()});
        import("all " + std::to_string(years.size()), release.data, years);
    }
    return 0;
}
