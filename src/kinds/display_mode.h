#pragma once
// The display's mode: the one that the user had before the program, put back.
#include "shell/screen.h"

namespace circuidex {

// Asks for it when the season that is open says that the program had changed it.
void restoreDisplay(const Context &context);

}
