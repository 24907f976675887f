// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/pair.h"

#include <cmath>
#include <compare>

namespace circuidex::charts {

namespace {

// Numbers by their size, any other text above them.
std::partial_ordering ranked(const std::string &a, const std::string &b, const Numbers &numbers)
{
    const auto x = numbers.value(a), y = numbers.value(b);
    if (x && y)
        return *x <=> *y;
    if (x || y)
        return y ? std::partial_ordering::greater : std::partial_ordering::less;
    return a <=> b;
}

struct Side {
    const std::string &name, &total;
    double &bar;
};

void tell(std::string &sentence, const Side &ahead, const Side &behind, std::string_view leads, const Numbers &numbers)
{
    const auto gap = numbers.difference(ahead.total, behind.total);
    if (!gap)
        return;
    sentence = ahead.name;
    sentence.append(leads).append(ahead.total).append(" points alors que ").append(behind.name);
    sentence.append(" n'en a que ").append(behind.total).append(". Il y a donc ").append(*gap);
    sentence.append(" point(s) qui les séparent.");
}

void measure(const Side &ahead, const Side &behind, const Numbers &numbers)
{
    ahead.bar = fullBar;
    const auto more = numbers.value(ahead.total), less = numbers.value(behind.total);
    const double width = more && less ? fullBar * (*less / *more) : -1;
    if (std::isfinite(width) && width >= 0)
        behind.bar = width;
}

}

void compare(Pair &pair, const std::string &nameA, const std::string &nameB, std::string_view leads,
             const Numbers &numbers)
{
    const Side a{nameA, pair.totalA, pair.barA}, b{nameB, pair.totalB, pair.barB};
    const auto order = ranked(a.total, b.total, numbers);
    if (order == 0) {
        pair.barA = pair.barB = fullBar;
        pair.sentence = nameB + " a le même nombre de points que " + nameA + ". Ils ont " + a.total + " points.";
        return;
    }
    const Side &ahead = order > 0 ? a : b, &behind = order > 0 ? b : a;
    measure(ahead, behind, numbers);
    tell(pair.sentence, ahead, behind, leads, numbers);
}

}
