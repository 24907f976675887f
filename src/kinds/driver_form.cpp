#include "kinds/driver_form.h"

#include "results/media_of_grand_prix.h"
#include "results/navigation.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>

namespace circuidex {

DriverScreenBase::DriverScreenBase(Context &theContext, const QString &name, const QString &title, results::DriverScreen kind) :
    Screen(theContext, name, title), m_main(theContext.main), m_kind(kind)
{
    hidden(u"Label21"_s);
    hidden(u"Label22"_s);
}

Edit *DriverScreenBase::box(QGridLayout &grid, int row, const QString &control, const QString &caption)
{
    auto *made = add(control, new Edit);
    grid.addWidget(styled(caption, "hint"), row, 0);
    grid.addWidget(made, row, 1);
    return made;
}

Picture *DriverScreenBase::picture(const QString &control, const QString &pathControl, const char *keyPrefix, Outline outline)
{
    auto *made = add(control, new Picture);
    made->setOutline(outline);
    made->setToolTip(u"Double-clic = Insertion d'une image"_s);
    made->onDoubleClick = [this, control, pathControl, keyPrefix] {
        choosePicture(control, pathControl, keyPrefix);
    };
    return made;
}

void DriverScreenBase::choosePicture(const QString &control, const QString &pathControl, std::string_view prefix)
{
    const auto chosen = results::choosePictureFile(context.dialogs, "Image");
    if (!chosen)
        return;
    setText(pathControl, qt(*chosen));
    setText(control, qt(findPicture(*chosen)));
    writableSeason().write(keys::N, keys::driver(prefix, number()), *chosen);
}

results::DriverRecord DriverScreenBase::record() const
{
    results::DriverRecord record;
    for (std::size_t i = 0; i < record.size(); ++i)
        record[i] = text(qt(results::driverFields[i].control)).toStdString();
    return record;
}

void DriverScreenBase::show(const results::DriverRecord &record)
{
    for (std::size_t i = 0; i < record.size(); ++i)
        setText(qt(results::driverFields[i].control), qt(record[i]));
}

void DriverScreenBase::readFields()
{
    show(results::readDriver(season(), number()));
    m_main.said.set("");
    showPictures();
}

void DriverScreenBase::showPictures()
{
    setText(u"picture1"_s, qt(findPicture(text(u"Label21"_s).toStdString())));
    setText(u"Image1"_s, qt(findPicture(text(u"Label22"_s).toStdString())));
}

bool DriverScreenBase::store()
{
    results::DriverRecord whole = completed(record(), m_kind);
    const std::string refusal = results::enterNames(season(), number(), whole);
    if (!refusal.empty()) {
        context.dialogs.message(refusal);
        return false;
    }
    show(whole);
    results::storeDriver(writableSeason(), number(), whole, m_kind);
    results::showNamesAnew(m_main);
    m_main.said.set("Pilote n° " + number() + " enregistré : " + text(u"Text1"_s).toStdString());
    return true;
}

}
