// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_page.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

namespace circuidex {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5, mostSilence = 30000; // milliseconds
int onTheirWay = 0;
bool offline = false;

QNetworkAccessManager &network()
{
    static QPointer<QNetworkAccessManager> manager;
    if (!manager)
        manager = new QNetworkAccessManager(qApp);
    return *manager;
}

QString faultOf(const QNetworkReply &reply)
{
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    switch (reply.error()) {
    case QNetworkReply::NoError:
        return {};
    case QNetworkReply::HostNotFoundError:
        return u"le serveur est introuvable"_s;
    case QNetworkReply::ConnectionRefusedError:
        return u"le serveur refuse la connexion"_s;
    case QNetworkReply::OperationCanceledError:
        return reply.bytesAvailable() > largestPage ? u"la page est trop grande"_s : u"le serveur ne répond plus"_s;
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
        return u"le serveur renvoie vers une adresse refusée"_s;
    default:
        return status >= 400 ? u"le serveur répond %1"_s.arg(status) : u"la connexion a échoué"_s;
    }
}

// Qt takes one slash off a path that begins with two, and the dot out of "/./": so the path is sent as it stands.
QUrl asSent(const QUrl &address)
{
    QUrl sent = address;
    if (sent.path().startsWith(u"//"))
        sent.setPath(u"/."_s + sent.path());
    return sent;
}

QNetworkRequest requestFor(const QUrl &address)
{
    QNetworkRequest request(asSent(address));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setTransferTimeout(mostSilence);
    request.setHeader(QNetworkRequest::UserAgentHeader, u"Circuidex"_s);
    return request;
}

}

bool isPageAddress(const QUrl &address)
{
    return address.isValid() && !address.host().isEmpty() &&
        (address.scheme() == u"http" || address.scheme() == u"https");
}

void fetchPage(const QUrl &address, QObject *owner, std::function<void(const FetchedPage &)> then)
{
    if (offline || !isPageAddress(address)) {
        const QString fault =
            offline ? u"le réseau n'est pas utilisé"_s : u"ce n'est pas une adresse de page (http ou https)"_s;
        QTimer::singleShot(0, owner, [address, fault, then = std::move(then)] { then({address, {}, {}, fault}); });
        return;
    }
    QNetworkReply *reply = network().get(requestFor(address));
    ++onTheirWay;
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > largestPage)
            reply->abort();
    });
    QObject::connect(owner, &QObject::destroyed, reply, [reply] {
        if (!reply->isFinished())
            --onTheirWay;
        reply->disconnect(); // what it still has to say belongs to nobody
        reply->deleteLater(); // which ends it, too
    });
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, address, then = std::move(then)] {
        --onTheirWay;
        reply->deleteLater();
        const QString fault = faultOf(*reply);
        const bool there = reply->url() == asSent(address);
        then({there ? address : reply->url(), fault.isEmpty() ? reply->readAll() : QByteArray(),
              reply->rawHeader("Content-Type"), fault});
    });
}

int pagesOnTheirWay()
{
    return onTheirWay;
}

void stayOffline()
{
    offline = true;
}

}
