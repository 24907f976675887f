// Form23, all wins of one driver over the twenty years that end with the open season. The wins stand in a panel of
// seven columns, three of which are seen at a time.
#include "kinds/lookup_screen.h"
#include "kinds/picker.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "standings/driver_standings.h"
#include "standings/winners.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QScrollBar>

namespace circuidex::screens {

namespace {

constexpr int rows = 20, columns = 7, seenColumns = 3;
constexpr int columnWidth = 200; // pixels
// The panel's left edge in twips, and the step of the arrows: one column.
constexpr double atStart = 120, columnStep = 2050, atEnd = atStart - (columns - seenColumns) * columnStep;
static_assert(rows * columns == standings::shownWins);

QString counted(std::size_t wins)
{
    return wins == 0 ? u"aucune victoire"_s
        : wins == 1  ? u"1 victoire"_s
                     : u"%1 victoires"_s.arg(wins);
}

class Form23 : public LookupScreen {
public:
    Form23(Context &context, const QString &name, const QString &title);

private:
    QWidget *question();
    QWidget *panel();
    void ask(); // Command1
    QString searched(std::size_t wins) const;
    void step(int by);
    void scroll(double by); // twips

    Field m_driver; // Text1
    Field m_number{"0"}; // nopilott, where the arrows stand
    Label *m_count = nullptr;
    Table *m_wins = nullptr;
    Control *m_panel = nullptr; // Picture1
};

Form23::Form23(Context &theContext, const QString &name, const QString &title) : LookupScreen(theContext, name, title)
{
    hidden(u"nopilott"_s, m_number);
    m_panel = &hidden(u"Picture1"_s);
    m_panel->setGeometry({atStart, 0, columns * columnStep, rows * look::rowHeight * twipsPerPixel});
    auto *layout = page();
    layout->addWidget(question());
    layout->addWidget(panel(), 0, Qt::AlignHCenter);
    layout->addLayout(foot());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    press(u"Command4"_s);
}

QWidget *Form23::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = box(*row, u"Pilote:"_s, u"Text1"_s, m_driver, 0, [this] { ask(); });
    driver->setToolTip(u"Tapez aussi le nom d'un ancien pilote, puis Entrée"_s);
    arrows(*row, driver, {u"Command5"_s, u"Pilote précédent"_s, Qt::Key_PageUp, [this] { step(-1); }},
           {u"Command4"_s, u"Pilote suivant"_s, Qt::Key_PageDown, [this] { step(1); }});
    row->addWidget(
        list(u"Command6"_s, [this] { openPicker(context.screens, PickList::drivers, QString()); }));
    row->addSpacing(8);
    row->addWidget(mainButton(u"Command1"_s, u"Ouvrir"_s,
                              u"Chercher ses victoires (Entrée)"_s, [this] { ask(); }));
    return card({}, row);
}

QWidget *Form23::panel()
{
    std::vector<Column> shown;
    for (int column = 0; column < columns; ++column)
        shown.push_back({u"Label11"_s, {}, columnWidth, Qt::AlignLeft, {}, column * rows});
    m_wins = table(std::move(shown), rows);
    m_wins->horizontalHeader()->hide();
    m_wins->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_wins->setFixedSize(seenColumns * columnWidth + 2, m_wins->rowsHigh(rows));
    m_count = new Label;
    m_count->setObjectName(u"caption"_s);
    const auto arrow = [this](const QString &name, const QString &sign, const QString &tip, double by) {
        auto *made = button(name, sign, [this, by] { scroll(by); });
        made->setToolTip(tip);
        made->setFixedWidth(34);
        return made;
    };
    auto *head = new QHBoxLayout;
    head->addWidget(m_count);
    head->addStretch(1);
    head->addWidget(styled(u"Faire défiler la liste:"_s, "hint"));
    head->addWidget(arrow(u"Command2"_s, u"<"_s, u"Vers le début de la liste"_s, columnStep));
    head->addWidget(arrow(u"Command3"_s, u">"_s, u"Vers la fin de la liste"_s, -columnStep));
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addWidget(m_wins);
    return card({}, layout);
}

// The search goes through the winners of each Grand Prix, so their screen, if it was open, is closed at the end.
void Form23::ask()
{
    const Waiting waiting(*this);
    const auto wins = standings::winsOfDriver(context.store, m_driver.text(), context.main.an.text());
    for (int i = 0; i < standings::shownWins; ++i) {
        const auto at = static_cast<std::size_t>(i);
        m_wins->set(u"Label11", i, at < wins.size() ? qt(wins[at]) : QString());
    }
    m_count->setText(searched(wins.size()));
    context.screens.close(u"Form20"_s);
}

// Whose wins were counted in which years, whatever is typed from now on.
QString Form23::searched(std::size_t wins) const
{
    const std::string last = context.main.an.text();
    const auto first = context.store.numbers().difference(last, std::to_string(standings::searchedYears - 1));
    if (m_driver.empty() || !first)
        return {};
    return u"%1, de %2 à %3 : %4"_s.arg(qt(m_driver.text()), qt(*first), qt(last), counted(wins));
}

void Form23::step(int by)
{
    m_number.set(standings::steppedDriver(m_number.text(), by, context.store.numbers()));
    m_driver.set(context.main.season().nom(m_number.text()));
    ask();
}

void Form23::scroll(double by)
{
    TwipRect place = m_panel->geometry();
    if (place.left == (by > 0 ? atStart : atEnd))
        return;
    place.left += by;
    m_panel->setGeometry(place);
    m_wins->horizontalScrollBar()->setValue(static_cast<int>((atStart - place.left) / columnStep * columnWidth));
}

}

ScreenRows form23()
{
    return {screenRow<Form23>(u"Form23"_s, u"Victoires par Pilote"_s)};
}

}
