// SPDX-License-Identifier: GPL-3.0-or-later
// Form47, the end of the program: it closes the main screen, fetches the closing notice, which nobody waits for, and
// ends the program a second later.
#include "kinds/page_view.h"
#include "platform/platform.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QApplication>
#include <QBoxLayout>

namespace circuidex::screens {

namespace {

class Form47 : public Screen {
public:
    Form47(Context &context, const QString &name, const QString &title);

protected:
    void closing() override { context.platform.endProgram(); } // by whoever doesn't wait for it

private:
    void end();

    TimerControl *m_end = nullptr;
};

Form47::Form47(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    using Kind = TimerControl::Kind;
    auto *words = add(u"Label1"_s, new Label(u"Veuillez patienter"_s));
    auto *inside = new QVBoxLayout;
    inside->setContentsMargins(0, look::gap, 0, look::gap);
    inside->addWidget(words);
    page()->addWidget(card(u"Fermeture de Circuidex"_s, inside));
    resize(360, sizeHint().height());
    move(room().center() - rect().center());
    timer(u"Timer1"_s, 333, Kind::repeating, [words] { words->setText(words->text() + u'.'); });
    m_end = &timer(u"Timer2"_s, 1000, Kind::once, [this] { end(); });
    fetchNotice(context, u"//progunload.htm"_s, this);
    context.screens.close(u"Form1"_s);
}

// A box that is still up, about the display's mode, is answered first.
void Form47::end()
{
    if (QApplication::activeModalWidget())
        m_end->start(1000);
    else
        context.platform.endProgram();
}

}

ScreenRows form47()
{
    return {screenRow<Form47>(u"Form47"_s, u"Fermeture du programme en cours"_s)};
}

}
