// SPDX-License-Identifier: GPL-3.0-or-later
// Circuidex: the Formula 1 championship, race by race, for one fan.
#include "app/command_line.h"
#include "app/program.h"
#include "online/update_notice.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_first_program.h"
#include "platform/qt_platform.h"
#include "shell/look.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace {

// What is given out without a window is the same for every user.
bool windowed()
{
    return qgetenv("QT_QPA_PLATFORM") != "offscreen";
}

int run(QApplication &application)
{
    application.setApplicationName(QStringLiteral("Circuidex"));
    application.setApplicationVersion(QStringLiteral(CIRCUIDEX_VERSION));
    application.setDesktopFileName(QStringLiteral("circuidex"));
    application.setWindowIcon(QIcon(QStringLiteral(":/images/icon.svg")));
    circuidex::look::dress(application);
    QTranslator french;
    if (french.load(QStringLiteral("qtbase_fr"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&french);
    const circuidex::CommandLine asked(application.arguments());
    if (const auto status = asked.run())
        return *status;
    circuidex::QtDialogs dialogs;
    circuidex::QtPlatform platform;
    circuidex::look::appear(platform.remembered("apparence"));
    const std::filesystem::path folder = asked.folder();
    const std::filesystem::path gone = circuidex::missingChoice();
    if (!gone.empty() && folder == circuidex::programFolder())
        dialogs.message("Le dossier choisi n'est pas là : " + gone.string() +
                        "\n\nCircuidex ouvre le sien pour cette fois : " + folder.string());
    std::optional<circuidex::FolderLock> lock(std::in_place, folder);
    if (lock->heldElsewhere()) {
        if (circuidex::raiseFirstProgram(folder))
            return 0;
        lock.emplace(folder); // the first one may have been about to end
    }
    const circuidex::Opening opening = circuidex::openingOf(*lock, dialogs);
    if (opening == circuidex::Opening::refused)
        return 0;
    if (opening == circuidex::Opening::alone && circuidex::online::extractorMustEnd(folder)) {
        platform.startProgram((circuidex::executableFolder() / "Zip").string());
        return 0;
    }
    platform.putDisplayBack();
    const circuidex::Program *running = nullptr;
    std::optional<circuidex::FirstProgram> first; // a second start waits for it while this one is still on its way
    if (opening == circuidex::Opening::alone)
        first.emplace(folder, [&running] {
            const bool ending = running && running->screens().isOpen(QStringLiteral("Form47"));
            if (running && !ending)
                running->screens().comeToFront();
            return !ending;
        });
    circuidex::Program program(folder, circuidex::userNumbers(), dialogs, platform);
    if (opening == circuidex::Opening::readOnly)
        program.store().setReadOnly();
    running = &program;
    program.start(QStringLiteral("Intro"));
    program.settleAtRest();
    return application.exec();
}

}

// At the end nothing is left to be done, but the application would wait for each name server that doesn't answer.
int main(int argc, char **argv)
{
    circuidex::chooseDisplay(argc, argv);
    std::optional<circuidex::look::TextSize> size(windowed() ? circuidex::keptHere("texte") : "100");
    QApplication application(argc, argv);
    size.reset();
    const int status = run(application);
    std::fflush(nullptr);
    std::_Exit(status);
}
