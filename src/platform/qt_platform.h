// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The real machine: printing through the system's printers, addresses through its default programs, films through mpv,
// the mode of the display through X.
#include "media/player_state.h"
#include "platform/display_changer.h"
#include "platform/mpv_player.h"
#include "platform/platform.h"

#include <QObject>
#include <QSettings>
#include <QSizeF>
#include <QString>

#include <atomic>
#include <optional>

class QPainter;

namespace circuidex {

class QtPlatform : public Platform {
public:
    QtPlatform();

    void print(QWidget &screen, const std::string &name, Printing how) override;
    void printText(const std::string &text, Printing how) override;
    media::FilmPlayer &player() override { return m_player; }
    void startProgram(const std::string &path) override;
    void openAddress(const std::string &address) override;
    DisplayMode displayMode() const override;
    // X has one depth for a whole session, so that any is taken.
    DisplayChange changeDisplay(const DisplayMode &mode, int hertz) override;
    void changeDisplayPlainly(int width, int height) override;
    void restartMachine() override;
    bool keepFolder(const std::string &path) override;
    void endProgram() override;
    Room roomFor(const QWidget &window) const override;
    bool placesWindows() const override;
    std::string remembered(const std::string &what) const override;
    void remember(const std::string &what, const std::string &text) override;

    // What a start does first: the user's own display mode, when an earlier run died before it had put it back.
    void putDisplayBack();

private:
    void wake();
    void awaitNewSize();

    DisplayChanger m_display;
    std::optional<QSize> m_coming; // of the display, until Qt has heard of it
    QSettings m_kept; // in the folder for what a user's programs remember

    QObject m_here; // what other threads send for is done on the thread of the program
    std::atomic<bool> m_sentFor = false;
    MpvPlayer m_mpv{[this] { wake(); }};
    media::FilmPlayer m_player{m_mpv};
};

// What QtPlatform remembers, for what must be known before there is an application.
std::string keptHere(const std::string &what);

// A screen in lines and letters, scaled to a page of this size in the device's pixels.
void drawScreen(QWidget &screen, QPainter &painter, const QSizeF &page);

// One page with the picture of a screen, turned and scaled so that it fills the paper. An empty file name means the
// default printer; false when there is none or the file can't be written.
bool printScreen(QWidget &screen, const QString &pdfFile = {});

// The same for a text, over as many pages as it needs, with their numbers below.
bool printText(const QString &text, const QString &pdfFile = {});

}
