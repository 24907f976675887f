// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Message boxes, questions and file choices of the window system, in French, above the program's own windows.
#include "store/dialogs.h"

#include <QString>

namespace circuidex {

class QtDialogs : public Dialogs {
public:
    void message(const std::string &text) override;
    bool question(const std::string &text) override;
    void messageUnder(const std::string &title, const std::string &text) override;
    bool questionUnder(const std::string &title, const std::string &text) override;
    std::optional<std::string> chooseFile(const std::string &title, const std::string &filter,
                                          const std::string &preset) override;
    std::optional<std::string> chooseNewFile(const std::string &title, const std::string &filter) override;
    std::optional<std::string> chooseFolder(const std::string &title) override;

private:
    QString m_folder; // where the last file was chosen
};

}
