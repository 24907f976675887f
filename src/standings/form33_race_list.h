#pragma once
// Form33, the races behind one number of the season statistics. A moment after it opened it asks which statistic is on
// show; where none has races behind it, it closes again.
#include "shell/screen.h"

namespace circuidex {

class Form33 : public Screen {
public:
    Form33(Context &context, const QString &name, const QString &title);

private:
    void fill();
    void openRace(int row);

    Table *m_races = nullptr;
};

}
