// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/name_search.h"

#include "shell/text.h"

#include <algorithm>

namespace circuidex {

std::optional<Fit> fitOf(const QString &name, const QString &typed)
{
    const QString in = folded(name), part = folded(typed.trimmed());
    std::optional<Fit> best;
    for (qsizetype at = part.isEmpty() ? -1 : in.indexOf(part); at >= 0; at = in.indexOf(part, at + 1)) {
        const Fit here = at == 0 ? Fit::beginning : in.at(at - 1).isLetterOrNumber() ? Fit::inside : Fit::word;
        best = std::min(here, best.value_or(here));
    }
    return best;
}

std::optional<Hit> bestHit(const QStringList &names, const QString &typed)
{
    std::optional<Hit> best;
    for (int i = 0; i < names.size(); ++i)
        if (const auto fit = fitOf(names.at(i), typed); fit && (!best || *fit < best->fit))
            best = Hit{i, *fit};
    return best;
}

std::optional<int> onlyHit(const QStringList &names, const QString &typed)
{
    std::optional<int> found;
    int hits = 0;
    for (int i = 0; i < names.size(); ++i) {
        const auto fit = fitOf(names.at(i), typed);
        if (fit && folded(names.at(i)) == folded(typed.trimmed()))
            return i;
        if (!fit || *fit == Fit::inside)
            continue;
        found = i;
        ++hits;
    }
    return hits == 1 ? found : std::nullopt;
}

}
