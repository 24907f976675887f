#include "results/form34_calendar.h"

#include "results/form1_main.h"
#include "results/form26_pickers.h"
#include "shell/look.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>

#include <algorithm>

namespace circuidex {

Form34::Form34(Context &theContext, const QString &name, const QString &title)
    : Screen(theContext, name, title), m_main(theContext.main)
{
    auto *foot = new QHBoxLayout;
    foot->addWidget(printCommand(QStringLiteral("Label12")));
    foot->addStretch(1);
    auto *kept = button(QStringLiteral("Command2"), QStringLiteral("Enregistrer Calendrier"), [this] { store(); });
    kept->makeMain();
    kept->setToolTip(QStringLiteral("Enregistrer et fermer (Entrée)"));
    foot->addWidget(kept);
    auto *layout = new QVBoxLayout(body());
    layout->setContentsMargins(12, 10, 12, 12);
    layout->setSpacing(look::gap);
    layout->addWidget(card({}, rows()));
    layout->addLayout(foot);
    setFixedWidth(460);
    load();
    listen(m_main.an, [this](const std::string &) { load(); });
    m_names[0]->setFocus();
}

Edit *Form34::box(const char *array, int slot)
{
    auto *made = add(QString::fromLatin1(array), new Edit, slot);
    connect(made, &QLineEdit::returnPressed, this, [this] { store(); });
    return made;
}

QLayout *Form34::rows()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(look::gap);
    m_heading = styled({}, "caption");
    grid->addWidget(m_heading, 0, 1);
    grid->addWidget(styled(QStringLiteral("Date"), "caption"), 0, 3, Qt::AlignCenter);
    for (int slot = 0; slot < gpSlots; ++slot) {
        const auto at = static_cast<std::size_t>(slot);
        m_names[at] = box("Text3", slot);
        m_names[at]->setToolTip(QStringLiteral("Nom du Grand Prix, comme dans les autres saisons"));
        auto *list = button(
            QStringLiteral("Command1"), QStringLiteral("Liste"),
            [this, slot] { openPicker(context.screens, PickList::grandsPrix, QStringLiteral("f34%1").arg(slot)); },
            slot);
        list->setToolTip(QStringLiteral("Choisir dans la liste des Grands Prix"));
        list->setFocusPolicy(Qt::ClickFocus); // Tab goes from name to date and on
        m_dates[at] = box("Text4", slot);
        m_dates[at]->setFixedWidth(70);
        m_dates[at]->setAlignment(Qt::AlignCenter);
        m_dates[at]->setToolTip(QStringLiteral("Date, comme 16/10"));
        grid->addWidget(styled(QString::number(slot + 1), "place"), slot + 1, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(m_names[at], slot + 1, 1);
        grid->addWidget(list, slot + 1, 2);
        grid->addWidget(m_dates[at], slot + 1, 3);
    }
    grid->setColumnStretch(1, 1);
    return grid;
}

void Form34::load()
{
    const Season season = m_main.season();
    m_heading->setText(QStringLiteral("Grands Prix %1").arg(qt(season.stem())));
    for (int slot = 0; slot < gpSlots; ++slot) {
        const std::string gpName = season.namegp(slot);
        const std::string date = gpName.empty() ? std::string() : season.read(keys::gp, keys::dategp(gpName));
        setText(QStringLiteral("Text3"), qt(gpName), slot);
        setText(QStringLiteral("Text4"), qt(date), slot);
    }
}

// A date stands under the name of its Grand Prix; without one there is nowhere to keep it.
void Form34::store()
{
    const Season season = m_main.season();
    for (std::size_t slot = 0; slot < m_names.size(); ++slot) {
        const std::string gpName = m_names[slot]->text().toStdString();
        season.write(keys::gp, keys::namegp(static_cast<int>(slot)), gpName);
        if (!gpName.empty())
            season.write(keys::gp, keys::dategp(gpName), m_dates[slot]->text().toStdString());
    }
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
    if (auto *main = dynamic_cast<Form1 *>(context.screens.find(QStringLiteral("Form1"))))
        main->comeBack();
}

}
