// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The kind of the two tables that show one team race by race: up to four of its drivers side by side, two figures of
// each, each driver in a colour of his own, and behind them the team with its sum.
#include "kinds/race_table.h"
#include "statistics/season_summary.h"
#include "store/season.h"

#include <functional>

namespace circuidex {

struct TeamRow {
    std::string gp; // empty for a slot of the calendar without a race
    std::array<std::string, 4> first, second; // of each driver
    std::string team, sum;
};

struct TeamContent {
    statistics::TeamDrivers drivers;
    std::array<TeamRow, gpSlots> rows;
};

struct TeamKind {
    QString first, second; // titles; "%1" stands for the number of the driver
    QString team, sum;
    QString word; // told to the list of teams
    std::function<TeamContent(const Context &, const Season &, std::string_view team)> content;
};

class TeamTable : public RaceTable {
public:
    TeamTable(Context &context, const QString &name, const QString &title, TeamKind kind);

private:
    QWidget *question();
    QWidget *answer();
    void ask(); // Command2
    void showRow(int index, const TeamRow &row);

    TeamKind m_kind;
    Field m_team, m_year; // Text1, Text2
    Table *m_table = nullptr;
};

}
