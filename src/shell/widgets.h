// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The few widgets that all screens are made of. Each answers the mouse through plain handlers, so that a label, a box and
// a picture can be clicked and double-clicked alike.
#include "shell/control.h"

#include <QFutureWatcher>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>

#include <functional>

class QApplication;

namespace circuidex {

// What a click and a double click do.
struct Clicks {
    std::function<void()> onClick, onDoubleClick;
};

// A widget that is clicked and double-clicked; the release that ends a double click isn't a click of its own. On the
// keyboard these are Enter and Shift+Enter.
template <class Base>
class Clickable : public Base, public Clicks {
public:
    using Base::Base;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        const bool twice = enter && event->modifiers().testFlag(Qt::ShiftModifier);
        if (const auto handler = twice ? onDoubleClick : onClick; handler && (enter || event->key() == Qt::Key_Space))
            handler();
        else
            Base::keyPressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        const bool click = event->button() == Qt::LeftButton && this->rect().contains(event->pos()) && !m_afterDouble;
        m_afterDouble = false;
        if (const auto handler = onClick; handler && click)
            handler();
    }
    void mouseDoubleClickEvent(QMouseEvent *) override
    {
        m_afterDouble = true;
        if (const auto handler = onDoubleClick)
            handler();
    }

private:
    bool m_afterDouble = false;
};

// Shows every text of the program as it stands: names come from files, and no label, tip or message may take one for markup.
void showTextPlainly(QApplication &application);

class Label : public Clickable<QLabel> {
public:
    explicit Label(const QString &text = {}, QWidget *parent = nullptr);
    std::function<void()> onHover, onLeave;
    void makeCommand(); // looks and behaves like a link: pointing hand, focus by Tab, Enter

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
};

class Edit : public QLineEdit {
public:
    explicit Edit(QWidget *parent = nullptr);
    std::function<void()> onClick, onDoubleClick;
    std::function<void()> onBackspaceInEmpty;

protected:
    bool event(QEvent *event) override; // leaves the window its shortcuts
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
};

// Text of one line that wraps: a line break typed or pasted becomes a blank.
class Remark : public QPlainTextEdit {
public:
    explicit Remark(QWidget *parent = nullptr);
    std::function<void()> onEdited;

protected:
    bool event(QEvent *event) override; // leaves the window its shortcuts
    void keyPressEvent(QKeyEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
};

// A text of many lines.
class FreeText : public QPlainTextEdit {
public:
    explicit FreeText(QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override; // leaves the window its shortcuts
};

// A text of many lines to read: selected and copied, never changed.
class ReadOnlyText : public FreeText {
public:
    explicit ReadOnlyText(QWidget *parent = nullptr);
};

class Button : public QPushButton {
public:
    explicit Button(const QString &caption = {}, QWidget *parent = nullptr);
    void makeMain(); // the main action of its screen, in the skin's colour

protected:
    void keyPressEvent(QKeyEvent *event) override; // Enter presses it, as Space does
};

// A yes or no that the style sheet tells apart, changed while the widget is on show.
void setMark(QWidget &widget, const char *property, bool on);

// A key by its name, as "Enter", "a", "Ctrl+E" or "Ctrl+Shift+P", typed into a widget: its window's shortcuts come first.
void sendKey(QWidget &widget, const QString &name);

// What a blank frame is for: a light outline of it is drawn instead.
enum class Outline { none, driver, car, circuit, race };

// A picture file, scaled to the room it has. Without one the frame stays blank, and so it does while a large one is decoded.
class Picture : public Clickable<QWidget> {
public:
    explicit Picture(QWidget *parent = nullptr);
    ~Picture() override { m_decoding.cancel(); }
    const QString &path() const { return m_path; }
    void setPath(const QString &path);
    void setOutline(Outline outline) { m_outline = outline; }
    void setEnlarged(bool on); // a picture smaller than its room fills it too
    QSize sizeHint() const override { return {160, 120}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void load();
    void take(const QImage &image);

    QString m_path;
    QFutureWatcher<QImage> m_decoding;
    Outline m_outline = Outline::none;
    bool m_enlarged = false;
    QPixmap m_scaled;
    QSize m_scaledFor;
};

// The control of a widget: text, colours and place are the widget's.
class WidgetControl : public Control {
public:
    explicit WidgetControl(QWidget *widget) : m_widget(widget) {}
    QWidget *widget() const { return m_widget; }
    QString text() const override;
    void setText(const QString &text) override;
    QString tip() const override;
    TwipRect geometry() const override;
    bool enabled() const override;
    void key(const QString &name) override;

protected:
    void coloursChanged() override;
    void sightChanged() override;
    void doPress() override;
    void doDoubleClick() override;

private:
    QWidget *m_widget;
};

}
