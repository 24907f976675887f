#include "results/form48_grid.h"

#include "results/form26_pickers.h"
#include "results/grid.h"
#include "shell/look.h"
#include "shell/place_names.h"

#include <QBoxLayout>

namespace circuidex {

Form48::Form48(Context &theContext, const QString &name, const QString &title) :
    Screen(theContext, name, title), m_main(theContext.main), m_cursor(theContext.main.Label40.text()),
    m_gp(theContext.main.gp.text())
{
    hidden(QStringLiteral("Label40"), m_cursor);
    auto *race = add(QStringLiteral("Text5"), new Edit);
    race->setProperty("title", true);
    bind(race, m_gp);
    auto *back = button(QStringLiteral("Command6"), QStringLiteral("◀"), [this] { step("0", "1", -1); });
    auto *on = button(QStringLiteral("Command5"), QStringLiteral("▶"), [this] { step("200", "199", 1); });
    back->setToolTip(QStringLiteral("Grand Prix précédent"));
    on->setToolTip(QStringLiteral("Grand Prix suivant"));
    m_grid = table({{QStringLiteral("Label1"), QStringLiteral("Place"), 60, Qt::AlignRight},
                    {QStringLiteral("Text99"), QStringLiteral("Pilote"), 0, Qt::AlignLeft,
                     QStringLiteral("Cliquez pour choisir le pilote"), 0, true}},
                   gridPlaces);
    for (int x = 0; x < gridPlaces; ++x)
        m_grid->set(u"Label1", x, placeName(x + 1));
    m_grid->onPress = [this](const QString &column, int x) {
        if (column == u"Text99")
            pick(x);
    };
    auto *store = button(QStringLiteral("Command1"), QStringLiteral("Enregistrer modifiactions"), [this] { this->store(); });
    store->makeMain();
    auto *head = new QHBoxLayout;
    head->addWidget(styled(QStringLiteral("Défilement des GP:"), "hint"));
    head->addWidget(back);
    head->addWidget(on);
    head->addWidget(race, 1);
    auto *foot = new QHBoxLayout;
    foot->addWidget(printCommand(QStringLiteral("Label14")));
    foot->addStretch(1);
    foot->addWidget(store);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 10, 12, 12);
    layout->setSpacing(look::gap);
    layout->addLayout(head);
    layout->addWidget(m_grid, 1);
    layout->addLayout(foot);
    resize(460, 30 + 62 + m_grid->rowsHigh(gridPlaces) + 40);
    countEdits(0);
    load();
}

void Form48::load()
{
    const Grid grid = loadGrid(m_main.season(), m_gp.text());
    for (int x = 0; x < gridPlaces; ++x)
        m_grid->set(u"Text99", x, qt(grid[static_cast<std::size_t>(x)]));
}

// No circle here: at the stop the cursor is first set beside it. Behind the calendar everything is empty.
void Form48::step(std::string_view stop, std::string_view beside, double by)
{
    if (m_cursor.text() == stop)
        m_cursor.set(std::string(beside));
    if (const auto slot = context.store.numbers().value(m_cursor.text()))
        m_cursor.set(context.store.numbers().text(*slot + by));
    m_gp.set(m_main.season().read(keys::gp, keys::namegp(m_cursor.text())));
    load();
}

void Form48::pick(int row)
{
    countEdits(m_edits + 1);
    openPicker(context.screens, PickList::drivers, QStringLiteral("class%1").arg(row));
}

// The count of edits shows in the left edge of "Imprimer", ten twips an edit.
void Form48::countEdits(int edits)
{
    m_edits = edits;
    control(QStringLiteral("Label14"))->setGeometry({120.0 + 10 * edits, 120, 900, 300});
}

void Form48::store()
{
    Grid grid;
    for (int x = 0; x < gridPlaces; ++x)
        grid[static_cast<std::size_t>(x)] = m_grid->text(u"Text99", x).toStdString();
    storeGrid(m_main.season(), m_gp.text(), grid);
    if (m_edits == 1)
        movePole();
}

void Form48::movePole()
{
    const auto number = driverNamed(m_main.season(), m_grid->text(u"Text99", 0).toStdString());
    if (!number)
        return;
    m_main.Text39.set(std::to_string(*number));
    if (const Screen *main = context.screens.find(QStringLiteral("Form1")))
        main->press(QStringLiteral("Command23"));
}

}
