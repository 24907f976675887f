// SPDX-License-Identifier: GPL-3.0-or-later
// Intro, the splash screen: the picture that the user chose for it, or the program's own, for two seconds; a click
// shortens that, a double click chooses another picture. Then the main screen opens, which closes it.
#include "kinds/opening_picture.h"
#include "results/options.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPointer>

namespace circuidex::screens {

namespace {

class Intro : public Screen {
public:
    Intro(Context &context, const QString &name, const QString &title);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void goOn();
    void choose();

    TimerControl *m_late = nullptr, *m_clicked = nullptr, *m_doubled = nullptr;
    bool m_chosen = false;
};

Intro::Intro(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title, Chrome::none)
{
    using Kind = TimerControl::Kind;
    setWindowFlag(Qt::WindowStaysOnTopHint);
    const auto pass = [this] {
        if (!m_chosen)
            goOn();
    };
    m_late = &timer(u"Timer1"_s, 2000, Kind::once, pass);
    m_clicked = &timer(u"Timer2"_s, 0, Kind::once, pass);
    m_doubled = &timer(u"Timer3"_s, 0, Kind::once, [this] {
        m_clicked->stop();
        m_chosen = true;
    });
    auto *picture = add(u"Image1"_s, new OpeningPicture);
    picture->setPath(openingPicturePath(context));
    picture->onClick = [this] { m_clicked->start(250); };
    picture->onDoubleClick = [this] { choose(); };
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picture);
    resize(picture->sizeHint());
    const QRect free = this->room();
    move(free.center() - rect().center());
}

// The main screen closes this one at the end of its load; where it stands already, nobody else does.
void Intro::goOn()
{
    context.screens.open(u"Form1"_s);
    close();
}

void Intro::choose()
{
    m_late->stop();
    m_clicked->stop();
    m_doubled->start(100);
    const QPointer<Intro> still(this);
    results::chooseOpeningPicture(context.store, context.dialogs);
    if (still)
        goOn();
}

// Whoever doesn't want to wait needs no mouse.
void Intro::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Space)
        press(u"Image1"_s);
    else
        QWidget::keyPressEvent(event);
}

}

ScreenRows intro()
{
    return {screenRow<Intro>(u"Intro"_s, u"Circuidex"_s)};
}

}
