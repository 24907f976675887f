// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/table.h"

#include "shell/look.h"
#include "shell/widgets.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

namespace circuidex {

namespace {

constexpr int titleLine = 14; // pixels that each further line of the titles takes

// The style sheet paints the cells' frame in place of their back colour, so that the colour is laid under it here. The
// frame of the current cell is for those who came by Tab; in a table that only opened it would look like a choice.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        if (const QVariant back = index.data(Qt::BackgroundRole); back.isValid())
            painter->fillRect(option.rect, back.value<QColor>());
        QStyleOptionViewItem shown = option;
        shown.state.setFlag(QStyle::State_HasFocus,
                            option.state.testFlags(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange));
        QStyledItemDelegate::paint(painter, shown, index);
    }
};

// None where the table's own is to be read on the cell.
QVariant foreOf(const Cell &cell)
{
    const QColor back = cell.back().value_or(look::card);
    const QColor fore = look::over(cell.fore().value_or(look::ink), back);
    return cell.fore() || fore != look::written(look::ink) ? QVariant(fore) : QVariant();
}

QFont boldened(QFont font)
{
    font.setBold(true);
    return font;
}

}

void Cell::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_table.model().changed(m_row, m_column);
    if (onChange)
        onChange(text);
}

QString Cell::tip() const
{
    return m_tip.isEmpty() ? m_table.model().columns()[static_cast<std::size_t>(m_column)].tip : m_tip;
}

TwipRect Cell::geometry() const
{
    const QRect rect = m_table.visualRect(m_table.model().index(m_row, m_column));
    const QPoint corner = m_table.viewport()->mapTo(m_table.window(), rect.topLeft());
    return {corner.x() * twipsPerPixel, corner.y() * twipsPerPixel, rect.width() * twipsPerPixel,
            rect.height() * twipsPerPixel};
}

void Cell::key(const QString &name)
{
    m_table.goTo(m_row, m_column);
    sendKey(m_table, name);
}

void Cell::setBold(bool bold)
{
    if (bold == m_bold)
        return;
    m_bold = bold;
    m_table.model().changed(m_row, m_column);
}

void Cell::coloursChanged()
{
    m_table.model().changed(m_row, m_column);
}

void Cell::doPress()
{
    m_table.pressed(m_row, m_column, false);
}

void Cell::doDoubleClick()
{
    m_table.pressed(m_row, m_column, true);
}

CellModel::CellModel(Table &table, std::vector<Column> columns, int rows) : m_columns(std::move(columns))
{
    m_cells.resize(static_cast<std::size_t>(rows));
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < static_cast<int>(m_columns.size()); ++column)
            m_cells[static_cast<std::size_t>(row)].push_back(std::make_unique<Cell>(table, row, column));
}

int CellModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_cells.size());
}

int CellModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant CellModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Cell &at = cell(index.row(), index.column());
    const Column &column = m_columns[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return at.text();
    case Qt::ToolTipRole:
        return at.tip();
    case Qt::BackgroundRole:
        return at.back() ? QVariant(look::shown(*at.back())) : QVariant();
    case Qt::ForegroundRole:
        return foreOf(at);
    case Qt::TextAlignmentRole:
        return QVariant(column.align | Qt::AlignVCenter);
    case Qt::FontRole:
        return at.bold() ? boldened(static_cast<const QWidget *>(QObject::parent())->font()) : QVariant();
    default:
        return {};
    }
}

QVariant CellModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const Column &column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return column.title;
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(column.align | Qt::AlignVCenter) | Qt::TextWordWrap;
    if (role != Qt::ToolTipRole)
        return {};
    const auto tip = m_titleTips.find(section);
    return tip != m_titleTips.end() ? tip->second : column.tip;
}

void CellModel::setTitle(int column, const QString &title, const QString &tip)
{
    m_columns[static_cast<std::size_t>(column)].title = title;
    m_titleTips[column] = tip;
    emit headerDataChanged(Qt::Horizontal, column, column);
}

void CellModel::changed(int row, int column)
{
    emit dataChanged(index(row, column), index(row, column));
}

