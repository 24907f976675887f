// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/accessibility.h"

#include "shell/widgets.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <functional>
#include <utility>

namespace circuidex {

namespace {

// A label or picture, a button as soon as it answers a click. Qt asks for it before that is known, and once.
class Pressable : public QAccessibleWidget {
public:
    Pressable(QWidget *widget, const Clicks &clicks) : QAccessibleWidget(widget), m_clicks(clicks)
    {
    }

    QAccessible::Role role() const override
    {
        const bool words = qobject_cast<QLabel *>(widget());
        return answers() ? QAccessible::Button : words ? QAccessible::StaticText : QAccessible::Graphic;
    }
    QString text(QAccessible::Text what) const override
    {
        const auto *label = qobject_cast<QLabel *>(widget());
        const bool named = what != QAccessible::Name || !label || !widget()->accessibleName().isEmpty();
        return named ? QAccessibleWidget::text(what) : label->text();
    }
    QStringList actionNames() const override
    {
        return answers() ? QStringList{pressAction(), showMenuAction()} : QStringList();
    }
    void doAction(const QString &action) override
    {
        const auto handler = action == pressAction() ? m_clicks.onClick
            : action == showMenuAction()             ? m_clicks.onDoubleClick
                                                     : nullptr;
        if (handler && widget()->isEnabled())
            handler();
    }

private:
    bool answers() const { return m_clicks.onClick || m_clicks.onDoubleClick; }

    const Clicks &m_clicks;
};

QAccessibleInterface *pressable(const QString &, QObject *object)
{
    const auto *clicks = dynamic_cast<Clicks *>(object);
    return clicks ? new Pressable(static_cast<QWidget *>(object), *clicks) : nullptr;
}

bool saysSomething(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetterOrNumber(); });
}

// The words of a label that stand for what follows it; none for a command.
QString captionIn(const QLayoutItem &item)
{
    const auto *label = qobject_cast<QLabel *>(item.widget());
    if (!label || label->focusPolicy() != Qt::NoFocus || !saysSomething(label->text()))
        return {};
    QString words = label->text().trimmed();
    while (words.endsWith(u':') || words.endsWith(u' '))
        words.chop(1);
    return words;
}

// A caption in the same row before it, else one above it.
QString captionInGrid(const QGridLayout &grid, int index)
{
    struct Cell {
        int row, column, rows, columns;
    };
    const auto cell = [&](int i) {
        Cell at{};
        grid.getItemPosition(i, &at.row, &at.column, &at.rows, &at.columns);
        return at;
    };
    const Cell own = cell(index);
    std::pair<int, QString> best{1 << 20, {}};
    for (int i = 0; i < grid.count(); ++i) {
        const Cell at = cell(i);
        const bool before = at.row == own.row && at.column < own.column;
        const bool above = at.column == own.column && at.row < own.row;
        const int distance = before ? own.column - at.column : 1000 + own.row - at.row;
        if (QString words; (before || above) && distance < best.first && !(words = captionIn(*grid.itemAt(i))).isEmpty())
            best = {distance, words};
    }
    return best.second;
}

void name(QWidget &widget, const QString &caption, const QString &title)
{
    const auto *clicks = dynamic_cast<Clicks *>(&widget);
    const bool picture = clicks && !qobject_cast<QLabel *>(&widget);
    const bool byArrows = widget.property("menu").isValid(); // from entry to entry
    if (clicks && (clicks->onClick || clicks->onDoubleClick) && !byArrows && widget.focusPolicy() == Qt::NoFocus)
        widget.setFocusPolicy(Qt::TabFocus);
    if (widget.focusPolicy() == Qt::NoFocus || !widget.accessibleName().isEmpty())
        return;
    const auto *button = qobject_cast<QAbstractButton *>(&widget);
    const auto *label = qobject_cast<QLabel *>(&widget);
    if (saysSomething(button ? button->text() : label ? label->text() : QString()))
        return; // it says itself what it does
    const QString tip = widget.toolTip();
    widget.setAccessibleName((button || label || picture) && !tip.isEmpty() ? tip : caption.isEmpty() ? title : caption);
}

void walk(const QLayout *layout, QString caption, const std::function<void(QWidget &, const QString &)> &visit)
{
    const auto *grid = qobject_cast<const QGridLayout *>(layout);
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        const QString before = caption, words = captionIn(*item);
        if (!words.isEmpty())
            caption = words;
        const QString own = grid ? captionInGrid(*grid, i) : QString();
        const QString here = own.isEmpty() ? item->widget() ? before : caption : own; // no label stands for itself
        walk(item->layout(), here, visit);
        if (QWidget *widget = item->widget()) {
            visit(*widget, here);
            if (widget->focusPolicy() == Qt::NoFocus)
                walk(widget->layout(), here, visit);
        }
    }
}

}

void makePressable()
{
    QAccessible::installFactory(pressable);
}

void nameControls(QWidget &body, const QString &title)
{
    walk(body.layout(), {}, [&title](QWidget &widget, const QString &caption) { name(widget, caption, title); });
}

std::vector<Captioned> captionsIn(const QWidget &body)
{
    std::vector<Captioned> found;
    walk(body.layout(), {}, [&found](QWidget &widget, const QString &caption) { found.push_back({&widget, caption}); });
    return found;
}

}
