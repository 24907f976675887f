#pragma once
// Form23, all wins of one driver over the twenty years that end with the open season. The wins stand in a panel of
// seven columns, three of which are seen at a time.
#include "shell/lookup_screen.h"

namespace circuidex {

class Form23 : public LookupScreen {
public:
    Form23(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QWidget *panel();
    void ask(); // Command1
    void step(int by);
    void scroll(double by); // twips

    Field m_driver; // Text1
    Field m_number{"0"}; // nopilott, where the arrows stand
    Label *m_count = nullptr;
    Table *m_wins = nullptr;
    Control *m_panel = nullptr; // Picture1
};

}