Table::Table(std::vector<Column> columns, int rows, QWidget *parent) : QTableView(parent)
{
    m_model = new CellModel(*this, std::move(columns), rows);
    m_model->setParent(this);
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (const QColor back = m_model->columns()[static_cast<std::size_t>(column)].back; back.isValid())
            for (int row = 0; row < rows; ++row)
                m_model->cell(row, column).setBack(back);
    setModel(m_model);
    setItemDelegate(new CellDelegate(this));
    setAlternatingRowColors(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(12);
    verticalHeader()->setDefaultSectionSize(look::rowHeight);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setFixedHeight(look::rowHeight + 2);
    bool pointing = false;
    for (int i = 0; i < m_model->columnCount(); ++i) {
        const Column &column = m_model->columns()[static_cast<std::size_t>(i)];
        horizontalHeader()->setSectionResizeMode(i, column.width > 0 ? QHeaderView::Fixed : QHeaderView::Stretch);
        if (column.width > 0)
            setColumnWidth(i, column.width);
        pointing |= column.command;
    }
    if (pointing)
        viewport()->setCursor(Qt::PointingHandCursor);
    connect(this, &QTableView::clicked, this, [this](const QModelIndex &at) { pressed(at.row(), at.column(), false); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex &at) { pressed(at.row(), at.column(), true); });
}

Cell *Table::cell(QStringView name, int index) const
{
    const auto &columns = m_model->columns();
    for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
        const int row = index - columns[static_cast<std::size_t>(column)].firstIndex;
        if (columns[static_cast<std::size_t>(column)].name == name && row >= 0 && row < m_model->rowCount())
            return &m_model->cell(row, column);
    }
    return nullptr;
}

Cell *Table::cell(QStringView rowName) const
{
    const auto &columns = m_model->columns();
    for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
        const QStringList &names = columns[static_cast<std::size_t>(column)].rowNames;
        for (int row = 0; row < names.size() && row < m_model->rowCount(); ++row)
            if (names.at(row) == rowName)
                return &m_model->cell(row, column);
    }
    return nullptr;
}

QStringList Table::names() const
{
    QStringList names;
    for (const Column &column : m_model->columns()) {
        names << column.rowNames;
        for (int row = 0; !column.name.isEmpty() && row < m_model->rowCount(); ++row)
            names << u"%1(%2)"_s.arg(column.name).arg(row + column.firstIndex);
    }
    return names;
}

void Table::set(QStringView name, int index, const QString &text)
{
    if (Cell *at = cell(name, index))
        at->setText(text);
}

void Table::setBack(QStringView name, int index, std::optional<QColor> colour)
{
    if (Cell *at = cell(name, index))
        at->setBack(colour);
}

QString Table::text(QStringView name, int index) const
{
    const Cell *at = cell(name, index);
    return at ? at->text() : QString();
}

void Table::pressed(int row, int column, bool twice)
{
    const Column &at = m_model->columns()[static_cast<std::size_t>(column)];
    const auto handler = twice ? onDoubleClick : onPress;
    if (handler)
        handler(at.rowNames.value(row, at.name), row + at.firstIndex);
}

void Table::goTo(int row, int column)
{
    setCurrentIndex(m_model->index(row, column));
}

QString Table::asText() const
{
    QStringList lines;
    QStringList cells;
    for (const Column &column : m_model->columns())
        cells << column.title;
    lines << cells.join(u'\t');
    for (int row = 0; row < m_model->rowCount(); ++row) {
        cells.clear();
        for (int column = 0; column < m_model->columnCount(); ++column)
            cells << m_model->cell(row, column).text();
        lines << cells.join(u'\t');
    }
    return lines.join(u'\n') + u'\n';
}

void Table::setTitleLines(int lines)
{
    horizontalHeader()->setFixedHeight(look::rowHeight + 2 + (lines - 1) * titleLine);
}

int Table::rowsHigh(int rows) const
{
    return (horizontalHeader()->isHidden() ? 0 : horizontalHeader()->height()) +
        rows * verticalHeader()->defaultSectionSize() + 2;
}

void Table::keyPressEvent(QKeyEvent *event)
{
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentIndex().isValid() &&
        (onPress || onDoubleClick)) {
        const bool twice = !onPress || (onDoubleClick && event->modifiers().testFlag(Qt::ShiftModifier));
        pressed(currentIndex().row(), currentIndex().column(), twice);
    } else if (event->key() == Qt::Key_Delete && currentIndex().isValid() && onDelete) {
        const Column &column = m_model->columns()[static_cast<std::size_t>(currentIndex().column())];
        onDelete(column.name, currentIndex().row() + column.firstIndex);
    } else {
        QTableView::keyPressEvent(event);
    }
}

}
