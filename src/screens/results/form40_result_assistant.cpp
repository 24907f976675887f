// SPDX-License-Identifier: GPL-3.0-or-later
// Form40, the assistant that asks for the first eight and records the Grand Prix.
#include "kinds/assistant.h"
#include "shell/screens.h"

namespace circuidex::screens {

namespace {

class Form40 : public Assistant {
public:
    Form40(Context &context, const QString &name, const QString &title);

protected:
    std::function<void()> taken(int place, const QString &number, const QString &driver) override;
    void validate() override;
    void skip() override;
    void closing() override;
};

Form40::Form40(Context &theContext, const QString &name, const QString &title) :
    Assistant(theContext, name, title, u"Cliquez sur le nom du pilote qui est classé N° "_s,
              classifiedPlaces)
{
}

std::function<void()> Form40::taken(int place, const QString &number, const QString &driver)
{
    const std::string before = m_main.number(place).text(), nameBefore = m_main.name(place).text();
    m_main.number(place).set(number.toStdString());
    if (!number.isEmpty())
        m_main.name(place).set(driver.toStdString());
    return [this, place, before, nameBefore] {
        m_main.number(place).set(before);
        m_main.name(place).set(nameBefore);
    };
}

void Form40::validate()
{
    if (const Screen *main = context.screens.find(u"Form1"_s))
        main->press(u"Command5"_s);
    close();
}

void Form40::skip()
{
    close();
}

void Form40::closing()
{
    context.screens.bringMainBack();
}

}

ScreenRows form40()
{
    return {screenRow<Form40>(u"Form40"_s, u"Eenregistrement de Grand-Prix"_s)};
}

}
