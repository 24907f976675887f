// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The archive outlives the seasons: the list of all Grand Prix names, who won each of them in which year, the
// champions, and the candidates for the all-time lists. Winners are kept by name, since a number means something in one
// season only.
#include "store/store.h"

namespace circuidex {

inline constexpr int archiveRows = 61; // names that a recording searches, rows 0 to 60
inline constexpr int candidateRow = 22; // where a recording leaves the newcomers to the all-time lists

// Notes the winner of a Grand Prix, as the last one and as the one of that year, and adds a name never met to the list.
// With all rows taken, or a listed name that has no winner yet, nothing is noted.
void archiveWinner(Store &store, std::string_view gpName, std::string_view year, std::string_view winner);

// The name of the winner, empty when none is known.
std::string archivedWinner(const Store &store, std::string_view gpName, std::string_view year);

// Career figures of a race's pole-sitter and winner, as text.
struct RecordCandidates {
    std::string poleSitter, poles;
    std::string winner, wins, points;
};

void archiveCandidates(Store &store, const RecordCandidates &candidates);

}
