// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The table of all screens of the program.
#include "shell/screens.h"

namespace circuidex {

ScreenRows screenRows();

}
