// SPDX-License-Identifier: GPL-3.0-or-later
// The screens that are a web page: the project's site (Form37), the news of the updates (Form44), any page whose
// address another screen writes into the hidden box (Form97), and the one that installers are fetched from by hand
// (Form35).
#include "kinds/page_view.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

constexpr int toNavigate = 1000; // milliseconds, until the opener has written the address
constexpr int onceOpen = 10; // milliseconds

class FixedPage : public PageScreen {
public:
    struct Kind {
        QString (*address)(const Context &);
        QString server;
    };
    FixedPage(Context &theContext, const QString &name, const QString &title, const Kind &kind)
        : PageScreen(theContext, name, title)
    {
        auto *layout = page();
        layout->addLayout(addressRow());
        layout->addWidget(view(), 1);
        resize(900, 640);
        send(kind.address(context), kind.server);
    }
};

class Form97 : public PageScreen {
public:
    Form97(Context &theContext, const QString &name, const QString &title) : PageScreen(theContext, name, title)
    {
        hidden(u"Text1"_s, m_wanted);
        hidden(u"Serveur"_s, m_server);
        auto *layout = page();
        layout->addLayout(addressRow());
        layout->addWidget(view(), 1);
        auto *foot = new QHBoxLayout;
        foot->addStretch(1);
        foot->addWidget(command(u"Label71"_s, u"Réduire cette fenêtre"_s, [this] { showMinimized(); }));
        layout->addLayout(foot);
        resize(900, 640);
        const auto go = [this] { send(qt(m_wanted.text()), qt(m_server.text())); };
        go();
        TimerControl &later = timer(u"Timer1"_s, toNavigate, TimerControl::Kind::once, go);
        later.start(toNavigate);
        listen(m_wanted, [&later](const std::string &) { later.start(toNavigate); }); // written while a page is open
    }

private:
    Field m_wanted, m_server; // the key of serveurs.ini that the address comes from, if any
};

// The manual road of the update. The main screen is minimised while it is open.
class Form35 : public PageScreen {
public:
    Form35(Context &theContext, const QString &name, const QString &title) : PageScreen(theContext, name, title)
    {
        auto *words = new Label(
            u"Pour intégrer les nouveaux éléments au programme (résultats ou mise a jour logicielle), téléchargez les "
            "fichiers sur votre Bureau et lancez-les. Cliquez sur \"Lancer\" pour démarrer l'installation automatique "
            "des résultats ou du patch Circuidex."_s);
        words->setWordWrap(true);
        auto *inside = new QVBoxLayout;
        inside->addWidget(words);
        auto *layout = page();
        layout->addWidget(styled(u"Mise A Jour On Line"_s, "large"));
        layout->addWidget(card({}, inside));
        layout->addLayout(addressRow());
        layout->addWidget(view(), 1);
        resize(900, 640);
        timer(u"Timer1"_s, onceOpen, TimerControl::Kind::once,
              [this] { send(mirrorServer(context, u"//progtelech.htm"_s), u"miroir"_s); });
    }

protected:
    void closing() override { context.screens.bringMainBack(); }
};

QString site(const Context &context)
{
    return projectSite(context);
}

QString news(const Context &context)
{
    return updateServer(context, u"//progload.htm"_s);
}

}

ScreenRows form37()
{
    return {kindRow<FixedPage>(u"Form37"_s, u"Site Circuidex"_s, FixedPage::Kind{site, u"site"_s}),
            kindRow<FixedPage>(u"Form44"_s, u"Dernières infos Circuidex"_s, FixedPage::Kind{news, u"maj"_s}),
            screenRow<Form97>(u"Form97"_s, u"Site Web"_s), screenRow<Form35>(u"Form35"_s, u"Mise a Jour en Ligne"_s)};
}

}
