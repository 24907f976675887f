// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ring around what has the keyboard, where it went there by Tab: a button, a command or a picture. It is drawn
// outside of it, so that it is seen whatever the colours inside. A box of text shows its cursor and needs none.
#include <QPointer>
#include <QWidget>

namespace circuidex {

class FocusRing : public QWidget {
public:
    explicit FocusRing(QWidget *ground);
    void show(QWidget *around); // null or a box: no ring

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();

    QPointer<QWidget> m_around;
};

}
