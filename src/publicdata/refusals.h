// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a recording or an amendment says when nobody sits in front of it: nothing is asked, and whatever is said refuses it.
#include "store/dialogs.h"

namespace circuidex::publicdata {

class Refusals : public Dialogs {
public:
    void message(const std::string &text) override { said = text; }
    bool question(const std::string &) override { return false; }
    std::optional<std::string> chooseFile(const std::string &, const std::string &, const std::string &) override
    {
        return std::nullopt;
    }
    std::string said;
};

}
