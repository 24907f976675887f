// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The display's mode: 1024 by 768, which the screens are made for, and back to the one that the user had before the
// program. A mode that the display refuses, and one that needs a restart of the machine, is told in a box.
#include "shell/screen.h"

namespace circuidex {

void adaptDisplay(const Context &context);

// When the season that is open says that the program had changed it.
void restoreDisplay(const Context &context);

// The display isn't adapted any more from now on, and has its mode back.
void stopAdaptingDisplay(const Context &context);

}
