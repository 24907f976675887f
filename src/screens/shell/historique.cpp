// Historique, the user's last actions, newest first, with the two that Ctrl+Z and Shift+Ctrl+Z are about on its
// buttons. What was undone is grey. It stays open while the user works.
#include "kinds/undo.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/history.h"

#include <QBoxLayout>
#include <QEvent>

namespace circuidex::screens {

namespace {

constexpr int longestCaption = 46; // characters

class Historique : public Screen {
public:
    Historique(Context &context, const QString &name, const QString &title);

protected:
    bool event(QEvent *event) override;

private:
    Button *turning(const QString &name, const QString &tip, results::Turn turn);
    void load();
    void caption(Button &button, const QString &what, const std::string &name) const;

    Table *m_actions;
    Button *m_undo = nullptr, *m_redo = nullptr;
};

Historique::Historique(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
{
    m_actions = table({{u"action"_s, u"Action"_s, 0}, {u"quand"_s, u"Date"_s, 140}}, int(History::kept));
    m_undo = turning(u"annuler"_s, u"Rend les fichiers tels qu'ils étaient avant (Ctrl+Z)"_s, results::Turn::undo);
    m_redo = turning(u"retablir"_s, u"Refait ce qui vient d'être annulé (Maj+Ctrl+Z)"_s, results::Turn::redo);
    m_undo->makeMain();
    auto *turns = new QVBoxLayout;
    turns->setSpacing(4);
    turns->addWidget(m_undo);
    turns->addWidget(m_redo);
    auto *foot = footRow(u"imprimer"_s);
    foot->insertWidget(1, quietLine(context.main.said), 9);
    foot->addWidget(button(u"fermer"_s, u"Fermer"_s, [this] { close(); }));
    auto *layout = page();
    layout->addWidget(m_actions, 1);
    layout->addLayout(turns);
    layout->addLayout(foot);
    listen(context.main.said, [this](const std::string &) { load(); });
    listen(context.main.Label11, [this](const std::string &) { load(); });
    resize(480, 460);
    load();
}

Button *Historique::turning(const QString &name, const QString &tip, results::Turn turn)
{
    Button *made = button(name, {}, [this, turn] { turnHistory(context, turn); });
    made->setToolTip(tip);
    return made;
}

// After an action elsewhere the list is looked at again when the user comes back to it.
bool Historique::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        load();
    return Screen::event(event);
}

void Historique::caption(Button &turn, const QString &what, const std::string &name) const
{
    QString caption = name.empty() ? what : what + u" : "_s + qt(name);
    if (caption.size() > longestCaption)
        caption = caption.left(longestCaption - 1) + u"…"_s;
    turn.setText(caption);
    turn.setEnabled(!name.empty());
}

void Historique::load()
{
    const History &history = context.store.history();
    const std::vector<History::Item> items = history.items();
    for (int row = 0; row < int(History::kept); ++row) {
        const History::Item item = row < int(items.size()) ? items[std::size_t(row)] : History::Item();
        setText(u"action"_s, qt(item.name), row);
        setText(u"quand"_s, qt(item.when), row);
        for (const QString &cell : {u"action"_s, u"quand"_s})
            control(cell, row)->setFore(item.undone ? std::optional(look::quiet) : std::nullopt);
    }
    caption(*m_undo, u"Annuler"_s, history.undoable());
    caption(*m_redo, u"Rétablir"_s, history.redoable());
}

}

ScreenRows historique()
{
    return {screenRow<Historique>(historyScreen, u"Historique"_s)};
}

}
