#include "platform/qt_page.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

#include <memory>

namespace circuidex {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5, mostSilence = 30000; // milliseconds
int onTheirWay = 0;

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
    if (!isPageAddress(address)) {
        QTimer::singleShot(0, owner, [address, then = std::move(then)] {
            then({address, {}, {}, u"ce n'est pas une adresse de page (http ou https)"_s});
        });
        return;
    }
    QNetworkReply *reply = network().get(requestFor(address));
    ++onTheirWay;
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > largestPage)
            reply->abort();
    });
    const auto ownerGone = std::make_shared<bool>(false);
    QObject::connect(owner, &QObject::destroyed, reply, [reply, ownerGone] {
        *ownerGone = true;
        reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, address, ownerGone, then = std::move(then)] {
        --onTheirWay;
        reply->deleteLater();
        if (*ownerGone)
            return;
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

}
