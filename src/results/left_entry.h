// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What was typed and not stored: known while it is typed, and when its screen is left without storing it, kept until
// the program ends, so that it can be taken up again. The screen itself always opens on what is stored.
#include "store/field.h"

#include <optional>
#include <string>
#include <vector>

namespace circuidex::results {

using Texts = std::vector<std::string>; // of the boxes, in the screen's own order

struct LeftEntry {
    std::string screen; // "Form34"
    std::string season; // that it was typed for
    std::string subject; // the number of the driver, the name of the race; empty where the season says all
    Texts texts;
    Texts beside = {}; // what else the screen needs to know to show it again
    bool sameThing(const LeftEntry &other) const
    {
        return screen == other.screen && season == other.season && subject == other.subject;
    }
};

class LeftEntries {
public:
    static constexpr std::size_t most = 10;

    void note(LeftEntry left); // takes the place of an earlier one of the same thing
    void forget(const LeftEntry &sameThing);
    std::optional<LeftEntry> take(); // the one left last
    const LeftEntry *last() const { return m_left.empty() ? nullptr : &m_left.back(); }

    const LeftEntry *resuming = nullptr; // while its screen is opened for it
    Field changed; // anew with every change, to listen to

private:
    void tell() { changed.set(std::to_string(++m_changes)); }

    std::vector<LeftEntry> m_left; // the one left last stands last
    int m_changes = 0;
};

// One screen's boxes beside what is stored of them.
class TypedEntry {
public:
    // `loaded` and `stored` say that the boxes now hold what the file holds of this thing.
    void loaded(LeftEntry thing) { m_settled = std::move(thing); }
    void stored(LeftEntry thing, LeftEntries &left);

    const LeftEntry *thing() const { return m_settled ? &*m_settled : nullptr; }
    bool unsaved(const Texts &now) const { return m_settled && m_settled->texts != now; }
    // Before the boxes show something else, or the screen closes: what is unsaved is noted.
    void leave(const Texts &now, LeftEntries &left, Texts beside = {});

private:
    std::optional<LeftEntry> m_settled;
};

}
