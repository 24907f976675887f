// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/control.h"

namespace circuidex {

void Control::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    if (const auto handler = onChange)
        handler(text);
}

void Control::press()
{
    if (inSight() && enabled())
        doPress();
}

void Control::doubleClick()
{
    if (inSight() && enabled())
        doDoubleClick();
}

void Control::hover()
{
    if (const auto handler = onHover; handler && inSight())
        handler();
}

void Control::key(const QString &name)
{
    if (name == u"Enter" || name == u"Return" || name == u"Space")
        press();
}

void Control::doPress()
{
    if (const auto handler = onPress)
        handler();
}

void Control::doDoubleClick()
{
    if (const auto handler = onDoubleClick)
        handler();
}

void Control::setBack(std::optional<QColor> colour)
{
    if (m_back == colour)
        return;
    m_back = colour;
    coloursChanged();
}

void Control::setFore(std::optional<QColor> colour)
{
    if (m_fore == colour)
        return;
    m_fore = colour;
    coloursChanged();
}

void Control::setGeometry(const TwipRect &rect)
{
    m_geometry = rect;
    sightChanged();
}

void Control::setTop(double twips)
{
    TwipRect rect = geometry();
    rect.top = twips;
    setGeometry(rect);
}

void Control::putBack()
{
    m_geometry.reset();
    sightChanged();
}

bool Control::inSight() const
{
    return !m_geometry || (m_geometry->top < outOfSight && m_geometry->left < outOfSight);
}

QString FieldControl::text() const
{
    return qt(m_field.text());
}

void FieldControl::setText(const QString &text)
{
    m_field.set(text.toStdString());
}

TimerControl::TimerControl(int milliseconds, Kind kind, std::function<void()> fire) :
    m_interval(milliseconds), m_kind(kind)
{
    m_timer.setSingleShot(kind != Kind::repeating);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, fire = std::move(fire)] {
        if (m_kind == Kind::once)
            m_interval = 0;
        const auto copy = fire; // it may close its screen
        copy();
    });
    if (kind != Kind::standing && milliseconds > 0)
        m_timer.start(milliseconds);
}

QString TimerControl::text() const
{
    return QString::number(m_interval);
}

void TimerControl::setText(const QString &text)
{
    bool isNumber = false;
    const int milliseconds = text.toInt(&isNumber);
    if (isNumber && milliseconds >= 0)
        start(milliseconds);
}

void TimerControl::start(int milliseconds)
{
    m_interval = milliseconds;
    if (milliseconds > 0)
        m_timer.start(milliseconds);
    else
        m_timer.stop();
}

void TimerControl::kick()
{
    if (m_interval > 0 && !m_timer.isActive())
        m_timer.start(m_interval);
}

}
