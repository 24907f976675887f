#include "kinds/undo.h"

#include "shell/screens.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace circuidex {

namespace {

std::optional<results::Turn> turnOf(const QKeyEvent &key)
{
    if (key.key() == Qt::Key_Z && key.modifiers() == Qt::ControlModifier)
        return results::Turn::undo;
    if (key.key() == Qt::Key_Z && key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier))
        return results::Turn::redo;
    return std::nullopt;
}

// What was typed comes first.
bool hasItsOwn(const QWidget &box, results::Turn turn)
{
    const bool back = turn == results::Turn::undo;
    const auto inText = [back](const auto *text) {
        return !text->isReadOnly() &&
            (back ? text->document()->isUndoAvailable() : text->document()->isRedoAvailable());
    };
    if (const auto *line = qobject_cast<const QLineEdit *>(&box))
        return !line->isReadOnly() && (back ? line->isUndoAvailable() : line->isRedoAvailable());
    if (const auto *text = qobject_cast<const QPlainTextEdit *>(&box))
        return inText(text);
    if (const auto *text = qobject_cast<const QTextEdit *>(&box))
        return inText(text);
    return false;
}

}

void turnHistory(Context &context, results::Turn turn)
{
    if (const std::string refusal = results::hindrance(context.main, turn); !refusal.empty())
        return context.main.said.set(refusal);
    context.screens.closeAllBut({u"Form1"_s, historyScreen}); // what they keep by it belongs to the time before
    results::turnHistory(context.main, turn);
}

UndoKeys::UndoKeys(Context &context) : m_context(context)
{
    QCoreApplication::instance()->installEventFilter(this);
}

// The key goes to the widget that has the focus first. Message boxes, and windows that aren't ours, keep their keys.
bool UndoKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    const auto turn = turnOf(*static_cast<QKeyEvent *>(event));
    if (!turn || !widget || !qobject_cast<Screen *>(widget->window()) || QApplication::activeModalWidget() ||
        hasItsOwn(*widget, *turn))
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        turnHistory(m_context, *turn);
    return true;
}

}
