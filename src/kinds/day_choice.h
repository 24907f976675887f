// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A small calendar of one year below a box, from which a day is chosen: a click, or the arrows and Enter. Escape and a
// click elsewhere close it.
#include "results/calendar.h"

#include <QString>

#include <functional>

class QWidget;

namespace circuidex {

// Opens on the month of `near`, without one in March, when the seasons begin. A season that is no year is taken for
// this one.
void openDayChoice(QWidget *below, const QString &season, std::optional<results::Day> near,
                   std::function<void(results::Day)> chosen);

}
