// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/focus_ring.h"

#include "shell/look.h"
#include "shell/widgets.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPainter>

namespace circuidex {

FocusRing::FocusRing(QWidget *ground) : QWidget(ground)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    ground->installEventFilter(this);
    hide();
}

void FocusRing::show(QWidget *around)
{
    if (m_around)
        m_around->removeEventFilter(this);
    const bool ringed = dynamic_cast<QAbstractButton *>(around) || dynamic_cast<Clicks *>(around);
    m_around = ringed ? around : nullptr;
    if (m_around)
        m_around->installEventFilter(this);
    follow();
}

void FocusRing::follow()
{
    setVisible(m_around && m_around->isVisible());
    if (!m_around)
        return;
    const QPoint corner = m_around->mapTo(parentWidget(), QPoint(0, 0));
    setGeometry(QRect(corner, m_around->size()).adjusted(-3, -3, 3, 3));
    raise();
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusOut:
        if (watched == m_around)
            show(nullptr);
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
    case QEvent::LayoutRequest:
        if (m_around) // once all have found their place
            QMetaObject::invokeMethod(this, [this] { follow(); }, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::written(look::ink), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
}

}
