#include "shell/window_place.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <limits>

namespace circuidex {

namespace {

constexpr int farthest = 100000; // pixels, more than any desktop has
constexpr int cascade = 30; // so that the title bar below still shows

QRect around(const QRect &what, const QSize &window, int side)
{
    switch (side) {
    case 0:
        return {QPoint(what.right() + 1, what.top()), window};
    case 1:
        return {QPoint(what.left() - window.width(), what.top()), window};
    case 2:
        return {QPoint(what.left(), what.bottom() + 1), window};
    default:
        return {QPoint(what.left(), what.top() - window.height()), window};
    }
}

double area(const QRect &covered)
{
    return covered.isEmpty() ? 0 : double(covered.width()) * covered.height();
}

}

QString asText(const KeptPlace &place)
{
    const QString at =
        QStringLiteral("%1 %2 %3 %4").arg(place.at.x()).arg(place.at.y()).arg(place.at.width()).arg(place.at.height());
    return place.maximised ? at + QStringLiteral(" max") : at;
}

std::optional<KeptPlace> keptPlace(const QString &text)
{
    QStringList words = text.split(u' ');
    const bool maximised = words.size() == 5 && words.last() == QLatin1String("max");
    if (maximised)
        words.removeLast();
    if (words.size() != 4)
        return std::nullopt;
    std::array<int, 4> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        bool isNumber = false;
        numbers[i] = words[static_cast<qsizetype>(i)].toInt(&isNumber);
        if (!isNumber || std::abs(numbers[i]) > farthest)
            return std::nullopt;
    }
    const auto [x, y, width, height] = numbers;
    if (width <= 0 || height <= 0)
        return std::nullopt;
    return KeptPlace{{x, y, width, height}, maximised};
}

QRect wholeOn(const QRect &room, const QRect &window)
{
    const int left = std::max(room.x(), std::min(window.x(), room.right() + 1 - window.width()));
    const int top = std::max(room.y(), std::min(window.y(), room.bottom() + 1 - window.height()));
    return {QPoint(left, top), window.size()};
}

QPoint besideOpener(const QSize &window, const QRect &opener, const QRect &group, const QRect &room,
                    const QList<QPoint> &taken)
{
    constexpr double weight = 20; // of the group, against the rest
    double least = std::numeric_limits<double>::max();
    QRect best;
    for (const QRect &what : {group, opener})
        for (int side = 0; side < 4 && what.isValid(); ++side) {
            const QRect tried = wholeOn(room, around(what, window, side));
            const double covers = area(tried & opener) + weight * area(tried & group);
            if (covers < least) {
                least = covers;
                best = tried;
            }
        }
    for (int i = 0; i < taken.size() && taken.contains(best.topLeft()); ++i)
        best = wholeOn(room, best.translated(cascade, cascade));
    return best.topLeft();
}

}
