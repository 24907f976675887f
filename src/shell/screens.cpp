#include "shell/screens.h"

#include <QApplication>

#include <algorithm>

namespace circuidex {

Screens::~Screens()
{
    onChange = {};
    while (!m_open.empty()) {
        Screen *last = m_open.back();
        m_open.pop_back();
        delete last;
    }
}

const ScreenRow *Screens::row(const QString &name) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&](const ScreenRow &r) { return r.name == name; });
    return found == m_rows.end() ? nullptr : &*found;
}

Screen *Screens::find(const QString &name) const
{
    const auto found = std::find_if(m_open.begin(), m_open.end(), [&](Screen *s) { return s->name() == name; });
    return found == m_open.end() ? nullptr : *found;
}

Screen *Screens::open(const QString &name)
{
    Screen *screen = openUnseen(name);
    if (screen)
        screen->present();
    return screen;
}

Screen *Screens::openUnseen(const QString &name)
{
    if (Screen *screen = find(name))
        return screen;
    const ScreenRow *made = m_ending ? nullptr : row(name);
    if (!made)
        return nullptr;
    Screen *screen = made->make(*m_context, made->name, made->title);
    if (onChange)
        onChange(name, true);
    return screen;
}

Screen *Screens::openFromMenu(const QString &name)
{
    Screen *screen = open(name);
    if (screen && row(name)->opened)
        row(name)->opened(*screen);
    return screen;
}

void Screens::close(const QString &name)
{
    if (Screen *screen = find(name))
        screen->close();
}

void Screens::closeAllBut(const QStringList &kept)
{
    m_ending = true;
    const auto other = [&](const Screen *screen) { return !kept.contains(screen->name()); };
    for (;;) {
        const auto last = std::find_if(m_open.rbegin(), m_open.rend(), other);
        if (last == m_open.rend())
            break;
        (*last)->close(); // takes itself out of the list
    }
    m_ending = false;
}

void Screens::comeToFront() const
{
    Screen *front = nullptr;
    for (Screen *screen : m_open) {
        if (!screen->seen() || !(screen->isVisible() || screen->isMinimized()))
            continue;
        if (screen->isMinimized())
            screen->setWindowState(screen->windowState() & ~Qt::WindowMinimized);
        screen->raise();
        front = screen;
    }
    QWidget *box = QApplication::activeModalWidget(); // which nothing may cover
    QWidget *last = box ? box : front;
    if (last) {
        last->raise();
        last->activateWindow();
    }
}

void Screens::quit()
{
    if (const Screen *main = find(u"Form1"_s))
        main->press(u"Label53"_s);
    else
        closeAllBut({});
}

void Screens::bringMainBack() const
{
    if (Screen *main = find(u"Form1"_s))
        main->comeBack();
}

QStringList Screens::openNames() const
{
    QStringList names;
    for (const Screen *screen : m_open)
        names << screen->name();
    return names;
}

void Screens::closed(Screen &screen)
{
    const auto found = std::find(m_open.begin(), m_open.end(), &screen);
    if (found == m_open.end())
        return;
    m_open.erase(found);
    if (onChange)
        onChange(screen.name(), false);
}

bool Screens::timersPending() const
{
    for (const Screen *screen : m_open)
        for (const TimerControl *timer : screen->timers())
            if (timer->pending() && timer->interval() < 1000)
                return true;
    return false;
}

}
