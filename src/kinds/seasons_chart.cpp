// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/seasons_chart.h"

#include "results/main_record.h"
#include "shell/look.h"
#include "store/names.h"

#include <QBoxLayout>

namespace circuidex {

using namespace charts;

namespace {

const SeasonKey::Heads headLabels{{{u"Label3"_s}, {u"Label5"_s}, {u"Label16"_s}, {u"Label15"_s}}};

}

SeasonsChart::SeasonsChart(Context &theContext, const QString &name, const QString &title, const SeasonsChartRow &row)
    : ChartScreen(theContext, name, title, row.controls), m_row(row), m_year(theContext.main.an.text())
{
    if (m_row.holdsValues)
        for (int slot = 0; slot < slotsRead; ++slot)
            shape(u"Label28"_s, slot).textNow = [this, slot] { return qt(m_chart.cell(seriesCount - 1, slot)); };
    auto *chart = new QVBoxLayout;
    chart->addWidget(view(), 1);
    auto *layout = page();
    layout->addWidget(question());
    layout->addWidget(card({}, chart), 1);
    layout->addLayout(settingsRow(true));
    resize(1000, 700);
    begin();
}

WritableSeason SeasonsChart::season() const
{
    return WritableSeason(context.store, seasonStem(m_year.text()));
}

QWidget *SeasonsChart::question()
{
    auto *rows = new QVBoxLayout;
    rows->setSpacing(8);
    rows->addLayout(subject());
    rows->addLayout(heads());
    return card({}, rows);
}

QLayout *SeasonsChart::subject()
{
    const auto box = [this](const QString &name, Field &field, int width) {
        auto *edit = add(name, new Edit);
        edit->setFixedWidth(width);
        bind(edit, field);
        onEnter(edit, [this] { draw(); });
        return edit;
    };
    auto *year = box(u"an"_s, m_year, 60);
    year->setToolTip(u"La saison la plus récente des quatre (Entrée pour tracer)"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(m_row.ofTeam() ? u"Ecurie:"_s : u"Pilote:"_s, "hint"));
    row->addWidget(m_known.offerSubjects(box(u"nompilote"_s, m_chart.subjects[0], 200), m_row.ofTeam()));
    row->addWidget(button(u"Command4"_s, u"Liste"_s, [this] {
        openPicker(context.screens, m_row.ofTeam() ? PickList::teams : PickList::drivers, qt(m_row.word));
    }));
    row->addSpacing(16);
    row->addWidget(styled(u"Saison:"_s, "hint"));
    row->addWidget(year);
    row->addWidget(drawButton(qt(m_row.draw)));
    row->addStretch(1);
    return row;
}

QLayout *SeasonsChart::heads()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(12);
    for (int s = 0; s < seriesCount; ++s) {
        auto *head = add(headLabels[std::size_t(s)].name, new Label);
        head->setAlignment(Qt::AlignCenter);
        head->setFixedHeight(look::rowHeight);
        auto *marked = new QHBoxLayout;
        marked->setSpacing(4);
        marked->addWidget(marker(s));
        marked->addWidget(head, 1);
        auto *column = new QVBoxLayout;
        column->setSpacing(4);
        column->addLayout(marked);
        if (m_row.controls.instance.showsDrivers)
            column->addLayout(driversPanel(s, u"Saison %1:"_s.arg(s + 1)));
        row->addLayout(column, 1);
    }
    SeasonKey::Colours colours;
    std::copy(std::begin(look::pairBars), std::end(look::pairBars), colours.begin());
    m_key.emplace(*this, headLabels, colours, qt(m_row.heads));
    return row;
}

void SeasonsChart::showSubjects()
{
    const auto kind = m_row.ofTeam() ? comparisons::SubjectKind::team : comparisons::SubjectKind::driver;
    m_key->show(context.store, m_year.text(), kind, m_chart.subjects[0].text());
}

QString SeasonsChart::seriesName(int series) const
{
    const std::string &year = m_chart.name(series);
    return year.empty() ? QString() : u"Saison "_s + qt(year);
}

QString SeasonsChart::subjectName(int) const
{
    return qt(m_chart.subjects[0].text());
}

QString SeasonsChart::pictureTitle() const
{
    QStringList years;
    for (int s = 0; s < charts::seriesCount; ++s)
        if (!m_chart.name(s).empty())
            years << qt(m_chart.name(s));
    return title() + u" – "_s + subjectName(0) + u" – saisons "_s + years.join(u", "_s);
}

}
