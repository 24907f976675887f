// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A named control of a screen, as a person, another screen, a test or the driver reaches it: `Text3(4)`, `Label40`,
// `Timerrecords`. A control needs no widget: boxes and buttons that a screen holds but doesn't show are controls too.
#include "shell/text.h"
#include "shell/twips.h"
#include "store/field.h"

#include <QColor>
#include <QTimer>

#include <functional>
#include <optional>

class QWidget;

namespace circuidex {

class Control {
public:
    Control() = default;
    virtual ~Control() = default;
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;

    virtual QString text() const { return m_text; }
    // As typed in place of what it holds: the change handler runs when the text differs.
    virtual void setText(const QString &text);

    // What the mouse and the keyboard do. A control that is out of sight or disabled isn't reached.
    void press();
    void doubleClick();
    void hover();
    virtual void key(const QString &name);

    virtual QString tip() const { return {}; }
    virtual TwipRect geometry() const { return m_geometry.value_or(TwipRect{}); }
    virtual std::optional<TwipLine> line() const { return std::nullopt; }
    virtual bool enabled() const { return true; }

    std::optional<QColor> back() const { return m_back; }
    std::optional<QColor> fore() const { return m_fore; }
    void setBack(std::optional<QColor> colour);
    void setFore(std::optional<QColor> colour);

    // A control whose place is part of the rules; without it the window system's layout holds.
    void setGeometry(const TwipRect &rect);
    // Far down means out of sight; back at an ordinary place it is seen again.
    void setTop(double twips);
    void putBack(); // where the layout has it, after a place of its own
    bool inSight() const;

    QString tag;
    std::function<void()> onPress, onDoubleClick, onHover;
    std::function<void(const QString &)> onChange;

protected:
    virtual void coloursChanged() {}
    virtual void sightChanged() {}
    virtual void doPress();
    virtual void doDoubleClick();

private:
    QString m_text;
    std::optional<QColor> m_back, m_fore;
    std::optional<TwipRect> m_geometry;
};

// A hidden box that stands in the program's logic.
class FieldControl : public Control {
public:
    explicit FieldControl(Field &field) : m_field(field) {}
    QString text() const override;
    void setText(const QString &text) override;

private:
    Field &m_field;
};

// A timer of a screen. Its interval in milliseconds is its text; 0 means that it stands still. A timer fires once and goes
// back to 0; a standing one keeps its interval and waits for the next kick, a repeating one fires again and again.
class TimerControl : public Control {
public:
    enum class Kind { once, standing, repeating };
    TimerControl(int milliseconds, Kind kind, std::function<void()> fire);

    QString text() const override;
    void setText(const QString &text) override;

    void start(int milliseconds);
    void stop() { start(0); }
    void kick();
    bool pending() const { return m_timer.isActive(); }
    int interval() const { return m_interval; }

private:
    QTimer m_timer;
    int m_interval;
    Kind m_kind;
};

// A control whose text, tip, place and line are worked out when asked for, as the parts of the title bar and of a chart.
class ShapeControl : public Control {
public:
    std::function<QString()> textNow, tipNow;
    std::function<TwipRect()> geometryNow;
    std::function<TwipLine()> lineNow;

    QString text() const override { return textNow ? textNow() : QString(); }
    QString tip() const override { return tipNow ? tipNow() : QString(); }
    TwipRect geometry() const override { return geometryNow ? geometryNow() : Control::geometry(); }
    std::optional<TwipLine> line() const override { return lineNow ? std::optional(lineNow()) : std::nullopt; }
};

}
