// SPDX-License-Identifier: GPL-3.0-or-later
// Form27, the help: nine topics at the left, each a fixed text, and the text on show. It opens on the file "A1.txt" of
// the program folder, or on the topic of the screen that opened it.
#include "platform/file_lookup.h"
#include "shell/fixed_text.h"
#include "shell/help_topics.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/store.h"
#include "store/text_file.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

struct Topic {
    QString label, caption, box, text;
};

const Topic topics[]{
    {u"Label1"_s, u"Enregistrement d'un GP"_s, u"Text2"_s, u"enregistrement"_s},
    {u"Label2"_s, u"Ouverture d'un GP"_s, u"Text3"_s, u"ouverture"_s},
    {u"Label3"_s, u"Visionner les Classements"_s, u"Text4"_s, u"classements"_s},
    {u"Label4"_s, u"Classement Complet"_s, u"Text5"_s, u"complet"_s},
    {u"Label5"_s, u"Enregistrement d'un Profil Pilote"_s, u"Text7"_s, u"profil"_s},
    {u"Label6"_s, u"Comparer des Pilotes"_s, u"Text6"_s, u"comparer"_s},
    {u"Label7"_s, u"Vainqueurs en Grand-Prix"_s, u"Text8"_s, u"vainqueurs"_s},
    {u"Label8"_s, u"Passer à la saison suivante"_s, u"Text9"_s, u"saison"_s},
    {u"Label9"_s, u"Multi-Média"_s, u"Text10"_s, u"multimedia"_s},
};

constexpr std::size_t longest = std::size_t(1) << 20; // bytes of the user's own text; a longer one isn't shown
constexpr int firstRise = 100, nextRises = 5000; // milliseconds until the help comes to the top again

class Form27 : public Screen {
public:
    Form27(Context &context, const QString &name, const QString &title);

private:
    QWidget *contents();
    QWidget *text();
    QString userText() const;

    ReadOnlyText *m_text = nullptr;
    TimerControl *m_rise = nullptr;
};

Form27::Form27(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    auto *both = new QHBoxLayout;
    both->setSpacing(look::gap);
    both->addWidget(contents());
    both->addWidget(text(), 1);
    page()->addLayout(both, 1);
    m_rise = &timer(u"Timer1"_s, firstRise, TimerControl::Kind::repeating, [this] {
        raise();
        m_rise->start(nextRises);
    });
    m_rise->start(firstRise);
    resize(860, 560);
    m_text->setFocus();
}

QWidget *Form27::contents()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(look::gap);
    for (const Topic &topic : topics) {
        hidden(topic.box, fixedText(topic.text));
        layout->addWidget(
            command(topic.label, topic.caption, [this, box = topic.box] { m_text->setPlainText(Screen::text(box)); }));
    }
    layout->addStretch(1);
    auto *keys = command(u"Raccourcis"_s, u"Raccourcis clavier"_s, [this] { openKeys(context.screens, name()); });
    keys->setToolTip(u"Toutes les touches du programme (Maj+F1)"_s);
    layout->addWidget(keys);
    return card(u"Sommaire"_s, layout);
}

QWidget *Form27::text()
{
    m_text = add(u"Text1"_s, new ReadOnlyText);
    m_text->setPlainText(userText());
    auto *note =
        styled(u"Cette aide n'a pas été mise a jour depuis la version 1.5 de Circuidex, il est donc possible que "
               "certaines explications soit devenues obsolètes, mais le fonctionnement en général est resté le "
               "même."_s,
               "hint");
    note->setWordWrap(true);
    auto *layout = new QVBoxLayout;
    layout->setSpacing(look::gap);
    layout->addWidget(note);
    layout->addWidget(m_text, 1);
    return card(u"Informations sur le fonctionnement de Circuidex :"_s, layout);
}

// The file's own text; nothing without the file.
QString Form27::userText() const
{
    const std::filesystem::path folder = context.store.folder();
    const std::string name = std::filesystem::path(findFile(folder, "A1.txt")).filename().string();
    return qt(text_file::read(folder.string(), name, longest).value_or(""));
}

}

ScreenRows form27()
{
    return {screenRow<Form27>(u"Form27"_s, u"Aide"_s)};
}

}
