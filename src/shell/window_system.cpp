// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/window_system.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

#include <array>

namespace circuidex {

namespace {

constexpr int thickness = 4, corner = 12; // pixels

class Grip : public QWidget {
public:
    Grip(QWidget &window, Qt::Edges edges) : QWidget(&window), m_edges(edges)
    {
        setCursor(edges == Qt::BottomEdge                      ? Qt::SizeVerCursor
                      : edges == (Qt::BottomEdge | Qt::LeftEdge)  ? Qt::SizeBDiagCursor
                      : edges == (Qt::BottomEdge | Qt::RightEdge) ? Qt::SizeFDiagCursor
                                                                  : Qt::SizeHorCursor);
    }

    Qt::Edges edges() const { return m_edges; }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        if (QWindow *handle = window()->windowHandle(); handle && event->button() == Qt::LeftButton)
            handle->startSystemResize(m_edges);
    }

private:
    Qt::Edges m_edges;
};

QRect stripOf(const QSize &window, Qt::Edges edges)
{
    const bool bottom = edges.testFlag(Qt::BottomEdge), left = edges.testFlag(Qt::LeftEdge),
               right = edges.testFlag(Qt::RightEdge);
    if (bottom && (left || right))
        return {left ? 0 : window.width() - corner, window.height() - thickness, corner, thickness};
    if (bottom)
        return {corner, window.height() - thickness, window.width() - 2 * corner, thickness};
    return {left ? 0 : window.width() - thickness, corner, thickness, window.height() - 2 * corner};
}

}

bool onWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

bool canGrow(const QWidget &window)
{
    return window.maximumWidth() > window.minimumWidth() && window.maximumHeight() > window.minimumHeight();
}

void toggleMaximised(QWidget &window)
{
    if (window.isMaximized())
        window.showNormal();
    else if (canGrow(window))
        window.showMaximized();
}

void attach(QWidget &window, const QWidget *owner)
{
    if (!onWayland())
        return;
    window.winId(); // makes its handle
    window.windowHandle()->setTransientParent(owner ? owner->windowHandle() : nullptr);
}

EdgeGrips::EdgeGrips(QWidget &window) : m_window(window)
{
    const std::array<Qt::Edges, 5> all{Qt::LeftEdge, Qt::RightEdge, Qt::BottomEdge, Qt::BottomEdge | Qt::LeftEdge,
                                       Qt::BottomEdge | Qt::RightEdge};
    for (const Qt::Edges edges : all)
        m_grips.push_back(new Grip(window, edges));
}

void EdgeGrips::place()
{
    const bool wanted = canGrow(m_window) && !m_window.isMaximized();
    for (QWidget *grip : m_grips) {
        grip->setGeometry(stripOf(m_window.size(), static_cast<Grip *>(grip)->edges()));
        grip->setVisible(wanted);
        grip->raise();
    }
}

}
