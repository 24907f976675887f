#include "store/archive.h"

#include "store/season.h"

namespace circuidex {

namespace {

// The first empty row, absent when all are taken.
std::optional<int> freeRow(const Season &archive)
{
    for (int row = 0; row < archiveRows; ++row)
        if (archive.read(keys::GP, keys::join("N", std::to_string(row))).empty())
            return row;
    return std::nullopt;
}

bool listed(const Season &archive, std::string_view gpName)
{
    for (int row = 0; row < archiveRows; ++row)
        if (archive.read(keys::GP, keys::join("N", std::to_string(row))) == gpName)
            return true;
    return false;
}

}

void archiveWinner(Store &store, std::string_view gpName, std::string_view year, std::string_view winner)
{
    const Season archive(store, std::string(keys::ARCHIVES));
    const auto row = freeRow(archive);
    if (!row)
        return;
    if (archive.read(keys::GP, gpName).empty()) {
        if (listed(archive, gpName))
            return;
        archive.write(keys::GP, keys::join("N", std::to_string(*row)), gpName);
        archive.write(keys::GP, "NO", std::to_string(*row + 1));
    }
    archive.write(keys::GP, gpName, winner);
    archive.write(keys::GP, keys::join(gpName, year), winner);
}

std::string archivedWinner(const Store &store, std::string_view gpName, std::string_view year)
{
    return store.LireINI(keys::ARCHIVES, keys::GP, keys::join(gpName, year));
}

void archiveCandidates(Store &store, const RecordCandidates &candidates)
{
    const Season archive(store, std::string(keys::ARCHIVES));
    const auto write = [&](std::string_view key, const std::string &text) {
        archive.write(keys::record, keys::driver(key, candidateRow), text);
    };
    write("nompol", candidates.poleSitter);
    write("nomvic", candidates.winner);
    write("nompts", candidates.winner);
    write("pol", candidates.poles);
    write("vic", candidates.wins);
    write("ptstot", candidates.points);
}

}
