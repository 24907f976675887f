#include "shell/key_names.h"

#include "shell/text.h"

#include <QKeySequence>
#include <QStringList>

#include <map>

namespace circuidex {

// The words of the portable form are Qt's own, whatever the language. Shift stands first, as in all tips.
QString keysInWords(const QKeySequence &keys)
{
    static const std::map<QString, QString> names{
        {u"Shift"_s, u"Maj"_s},           {u"PgUp"_s, u"Page préc."_s},          {u"PgDown"_s, u"Page suiv."_s},
        {u"Return"_s, u"Entrée"_s},       {u"Enter"_s, u"Entrée (pavé)"_s},      {u"Esc"_s, u"Échap"_s},
        {u"Del"_s, u"Suppr"_s},           {u"Backspace"_s, u"Retour arrière"_s}, {u"Left"_s, u"Flèche gauche"_s},
        {u"Right"_s, u"Flèche droite"_s}, {u"Up"_s, u"Flèche haut"_s},           {u"Down"_s, u"Flèche bas"_s},
    };
    QStringList words = keys.toString(QKeySequence::PortableText).split(u'+');
    if (words.removeOne(u"Shift"_s))
        words.prepend(u"Shift"_s);
    for (QString &word : words)
        if (const auto found = names.find(word); found != names.end())
            word = found->second;
    return words.join(u'+');
}

}
