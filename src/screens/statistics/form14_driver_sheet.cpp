// Form14, the sheet of ratios beside the profile of a driver, Form3. It keeps the driver's seasons and moves the profile
// from number to number, storing the seasons of the driver it leaves.
#include "results/drivers.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/driver_sheet.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex::screens {

namespace {

class Form14 : public Screen {
public:
    Form14(Context &context, const QString &name, const QString &title);

private:
    void step(double by);
    void refresh();
    void storeSeasons();
    void countSeason();
    QString profile(const QString &control) const; // text of a box of the profile
    std::string driver() const;                 // his name, as the profile has it

    results::MainRecord &m_main;
    Field m_seasons; // Text1
    bool m_reading = false;
};

Form14::Form14(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main)
{
    hidden(u"Command1"_s, {}, [this] { countSeason(); });
    hidden(u"Command2"_s, u">>"_s, [this] { step(1); });
    hidden(u"Command3"_s, u"<<"_s, [this] { step(-1); });
    hidden(u"Actualiser"_s, {}, [this] { refresh(); });
    auto *driver = add(u"Label24"_s, new Label);
    driver->setObjectName(u"large"_s);
    auto *seasons = add(u"Text1"_s, new Edit);
    seasons->setFixedWidth(44);
    seasons->setAlignment(Qt::AlignRight);
    bind(seasons, m_seasons);
    listen(m_seasons, [this](const std::string &) { storeSeasons(); });
    auto *head = new QHBoxLayout;
    head->addWidget(driver, 1);
    head->addWidget(styled(u"Saisons en F1:"_s, "hint"));
    head->addWidget(seasons);
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    int at = 0;
    for (const statistics::RatioRow &row : statistics::ratioRows) {
        auto *caption = styled(qt(row.caption), "hint");
        caption->setWordWrap(true);
        auto *value = add(u"Label10"_s, new Label, row.index);
        value->setObjectName(u"figure"_s);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(80);
        auto *compare = button(qt(row.button), u"..."_s, [this, row] {
            if (const Screen *field = context.screens.open(u"Form69"_s))
                field->press(qt(row.statistic));
        });
        compare->setToolTip(u"Cliquez ici pour comparer ce pilote a l'ensemble du plateau"_s);
        leadsTo(*compare, u"Form69"_s);
        compare->setFixedWidth(34);
        grid->addWidget(caption, at, 0);
        grid->addWidget(value, at, 1);
        grid->addWidget(compare, at, 2);
        ++at;
    }
    grid->setColumnStretch(0, 1);
    auto *zone = add(u"Label13"_s, new Label(u"ZONE D'IMPRESSION POUR LE PROFIL"_s));
    zone->setObjectName(u"hint"_s);
    auto *print = command(u"Label12"_s, u"Imprimer - A coté d'une fiche Pilote"_s, [this, zone] {
        zone->clear();
        this->print();
    });
    auto *layout = page();
    layout->addLayout(head);
    layout->addWidget(card({}, grid));
    layout->addStretch(1);
    layout->addWidget(zone, 0, Qt::AlignCenter);
    layout->addWidget(print, 0, Qt::AlignRight);
    resize(400, 620);
}

QString Form14::profile(const QString &control) const
{
    const Screen *screen = context.screens.find(u"Form3"_s);
    return screen ? screen->text(control) : QString();
}

std::string Form14::driver() const
{
    return profile(u"Text1"_s).toStdString();
}

void Form14::storeSeasons()
{
    if (!m_reading)
        results::storeCareerSeasons(m_main.writableSeason(), driver(), m_seasons.text());
}

// The seasons of the driver left are kept, then the profile and this sheet show the next one.
void Form14::step(double by)
{
    storeSeasons();
    const Screen *screen = context.screens.find(u"Form3"_s);
    if (!screen)
        return;
    if (const auto number = context.store.numbers().value(profile(u"nopilot"_s).toStdString()))
        screen->setText(u"nopilot"_s, qt(context.store.numbers().text(*number + by)));
    screen->press(u"Command1"_s);
    refresh();
}

void Form14::refresh()
{
    const Season season = m_main.season();
    const std::string kept = results::careerSeasons(season, driver());
    m_reading = true;
    m_seasons.set(kept.empty() ? "1" : kept);
    m_reading = false;
    if (kept.empty())
        storeSeasons(); // a career starts with this season
    setText(u"Label24"_s, qt(driver()));
    const auto figure = [this](const QString &control) { return profile(control).toStdString(); };
    const auto rows = statistics::driverRatios({figure(u"Text4"_s), figure(u"Text11"_s), figure(u"Text5"_s), figure(u"Text7"_s), figure(u"Text9"_s),
                                    figure(u"Text2"_s), season.read(keys::gp, "nogp"), m_seasons.text()},
                                   context.store.numbers());
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i])
            setText(u"Label10"_s, qt(*rows[i]), static_cast<int>(i));
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

ScreenRows form14()
{
    return {screenRow<Form14>(u"Form14"_s, u"Statistiques"_s)};
}

}
