// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of screens that rank the field by one figure at a time: at the left the buttons of the figures, in groups on
// a colour, at the right the ranked rows with their bars. A bar bears as much of name and figure as it has room for.
#include "kinds/ranked_screen.h"
#include "statistics/bars.h"

#include <vector>

namespace circuidex {

class RankedBars : public RankedScreen {
public:
    RankedBars(Context &context, const QString &name, const QString &title);

protected:
    // A figure to rank by. Its button shows the title in `Label3`, and its caption is in bold for as long.
    struct Mode {
        QString button, caption, title;
        std::function<void()> choose;
    };
    struct ModeGroup {
        QString heading;
        QColor colour;
        std::vector<Mode> modes;
    };

    enum class Coloured { ground, buttons };

    // The whole screen: `Text3` names, `Text4` figures and `graph` bars in rows 1 to 26, and the print command named.
    void layOut(const std::vector<ModeGroup> &groups, Coloured coloured, const QString &print);

    void showRows(const std::vector<standings::StandingsRow> &rows, const statistics::Bars &bars);
    // Who stands in the rows, over their names, and what a click on one does; empty where it does nothing.
    void describeRows(const QString &title, const QString &tip);
    QString rowName(int row) const { return m_table->text(u"Text3", row); }

    virtual void openRow(int row) = 0; // a click on it

private:
    class BarDelegate;

    QWidget *buttons(const ModeGroup &group, Coloured coloured);
    Table *makeRows();
    void mark(const QString &button);

    QStringList m_buttons;
    statistics::Bars m_bars;
    Table *m_table = nullptr;
};

}
