// SPDX-License-Identifier: GPL-3.0-or-later
// How a few letters find a name.
#include "kinds/name_search.h"

#include "shell/text.h"

#include <gtest/gtest.h>

using namespace circuidex;

namespace {

const QStringList drivers{u"Vitantonio Liuzzi"_s, u"Antônio Pizzonia"_s,   u""_s,
                          u"Michael Schumacher"_s, u"Ralf Schumacher"_s,   u"Kimi Räikkönen"_s,
                          u"Fernando Alonso"_s,    u"Jean-Éric Vergne"_s};

struct Search {
    QString typed;
    int best; // -1 for none
    bool chooses;
    int only; // -1 for none
};

TEST(NameSearch, FindsTheBeginningOfAWordBeforeItsInside)
{
    const Search searches[] = {
        {u"ANTONIO"_s, 1, true, 1}, {u"itan"_s, 0, false, -1},   {u"schum"_s, 3, true, -1}, {u"ralf sch"_s, 4, true, 4},
        {u" raikk "_s, 5, true, 5}, {u"eric"_s, 7, true, 7},     {u"al"_s, 6, true, 6},     {u"a"_s, 1, true, -1},
        {u"fangio"_s, -1, false, -1}, {u" "_s, -1, false, -1},
    };
    for (const Search &search : searches) {
        const auto best = bestHit(drivers, search.typed);
        EXPECT_EQ(best ? best->index : -1, search.best) << search.typed.toStdString();
        EXPECT_EQ(best && best->chooses(), search.chooses) << search.typed.toStdString();
        EXPECT_EQ(onlyHit(drivers, search.typed).value_or(-1), search.only) << search.typed.toStdString();
    }
    EXPECT_EQ(onlyHit({u"Alonso Junior"_s, u"Alonso"_s}, u"alonso"_s), 1); // the whole name
}

}
