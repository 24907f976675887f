// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The line under the letter of a button that presses it together with Alt. It lies over the button, whose caption stays
// word for word what it is.
#include <QChar>
#include <QString>

#include <functional>

class QAbstractButton;

namespace circuidex {

// Where the letter stands in a caption: at the beginning of a word if it can, and not in the mark "[F]" of an open
// screen; -1 when it isn't there.
qsizetype placeOfLetter(const QString &caption, QChar letter);

void underline(QAbstractButton &button, QChar letter);

}
