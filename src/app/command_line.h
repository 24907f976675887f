// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the program is asked for in a terminal or by a script. Whatever needs no window runs without a display, on a
// folder opened read-only: nothing in it changes, no other running program is in the way, and nothing is asked of the
// network. An import writes, so it wants the folder for itself.
#include <QCommandLineParser>
#include <QStringList>

#include <filesystem>
#include <optional>

namespace circuidex {

class Export;
enum class Format;

namespace exits { // statuses
inline constexpr int done = 0, failed = 1, wrongUse = 2;
}

// Called before there is an application: what comes up without a window needs no display.
void chooseDisplay(int argc, char **argv);

class CommandLine {
public:
    explicit CommandLine(const QStringList &arguments); // the program's name first, Qt's own options taken out

    // Does what was asked for and gives the exit status; absent when the program shall come up with its window. What
    // goes wrong is told in French on standard error.
    std::optional<int> run() const;

    std::filesystem::path folder() const; // "--dossier", otherwise the program folder

private:
    friend void chooseDisplay(int argc, char **argv);

    QString fault() const; // of the words themselves; empty without one
    QString missingFolder() const; // the same of the folder
    bool wantsWindow() const;
    std::optional<Format> format() const;
    int exported() const;
    int one(Export &source, Format format) const;
    int everything(Export &source, Format format) const;
    int imported() const;
    QString value(const char16_t *option) const { return m_parser.value(QString::fromUtf16(option)); }
    bool has(const char16_t *option) const { return m_parser.isSet(QString::fromUtf16(option)); }

    QStringList m_arguments;
    QCommandLineParser m_parser;
    bool m_understood;
};

}
