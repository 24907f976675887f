// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ground of a screen's content. It asks for no more room than the display has: what then can't shrink scrolls.
#include <QScrollArea>

namespace circuidex {

class Page : public QScrollArea {
public:
    Page(QWidget *content, QWidget *parent);

    void setRoom(const QSize &room); // the most that it may ask for, in pixels
    QSize barsFor(const QSize &size) const; // what its scroll bars take of this size

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QSize least(int width) const; // of the content, this wide
    void spread();

    QSize m_room{QWIDGETSIZE_MAX, QWIDGETSIZE_MAX};
};

}
