#pragma once
// Texts for the window system: a control's name or a caption is written u"Text3"_s, a text of the logic passes through qt().
#include <QString>

#include <string_view>

namespace circuidex {

using namespace Qt::StringLiterals;

inline QString qt(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}
