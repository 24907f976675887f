#pragma once
// The driver screens: what Form2, for a new driver, and Form3, the profile, have in common. Boxes bound to the keys of a
// driver slot, two pictures, storing. Form2 itself stands here too.
#include "results/drivers.h"
#include "results/main_screen.h"
#include "shell/screens.h"

#include <map>

class QGridLayout;

namespace circuidex {

class DriverScreenBase : public Screen {
public:
    DriverScreenBase(Context &context, const QString &name, const QString &title, DriverScreen kind);

protected:
    Season season() const { return m_main.season(); }
    std::string number() const { return m_number.text(); }

    // A box in the form, under its caption; the key is that of the control's row in driverFields.
    Edit *box(QGridLayout &grid, int row, const char *control, const QString &caption);
    Picture *picture(const char *control, const char *pathControl, const char *keyPrefix, Outline outline);

    DriverRecord record() const;
    void show(const DriverRecord &record);
    void readFields();              // the keys of the number on show
    virtual void showPictures();    // those with a path of their own
    void store();
    std::string findPicture(const std::string &stored) const { return m_main.surroundings.findPicture(stored); }

    MainScreen &m_main;
    Field m_number; // nopilot

private:
    void choosePicture(const QString &control, const QString &pathControl, std::string_view prefix);

    DriverScreen m_kind;
};

class Form2 : public DriverScreenBase {
public:
    Form2(Context &context, const QString &name, const QString &title);

private:
    void step(double by);
    void walkTeams(double by);
};

}
