// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of all tables that set a season beside the three before it: a row a team, a driver or a race, four columns
// of points and four of differences from the season whose year was clicked last. The years wear the colours that the
// seasons have in the charts; their tips tell the champion and where the subject ended.
#include "comparisons/season_tables.h"
#include "kinds/lookup_screen.h"

namespace circuidex {

struct SeasonTableKind {
    QString head; // over the rows
    int rows;
    QString points; // over the points
    comparisons::SubjectKind subject;
    bool races; // a row a race: a double click on its points opens it
};

class SeasonTable : public LookupScreen {
public:
    SeasonTable(Context &context, const QString &name, const QString &title, SeasonTableKind kind);

protected:
    Button *openButton(std::function<void()> ask); // Command1
    QWidget *answer();
    QLayout *legendFoot();

    comparisons::Seasons seasons() const;
    Season season() const; // the current one of them
    // The subject, empty where the rows are many, is told by the years' tips.
    void show(const std::vector<comparisons::SeasonRow> &rows, const std::string &subject = {});

    Field m_season; // an

private:
    std::vector<Column> columns() const;
    QWidget *heads();
    QWidget *head(int column, bool reference);
    void showYears(const std::string &subject);
    void showRaces(int row, const comparisons::Seasons &seasons);
    void compare(); // the points on show
    void compareRow(int row, int reference);

    SeasonTableKind m_kind;
    Field m_reference; // indexx, the index of the reference's head
    Table *m_table = nullptr;
};

}
