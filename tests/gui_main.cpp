// SPDX-License-Identifier: GPL-3.0-or-later
// The screens' tests run on Qt's offscreen platform, dressed as the program is. A warning of Qt fails the test it falls in.
#include "shell/look.h"

#include <QApplication>
#include <gtest/gtest.h>

namespace {

void onQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool platform = text.startsWith(u"This plugin") || text.contains(u"XDG_RUNTIME_DIR");
    if (type != QtDebugMsg && type != QtInfoMsg && !platform)
        ADD_FAILURE() << "Qt: " << text.toStdString();
}

}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    qInstallMessageHandler(onQtMessage);
    circuidex::look::dress(application);
    return RUN_ALL_TESTS();
}
