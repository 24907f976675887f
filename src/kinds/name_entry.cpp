// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/name_entry.h"

#include "results/main_record.h"
#include "shell/text.h"
#include "shell/widgets.h"

#include <algorithm>

namespace circuidex {

namespace {

constexpr std::size_t mostOffered = 8;

struct Offered {
    Fit fit;
    QString name;
};

// "MF1" may be a name of its own beside "MF1 Toyota", "Mona" beside "Monaco" is none.
bool isWholeWord(const QString &name, const QString &typed)
{
    const QString part = folded(typed.trimmed()), in = folded(name);
    const qsizetype behind = in.indexOf(part) + part.size();
    return behind >= in.size() || !in.at(behind).isLetterOrNumber();
}

}

Offers offersOf(const std::vector<std::string> &names, const QString &typed)
{
    std::vector<Offered> found;
    for (const std::string &each : names)
        if (const QString name = qt(each); !name.isEmpty())
            if (const auto fit = fitOf(name, typed); fit && *fit != Fit::inside)
                found.push_back({*fit, name});
    std::ranges::stable_sort(found, {}, &Offered::fit);
    found.resize(std::min(found.size(), mostOffered));
    Offers offers;
    for (const Offered &each : found)
        offers.names << each.name;
    offers.names.removeDuplicates();
    if (offers.names == QStringList{typed})
        offers.names.clear(); // nothing to add
    offers.firstChosen = !offers.names.isEmpty() && !isWholeWord(offers.names.first(), typed);
    if (offers.names.isEmpty() || folded(offers.names.first()) == folded(typed.trimmed()))
        offers.spelling = qt(results::knownSpelling(names, typed.trimmed().toStdString()).value_or(std::string()));
    if (offers.names == QStringList{offers.spelling})
        offers.names.clear();
    return offers;
}

Edit *NameEntry::offer(Edit *box, std::vector<std::string> results::KnownNames::*names) const
{
    new Proposals(box, [&main = m_main, known = m_known, names](const QString &typed) {
        if (!*known)
            *known = results::knownNames(main.season());
        return offersOf(**known.*names, typed);
    });
    return box;
}

Edit *NameEntry::offerDriversOfSeason(Edit *box) const
{
    new Proposals(
        box, [&main = m_main](const QString &typed) { return offersOf(results::driversOf(main.season()), typed); });
    return box;
}

}
