// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/picker.h"

#include "kinds/empty_note.h"
#include "kinds/name_search.h"
#include "results/main_record.h"
#include "results/team_list.h"
#include "shell/look.h"
#include "store/gp_list.h"

#include <QBoxLayout>
#include <QHeaderView>

namespace circuidex {

namespace {

const QString noGrandPrix = u"La liste est encore vide : tapez le nom dans « Calendrier ».\n"
                            "Chaque course enregistrée entre dans la liste."_s;

QString formOf(PickList list)
{
    switch (list) {
    case PickList::drivers:
        return u"Form26"_s;
    case PickList::teams:
        return u"Form42"_s;
    case PickList::grandsPrix:
        break;
    }
    return u"Form25"_s;
}

}

Screen *openPicker(Screens &screens, PickList list, const QString &word, const QString &year)
{
    Screen *opened = screens.open(formOf(list));
    if (!opened)
        return nullptr;
    const bool asTag = markOf(list, word.toStdString()) == Mark::tag;
    opened->setText(u"Tag"_s, asTag ? word : QString());
    opened->setText(u"Label2"_s, asTag ? QString() : word);
    if (!year.isEmpty())
        opened->setText(u"Text1"_s, year);
    return opened;
}

Picker::Picker(Context &theContext, const QString &name, const QString &title, Shape shape)
    : Screen(theContext, name, title), m_shape(std::move(shape)), m_year(theContext.main.an.text())
{
    hidden(tagControl);
    hidden(wordControl);
    m_search = add(u"Recherche"_s, new Edit);
    m_search->setPlaceholderText(u"Tapez un nom, puis Entrée"_s);
    m_search->setToolTip(u"Entrée choisit le nom en couleur, Échap ferme la liste"_s);
    connect(m_search, &QLineEdit::textChanged, this, [this] { narrow(); });
    connect(m_search, &QLineEdit::returnPressed, this, [this] { enter(); });
    const int rows = (m_shape.count + m_shape.columns - 1) / m_shape.columns;
    m_list = table(columns(), rows);
    m_list->setAlternatingRowColors(false);
    if (m_shape.title.isEmpty())
        m_list->horizontalHeader()->hide();
    m_list->setFixedHeight(m_list->rowsHigh(rows));
    m_list->onPress = [this](const QString &, int index) { pick(index); }; // on a name or on its number
    add(emptyNote,
        m_shape.list == PickList::grandsPrix
            ? noteOver(*m_list, m_shape.array, noGrandPrix)
            : noteOver(*m_list, m_shape.array, context,
                       m_shape.list == PickList::teams ? results::Need::teams : results::Need::drivers));
    m_head = new QHBoxLayout;
    m_head->addWidget(m_search, 1);
    m_foot = new QVBoxLayout;
    auto *layout = page();
    layout->addLayout(m_head);
    layout->addWidget(m_list);
    layout->addLayout(m_foot);
    layout->setSizeConstraint(QLayout::SetMinimumSize);
    setFixedWidth(m_shape.width);
    m_search->setFocus();
}

// The names run down a column and on in the next one.
std::vector<Column> Picker::columns() const
{
    std::vector<Column> columns;
    const int rows = (m_shape.count + m_shape.columns - 1) / m_shape.columns;
    for (int first = m_shape.first; first < m_shape.first + m_shape.count; first += rows) {
        if (m_shape.numbered)
            columns.push_back({u"Numero"_s, u"N°"_s, 36, Qt::AlignRight, {}, first});
        columns.push_back({m_shape.array, m_shape.title, 0, Qt::AlignLeft, {}, first, true});
    }
    return columns;
}

void Picker::addYear(std::function<void()> changed)
{
    auto *year = add(u"Text1"_s, new Edit);
    year->setFixedWidth(64);
    year->setAlignment(Qt::AlignCenter);
    year->setToolTip(u"Une autre saison montre ses noms et ses numéros"_s);
    bind(year, m_year);
    listen(m_year, [changed = std::move(changed)](const std::string &) { changed(); });
    m_head->addSpacing(4);
    m_head->addWidget(styled(u"Saison"_s, "hint"));
    m_head->addWidget(year);
}

Season Picker::season() const
{
    return Season(context.store, m_year.text());
}

void Picker::showNames(const std::vector<std::string> &names)
{
    for (int i = 0; i < m_shape.count; ++i) {
        const bool named = i < static_cast<int>(names.size());
        const int index = m_shape.first + i;
        m_list->set(m_shape.array, index, named ? qt(names[static_cast<std::size_t>(i)]) : QString());
    }
    narrow();
}

QStringList Picker::names() const
{
    QStringList names;
    for (int i = 0; i < m_shape.count; ++i)
        names << nameAt(m_shape.first + i);
    return names;
}

void Picker::enter()
{
    if (const auto best = bestHit(names(), m_search->text()); best && best->chooses())
        pick(m_shape.first + best->index);
}

void Picker::narrow()
{
    const QString typed = m_search->text();
    const auto best = bestHit(names(), typed);
    for (int i = 0; i < m_shape.count; ++i) {
        Cell *cell = m_list->cell(m_shape.array, m_shape.first + i);
        const bool fits = typed.trimmed().isEmpty() || fitOf(cell->text(), typed);
        const bool chosen = best && best->chooses() && best->index == i;
        cell->setFore(fits ? std::nullopt : std::optional(look::faint));
        cell->setBack(chosen ? std::optional(look::chosen) : std::nullopt);
    }
}

void Picker::pick(int index)
{
    handOver(index);
    close();
}

void Picker::handOver(int index)
{
    const std::string tag = text(tagControl).toStdString(), word = text(wordControl).toStdString();
    if (const auto to = destination(m_shape.list, tag, word))
        serve(*to, index);
}

void Picker::serve(const Destination &to, int index)
{
    if (to.opens)
        context.screens.open(qt(to.screen));
    give(to, index);
    const Screen *target = context.screens.find(qt(to.screen));
    for (const std::string_view button : to.buttons)
        if (target && !button.empty())
            target->press(qt(button));
}

// Number and name into the screen's controls, where it is open.
void Picker::give(const Destination &to, int index)
{
    const Screen *target = context.screens.find(qt(to.screen));
    if (!target)
        return;
    const int row = index - m_shape.first;
    const QString number = QString::number(to.form == NumberForm::row ? row : row + 1);
    Control *name = target->control(qt(to.name.name), to.name.index);
    if (name && to.form == NumberForm::tagOfName)
        name->tag = number;
    if (!to.number.name.empty())
        target->setText(qt(to.number.name), number, to.number.index);
    if (name)
        name->setText(nameAt(index));
}

}
