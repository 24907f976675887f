#pragma once
// Keys by the names that a French keyboard gives them: "Maj+Ctrl+P", "Page préc.".
class QKeySequence;
class QString;

namespace circuidex {

QString keysInWords(const QKeySequence &keys);

}
