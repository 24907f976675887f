// SPDX-License-Identifier: GPL-3.0-or-later
// Form36 and Form73, three drivers or three teams side by side, Grand Prix by Grand Prix: what each did, his points so
// far, and the gaps to the one that is chosen. The season's file keeps the three names.
#include "charts/comparator.h"
#include "kinds/picker.h"
#include "kinds/race_table.h"
#include "results/main_record.h"
#include "shell/look.h"
#include "shell/screens.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QRadioButton>

namespace circuidex::screens {

namespace {

constexpr int figureWidth = 91; // pixels

struct ComparatorKind {
    bool drivers; // or teams
    PickList list;
    QString words; // told to the list; "%1" stands for the number of the subject
    std::string key; // of the kept names, before the number
    QString subject; // "Pilote"
    QString values, totals, gaps; // over the columns
    QString best, middle, worst, note; // of the legend
};

ComparatorKind drivers()
{
    return {true,
            PickList::drivers,
            u"p%1mom"_s,
            "memnom",
            u"Pilote"_s,
            u"Position a l'arrivée:"_s,
            u"Cumul des Points:"_s,
            u"Ecart de points entre Pilotes:"_s,
            u"Pilote ayant le plus de points"_s,
            u"Pilote ayant un nombre de points intermédiaire"_s,
            u"Pilote ayant le moins de points"_s,
            u"Le code des couleurs effectue un comparatif entre les 3 pilotes séléctionnés"_s};
}

ComparatorKind teams()
{
    return {false,
            PickList::teams,
            u"comparatifecu%1"_s,
            "memecu",
            u"Ecurie"_s,
            u"Points gagnés par Grand-prix:"_s,
            u"Cumul des Points:"_s,
            u"Ecart de points entre Ecuries: "_s,
            u"Ecurie ayant le plus de points"_s,
            u"Ecurie ayant un nombre de points intermédiaire"_s,
            u"Ecurie ayant le moins de points"_s,
            u"Le code des couleurs effectue un comparatif entre les 3 écuries séléctionnés"_s};
}

// The controls of one subject.
struct Subject {
    QString name, list, option;
    std::array<QString, 3> columns; // value, total and gap
    std::array<QString, 2> heads; // over the first two
};

const std::array<Subject, 3> subjects{
    {{u"Text1"_s, u"Command1"_s, u"Option1"_s, {u"Text4"_s, u"Text6"_s, u"Label26"_s}, {u"Label13"_s, u"Label14"_s}},
     {u"Text7"_s, u"Command4"_s, u"Option2"_s, {u"Label11"_s, u"Text5"_s, u"Label27"_s}, {u"Label10"_s, u"Label7"_s}},
     {u"Text9"_s, u"Command3"_s, u"Option3"_s, {u"lblpt"_s, u"Text3"_s, u"Label28"_s}, {u"Label5"_s, u"Label3"_s}}}};

class Comparator : public RaceTable {
public:
    Comparator(Context &context, const QString &name, const QString &title, ComparatorKind kind);

protected:
    void closing() override; // keeps the names

private:
    QWidget *question();
    QWidget *answer();
    QLayout *groups();
    QLayout *below();
    WritableSeason season() const;
    void readNames();
    void ask(); // Command2
    void measureBy(int reference);
    void show(const charts::Comparison &rows);
    charts::Comparison compared() const;
    void setHeads();

