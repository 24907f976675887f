// SPDX-License-Identifier: GPL-3.0-or-later
// circuidex-driver [FOLDER]: the whole program on Qt's offscreen platform, driven by commands on standard input.
#include "app/driver.h"
#include "shell/look.h"

#include <QApplication>

#include <cstdio>
#include <iostream>
#include <optional>
#include <string>

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    std::optional<circuidex::look::TextSize> size("100");
    QApplication application(argc, argv);
    size.reset();
    application.setQuitOnLastWindowClosed(false);
    circuidex::look::dress(application);
    circuidex::look::appear(circuidex::look::light);
    const std::filesystem::path folder = argc > 1 ? std::filesystem::path(argv[1]) : circuidex::programFolder();
    circuidex::Driver driver(folder, circuidex::userNumbers());
    std::string line;
    while (!driver.ended() && std::getline(std::cin, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (const auto answer = driver.execute(QString::fromStdString(line))) {
            std::cout << answer->toStdString() << '\n';
            std::cout.flush();
        }
    }
    return 0;
}
