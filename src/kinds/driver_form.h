#pragma once
// The driver screens: what Form2, for a new driver, and Form3, the profile, have in common. Boxes bound to the keys of a
// driver slot, two pictures, storing. Form2 itself stands here too.
#include "results/drivers.h"
#include "results/main_record.h"
#include "shell/screens.h"

#include <map>

class QGridLayout;

namespace circuidex {

class DriverScreenBase : public Screen {
public:
    DriverScreenBase(Context &context, const QString &name, const QString &title, results::DriverScreen kind);

protected:
    Season season() const { return m_main.season(); }
    WritableSeason writableSeason() const { return m_main.writableSeason(); }
    std::string number() const { return m_number.text(); }

    // A box in the form, under its caption; the key is that of the control's row in driverFields.
    Edit *box(QGridLayout &grid, int row, const QString &control, const QString &caption);
    Picture *picture(const QString &control, const QString &pathControl, const char *keyPrefix, Outline outline);

    results::DriverRecord record() const;
    void show(const results::DriverRecord &record);
    void readFields();              // the keys of the number on show
    virtual void showPictures();    // those with a path of their own
    bool store();                   // false, and the user is told, when a name can't be stored
    std::string findPicture(const std::string &stored) const { return m_main.surroundings.findPicture(stored); }

    results::MainRecord &m_main;
    Field m_number; // nopilot

private:
    void choosePicture(const QString &control, const QString &pathControl, std::string_view prefix);

    results::DriverScreen m_kind;
};

}
