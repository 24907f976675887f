// SPDX-License-Identifier: GPL-3.0-or-later
// Form50, all drivers of one Grand Prix: grid, finish and the places gained between them. On demand the sum of the
// places gained from the first Grand Prix to where the arrows stand.
#include "kinds/empty_note.h"
#include "kinds/picker.h"
#include "kinds/race_table.h"
#include "progression/progression.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/table_menu.h"
#include "standings/race_places.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex::screens {

namespace {

std::vector<Column> columns()
{
    constexpr int width = 112;
    constexpr Qt::Alignment right = Qt::AlignRight;
    return {{{}, u"N°"_s, 34, right},
            {u"Text3"_s, u"Noms des Pilotes:"_s, 190, Qt::AlignLeft, u"Nom du pilote"_s, 1},
            {u"Text4"_s, u"Classement sur la Grille:"_s, width, right, u"Position sur la grille"_s, 1},
            {u"Label6"_s, u"Classement a l'Arrivée:"_s, width, right, u"Position à l'arrivée"_s, 1},
            {u"lblpt"_s, u"Progression:"_s, width, right, u"Progression Grille-GP"_s, 1},
            {u"Label30"_s, u"Cumul des Progressions:"_s, width, right, {}, 1}};
}

class Form50 : public LookupScreen {
public:
    Form50(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QWidget *answer();
    void ask(); // Command1
    void keepPlaces(); // the working arrays
    void addSums(); // Command4
    void step(int by, int end);

    Field m_slot, m_gp; // Label40, Text5
    Table *m_rows = nullptr;
};

Form50::Form50(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title), m_slot(theContext.main.Label40.text()),
      m_gp(theContext.main.season().read(keys::gp, keys::namegp(m_slot.text())))
{
    hidden(u"Label40"_s, m_slot);
    for (int cell = 0; cell <= gridPlaces + 1; ++cell)
        hidden(u"Text99"_s, {}, {}, cell);
    for (int place = 0; place <= classifiedPlaces; ++place)
        hidden(u"Text1"_s, {}, {}, place);
    layOut(question(), answer(),
           foot(button(u"Command4"_s, u"Ouvrir Cumul des Progressions"_s, [this] { addSums(); })));
    ask();
}

QWidget *Form50::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *gp = m_known.offerGrandsPrix(box(*row, u"Grand Prix:"_s, u"Text5"_s, m_gp, 0, [this] { ask(); }));
    row->addWidget(
        list(u"Command2"_s, [this] { openPicker(context.screens, PickList::grandsPrix, u"progresscourse"_s); }));
    row->addSpacing(8);
    row->addWidget(styled(u"Défilement des GP:"_s, "hint"));
    row->addWidget(arrow(u"<"_s, {u"Command6"_s, u"Grand Prix précédent"_s, Qt::Key_PageUp, [this] { step(-1, 0); }}));
    row->addWidget(
        arrow(u">"_s, {u"Command5"_s, u"Grand Prix suivant"_s, Qt::Key_PageDown, [this] { step(1, gpSlots); }}));
    row->addSpacing(8);
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s, u"Montrer ce Grand Prix (Entrée)"_s, [this] { ask(); }));
    gp->setToolTip(u"Tapez le nom d'un Grand Prix, puis Entrée"_s);
    return card({}, row);
}

QWidget *Form50::answer()
{
    m_rows = table(columns(), driverSlots);
    m_rows->setAlternatingRowColors(false);
    add(emptyNote, noteOver(*m_rows, u"Text3"_s, context, results::Need::race));
    m_rows->setTitleLines(2);
    allowSorting(*m_rows);
    m_rows->setFixedSize(m_rows->horizontalHeader()->length() + 2, m_rows->rowsHigh(driverSlots));
    return m_rows;
}

void Form50::ask()
{
    const auto rows = progression::raceProgress(context.main.season(), m_gp.text());
    for (int number = 1; const progression::ProgressRow &row : rows) {
        m_rows->model().cell(number - 1, 0).setText(row.name.empty() ? QString() : QString::number(number));
        m_rows->set(u"Text3", number, qt(row.name));
        m_rows->set(u"Text4", number, qt(row.grid));
        m_rows->set(u"Label6", number, qt(row.finish));
        showFigure(*m_rows, u"lblpt", number, row.gain);
        showFigure(*m_rows, u"Label30", number, {});
        ++number;
    }
    keepPlaces();
}

void Form50::keepPlaces()
{
    const standings::RacePlaces race = standings::racePlaces(context.main.season(), m_gp.text());
    for (int place = 1; place <= gridPlaces; ++place)
        setText(u"Text99"_s, qt(race.grid[place]), place - 1);
    for (int place = 1; place <= classifiedPlaces; ++place)
        setText(u"Text1"_s, qt(race.finish[place]), place);
}

void Form50::addSums()
{
    const Waiting waiting(*this);
    for (int number = 1; const auto &sum : progression::progressSums(context.main.season(), m_slot.text()))
        showFigure(*m_rows, u"Label30", number++, sum);
}

void Form50::step(int by, int end)
{
    m_slot.set(context.store.numbers().stepped(m_slot.text(), by, end));
    m_gp.set(context.main.season().read(keys::gp, keys::namegp(m_slot.text())));
    ask();
}

}

ScreenRows form50()
{
    return {screenRow<Form50>(u"Form50"_s, u"Statistiques de Progression en Course"_s)};
}

}
