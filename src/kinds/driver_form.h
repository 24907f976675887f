#pragma once
// The driver screens: what Form2, for a new driver, and Form3, the profile, have in common. Boxes bound to the keys of
// a driver slot, two pictures.
#include "results/driver_screens.h"
#include "shell/screens.h"

class QGridLayout;

namespace circuidex {

class DriverScreenBase : public Screen {
public:
    DriverScreenBase(Context &context, const QString &name, const QString &title, results::DriverBoxes &boxes);

protected:
    Edit *numberBox(int width);
    // A box bound to its row in driverFields, and the same in the form, under its caption.
    Edit *box(const QString &control);
    Edit *box(QGridLayout &grid, int row, const QString &control, const QString &caption);
    // The key prefix is "path" for the photo and "pi" for the second picture.
    Picture *picture(const QString &control, Field &shown, std::string_view prefix, Outline outline);

    results::MainRecord &m_main;

private:
    results::DriverBoxes &m_boxes;
};

}
