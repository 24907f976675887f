#include "app/program.h"

#include "app/screens.h"
#include "platform/file_lookup.h"
#include "platform/qt_pictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace circuidex {

namespace {

Surroundings surroundings(const std::filesystem::path &folder)
{
    Surroundings machine;
    machine.findFile = [folder](const std::string &stored) { return findFile(folder, stored); };
    machine.findPicture = [folder](const std::string &stored) {
        std::string found = findFile(folder, stored);
        return canShowPicture(QString::fromStdString(found)) ? found : std::string();
    };
    machine.deleteFile = [](const std::string &path) {
        std::error_code ignored; // a file that can't be deleted stays
        std::filesystem::remove(path, ignored);
    };
    return machine;
}

}

Program::Program(std::filesystem::path folder, Numbers numbers, Dialogs &dialogs, Platform &platform) :
    m_store(folder, numbers), m_main(m_store, dialogs, surroundings(folder)), m_screens(screenRows()),
    m_context{m_store, m_main, dialogs, platform, m_screens}
{
    m_screens.setContext(m_context);
}

Program::~Program() = default;

void Program::start()
{
    m_screens.open(QStringLiteral("Form1"));
}

void Program::settle()
{
    m_store.settle();
    m_store.newMoment();
    m_main.writesLost.set(m_store.writesLost() ? "Attention : les modifications ne sont pas conservées." : "");
}

std::filesystem::path programFolder()
{
    const QString beside = QCoreApplication::applicationDirPath();
    if (QFileInfo(beside).isWritable())
        return beside.toStdString();
    const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Circuidex");
    QDir().mkpath(own);
    return own.toStdString();
}

Numbers userNumbers()
{
    QString name;
    for (const char *variable : {"LC_ALL", "LC_NUMERIC", "LANG"})
        if (name.isEmpty())
            name = qEnvironmentVariable(variable);
    const QString point = QLocale(name.section(u'.', 0, 0)).decimalPoint();
    return Numbers(point == u"," ? ',' : '.');
}

}
