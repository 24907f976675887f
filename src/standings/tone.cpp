// SPDX-License-Identifier: GPL-3.0-or-later
#include "standings/tone.h"

namespace circuidex::standings {

std::string signedText(double value, std::string_view zero, const Numbers &numbers)
{
    if (value == 0)
        return std::string(zero);
    return (value > 0 ? "+" : "") + numbers.text(value);
}

Toned toned(std::optional<double> gained, const Numbers &numbers)
{
    if (!gained)
        return {};
    return {signedText(*gained, "=", numbers), *gained > 0 ? Tone::gain : *gained < 0 ? Tone::loss : Tone::level};
}

}
