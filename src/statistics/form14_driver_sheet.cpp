#include "statistics/form14_driver_sheet.h"

#include "results/drivers.h"
#include "shell/look.h"
#include "statistics/driver_sheet.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

Form14::Form14(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main)
{
    hidden(QStringLiteral("Command1"), {}, [this] { countSeason(); });
    hidden(QStringLiteral("Command2"), QStringLiteral(">>"), [this] { step(1); });
    hidden(QStringLiteral("Command3"), QStringLiteral("<<"), [this] { step(-1); });
    hidden(QStringLiteral("Actualiser"), {}, [this] { refresh(); });
    auto *driver = add(QStringLiteral("Label24"), new Label);
    driver->setObjectName(QStringLiteral("large"));
    auto *seasons = add(QStringLiteral("Text1"), new Edit);
    seasons->setFixedWidth(44);
    seasons->setAlignment(Qt::AlignRight);
    bind(seasons, m_seasons);
    listen(m_seasons, [this](const std::string &) { storeSeasons(); });
    auto *head = new QHBoxLayout;
    head->addWidget(driver, 1);
    head->addWidget(styled(QStringLiteral("Saisons en F1:"), "hint"));
    head->addWidget(seasons);
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    int at = 0;
    for (const RatioRow &row : ratioRows) {
        auto *caption = styled(qt(row.caption), "hint");
        caption->setWordWrap(true);
        auto *value = add(QStringLiteral("Label10"), new Label, row.index);
        value->setObjectName(QStringLiteral("figure"));
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(80);
        auto *compare = button(qt(row.button), QStringLiteral("..."), [this, row] {
            if (const Screen *field = context.screens.open(QStringLiteral("Form69")))
                field->press(qt(row.statistic));
        });
        compare->setToolTip(QStringLiteral("Cliquez ici pour comparer ce pilote a l'ensemble du plateau"));
        compare->setFixedWidth(34);
        grid->addWidget(caption, at, 0);
        grid->addWidget(value, at, 1);
        grid->addWidget(compare, at, 2);
        ++at;
    }
    grid->setColumnStretch(0, 1);
    auto *zone = add(QStringLiteral("Label13"), new Label(QStringLiteral("ZONE D'IMPRESSION POUR LE PROFIL")));
    zone->setObjectName(QStringLiteral("hint"));
    auto *print = command(QStringLiteral("Label12"), QStringLiteral("Imprimer - A coté d'une fiche Pilote"), [this, zone] {
        zone->clear();
        this->print();
    });
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 10, 10, 10);
    layout->setSpacing(look::gap);
    layout->addLayout(head);
    layout->addWidget(card({}, grid));
    layout->addStretch(1);
    layout->addWidget(zone, 0, Qt::AlignCenter);
    layout->addWidget(print, 0, Qt::AlignRight);
    resize(400, 620);
}

QString Form14::profile(const char *control) const
{
    const Screen *screen = context.screens.find(QStringLiteral("Form3"));
    return screen ? screen->text(QString::fromLatin1(control)) : QString();
}

std::string Form14::driver() const
{
    return profile("Text1").toStdString();
}

void Form14::storeSeasons()
{
    if (!m_reading)
        storeCareerSeasons(m_main.season(), driver(), m_seasons.text());
}

// The seasons of the driver left are kept, then the profile and this sheet show the next one.
void Form14::step(double by)
{
    storeSeasons();
    const Screen *screen = context.screens.find(QStringLiteral("Form3"));
    if (!screen)
        return;
    if (const auto number = context.store.numbers().value(profile("nopilot").toStdString()))
        screen->setText(QStringLiteral("nopilot"), qt(context.store.numbers().text(*number + by)));
    screen->press(QStringLiteral("Command1"));
    refresh();
}

void Form14::refresh()
{
    const Season season = m_main.season();
    const std::string kept = careerSeasons(season, driver());
    m_reading = true;
    m_seasons.set(kept.empty() ? "1" : kept);
    m_reading = false;
    if (kept.empty())
        storeSeasons(); // a career starts with this season
    setText(QStringLiteral("Label24"), qt(driver()));
    const auto figure = [this](const char *control) { return profile(control).toStdString(); };
    const auto rows = driverRatios({figure("Text4"), figure("Text11"), figure("Text5"), figure("Text7"), figure("Text9"),
                                    figure("Text2"), season.read(keys::gp, "nogp"), m_seasons.text()},
                                   context.store.numbers());
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i])
            setText(QStringLiteral("Label10"), qt(*rows[i]), static_cast<int>(i));
}

// The change of season: 24 drivers, from the one on show, have one season more.
void Form14::countSeason()
{
    for (int pass = 0; pass < 24; ++pass) {
        if (const auto more = context.store.numbers().sum(m_seasons.text(), "1"))
            m_seasons.set(*more);
        step(1);
    }
}

}
