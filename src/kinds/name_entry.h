// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Boxes into which a name is typed: of a Grand Prix, a driver or a team. The names met before are offered, and the
// known spelling of one that is typed a little differently. They are gathered when a name is first typed on the screen.
#include "kinds/name_search.h"
#include "results/known_names.h"
#include "shell/proposals.h"

#include <memory>

namespace circuidex {

namespace results {
class MainRecord;
}

// What is offered for a text, of names in this order.
Offers offersOf(const std::vector<std::string> &names, const QString &typed);

class NameEntry {
public:
    explicit NameEntry(const results::MainRecord &main) : m_main(main) { }

    // Each gives the box back.
    Edit *offerGrandsPrix(Edit *box) const { return offer(box, &results::KnownNames::grandsPrix); }
    Edit *offerDrivers(Edit *box) const { return offer(box, &results::KnownNames::drivers); }
    Edit *offerTeams(Edit *box) const { return offer(box, &results::KnownNames::teams); }
    Edit *offerSubjects(Edit *box, bool teams) const { return teams ? offerTeams(box) : offerDrivers(box); }
    // Where only a driver of the season can be meant.
    Edit *offerDriversOfSeason(Edit *box) const;

private:
    Edit *offer(Edit *box, std::vector<std::string> results::KnownNames::*names) const;

    const results::MainRecord &m_main;
    std::shared_ptr<std::optional<results::KnownNames>> m_known =
        std::make_shared<std::optional<results::KnownNames>>();
};

}
