#include "results/form2_drivers.h"

#include "results/media_of_grand_prix.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

DriverScreenBase::DriverScreenBase(Context &theContext, const QString &name, const QString &title, DriverScreen kind) :
    Screen(theContext, name, title), m_main(theContext.main), m_kind(kind)
{
    hidden(QStringLiteral("Label21"));
    hidden(QStringLiteral("Label22"));
}

Edit *DriverScreenBase::box(QGridLayout &grid, int row, const char *control, const QString &caption)
{
    auto *made = add(QString::fromLatin1(control), new Edit);
    grid.addWidget(styled(caption, "hint"), row, 0);
    grid.addWidget(made, row, 1);
    return made;
}

Picture *DriverScreenBase::picture(const char *control, const char *pathControl, const char *keyPrefix, Outline outline)
{
    auto *made = add(QString::fromLatin1(control), new Picture);
    made->setOutline(outline);
    made->setToolTip(QStringLiteral("Double-clic = Insertion d'une image"));
    made->onDoubleClick = [this, control, pathControl, keyPrefix] {
        choosePicture(QString::fromLatin1(control), QString::fromLatin1(pathControl), keyPrefix);
    };
    return made;
}

void DriverScreenBase::choosePicture(const QString &control, const QString &pathControl, std::string_view prefix)
{
    const auto chosen = choosePictureFile(context.dialogs, "Image");
    if (!chosen)
        return;
    setText(pathControl, qt(*chosen));
    setText(control, qt(findPicture(*chosen)));
    season().write(keys::N, keys::driver(prefix, number()), *chosen);
}

DriverRecord DriverScreenBase::record() const
{
    DriverRecord record;
    for (std::size_t i = 0; i < record.size(); ++i)
        record[i] = text(qt(driverFields[i].control)).toStdString();
    return record;
}

void DriverScreenBase::show(const DriverRecord &record)
{
    for (std::size_t i = 0; i < record.size(); ++i)
        setText(qt(driverFields[i].control), qt(record[i]));
}

void DriverScreenBase::readFields()
{
    show(readDriver(season(), number()));
    showPictures();
}

void DriverScreenBase::showPictures()
{
    setText(QStringLiteral("picture1"), qt(findPicture(text(QStringLiteral("Label21")).toStdString())));
    setText(QStringLiteral("Image1"), qt(findPicture(text(QStringLiteral("Label22")).toStdString())));
}

void DriverScreenBase::store()
{
    const DriverRecord whole = completed(record(), m_kind);
    show(whole);
    storeDriver(season(), number(), whole, m_kind);
}

Form2::Form2(Context &theContext, const QString &name, const QString &title) :
    DriverScreenBase(theContext, name, title, DriverScreen::newDriver)
{
    hidden(QStringLiteral("Label19"), QStringLiteral("0"));
    m_number.set(std::to_string(firstFreeNumber(season())));
    auto *form = new QGridLayout;
    form->setVerticalSpacing(6);
    auto *number = add(QStringLiteral("nopilot"), new Edit);
    number->setFixedWidth(50);
    number->setAlignment(Qt::AlignRight);
    bind(number, m_number);
    auto *numberRow = new QHBoxLayout;
    numberRow->setSpacing(6);
    numberRow->addWidget(command(QStringLiteral("Label17"), QStringLiteral("<"), [this] { step(-1); }));
    numberRow->addWidget(number);
    numberRow->addWidget(command(QStringLiteral("Label16"), QStringLiteral(">"), [this] { step(1); }));
    numberRow->addStretch(1);
    form->addWidget(styled(QStringLiteral("N° du pilote:"), "hint"), 0, 0);
    form->addLayout(numberRow, 0, 1);
    Edit *driver = box(*form, 1, "Text1", QStringLiteral("Nom du pilote:"));
    box(*form, 2, "age", QStringLiteral("Né le:"));
    box(*form, 3, "Text6", QStringLiteral("Nationalité:"));
    Edit *team = box(*form, 4, "Text8", QStringLiteral("Ecurie:"));
    form->removeWidget(team); // it stands between its two arrows
    auto *teamRow = new QHBoxLayout;
    teamRow->setSpacing(6);
    teamRow->addWidget(command(QStringLiteral("Label18"), QStringLiteral("<<"), [this] { walkTeams(-1); }));
    teamRow->addWidget(team, 1);
    teamRow->addWidget(command(QStringLiteral("Label15"), QStringLiteral(">>"), [this] { walkTeams(1); }));
    form->addLayout(teamRow, 4, 1);
    box(*form, 5, "Text2", QStringLiteral("Nombre de points au championnat actuel:"));
    box(*form, 6, "Text7", QStringLiteral("Nombre de points total:"));
    box(*form, 7, "Text4", QStringLiteral("Nombre de victoire:"));
    box(*form, 8, "Text5", QStringLiteral("Nombre de poles:"));
    box(*form, 9, "Text3", QStringLiteral("Campion du monde (année(s)):"));
    form->setColumnStretch(1, 1);

    auto *pictures = new QVBoxLayout;
    pictures->addWidget(picture("picture1", "Label21", "path", Outline::driver), 1);
    pictures->addWidget(picture("Image1", "Label22", "pi", Outline::car), 1);
    auto *columns = new QHBoxLayout;
    columns->addWidget(card({}, form), 5);
    columns->addWidget(card({}, pictures), 2);
    auto *foot = new QHBoxLayout;
    foot->addWidget(printCommand(QStringLiteral("Label14")));
    foot->addStretch(1);
    foot->addWidget(command(QStringLiteral("Label11"), QStringLiteral("Annuler"), [this] { close(); }));
    auto *ok = new Button(QStringLiteral("OK"));
    ok->makeMain();
    connect(ok, &QPushButton::clicked, this, [this] { store(); });
    add(QStringLiteral("Label10"), ok);
    foot->addWidget(ok);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(look::gap);
    layout->addLayout(columns, 1);
    layout->addLayout(foot);
    driver->setFocus(); // the number is proposed already
    resize(720, 430);
}

void Form2::step(double by)
{
    if (const auto number = context.store.numbers().value(m_number.text()))
        m_number.set(context.store.numbers().text(*number + by));
    readFields();
}

// Saves typing a team's name: the teams of the slots, one after the other.
void Form2::walkTeams(double by)
{
    const auto at = context.store.numbers().value(text(QStringLiteral("Label19")).toStdString());
    setText(QStringLiteral("Label19"), qt(context.store.numbers().text(at.value_or(0) + by)));
    setText(QStringLiteral("Text8"), qt(season().ecurie(text(QStringLiteral("Label19")).toStdString())));
}

}
