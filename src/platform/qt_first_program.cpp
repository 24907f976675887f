#include "platform/qt_first_program.h"

#include <QCryptographicHash>
#include <QDir>
#include <QLocalSocket>

namespace circuidex {

namespace {

const char *const done = "ok\n";
constexpr qint64 longestToken = 4096;

// In the folder that the system gives each user for the time that he is logged in.
QString addressOf(const std::filesystem::path &folder)
{
    std::error_code unknown;
    const std::filesystem::path one = std::filesystem::weakly_canonical(folder, unknown);
    const QByteArray path = QByteArray::fromStdString((unknown ? folder : one).string());
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(24);
    const QString given = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return QDir(given.isEmpty() || !QDir(given).exists() ? QDir::tempPath() : given)
        .filePath(QStringLiteral("circuidex-") + QString::fromLatin1(hash));
}

// What the desktop gave this start, so that the window it leads to may come to the front.
QByteArray startToken()
{
    return qgetenv("XDG_ACTIVATION_TOKEN");
}

}

FirstProgram::FirstProgram(const std::filesystem::path &folder, std::function<void()> comeToFront)
    : m_comeToFront(std::move(comeToFront))
{
    const QString address = addressOf(folder);
    QLocalServer::removeServer(address); // of a program that crashed: the folder's lock is ours
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(address);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
        while (QLocalSocket *start = m_server.nextPendingConnection()) {
            QObject::connect(start, &QLocalSocket::disconnected, start, &QObject::deleteLater);
            QObject::connect(start, &QLocalSocket::readyRead, start, [this, start] { answer(*start); });
        }
    });
}

void FirstProgram::answer(QLocalSocket &start)
{
    if (!start.canReadLine()) {
        if (start.bytesAvailable() > longestToken)
            start.abort();
        return;
    }
    const QByteArray token = start.readLine(longestToken).trimmed();
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token);
    m_comeToFront();
    start.write(done);
    start.disconnectFromServer();
}

bool raiseFirstProgram(const std::filesystem::path &folder, int milliseconds)
{
    QLocalSocket first;
    first.connectToServer(addressOf(folder));
    if (!first.waitForConnected(milliseconds))
        return false;
    first.write(startToken() + '\n');
    while (!first.canReadLine())
        if (!first.waitForReadyRead(milliseconds))
            return false;
    return first.readLine() == done;
}

}
