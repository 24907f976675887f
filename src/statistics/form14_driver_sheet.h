#pragma once
// Form14, the sheet of ratios beside the profile of a driver, Form3. It keeps the driver's seasons and moves the profile
// from number to number, storing the seasons of the driver it leaves.
#include "results/main_screen.h"
#include "shell/screens.h"

namespace circuidex {

class Form14 : public Screen {
public:
    Form14(Context &context, const QString &name, const QString &title);

private:
    void step(double by);
    void refresh();
    void storeSeasons();
    void countSeason();
    QString profile(const char *control) const; // text of a box of the profile
    std::string driver() const;                 // his name, as the profile has it

    MainScreen &m_main;
    Field m_seasons; // Text1
    bool m_reading = false;
};

}
