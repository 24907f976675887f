#pragma once
// Ctrl+Z and Shift+Ctrl+Z on every screen: the user's last action on the files is undone or redone. A text box that has
// something of its own to undo or redo keeps the keys.
#include "results/undo.h"
#include "shell/screen.h"

#include <QObject>

namespace circuidex {

inline const QString historyScreen = u"Historique"_s;

// Nothing is on show afterwards that the files don't hold: all screens close but the main one and the history, which
// are read anew. When it is refused they stay.
void turnHistory(Context &context, results::Turn turn);

// Watches the keys of the whole program, as long as it lives.
class UndoKeys : public QObject {
public:
    explicit UndoKeys(Context &context);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Context &m_context;
};

}
