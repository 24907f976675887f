#pragma once
// One program a data folder: a second start on it asks the one that runs to come to the front, and ends.
#include <QLocalServer>
#include <QString>

#include <filesystem>
#include <functional>

namespace circuidex {

// Listens, for as long as it lives, for further starts on the same folder.
class FirstProgram {
public:
    // A folder that can't be listened for, or already is, is no failure: a second start then gets no answer.
    FirstProgram(const std::filesystem::path &folder, std::function<void()> comeToFront);

private:
    void answer(QLocalSocket &start);

    QLocalServer m_server;
    std::function<void()> m_comeToFront;
};

// Asks the program that has the folder open to come to the front; false when it didn't answer in a short time.
bool raiseFirstProgram(const std::filesystem::path &folder, int milliseconds = 1500);

}
