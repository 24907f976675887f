// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/warning_line.h"

#include "shell/text.h"

namespace circuidex {

WarningLine::WarningLine()
{
    setObjectName(u"warning"_s);
    setWordWrap(true);
    setMinimumWidth(1);
    setAlignment(Qt::AlignTop | Qt::AlignLeft);
    setFixedHeight(2 * fontMetrics().height());
}

void WarningLine::show(const results::Warnings &warnings)
{
    QStringList all;
    for (const std::string &warning : warnings)
        all << qt(warning);
    setText(qt(results::inOneLine(warnings)));
    setToolTip(all.join(u'\n'));
}

}
