// SPDX-License-Identifier: GPL-3.0-or-later
// Form20, one Grand Prix over ten years: who won it, and who was champion of each of those years.
#include "kinds/empty_note.h"
#include "kinds/lookup_screen.h"
#include "kinds/picker.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/table_menu.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

constexpr int lastIndex = 200; // far behind the end of the list

class Form20 : public LookupScreen {
public:
    Form20(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    void ask(); // Command1
    void stepName(int by, std::optional<int> end);
    void stepYear(int by);

    Field m_gp, m_year; // Text1, Text2
    Field m_index; // Label7, where the arrows stand in the all-time list
    Table *m_rows = nullptr;
};

Form20::Form20(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_gp(theContext.main.gp.text()), m_year(theContext.main.an.text()),
      m_index(theContext.main.Label40.text())
{
    hidden(u"Label7"_s, m_index);
    hidden(u"Command3"_s, {}, [this] { stepName(1, std::nullopt); });
    auto *layout = page();
    layout->addWidget(question());
    m_rows = table({{u"Label5"_s, u"Année de la course:"_s, 150, Qt::AlignHCenter},
                    {u"Label6"_s, u"Pilote qui a gagné le Grand Prix:"_s},
                    {u"Label11"_s, u"Champion du monde cette année:"_s}},
                   standings::yearsOfBlock);
    m_rows->setFixedHeight(m_rows->rowsHigh(standings::yearsOfBlock));
    add(emptyNote, noteOver(*m_rows, u"Label6"_s, context, results::Need::race));
    allowSorting(*m_rows);
    layout->addWidget(m_rows);
    layout->addLayout(foot(styled(u"En couleur: le vainqueur est champion"_s, "hint")));
    setFixedWidth(760);
    ask();
}

QWidget *Form20::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *gp = m_known.offerGrandsPrix(box(*row, u"Nom du GP:"_s, u"Text1"_s, m_gp, 0, [this] { ask(); }));
    arrows(
        *row, gp,
        {u"Command2"_s, u"Grand Prix précédent de la liste"_s, Qt::Key_PageUp, [this] { stepName(-1, 0); }},
        {u"Command5"_s, u"Grand Prix suivant de la liste"_s, Qt::Key_PageDown,
         [this] { stepName(1, lastIndex); }});
    row->addWidget(list(u"Command4"_s,
                        [this] { openPicker(context.screens, PickList::grandsPrix, u"a1"_s); }));
    row->addSpacing(16);
    auto *year = box(*row, u"Année:"_s, u"Text2"_s, m_year, 64, [this] { ask(); });
    arrows(*row, year, {u"Command7"_s, u"Un an plus tôt"_s, Qt::Key_Left, [this] { stepYear(-1); }},
           {u"Command6"_s, u"Un an plus tard"_s, Qt::Key_Right, [this] { stepYear(1); }});
    row->addSpacing(8);
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s,
                              u"Montrer les dix années qui finissent avec celle-ci (Entrée)"_s,
                              [this] { ask(); }));
    return card({}, row);
}

void Form20::ask()
{
    const auto wins = standings::winsOfGrandPrix(context.store, m_gp.text(), m_year.text());
    for (int row = 0; wins && row < standings::yearsOfBlock; ++row) {
        const standings::WinOfYear &win = (*wins)[static_cast<std::size_t>(row)];
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
    m_index.set(context.store.numbers().stepped(m_index.text(), by, end));
    m_gp.set(standings::listedName(context.store, m_index.text()));
    ask();
}

void Form20::stepYear(int by)
{
    m_year.set(context.store.numbers().stepped(m_year.text(), by));
    ask();
}

}

ScreenRows form20()
{
    return {screenRow<Form20>(u"Form20"_s, u"Victoires par Grand-prix"_s)};
}

}
