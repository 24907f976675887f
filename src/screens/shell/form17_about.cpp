// SPDX-License-Identifier: GPL-3.0-or-later
// Form17, on the program itself, with the ways to its texts, its forum, its site and whoever answers for it.
#include "kinds/opening_picture.h"
#include "kinds/page_view.h"
#include "platform/platform.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

struct TextLink {
    QString label, caption, screen;
};

const TextLink texts[]{
    {u"Label17"_s, u"Version 5.0 - Révision 7"_s, u"Form62"_s},
    {u"Label12"_s, u"Lisez-moi"_s, u"Form66"_s},
    {u"Label11"_s, u"Écrit en C++ avec Qt, pour une personne sur une machine"_s, u"Form99"_s},
    {u"Label2"_s, u"Écrit par l'équipe de Circuidex"_s, u"Form74"_s},
};

class Form17 : public Screen {
public:
    Form17(Context &context, const QString &name, const QString &title);

private:
    QLayout *words();
    void addLinks(QBoxLayout &layout);
    void enlarge();
    void leave(const QString &address); // to the system; the program makes room for what it opens

    OpeningPicture *m_picture = nullptr;
};

Form17::Form17(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    m_picture = add(u"Image1"_s, new OpeningPicture);
    m_picture->setPath(openingPicturePath(context));
    m_picture->setMinimumSize(384, 240);
    m_picture->setToolTip(u"Cliquez pour agrandir"_s);
    m_picture->onClick = [this] { enlarge(); };
    auto *both = new QHBoxLayout;
    both->setSpacing(2 * look::gap);
    both->addWidget(m_picture, 1);
    both->addLayout(words());
    auto *layout = page();
    layout->addWidget(card({}, both), 1);
    layout->addLayout(footRow(u"Label10"_s));
    resize(820, 380);
}

QLayout *Form17::words()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(6);
    layout->addWidget(styled(u"Circuidex"_s, "large"));
    layout->addWidget(styled(u"Version 5.0"_s, "caption"));
    layout->addWidget(styled(u"Le logiciel de statistique de Formule 1"_s, "hint"));
    layout->addSpacing(look::gap);
    addLinks(*layout);
    layout->addStretch(1);
    return layout;
}

void Form17::addLinks(QBoxLayout &layout)
{
    for (const TextLink &text : texts)
        layout.addWidget(command(text.label, text.caption, [this, screen = text.screen] {
            context.screens.open(screen);
            close();
        }));
    layout.addWidget(
        command(u"Label14"_s, u"Vous avez rencontré un dysfonctionnement du logiciel? Signalez-le!"_s,
                [this] { openPage(context, forum(context, u"posting.php?mode=reply&t=19"_s), u"maj"_s); }));
    const QString site = projectSite(context), contact = contactAddress(context);
    const QString absent = u" (à régler dans serveurs.ini)"_s;
    auto *siteLink = command(u"Label15"_s, site.isEmpty() ? u"Site"_s + absent : site, [this, site] { leave(site); });
    auto *contactLink = command(u"Label7"_s, contact.isEmpty() ? u"Contact"_s + absent : contact,
                                [this, contact] { leave(u"mailto:"_s + contact); });
    siteLink->setEnabled(!site.isEmpty());
    contactLink->setEnabled(!contact.isEmpty());
    layout.addWidget(siteLink);
    layout.addWidget(contactLink);
}

void Form17::enlarge()
{
    const Screen *viewer = context.screens.open(u"Form13"_s);
    if (!viewer)
        return;
    viewer->setText(u"Image1"_s, m_picture->path());
    for (const QString &heading : {u"Label1"_s, u"Label11"_s})
        viewer->setText(heading, u"Présentation"_s);
    viewer->press(u"Command3"_s);
}

void Form17::leave(const QString &address)
{
    if (Screen *main = context.screens.find(u"Form1"_s))
        main->showMinimized();
    close();
    context.platform.openAddress(address.toStdString());
}

}

ScreenRows form17()
{
    return {screenRow<Form17>(u"Form17"_s, u"A Propos de Circuidex"_s)};
}

}
