// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One short sentence over what shows nothing for want of data: what is missing, and the button that brings it. A click
// on it goes there. It comes and goes by itself with what is under it, and takes no room from it.
#include "results/first_steps.h"
#include "shell/screen.h"

#include <functional>

namespace circuidex {

inline const QString emptyNote = u"manque"_s; // its control

struct Missing {
    QString says;
    std::function<void()> lead = {}; // a click; without it the mouse reaches what is underneath
};

class EmptyNote : public Label {
public:
    // `missing` is asked whenever `over` is shown or painted; absent while there is something to show.
    EmptyNote(QWidget &over, std::function<std::optional<Missing>()> missing);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void look();

    QWidget &m_over;
    std::function<std::optional<Missing>()> m_missing;
    bool m_due = false; // it will look at the next turn of the event loop
};

// Over a table, for as long as the column of that name is blank: what of `need` the season on the main screen lacks.
EmptyNote *noteOver(Table &table, const QString &column, Context &context, results::Need need);
// The same with a sentence of its own, whatever the season has.
EmptyNote *noteOver(Table &table, const QString &column, const QString &says);
// Over a chart, or an answer in words, for as long as that season has no race.
EmptyNote *noteOver(QWidget &chart, Context &context);

}
