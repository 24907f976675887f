// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/table_sort.h"

#include "shell/table.h"

#include <QHeaderView>
#include <QLabel>
#include <QRegularExpression>

#include <algorithm>
#include <numeric>

namespace circuidex {

namespace {

// "07/03/2004" as a number that grows with the days.
std::optional<double> dateOf(const QString &text)
{
    static const QRegularExpression form(QStringLiteral(R"(^\s*(\d{1,2})[/.-](\d{1,2})[/.-](\d{4})\s*$)"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return match.captured(3).toInt() * 10000.0 + match.captured(2).toInt() * 100 + match.captured(1).toInt();
}

// The number that a text begins with, as in "- 10 pts" and "2nd"; a place kept, "=", is none gained.
std::optional<double> numberOf(const QString &text)
{
    if (text.trimmed() == u"=")
        return 0;
    static const QRegularExpression form(QStringLiteral(R"(^\s*([+-]?)\s*(\d+(?:[.,]\d+)?))"));
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    return (match.captured(1) + match.captured(2).replace(u',', u'.')).toDouble();
}

}

bool comesBefore(const QString &a, const QString &b)
{
    for (const auto valueOf : {dateOf, numberOf}) {
        const auto x = valueOf(a), y = valueOf(b);
        if (x && y && *x != *y)
            return *x < *y;
        if (x.has_value() != y.has_value())
            return x.has_value();
    }
    return QString::localeAwareCompare(folded(a), folded(b)) < 0;
}

TableSort::TableSort(Table &table)
    : QObject(&table), m_table(table), m_mark(new QLabel(table.horizontalHeader()->viewport()))
{
    m_mark->setTextFormat(Qt::PlainText);
    m_mark->setObjectName(u"sorted"_s);
    m_mark->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_mark->hide();
    QHeaderView *titles = table.horizontalHeader();
    titles->setSectionsClickable(true);
    connect(titles, &QHeaderView::sectionClicked, this, &TableSort::by);
    connect(&table.model(), &QAbstractItemModel::dataChanged, this, &TableSort::soon);
}

void TableSort::by(int column)
{
    const bool again = column == m_column;
    m_order = again && m_order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_column = column;
    mark();
    arrange();
}

void TableSort::back()
{
    m_column = -1;
    mark();
    arrange();
}

// The style's own arrow would take its room from all titles.
void TableSort::mark()
{
    const QHeaderView &titles = *m_table.horizontalHeader();
    m_mark->setVisible(sorted());
    if (!sorted())
        return;
    m_mark->setText(m_order == Qt::AscendingOrder ? u"▲"_s : u"▼"_s);
    m_mark->adjustSize();
    m_mark->move(titles.sectionViewportPosition(m_column) + (titles.sectionSize(m_column) - m_mark->width()) / 2, 0);
}

void TableSort::arrange()
{
    m_arranging = false;
    const CellModel &model = m_table.model();
    std::vector<int> rows(std::size_t(model.rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    const auto before = [this, &model](int a, int b) {
        const QString x = model.cell(a, m_column).text().trimmed(), y = model.cell(b, m_column).text().trimmed();
        if (x.isEmpty() || y.isEmpty())
            return !x.isEmpty() && y.isEmpty();
        return m_order == Qt::AscendingOrder ? comesBefore(x, y) : comesBefore(y, x);
    };
    if (sorted())
        std::stable_sort(rows.begin(), rows.end(), before);
    QHeaderView *header = m_table.verticalHeader();
    for (int i = 0; i < int(rows.size()); ++i)
        header->moveSection(header->visualIndex(rows[std::size_t(i)]), i);
}

// Once for all cells that change together.
void TableSort::soon()
{
    if (!sorted() || std::exchange(m_arranging, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { arrange(); }, Qt::QueuedConnection);
}

}
