// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How a name is found by a few of its letters, wherever names are chosen by typing: in the pickers, the assistants and
// the name boxes of the main screen. Accents and capitals don't count. A word of the name that begins with what was
// typed goes before letters inside a word, and those alone never choose anybody: "antonio" is Antônio Pizzonia, and
// with him gone nobody, not Vitantonio Liuzzi.
#include <QStringList>

#include <optional>

namespace circuidex {

enum class Fit { beginning, word, inside }; // of the name, of a further word, of none

struct Hit {
    int index;
    Fit fit;
    bool chooses() const { return fit != Fit::inside; }
};

std::optional<Fit> fitOf(const QString &name, const QString &typed); // absent: the name doesn't hold what was typed

// The first of the best fitting names; absent when none fits or nothing was typed. Empty names fit nothing.
std::optional<Hit> bestHit(const QStringList &names, const QString &typed);

// The one name that is meant where no list shows the best: the whole name, or the only one with such a word.
std::optional<int> onlyHit(const QStringList &names, const QString &typed);

}
