// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The way to every screen, as plain data: the drop-downs of the main screen's buttons, the side screens beside them,
// and the list of all windows by theme; each entry with the screen that it opens. Also where menus stand on the
// display.
#include "shell/twips.h"

#include <span>
#include <string_view>

namespace circuidex::menus {

// What one line of a menu leads to: a side screen or a screen of the program.
struct Entry {
    std::string_view caption;
    std::string_view screen = {}; // none: a heading among the entries
    std::string_view press = {}; // a button of that screen, pressed once it is open
    bool season = false; // the caption ends with the main screen's season
    bool insteadOfMain = false; // the main screen goes out of sight, until that screen closes
    std::string_view tag = {}; // tells a side screen which of its drop-downs opened it
    std::string_view control = {}; // a name of its own among the labels of the window list
};

enum class Standing { atButton, nearTop, levelWithEntry, inTheMiddle, nearBottom };

inline constexpr int maxEntries = 6;

struct Menu {
    std::string_view name, heading;
    Standing standing;
    Entry rows[maxEntries];
    std::string_view button = {}; // of the main screen, for a drop-down
    std::string_view help = {}; // the box of the help that a click on the heading shows

    std::span<const Entry> entries() const; // without the one that closes the menu
    bool dropDown() const { return standing == Standing::atButton; }
};

// Drop-downs first, then side screens.
std::span<const Menu> all();
const Menu *find(std::string_view name);

// The drop-down that opens a side screen with this tag; null when none does.
const Menu *parentOf(std::string_view side, std::string_view tag);

// A heading of the window list and what stands under it.
struct Group {
    int column;
    std::string_view heading;
    Entry rows[11];

    std::span<const Entry> entries() const;
};

std::span<const Group> windowList();

inline constexpr std::string_view windowListText = "Toutes les fenêtres de statistiques et d'information de Circuidex "
                                                   "sont répertoriées ici par thème, afin d'avoir une "
                                                   "vision générale des fonctions du logiciel:";
inline constexpr double windowListTop = 500; // twips
inline constexpr double windowListLeft = 350; // twips of it that show while it is hidden

// The size given, at the place where a side screen stands beside its drop-down. `entryTop` is that of its entry, within
// the drop-down.
TwipRect besideParent(Standing standing, const TwipRect &parent, const TwipRect &own, double entryTop);

// The size given, to the left of its button, whole on the display, with room at its right for a side screen of this
// width.
TwipRect besideButton(const TwipRect &button, const TwipRect &own, const TwipRect &display, double sideWidth);

// The left edge of the window list when all but its right edge is hidden.
constexpr double hiddenLeft(double width)
{
    return windowListLeft - width;
}

}
