#pragma once
// Form6, the drivers' championship: the season's 26 numbers sorted by points, each with his gap to the favourite.
#include "shell/standings_screen.h"

namespace circuidex {

class Form6 : public StandingsScreen {
public:
    Form6(Context &context, const QString &name, const QString &title);

protected:
    std::string next(int by) const override;
    std::string nameAt(const std::string &number) const override;
};

}
