// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The driver screens: what Form2, for a new driver, and Form3, the profile, have in common. Boxes bound to the keys of
// a driver slot, two pictures.
#include "kinds/entry_screen.h"
#include "kinds/name_entry.h"
#include "results/driver_screens.h"
#include "shell/screens.h"

class QGridLayout;

namespace circuidex {

class DriverScreenBase : public EntryScreen {
public:
    DriverScreenBase(Context &context, const QString &name, const QString &title, results::DriverBoxes &boxes);

protected:
    bool unsaved() const override { return results::unsavedDriver(m_boxes); }
    void leave() { results::leaveDriver(m_main, m_boxes); }

    Edit *numberBox(int width);
    // A box bound to its row in driverFields, and the same in the form, under its caption.
    Edit *box(const QString &control);
    Edit *box(QGridLayout &grid, int row, const QString &control, const QString &caption);
    // The key prefix is "path" for the photo and "pi" for the second picture.
    Picture *picture(const QString &control, Field &shown, std::string_view prefix, Outline outline);

    results::MainRecord &m_main;
    const NameEntry m_known{context.main};

private:
    results::DriverBoxes &m_boxes;
};

}
