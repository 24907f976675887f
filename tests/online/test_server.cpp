// SPDX-License-Identifier: GPL-3.0-or-later
#include "online/test_server.h"

#include <QTcpSocket>
#include <QUrl>

namespace circuidex::test {

TestServer::TestServer()
{
    listen(QHostAddress::LocalHost);
}

QString TestServer::address(const QString &path) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
}

void TestServer::incomingConnection(qintptr number)
{
    auto *const socket = new QTcpSocket(this);
    socket->setSocketDescriptor(number);
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
        const QByteArray request = socket->peek(1 << 16);
        if (request.contains("\r\n\r\n"))
            answer(socket, socket->readAll());
    });
}

void TestServer::answer(QTcpSocket *socket, const QByteArray &request)
{
    const QList<QByteArray> first = request.split('\r').front().split(' ');
    const auto header = [&request](const QByteArray &name) {
        const qsizetype at = request.indexOf("\r\n" + name + ": ");
        return at < 0 ? QByteArray() : request.mid(at + name.size() + 4).split('\r').front();
    };
    const QByteArray range = header("Range");
    asked.append(first[0] + " " + first[1] + (range.isEmpty() ? "" : " " + range));
    const QString path = QUrl::fromPercentEncoding(first[1]);
    const Page page = m_pages.value(path, Page{.content = "?", .status = 404});

    QByteArray body = page.content,
               head = "HTTP/1.1 " + QByteArray::number(page.status) + " -\r\nConnection: close\r\n";
    if (!range.isEmpty() && !page.etag.isEmpty() && header("If-Range") == page.etag) {
        const qsizetype from = range.mid(6).split('-').front().toLongLong();
        head = "HTTP/1.1 206 -\r\nConnection: close\r\nContent-Range: bytes " + QByteArray::number(from) + "-" +
            QByteArray::number(body.size() - 1) + "/" + QByteArray::number(body.size()) + "\r\n";
        body = body.mid(from);
    }
    if (!page.etag.isEmpty())
        head += "ETag: " + page.etag + "\r\n";
    if (!page.location.isEmpty())
        head += "Location: " + page.location + "\r\n";
    if (page.chunked)
        head += "Transfer-Encoding: chunked\r\n";
    else
        head += "Content-Length: " + QByteArray::number(page.told < 0 ? body.size() : page.told) + "\r\n";
    const QByteArray part = page.sent < 0 ? body : body.left(page.sent);
    socket->write(head + "\r\n");
    socket->write(page.chunked
                      ? QByteArray::number(part.size(), 16) + "\r\n" + part + (page.sent < 0 ? "\r\n0\r\n\r\n" : "")
                      : part);
    if (!page.silent)
        socket->disconnectFromHost();
}

}
