// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Fetching a web page or one of its pictures into memory: by http or https alone, five redirects at most and none that
// gives up the encryption, nothing larger than a page should be, and no longer than thirty seconds without an answer.
#include <QByteArray>
#include <QObject>
#include <QUrl>

#include <functional>

namespace circuidex {

inline constexpr qint64 largestPage = 5 << 20; // bytes, of a page or a picture

struct FetchedPage {
    QUrl address; // behind all redirects
    QByteArray content, type; // the header Content-Type
    QString fault; // in French; empty when it came whole
};

// True for an address that a page may have.
bool isPageAddress(const QUrl &address);

// `then` is called from the event loop, once, unless the owner is gone by then.
void fetchPage(const QUrl &address, QObject *owner, std::function<void(const FetchedPage &)> then);

// How many are on their way.
int pagesOnTheirWay();

// From now on no page is asked for: each is told to have failed.
void stayOffline();

}
