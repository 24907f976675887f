// Form34, the calendar of the season: the Grand Prix of each slot and its date. Naming a slot anew leaves the results
// under the old name.
#include "kinds/picker.h"
#include "results/calendar.h"
#include "results/main_record.h"
#include "results/navigation.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>

namespace circuidex::screens {

namespace {

class Form34 : public Screen {
public:
    Form34(Context &context, const QString &name, const QString &title);

protected:
    void closing() override; // the main window comes back in sight
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLayout *rows();
    Edit *box(const QString &array, int slot);
    void load();
    void store();
    void stepFocus(int by);

    results::MainRecord &m_main;
    QLabel *m_heading = nullptr;
    std::array<Edit *, gpSlots> m_names{}, m_dates{};
};

Form34::Form34(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_main(theContext.main)
{
    auto *foot = footRow(u"Label12"_s);
    auto *kept = button(u"Command2"_s, u"Enregistrer Calendrier"_s, [this] { store(); });
    kept->makeMain();
    kept->setToolTip(u"Enregistrer et fermer (Entrée)"_s);
    foot->addWidget(kept);
    auto *layout = page();
    layout->addWidget(card({}, rows()));
    layout->addLayout(foot);
    setFixedWidth(460);
    load();
    listen(m_main.an, [this](const std::string &) { load(); });
    m_names[0]->setFocus();
}

Edit *Form34::box(const QString &array, int slot)
{
    auto *made = add(array, new Edit, slot);
    connect(made, &QLineEdit::returnPressed, this, [this] { store(); });
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
        m_names[at] = box(u"Text3"_s, slot);
        m_names[at]->setToolTip(u"Nom du Grand Prix, comme dans les autres saisons"_s);
        auto *list = button(
            u"Command1"_s, u"Liste"_s,
            [this, slot] { openPicker(context.screens, PickList::grandsPrix, u"f34%1"_s.arg(slot)); },
            slot);
        list->setToolTip(u"Choisir dans la liste des Grands Prix (Ctrl+L)"_s);
        list->setFocusPolicy(Qt::ClickFocus); // Tab goes from name to date and on
        m_dates[at] = box(u"Text4"_s, slot);
        m_dates[at]->setFixedWidth(70);
        m_dates[at]->setAlignment(Qt::AlignCenter);
        m_dates[at]->setToolTip(u"Date, comme 16/10"_s);
        grid->addWidget(styled(QString::number(slot + 1), "place"), slot + 1, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(m_names[at], slot + 1, 1);
        grid->addWidget(list, slot + 1, 2);
        grid->addWidget(m_dates[at], slot + 1, 3);
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

void Form34::load()
{
    const Season season = m_main.season();
    m_heading->setText(u"Grands Prix %1"_s.arg(qt(m_main.an.text())));
    for (int slot = 0; slot < gpSlots; ++slot) {
        const std::string gpName = season.namegp(slot);
        const std::string date = gpName.empty() ? std::string() : season.read(keys::gp, keys::dategp(gpName));
        setText(u"Text3"_s, qt(gpName), slot);
        setText(u"Text4"_s, qt(date), slot);
    }
}

void Form34::store()
{
    const WritableSeason season = m_main.writableSeason();
    const std::string shownBefore = season.read(keys::gp, keys::namegp(m_main.Label40.text()));
    results::Calendar calendar;
    for (std::size_t slot = 0; slot < calendar.size(); ++slot)
        calendar[slot] = {m_names[slot]->text().toStdString(), m_dates[slot]->text().toStdString()};
    const std::string refusal = results::enterCalendar(season, std::move(calendar));
    if (!refusal.empty())
        return context.dialogs.message(refusal);
    results::showCalendarAnew(m_main, shownBefore);
    m_main.said.set("Calendrier " + season.stem() + " enregistré");
    close();
}

// Up and down stay in the column.
void Form34::stepFocus(int by)
{
    for (const auto *column : {&m_names, &m_dates}) {
        const auto at = std::find(column->begin(), column->end(), focusWidget());
        if (at == column->end())
            continue;
        const auto to = at - column->begin() + by;
        if (to >= 0 && to < gpSlots)
            (*column)[static_cast<std::size_t>(to)]->setFocus();
        return;
    }
}

void Form34::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
        return stepFocus(event->key() == Qt::Key_Down ? 1 : -1);
    Screen::keyPressEvent(event);
}

void Form34::closing()
{
    context.screens.bringMainBack();
}

}

ScreenRows form34()
{
    return {screenRow<Form34>(u"Form34"_s, u"Calendrier de la Saison"_s)};
}

}
