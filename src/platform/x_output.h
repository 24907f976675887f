// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The primary display of an X session, by the server's extension RandR.
#include "platform/display_output.h"

#include <memory>

namespace circuidex {

// Null without an X server, or when it has no RandR 1.3 or no display that is on.
std::unique_ptr<DisplayOutput> primaryXOutput();

}
