// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/team_table.h"

#include "kinds/picker.h"
#include "results/main_record.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex {

namespace {

constexpr int teamFigureWidth = 84; // pixels

struct DriverColumns {
    QString name, first, second; // controls
    QColor back;
};

const std::array<DriverColumns, 4> drivers{{{u"Text3"_s, u"Text4"_s, u"lblpt"_s, look::chosen},
                                            {u"Text8"_s, u"Label11"_s, u"Text6"_s, look::second},
                                            {u"Text9"_s, u"Label27"_s, u"Label29"_s, look::loss},
                                            {u"Text10"_s, u"Label28"_s, u"Label30"_s, look::fourth}}};

}

TeamTable::TeamTable(Context &theContext, const QString &name, const QString &title, TeamKind kind)
    : RaceTable(theContext, name, title), m_kind(std::move(kind)), m_year(theContext.main.an.text())
{
    context.main.refreshScale();
    m_team.set(Season(context.store, m_year.text()).ecurie(1));
    layOut(question(), answer(),
           foot(legend({},
                       {{look::chosen, u"Informations du Pilote 1"_s},
                        {look::second, u"Informations du Pilote 2"_s},
                        {look::loss, u"Informations du Pilote 3"_s},
                        {look::fourth, u"Informations du Pilote 4"_s},
                        {look::gain, u"Informations concernant l'écurie"_s}})));
    ask();
}

QWidget *TeamTable::question()
{
    auto *asked = new QHBoxLayout;
    asked->setSpacing(6);
    m_known.offerTeams(box(*asked, u"Ecurie:"_s, u"Text1"_s, m_team, 220, [this] { ask(); }));
    asked->addWidget(
        list(u"Command1"_s, [this] { openPicker(context.screens, PickList::teams, m_kind.word, qt(m_year.text())); }));
    asked->addSpacing(16);
    box(*asked, u"Saison:"_s, u"Text2"_s, m_year, 64, [this] { ask(); });
    asked->addSpacing(8);
    asked->addWidget(mainButton(u"Command2"_s, u"Ouvrir"_s, u"Montrer cette écurie (Entrée)"_s, [this] { ask(); }));
    asked->addStretch(1);
    auto *cars = new QHBoxLayout;
    cars->setSpacing(6);
    for (int car = 1; const DriverColumns &driver : drivers) {
        auto *name = add(driver.name, new Edit);
        name->setReadOnly(true);
        cars->addWidget(styled(u"P%1 (Pilote %1):"_s.arg(car++), "hint"));
        cars->addWidget(name, 1);
    }
    auto *layout = new QVBoxLayout;
    layout->addLayout(asked);
    layout->addLayout(cars);
    return card({}, layout);
}

QWidget *TeamTable::answer()
{
    std::vector<Column> columns;
    for (const bool second : {false, true})
        for (int car = 1; const DriverColumns &driver : drivers) {
            const QString title = (second ? m_kind.second : m_kind.first).arg(car++);
            columns.push_back({second ? driver.second : driver.first, title, teamFigureWidth, Qt::AlignRight});
            columns.back().back = driver.back;
        }
    for (const auto &[name, title] : {std::pair(u"Text5"_s, m_kind.team), std::pair(u"Text7"_s, m_kind.sum)}) {
        columns.push_back({name, title, teamFigureWidth, Qt::AlignRight});
        columns.back().back = look::gain;
    }
    m_table = wideTable(u"Nom du Grand-Prix:"_s, std::move(columns));
    return m_table;
}

void TeamTable::ask()
{
    const Waiting waiting(*this);
    const Season season(context.store, m_year.text());
    const TeamContent content = m_kind.content(context, season, m_team.text());
    for (std::size_t car = 0; car < drivers.size(); ++car)
        setText(drivers[car].name, qt(content.drivers[car]));
    for (int index = 0; const TeamRow &row : content.rows) {
        setRace(index, row.gp, season.stem());
        showRow(index++, row);
    }
}

void TeamTable::showRow(int index, const TeamRow &row)
{
    for (std::size_t car = 0; car < drivers.size(); ++car) {
        m_table->set(drivers[car].first, index, qt(row.first[car]));
        m_table->set(drivers[car].second, index, qt(row.second[car]));
    }
    m_table->set(u"Text5", index, qt(row.team));
    m_table->set(u"Text7", index, qt(row.sum));
    for (const Column &column : m_table->model().columns())
        if (column.back.isValid())
            m_table->setBack(column.name, index, row.gp.empty() ? look::plain : column.back);
}

}
