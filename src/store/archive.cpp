// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/archive.h"

#include "store/season.h"

namespace circuidex {

namespace {

// The first empty row, absent when all are taken.
std::optional<int> freeRow(const Season &archive)
{
    for (int row = 0; row < archiveRows; ++row)
        if (archive.read(keys::GP, keys::listed(row)).empty())
            return row;
    return std::nullopt;
}

bool listed(const Season &archive, std::string_view gpName)
{
    for (int row = 0; row < archiveRows; ++row)
        if (archive.read(keys::GP, keys::listed(row)) == gpName)
            return true;
    return false;
}

}

void archiveWinner(Store &store, std::string_view gpName, std::string_view year, std::string_view winner)
{
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    const auto row = freeRow(archive);
    if (!row)
        return;
    if (archive.read(keys::GP, keys::lastWinner(gpName)).empty()) {
        if (listed(archive, gpName))
            return;
        archive.write(keys::GP, keys::listed(*row), gpName);
        archive.write(keys::GP, keys::listCount, std::to_string(*row + 1));
    }
    archive.write(keys::GP, keys::lastWinner(gpName), winner);
    archive.write(keys::GP, keys::winner(gpName, year), winner);
}

std::string archivedWinner(const Store &store, std::string_view gpName, std::string_view year)
{
    return store.LireINI(keys::ARCHIVES, keys::GP, keys::winner(gpName, year));
}

void archiveCandidates(Store &store, const RecordCandidates &candidates)
{
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    const auto write = [&](std::string_view key, const std::string &text) {
        archive.write(keys::records, keys::record(key, candidateRow), text);
    };
    write("nompol", candidates.poleSitter);
    write("nomvic", candidates.winner);
    write("nompts", candidates.winner);
    write("pol", candidates.poles);
    write("vic", candidates.wins);
    write("ptstot", candidates.points);
}

}
