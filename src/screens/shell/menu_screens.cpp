// SPDX-License-Identifier: GPL-3.0-or-later
// The drop-downs of the main screen and their side screens, one for each menu of the table.
#include "kinds/drop_down.h"
#include "shell/screens.h"

namespace circuidex::screens {

ScreenRows menuScreens()
{
    ScreenRows rows;
    for (const menus::Menu &menu : menus::all())
        rows.push_back(screenRow<DropDown>(qt(menu.name), qt(menu.heading)));
    return rows;
}

}
