#include "results/form12_podium.h"

#include "shell/look.h"

#include <QBoxLayout>

namespace circuidex {

namespace {

// The names of the controls of the three columns: driver number, driver name, place.
const char *const numberLabels[] = {"Label7", "Label8", "Label9"};
const char *const nameLabels[] = {"Label1", "Label5", "Label6"};
const char *const placeLabels[] = {"Label2", "Label3", "Label4"};
const char *const places[] = {"1er", "2nd", "3ème"};

QString utf8(const char *words)
{
    return QString::fromUtf8(words);
}

}

Form12::Form12(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main)
{
    for (int column = 0; column < 3; ++column) {
        hidden(utf8(numberLabels[column]));
        m_timers[static_cast<std::size_t>(column)] = &timer(QStringLiteral("Timer%1").arg(column + 1), 50,
                                                            TimerControl::Kind::once, [this, column] { fill(column); });
    }
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(look::gap);
    auto *head = new QHBoxLayout;
    auto *race = add(QStringLiteral("Label11"), new Label(QStringLiteral("Grand Prix")));
    race->setObjectName(QStringLiteral("large"));
    auto *circuit = add(QStringLiteral("Image2"), new Picture);
    circuit->setOutline(Outline::circuit);
    circuit->setFixedSize(110, 66);
    auto *back = button(QStringLiteral("Command2"), QStringLiteral("◀"), [this] { walk(QStringLiteral("Command9")); });
    auto *on = button(QStringLiteral("Command1"), QStringLiteral("▶"), [this] { walk(QStringLiteral("Command8")); });
    back->setToolTip(QStringLiteral("Grand Prix précédent"));
    on->setToolTip(QStringLiteral("Grand Prix suivant"));
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
    layout->addWidget(printCommand(QStringLiteral("Label10")), 0, Qt::AlignRight);
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
    photos->addWidget(picture(QStringLiteral("picture1"), 112, 140, Outline::driver));
    Picture *second = picture(QStringLiteral("Image1"), 80, 140, Outline::none);
    second->hide(); // most drivers have one picture
    m_second[static_cast<std::size_t>(column)] = second;
    photos->addWidget(second);
    photos->addStretch(1);
    layout->addLayout(photos);
    Picture *team = picture(QStringLiteral("ecuriE"), 196, 66, Outline::car);
    team->setToolTip(QStringLiteral("Clic = Agrandissement"));
    team->onClick = [this, column] { showLarge(column); };
    layout->addWidget(team, 0, Qt::AlignHCenter);
    auto *driver = add(utf8(nameLabels[column]), new Label);
    driver->setObjectName(QStringLiteral("podiumname"));
    driver->setAlignment(Qt::AlignCenter);
    layout->addWidget(driver);
    auto *place = add(utf8(placeLabels[column]), new Label(utf8(places[column])));
    place->setObjectName(QStringLiteral("podiumstep"));
    place->setAlignment(Qt::AlignCenter);
    place->setFixedHeight(blockHeight);
    layout->addWidget(place);
    return whole;
}

void Form12::fill(int column)
{
    const Season season = m_main.season();
    const std::string number = text(utf8(numberLabels[column])).toStdString();
    const std::string driver = season.nom(number);
    const std::string team = season.ecurie(number);
    const auto find = [this](const std::string &stored) { return m_main.surroundings.findPicture(stored); };
    const auto show = [this, column](const QString &name, const std::string &path) {
        setText(name, qt(path), column);
    };
    setText(utf8(nameLabels[column]), qt(driver));
    std::string photo = find(season.driver("path", number));
    if (photo.empty())
        photo = find(m_main.folder() + "\\Photos\\Pilotes\\photo_" + driver + ".jpg");
    std::string car = find(season.read(keys::N, keys::lblecuriE(team)));
    if (car.empty())
        car = find(m_main.folder() + "\\Photos\\Voitures\\picto_" + team + ".jpg");
    show(QStringLiteral("picture1"), photo);
    show(QStringLiteral("Image1"), find(season.driver("pi", number)));
    m_second[static_cast<std::size_t>(column)]->setVisible(!text(QStringLiteral("Image1"), column).isEmpty());
    show(QStringLiteral("ecuriE"), car);
    if (column == 0)
        setText(QStringLiteral("Image2"), qt(m_main.Image1.text()));
}

void Form12::walk(const QString &mainScreenButton)
{
    if (const Screen *main = context.screens.find(QStringLiteral("Form1")))
        main->press(mainScreenButton);
    for (int column = 0; column < 3; ++column) {
        setText(utf8(numberLabels[column]), qt(m_main.number(column + 1).text()));
        m_timers[static_cast<std::size_t>(column)]->start(100);
    }
    setText(QStringLiteral("Label11"), qt(m_main.gp.text()));
}

void Form12::showLarge(int column)
{
    const QString path = text(QStringLiteral("ecuriE"), column);
    Screen *viewer = path.isEmpty() ? nullptr : context.screens.open(QStringLiteral("Form16"));
    if (!viewer)
        return;
    viewer->setText(QStringLiteral("Image1"), path);
    const QPixmap picture(path);
    viewer->resize(picture.width() + static_cast<int>(50 / twipsPerPixel),
                   picture.height() + static_cast<int>(900 / twipsPerPixel));
}

}
