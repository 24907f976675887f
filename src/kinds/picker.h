// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The lists from which the other screens choose: Form26 the drivers of a season, Form42 its teams, Form25 the all-time
// list of Grands Prix. A click hands the choice to the screen that the opener's routing word means and closes the list.
// Typing narrows a list: names that don't fit fade and stay where they are, Enter takes the one in colour.
//
// A screen's own tag is the text of a hidden control named "Tag", on these lists as on any other screen that has one.
#include "kinds/picker_routes.h"
#include "shell/screens.h"
#include "store/season.h"

#include <vector>

class QBoxLayout;

namespace circuidex {

// Opens a list for a screen that wants a choice from it, with its routing word and, where one is given, another season
// than the main screen's. What an earlier opener left is gone. Null while the program has no such list.
Screen *openPicker(Screens &screens, PickList list, const QString &word, const QString &year = {});

class Picker : public Screen {
protected:
    static inline const QString tagControl = u"Tag"_s, wordControl = u"Label2"_s;

    // What distinguishes one list from another: the control array of its names and how it lies on the screen.
    struct Shape {
        PickList list;
        QString array;
        int first, count; // indexes of the array
        int columns, width; // columns side by side, pixels of all
        QString title; // over a column; none without
        bool numbered; // the drivers' numbers stand beside
    };
    Picker(Context &context, const QString &name, const QString &title, Shape shape);

    void showNames(const std::vector<std::string> &names); // from the first index on; the rest is emptied
    virtual void pick(int index);
    void addYear(std::function<void()> changed); // Text1, the season of the list
    Season season() const;
    Table &list() const { return *m_list; }
    QBoxLayout &head() const { return *m_head; }
    QBoxLayout &foot() const { return *m_foot; }
    void handOver(int index);

private:
    std::vector<Column> columns() const;
    QString nameAt(int index) const { return m_list->text(m_shape.array, index); }
    void serve(const Destination &to, int index);
    void give(const Destination &to, int index);
    QStringList names() const;
    void narrow();
    void enter(); // takes the name in colour

    Shape m_shape;
    Field m_year;
    Table *m_list;
    Edit *m_search;
    QBoxLayout *m_head, *m_foot;
};

}
