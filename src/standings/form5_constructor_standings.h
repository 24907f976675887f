#pragma once
// Form5, the constructors' championship: up to 13 rows of teams sorted by points, teams that are level in one row, each
// row with its gap to the favourite.
#include "shell/standings_screen.h"

namespace circuidex {

class Form5 : public StandingsScreen {
public:
    Form5(Context &context, const QString &name, const QString &title);

protected:
    std::string next(int by) const override;
    std::string nameAt(const std::string &number) const override;
    void closing() override;

private:
    void registerHidden();
};

}
