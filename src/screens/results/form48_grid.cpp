// Form48, the starting grid of a Grand Prix as a table. Changing exactly one place moves the pole with it.
#include "kinds/picker.h"
#include "kinds/place_names.h"
#include "results/grid.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/history.h"
#include "store/names.h"

#include <QBoxLayout>

#include <utility>

namespace circuidex::screens {

namespace {

constexpr int driverColumn = 1;

class Form48 : public Screen {
public:
    Form48(Context &context, const QString &name, const QString &title);

private:
    void load();
    void step(int by, int end);
    void pick(int row);
    void named(int row);
    void store();
    void movePole();
    void countEdits(int edits);

    results::MainRecord &m_main;
    Field m_cursor; // Label40
    Field m_gp;     // Text5
    Table *m_grid = nullptr;
    std::optional<int> m_asked; // the place that the list of drivers was opened for
    int m_edits = 0; // clicks on places since the screen was loaded
};

Form48::Form48(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_main(theContext.main), m_cursor(theContext.main.Label40.text()),
      m_gp(enteredName(theContext.main.gp.text()).name)
{
    hidden(u"Label40"_s, m_cursor);
    auto *race = add(u"Text5"_s, new Edit);
    race->setProperty("title", true);
    bind(race, m_gp);
    auto *back = button(u"Command6"_s, u"◀"_s, [this] { step(-1, 0); });
    auto *on = button(u"Command5"_s, u"▶"_s, [this] { step(1, 200); });
    back->setToolTip(u"Grand Prix précédent (Page préc.)"_s);
    on->setToolTip(u"Grand Prix suivant (Page suiv.)"_s);
    shortcut(
        Qt::Key_PageUp, [this] { press(u"Command6"_s); }, u"Grand Prix précédent"_s);
    shortcut(
        Qt::Key_PageDown, [this] { press(u"Command5"_s); }, u"Grand Prix suivant"_s);
    m_grid = table({{u"Label1"_s, u"Place"_s, 60, Qt::AlignRight},
                    {u"Text99"_s, u"Pilote"_s, 0, Qt::AlignLeft,
                     u"Cliquez (ou Entrée) pour choisir le pilote, Suppr pour vider la place"_s, 0, true}},
                   gridPlaces);
    for (int x = 0; x < gridPlaces; ++x) {
        m_grid->set(u"Label1", x, placeName(x + 1));
        m_grid->cell(u"Text99", x)->onChange = [this, x](const QString &) { named(x); };
    }
    m_grid->onPress = [this](const QString &column, int x) {
        if (column == u"Text99")
            pick(x);
    };
    m_grid->onDelete = [this](const QString &column, int x) { m_grid->set(column, x, {}); };
    auto *store = button(u"Command1"_s, u"Enregistrer modifiactions"_s, [this] { this->store(); });
    store->makeMain();
    store->setToolTip(u"Enregistrer cette grille (Ctrl+S)"_s);
    shortcut(
        u"Ctrl+S"_s, [this] { press(u"Command1"_s); }, u"Enregistrer cette grille"_s);
    tellKey(u"Suppr"_s, u"Vider la place"_s);
    auto *head = new QHBoxLayout;
    head->addWidget(styled(u"Défilement des GP:"_s, "hint"));
    head->addWidget(back);
    head->addWidget(on);
    head->addWidget(race, 1);
    auto *foot = footRow(u"Label14"_s);
    foot->insertWidget(1, quietLine(m_main.said), 9);
    foot->addWidget(store);
    auto *layout = page();
    layout->addLayout(head);
    layout->addWidget(m_grid, 1);
    layout->addLayout(foot);
    resize(460, 30 + 62 + m_grid->rowsHigh(gridPlaces) + 40);
    countEdits(0);
    load();
    m_grid->goTo(0, driverColumn);
    m_grid->setFocus();
}

void Form48::load()
{
    m_asked.reset();
    const results::Grid grid = results::loadGrid(m_main.season(), m_gp.text());
    for (int place = 1; place <= gridPlaces; ++place)
        m_grid->set(u"Text99", place - 1, qt(grid[place]));
    m_main.said.set("");
}

// No circle here: at an end the cursor stays. Behind the calendar everything is empty.
void Form48::step(int by, int end)
{
    m_cursor.set(context.store.numbers().stepped(m_cursor.text(), by, end));
    m_gp.set(m_main.season().read(keys::gp, keys::namegp(m_cursor.text())));
    load();
}

void Form48::pick(int row)
{
    countEdits(m_edits + 1);
    openPicker(context.screens, PickList::drivers, u"class%1"_s.arg(row));
    m_asked = row;
}

// The name that was asked for has come; the next place is at hand.
void Form48::named(int row)
{
    if (std::exchange(m_asked, std::nullopt) == row)
        m_grid->goTo(std::min(row + 1, gridPlaces - 1), driverColumn);
}

// The count of edits shows in the left edge of "Imprimer", ten twips an edit.
void Form48::countEdits(int edits)
{
    m_edits = edits;
    control(u"Label14"_s)->setGeometry({120.0 + 10 * edits, 120, 900, 300});
}

void Form48::store()
{
    results::Grid grid;
    for (int place = 1; place <= gridPlaces; ++place)
        grid[place] = m_grid->text(u"Text99", place - 1).toStdString();
    const Action undoable(context.store, "grille " + ofName(m_gp.text()) + " " + m_main.an.text());
    const std::string refusal = results::enterGrid(m_main.writableSeason(), m_gp.text(), grid);
    if (!refusal.empty())
        return context.dialogs.message(refusal);
    if (m_edits == 1)
        movePole();
    m_main.said.set("Grille enregistrée : " + m_gp.text());
}

void Form48::movePole()
{
    const auto number = results::driverNamed(m_main.season(), m_grid->text(u"Text99", 0).toStdString());
    if (!number)
        return;
    m_main.Text39.set(std::to_string(*number));
    if (const Screen *main = context.screens.find(u"Form1"_s))
        main->press(u"Command23"_s);
}

}

ScreenRows form48()
{
    return {screenRow<Form48>(u"Form48"_s, u"Grille de Départ"_s)};
}

}
