// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What a box of text offers while something is typed into it: a short list below of names that begin so, and, when the
// text is nearly a known one, that spelling at the box's right end. The list lies on the box's own window, so that it
// stands above it whatever the window system makes of windows kept on top. Nothing is replaced but by its user.
//
//     Up, Down       a name of the list            Enter, Tab      take the chosen one and go on
//     Escape         closes the list only          Ctrl+Enter      takes the spelling, as a click on it does
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class QEvent;
class QListWidget;
class QKeyEvent;

namespace circuidex {

class Edit;
class Label;

// What there is to offer for a text typed so far.
struct Offers {
    QStringList names;
    bool firstChosen = false; // Enter takes the first one at once
    QString spelling; // empty for none
};

class Proposals : public QObject {
public:
    // Belongs to the box.
    Proposals(Edit *box, std::function<Offers(const QString &typed)> offers);

    bool listSeen() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void typed(const QString &text);
    void showList(const Offers &offers);
    void placeList();
    void showSpelling(const QString &spelling);
    void closeList();
    bool keyPressed(const QKeyEvent &event);
    bool keyInList(const QKeyEvent &event);
    void step(int by);
    void take(const QString &name);

    Edit *m_box;
    std::function<Offers(const QString &)> m_offers;
    QPointer<QListWidget> m_list;
    QPointer<Label> m_spelling;
    QString m_typed; // what the last key made of the text
    bool m_taking = false;
};

}
