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

struct DisplayMode { // in pixels, and bits of a pixel
    int width, height, depth;
    bool operator==(const DisplayMode &) const = default;
};

enum class DisplayChange { done, restartNeeded, refused };

// On the default printer, or on what the user chooses in the system's print dialog: printer, pages or a PDF file.
enum class Printing { atOnce, asked };

class Platform {
public:
    virtual ~Platform() = default;

    // Prints a screen as it stands; nothing happens without a printer.
    virtual void print(QWidget &screen, const std::string &name, Printing how) = 0;
    // Prints a text over as many pages as it needs; nothing happens without a printer.
    virtual void printText(const std::string &text, Printing how) = 0;
    virtual media::FilmPlayer &player() = 0; // one for the whole program
    virtual void startProgram(const std::string &path) = 0;
    virtual void openAddress(const std::string &address) = 0;

    // The mode of the display at this moment.
    virtual DisplayMode displayMode() const = 0;
    // Another mode for the whole display: asks for it once, and says what came of it.
    virtual DisplayChange changeDisplay(const DisplayMode &mode, int hertz) = 0;
    // The fallback: the nearest the display has to this size, whatever its depth and frequency.
    virtual void changeDisplayPlainly(int width, int height) = 0;
    // Only ever on the user's Yes.
    virtual void restartMachine() = 0;

    // The program folder from the next start on. False when that can't be noted.
    virtual bool keepFolder(const std::string &path) = 0;

    // The program ends as soon as what runs has returned; no screen goes through its closing.
    virtual void endProgram() = 0;

    // What is free of panels on the display that a window stands on.
    virtual Room roomFor(const QWidget &window) const = 0;
    // Whether the program chooses where a window comes up that has no place of its own.
    virtual bool placesWindows() const = 0;

    // What the user keeps on this machine, whatever folder is open; empty for what he doesn't. It may be lost or come
    // back altered, since its file is his.
    virtual std::string remembered(const std::string &what) const = 0;
    virtual void remember(const std::string &what, const std::string &text) = 0;
};

}
