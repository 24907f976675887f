#include "standings/form23_wins_by_driver.h"

#include "results/form26_pickers.h"
#include "results/main_screen.h"
#include "shell/look.h"
#include "standings/driver_standings.h"
#include "standings/winners.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QScrollBar>

namespace circuidex {

namespace {

constexpr int rows = 20, columns = 7, seenColumns = 3;
constexpr int columnWidth = 200; // pixels
// The panel's left edge in twips, and the step of the arrows: one column.
constexpr double atStart = 120, columnStep = 2050, atEnd = atStart - (columns - seenColumns) * columnStep;
static_assert(rows * columns == shownWins);

QString counted(std::size_t wins)
{
    return wins == 0 ? QStringLiteral("Aucune victoire")
        : wins == 1  ? QStringLiteral("1 victoire")
                     : QStringLiteral("%1 victoires").arg(wins);
}

}

Form23::Form23(Context &theContext, const QString &name, const QString &title) : LookupScreen(theContext, name, title)
{
    hidden(QStringLiteral("nopilott"), m_number);
    m_panel = &hidden(QStringLiteral("Picture1"));
    m_panel->setGeometry({atStart, 0, columns * columnStep, rows * look::rowHeight * twipsPerPixel});
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(10, 8, 10, 8);
    layout->setSpacing(look::gap);
    layout->addWidget(question());
    layout->addWidget(panel(), 0, Qt::AlignHCenter);
    layout->addLayout(foot());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    press(QStringLiteral("Command4"));
}

QWidget *Form23::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *driver = box(*row, QStringLiteral("Pilote:"), QStringLiteral("Text1"), m_driver, 0, [this] { ask(); });
    driver->setToolTip(QStringLiteral("Tapez aussi le nom d'un ancien pilote, puis Entrée"));
    arrows(*row, driver, {"Command5", QStringLiteral("Pilote précédent"), Qt::Key_PageUp, [this] { step(-1); }},
           {"Command4", QStringLiteral("Pilote suivant"), Qt::Key_PageDown, [this] { step(1); }});
    row->addWidget(
        list(QStringLiteral("Command6"), [this] { openPicker(context.screens, PickList::drivers, QString()); }));
    row->addSpacing(8);
    row->addWidget(mainButton(QStringLiteral("Command1"), QStringLiteral("Ouvrir"),
                              QStringLiteral("Chercher ses victoires (Entrée)"), [this] { ask(); }));
    return card({}, row);
}

QWidget *Form23::panel()
{
    std::vector<Column> shown;
    for (int column = 0; column < columns; ++column)
        shown.push_back({QStringLiteral("Label11"), {}, columnWidth, Qt::AlignLeft, {}, column * rows});
    m_wins = table(std::move(shown), rows);
    m_wins->horizontalHeader()->hide();
    m_wins->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_wins->setFixedSize(seenColumns * columnWidth + 2, m_wins->rowsHigh(rows));
    m_count = new Label;
    m_count->setObjectName(QStringLiteral("caption"));
    const auto arrow = [this](const char *name, const char *sign, const char *tip, double by) {
        auto *made = button(QString::fromLatin1(name), QString::fromLatin1(sign), [this, by] { scroll(by); });
        made->setToolTip(QString::fromUtf8(tip));
        made->setFixedWidth(34);
        return made;
    };
    auto *head = new QHBoxLayout;
    head->addWidget(m_count);
    head->addStretch(1);
    head->addWidget(styled(QStringLiteral("Faire défiler la liste:"), "hint"));
    head->addWidget(arrow("Command2", "<", "Vers le début de la liste", columnStep));
    head->addWidget(arrow("Command3", ">", "Vers la fin de la liste", -columnStep));
    auto *layout = new QVBoxLayout;
    layout->addLayout(head);
    layout->addWidget(m_wins);
    return card({}, layout);
}

// The search goes through the winners of each Grand Prix, so their screen, if it was open, is closed at the end.
void Form23::ask()
{
    const Waiting waiting(*this);
    const auto wins = winsOfDriver(context.store, m_driver.text(), context.main.an.text());
    for (int i = 0; i < shownWins; ++i) {
        const auto at = static_cast<std::size_t>(i);
        m_wins->set(u"Label11", i, at < wins.size() ? qt(wins[at]) : QString());
    }
    m_count->setText(m_driver.empty() ? QString() : counted(wins.size()));
    context.screens.close(QStringLiteral("Form20"));
}

void Form23::step(int by)
{
    m_number.set(steppedDriver(m_number.text(), by, context.store.numbers()));
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
