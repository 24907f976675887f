// SPDX-License-Identifier: GPL-3.0-or-later
// Form24, the winner of one Grand Prix in one year.
#include "kinds/empty_note.h"
#include "kinds/lookup_screen.h"
#include "kinds/picker.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "standings/winners.h"
#include "store/archive.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

class Form24 : public LookupScreen {
public:
    Form24(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QWidget *answer();
    void ask(); // Command1
    void step(int by, int end);

    Field m_year, m_gp; // Text1, Text2
    Field m_index; // Label7, where the arrows stand in the all-time list
};

Form24::Form24(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_year(theContext.main.an.text()),
      m_gp(standings::listedName(theContext.store, theContext.main.Label40.text())), m_index(theContext.main.Label40.text())
{
    hidden(u"Label7"_s, m_index);
    auto *layout = page();
    layout->addWidget(question());
    layout->addWidget(answer());
    layout->addLayout(foot());
    setFixedWidth(700);
    ask();
}

QWidget *Form24::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *gp = m_known.offerGrandsPrix(box(*row, u"Nom du GP :"_s, u"Text2"_s, m_gp, 0, [this] { ask(); }));
    arrows(*row, gp,
           {u"Command5"_s, u"Grand Prix précédent de la liste"_s, Qt::Key_PageUp, [this] { step(-1, -1); }},
           {u"Command4"_s, u"Grand Prix suivant de la liste"_s, Qt::Key_PageDown, [this] { step(1, 200); }});
    row->addWidget(list(u"Command2"_s,
                        [this] { openPicker(context.screens, PickList::grandsPrix, u"a2"_s); }));
    row->addSpacing(16);
    box(*row, u"Année du GP :"_s, u"Text1"_s, m_year, 64, [this] { ask(); });
    row->addSpacing(8);
    row->addWidget(mainButton(u"Command1"_s, u"Chercher"_s,
                              u"Chercher le vainqueur (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

QWidget *Form24::answer()
{
    const auto line = [this](const QString &name, const char *style) {
        auto *made = add(name, new Label);
        made->setObjectName(QString::fromLatin1(style));
        made->setAlignment(Qt::AlignCenter);
        made->setWordWrap(true);
        return made;
    };
    auto *winner = line(u"Label4"_s, "winner");
    winner->setMinimumHeight(48); // nothing moves when nobody is known
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, 8, 0, 12);
    layout->addWidget(line(u"Label8"_s, "caption"));
    layout->addWidget(winner);
    layout->addWidget(line(u"Label3"_s, "hint"));
    auto *made = card({}, layout);
    add(emptyNote, noteOver(*made, context));
    return made;
}

void Form24::ask()
{
    const auto show = [this](const QString &name, const std::string &text) {
        setText(name, qt(text));
    };
    show(u"Label4"_s, archivedWinner(context.store, m_gp.text(), m_year.text()));
    show(u"Label8"_s, m_gp.text() + " " + m_year.text());
    show(u"Label3"_s, "est le vainqueur du Grand Prix de " + m_gp.text() + " de l'année " + m_year.text());
}

void Form24::step(int by, int end)
{
    m_index.set(context.store.numbers().stepped(m_index.text(), by, end));
    m_gp.set(standings::listedName(context.store, m_index.text()));
    ask();
}

}

ScreenRows form24()
{
    return {screenRow<Form24>(u"Form24"_s, u"Recherche d'un Vainqueur"_s)};
}

}
