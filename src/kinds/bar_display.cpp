// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/bar_display.h"

#include "kinds/place_names.h"
#include "shell/screens.h"

namespace circuidex {

using standings::Stage;

BarDisplay::Bar BarDisplay::bar(const QString &array, int index, QColor colour, Stage stage, int place,
                                std::function<TwipRect()> extent)
{
    ShapeControl &made = shape(array, index);
    made.setBack(colour);
    made.geometryNow = std::move(extent);
    return {&made, stage, place};
}

void BarDisplay::paint(ChartPicture &picture, const Bar &bar, double shift, Grows grows, double least,
                       const QString &when)
{
    TwipRect place = bar.control->geometry();
    place.left += shift;
    picture.bars.push_back({place, *bar.control->back()});
    if (double &extent = grows == Grows::up ? place.height : place.width; extent < least) {
        place.top -= grows == Grows::up ? least - extent : 0;
        extent = least;
    }
    const QString where = bar.stage == Stage::grid ? u"sur la grille"_s : u"à l'arrivée"_s;
    ChartTarget target{place, bar.control->tip(),
                       u"%1 %2%3 : %4 fois"_s.arg(placeName(bar.place), where, when, bar.control->tag)};
    if (bar.control->onPress)
        target.press = [control = bar.control] { control->press(); };
    picture.targets.push_back(std::move(target));
}

// The bars stand place by place, and of a place in the order of the columns.
table_text::Grid BarDisplay::figures(Stage stage, const QStringList &columns, const std::vector<Bar> &bars)
{
    table_text::Grid grid{stage == Stage::grid ? "Sur la grille" : "À l'arrivée", {{"Place"}}, {}};
    for (const QString &column : columns)
        grid.columns.push_back({column.toStdString(), true});
    for (const Bar &bar : bars) {
        if (grid.rows.empty() || grid.rows.back().size() == grid.columns.size())
            grid.rows.push_back({{placeName(bar.place).toStdString()}});
        grid.rows.back().push_back({bar.control->tag.toStdString()});
    }
    return grid;
}

void BarDisplay::listRaces(const Bar &bar, const QString &driver, const QString &first, const QString &last) const
{
    Screen *list = context.screens.open(bar.stage == Stage::grid ? u"Form75"_s : u"Form76"_s);
    if (!list)
        return;
    list->setText(u"Text1"_s, driver);
    list->setText(u"Text2"_s, QString::number(bar.place));
    list->setText(u"Text3"_s, first);
    list->setText(u"Text4"_s, last);
    list->press(u"Command1"_s);
}

}
