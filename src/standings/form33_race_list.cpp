#include "standings/form33_race_list.h"

#include "results/main_screen.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "standings/winners.h"

#include <QBoxLayout>

namespace circuidex {

namespace {

const QString statisticsScreen = QStringLiteral("Form32"), raceScreen = QStringLiteral("Form4");

}

Form33::Form33(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    auto *driver = add(QStringLiteral("Label2"), new Label);
    driver->setObjectName(QStringLiteral("large"));
    auto *head = new QHBoxLayout;
    head->addWidget(styled(QStringLiteral("Pilote :"), "hint"));
    head->addWidget(driver, 1);
    m_races = table({{{}, QStringLiteral("N°"), 40, Qt::AlignRight},
                     {QStringLiteral("Text3"), QStringLiteral("Grand Prix"), 0, Qt::AlignLeft,
                      QStringLiteral("Cliquez pour ouvrir ce Grand Prix, double-cliquez pour le refermer"), 1, true}},
                    static_cast<int>(listedRaces));
    m_races->setFixedHeight(m_races->rowsHigh(static_cast<int>(listedRaces)));
    m_races->onPress = [this](const QString &column, int row) {
        if (!column.isEmpty())
            openRace(row);
    };
    m_races->onDoubleClick = [this](const QString &, int) { context.screens.close(raceScreen); };
    auto *foot = new QHBoxLayout;
    foot->addWidget(printCommand(QStringLiteral("Label12")));
    foot->addStretch(1);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(look::gap);
    layout->addLayout(head);
    layout->addWidget(m_races);
    layout->addLayout(foot);
    setFixedWidth(320);
    setFocus(); // of the screen, so that no race looks chosen
    timer(QStringLiteral("Timer1"), 100, TimerControl::Kind::once, [this] { fill(); });
}

// The races are looked through one by one, for which an opened Grand Prix gives way.
void Form33::fill()
{
    context.screens.close(raceScreen);
    const Screen *statistics = context.screens.find(statisticsScreen);
    const auto what = countedRaces(statistics ? statistics->text(QStringLiteral("Label2")).toStdString() : "");
    const std::string driver = text(QStringLiteral("Label2")).toStdString();
    int row = 0;
    for (const std::string &race :
         what ? racesWith(context.main.season(), *what, driver) : std::vector<std::string>()) {
        ++row;
        m_races->model().cell(row - 1, 0).setText(QString::number(row));
        m_races->set(u"Text3", row, qt(race));
    }
    if (row == 0)
        close();
}

// A podium's row names the place too and opens nothing.
void Form33::openRace(int row)
{
    const QString race = m_races->text(u"Text3", row);
    const Screen *statistics = context.screens.find(statisticsScreen);
    if (race.isEmpty() || (statistics && statistics->text(QStringLiteral("Label2")) == u"pod"))
        return;
    if (const Screen *opened = context.screens.open(raceScreen)) {
        opened->setText(QStringLiteral("gp"), race);
        opened->press(QStringLiteral("Command12")); // its slot, from which the race is loaded
        opened->press(QStringLiteral("Command5"));
    }
}

}
