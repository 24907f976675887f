// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The key to the four seasons that a screen sets side by side, the newest first: each head says its year in the colour
// of its season, and in its tip who became champion and where the driver or the team on show ended.
#include "comparisons/season_heads.h"
#include "shell/screen.h"

#include <QColor>

namespace circuidex {

using comparisons::seasonsCompared;

// "2004: champion Michael Schumacher", and below it the subject's place, unless nobody is compared.
QString seasonTip(const comparisons::SeasonHead &head, const std::string &subject);

// Four labels of a screen, registered before.
class SeasonKey {
public:
    struct Head {
        QString name;
        std::optional<int> index = {};
    };
    using Heads = std::array<Head, seasonsCompared>;
    using Colours = std::array<QColor, seasonsCompared>;

    // The prefix stands before the year. The text takes the colour that is read best on the season's.
    SeasonKey(const Screen &screen, Heads heads, const Colours &colours, QString prefix = u"Saison "_s);

    // A season that is no year leaves the heads as they are.
    void show(const Store &store, std::string_view newestYear, comparisons::SubjectKind kind,
              const std::string &subject) const;

private:
    const Screen &m_screen;
    Heads m_heads;
    QString m_prefix;
};

}
