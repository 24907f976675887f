// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/detailed_grid.h"

#include "kinds/empty_note.h"
#include "results/main_record.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace circuidex {

namespace {

constexpr int gridNameWidth = 134, gridRaceWidth = 74, rightWidth = 126; // pixels
constexpr int headHeight = 18;

// Figures stand in one column; a mark behind them ("(Pole)") is small and leaves them there.
class FigureDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &given, const QModelIndex &index) const override
    {
        QStyleOptionViewItem option(given);
        initStyleOption(&option, index);
        const QStyle &style = *option.widget->style();
        QRect figure = style.subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
        QRect mark = figure;
        figure.setRight(option.rect.center().x() + 5);
        mark.setLeft(figure.right() + 2);
        const QString text = std::exchange(option.text, QString());
        painter->fillRect(option.rect, option.backgroundBrush);
        style.drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
        const qsizetype bracket = text.indexOf(u'(');
        write(*painter, figure, Qt::AlignRight, text.left(bracket), option.font, option.palette.text().color());
        if (bracket >= 0) {
            QFont small(option.font);
            small.setPixelSize(small.pixelSize() - 1);
            write(*painter, mark, Qt::AlignLeft, text.mid(bracket), small, look::written(look::quiet));
        }
    }

private:
    static void write(QPainter &painter, const QRect &where, Qt::Alignment side, const QString &text, const QFont &font,
                      const QColor &colour)
    {
        const QFontMetrics metrics(font);
        const int left = side == Qt::AlignRight ? where.right() - metrics.horizontalAdvance(text) : where.left();
        painter.setFont(font);
        painter.setPen(colour);
        painter.drawText(left, where.top() + (where.height() - metrics.height()) / 2 + metrics.ascent(), text);
    }
};

// Rows as high as the display allows for both bands, between what can just be read and the usual height.
int heightOfRows(int rows, int display)
{
    return std::clamp((display - 86) / (2 * rows), 12, look::rowHeight);
}

// "Grande bretagne" as "G. bretagne" where the whole name is too wide.
QString shortened(const QString &name, const QFontMetrics &metrics)
{
    const qsizetype blank = name.indexOf(u' ');
    if (blank < 2 || metrics.horizontalAdvance(name) <= gridRaceWidth - 12)
        return name;
    return name.left(1) + u"."_s + name.mid(blank);
}

}

DetailedGrid::DetailedGrid(Context &theContext, const QString &name, const QString &title, const DetailedGridKind &kind)
    : Screen(theContext, name, title)
{
    const int rowHeight = heightOfRows(kind.rows, room().height());
    for (int which : {0, 1})
        m_bands[static_cast<std::size_t>(which)] = band(kind, which, rowHeight);
    add(emptyNote, noteOver(*m_bands[0], kind.name.name, context, results::Need::race));
    for (int race = 0; race < races; ++race)
        hidden(u"Label1"_s, {}, {}, race).onChange = [this, race](const QString &text) {
            showHead(race, text);
        };
    auto *aside = new QVBoxLayout;
    aside->addWidget(styled(qt(theContext.main.an.text()), "large"));
    aside->addWidget(printCommand(u"Label14"_s), 0, Qt::AlignLeft);
    aside->addStretch(1);
    auto *upper = new QHBoxLayout;
    upper->setSpacing(look::gap);
    upper->addWidget(m_bands[0]);
    upper->addLayout(aside, 1);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(8, 5, 8, 5);
    layout->setSpacing(5);
    layout->addLayout(upper);
    layout->addWidget(m_bands[1], 0, Qt::AlignLeft);
    setFocusPolicy(Qt::StrongFocus); // no cell looks chosen on opening
    setFocus();
    setFixedSize(gridNameWidth + racesOfBand * gridRaceWidth + rightWidth + 20, sizeHint().height());
}

Table *DetailedGrid::band(const DetailedGridKind &kind, int which, int rowHeight)
{
    std::vector<Column> columns{kind.name};
    columns[0].width = gridNameWidth;
    columns[0].firstIndex += which * kind.rows;
    for (int race = which * racesOfBand; race < (which + 1) * racesOfBand; ++race)
        columns.push_back({u"Text5"_s, {}, gridRaceWidth, Qt::AlignHCenter, {}, stride * race});
    const auto &right = kind.atRight[static_cast<std::size_t>(which)];
    columns.insert(columns.end(), right.begin(), right.end());
    Table *made = table(std::move(columns), kind.rows);
    QFont font = made->font();
    font.setPixelSize(rowHeight < 17 ? 11 : 12);
    made->setFont(font);
    made->setStyleSheet(look::narrowHeads());
    made->horizontalHeader()->setFixedHeight(headHeight);
    made->verticalHeader()->setDefaultSectionSize(rowHeight);
    made->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    made->setFixedSize(made->horizontalHeader()->length() + 2, made->rowsHigh(kind.rows));
    auto *delegate = new FigureDelegate(made);
    for (int column = 1; column <= racesOfBand; ++column)
        made->setItemDelegateForColumn(column, delegate);
    return made;
}

void DetailedGrid::setRace(int race, const std::string &name)
{
    setText(u"Label1"_s, qt(name), race);
}

void DetailedGrid::showHead(int race, const QString &name)
{
    const Table &band = *m_bands[static_cast<std::size_t>(race / racesOfBand)];
    QFont font = band.font();
    font.setPixelSize(11);
    font.setBold(true);
    band.model().setTitle(1 + race % racesOfBand, shortened(name, QFontMetrics(font)), name);
}

void DetailedGrid::setCell(int row, int race, const std::string &text)
{
    m_bands[static_cast<std::size_t>(race / racesOfBand)]->set(u"Text5", row + stride * race,
                                                               qt(text));
}

void DetailedGrid::set(QStringView column, int index, const std::string &text)
{
    for (Table *band : m_bands)
        band->set(column, index, qt(text));
}

}
