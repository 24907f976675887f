#include "standings/form24_winner_search.h"

#include "results/form26_pickers.h"
#include "results/main_screen.h"
#include "shell/look.h"
#include "standings/winners.h"
#include "store/archive.h"

#include <QBoxLayout>

namespace circuidex {

Form24::Form24(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_year(theContext.main.an.text()),
      m_gp(listedName(theContext.store, theContext.main.Label40.text())), m_index(theContext.main.Label40.text())
{
    hidden(QStringLiteral("Label7"), m_index);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(look::gap);
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
    auto *gp = box(*row, QStringLiteral("Nom du GP :"), QStringLiteral("Text2"), m_gp, 0, [this] { ask(); });
    arrows(*row, gp,
           {"Command5", QStringLiteral("Grand Prix précédent de la liste"), Qt::Key_PageUp, [this] { step(-1, -1); }},
           {"Command4", QStringLiteral("Grand Prix suivant de la liste"), Qt::Key_PageDown, [this] { step(1, 200); }});
    row->addWidget(list(QStringLiteral("Command2"),
                        [this] { openPicker(context.screens, PickList::grandsPrix, QStringLiteral("a2")); }));
    row->addSpacing(16);
    box(*row, QStringLiteral("Année du GP :"), QStringLiteral("Text1"), m_year, 64, [this] { ask(); });
    row->addSpacing(8);
    row->addWidget(mainButton(QStringLiteral("Command1"), QStringLiteral("Chercher"),
                              QStringLiteral("Chercher le vainqueur (Entrée)"), [this] { ask(); }));
    return card({}, row);
}

QWidget *Form24::answer()
{
    const auto line = [this](const char *name, const char *style) {
        auto *made = add(QString::fromLatin1(name), new Label);
        made->setObjectName(QString::fromLatin1(style));
        made->setAlignment(Qt::AlignCenter);
        made->setWordWrap(true);
        return made;
    };
    auto *winner = line("Label4", "winner");
    winner->setStyleSheet(QStringLiteral("font-weight:bold; font-size:30px;"));
    winner->setMinimumHeight(48); // nothing moves when nobody is known
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(0, 8, 0, 12);
    layout->addWidget(line("Label8", "caption"));
    layout->addWidget(winner);
    layout->addWidget(line("Label3", "hint"));
    return card({}, layout);
}

void Form24::ask()
{
    const auto show = [this](const char *name, const std::string &text) {
        setText(QString::fromLatin1(name), qt(text));
    };
    show("Label4", archivedWinner(context.store, m_gp.text(), m_year.text()));
    show("Label8", m_gp.text() + " " + m_year.text());
    show("Label3", "est le vainqueur du Grand Prix de " + m_gp.text() + " de l'année " + m_year.text());
}

void Form24::step(int by, int end)
{
    m_index.set(steppedIndex(m_index.text(), by, end, context.store.numbers()));
    m_gp.set(listedName(context.store, m_index.text()));
    ask();
}

}
