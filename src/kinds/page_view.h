// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A light view of a web page: its text and the pictures of its own server, no scripts. A link on the same server leads
// on inside the view, any other is handed to the system. And the screen that is nothing but such a view.
#include "shell/screen.h"

#include <QTextBrowser>
#include <QUrl>

#include <set>

namespace circuidex {

class PageView : public QTextBrowser {
    Q_OBJECT
public:
    explicit PageView(QWidget *parent = nullptr);

    void go(const QUrl &address);
    void say(const QString &sentence); // in place of a page
    void empty();

    std::function<void(const QUrl &)> onGo; // it is sent to another address
    std::function<void(const QUrl &)> onOutside; // http, https or mailto, for the system

protected:
    QVariant loadResource(int type, const QUrl &name) override;
    void doSetSource(const QUrl &, QTextDocument::ResourceType) override { } // pages come by go() alone

private:
    void follow(const QUrl &link);
    void fetchPicture(const QUrl &address);
    bool onOwnServer(const QUrl &address) const;

    QUrl m_address;
    std::set<QUrl> m_asked; // pictures, of this page
    int m_visit = 0; // what comes for an earlier page is too late
};

// The view with its read-only address bar, the control "page", and the buttons to load it again and to hand it to the
// system's browser. What a server isn't configured for is said instead.
class PageScreen : public Screen {
public:
    using Screen::Screen;

protected:
    QLayout *addressRow();
    QWidget *view();
    // `server` as in serveurs.ini: what to set when the address is empty.
    void send(const QString &address, const QString &server = {});

private:
    void reload();

    PageView *m_view = nullptr;
    Edit *m_address = nullptr;
    QString m_server;
};

// Where to find what this program fetches; empty for a server that isn't configured.
QString updateServer(const Context &context, const QString &path);
QString mirrorServer(const Context &context, const QString &path);
QString projectSite(const Context &context);
QString contactAddress(const Context &context);

// Opens the screen of any web page on this address, of a server by its key in serveurs.ini.
void openPage(const Context &context, const QString &address, const QString &server = {});

// Fetches a page of the update server that nobody sees; the server knows by it that a program runs.
void fetchNotice(const Context &context, const QString &path, QObject *owner);

// Where the forum is; empty without an update server.
QString forum(const Context &context, const QString &page = {});

}
