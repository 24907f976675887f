#include "standings/form20_wins_by_grand_prix.h"

#include "results/form26_pickers.h"
#include "results/main_screen.h"
#include "shell/look.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex {

namespace {

constexpr int lastIndex = 200; // far behind the end of the list

}

Form20::Form20(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_gp(theContext.main.gp.text()), m_year(theContext.main.an.text()),
      m_index(theContext.main.Label40.text())
{
    hidden(QStringLiteral("Label7"), m_index);
    hidden(QStringLiteral("Command3"), {}, [this] { stepName(1, std::nullopt); });
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(look::gap);
    layout->addWidget(question());
    m_rows = table({{QStringLiteral("Label5"), QStringLiteral("Année de la course:"), 150, Qt::AlignHCenter},
                    {QStringLiteral("Label6"), QStringLiteral("Pilote qui a gagné le Grand Prix:")},
                    {QStringLiteral("Label11"), QStringLiteral("Champion du monde cette année:")}},
                   yearsOfBlock);
    m_rows->setFixedHeight(m_rows->rowsHigh(yearsOfBlock));
    layout->addWidget(m_rows);
    layout->addLayout(foot(styled(QStringLiteral("En couleur: le vainqueur est champion"), "hint")));
    setFixedWidth(760);
    ask();
}

QWidget *Form20::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *gp = box(*row, QStringLiteral("Nom du GP:"), QStringLiteral("Text1"), m_gp, 0, [this] { ask(); });
    arrows(
        *row, gp,
        {"Command2", QStringLiteral("Grand Prix précédent de la liste"), Qt::Key_PageUp, [this] { stepName(-1, 0); }},
        {"Command5", QStringLiteral("Grand Prix suivant de la liste"), Qt::Key_PageDown,
         [this] { stepName(1, lastIndex); }});
    row->addWidget(list(QStringLiteral("Command4"),
                        [this] { openPicker(context.screens, PickList::grandsPrix, QStringLiteral("a1")); }));
    row->addSpacing(16);
    auto *year = box(*row, QStringLiteral("Année:"), QStringLiteral("Text2"), m_year, 64, [this] { ask(); });
    arrows(*row, year, {"Command7", QStringLiteral("Un an plus tôt"), Qt::Key_Left, [this] { stepYear("-1"); }},
           {"Command6", QStringLiteral("Un an plus tard"), Qt::Key_Right, [this] { stepYear("1"); }});
    row->addSpacing(8);
    row->addWidget(mainButton(QStringLiteral("Command1"), QStringLiteral("Ouvrir"),
                              QStringLiteral("Montrer les dix années qui finissent avec celle-ci (Entrée)"),
                              [this] { ask(); }));
    return card({}, row);
}

void Form20::ask()
{
    const auto wins = winsOfGrandPrix(context.store, m_gp.text(), m_year.text());
    for (int row = 0; wins && row < yearsOfBlock; ++row) {
        const WinOfYear &win = (*wins)[static_cast<std::size_t>(row)];
        m_rows->set(u"Label5", row, qt(win.year));
        m_rows->set(u"Label6", row, qt(win.winner));
        m_rows->set(u"Label11", row, qt(win.champion));
        const bool both = !win.winner.empty() && win.winner == win.champion;
        for (const char16_t *column : {u"Label6", u"Label11"})
            m_rows->setBack(column, row, both ? std::optional(look::chosen) : std::nullopt);
    }
}

void Form20::stepName(int by, std::optional<int> end)
{
    m_index.set(steppedIndex(m_index.text(), by, end, context.store.numbers()));
    m_gp.set(listedName(context.store, m_index.text()));
    ask();
}

void Form20::stepYear(const char *by)
{
    m_year.set(context.store.numbers().sum(m_year.text(), by).value_or(m_year.text()));
    ask();
}

}
