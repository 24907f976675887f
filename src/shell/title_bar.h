// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The bar over every screen: a gradient of the skin, the title in white, a close button, and the handle by which the
// window is dragged and, where it can grow, maximised.
#include "shell/skin.h"
#include "shell/text.h"

#include <QPointF>
#include <QString>
#include <QWidget>

namespace circuidex {

class TitleBar : public QWidget {
    Q_OBJECT
public:
    // With minimise, the bar also has a button for that, as the main window's.
    TitleBar(const Skin &skin, bool minimise, QWidget *screen);

    QString title() const { return m_title; }
    void setTitle(const QString &title);
    void setSkin(const Skin &skin);
    void hideButtons(); // while the window is not to be closed by chance

signals:
    void closeClicked();
    void minimiseClicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override; // the whole display, and back

private:
    QRect closeRect() const;
    QRect minimiseRect() const;

    Skin m_skin;
    bool m_minimise, m_buttons = true;
    QString m_title = u"TITRE"_s; // until the screen is up
    bool m_closeHeld = false, m_minimiseHeld = false, m_dragging = false;
    QPoint m_noted; // the point of the press, within the window
};

}
