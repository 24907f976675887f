// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The download component: one transfer at a time, on the event loop. What the answers mean and what becomes of the file
// is online/transfer.h; here are the network, the time-out, and the two events.
#include "online/transfer.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>

#include <memory>

class QNetworkReply;

namespace circuidex {

// How many transfers run in the program, and how many were begun so far.
struct DownloadCount {
    int running = 0;
    unsigned begun = 0;
    bool operator==(const DownloadCount &) const = default;
};
DownloadCount downloadCount();

class QtDownload : public QObject {
    Q_OBJECT
public:
    explicit QtDownload(std::chrono::milliseconds mostSilence = online::mostSilence, QObject *parent = nullptr);
    ~QtDownload() override;

    // Begins and answers at once; `ended` follows from the event loop. A transfer that still runs is cancelled, and
    // ended, before. With the flag it goes on where an earlier one of the same source stopped.
    void StartDownload(const QString &source, const QString &destination, bool flag);

    // Ends a running transfer; nothing happens without one.
    void CancelDownload();

    bool running() const { return m_running; }

signals:
    void DownloadProgress(quint8 percent, qint32 received, qint32 total, qint32 third);
    void DownloadStatus(const QString &text);
    // The transfer is over and the file at its place, if it came whole.
    void ended(bool whole);

private:
    void ask();
    void readHeaders();
    void readContent();
    void finished();
    void silent();
    void tell();
    void dropReply();
    void setRunning(bool on);
    void finish();

    QNetworkAccessManager m_network;
    std::unique_ptr<online::Transfer> m_transfer;
    QNetworkReply *m_reply = nullptr;
    QTimer m_silence, m_ending;
    bool m_running = false;
    bool m_headersRead = false;
};

}
