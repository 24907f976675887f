#pragma once
// Runs the program by commands, one a line, each answered by exactly one line: what a person would press, type and read.
// It reaches only what the screens register and has no rules of its own. docs/driver.md lists the commands.
#include "app/program.h"
#include "platform/platform.h"

#include <QStringList>

#include <deque>
#include <optional>

namespace circuidex {

// Boxes are answered at once: questions and file choices from a queue, otherwise by No and by cancelling.
class QueuedDialogs : public Dialogs {
public:
    void message(const std::string &text) override;
    bool question(const std::string &text) override;
    std::optional<std::string> chooseFile(const std::string &title, const std::string &filter,
                                          const std::string &preset) override;
    std::optional<std::string> chooseNewFile(const std::string &title, const std::string &filter) override;

    QStringList shown;
    QStringList asked; // title and preset of the file choices, a line each
    std::deque<QString> answers;
};

// Notes what was asked of the machine.
class RecordingPlatform : public Platform {
public:
    void print(QWidget &screen, const std::string &name, Printing how) override;
    void printText(const std::string &text, Printing how) override;
    bool play(const std::string &path) override;
    void startProgram(const std::string &path) override;
    void openAddress(const std::string &address) override;
    Room roomFor(const QWidget &) const override { return room; }

    QStringList calls;
    Room room{0, 0, 1024, 768}; // of the display that the screens are made for
};

class Driver {
public:
    Driver(const std::filesystem::path &folder, Numbers numbers);

    // The answer to one command line; absent for an empty line and a comment.
    std::optional<QString> execute(const QString &line);
    bool ended() const { return m_ended; }
    Program &program() { return m_program; }
    RecordingPlatform &platform() { return m_platform; }

private:
    std::optional<QString> dispatch(const QString &command, const QString &arguments);
    std::optional<QString> onScreens(const QString &command, const QString &argument);
    std::optional<QString> onControl(const QString &command, const QString &argument);
    std::optional<QString> onFiles(const QString &command, const QString &argument);
    QString run(const QString &run) const;
    Control *find(const QString &reference, QString &error) const;

    QueuedDialogs m_dialogs;
    RecordingPlatform m_platform;
    Program m_program;
    bool m_ended = false;
};

}
