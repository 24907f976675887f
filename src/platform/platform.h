#pragma once
// What the program asks of the machine beyond windows and files: each a call that tests and the driver replace by a
// recording stand-in.
#include <string>

class QWidget;

namespace circuidex {

namespace media {
class FilmPlayer;
}

struct Room { // in pixels
    int left, top, width, height;
};

class Platform {
public:
    virtual ~Platform() = default;

    // Sends a screen, as it stands, to the default printer; nothing happens without one.
    virtual void print(QWidget &screen, const std::string &name) = 0;
    virtual media::FilmPlayer &player() = 0; // one for the whole program
    virtual void startProgram(const std::string &path) = 0;
    virtual void openAddress(const std::string &address) = 0;

    // What is free of panels on the display that a window stands on.
    virtual Room roomFor(const QWidget &window) const = 0;
};

}
