#pragma once
// Runs the program by commands, one a line, each answered by exactly one line: what a person would press, type and read.
// It reaches only what the screens register and has no rules of its own. docs/driver.md lists the commands.
#include "app/program.h"
#include "media/player_state.h"
#include "platform/platform.h"

#include <QStringList>

#include <deque>
#include <map>
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
    std::optional<std::string> chooseFolder(const std::string &title) override;

    QStringList shown;
    QStringList asked; // title and preset of the file choices, a line each
    std::deque<QString> answers;
};

// Plays every film alike, as it was told to.
class StandInPlayer : public media::Player {
public:
    explicit StandInPlayer(QStringList &calls) : m_calls(calls) {}
    void open(const std::string &path) override { note("open ", path); }
    void play(const std::string &path) override { note("play ", path); }
    void playFrom(const std::string &path, std::int64_t milliseconds) override
    {
        note("play ", path + " from " + std::to_string(milliseconds));
    }
    void pause(const std::string &path) override { note("pause ", path); }
    void close(const std::string &path) override { note("close ", path); }
    std::optional<std::int64_t> milliseconds() override { return reply(length[0]); }
    std::optional<std::int64_t> frames() override { return reply(length[1]); }
    std::optional<std::int64_t> millisecond() override { return reply(at[0]); }
    std::optional<std::int64_t> frame() override { return reply(at[1]); }

    bool refuses = false;
    std::int64_t length[2]{}, at[2]{}; // in milliseconds and in frames

private:
    void note(const char *what, const std::string &path)
    {
        m_calls << u"film "_s + QString::fromLatin1(what) + QString::fromStdString(path);
    }
    std::optional<std::int64_t> reply(std::int64_t number) const { return refuses ? std::nullopt : std::optional(number); }

    QStringList &m_calls;
};

// Notes what was asked of the machine.
class RecordingPlatform : public Platform {
public:
    media::FilmPlayer &player() override { return m_player ? *m_player : m_player.emplace(film); }
    void print(QWidget &screen, const std::string &name, Printing how) override;
    void printText(const std::string &text, Printing how) override;
    void startProgram(const std::string &path) override;
    void openAddress(const std::string &address) override;
    DisplayMode displayMode() const override { return display; }
    DisplayChange changeDisplay(const DisplayMode &mode, int hertz) override;
    void changeDisplayPlainly(int width, int height) override;
    void restartMachine() override;
    bool keepFolder(const std::string &path) override;
    void endProgram() override;
    Room roomFor(const QWidget &) const override { return room; }
    bool placesWindows() const override { return arranges; }
    std::string remembered(const std::string &what) const override
    {
        const auto found = kept.find(what);
        return found == kept.end() ? std::string() : found->second;
    }
    void remember(const std::string &what, const std::string &text) override { kept[what] = text; }

    QStringList calls;
    DisplayMode display{1280, 1024, 32};
    DisplayChange displayAnswer = DisplayChange::done; // to every change but the plain one
    Room room{0, 0, 1024, 768}; // of the display that the screens are made for
    bool arranges = false; // a window without a place of its own stands in the corner
    std::map<std::string, std::string> kept;
    StandInPlayer film{calls};
    bool ended = false; // the program, by itself
    void startAnew(); // the machine, for a program that starts
    void setDisplay(const DisplayMode &mode); // with all of it free for windows

private:
    void show(const DisplayMode &mode);

    std::optional<media::FilmPlayer> m_player;
    bool m_displayTold = false; // until then windows have the room that they are made for
};

class Driver {
public:
    Driver(const std::filesystem::path &folder, Numbers numbers);
    ~Driver();

    // The answer to one command line; absent for an empty line and a comment.
    std::optional<QString> execute(const QString &line);
    bool ended() const { return m_ended; }
    Program &program() { return *m_program; }
    RecordingPlatform &platform() { return m_platform; }

private:
    void leave();
    void startAnew();
    void start(const QString &first);
    std::optional<QString> dispatch(const QString &command, const QString &arguments);
    std::optional<QString> onScreens(const QString &command, const QString &argument);
    std::optional<QString> onControl(const QString &command, const QString &argument);
    std::optional<QString> onFilm(const QString &argument);
    QString onDisplay(const QString &argument);
    std::optional<QString> onFiles(const QString &command, const QString &argument);
    QString wait(int milliseconds) const;
    QString settle() const;
    QString run(const QString &run) const;
    QString keyed(Screen &screen, const QStringList &names);
    Control *find(const QString &reference, QString &error) const;

    QueuedDialogs m_dialogs;
    RecordingPlatform m_platform;
    std::filesystem::path m_folder;
    Numbers m_numbers;
    std::unique_ptr<Program> m_program;
    int m_strokes = 0; // of the keyboard, since last asked
    bool m_ended = false;
};

}
