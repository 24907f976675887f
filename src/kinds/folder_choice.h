// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Another program folder: the user chooses it, and the program starts anew on it.
#include "shell/screen.h"

namespace circuidex {

// What stands in the way, for the user; empty when nothing did, or when he chose none. `leave` ends this program once
// the other one is started.
QString openAnotherFolder(Context &context, const std::function<void()> &leave);

}