    ComparatorKind m_kind;
    Field m_year; // Text2
    std::array<Field, 3> m_names;
    std::string m_shownYear; // that the table shows, as the names
    charts::Compared m_shown;
    int m_reference = 0;
    Table *m_table = nullptr;
};

Comparator::Comparator(Context &theContext, const QString &name, const QString &title, ComparatorKind kind)
    : RaceTable(theContext, name, title), m_kind(std::move(kind)), m_year(theContext.main.an.text())
{
    if (m_kind.drivers)
        for (const QString &row : {u"no"_s, u"no2"_s, u"no3"_s})
            hidden(row);
    else
        listen(m_year, [this](const std::string &year) { context.main.an.set(year); });
    for (const Subject &subject : subjects)
        for (const QString &head : subject.heads)
            hidden(head);
    context.main.refreshScale();
    layOut(question(), answer(), below());
    readNames();
}

// The table first shows the names kept, then a subject without one is called by its number.
void Comparator::readNames()
{
    for (int number = 1; Field &name : m_names)
        name.set(season().read(keys::N, m_kind.key + std::to_string(number++)));
    ask();
    for (int number = 1; Field &name : m_names) {
        if (name.empty())
            name.set((m_kind.subject + u" %1"_s.arg(number)).toStdString());
        ++number;
    }
    press(subjects[0].option);
}

QWidget *Comparator::question()
{
    auto *asked = new QHBoxLayout;
    asked->setSpacing(6);
    box(*asked, u"Saison:"_s, u"Text2"_s, m_year, 64, [this] { ask(); });
    asked->addSpacing(8);
    asked->addWidget(mainButton(u"Command2"_s, u"Ouvrir"_s, u"Comparer (Entrée)"_s, [this] { ask(); }));
    asked->addStretch(1);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    for (int number = 1; const Subject &subject : subjects) {
        row->addSpacing(number > 1 ? look::gap : 0);
        auto *name = box(*row, u"%1 N°%2:"_s.arg(m_kind.subject).arg(number), subject.name,
                         m_names[static_cast<std::size_t>(number - 1)], 0, [this] { ask(); });
        m_known.offerSubjects(name, !m_kind.drivers);
        auto *list = button(subject.list, u"Liste"_s, [this, number] {
            openPicker(context.screens, m_kind.list, m_kind.words.arg(number), qt(m_year.text()));
        });
        list->setToolTip(u"Choisir dans la liste"_s);
        row->addWidget(list);
        ++number;
    }
    auto *layout = new QVBoxLayout;
    layout->addLayout(asked);
    layout->addLayout(row);
    return card({}, layout);
}

QWidget *Comparator::answer()
{
    std::vector<Column> columns;
    for (std::size_t block = 0; block < 3; ++block)
        for (const Subject &subject : subjects)
            columns.push_back({subject.columns[block], {}, figureWidth, Qt::AlignRight});
    m_table = wideTable(u"Nom du Grand-Prix:"_s, std::move(columns));
    auto *made = new QWidget;
    auto *layout = new QVBoxLayout(made);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(groups());
    layout->addWidget(m_table);
    return made;
}

// What stands over three columns each: the words, and over the gaps the options.
QLayout *Comparator::groups()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    grid->setColumnMinimumWidth(0, m_table->columnWidth(0) + m_table->columnWidth(1) + 4);
    for (int column = 1; column <= 9; ++column)
        grid->setColumnMinimumWidth(column, figureWidth);
    for (int column = 1; const QString &words : {m_kind.values, m_kind.totals, m_kind.gaps}) {
        grid->addWidget(styled(words, "caption"), 0, column, 1, 3);
        column += 3;
    }
    for (int index = 0; const Subject &subject : subjects) {
        auto *made = option(subject.option, u"%1 N°%2"_s.arg(m_kind.subject).arg(index + 1),
                            [this, index] { measureBy(index); });
        made->setToolTip(u"Ecarts par rapport à ce nom: + devant lui, - derrière lui"_s);
        grid->addWidget(made, 1, 7 + index++);
    }
    return grid;
}

QLayout *Comparator::below()
{
    auto *layout = new QVBoxLayout;
    layout->setSpacing(4);
    layout->addWidget(
        legend(u"Légende:"_s, {{look::gain, m_kind.best}, {look::chosen, m_kind.middle}, {look::loss, m_kind.worst}}),
        0, Qt::AlignLeft);
    layout->addLayout(foot(styled(m_kind.note, "hint")));
    return layout;
}

WritableSeason Comparator::season() const
{
    return m_kind.drivers ? WritableSeason(context.store, m_year.text()) : context.main.writableSeason();
}

charts::Comparison Comparator::compared() const
{
    const Season asked(context.store, m_shownYear);
    return m_kind.drivers ? charts::compareDrivers(asked, context.main.scale(), m_shown, m_reference)
                          : charts::compareTeams(asked, m_shown, m_reference);
}

void Comparator::ask()
{
    m_shownYear = season().stem();
    for (std::size_t i = 0; i < m_names.size(); ++i)
        m_shown[i] = m_names[i].text();
    setHeads();
    show(compared());
}

void Comparator::setHeads()
{
    CellModel &model = m_table->model();
    for (int i = 0; i < 3; ++i) {
        const Subject &subject = subjects[static_cast<std::size_t>(i)];
        const QString name = qt(m_shown[static_cast<std::size_t>(i)]);
        const QString title = name.isEmpty() ? u"%1 %2"_s.arg(m_kind.subject).arg(i + 1) : name;
        for (int block = 0; block < 3; ++block)
            model.setTitle(2 + 3 * block + i, title, name);
        for (const QString &head : subject.heads)
            setText(head, name);
    }
}

// The names and the season stay those that were asked for.
void Comparator::measureBy(int reference)
{
    m_reference = reference;
    show(compared());
}

void Comparator::show(const charts::Comparison &rows)
{
    const auto plain = m_kind.drivers ? std::optional(look::plain) : std::nullopt;
    for (int index = 0; const charts::ComparisonRow &row : rows) {
        setRace(index, row.gp, m_shownYear);
        for (std::size_t i = 0; i < subjects.size(); ++i) {
            showFigure(*m_table, subjects[i].columns[0], index, row.values[i], plain);
            showFigure(*m_table, subjects[i].columns[1], index, row.totals[i], plain);
            showFigure(*m_table, subjects[i].columns[2], index, row.gaps[i], plain);
        }
        ++index;
    }
}

void Comparator::closing()
{
    for (int number = 1; const Field &name : m_names)
        season().write(keys::N, m_kind.key + std::to_string(number++), name.text());
}

}

ScreenRows form36()
{
    return {kindRow<Comparator>(u"Form36"_s, u"Comparatif Pilote"_s, drivers()),
            kindRow<Comparator>(u"Form73"_s, u"Comparatif Ecurie"_s, teams())};
}

}
