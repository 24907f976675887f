// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all displays of how often somebody stood at each place: a bar for each place of the grid and of the
// finish, a named control with its extent in twips, from which it is painted and through which it answers. A derived
// screen says where its bars stand and how long they are.
#include "kinds/lookup_screen.h"
#include "shell/chart_view.h"
#include "standings/race_places.h"

namespace circuidex {

class BarDisplay : public LookupScreen {
protected:
    using LookupScreen::LookupScreen;

    // The tag of its control is the count.
    struct Bar {
        ShapeControl *control;
        standings::Stage stage;
        int place;
    };
    Bar bar(const QString &array, int index, QColor colour, standings::Stage stage, int place,
            std::function<TwipRect()> extent);

    // Moved by so many twips to the right. The target around it is at least `least` high and wide, from the given
    // corner of the bar on; `when` stands behind the place in what it says, as ", saison 2004".
    enum class Grows { right, up };
    static void paint(ChartPicture &picture, const Bar &bar, double shift, Grows grows, double least,
                      const QString &when = {});

    // The counts of a stage's bars: a row for each place, a column for each season told.
    static table_text::Grid figures(standings::Stage stage, const QStringList &columns, const std::vector<Bar> &bars);

    // The races in which a driver held the place of a bar, in the seasons from first to last.
    void listRaces(const Bar &bar, const QString &driver, const QString &first, const QString &last) const;
};

}
