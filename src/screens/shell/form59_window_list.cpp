// SPDX-License-Identifier: GPL-3.0-or-later
// Form59, all windows of the program by theme, on one page that stays open while the user works and can be put away at
// the left edge of the display. The labels are `Label50` and up in order, from the title down the columns, but for
// `Label7` and `Label41`, which show the season, `Label34`, "Imprimer", and `Label35`, the web site.
#include "kinds/menu_page.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QKeyEvent>

namespace circuidex::screens {

namespace {

constexpr int listColumns = 3, columnWidth = 308; // pixels
constexpr menus::Entry webSite{"Site de Circuidex", "Form37"};

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
    QString nextLabel() { return u"Label%1"_s.arg(m_next++); }

    int m_next = 50;
    Button *m_hide = nullptr, *m_bringBack = nullptr;
};

Form59::Form59(Context &theContext, const QString &name, const QString &title)
    : MenuPage(theContext, name, title, Chrome::standard)
{
    setRowHeight(21);
    auto *layout = new QHBoxLayout(body());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(page(), 1);
    layout->addLayout(edge());
    putAway(false);
    setFixedSize(sizeHint());
    setPlace(0, menus::windowListTop);
}

QLayout *Form59::page()
{
    auto *layout = new QVBoxLayout;
    layout->setContentsMargins(look::gap, look::gap, look::gap, 4);
    layout->setSpacing(4);
    addText(*layout, nextLabel(), u"Liste des fenêtres"_s, "title");
    addText(*layout, nextLabel(), qt(menus::windowListText), "text");
    auto *side = new QHBoxLayout;
    side->setSpacing(look::gap);
    for (int i = 0; i < listColumns; ++i) {
        auto *column = new QVBoxLayout;
        column->setSpacing(0);
        for (const menus::Group &group : menus::windowList())
            if (group.column == i)
                addGroup(*column, group);
        column->addStretch(1);
        side->addLayout(column, 1);
    }
    layout->addLayout(side, 1);
    layout->addWidget(makeRule());
    layout->addLayout(foot());
    return layout;
}

void Form59::addGroup(QBoxLayout &column, const menus::Group &group)
{
    addText(column, nextLabel(), qt(group.heading), "group")->setMinimumWidth(columnWidth);
    for (const menus::Entry &entry : group.entries()) {
        Label *label = addEntry(column, entry.control.empty() ? nextLabel() : qt(entry.control), captionOf(entry),
                                reachable(entry), [this, &entry] { choose(entry); });
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // the headings give the columns their width
    }
}

QLayout *Form59::foot()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    Label *site = addEntry(*row, u"Label35"_s, captionOf(webSite), reachable(webSite),
                           [this] { openTarget(webSite); });
    site->setToolTip(u"Ouvrir le site de Circuidex"_s);
    row->addStretch(1);
    Label *print =
        addEntry(*row, u"Label34"_s, u"Imprimer"_s, true, [this] { Screen::print(); });
    print->setToolTip(u"Imprimer cette fenêtre (Ctrl+P)"_s);
    return row;
}

// The strip that still shows while the list is put away.
QLayout *Form59::edge()
{
    const auto strip = [this](const QString &name, const QString &sign, const QString &tip, bool away) {
        auto *made = button(name, sign, [this, away] { putAway(away); });
        made->setProperty("edge", true);
        made->setToolTip(tip);
        made->setFixedWidth(static_cast<int>(menus::windowListLeft / twipsPerPixel) - 1);
        made->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
        return made;
    };
    m_hide = strip(u"Command1"_s, u"<"_s, u"Masquer la fenêtre"_s, true);
    m_bringBack = strip(u"Command2"_s, u">"_s, u"Sortir la fenêtre"_s, false);
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_hide);
    layout->addWidget(m_bringBack);
    return layout;
}

void Form59::choose(const menus::Entry &entry)
{
    openTarget(entry);
    if (entry.insteadOfMain)
        close();
}

void Form59::putAway(bool away)
{
    m_hide->setVisible(!away);
    m_bringBack->setVisible(away);
    const TwipRect window = place();
    setPlace(away ? menus::hiddenLeft(window.width) : 0, window.top);
}

void Form59::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return putAway(true);
    case Qt::Key_Right:
        return putAway(false);
    default:
        MenuPage::keyPressEvent(event);
    }
}

}

ScreenRows form59()
{
    return {screenRow<Form59>(u"Form59"_s, u"Liste des Fenêtres de Circuidex"_s)};
}

}
