// SPDX-License-Identifier: GPL-3.0-or-later
// Form34, the calendar of the season: the Grand Prix of each slot and its date. Naming a slot anew leaves the results
// under the old name.
#include "kinds/day_choice.h"
#include "kinds/entry_screen.h"
#include "kinds/name_entry.h"
#include "kinds/picker.h"
#include "kinds/warning_line.h"
#include "results/calendar.h"
#include "results/main_record.h"
#include "results/navigation.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace circuidex::screens {

namespace {

using CalendarBoxes = std::array<Edit *, gpSlots>;

class Form34 : public EntryScreen {
public:
    Form34(Context &context, const QString &name, const QString &title);
    void resume(const results::LeftEntry &left) override;

protected:
    bool unsaved() const override { return m_entry.unsaved(entered().texts); }
    void closing() override; // the main window comes back in sight
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLayout *rows();
    QLayout *rowCommands();
    Edit *box(const QString &array, int slot);
    void changed();
    void load();
    void store();
    void entered(QWidget *box);
    void goTo(const CalendarBoxes &column, std::ptrdiff_t slot);
    void stepFocus(int by);
    void act(bool (*change)(results::Calendar &, int), int focusBy, const QString &refused);
    void chooseDay(int slot);

    results::Calendar calendar() const;
    void show(const results::Calendar &calendar);
    results::LeftEntry entered() const;
    const CalendarBoxes *columnOf(const QWidget *box) const;

