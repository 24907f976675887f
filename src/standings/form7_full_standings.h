#pragma once
// Form7, the drivers' championship in full: what each driver scored in each Grand Prix, in the order of their numbers.
// A moment after it opened the poles are marked; who wants the bare numbers stops that timer.
#include "shell/detailed_grid.h"
#include "store/season.h"

namespace circuidex {

class Form7 : public DetailedGrid {
public:
    Form7(Context &context, const QString &name, const QString &title);

private:
    enum class Poles { unmarked, marked };
    void fill(Poles poles);

    Season m_season; // the one that was open when the screen was
};

}
