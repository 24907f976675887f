// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/title_bar.h"

#include "shell/chrome.h"
#include "shell/look.h"
#include "shell/window_system.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

namespace circuidex {

namespace {

constexpr int pixels(double twips)
{
    return static_cast<int>(twips / twipsPerPixel);
}

// A little beside a button is still on it.
bool isOn(const QRect &button, const QMouseEvent &event)
{
    return !button.isEmpty() && button.adjusted(-4, -4, 4, 4).contains(event.pos());
}

void drawButton(QPainter &painter, const QRect &rect, bool held, bool cross)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(held ? look::glassHeld : look::glass);
    painter.drawRoundedRect(rect, 3, 3);
    painter.setPen(QPen(look::onSkin, 1.6, Qt::SolidLine, Qt::RoundCap));
    const QRectF mark = QRectF(rect).adjusted(4, 4, -4, -4);
    if (cross) {
        painter.drawLine(mark.topLeft(), mark.bottomRight());
        painter.drawLine(mark.topRight(), mark.bottomLeft());
    } else {
        painter.drawLine(mark.bottomLeft(), mark.bottomRight());
    }
}

}

TitleBar::TitleBar(const Skin &skin, bool minimise, QWidget *screen) :
    QWidget(screen), m_skin(skin), m_minimise(minimise)
{
    setFixedHeight(pixels(chrome::barHeight));
}

void TitleBar::setTitle(const QString &title)
{
    m_title = title;
    update();
}

void TitleBar::setSkin(const Skin &skin)
{
    m_skin = skin;
    update();
}

void TitleBar::hideButtons()
{
    m_buttons = m_closeHeld = m_minimiseHeld = false;
    update();
}

QRect TitleBar::closeRect() const
{
    const TwipRect at = chrome::image4apa(width() * twipsPerPixel);
    return m_buttons ? QRect(pixels(at.left), pixels(at.top), pixels(at.width), pixels(at.height)) : QRect();
}

QRect TitleBar::minimiseRect() const
{
    return m_minimise && m_buttons ? closeRect().translated(-22, 0) : QRect();
}

void TitleBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QLinearGradient bar(0, 0, 0, height());
    bar.setStops(look::bar(m_skin));
    painter.fillRect(rect(), bar);
    painter.setPen(look::shine);
    painter.drawLine(0, 0, width(), 0);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(look::onSkin);
    const int left = pixels(chrome::leftEnd);
    painter.drawText(QRect(left, 0, width() - left - 60, height()), Qt::AlignVCenter | Qt::AlignLeft, m_title);
    if (m_buttons)
        drawButton(painter, closeRect(), m_closeHeld, true);
    if (m_buttons && m_minimise)
        drawButton(painter, minimiseRect(), m_minimiseHeld, false);
}

void TitleBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_closeHeld = isOn(closeRect(), *event);
    m_minimiseHeld = !m_closeHeld && isOn(minimiseRect(), *event);
    m_dragging = !m_closeHeld && !m_minimiseHeld && !window()->isMaximized();
    m_noted = event->globalPosition().toPoint() - window()->pos();
    update();
}

void TitleBar::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_dragging)
        return;
    if (onWayland())
        m_dragging = !window()->windowHandle()->startSystemMove(); // which takes the pointer from here on
    else
        window()->move(event->globalPosition().toPoint() - m_noted);
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event); // of a button, if it is on one
    if (!m_closeHeld && !m_minimiseHeld)
        toggleMaximised(*window());
    m_dragging = false;
}

void TitleBar::mouseReleaseEvent(QMouseEvent *event)
{
    const bool close = m_closeHeld && isOn(closeRect(), *event);
    const bool minimise = m_minimiseHeld && isOn(minimiseRect(), *event);
    m_closeHeld = m_minimiseHeld = m_dragging = false;
    update();
    if (close)
        emit closeClicked();
    else if (minimise)
        emit minimiseClicked();
}

}
