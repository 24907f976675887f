// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Texts for the window system: a control's name or a caption is written u"Text3"_s, a text of the logic passes through
// qt(), a name that is searched for through folded().
#include <QString>

#include <string_view>

namespace circuidex {

using namespace Qt::StringLiterals;

inline QString qt(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Without accents and capitals, so that "raikkonen" finds Räikkönen.
inline QString folded(const QString &name)
{
    QString letters = name.normalized(QString::NormalizationForm_D).toCaseFolded();
    letters.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return letters;
}

}
