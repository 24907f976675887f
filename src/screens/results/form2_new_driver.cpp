// Form2, a new driver: the first free number is proposed.
#include "kinds/driver_form.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form2 : public DriverScreenBase {
public:
    Form2(Context &context, const QString &name, const QString &title);

private:
    void step(double by);
    void walkTeams(double by);

    results::DriverBoxes m_boxes;
};

Form2::Form2(Context &theContext, const QString &name, const QString &title) :
    DriverScreenBase(theContext, name, title, m_boxes)
{
    hidden(u"Label19"_s, u"0"_s);
    m_boxes.nopilot.set(std::to_string(results::firstFreeNumber(m_main.season())));
    auto *form = new QGridLayout;
    form->setVerticalSpacing(6);
    auto *numberRow = new QHBoxLayout;
    numberRow->setSpacing(6);
    numberRow->addWidget(command(u"Label17"_s, u"<"_s, [this] { step(-1); }));
    numberRow->addWidget(numberBox(50));
    numberRow->addWidget(command(u"Label16"_s, u">"_s, [this] { step(1); }));
    numberRow->addStretch(1);
    form->addWidget(styled(u"N° du pilote:"_s, "hint"), 0, 0);
    form->addLayout(numberRow, 0, 1);
    Edit *driver = box(*form, 1, u"Text1"_s, u"Nom du pilote:"_s);
    box(*form, 2, u"age"_s, u"Né le:"_s);
    box(*form, 3, u"Text6"_s, u"Nationalité:"_s);
    Edit *team = box(*form, 4, u"Text8"_s, u"Ecurie:"_s);
    form->removeWidget(team); // it stands between its two arrows
    auto *teamRow = new QHBoxLayout;
    teamRow->setSpacing(6);
    teamRow->addWidget(command(u"Label18"_s, u"<<"_s, [this] { walkTeams(-1); }));
    teamRow->addWidget(team, 1);
    teamRow->addWidget(command(u"Label15"_s, u">>"_s, [this] { walkTeams(1); }));
    form->addLayout(teamRow, 4, 1);
    box(*form, 5, u"Text2"_s, u"Nombre de points au championnat actuel:"_s);
    box(*form, 6, u"Text7"_s, u"Nombre de points total:"_s);
    box(*form, 7, u"Text4"_s, u"Nombre de victoire:"_s);
    box(*form, 8, u"Text5"_s, u"Nombre de poles:"_s);
    box(*form, 9, u"Text3"_s, u"Campion du monde (année(s)):"_s);
    form->setColumnStretch(1, 1);

    auto *pictures = new QVBoxLayout;
    pictures->addWidget(picture(u"picture1"_s, m_boxes.picture1, "path", Outline::driver), 1);
    pictures->addWidget(picture(u"Image1"_s, m_boxes.Image1, "pi", Outline::car), 1);
    auto *columns = new QHBoxLayout;
    columns->addWidget(card({}, form), 5);
    columns->addWidget(card({}, pictures), 2);
    auto *foot = footRow(u"Label14"_s);
    foot->insertWidget(1, quietLine(m_main.said), 9);
    foot->addWidget(command(u"Label11"_s, u"Annuler"_s, [this] { close(); }));
    auto *ok = new Button(u"OK"_s);
    ok->makeMain();
    ok->setToolTip(u"Enregistrer ce pilote (Ctrl+S)"_s);
    shortcut(
        u"Ctrl+S"_s, [this] { press(u"Label10"_s); }, u"Enregistrer ce pilote"_s);
    connect(ok, &QPushButton::clicked, this, [this] {
        results::storeShownDriver(m_main, m_boxes, results::DriverScreen::newDriver);
    });
    add(u"Label10"_s, ok);
    foot->addWidget(ok);
    auto *layout = page();
    layout->addLayout(columns, 1);
    layout->addLayout(foot);
    driver->setFocus(); // the number is proposed already
    resize(720, 430);
}

void Form2::step(double by)
{
    m_boxes.nopilot.set(context.store.numbers().stepped(m_boxes.nopilot.text(), by));
    results::showDriver(m_main, m_boxes, results::DriverScreen::newDriver);
}

// Saves typing a team's name: the teams of the slots, one after the other.
void Form2::walkTeams(double by)
{
    const auto at = context.store.numbers().value(text(u"Label19"_s).toStdString());
    setText(u"Label19"_s, qt(context.store.numbers().text(at.value_or(0) + by)));
    setText(u"Text8"_s, qt(m_main.season().ecurie(text(u"Label19"_s).toStdString())));
}

}

ScreenRows form2()
{
    return {screenRow<Form2>(u"Form2"_s, u"Pilotes"_s)};
}

}
