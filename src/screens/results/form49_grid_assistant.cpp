// SPDX-License-Identifier: GPL-3.0-or-later
// Form49, the assistant that fills the starting grid and leads on to that of the result.
#include "kinds/assistant.h"
#include "shell/screens.h"

namespace circuidex::screens {

namespace {

class Form49 : public Assistant {
public:
    Form49(Context &context, const QString &name, const QString &title);

protected:
    std::function<void()> taken(int place, const QString &number, const QString &driver) override;
    void validate() override;
    void skip() override;
    void closing() override;
};

Form49::Form49(Context &theContext, const QString &name, const QString &title) :
    Assistant(theContext, name, title, u"Cliquez sur le nom du pilote classé sur la Grille N°  "_s,
              gridPlaces)
{
}

// The first of the grid has the pole too; with nobody there it stays as it was.
std::function<void()> Form49::taken(int place, const QString &number, const QString &driver)
{
    const std::string pole = m_main.Text39.text(), poleName = m_main.Text9.text();
    const auto onGrid = [this, place](const QString &name) {
        if (const Screen *grid = context.screens.find(u"Form48"_s))
            grid->setText(u"Text99"_s, name, place - 1);
    };
    const Screen *grid = context.screens.find(u"Form48"_s);
    const QString before = grid ? grid->text(u"Text99"_s, place - 1) : QString();
    if (place == 1 && !number.isEmpty()) {
        m_main.Text39.set(number.toStdString());
        m_main.Text9.set(driver.toStdString());
    }
    onGrid(driver);
    return [this, place, pole, poleName, onGrid, before] {
        if (place == 1) {
            m_main.Text39.set(pole);
            m_main.Text9.set(poleName);
        }
        onGrid(before);
    };
}

void Form49::validate()
{
    if (const Screen *grid = context.screens.find(u"Form48"_s))
        grid->press(u"Command1"_s);
    close();
}

void Form49::skip()
{
    close();
}

void Form49::closing()
{
    context.screens.open(u"Form40"_s);
    context.screens.close(u"Form48"_s);
}

}

ScreenRows form49()
{
    return {screenRow<Form49>(u"Form49"_s, u"Enregistrement de la Grille de Départ"_s)};
}

}
