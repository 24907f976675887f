// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A page of a gallery: its slots, each a widget that is clicked, double-clicked for the choice of a file, and given a
// file by drag and drop. The arrow keys walk over the slots, Delete empties one, Page up and Page down turn the page. A
// screen on it makes the slots, shows what is in them and says what a click does.
#include "media/gallery.h"
#include "shell/screen.h"

#include <optional>

namespace circuidex {

class GalleryPage : public Screen {
public:
    GalleryPage(Context &context, const QString &name, const QString &title, const media::GalleryKind &kind,
                int columns);

protected:
    media::Gallery gallery; // its index and its page are the controls "iNdexx" and "page"

    // The next slot, from 1 on, row by row; registered under the array's name.
    template <class W>
    W *addSlot(const QString &array, W *widget)
    {
        takeSlot(add(array, widget, slotCount() + 1), *widget);
        return widget;
    }
    // One sentence over the page for as long as all its slots are free.
    void noteWhenFree(QWidget &over, const QString &says);
    // A visible twin of the page's number, and of the selected slot's: blank while none is selected.
    QLabel *pageNumber();
    QLabel *slotNumber();

    virtual void showSlot(int slot, const std::string &path) = 0; // an empty path: free
    virtual void showSelected(int slot, bool selected) = 0;
    virtual void slotClicked() = 0; // of the selected one
    virtual std::optional<std::string> askForFile(int slot) = 0; // absent: the slot stays as it is
    virtual void slotFiled() { } // the selected one, by a choice or a drop

    void select(int slot);
    void showSelection(); // as the index says
    void fileByChoice(int slot);
    QWidget *slotWidget(int slot) const { return m_slots.at(static_cast<std::size_t>(slot - 1)); }
    int slotCount() const { return static_cast<int>(m_slots.size()); }

    // What the screen does for a key; by default what the gallery does.
    virtual void turnPage(int by);
    virtual void emptySlot();

    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void takeSlot(QWidget *widget, Clicks &clicks);
    bool isSlot(const QWidget *widget) const;
    void walk(int by);
    void fileByDrop(int slot, const QString &path);

    std::vector<QWidget *> m_slots;
    int m_columns;
};

}
