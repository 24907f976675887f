// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/season_table.h"

#include "charts/chart_instances.h"
#include "kinds/empty_note.h"
#include "kinds/race_table.h"
#include "kinds/season_key.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/table_menu.h"

#include <QGridLayout>
#include <QHeaderView>

namespace circuidex {

using namespace comparisons;

namespace {

// Of the heads `Label1`, the oldest season's.
constexpr int firstPointsHead = 2, firstReferenceHead = 7;
constexpr int lastReferenceHead = firstReferenceHead + seasonsCompared - 1;

// The columns of the table: the rows' heads, the points, a gap, the differences.
constexpr int pointsColumn = 1, gapColumn = pointsColumn + seasonsCompared, differencesColumn = gapColumn + 1;
constexpr int pointsWidth = 68, gapWidth = 12, differenceWidth = 106; // pixels
constexpr int stripHeight = 4;

const QString rowHead = u"ecuri"_s, yearHead = u"Label1"_s;
const std::array<QString, seasonsCompared> pointsCells{u"Label11"_s, u"Label27"_s, u"Label28"_s, u"Label29"_s};
const std::array<QString, seasonsCompared> differenceCells{u"Label2"_s, u"Label3"_s, u"Label4"_s, u"Label5"_s};

std::size_t at(int column)
{
    return static_cast<std::size_t>(column);
}

QColor colourOfSeason(int column)
{
    return QColor::fromRgb(charts::seriesColours[at(seasonsCompared - 1 - column)]);
}

}

SeasonTable::SeasonTable(Context &theContext, const QString &name, const QString &title, SeasonTableKind kind)
    : LookupScreen(theContext, name, title), m_season(theContext.main.an.text()), m_kind(std::move(kind)),
      m_reference(std::to_string(lastReferenceHead))
{
    hidden(u"an"_s, m_season);
    hidden(u"indexx"_s, m_reference);
}

Seasons SeasonTable::seasons() const
{
    return seasonsUpTo(context.store, m_season.text());
}

Season SeasonTable::season() const
{
    return seasons()[currentSeason];
}

std::vector<Column> SeasonTable::columns() const
{
    std::vector<Column> columns{{rowHead, m_kind.head, m_kind.races ? 160 : 190}};
    for (const QString &name : pointsCells) {
        columns.push_back({name, {}, pointsWidth, Qt::AlignRight});
        columns.back().back = look::plain;
    }
    columns.push_back({{}, {}, gapWidth});
    columns.back().back = look::ground;
    for (const QString &name : differenceCells)
        columns.push_back({name, {}, differenceWidth, Qt::AlignRight});
    return columns;
}

// The "&" of its caption marks no letter and isn't seen.
Button *SeasonTable::openButton(std::function<void()> ask)
{
    const QString caption = u"Ouvrir&"_s;
    Button *made = mainButton(u"Command1"_s, caption, u"Montrer ces points (Entrée)"_s, std::move(ask));
    made->setText(caption);
    return made;
}

QWidget *SeasonTable::answer()
{
    m_table = table(columns(), m_kind.rows);
    m_table->setAlternatingRowColors(false);
    m_table->horizontalHeader()->hide();
    allowSorting(*m_table);
    m_table->setFixedSize(m_table->horizontalHeader()->length() + 2, m_table->rowsHigh(m_kind.rows));
    m_table->onDoubleClick = [this](const QString &column, int row) {
        for (int season = 0; m_kind.races && season < seasonsCompared; ++season)
            if (column == pointsCells[at(season)]) {
                const Season opened = seasons()[at(season)];
                openGrandPrix(context, opened.stem(), opened.namegp(row));
            }
    };
    add(emptyNote, noteOver(*m_table, rowHead, context, results::Need::race));
    auto *made = new QWidget;
    auto *layout = new QVBoxLayout(made);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(heads());
    layout->addWidget(m_table);
    return made;
}

QWidget *SeasonTable::heads()
{
    auto *made = new QWidget;
    auto *grid = new QGridLayout(made);
    grid->setContentsMargins(1, 0, 1, 0);
    grid->setSpacing(0);
    grid->setVerticalSpacing(2);
    for (int column = 0; column < m_table->model().columnCount(); ++column)
        grid->setColumnMinimumWidth(column, m_table->columnWidth(column));
    grid->addWidget(styled(m_kind.points, "caption"), 0, pointsColumn, 1, seasonsCompared);
    grid->addWidget(styled(u"Variation du nombre de points par rapport aux années précédentes:"_s, "caption"), 0,
                    differencesColumn, 1, seasonsCompared);
    grid->addWidget(styled(m_kind.head, "caption"), 1, 0, Qt::AlignLeft | Qt::AlignVCenter);
    grid->addWidget(styled(u"Saison: "_s, "hint"), 1, 0, Qt::AlignRight | Qt::AlignVCenter);
    for (int column = 0; column < seasonsCompared; ++column) {
        grid->addWidget(head(column, false), 1, pointsColumn + column);
        grid->addWidget(head(column, true), 1, differencesColumn + column);
    }
    return made;
}

// The season's colour stands under its year: the cells below say by theirs who is better.
QWidget *SeasonTable::head(int column, bool reference)
{
    const int index = (reference ? firstReferenceHead : firstPointsHead) + column;
    auto *year = add(yearHead, new Label, index);
    year->setObjectName(u"figure"_s);
    year->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    year->setIndent(4); // the figures' edge
    year->setFixedHeight(look::rowHeight);
    if (reference) {
        year->setCursor(Qt::PointingHandCursor);
        year->setFocusPolicy(Qt::TabFocus);
        year->onClick = [this, index] {
            m_reference.set(std::to_string(index));
            compare();
        };
    }
    auto *strip = new QFrame;
    strip->setFixedHeight(stripHeight);
    look::dress(*strip, look::swatch(colourOfSeason(column)));
    auto *made = new QWidget;
    auto *layout = new QVBoxLayout(made);
    layout->setContentsMargins(2, 0, 2, 2);
    layout->setSpacing(1);
    layout->addWidget(year);
    layout->addWidget(strip);
    return made;
}

QLayout *SeasonTable::legendFoot()
{
    auto *row = footRow(u"Label14"_s);
    row->addWidget(legend({},
                          {{look::chosen, u"Saison de référence, ou égalité"_s},
                           {look::gain, u"La référence a plus de points"_s},
                           {look::loss, u"La référence en a moins"_s}}));
    return row;
}

void SeasonTable::show(const std::vector<SeasonRow> &rows, const std::string &subject)
{
    showYears(subject);
    const Seasons compared = seasons();
    for (int index = 0; index < m_kind.rows; ++index) {
        const SeasonRow row = at(index) < rows.size() ? rows[at(index)] : SeasonRow{};
        m_table->set(rowHead, index, qt(row.head));
        for (std::size_t column = 0; column < seasonsCompared; ++column)
            m_table->set(pointsCells[column], index, qt(row.points[column]));
        if (m_kind.races)
            showRaces(index, compared);
    }
    compare();
}

void SeasonTable::showYears(const std::string &subject)
{
    const auto told = seasonHeads(context.store, m_season.text(), m_kind.subject, subject); // newest first
    for (int column = 0; column < seasonsCompared; ++column) {
        const SeasonHead &season = told[at(seasonsCompared - 1 - column)];
        for (const int titled : {pointsColumn + column, differencesColumn + column})
            m_table->model().setTitle(titled, qt(season.year), seasonTip(season, subject)); // for who can't see them
        for (const int index : {firstPointsHead + column, firstReferenceHead + column}) {
            auto *year = static_cast<WidgetControl *>(control(yearHead, index));
            year->setText(qt(season.year));
            year->widget()->setToolTip(
                seasonTip(season, subject) +
                (index < firstReferenceHead ? u""_s : u"\nCliquez ici pour comparer à cette saison"_s));
        }
    }
}

// Seasons are matched by the place in the calendar, so each cell tells which race that was.
void SeasonTable::showRaces(int row, const Seasons &compared)
{
    for (std::size_t column = 0; column < seasonsCompared; ++column) {
        const QString race = qt(compared[column].namegp(row));
        m_table->cell(pointsCells[column], row)->setTip(race.isEmpty() ? race : race + u'\n' + openTip);
        m_table->cell(differenceCells[column], row)->setTip(race);
    }
}

void SeasonTable::compare()
{
    const int reference = context.store.numbers()
                              .whole(m_reference.text(), firstReferenceHead, lastReferenceHead)
                              .value_or(lastReferenceHead);
    for (int index = firstReferenceHead; index <= lastReferenceHead; ++index)
        control(yearHead, index)->setBack(index == reference ? std::optional(look::chosen) : std::nullopt);
    for (int row = 0; row < m_kind.rows; ++row)
        compareRow(row, reference - firstReferenceHead);
}

void SeasonTable::compareRow(int row, int reference)
{
    Points points;
    for (std::size_t column = 0; column < seasonsCompared; ++column)
        points[column] = m_table->text(pointsCells[column], row).toStdString();
    for (std::size_t column = 0;
         const standings::Toned &cell : differences(points, at(reference), context.store.numbers()))
        showFigure(*m_table, differenceCells[column++], row, cell);
}

}
