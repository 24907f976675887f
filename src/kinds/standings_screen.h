// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of the two championship tables: a ranked table with a favourite, against whom all rows are measured. He is
// taken by a click on his row, with the arrows or from a list; the season's file remembers where the arrows stand.
#include "kinds/ranked_screen.h"
#include "standings/favourite.h"
#include "standings/ranking.h"

namespace circuidex {

struct StandingsKind {
    QString caption; // of the favourite: "Pilote favori:"
    QString previousTip, nextTip; // of the arrows
    QString list, word; // the list that "Liste" opens, and the reason told to it
    std::vector<Column> columns; // behind the rank
    int rows = 0;
    std::string_view arrows; // where the season remembers them: standings::driverArrows
};

class StandingsScreen : public RankedScreen {
public:
    StandingsScreen(Context &context, const QString &name, const QString &title, StandingsKind kind);

protected:
    virtual std::string next(int by) const = 0; // the number one step down (-1) or up (+1)
    virtual std::string nameAt(const std::string &number) const = 0; // who is the favourite there

    void findFavourite(); // where the arrows were left
    void fill(standings::Standings standings);
    void closing() override;
    void keyPressEvent(QKeyEvent *event) override;

    const Season &season() const { return m_season; }
    WritableSeason writableSeason() const { return WritableSeason(context.store, m_season.stem()); }
    Field m_number; // nopilott
    Field m_favourite; // Text5

private:
    QWidget *favouriteCard();
    QLayout *foot();
    Button *action(const QString &control, const QString &caption, const QString &tip, const QKeySequence &key,
                   std::function<void()> handler);
    void step(int by);
    void apply(); // Command1
    void show();

    StandingsKind m_kind;
    Season m_season; // the one that was open when the screen was
    standings::Standings m_standings;
    Table *m_table = nullptr;
    Label *m_rank = nullptr;
};

}
