// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Writes planned seasons into the program folder: recorded race by race by the program's own recording, in a folder of
// its own, and put in place as one at the end. Until then nothing of the user's is touched, so cancelling is
// dropping that folder; afterwards the import is one change.
#include "publicdata/planning.h"
#include "store/store.h"

#include <memory>

namespace circuidex::publicdata {

// The user has a season of that year: a file with more in it than a start of the program leaves, or one that is damaged,
// of which nobody can tell.
bool seasonExists(const Store &store, int year);

// What the archive has no room for: it lists 61 names of Grands Prix. Absent when all fit.
std::optional<Note> archiveNote(const Store &store, const Data &data);

struct ImportedSeason {
    PlannedSeason plan;
    bool replace = false; // the user's clear yes to replacing the season that exists
};

// Run from the event loop: each step takes some milliseconds.
class Import {
public:
    // The data must outlive the import.
    Import(Store &store, const Data &data, std::vector<ImportedSeason> seasons);
    ~Import(); // cancels what isn't done
    Import(const Import &) = delete;
    Import &operator=(const Import &) = delete;

    // One race more, say. False when there is nothing left to do: done, failed or cancelled.
    bool step();

    void cancel();

    int stepsDone() const;
    int stepsInAll() const;
    std::string doing() const; // "2004 : Monaco", what the next step does

    bool done() const; // all of it stands in the program folder
    const std::string &failure() const; // in French; empty when nothing failed
    const std::vector<std::string> &copies() const; // of what was replaced, in "Sauvegardes"

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}
