// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A web server on this machine whose answers a test lays down, faults included.
#include <QByteArray>
#include <QList>
#include <QMap>
#include <QTcpServer>

namespace circuidex::test {

struct Page {
    QByteArray content = {};
    QByteArray etag = {}; // with one, the page can be asked for in part
    int status = 200;
    QByteArray location = {};
    qsizetype sent = -1; // bytes of the content before the connection ends; -1: all of them
    qsizetype told = -1; // Content-Length; -1: the true one
    bool chunked = false;
    bool silent = false; // after `sent` bytes nothing more comes, and the connection stays
};

class TestServer : public QTcpServer {
public:
    TestServer();
    void lay(const QString &path, const Page &page) { m_pages[path] = page; }
    QString address(const QString &path) const;
    QList<QByteArray> asked; // "GET /a" and, behind a blank, the range

protected:
    void incomingConnection(qintptr socket) override;

private:
    void answer(class QTcpSocket *socket, const QByteArray &request);
    QMap<QString, Page> m_pages;
};

}
