// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unsaved_mark.h"

#include "shell/look.h"
#include "shell/text.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace circuidex {

namespace {

constexpr int dot = 10; // pixels, its rim included

}

UnsavedMark::UnsavedMark(QWidget *saver) : QWidget(saver)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(dot, dot);
    hide();
    if (auto *label = qobject_cast<QLabel *>(saver)) // its words would run under the dot
        label->setContentsMargins(0, 0, dot, 0);
    saver->installEventFilter(this);
    place();
}

void UnsavedMark::setOn(bool on)
{
    if (on == isVisibleTo(parentWidget()))
        return;
    setVisible(on);
    parentWidget()->setAccessibleDescription(on ? u"Saisie pas encore enregistrée"_s : QString());
}

void UnsavedMark::place()
{
    const int margin = std::max(0, std::min(3, (parentWidget()->height() - dot) / 2));
    move(parentWidget()->width() - dot - margin, margin);
}

bool UnsavedMark::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void UnsavedMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look::shown(look::card), 1.5));
    painter.setBrush(look::unsaved);
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
}

}
