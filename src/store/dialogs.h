// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// How the logic speaks to the user: message boxes, questions and file choices. The window system answers in the program,
// queued answers in tests and in the driver.
#include <optional>
#include <string>

namespace circuidex {

class Dialogs {
public:
    virtual ~Dialogs() = default;

    virtual void message(const std::string &text) = 0;

    // A question with Yes and No; true for Yes.
    virtual bool question(const std::string &text) = 0;

    // The same two, under a title of their own where boxes have one.
    virtual void messageUnder(const std::string &, const std::string &text) { message(text); }
    virtual bool questionUnder(const std::string &, const std::string &text) { return question(text); }

    // The chosen path, absent when the user cancels. The filter is in the form "Images (*.jpg *.png)"; the preset is the
    // file that stands in the choice at first.
    virtual std::optional<std::string> chooseFile(const std::string &title, const std::string &filter,
                                                  const std::string &preset = {}) = 0;

    // The same for a file to be written; a name typed without an ending gets that of the filter. Without anybody to ask,
    // the user has cancelled.
    virtual std::optional<std::string> chooseNewFile(const std::string &, const std::string &) { return std::nullopt; }

    // A folder that is there, or that the user makes.
    virtual std::optional<std::string> chooseFolder(const std::string &) { return std::nullopt; }
};

}
