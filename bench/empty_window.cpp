// SPDX-License-Identifier: GPL-3.0-or-later
// What Qt itself takes to show a window: start_time measures the program beside it.
#include <QApplication>
#include <QLabel>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QLabel window(QStringLiteral("Circuidex"));
    window.setWindowTitle(QStringLiteral("empty"));
    window.setStyleSheet(QStringLiteral("background: white; color: black; font-size: 40px"));
    window.resize(1000, 700);
    window.show();
    return application.exec();
}
