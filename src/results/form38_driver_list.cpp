#include "results/form38_driver_list.h"

#include "results/main_screen.h"
#include "shell/look.h"
#include "shell/place_names.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex {

Form38::Form38(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    auto *drivers = table({{QStringLiteral("Label1"), QString(), 60, Qt::AlignRight},
                           {QStringLiteral("Text1"), QStringLiteral("Pilote")}},
                          driverSlots);
    drivers->horizontalHeader()->hide();
    const Season season = context.main.season();
    for (int i = 0; i < driverSlots; ++i) {
        drivers->set(u"Label1", i, placeName(i + 1));
        drivers->set(u"Text1", i, qt(season.nom(i + 1)));
    }
    drivers->setFixedHeight(drivers->rowsHigh(driverSlots));
    auto *foot = new QHBoxLayout;
    foot->addWidget(printCommand(QStringLiteral("Label38")));
    foot->addStretch(1);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 10, 12, 12);
    layout->setSpacing(look::gap);
    layout->addWidget(drivers);
    layout->addLayout(foot);
    setFixedWidth(320);
    setFocus(); // of the screen, so that no name looks chosen
}

}
