// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/fixed_text.h"

#include "shell/text.h"

#include <QFile>

namespace circuidex {

QString fixedText(const QString &name)
{
    QFile file(u":/textes/%1.txt"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

}
