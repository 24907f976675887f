// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What is picked in the lists of drivers, teams and Grands Prix goes to the screen that opened the list. The opener
// leaves a routing word in the list's Label2 or in its tag; here stands, word by word, which screen is meant, where it
// takes the number and the name, and which buttons are pressed there so that it computes anew.
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace circuidex {

enum class PickList { drivers, teams, grandsPrix };

// Where an opener leaves a word. The list looks at its tag first, then at its Label2, for any word.
enum class Mark { label2, tag };

// What a screen takes of a picked driver besides his name: his number, the row of the list from 0, or his number as the
// tag of the control that takes the name.
enum class NumberForm { slot, row, tagOfName };

// A row of the table. In the word, "#" stands for a number from first to last; in the controls it stands for the same
// number, and "a|b|c" names one control for each number. A control without a name isn't written.
struct Route {
    PickList list;
    Mark mark;
    std::string_view word;
    int first, last;
    std::string_view screen;
    NumberForm form;
    std::string_view number, name;
    std::array<std::string_view, 2> buttons = {}; // in order
    bool opens = false; // the screen is opened; otherwise only an open one is served
};

struct ControlName {
    std::string name; // empty for none
    std::optional<int> index;
};

// A route with the number of its word put in.
struct Destination {
    std::string_view screen;
    NumberForm form;
    ControlName number, name;
    std::array<std::string_view, 2> buttons;
    bool opens;
};

// All of them, those without a word apart.
std::span<const Route> allRoutes();

// Absent when nobody takes the choice. Without a word that it knows, the list of drivers serves the wins of a driver,
// that of Grands Prix the main screen, and that of teams nobody.
std::optional<Destination> destination(PickList list, std::string_view tag, std::string_view label2);

// Label2 for a word that nobody has.
Mark markOf(PickList list, std::string_view word);

}
