#include "store/gp_list.h"

#include "store/history.h"
#include "store/names.h"
#include "store/season.h"

#include <algorithm>
#include <utility>

namespace circuidex {

namespace {

constexpr int lastMoved = gpListTidied - 2;

std::vector<std::string> readRows(const Store &store, int count)
{
    std::vector<std::string> rows;
    for (int row = 0; row < count; ++row)
        rows.push_back(store.LireINI(keys::ARCHIVES, keys::GP, keys::listed(row)));
    return rows;
}

// Empties a row and moves those behind it up, the last one of them leaving a free row.
void take(std::vector<std::string> &rows, std::ptrdiff_t row)
{
    rows[static_cast<std::size_t>(row)].clear();
    if (row < lastMoved)
        std::rotate(rows.begin() + row, rows.begin() + row + 1, rows.begin() + lastMoved + 1);
}

}

std::vector<std::string> gpList(const Store &store)
{
    return readRows(store, gpListRows);
}

void deleteListedGp(Store &store, int row)
{
    const WritableSeason archive(store, std::string(keys::ARCHIVES));
    const Action undoable(store, "retrait " + ofName(archive.read(keys::GP, keys::listed(row))) + " de la liste");
    if (archive.numbers().value(archive.read(keys::GP, keys::listCount)) == row)
        archive.subtract(keys::GP, keys::listCount, "1");
    archive.write(keys::GP, keys::listed(row), "");
}

std::vector<std::string> tidied(std::vector<std::string> rows)
{
    rows.resize(gpListTidied);
    for (std::size_t kept = 0; kept < rows.size(); ++kept)
        for (std::size_t other = 0; other < rows.size(); ++other)
            if (other != kept && rows[other] == rows[kept])
                take(rows, std::ptrdiff_t(other));
    return rows;
}

void tidyGpList(Store &store)
{
    const std::vector<std::string> before = readRows(store, gpListTidied);
    const std::vector<std::string> after = tidied(before);
    const Action undoable(store, "nettoyage de la liste des Grands Prix");
    for (int row = 0; row < gpListTidied; ++row)
        if (const std::string &name = after[std::size_t(row)]; name != before[std::size_t(row)])
            store.EcrireINI(keys::ARCHIVES, keys::GP, keys::listed(row), name);
}

}
