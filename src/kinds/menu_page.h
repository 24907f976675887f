// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the drop-downs, their side screens and the list of all windows are made of: full-width labels, each an entry
// that is highlighted under the pointer and opens a screen. An entry stays lit until the pointer crosses the
// background, the control `Fond`. One whose screen the program doesn't have stays at rest and does nothing.
#include "kinds/menus.h"
#include "shell/screen.h"

class QBoxLayout;

namespace circuidex {

class MenuPage : public Screen {
public:
    MenuPage(Context &context, const QString &name, const QString &title, Chrome chrome);

protected:
    static constexpr int arrowWidth = 32; // pixels

    struct Line {
        QString name, arrow; // controls; the arrow's is empty for an entry without one
        Label *label;
        bool reachable;
    };

    Label *addText(QBoxLayout &into, const QString &control, const QString &caption, const char *style);
    // `arrow` names the second label of an entry that leads on to a side screen.
    Label *addEntry(QBoxLayout &into, const QString &control, const QString &caption, bool reachable,
                    std::function<void()> choose, const QString &arrow = {});

    static QWidget *makeRule(); // a thin line between groups
    QString captionOf(const menus::Entry &entry) const;
    bool reachable(const menus::Entry &entry) const;
    void openTarget(const menus::Entry &entry); // that the program has

    void rest();
    void step(int by); // the highlight goes up or down by keyboard, round the ends
    const Line *current() const; // null when none was pointed at
    void setRowHeight(int pixels) { m_rowHeight = pixels; }

    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    Label *makeLabel(const QString &control, const QString &caption);
    void paint(const Line &line, const QColor &colour);
    void point(const Line &line);

    std::vector<std::unique_ptr<Line>> m_lines;
    int m_rowHeight = 26; // pixels
};

}
