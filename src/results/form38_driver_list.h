#pragma once
// Form38, the drivers of the season as a plain list to read and print.
#include "shell/screens.h"

namespace circuidex {

class Form38 : public Screen {
public:
    Form38(Context &context, const QString &name, const QString &title);
};

}
