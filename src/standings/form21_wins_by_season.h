#pragma once
// Form21, one season: winner and team of each Grand Prix, and the champion. For a year without a file the archive tells
// the winners.
#include "shell/lookup_screen.h"

namespace circuidex {

class Form21 : public LookupScreen {
public:
    Form21(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    void ask(); // Command1
    void stepYear(const char *by);

    Field m_year; // Text2, as typed
    Field m_shown; // Label2, the season that the rows come from; it takes over what was typed when it has been shown
    Field m_champion; // Label5
    Table *m_rows = nullptr;
};

}
