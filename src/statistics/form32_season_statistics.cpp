#include "statistics/form32_season_statistics.h"

#include "results/main_screen.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QPainter>
#include <QStyledItemDelegate>

namespace circuidex {

namespace {

const QColor barColour(0, 0, 192);
constexpr int barColumn = 3, nameWidth = 160, figureWidth = 64; // pixels, as the next
constexpr int barWidth = static_cast<int>(fullBar / twipsPerPixel) + 12;
const QString winsScreen = QStringLiteral("Form23"), racesScreen = QStringLiteral("Form33");

// Draws the bar of a row, its caption in white on it: the name alone where the figure doesn't fit behind it, and
// nothing where the name doesn't fit either.
class BarDelegate : public QStyledItemDelegate {
public:
    BarDelegate(const StatisticTable &drawn, QObject *parent) : QStyledItemDelegate(parent), m_drawn(drawn) { }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const Bar &bar = m_drawn.bars[static_cast<std::size_t>(index.row())];
        QRect area = option.rect.adjusted(4, 3, 0, -3);
        area.setWidth(qRound(bar.width / twipsPerPixel));
        if (area.isEmpty())
            return;
        painter->fillRect(area, barColour);
        const QString name =
            bar.caption.empty() ? QString() : qt(m_drawn.table.rows[static_cast<std::size_t>(index.row())].name);
        const QRect inside = area.adjusted(5, 0, -4, 0);
        painter->save();
        painter->setPen(Qt::white);
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

    const StatisticTable &m_drawn;
};

}

Form32::Form32(Context &theContext, const QString &name, const QString &title) : RankedScreen(theContext, name, title)
{
    registerHidden();
    auto *head = new QHBoxLayout;
    auto *what = add(QStringLiteral("Label3"), new Label);
    what->setObjectName(QStringLiteral("large"));
    head->addWidget(what, 1);
    head->addWidget(printCommand(QStringLiteral("Label12")));
    auto *right = new QVBoxLayout;
    right->setSpacing(look::gap);
    right->addLayout(head);
    right->addWidget(rows());
    auto *left = new QVBoxLayout;
    left->setSpacing(look::gap);
    left->addWidget(buttons(QStringLiteral("Saison en cours:"), look::chosen, false));
    left->addWidget(buttons(QStringLiteral("Records historiques:"), look::loss, true));
    left->addStretch(1);
    auto *layout = new QHBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 10);
    layout->setSpacing(look::gap + 2);
    layout->addLayout(left);
    layout->addLayout(right, 1);
    m_table->setFocus();
}

void Form32::registerHidden()
{
    hidden(QStringLiteral("Label2"), m_word);
    hidden(QStringLiteral("first"), m_first);
    hidden(QStringLiteral("classement"), m_rank);
    hidden(QStringLiteral("Command1"), {}, [this] { compute(); });
    hidden(QStringLiteral("Command16"), {}, [this] { keep(); });
    for (int i = 1; i <= driverSlots; ++i) {
        for (const char *array : {"Text1", "Text2", "lblpt"})
            hidden(QString::fromLatin1(array), {}, {}, i);
        Control &bar = hidden(
            QStringLiteral("graph"), {}, [this, i] { openRow(i); }, i);
        bar.setBack(barColour);
        bar.setFore(QColor(Qt::white));
    }
}

QWidget *Form32::buttons(const QString &heading, const QColor &ground, bool allTime)
{
    auto *group = new QFrame;
    group->setObjectName(QStringLiteral("statistics"));
    group->setStyleSheet(QStringLiteral("#statistics { background:%1; border-radius:6px; }").arg(ground.name()));
    auto *layout = new QVBoxLayout(group);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->setSpacing(4);
    layout->addWidget(styled(heading, "caption"));
    for (const Statistic &statistic : statistics) {
        if (statistic.allTime.has_value() != allTime)
            continue;
        auto *made = button(qt(statistic.button), qt(statistic.caption), [this, &statistic] { choose(statistic); });
        made->setToolTip(qt(statistic.title));
        layout->addWidget(made);
    }
    return group;
}

Table *Form32::rows()
{
    const QString tip = QStringLiteral("Cliquez pour voir les Grands Prix derrière ce chiffre");
    m_table = rankedTable({{QStringLiteral("Text3"), QStringLiteral("Pilote"), nameWidth, Qt::AlignLeft, tip},
                           {QStringLiteral("Text4"), QStringLiteral("Nombre"), figureWidth, Qt::AlignRight, tip},
                           {QStringLiteral("barre"), {}, barWidth, Qt::AlignLeft, tip}},
                          driverSlots, [this](int row) { openRow(row); });
    m_table->setItemDelegateForColumn(barColumn, new BarDelegate(m_made, m_table));
    m_table->setFixedWidth(m_table->columnWidth(0) + nameWidth + figureWidth + barWidth + 2);
    return m_table;
}

void Form32::choose(const Statistic &statistic)
{
    m_word.set(std::string(statistic.word));
    setText(QStringLiteral("Label3"), qt(statistic.title));
    compute();
    if (statistic.allTime)
        keep();
    for (const Statistic &other : statistics)
        if (auto *control = dynamic_cast<WidgetControl *>(this->control(qt(other.button)))) {
            QFont font = control->widget()->font();
            font.setBold(&other == &statistic);
            control->widget()->setFont(font);
        }
}

void Form32::compute()
{
    const Statistic *statistic = statisticNamed(m_word.text());
    if (!statistic)
        return;
    m_made = statisticTable(context.main.season(), *statistic);
    show();
}

void Form32::show()
{
    for (int i = 1; i <= driverSlots; ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        const StandingsRow &row = m_made.table.rows[at];
        setText(QStringLiteral("Text1"), qt(m_made.names[at]), i);
        setText(QStringLiteral("Text2"), qt(m_made.figures[at]), i);
        setText(QStringLiteral("lblpt"), qt(row.gap), i);
        m_table->set(u"Text3", i, qt(row.name));
        m_table->set(u"Text4", i, qt(row.points));
        Control *bar = control(QStringLiteral("graph"), i);
        bar->setText(qt(m_made.bars[at].caption));
        const double high = look::rowHeight * twipsPerPixel;
        bar->setGeometry({0, (i - 1) * high, m_made.bars[at].width, high});
    }
    m_rank.set(std::to_string(m_made.table.rank));
    m_first.set(m_made.first ? std::to_string(*m_made.first) : std::string());
    m_table->viewport()->update();
}

void Form32::keep()
{
    if (const Statistic *statistic = statisticNamed(m_word.text()))
        keepAllTimeList(context.store, *statistic, m_made.table);
}

// All wins of a driver from the list of wins; from a count of the season the races behind it, if there are any.
void Form32::openRow(int row)
{
    const QString driver = m_table->text(u"Text3", row);
    if (m_word.text() == "t20vic") {
        if (const Screen *wins = context.screens.open(winsScreen)) {
            wins->setText(QStringLiteral("Text1"), driver);
            wins->press(QStringLiteral("Command1"));
        }
        return;
    }
    context.screens.close(racesScreen);
    const auto what = countedRaces(m_word.text());
    if (!what || racesWith(context.main.season(), *what, driver.toStdString()).empty())
        return;
    if (const Screen *races = context.screens.open(racesScreen))
        races->setText(QStringLiteral("Label2"), driver);
}

}
