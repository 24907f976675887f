// SPDX-License-Identifier: GPL-3.0-or-later
// Form12, the podium: the first three of a Grand Prix with their pictures, and a walk through the podiums of the season.
#include "platform/qt_pictures.h"
#include "results/pictures.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

// The names of the controls of the three columns: driver number, driver name, place.
const QString numberLabels[] = {u"Label7"_s, u"Label8"_s, u"Label9"_s};
const QString nameLabels[] = {u"Label1"_s, u"Label5"_s, u"Label6"_s};
const QString placeLabels[] = {u"Label2"_s, u"Label3"_s, u"Label4"_s};
const QString places[] = {u"1er"_s, u"2nd"_s, u"3ème"_s};

class Form12 : public Screen {
public:
    Form12(Context &context, const QString &name, const QString &title);

private:
    QWidget *step(int column, int blockHeight);
    void fill(int column);
    void walk(const QString &mainScreenButton);
    void showLarge(int column);

    results::MainRecord &m_main;
    std::array<TimerControl *, 3> m_timers{};
    std::array<Picture *, 3> m_second{}; // the drivers' second pictures, hidden while blank
};

Form12::Form12(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main)
{
    for (int column = 0; column < 3; ++column) {
        hidden(numberLabels[column]);
        m_timers[static_cast<std::size_t>(column)] = &timer(u"Timer%1"_s.arg(column + 1), 50,
                                                            TimerControl::Kind::once, [this, column] { fill(column); });
    }
    auto *layout = page();
    auto *head = new QHBoxLayout;
    auto *race = add(u"Label11"_s, new Label(u"Grand Prix"_s));
    race->setObjectName(u"large"_s);
    auto *circuit = add(u"Image2"_s, new Picture);
    circuit->setOutline(Outline::circuit);
    circuit->setFixedSize(110, 66);
    auto *back = button(u"Command2"_s, u"◀"_s, [this] { walk(u"Command9"_s); });
    auto *on = button(u"Command1"_s, u"▶"_s, [this] { walk(u"Command8"_s); });
    back->setToolTip(u"Grand Prix précédent"_s);
    on->setToolTip(u"Grand Prix suivant"_s);
    head->addWidget(back);
    head->addWidget(on);
    head->addSpacing(8);
    head->addWidget(race, 1);
    head->addWidget(circuit);
    layout->addLayout(head);
    auto *podium = new QHBoxLayout;
    podium->setSpacing(0);
    podium->addWidget(step(1, 72), 1, Qt::AlignBottom);
    podium->addWidget(step(0, 108), 1, Qt::AlignBottom);
    podium->addWidget(step(2, 48), 1, Qt::AlignBottom);
    layout->addLayout(podium, 1);
    layout->addWidget(printCommand(u"Label10"_s), 0, Qt::AlignRight);
    resize(720, 560);
}

// A driver over his block of the podium, the block the higher the better his place.
QWidget *Form12::step(int column, int blockHeight)
{
    auto *whole = new QWidget;
    auto *layout = new QVBoxLayout(whole);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    const auto picture = [&](const QString &name, int width, int height, Outline outline) {
        auto *made = add(name, new Picture, column);
        made->setOutline(outline);
        made->setFixedSize(width, height);
        return made;
    };
    auto *photos = new QHBoxLayout;
    photos->setSpacing(4);
    photos->addStretch(1);
    photos->addWidget(picture(u"picture1"_s, 112, 140, Outline::driver));
    Picture *second = picture(u"Image1"_s, 80, 140, Outline::none);
    second->hide(); // most drivers have one picture
    m_second[static_cast<std::size_t>(column)] = second;
    photos->addWidget(second);
    photos->addStretch(1);
    layout->addLayout(photos);
    Picture *team = picture(u"ecuriE"_s, 196, 66, Outline::car);
    team->setToolTip(u"Clic = Agrandissement"_s);
    team->onClick = [this, column] { showLarge(column); };
    layout->addWidget(team, 0, Qt::AlignHCenter);
    auto *driver = add(nameLabels[column], new Label);
    driver->setObjectName(u"podiumname"_s);
    driver->setAlignment(Qt::AlignCenter);
    layout->addWidget(driver);
    auto *place = add(placeLabels[column], new Label(places[column]));
    place->setObjectName(u"podiumstep"_s);
    place->setAlignment(Qt::AlignCenter);
    place->setFixedHeight(blockHeight);
    layout->addWidget(place);
    return whole;
}

void Form12::fill(int column)
{
    const results::DriverRecord driver = results::readDriver(m_main.season(), text(numberLabels[column]).toStdString());
    const results::DriverPictures pictures = results::driverPictures(m_main, driver, results::PicturesOf::podium);
    setText(nameLabels[column], qt(driver[results::driverField("nom")]));
    setText(u"picture1"_s, qt(pictures.photo), column);
    setText(u"Image1"_s, qt(pictures.second), column);
    m_second[static_cast<std::size_t>(column)]->setVisible(!pictures.second.empty());
    setText(u"ecuriE"_s, qt(results::teamPicture(m_main, driver[results::driverField("ecurie")])), column);
    if (column == 0)
        setText(u"Image2"_s, qt(m_main.Image1.text()));
}

void Form12::walk(const QString &mainScreenButton)
{
    if (const Screen *main = context.screens.find(u"Form1"_s))
        main->press(mainScreenButton);
    for (int column = 0; column < 3; ++column) {
        setText(numberLabels[column], qt(m_main.number(column + 1).text()));
        m_timers[static_cast<std::size_t>(column)]->start(100);
    }
    setText(u"Label11"_s, qt(m_main.gp.text()));
}

void Form12::showLarge(int column)
{
    const QString path = text(u"ecuriE"_s, column);
    Screen *viewer = path.isEmpty() ? nullptr : context.screens.open(u"Form16"_s);
    if (!viewer)
        return;
    viewer->setText(u"Image1"_s, path);
    if (const QSize own = sizeOfPicture(path); !own.isEmpty())
        viewer->setSize(own.width() * twipsPerPixel + 50, own.height() * twipsPerPixel + 900);
}

}

ScreenRows form12()
{
    return {screenRow<Form12>(u"Form12"_s, u"Podium"_s)};
}

}
