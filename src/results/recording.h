// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Recording a Grand Prix: what the user entered on the main screen becomes points, wins, poles and podiums of the
// drivers, points of the teams, and a line of the archive. Totals are kept by adding and never worked out anew.
#include "results/main_record.h"

namespace circuidex::results {

enum class Recording {
    refused,
    lost, // a write was lost, which the status says; nothing of it goes to the archive
    done
};

// The recording of the button "Enregistrer le Grand Prix". Refuses, with a message, a race without a name and one that
// is recorded already; the date is noted all the same. A name that the files can't carry, or a season that is no year,
// is refused before anything is written.
Recording recordGrandPrix(MainRecord &main);

// The same for a simulated race: nothing goes to the archive and no status is shown.
Recording recordSimulatedGrandPrix(MainRecord &main);

// What an action on the Grand Prix on show leaves behind it: told by the season's lost writes from here to end().
class ActionOnSeason {
public:
    explicit ActionOnSeason(MainRecord &main);

    // False when the season lacks a write; the status then says so and calls the action by this name.
    bool end(const std::string &action);

private:
    MainRecord &m_main;
    std::string m_stem;
    unsigned m_lost;
};

// The part that an amendment shares: name, result, teams, pole and drivers are written, without any question.
void enterResult(MainRecord &main);

// Leaves the pole-sitter and the winner, with their career figures, to the all-time lists.
void proposeRecords(MainRecord &main);

// True when one of the eight places of the Grand Prix is held.
bool hasResult(const Season &season, std::string_view gpName);

// The question that stands before the recording assistant: false, with a message, when the race on show is recorded.
bool mayStartAssistant(MainRecord &main);

}
