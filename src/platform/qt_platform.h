#pragma once
// The real machine: printing through the system's printers, addresses and films through its default programs.
#include "platform/platform.h"

namespace circuidex {

class QtPlatform : public Platform {
public:
    void print(QWidget &screen, const QString &name) override;
    void play(const QString &path) override;
    void startProgram(const QString &path) override;
    void openAddress(const QString &address) override;
};

// One page with the picture of a screen, turned and scaled so that it fills the paper. An empty file name means the
// default printer; false when there is none or the file can't be written.
bool printScreen(QWidget &screen, const QString &pdfFile = {});

}
