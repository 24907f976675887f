// SPDX-License-Identifier: GPL-3.0-or-later
// The display as the program has it, by commands on standard input; each is answered with the mode that it left.
#include "platform/qt_platform.h"

#include <QGuiApplication>

#include <iostream>

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    circuidex::QtPlatform platform;
    for (std::string command; std::cin >> command;) {
        int width = 0, height = 0;
        std::string said;
        if (command == "change" && std::cin >> width >> height)
            said = platform.changeDisplay({width, height, 32}, 75) == circuidex::DisplayChange::done ? "done "
                                                                                                     : "refused ";
        else if (command == "plain" && std::cin >> width >> height)
            platform.changeDisplayPlainly(width, height);
        else if (command == "back")
            platform.putDisplayBack();
        else if (command == "restart")
            platform.restartMachine();
        const circuidex::DisplayMode mode = platform.displayMode();
        std::cout << said << mode.width << 'x' << mode.height << 'x' << mode.depth << std::endl;
    }
}