    results::MainRecord &m_main;
    const NameEntry m_known{context.main};
    QLabel *m_heading = nullptr;
    WarningLine *m_warning = nullptr;
    CalendarBoxes m_names{}, m_dates{};
    results::TypedEntry m_entry;
    Field m_season; // on show
    QWidget *m_current = nullptr; // the box that had the keyboard last
    bool m_showing = false; // all boxes are being filled
    bool m_byRows = false; // the date was reached from its name by Tab: Enter goes to the next name
};

Form34::Form34(Context &theContext, const QString &name, const QString &title)
    : EntryScreen(theContext, name, title), m_main(theContext.main)
{
    auto *foot = footRow(u"Label12"_s);
    auto *kept = button(u"Command2"_s, u"Enregistrer Calendrier"_s, [this] { store(); });
    kept->makeMain();
    kept->setToolTip(u"Enregistrer et fermer (Ctrl+S)"_s);
    shortcut(
        u"Ctrl+S"_s, [this] { press(u"Command2"_s); }, u"Enregistrer et fermer"_s);
    tellKey(u"Entrée"_s, u"Course suivante"_s);
    tellKey(u"F4"_s, u"Choisir le jour"_s);
    foot->addWidget(kept);
    m_warning = add(u"avertissement"_s, new WarningLine);
    auto *layout = page();
    layout->addWidget(card({}, rows()));
    layout->addLayout(rowCommands());
    layout->addWidget(m_warning);
    layout->addLayout(foot);
    setFixedWidth(460);
    load();
    savedBy(kept);
    listen(m_main.an, [this](const std::string &) { load(); });
    m_names[0]->setFocus();
}

Edit *Form34::box(const QString &array, int slot)
{
    auto *made = add(array, new Edit, slot);
    connect(made, &QLineEdit::returnPressed, this, [this, made] { entered(made); });
    connect(made, &QLineEdit::textChanged, this, [this] { changed(); });
    connect(made, &QLineEdit::editingFinished, this, [this] { changed(); });
    made->installEventFilter(this);
    return made;
}

QLayout *Form34::rows()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    grid->setHorizontalSpacing(look::gap);
    m_heading = styled({}, "caption");
    grid->addWidget(m_heading, 0, 1);
    grid->addWidget(styled(u"Date"_s, "caption"), 0, 3, Qt::AlignCenter);
    for (int slot = 0; slot < gpSlots; ++slot) {
        const auto at = static_cast<std::size_t>(slot);
        m_names[at] = m_known.offerGrandsPrix(box(u"Text3"_s, slot));
        m_names[at]->setToolTip(u"Nom du Grand Prix, comme dans les autres saisons"_s);
        auto *list = button(
            u"Command1"_s, u"Liste"_s,
            [this, slot] { openPicker(context.screens, PickList::grandsPrix, u"f34%1"_s.arg(slot)); }, slot);
        list->setToolTip(u"Choisir dans la liste des Grands Prix (Ctrl+L)"_s);
        list->setProperty("small", true);
        list->setFocusPolicy(Qt::ClickFocus); // Tab goes from name to date and on
        m_dates[at] = box(u"Text4"_s, slot);
        m_dates[at]->setFixedWidth(70);
        m_dates[at]->setAlignment(Qt::AlignCenter);
        m_dates[at]->setToolTip(u"Date, comme 16/10"_s);
        auto *day = button(
            u"jour"_s, u"▾"_s, [this, slot] { chooseDay(slot); }, slot);
        day->setProperty("small", true);
        day->setFixedWidth(24);
        day->setToolTip(u"Choisir le jour (F4)"_s);
        day->setFocusPolicy(Qt::NoFocus);
        grid->addWidget(styled(QString::number(slot + 1), "place"), slot + 1, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(m_names[at], slot + 1, 1);
        grid->addWidget(list, slot + 1, 2);
        grid->addWidget(m_dates[at], slot + 1, 3);
        grid->addWidget(day, slot + 1, 4);
    }
    grid->setColumnStretch(1, 1);
    shortcut(
        u"Ctrl+L"_s,
        [this] {
            for (int slot = 0; slot < gpSlots; ++slot)
                if (const auto at = static_cast<std::size_t>(slot);
                    focusWidget() == m_names[at] || focusWidget() == m_dates[at])
                    return press(u"Command1"_s, slot);
        },
        u"Choisir le Grand Prix de la ligne dans la liste"_s);
    return grid;
}

// What works on the row that has the keyboard, which the buttons leave there.
QLayout *Form34::rowCommands()
{
    const auto up = [](results::Calendar &calendar, int slot) { return results::moveSlot(calendar, slot, -1); };
    const auto down = [](results::Calendar &calendar, int slot) { return results::moveSlot(calendar, slot, 1); };
    const auto remove = [](results::Calendar &calendar, int slot) {
        results::removeSlot(calendar, slot);
        return true;
    };
    const QString full = u"La dernière course est prise : retirez-la d'abord"_s;
    struct Command {
        QString name, caption, does;
        QKeySequence keys;
        bool (*change)(results::Calendar &, int);
        int focusBy;
        QString refused = {};
    };
    const Command commands[] = {
        {u"inserer"_s, u"Insérer"_s, u"Une course avant celle-ci"_s, Qt::CTRL | Qt::Key_Insert,
         results::insertSlot, 0, full},
        {u"retirer"_s, u"Retirer"_s, u"Retirer cette course"_s, Qt::CTRL | Qt::Key_Delete, remove, 0},
        {u"monter"_s, u"▲"_s, u"Plus tôt dans la saison"_s, Qt::ALT | Qt::Key_Up, up, -1},
        {u"descendre"_s, u"▼"_s, u"Plus tard dans la saison"_s, Qt::ALT | Qt::Key_Down, down, 1},
    };
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Cette course :"_s, "hint"));
    for (const Command &command : commands) {
        auto *made = button(command.name, command.caption,
                            [this, command] { act(command.change, command.focusBy, command.refused); });
        made->setToolTip(u"%1 (%2)"_s.arg(command.does, command.keys.toString(QKeySequence::NativeText)));
        made->setProperty("small", true);
        made->setFocusPolicy(Qt::NoFocus);
        shortcut(
            command.keys, [this, command] { press(command.name); }, command.does);
        row->addWidget(made);
    }
    row->addStretch(1);
    return row;
}

const CalendarBoxes *Form34::columnOf(const QWidget *box) const
{
    for (const auto *column : {&m_names, &m_dates})
        if (std::find(column->begin(), column->end(), box) != column->end())
            return column;
    return nullptr;
}

void Form34::goTo(const CalendarBoxes &column, std::ptrdiff_t slot)
{
    Edit *box = column[static_cast<std::size_t>(slot)];
    box->setFocus();
    box->selectAll();
    m_current = box;
}

// Enter goes down; behind the last race it goes to the button that stores.
void Form34::entered(QWidget *box)
{
    const CalendarBoxes &column = *columnOf(box);
    const auto slot = std::find(column.begin(), column.end(), box) - column.begin();
    if (slot + 1 == gpSlots)
        static_cast<WidgetControl *>(control(u"Command2"_s))->widget()->setFocus();
    else
        goTo(m_byRows ? m_names : column, slot + 1);
}

// Up and down stay in the column.
void Form34::stepFocus(int by)
{
    const CalendarBoxes *column = columnOf(focusWidget());
    if (!column)
        return;
    const auto to = std::find(column->begin(), column->end(), focusWidget()) - column->begin() + by;
    if (to >= 0 && to < gpSlots)
        (*column)[static_cast<std::size_t>(to)]->setFocus();
}

void Form34::act(bool (*change)(results::Calendar &, int), int focusBy, const QString &refused)
{
    const CalendarBoxes *column = columnOf(m_current);
    if (!column)
        return;
    const auto slot = std::find(column->begin(), column->end(), m_current) - column->begin();
    results::Calendar now = calendar();
    if (!change(now, static_cast<int>(slot))) {
        m_warning->show({refused.toStdString()});
        return;
    }
    show(now);
    goTo(*column, slot + focusBy);
}

void Form34::chooseDay(int slot)
{
    Edit *box = m_dates[static_cast<std::size_t>(slot)];
    std::optional<results::Day> near;
    for (int before = slot; before >= 0 && !near; --before) // its own date, or that of the race before
        near = results::dayOf(m_dates[static_cast<std::size_t>(before)]->text().toStdString());
    box->setFocus();
    openDayChoice(box, qt(m_season.text()), near, [box](results::Day day) {
        box->selectAll();
        box->insert(qt(results::dateText(day)));
    });
}

results::Calendar Form34::calendar() const
{
    results::Calendar calendar;
    for (std::size_t slot = 0; slot < calendar.size(); ++slot)
        calendar[slot] = {m_names[slot]->text().toStdString(), m_dates[slot]->text().toStdString()};
    return calendar;
}

void Form34::show(const results::Calendar &calendar)
{
    m_showing = true;
    for (std::size_t slot = 0; slot < calendar.size(); ++slot)
        for (const auto &[box, text] :
             {std::pair(m_names[slot], &calendar[slot].name), std::pair(m_dates[slot], &calendar[slot].date)}) {
            box->setText(qt(*text));
            box->setCursorPosition(0);
        }
    m_showing = false;
    changed();
}

results::LeftEntry Form34::entered() const
{
    results::LeftEntry entry{"Form34", m_season.text(), {}, {}};
    for (const results::CalendarEntry &each : calendar()) {
        entry.texts.push_back(each.name);
        entry.texts.push_back(each.date);
    }
    return entry;
}

void Form34::changed()
{
    if (m_showing)
        return;
    results::Calendar typed = calendar();
    for (std::size_t slot = 0; slot < typed.size(); ++slot)
        if (m_dates[slot]->hasFocus())
            typed[slot].date.clear(); // half a date is no wrong one
    m_warning->show(results::calendarWarnings(typed, Season(context.store, seasonStem(m_season.text()))));
    showUnsaved();
}

void Form34::load()
{
    if (m_entry.thing())
        m_entry.leave(entered().texts, m_main.left);
    m_season.set(m_main.an.text());
    m_heading->setText(u"Grands Prix %1"_s.arg(qt(m_main.an.text())));
    show(results::loadCalendar(m_main.season()));
    m_entry.loaded(entered());
    showUnsaved();
}

void Form34::resume(const results::LeftEntry &left)
{
    if (Screen *main = context.screens.find(u"Form1"_s))
        main->putAway();
    results::Calendar calendar;
    for (std::size_t slot = 0; slot < calendar.size() && 2 * slot + 1 < left.texts.size(); ++slot)
        calendar[slot] = {left.texts[2 * slot], left.texts[2 * slot + 1]};
    show(calendar);
}

void Form34::store()
{
    const WritableSeason season = m_main.writableSeason();
    const std::string shownBefore = season.read(keys::gp, keys::namegp(m_main.Label40.text()));
    const std::string refusal = results::enterCalendar(season, calendar());
    if (!refusal.empty())
        return context.dialogs.message(refusal);
    m_entry.stored(entered(), m_main.left);
    results::showCalendarAnew(m_main, shownBefore);
    m_main.said.set("Calendrier " + season.stem() + " enregistré");
    close();
}

bool Form34::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        const bool byTab = static_cast<QFocusEvent *>(event)->reason() == Qt::TabFocusReason;
        m_byRows = byTab && std::find(m_dates.begin(), m_dates.end(), watched) != m_dates.end();
    }
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::KeyPress)
        m_current = static_cast<QWidget *>(watched);
    return Screen::eventFilter(watched, event);
}

void Form34::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
        return stepFocus(event->key() == Qt::Key_Down ? 1 : -1);
    const CalendarBoxes *column = event->key() == Qt::Key_F4 ? columnOf(focusWidget()) : nullptr;
    if (column)
        return chooseDay(static_cast<int>(std::find(column->begin(), column->end(), focusWidget()) - column->begin()));
    Screen::keyPressEvent(event);
}

void Form34::closing()
{
    m_entry.leave(entered().texts, m_main.left);
    context.screens.bringMainBack();
}

}

ScreenRows form34()
{
    return {screenRow<Form34>(u"Form34"_s, u"Calendrier de la Saison"_s)};
}

}
