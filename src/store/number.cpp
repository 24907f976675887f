// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace circuidex {

namespace {

std::string_view trimmed(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// from_chars also reads "inf" and "nan", which are names here, not numbers.
bool startsLikeNumber(std::string_view text, char separator)
{
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    return !text.empty() && ((text.front() >= '0' && text.front() <= '9') || text.front() == separator);
}

}

std::optional<double> Numbers::value(std::string_view text) const
{
    const std::string_view body = trimmed(text);
    if (!startsLikeNumber(body, m_separator) || body.size() > 400)
        return std::nullopt;
    std::string plain(body.front() == '+' ? body.substr(1) : body);
    for (char &c : plain) {
        if (c == m_separator)
            c = '.';
        else if (c == '.')
            return std::nullopt;
    }
    double number = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
    if (error != std::errc() || end != plain.data() + plain.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::string Numbers::text(double number) const
{
    if (number == 0)
        return "0"; // never "-0"
    char buffer[40];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::general, 15);
    std::string result(buffer, error == std::errc() ? end : buffer);
    for (char &c : result) {
        if (c == '.')
            c = m_separator;
        else if (c == 'e')
            c = 'E';
    }
    return result;
}

std::string Numbers::fixed(double number, int decimals) const
{
    const double unit = std::pow(10.0, decimals);
    // The nudge brings back halves that binary fractions keep just below.
    double rounded = std::round(number * unit + std::copysign(1e-7, number)) / unit;
    if (rounded == 0)
        rounded = 0; // never "-0"
    char buffer[400];
    const auto [end, error] =
        std::to_chars(buffer, buffer + sizeof buffer, rounded, std::chars_format::fixed, decimals);
    std::string result(buffer, error == std::errc() ? end : buffer);
    for (char &c : result)
        if (c == '.')
            c = m_separator;
    return result;
}

std::optional<std::string> Numbers::sum(std::string_view a, std::string_view b) const
{
    const auto x = value(a);
    const auto y = value(b);
    if (!x || !y || !std::isfinite(*x + *y))
        return std::nullopt;
    return text(*x + *y);
}

std::optional<std::string> Numbers::difference(std::string_view a, std::string_view b) const
{
    const auto x = value(a);
    const auto y = value(b);
    if (!x || !y || !std::isfinite(*x - *y))
        return std::nullopt;
    return text(*x - *y);
}

std::optional<int> Numbers::whole(std::string_view text, int first, int last) const
{
    const auto number = value(text);
    if (!number || *number < first || *number > last || *number != std::floor(*number))
        return std::nullopt;
    return static_cast<int>(*number);
}

std::string Numbers::stepped(std::string_view text, double by, std::optional<double> end) const
{
    const auto from = value(text);
    if (!from)
        return std::string(text);
    const double to = *from + by;
    return this->text(!end ? to : by < 0 ? std::max(to, *end) : std::min(to, *end));
}

}
