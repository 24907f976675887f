// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the quiet warnings of an entry stand, beside it: two lines at most, all of them in the tip. Its room is always
// there, so that nothing moves when one comes or goes.
#include "results/entry_warnings.h"
#include "shell/widgets.h"

namespace circuidex {

class WarningLine : public Label {
public:
    WarningLine();
    void show(const results::Warnings &warnings);
};

}
