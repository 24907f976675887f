// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Numbers held as text. Everything the program keeps is text; a figure is the text of the figure, written with the
// decimal separator of the user ("2,5" in French). Text that is no number has no value, and an operation on it has no
// result: the caller then leaves the key or the field as it was, and goes on with its next step.
#include <optional>
#include <string>
#include <string_view>

namespace circuidex {

class Numbers {
public:
    explicit Numbers(char decimalSeparator = '.') : m_separator(decimalSeparator) {}

    // Blanks around the number are allowed; the empty text, infinities and anything behind the number are not.
    std::optional<double> value(std::string_view text) const;

    // General form with up to 15 digits: no trailing zeros, no thousands separator.
    std::string text(double number) const;

    // With so many decimals, halves rounded away from zero: fixed(0.125, 2) is "0.13".
    std::string fixed(double number, int decimals) const;

    std::optional<std::string> sum(std::string_view a, std::string_view b) const;
    std::optional<std::string> difference(std::string_view a, std::string_view b) const;

    // A whole number from first to last; absent for any other text.
    std::optional<int> whole(std::string_view text, int first, int last) const;

    // So many on, or back where it is negative, never beyond the end given for that direction. A text that is no number
    // stays.
    std::string stepped(std::string_view text, double by, std::optional<double> end = {}) const;

    char separator() const { return m_separator; }

private:
    char m_separator;
};

}
