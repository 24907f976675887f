#pragma once
// Form32, the statistics of the season: at the press of a button one figure of all drivers, or one of the three
// all-time lists, as a ranked table with bars. An all-time list is written back in its order when it has been shown.
#include "shell/ranked_screen.h"
#include "statistics/season_statistics.h"

namespace circuidex {

class Form32 : public RankedScreen {
public:
    Form32(Context &context, const QString &name, const QString &title);

private:
    QWidget *buttons(const QString &heading, const QColor &ground, bool allTime);
    Table *rows();
    void registerHidden();
    void choose(const Statistic &statistic); // one of the fifteen buttons
    void compute(); // Command1
    void show();
    void keep(); // Command16
    void openRow(int row);

    StatisticTable m_made;
    Field m_word; // Label2
    Field m_first, m_rank; // first, classement
    Table *m_table = nullptr;
};

}
