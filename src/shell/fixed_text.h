// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The long texts that come with the program: the help's topics and the readme, files of src/screens/shell/textes.
#include <QString>

namespace circuidex {

QString fixedText(const QString &name); // "vainqueurs"; empty when there is none

}
