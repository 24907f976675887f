// Circuidex: the Formula 1 championship, race by race, for one fan.
#include "app/program.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_platform.h"
#include "shell/look.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    application.setApplicationName(QStringLiteral("Circuidex"));
    circuidex::look::dress(application);
    QTranslator french;
    if (french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&french);
    circuidex::QtDialogs dialogs;
    circuidex::QtPlatform platform;
    circuidex::Program program(circuidex::programFolder(), circuidex::userNumbers(), dialogs, platform);
    program.start();
    // An action of the user has ended when the event loop goes to rest.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &application,
                     [&program] { program.settle(); });
    return application.exec();
}
