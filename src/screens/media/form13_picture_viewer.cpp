// SPDX-License-Identifier: GPL-3.0-or-later
// Form13, the pictures of the Grand Prix on show, large: the race's when it opens, from race to race the circuits'.
#include "kinds/viewer.h"
#include "results/main_record.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

Label *boldLabel()
{
    auto *made = new Label;
    made->setObjectName(u"figure"_s);
    return made;
}

class Form13 : public Viewer {
public:
    Form13(Context &context, const QString &name, const QString &title);
    Form13(Context &context, const QString &name, const QString &title, Label *between, Label *heading);

protected:
    void step(int by) override;

private:
    void showRace(const std::string &picture);

    results::MainRecord &m_main;
};

Form13::Form13(Context &theContext, const QString &name, const QString &title)
    : Form13(theContext, name, title, new Label(u"/"_s), boldLabel())
{
}

Form13::Form13(Context &theContext, const QString &name, const QString &title, Label *between, Label *heading)
    : Viewer(theContext, name, title, between, heading), m_main(theContext.main)
{
    add(u"Label11"_s, heading);
    add(u"Label2"_s, between);
    hidden(u"Label1"_s);
    showRace(m_main.Image2.text());
}

void Form13::showRace(const std::string &picture)
{
    setText(u"Image1"_s, qt(picture));
    for (const QString &named : {u"Label1"_s, u"Label11"_s})
        setText(named, qt(m_main.gp.text()));
}

// The circuit of the race that the main screen then shows, at its own size.
void Form13::step(int by)
{
    if (const Screen *main = context.screens.find(u"Form1"_s))
        main->press(by > 0 ? u"Command8"_s : u"Command9"_s);
    showRace(m_main.Image1.text());
    showAsLarge();
}

}

ScreenRows form13()
{
    return {screenRow<Form13>(u"Form13"_s, u"Aperçu"_s)};
}

}
