#pragma once
// What the program asks of the machine beyond windows and files: each a call that tests and the driver replace by a
// recording stand-in.
#include <QString>

class QWidget;

namespace circuidex {

class Platform {
public:
    virtual ~Platform() = default;

    // Sends a screen, as it stands, to the default printer; nothing happens without one.
    virtual void print(QWidget &screen, const QString &name) = 0;
    virtual void play(const QString &path) = 0;
    virtual void startProgram(const QString &path) = 0;
    virtual void openAddress(const QString &address) = 0;
};

}
