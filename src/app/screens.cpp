// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens.h"

// One line a file of src/screens/.
#define CIRCUIDEX_SCREENS(screen) \
    screen(form1)                 \
    screen(form2)                 \
    screen(form3)                 \
    screen(form4)                 \
    screen(form5)                 \
    screen(form6)                 \
    screen(form7)                 \
    screen(form8)                 \
    screen(form11)                \
    screen(form12)                \
    screen(form13)                \
    screen(form14)                \
    screen(form15)                \
    screen(form16)                \
    screen(form17)                \
    screen(form19)                \
    screen(form20)                \
    screen(form21)                \
    screen(form23)                \
    screen(form24)                \
    screen(form25)                \
    screen(form26)                \
    screen(form27)                \
    screen(form28)                \
    screen(form29)                \
    screen(form30)                \
    screen(form31)                \
    screen(form32)                \
    screen(form33)                \
    screen(form34)                \
    screen(form36)                \
    screen(form37)                \
    screen(form38)                \
    screen(form39)                \
    screen(form40)                \
    screen(form42)                \
    screen(form46)                \
    screen(form47)                \
    screen(form48)                \
    screen(form49)                \
    screen(form50)                \
    screen(form51)                \
    screen(form59)                \
    screen(form60)                \
    screen(form61)                \
    screen(form62)                \
    screen(form65)                \
    screen(form67)                \
    screen(form68)                \
    screen(form69)                \
    screen(form70)                \
    screen(form72)                \
    screen(form75)                \
    screen(form78)                \
    screen(form80)                \
    screen(form85)                \
    screen(form89)                \
    screen(form91)                \
    screen(form93)                \
    screen(form94)                \
    screen(form96)                \
    screen(form98)                \
    screen(form100)               \
    screen(form101)               \
    screen(frmmain)               \
    screen(raccourcis)            \
    screen(historique)            \
    screen(importer)              \
    screen(intro)                 \
    screen(verifier)              \
    screen(menuScreens)

namespace circuidex {

namespace screens {
#define CIRCUIDEX_DECLARE(rows) ScreenRows rows();
CIRCUIDEX_SCREENS(CIRCUIDEX_DECLARE)
}

ScreenRows screenRows()
{
    ScreenRows all;
    const auto append = [&all](ScreenRows rows) {
        for (ScreenRow &row : rows)
            all.push_back(std::move(row));
    };
#define CIRCUIDEX_APPEND(rows) append(screens::rows());
    CIRCUIDEX_SCREENS(CIRCUIDEX_APPEND)
    return all;
}

}
