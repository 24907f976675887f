// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/ranked_bars.h"

#include "shell/look.h"

#include <QBoxLayout>
#include <QPainter>
#include <QStyledItemDelegate>

namespace circuidex {

namespace {

constexpr int nameColumn = 1, barColumn = 3;
constexpr int rankWidth = 56, nameWidth = 140, figureWidth = 60; // pixels, as the next
constexpr int barWidth = static_cast<int>(statistics::fullBar / twipsPerPixel) + 8;
const QString barArray = u"barre"_s;

}

// Draws the bar of a row, its caption in white on it: the name alone where the figure doesn't fit behind it, and
// nothing where the name doesn't fit either.
class RankedBars::BarDelegate : public QStyledItemDelegate {
public:
    BarDelegate(const statistics::Bars &drawn, QObject *parent) : QStyledItemDelegate(parent), m_drawn(drawn) { }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const statistics::Bar &bar = m_drawn[static_cast<std::size_t>(index.row())];
        QRect area = option.rect.adjusted(4, 3, 0, -3);
        area.setWidth(qRound(bar.width / twipsPerPixel));
        if (area.isEmpty())
            return;
        painter->fillRect(area, look::shown(look::bars));
        const QString name = bar.caption.empty() ? QString() : index.siblingAtColumn(nameColumn).data().toString();
        const QRect inside = area.adjusted(5, 0, -4, 0);
        painter->save();
        painter->setPen(look::over(look::onBar, look::bars));
        for (const QString &caption : {qt(bar.caption), name})
            if (draw(*painter, option.font, inside, caption))
                break;
        painter->restore();
    }

private:
    static bool draw(QPainter &painter, QFont font, const QRect &inside, const QString &caption)
    {
        for (const int size : {11, 10}) { // pixels
            font.setPixelSize(size);
            if (QFontMetrics(font).horizontalAdvance(caption) > inside.width())
                continue;
            painter.setFont(font);
            painter.drawText(inside, Qt::AlignVCenter | Qt::AlignLeft, caption);
            return true;
        }
        return false;
    }

    const statistics::Bars &m_drawn;
};

RankedBars::RankedBars(Context &theContext, const QString &name, const QString &title)
    : RankedScreen(theContext, name, title)
{
    for (int i = 1; i <= driverSlots; ++i) {
        Control &bar = hidden(
            u"graph"_s, {}, [this, i] { openRow(i); }, i);
        bar.setBack(look::bars);
        bar.setFore(look::onBar);
    }
}

void RankedBars::layOut(const std::vector<ModeGroup> &groups, Coloured coloured, const QString &print)
{
    auto *head = new QHBoxLayout;
    auto *what = add(u"Label3"_s, new Label);
    what->setObjectName(u"large"_s);
    head->addWidget(what, 1);
    head->addWidget(printCommand(print));
    auto *right = new QVBoxLayout;
    right->setSpacing(look::gap);
    right->addLayout(head);
    right->addWidget(makeRows());
    right->addStretch(1);
    auto *left = new QVBoxLayout;
    left->setSpacing(look::gap);
    for (const ModeGroup &group : groups)
        left->addWidget(buttons(group, coloured));
    left->addStretch(1);
    auto *layout = new QHBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 10);
    layout->setSpacing(look::gap + 2);
    layout->addLayout(left);
    layout->addLayout(right, 1);
    m_table->setFocus();
}

QWidget *RankedBars::buttons(const ModeGroup &group, Coloured coloured)
{
    auto *ground = new QFrame;
    ground->setObjectName(u"modes"_s);
    look::dress(*ground, look::modeGroup(coloured == Coloured::ground ? group.colour : look::card));
    auto *layout = new QVBoxLayout(ground);
    layout->setContentsMargins(7, 4, 7, 7);
    layout->setSpacing(3);
    layout->addWidget(styled(group.heading, "caption"));
    for (const Mode &mode : group.modes) {
        m_buttons << mode.button;
        auto *made = button(mode.button, mode.caption, [this, mode] {
            setText(u"Label3"_s, mode.title);
            mode.choose();
            mark(mode.button);
        });
        made->setToolTip(mode.title);
        QFont bold = made->font();
        bold.setBold(true);
        made->setMinimumWidth(QFontMetrics(bold).horizontalAdvance(mode.caption) + 14); // so that nothing jumps
        if (coloured == Coloured::buttons)
            control(mode.button)->setBack(group.colour);
        layout->addWidget(made);
    }
    return ground;
}

Table *RankedBars::makeRows()
{
    m_table = rankedTable(
        {{u"Text3"_s, {}, nameWidth}, {u"Text4"_s, u"Nombre"_s, figureWidth, Qt::AlignRight}, {barArray, {}, barWidth}},
        driverSlots, [this](int row) { openRow(row); });
    m_table->setItemDelegateForColumn(barColumn, new BarDelegate(m_bars, m_table));
    m_table->setColumnWidth(0, rankWidth);
    m_table->setFixedWidth(rankWidth + nameWidth + figureWidth + barWidth + 2);
    return m_table;
}

void RankedBars::showRows(const std::vector<standings::StandingsRow> &rows, const statistics::Bars &bars)
{
    m_bars = bars;
    for (int i = 1; i <= driverSlots; ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        m_table->set(u"Text3", i, qt(rows[at].name));
        m_table->set(u"Text4", i, qt(rows[at].points));
        Control *bar = control(u"graph"_s, i);
        bar->setText(qt(bars[at].caption));
        const double high = look::rowHeight * twipsPerPixel;
        bar->setGeometry({0, (i - 1) * high, bars[at].width, high});
    }
    m_table->viewport()->update();
}

void RankedBars::describeRows(const QString &title, const QString &tip)
{
    m_table->model().setTitle(nameColumn, title, {});
    for (const QString &array : {u"Text3"_s, u"Text4"_s, barArray})
        for (int i = 1; i <= driverSlots; ++i)
            m_table->cell(array, i)->setTip(tip);
    m_table->viewport()->setCursor(tip.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
}

void RankedBars::mark(const QString &chosen)
{
    for (const QString &name : m_buttons)
        if (auto *control = dynamic_cast<WidgetControl *>(this->control(name))) {
            QFont font = control->widget()->font();
            font.setBold(name == chosen);
            control->widget()->setFont(font);
        }
}

}
