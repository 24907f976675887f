#pragma once
// Form20, one Grand Prix over ten years: who won it, and who was champion of each of those years.
#include "shell/lookup_screen.h"

namespace circuidex {

class Form20 : public LookupScreen {
public:
    Form20(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    void ask(); // Command1
    void stepName(int by, std::optional<int> end);
    void stepYear(const char *by);

    Field m_gp, m_year; // Text1, Text2
    Field m_index; // Label7, where the arrows stand in the all-time list
    Table *m_rows = nullptr;
};

}
