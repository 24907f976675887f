// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A season: a store and the stem of its file, with the readers and the counting steps that everything above stands on.
#include "store/keys.h"
#include "store/store.h"

namespace circuidex {

// The bounds of the data model.
inline constexpr int driverSlots = 26;     // numbers 1 to 26
inline constexpr int gpSlots = 20;         // 0 to 19
inline constexpr int classifiedPlaces = 8; // places 1 to 8
inline constexpr int gridPlaces = 26;      // places 1 to 26

// The driver whose number a result holds, 1 to 26; absent for nobody and for what is no driver's number.
inline std::optional<int> driverSlot(std::string_view number, const Numbers &numbers)
{
    return numbers.whole(number, 1, driverSlots);
}

// A season that is only read: what most screens need, and all that they can do with it.
class Season {
public:
    Season(const Store &store, std::string stem) : m_store(&store), m_stem(std::move(stem)) {}

    const std::string &stem() const { return m_stem; }
    const Store &store() const { return *m_store; }
    const Numbers &numbers() const { return m_store->numbers(); }

    std::string read(std::string_view section, std::string_view key) const
    {
        return m_store->LireINI(m_stem, section, key);
    }

    // A driver's key of section N°, by his number: driver("nom", 7).
    std::string driver(std::string_view prefix, std::string_view number) const;
    std::string driver(std::string_view prefix, int number) const;

    std::string nom(std::string_view number) const { return driver("nom", number); }
    std::string nom(int number) const { return driver("nom", number); }
    std::string ecurie(std::string_view number) const { return driver("ecurie", number); }
    std::string ecurie(int number) const { return driver("ecurie", number); }

    std::string namegp(int slot) const;
    std::string podium(int place, std::string_view gpName) const; // the driver's number, empty for nobody
    std::string grille(int place, std::string_view gpName) const; // the driver's name, empty for a free place

    // A Grand Prix is recorded when its first place is held.
    bool recorded(std::string_view gpName) const { return !podium(1, gpName).empty(); }

private:
    const Store *m_store;
    std::string m_stem;
};

// A season that may be changed: each step goes to the file at once.
class WritableSeason : public Season {
public:
    WritableSeason(Store &store, std::string stem) : Season(store, std::move(stem)), m_file(&store) {}

    Store &store() const { return *m_file; }

    // A key that no read finds again, because a name in it comes from a file of long ago and holds '=', say, is left out:
    // each such write would only add a line.
    void write(std::string_view section, std::string_view key, std::string_view value) const
    {
        if (KeyFile::isKey(key))
            m_file->EcrireINI(stem(), section, key, value);
    }

    // Adds the text of an amount, which may be negative, to a key. A key or an amount that is no number stays as it is.
    void add(std::string_view section, std::string_view key, std::string_view amount) const;
    void subtract(std::string_view section, std::string_view key, std::string_view amount) const;

    // The same for a counter that starts by itself: an empty key counts as 0.
    void addFromZero(std::string_view section, std::string_view key, std::string_view amount) const;
    void subtractFromZero(std::string_view section, std::string_view key, std::string_view amount) const;

private:
    Store *m_file;
};

}
