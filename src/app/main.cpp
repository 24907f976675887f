// Circuidex: the Formula 1 championship, race by race, for one fan.
#include "app/program.h"
#include "online/update_notice.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_first_program.h"
#include "platform/qt_platform.h"
#include "shell/look.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <optional>

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
    const std::filesystem::path folder = circuidex::programFolder();
    const circuidex::FolderLock lock(folder);
    if (lock.heldElsewhere() && circuidex::raiseFirstProgram(folder))
        return 0;
    const circuidex::Opening opening = circuidex::openingOf(lock, dialogs);
    if (opening == circuidex::Opening::refused)
        return 0;
    if (opening == circuidex::Opening::alone && circuidex::online::extractorMustEnd(folder)) {
        platform.startProgram((circuidex::executableFolder() / "Zip").string());
        return 0;
    }
    const circuidex::Program *running = nullptr;
    std::optional<circuidex::FirstProgram> first; // a second start waits for it while this one is still on its way
    if (opening == circuidex::Opening::alone)
        first.emplace(folder, [&running] {
            if (running)
                running->screens().comeToFront();
        });
    circuidex::Program program(folder, circuidex::userNumbers(), dialogs, platform);
    if (opening == circuidex::Opening::readOnly)
        program.store().setReadOnly();
    running = &program;
    program.start();
    program.settleAtRest();
    return application.exec();
}
