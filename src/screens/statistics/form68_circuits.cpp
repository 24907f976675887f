// SPDX-License-Identifier: GPL-3.0-or-later
// Form68, what a circuit is like: date, picture and description of a Grand Prix of the season, and who won it in the
// last ten years.
#include "kinds/empty_note.h"
#include "kinds/lookup_screen.h"
#include "kinds/picker.h"
#include "results/main_record.h"
#include "results/pictures.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/table_menu.h"
#include "standings/winners.h"
#include "statistics/circuits.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

class Form68 : public LookupScreen {
public:
    Form68(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QWidget *pictureCard();
    QWidget *descriptionCard();
    QWidget *winnersCard();
    void ask(); // Command1
    void showWinners();
    void step(int by);

    Field m_gp, m_picture, m_path, m_text; // gp, Image1, Labell, Text1
    Field m_slot; // Label40, where the arrows stand in the calendar
    ReadOnlyText *m_description = nullptr;
    Table *m_winners = nullptr;
};

Form68::Form68(Context &theContext, const QString &name, const QString &title) : LookupScreen(theContext, name, title)
{
    hidden(u"Label40"_s, m_slot);
    hidden(u"Labell"_s, m_path);
    hidden(u"Text1"_s, m_text);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    columns->addWidget(pictureCard(), 1);
    columns->addWidget(winnersCard());
    auto *layout = page();
    layout->addWidget(question());
    layout->addLayout(columns, 1);
    layout->addWidget(descriptionCard());
    layout->addLayout(footRow(u"Label3"_s));
    resize(860, 690);
    const Numbers &numbers = context.store.numbers();
    m_slot.set(numbers.difference(context.main.Label40.text(), "1").value_or(std::string()));
    press(u"Command8"_s);
}

QWidget *Form68::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *gp = m_known.offerGrandsPrix(box(*row, u"Grand Prix:"_s, u"gp"_s, m_gp, 220, [this] { ask(); }));
    arrows(*row, gp, {u"Command9"_s, u"Grand Prix précédent de la saison"_s, Qt::Key_PageUp, [this] { step(-1); }},
           {u"Command8"_s, u"Grand Prix suivant de la saison"_s, Qt::Key_PageDown, [this] { step(1); }});
    row->addWidget(list(u"Command16"_s, [this] { openPicker(context.screens, PickList::grandsPrix, u"circ68"_s); }));
    auto *calendar = button(u"Command21"_s, u"Calendrier"_s, [this] { context.screens.open(u"Form34"_s); });
    calendar->setToolTip(u"Ouvrir le calendrier de la saison"_s);
    leadsTo(*calendar, u"Form34"_s);
    row->addWidget(calendar);
    row->addStretch(1);
    row->addWidget(styled(u"Date:"_s, "hint"));
    auto *date = add(u"dat"_s, new Label);
    date->setMinimumWidth(60);
    row->addWidget(date);
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s, u"Montrer ce Grand Prix (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

QWidget *Form68::pictureCard()
{
    auto *picture = add(u"Image1"_s, new Picture);
    picture->setOutline(Outline::circuit);
    bind(picture, m_picture);
    auto *layout = new QVBoxLayout;
    layout->addWidget(picture);
    return card({}, layout);
}

QWidget *Form68::descriptionCard()
{
    m_description = new ReadOnlyText;
    m_description->setFixedHeight(150);
    m_description->setAccessibleName(u"Description du circuit"_s);
    listen(m_text, [this](const std::string &text) { m_description->setPlainText(qt(text)); });
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_description);
    return card(u"Description du circuit"_s, layout);
}

QWidget *Form68::winnersCard()
{
    m_winners = table({{u"Label5"_s, u"Année"_s, 64, Qt::AlignHCenter}, {u"Label6"_s, u"Vainqueur"_s, 190}},
                      standings::yearsOfBlock);
    m_winners->setFixedSize(64 + 190 + 2, m_winners->rowsHigh(standings::yearsOfBlock));
    add(emptyNote, noteOver(*m_winners, u"Label6"_s, context, results::Need::race));
    allowSorting(*m_winners);
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_winners);
    layout->addStretch(1);
    return card(u"Liste des 10 derniers vainqueurs"_s, layout);
}

void Form68::ask()
{
    const std::string gpName = m_gp.text();
    setText(u"dat"_s, gpName.empty() ? QString() : qt(context.main.season().read(keys::gp, keys::dategp(gpName))));
    const results::ShownPicture picture = results::circuitPicture(context.main, gpName);
    m_path.set(picture.path);
    m_picture.set(picture.file);
    showWinners();
    m_text.set(statistics::circuitDescription(context.main, gpName));
}

void Form68::showWinners()
{
    const auto wins = standings::winsOfGrandPrix(context.store, m_gp.text(), context.main.an.text());
    for (int row = 0; wins && row < standings::yearsOfBlock; ++row) {
        const standings::WinOfYear &win = (*wins)[static_cast<std::size_t>(row)];
        m_winners->set(u"Label5", row, qt(win.year));
        m_winners->set(u"Label6", row, qt(win.winner));
    }
}

void Form68::step(int by)
{
    m_slot.set(context.store.numbers().stepped(m_slot.text(), by, by < 0 ? 0 : gpSlots - 1));
    m_gp.set(context.main.season().read(keys::gp, keys::namegp(m_slot.text())));
    ask();
}

}

ScreenRows form68()
{
    return {screenRow<Form68>(u"Form68"_s, u"Caractéristiques des Circuits"_s)};
}

}
