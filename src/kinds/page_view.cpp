#include "kinds/page_view.h"

#include "online/servers.h"
#include "platform/platform.h"
#include "platform/qt_page.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"

#include <QBoxLayout>
#include <QBuffer>
#include <QImageReader>
#include <QStringDecoder>

namespace circuidex {

namespace {

constexpr std::size_t mostPictures = 60; // of a page
constexpr int widestPicture = 2000, tallestPicture = 4000; // pixels
constexpr int mostMegabytes = 32; // that a picture may take

// As the server says, or as the page says of itself.
QString decoded(const FetchedPage &page)
{
    const QByteArray type = page.type.toLower();
    const auto at = type.indexOf("charset=");
    if (at >= 0) {
        const QByteArray named = type.mid(at + 8).split(';').first().trimmed().replace('"', "");
        if (QStringDecoder told(named.constData()); told.isValid())
            return told(page.content);
    }
    return QStringDecoder::decoderForHtml(page.content)(page.content);
}

QImage pictureOf(QByteArray content)
{
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > widestPicture || size.height() > tallestPicture)
        return {};
    QImageReader::setAllocationLimit(mostMegabytes);
    return reader.read();
}

}

PageView::PageView(QWidget *parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setTabChangesFocus(true);
    connect(this, &QTextBrowser::anchorClicked, this, &PageView::follow);
}

void PageView::go(const QUrl &address)
{
    m_address = address;
    m_asked.clear();
    const int visit = ++m_visit;
    if (onGo)
        onGo(address);
    say(u"Chargement de la page..."_s);
    fetchPage(address, this, [this, visit](const FetchedPage &page) {
        if (visit != m_visit)
            return;
        if (!page.fault.isEmpty())
            return say(u"La page n'a pas pu être ouverte : %1."_s.arg(page.fault));
        m_address = page.address;
        document()->setBaseUrl(m_address);
        if (page.type.startsWith("text/plain"))
            setPlainText(decoded(page));
        else
            setHtml(decoded(page));
    });
}

void PageView::say(const QString &sentence)
{
    setPlainText(sentence);
}

void PageView::empty()
{
    ++m_visit;
    m_address.clear();
    clear();
    if (onGo)
        onGo(m_address);
}

bool PageView::onOwnServer(const QUrl &address) const
{
    return isPageAddress(address) && address.scheme() == m_address.scheme() && address.host() == m_address.host() &&
        address.port() == m_address.port();
}

void PageView::follow(const QUrl &link)
{
    const QUrl address = m_address.resolved(link);
    if (address.matches(m_address, QUrl::RemoveFragment) && address.hasFragment())
        scrollToAnchor(address.fragment());
    else if (onOwnServer(address))
        go(address);
    else if (onOutside && (isPageAddress(address) || address.scheme() == u"mailto"))
        onOutside(address);
}

// A picture that isn't here yet is asked for and shown when it comes. Everything else that a page would load stays out.
QVariant PageView::loadResource(int type, const QUrl &name)
{
    const QUrl address = m_address.resolved(name);
    if (type == QTextDocument::ImageResource && onOwnServer(address) && m_asked.size() < mostPictures &&
        m_asked.insert(address).second)
        fetchPicture(name);
    return {};
}

void PageView::fetchPicture(const QUrl &name)
{
    fetchPage(m_address.resolved(name), this, [this, name, visit = m_visit](const FetchedPage &fetched) {
        if (visit != m_visit || !fetched.fault.isEmpty())
            return;
        if (const QImage picture = pictureOf(fetched.content); !picture.isNull()) {
            document()->addResource(QTextDocument::ImageResource, name, picture);
            document()->markContentsDirty(0, document()->characterCount());
        }
    });
}

QLayout *PageScreen::addressRow()
{
    m_address = add(u"page"_s, new Edit);
    m_address->setReadOnly(true);
    m_address->setToolTip(u"Adresse de la page"_s);
    auto *reloadButton = button(u"Recharger"_s, u"Recharger la page"_s, [this] { reload(); });
    auto *outside = button(u"Navigateur"_s, u"Ouvrir dans le navigateur"_s, [this] {
        if (isPageAddress(QUrl(m_address->text())))
            context.platform.openAddress(m_address->text().toStdString());
    });
    shortcut(
        Qt::Key_F5, [this] { reload(); }, u"Recharger la page"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(m_address, 1);
    row->addWidget(reloadButton);
    row->addWidget(outside);
    return row;
}

QWidget *PageScreen::view()
{
    m_view = new PageView;
    m_view->onGo = [this](const QUrl &address) {
        m_address->setText(address.toString());
        m_address->setCursorPosition(0);
    };
    m_view->onOutside = [this](const QUrl &address) {
        context.platform.openAddress(address.toString(QUrl::FullyEncoded).toStdString());
    };
    return m_view;
}

void PageScreen::send(const QString &address, const QString &server)
{
    m_server = server;
    if (!address.isEmpty())
        return m_view->go(QUrl::fromUserInput(address));
    m_view->empty();
    if (!server.isEmpty())
        m_view->say(u"Aucun serveur n'est configuré pour cette page. Donnez son adresse à la clé \"%1\" de la section "
                    "[serveurs] du fichier serveurs.ini, dans le dossier du programme :\n%2"_s.arg(
                        server, qt(context.store.folder().string())));
}

void PageScreen::reload()
{
    send(m_address->text(), m_server);
}

namespace {

QString below(const std::string &root, const QString &path)
{
    return root.empty() ? QString() : qt(root) + path;
}

online::Servers servers(const Context &context)
{
    return online::readServers(context.store.folder());
}

}

QString updateServer(const Context &context, const QString &path)
{
    return below(servers(context).maj, path);
}

QString mirrorServer(const Context &context, const QString &path)
{
    return below(servers(context).miroir, path);
}

QString projectSite(const Context &context)
{
    return qt(servers(context).site);
}

QString contactAddress(const Context &context)
{
    return qt(servers(context).contact);
}

QString forum(const Context &context, const QString &page)
{
    return updateServer(context, u"/forum/"_s + page);
}

void fetchNotice(const Context &context, const QString &path, QObject *owner)
{
    if (const QUrl address(updateServer(context, path)); isPageAddress(address))
        fetchPage(address, owner, [](const FetchedPage &) {});
}

void openPage(const Context &context, const QString &address, const QString &server)
{
    const Screen *page = context.screens.open(u"Form97"_s);
    if (!page)
        return;
    page->setText(u"Serveur"_s, server);
    page->setText(u"Text1"_s, address);
}

}
