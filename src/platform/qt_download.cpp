// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_download.h"

#include <QNetworkReply>
#include <QUrl>

namespace circuidex {

using namespace Qt::StringLiterals;
using online::Transfer;

namespace {

DownloadCount count;

constexpr qint64 piece = 1 << 18; // bytes held in memory at most, so that a fast server waits for a slow disk

QNetworkRequest networkRequest(const online::Request &request)
{
    QNetworkRequest made(QUrl::fromEncoded(QByteArray::fromStdString(request.address)));
    made.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    made.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    made.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    made.setHeader(QNetworkRequest::UserAgentHeader, u"Circuidex"_s);
    made.setRawHeader("Accept-Encoding", "identity"); // the file as it is, so that lengths and ranges mean its bytes
    if (request.from > 0) {
        made.setRawHeader("Range", "bytes=" + QByteArray::number(quint64(request.from)) + "-");
        made.setRawHeader("If-Range", QByteArray::fromStdString(request.ifRange));
    }
    return made;
}

online::Answer answerOf(const QNetworkReply &reply)
{
    const auto header = [&reply](const char *name) { return reply.rawHeader(name).toStdString(); };
    online::Answer answer{reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                          header("Location"),
                          header("ETag"),
                          header("Last-Modified"),
                          header("Content-Range"),
                          header("Content-Encoding"),
                          {}};
    bool told = false;
    const quint64 length = reply.rawHeader("Content-Length").toULongLong(&told);
    if (told)
        answer.length = length;
    return answer;
}

}

QtDownload::QtDownload(std::chrono::milliseconds mostSilence, QObject *parent) : QObject(parent)
{
    m_silence.setSingleShot(true);
    m_silence.setInterval(mostSilence);
    connect(&m_silence, &QTimer::timeout, this, &QtDownload::silent);
    m_ending.setSingleShot(true);
    m_ending.setInterval(0);
    connect(&m_ending, &QTimer::timeout, this, &QtDownload::finish);
}

QtDownload::~QtDownload()
{
    dropReply();
    setRunning(false);
}

DownloadCount downloadCount()
{
    return count;
}

void QtDownload::setRunning(bool on)
{
    if (on && !m_running)
        ++count.begun;
    count.running += int(on) - int(m_running);
    m_running = on;
}

void QtDownload::StartDownload(const QString &source, const QString &destination, bool flag)
{
    CancelDownload();
    if (m_ending.isActive())
        finish();
    m_transfer = std::make_unique<Transfer>(source.toStdString(), destination.toStdString(), flag);
    setRunning(true);
    tell();
    if (m_transfer->state() == Transfer::State::asking)
        ask();
    else
        m_ending.start();
}

void QtDownload::CancelDownload()
{
    if (!m_running || m_ending.isActive())
        return;
    dropReply();
    m_transfer->cancel();
    m_ending.start();
}

void QtDownload::ask()
{
    dropReply();
    m_headersRead = false;
    m_reply = m_network.get(networkRequest(m_transfer->request()));
    m_reply->setReadBufferSize(piece);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &QtDownload::readHeaders);
    connect(m_reply, &QNetworkReply::readyRead, this, &QtDownload::readContent);
    connect(m_reply, &QNetworkReply::finished, this, &QtDownload::finished);
    m_silence.start();
}

void QtDownload::readHeaders()
{
    if (m_headersRead || !m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid())
        return;
    m_headersRead = true;
    m_silence.start();
    switch (m_transfer->answered(answerOf(*m_reply))) {
    case Transfer::Reaction::receive:
        return tell();
    case Transfer::Reaction::again:
        return ask();
    case Transfer::Reaction::fail:
        dropReply();
        m_ending.start();
    }
}

void QtDownload::readContent()
{
    readHeaders();
    while (m_reply && m_transfer->state() == Transfer::State::receiving && m_reply->bytesAvailable() > 0) {
        const QByteArray bytes = m_reply->read(piece);
        m_silence.start();
        if (!m_transfer->received({bytes.constData(), size_t(bytes.size())}, std::chrono::steady_clock::now())) {
            dropReply();
            m_ending.start();
        }
    }
    tell();
}

void QtDownload::finished()
{
    readContent();
    if (!m_reply || !m_reply->isFinished())
        return; // failed, or another one is asked
    const QString fault = m_reply->error() == QNetworkReply::NoError ? QString() : m_reply->errorString();
    dropReply();
    m_transfer->ended(fault.toStdString());
    m_ending.start();
}

void QtDownload::silent()
{
    dropReply();
    m_transfer->ended("le serveur ne répond plus");
    m_ending.start();
}

void QtDownload::tell()
{
    const online::Progress progress = m_transfer->progress();
    if (m_transfer->state() == Transfer::State::receiving || m_transfer->state() == Transfer::State::done)
        emit DownloadProgress(progress.percent, progress.received, progress.total, progress.third);
    emit DownloadStatus(QString::fromStdString(m_transfer->status()));
}

// What it still has to say belongs to nobody.
void QtDownload::dropReply()
{
    m_silence.stop();
    if (!m_reply)
        return;
    m_reply->disconnect(this);
    m_reply->deleteLater(); // which ends it, too
    m_reply = nullptr;
}

void QtDownload::finish()
{
    m_ending.stop();
    setRunning(false);
    tell();
    emit ended(m_transfer->state() == Transfer::State::done);
}

}
