// Form32, the statistics of the season: at the press of a button one figure of all drivers, or one of the three
// all-time lists, as a ranked table with bars. An all-time list is written back in its order when it has been shown.
#include "kinds/ranked_screen.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "statistics/season_statistics.h"

#include <QBoxLayout>
#include <QPainter>
#include <QStyledItemDelegate>

namespace circuidex::screens {

namespace {

constexpr int barColumn = 3, nameWidth = 160, figureWidth = 64; // pixels, as the next
constexpr int barWidth = static_cast<int>(statistics::fullBar / twipsPerPixel) + 12;
const QString winsScreen = u"Form23"_s, racesScreen = u"Form33"_s;

// Draws the bar of a row, its caption in white on it: the name alone where the figure doesn't fit behind it, and
// nothing where the name doesn't fit either.
class BarDelegate : public QStyledItemDelegate {
public:
    BarDelegate(const statistics::StatisticTable &drawn, QObject *parent) : QStyledItemDelegate(parent), m_drawn(drawn) { }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const statistics::Bar &bar = m_drawn.bars[static_cast<std::size_t>(index.row())];
        QRect area = option.rect.adjusted(4, 3, 0, -3);
        area.setWidth(qRound(bar.width / twipsPerPixel));
        if (area.isEmpty())
            return;
        painter->fillRect(area, look::bars);
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

    const statistics::StatisticTable &m_drawn;
};

class Form32 : public RankedScreen {
public:
    Form32(Context &context, const QString &name, const QString &title);

private:
    QWidget *buttons(const QString &heading, const QColor &ground, bool allTime);
    Table *rows();
    void registerHidden();
    void choose(const statistics::Statistic &statistic); // one of the fifteen buttons
    void compute(); // Command1
    void show();
    void keep(); // Command16
    void openRow(int row);

    statistics::StatisticTable m_made;
    Field m_word; // Label2
    Field m_first, m_rank; // first, classement
    Table *m_table = nullptr;
};

Form32::Form32(Context &theContext, const QString &name, const QString &title) : RankedScreen(theContext, name, title)
{
    registerHidden();
    auto *head = new QHBoxLayout;
    auto *what = add(u"Label3"_s, new Label);
    what->setObjectName(u"large"_s);
    head->addWidget(what, 1);
    head->addWidget(printCommand(u"Label12"_s));
    auto *right = new QVBoxLayout;
    right->setSpacing(look::gap);
    right->addLayout(head);
    right->addWidget(rows());
    auto *left = new QVBoxLayout;
    left->setSpacing(look::gap);
    left->addWidget(buttons(u"Saison en cours:"_s, look::chosen, false));
    left->addWidget(buttons(u"Records historiques:"_s, look::loss, true));
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
    hidden(u"Label2"_s, m_word);
    hidden(u"first"_s, m_first);
    hidden(u"classement"_s, m_rank);
    hidden(u"Command1"_s, {}, [this] { compute(); });
    hidden(u"Command16"_s, {}, [this] { keep(); });
    for (int i = 1; i <= driverSlots; ++i) {
        for (const QString &array : {u"Text1"_s, u"Text2"_s, u"lblpt"_s})
            hidden(array, {}, {}, i);
        Control &bar = hidden(
            u"graph"_s, {}, [this, i] { openRow(i); }, i);
        bar.setBack(look::bars);
        bar.setFore(look::onBar);
    }
}

QWidget *Form32::buttons(const QString &heading, const QColor &ground, bool allTime)
{
    auto *group = new QFrame;
    group->setObjectName(u"modes"_s);
    group->setStyleSheet(look::modeGroup(ground));
    auto *layout = new QVBoxLayout(group);
    layout->setContentsMargins(8, 6, 8, 8);
    layout->setSpacing(4);
    layout->addWidget(styled(heading, "caption"));
    for (const statistics::Statistic &statistic : statistics::seasonStatistics) {
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
    const QString tip = u"Cliquez pour voir les Grands Prix derrière ce chiffre"_s;
    m_table = rankedTable({{u"Text3"_s, u"Pilote"_s, nameWidth, Qt::AlignLeft, tip},
                           {u"Text4"_s, u"Nombre"_s, figureWidth, Qt::AlignRight, tip},
                           {u"barre"_s, {}, barWidth, Qt::AlignLeft, tip}},
                          driverSlots, [this](int row) { openRow(row); });
    m_table->setItemDelegateForColumn(barColumn, new BarDelegate(m_made, m_table));
    m_table->setFixedWidth(m_table->columnWidth(0) + nameWidth + figureWidth + barWidth + 2);
    return m_table;
}

void Form32::choose(const statistics::Statistic &statistic)
{
    m_word.set(std::string(statistic.word));
    setText(u"Label3"_s, qt(statistic.title));
    compute();
    if (statistic.allTime)
        keep();
    for (const statistics::Statistic &other : statistics::seasonStatistics)
        if (auto *control = dynamic_cast<WidgetControl *>(this->control(qt(other.button)))) {
            QFont font = control->widget()->font();
            font.setBold(&other == &statistic);
            control->widget()->setFont(font);
        }
}

void Form32::compute()
{
    const statistics::Statistic *statistic = statistics::statisticNamed(m_word.text());
    if (!statistic)
        return;
    m_made = statistics::statisticTable(context.main.season(), *statistic);
    show();
}

void Form32::show()
{
    for (int i = 1; i <= driverSlots; ++i) {
        const auto at = static_cast<std::size_t>(i - 1);
        const standings::StandingsRow &row = m_made.table.rows[at];
        setText(u"Text1"_s, qt(m_made.names[at]), i);
        setText(u"Text2"_s, qt(m_made.figures[at]), i);
        setText(u"lblpt"_s, qt(row.gap), i);
        m_table->set(u"Text3", i, qt(row.name));
        m_table->set(u"Text4", i, qt(row.points));
        Control *bar = control(u"graph"_s, i);
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
    if (const statistics::Statistic *statistic = statistics::statisticNamed(m_word.text()))
        statistics::keepAllTimeList(context.store, *statistic, m_made.table);
}

// All wins of a driver from the list of wins; from a count of the season the races behind it, if there are any.
void Form32::openRow(int row)
{
    const QString driver = m_table->text(u"Text3", row);
    if (m_word.text() == "t20vic") {
        if (const Screen *wins = context.screens.open(winsScreen)) {
            wins->setText(u"Text1"_s, driver);
            wins->press(u"Command1"_s);
        }
        return;
    }
    context.screens.close(racesScreen);
    const auto what = standings::countedRaces(m_word.text());
    if (!what || standings::racesWith(context.main.season(), *what, driver.toStdString()).empty())
        return;
    if (const Screen *races = context.screens.open(racesScreen))
        races->setText(u"Label2"_s, driver);
}

}

ScreenRows form32()
{
    return {screenRow<Form32>(u"Form32"_s, u"Statistiques de la Saison"_s,
                           [](Screen &screen) { screen.press(u"Command17"_s); })};
}

}
