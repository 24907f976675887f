#pragma once
// The real machine: printing through the system's printers, addresses through its default programs, films
// through the first video player found.
#include "platform/platform.h"

#include <QSizeF>
#include <QString>

class QPainter;

namespace circuidex {

class QtPlatform : public Platform {
public:
    void print(QWidget &screen, const std::string &name, Printing how) override;
    void printText(const std::string &text, Printing how) override;
    bool play(const std::string &path) override;
    void startProgram(const std::string &path) override;
    void openAddress(const std::string &address) override;
    Room roomFor(const QWidget &window) const override;
};

// A screen in lines and letters, scaled to a page of this size in the device's pixels.
void drawScreen(QWidget &screen, QPainter &painter, const QSizeF &page);

// One page with the picture of a screen, turned and scaled so that it fills the paper. An empty file name means the
// default printer; false when there is none or the file can't be written.
bool printScreen(QWidget &screen, const QString &pdfFile = {});

// The same for a text, over as many pages as it needs, with their numbers below.
bool printText(const QString &text, const QString &pdfFile = {});

}
