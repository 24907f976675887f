// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The drop-downs of the main screen's buttons (Form57 and five more) and the side screens that they open (Form109 and
// more): one class, told by its name which rows of the menus' table it shows. Its labels are named in order, from the
// heading `Label1` to the last one, "Fermer"; the arrow beside `Label4` is `Fleche4`; the background is `Fond`, and its
// tag tells a side screen with two drop-downs which of them it belongs to.
#include "kinds/menu_page.h"

namespace circuidex {

class DropDown : public MenuPage {
public:
    DropDown(Context &context, const QString &name, const QString &title);

protected:
    void closing() override;
    void keyPressEvent(QKeyEvent *event) override;
    const QWidget *owner() const override;

private:
    void layOut();
    void choose(const menus::Entry &entry);
    void openSide(const menus::Entry &entry);
    void closeSides();
    void showHelp();
    void belongTo(std::string_view tag);

    DropDown *parentMenu() const; // of a side screen; null when it isn't open
    void standBesideParent();
    void standBesideButton();
    double topOf(const DropDown &side) const; // of the entry that leads to it, in twips within this window
    bool leadsOn(const Line &line) const { return !line.arrow.isEmpty(); }

    const menus::Menu &m_menu;
    Control *m_fond;
};

}
