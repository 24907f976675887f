#pragma once
// Form24, the winner of one Grand Prix in one year.
#include "shell/lookup_screen.h"

namespace circuidex {

class Form24 : public LookupScreen {
public:
    Form24(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QWidget *answer();
    void ask(); // Command1
    void step(int by, int end);

    Field m_year, m_gp; // Text1, Text2
    Field m_index; // Label7, where the arrows stand in the all-time list
};

}
