// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/page.h"

#include <QKeyEvent>
#include <QLayout>
#include <QScrollBar>

#include <algorithm>

namespace circuidex {

Page::Page(QWidget *content, QWidget *parent) : QScrollArea(parent)
{
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    content->installEventFilter(this);
}

void Page::setRoom(const QSize &room)
{
    m_room = room;
    updateGeometry();
}

QSize Page::least(int width) const
{
    const QLayout *layout = widget()->layout();
    QSize size = layout ? layout->totalMinimumSize() : widget()->minimumSizeHint();
    if (layout && layout->hasHeightForWidth())
        size.setHeight(layout->minimumHeightForWidth(std::max(width, size.width()))); // of words wrapped as they will be
    return size.expandedTo(widget()->minimumSize());
}

QSize Page::barsFor(const QSize &size) const
{
    const QSize needed = least(size.width());
    return {needed.height() > size.height() ? verticalScrollBar()->sizeHint().width() : 0,
            needed.width() > size.width() ? horizontalScrollBar()->sizeHint().height() : 0};
}

QSize Page::sizeHint() const
{
    const QSize wanted = widget()->sizeHint();
    return (wanted + barsFor(wanted.boundedTo(m_room))).boundedTo(m_room);
}

QSize Page::minimumSizeHint() const
{
    const QSize needed = least(width());
    return (needed + barsFor(needed.boundedTo(m_room))).boundedTo(m_room);
}

bool Page::hasHeightForWidth() const
{
    return widget()->hasHeightForWidth();
}

int Page::heightForWidth(int width) const
{
    return std::min(widget()->heightForWidth(width), m_room.height());
}

// The content is as large as the page, or as large as it must be.
void Page::spread()
{
    const QSize all = maximumViewportSize();
    const QSize bars = barsFor(all);
    const QSize free = all - bars;
    widget()->resize(free.expandedTo(least(free.width())));
}

bool Page::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        spread();
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

void Page::resizeEvent(QResizeEvent *event)
{
    QScrollArea::resizeEvent(event);
    spread();
}

// The keys are the screen's.
void Page::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

}
