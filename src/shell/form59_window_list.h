#pragma once
// Form59, all windows of the program by theme, on one page that stays open while the user works and can be put away at
// the left edge of the display. The labels are `Label50` and up in order, from the title down the columns, but for
// `Label7` and `Label41`, which show the season, `Label34`, "Imprimer", and `Label35`, the web site.
#include "shell/menu_page.h"

namespace circuidex {

class Form59 : public MenuPage {
public:
    Form59(Context &context, const QString &name, const QString &title);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLayout *page();
    void addGroup(QBoxLayout &column, const menus::Group &group);
    QLayout *foot();
    QLayout *edge();
    void choose(const menus::Entry &entry);
    void putAway(bool away);
    QString nextLabel() { return QStringLiteral("Label%1").arg(m_next++); }

    int m_next = 50;
    Button *m_hide = nullptr, *m_bringBack = nullptr;
};

}
