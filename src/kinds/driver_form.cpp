// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/driver_form.h"

#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

DriverScreenBase::DriverScreenBase(Context &theContext, const QString &name, const QString &title,
                                   results::DriverBoxes &boxes)
    : EntryScreen(theContext, name, title), m_main(theContext.main), m_boxes(boxes)
{
}

Edit *DriverScreenBase::numberBox(int width)
{
    auto *made = add(u"nopilot"_s, new Edit);
    made->setFixedWidth(width);
    made->setAlignment(Qt::AlignRight);
    bind(made, m_boxes.nopilot);
    listen(m_boxes.nopilot, [this](const std::string &) { showUnsaved(); });
    return made;
}

Edit *DriverScreenBase::box(const QString &control)
{
    auto *made = add(control, new Edit);
    for (std::size_t i = 0; i < results::driverFields.size(); ++i)
        if (qt(results::driverFields[i].control) == control) {
            bind(made, m_boxes.boxes[i]);
            listen(m_boxes.boxes[i], [this](const std::string &) { showUnsaved(); });
        }
    if (control == u"Text1")
        m_known.offerDrivers(made);
    else if (control == u"Text8")
        m_known.offerTeams(made);
    return made;
}

Edit *DriverScreenBase::box(QGridLayout &grid, int row, const QString &control, const QString &caption)
{
    Edit *made = box(control);
    grid.addWidget(styled(caption, "hint"), row, 0);
    grid.addWidget(made, row, 1);
    return made;
}

Picture *DriverScreenBase::picture(const QString &control, Field &shown, std::string_view prefix, Outline outline)
{
    const results::DriverField &row = results::driverFields[results::driverField(prefix)];
    hidden(qt(row.control), m_boxes.box(prefix));
    auto *made = add(control, new Picture);
    made->setOutline(outline);
    made->setToolTip(u"Double-clic = Insertion d'une image"_s);
    bind(made, shown);
    made->onDoubleClick = [this, prefix] { results::chooseDriverPicture(m_main, m_boxes, prefix); };
    return made;
}

}
