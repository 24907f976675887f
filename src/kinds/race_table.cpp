// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/race_table.h"

#include "kinds/empty_note.h"
#include "results/main_record.h"
#include "results/open_grand_prix.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "shell/table_menu.h"

#include <QBoxLayout>

namespace circuidex {

namespace {

constexpr int raceNumberWidth = 30, raceNameWidth = 128; // pixels
const QString gpColumn = u"Label6"_s;

}

void openGrandPrix(Context &context, const std::string &year, const std::string &gpName)
{
    if (gpName.empty() || !results::slotNamed(Season(context.store, year), gpName))
        return;
    if (const Screen *race = context.screens.open(u"Form4"_s)) {
        race->setText(u"Text9"_s, qt(year));
        race->setText(u"gp"_s, qt(gpName));
        race->press(u"Command12"_s); // its slot, from which the race is loaded
        race->press(u"Command5"_s);
    }
}

std::optional<QColor> colourOf(standings::Tone tone)
{
    switch (tone) {
    case standings::Tone::gain:
        return look::gain;
    case standings::Tone::loss:
        return look::loss;
    case standings::Tone::level:
        return look::chosen;
    case standings::Tone::none:
        break;
    }
    return std::nullopt;
}

void showFigure(Table &table, QStringView column, int index, const standings::Toned &figure,
                std::optional<QColor> plain)
{
    const auto colour = colourOf(figure.tone);
    table.set(column, index, qt(figure.text));
    table.setBack(column, index, colour ? colour : plain);
}

QWidget *legend(const QString &caption, const std::vector<Meaning> &meanings)
{
    auto *made = new QWidget;
    auto *row = new QHBoxLayout(made);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    if (!caption.isEmpty())
        row->addWidget(styled(caption, "caption"));
    for (const Meaning &meaning : meanings) {
        auto *swatch = new QFrame;
        swatch->setFixedSize(18, 14);
        look::dress(*swatch, look::legendSwatch(meaning.colour));
        row->addSpacing(4);
        row->addWidget(swatch);
        row->addWidget(styled(meaning.words, "hint"));
    }
    return made;
}

RaceTable::RaceTable(Context &theContext, const QString &name, const QString &title)
    : LookupScreen(theContext, name, title)
{
    listen(context.main.gp, [this](const std::string &) {
        for (int row = 0; m_races && row < gpSlots; ++row)
            markShown(row);
    });
}

Table *RaceTable::raceTable(const QString &gpTitle, std::vector<Column> columns)
{
    columns.insert(columns.begin(), {{{}, u"N°"_s, raceNumberWidth, Qt::AlignRight}, {gpColumn, gpTitle, raceNameWidth}});
    int width = 2;
    for (const Column &column : columns)
        width += column.width;
    m_races = table(std::move(columns), gpSlots);
    m_races->setFixedSize(width, m_races->rowsHigh(gpSlots));
    allowSorting(*m_races);
    m_races->onDoubleClick = [this](const QString &column, int row) {
        if (column == gpColumn)
            openGrandPrix(context, m_year, m_races->text(gpColumn, row).toStdString());
    };
    add(emptyNote, noteOver(*m_races, gpColumn, context, results::Need::race));
    return m_races;
}

Table *RaceTable::wideTable(const QString &gpTitle, std::vector<Column> columns)
{
    Table *made = raceTable(gpTitle, std::move(columns));
    made->setStyleSheet(look::narrowHeads());
    made->setAlternatingRowColors(false);
    made->setTitleLines(2);
    made->setFixedHeight(made->rowsHigh(gpSlots));
    return made;
}

void RaceTable::setRace(int row, const std::string &gpName, const std::string &year)
{
    m_year = year;
    m_races->model().cell(row, 0).setText(gpName.empty() ? QString() : QString::number(row + 1));
    m_races->set(gpColumn, row, qt(gpName));
    m_races->cell(gpColumn, row)->setTip(gpName.empty() ? QString() : openTip);
    markShown(row);
}

void RaceTable::markShown(int row)
{
    const std::string &shown = context.main.gp.text();
    Cell *name = m_races->cell(gpColumn, row);
    name->setBold(!shown.empty() && name->text() == qt(shown));
}

}
