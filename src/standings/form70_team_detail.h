#pragma once
// Form70, the constructors' championship in full: what each team scored in each Grand Prix.
#include "shell/detailed_grid.h"

namespace circuidex {

class Form70 : public DetailedGrid {
public:
    Form70(Context &context, const QString &name, const QString &title);

private:
    void fill();
};

}
