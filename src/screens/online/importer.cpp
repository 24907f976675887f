// SPDX-License-Identifier: GPL-3.0-or-later
// Importer, seasons from public data: at the left those that the data has, at the right what will be written and what
// doesn't fit the frame, before anything is written. The import runs race by race and is one change; a season that is
// there already is replaced only after a question of its own.
#include "kinds/empty_note.h"
#include "kinds/public_data_screen.h"
#include "publicdata/comparison.h"
#include "publicdata/import.h"
#include "results/first_steps.h"
#include "results/navigation.h"
#include "results/undo.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/dialogs.h"
#include "store/history.h"

#include <QBoxLayout>

#include <algorithm>
#include <set>

namespace circuidex::screens {

namespace {

constexpr int seasonRows = 150, previewRows = 700;
constexpr std::size_t mostDifferences = 4; // of a season that exists, told in the preview

bool folderHasSeasons(const Store &store)
{
    return std::ranges::any_of(results::seasonsOf(store),
                               [&](const std::string &year) { return results::isBegun(Season(store, year)); });
}

QString plural(std::size_t count, const QString &word)
{
    return u"%1 %2%3"_s.arg(count).arg(word, count > 1 ? u"s"_s : QString());
}

class Importer : public PublicDataScreen {
public:
    Importer(Context &context, const QString &name, const QString &title, Kept kept);

protected:
    void dataRead() override;
    void busyChanged() override;
    void workCancelled() override;
    void closing() override { m_import.reset(); }

private:
    struct Planned {
        publicdata::PlannedSeason plan;
        bool exists = false; // with something in it
        std::vector<QString> differences; // of the one that exists
    };
    struct Line {
        QString year, says;
        bool heading = false, warns = false;
    };

    QWidget *seasonsCard();
    QWidget *previewCard();
    void showSeasons();
    void toggle(int row);
    void chooseMissing();
    void chooseNone();
    void planSoon();
    void planNext();
    void showPreview();
    std::vector<QString> differencesOf(int year) const; // the season here from that of the data
    std::vector<Line> linesOf(int year, const Planned &planned) const;
    void start();
    bool mayReplace(int year);
    bool importOn();
    QString importedSeasons() const;
    void imported();
    void showImported();

    std::vector<int> m_years; // by row, newest first
    std::set<int> m_chosen;
    std::map<int, Planned> m_planned;
    std::unique_ptr<publicdata::Import> m_import;
    std::vector<std::string> m_importing; // years
    bool m_firstSeasons = false, m_replacing = false;
    Table *m_seasons = nullptr, *m_preview = nullptr;
    TimerControl *m_planning;
    Button *m_start = nullptr, *m_missing = nullptr, *m_none = nullptr;
};

Importer::Importer(Context &theContext, const QString &name, const QString &title, Kept kept)
    : PublicDataScreen(theContext, name, title, std::move(kept)),
      m_planning(&timer(u"apercu"_s, 0, TimerControl::Kind::repeating, [this] { planNext(); }))
{
    auto *columns = new QHBoxLayout;
    columns->setSpacing(look::gap);
    columns->addWidget(seasonsCard());
    columns->addWidget(previewCard(), 1);
    m_start = button(u"importer"_s, u"Importer"_s, [this] { start(); });
    m_start->makeMain();
    m_start->setToolTip(u"Enregistre les saisons choisies, course par course ; se laisse annuler d'un coup (Ctrl+I)"_s);
    shortcut(
        u"Ctrl+I"_s, [this] { start(); }, u"Importer les saisons choisies"_s);
    auto *foot = footRow(u"imprimer"_s);
    foot->addWidget(m_start);
    foot->addWidget(button(u"fermer"_s, u"Fermer"_s, [this] { close(); }));
    auto *layout = page();
    layout->addWidget(sourceCard());
    layout->addLayout(columns, 1);
    layout->addWidget(progressCard());
    layout->addLayout(foot);
    resize(1000, 690);
    showSeasons();
    showPreview();
    begin();
}

QWidget *Importer::seasonsCard()
{
    const QString tip = u"Choisir cette saison, ou ne plus la choisir (Entrée)"_s;
    m_seasons = table({{u"choix"_s, QString(), 26, Qt::AlignCenter, tip, 0, true},
                       {u"saison"_s, u"Saison"_s, 58, Qt::AlignLeft, tip, 0, true},
                       {u"courses"_s, u"Courses"_s, 66, Qt::AlignRight, tip, 0, true},
                       {u"champion"_s, u"Champion"_s, 0, Qt::AlignLeft, tip, 0, true},
                       {u"dossier"_s, u"Ici"_s, 66, Qt::AlignLeft, tip, 0, true}},
                      seasonRows);
    m_seasons->onPress = [this](const QString &, int row) { toggle(row); };
    add(emptyNote, noteOver(*m_seasons, u"saison"_s, u"Choisissez le fichier des données, ou téléchargez-le"_s));
    m_missing = button(u"manquantes"_s, u"Toutes celles qui manquent"_s, [this] { chooseMissing(); });
    m_none = button(u"aucune"_s, u"Aucune"_s, [this] { chooseNone(); });
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(m_missing, 1);
    row->addWidget(m_none);
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_seasons, 1);
    layout->addLayout(row);
    QWidget *made = card(u"Saisons à importer"_s, layout);
    made->setFixedWidth(400);
    return made;
}

QWidget *Importer::previewCard()
{
    m_preview = table({{u"annee"_s, u"Saison"_s, 58}, {u"note"_s, u"Aperçu"_s}}, previewRows);
    m_preview->setAlternatingRowColors(false);
    keepFitting(*m_preview, 1);
    auto *layout = new QVBoxLayout;
    layout->addWidget(m_preview, 1);
    return card(u"Ce qui sera écrit, et ce qui n'entre pas dans le cadre"_s, layout);
}

void Importer::dataRead()
{
    m_years.clear();
    m_chosen.clear();
    m_planned.clear();
    for (const publicdata::Championship &each : data()->championships)
        if (m_years.size() < seasonRows)
            m_years.insert(m_years.begin(), each.year);
    showSeasons();
    showPreview();
}

void Importer::showSeasons()
{
    for (int row = 0; row < seasonRows; ++row) {
        const bool there = row < static_cast<int>(m_years.size());
        m_seasons->setRowHidden(row, !there);
        const int year = there ? m_years[static_cast<std::size_t>(row)] : 0;
        const publicdata::Championship *of = there ? data()->championship(year) : nullptr;
        QString champion;
        for (const publicdata::DriverPoints &each : of ? of->standings : std::vector<publicdata::DriverPoints>())
            if (each.champion && each.driver >= 0)
                champion = qt(data()->drivers[static_cast<std::size_t>(each.driver)].name);
        const bool chosen = m_chosen.contains(year);
        m_seasons->set(u"choix", row, chosen ? u"✓"_s : QString());
        m_seasons->set(u"saison", row, there ? QString::number(year) : QString());
        m_seasons->set(u"courses", row, of ? QString::number(of->races.size()) : QString());
        m_seasons->set(u"champion", row, champion);
        m_seasons->set(u"dossier", row,
                       there && publicdata::seasonExists(context.store, year) ? u"existe"_s : QString());
        for (const QStringView column : {u"choix", u"saison", u"courses", u"champion", u"dossier"})
            m_seasons->setBack(column, row, chosen ? std::optional(look::chosen) : std::nullopt);
    }
    busyChanged();
}

void Importer::toggle(int row)
{
    if (busy() || row >= static_cast<int>(m_years.size()))
        return;
    const int year = m_years[static_cast<std::size_t>(row)];
    if (m_chosen.erase(year) == 0)
        m_chosen.insert(year);
    planSoon();
}

void Importer::chooseMissing()
{
    for (const int year : m_years)
        if (!publicdata::seasonExists(context.store, year))
            m_chosen.insert(year);
    planSoon();
}

void Importer::chooseNone()
{
    m_chosen.clear();
    planSoon();
}

void Importer::planSoon()
{
    say({});
    showSeasons();
    m_planning->start(1);
}

// One season a turn; a whole release has some seventy.
void Importer::planNext()
{
    const auto next = std::ranges::find_if(m_chosen, [this](int year) { return !m_planned.contains(year); });
    if (next == m_chosen.end()) {
        m_planning->stop();
        return showPreview();
    }
    auto plan = publicdata::planSeason(*data(), *next);
    if (!plan) {
        m_chosen.erase(next);
        return showSeasons();
    }
    Planned planned{*std::move(plan), publicdata::seasonExists(context.store, *next), {}};
    if (planned.exists)
        planned.differences = differencesOf(*next);
    m_planned.emplace(*next, std::move(planned));
}

std::vector<QString> Importer::differencesOf(int year) const
{
    std::vector<QString> sentences;
    if (const auto comparison = publicdata::compareSeason(Season(context.store, std::to_string(year)), *data()))
        for (const publicdata::Difference &each : comparison->differences)
            sentences.push_back(qt(each.sentence()));
    return sentences;
}

std::vector<Importer::Line> Importer::linesOf(int year, const Planned &planned) const
{
    const publicdata::SeasonPlan &season = planned.plan.season;
    std::vector<Line> lines{
        {QString::number(year),
         u"%1, %2"_s.arg(plural(season.races.size(), u"course"_s), plural(season.drivers.size(), u"pilote"_s)), true,
         false}};
    if (planned.exists) {
        const std::size_t count = planned.differences.size();
        lines.push_back({{},
                         u"Cette saison existe déjà, avec %1 ; elle n'est remplacée que si vous le demandez."_s.arg(
                             count == 0 ? u"les mêmes résultats"_s : plural(count, u"différence"_s)),
                         false,
                         true});
        for (std::size_t i = 0; i < std::min(count, mostDifferences); ++i)
            lines.push_back({{}, u"– "_s + planned.differences[i], false, true});
        if (count > mostDifferences)
            lines.push_back({{}, u"– et %1 de plus"_s.arg(count - mostDifferences), false, true});
    }
    for (const publicdata::Note &note : planned.plan.notes)
        lines.push_back({{}, qt(note.sentence)});
    if (planned.plan.notes.empty())
        lines.push_back({{}, u"Tout entre dans le cadre."_s});
    return lines;
}

void Importer::showPreview()
{
    std::vector<Line> lines;
    for (const int year : m_chosen)
        if (const auto planned = m_planned.find(year); planned != m_planned.end())
            std::ranges::move(linesOf(year, planned->second), std::back_inserter(lines));
    if (!m_chosen.empty() && data())
        if (const auto note = publicdata::archiveNote(context.store, *data()))
            lines.push_back({{}, qt(note->sentence)});
    if (lines.empty() && data())
        lines.push_back({{}, u"Choisissez des saisons dans la liste."_s});
    if (lines.size() > previewRows) {
        lines.resize(previewRows - 1);
        lines.push_back({{}, u"…"_s});
    }
    const int shown = static_cast<int>(lines.size());
    for (int row = 0; row < previewRows; ++row) {
        const Line line = row < shown ? lines[static_cast<std::size_t>(row)] : Line();
        m_preview->setRowHidden(row, row >= shown);
        m_preview->set(u"annee", row, line.year);
        m_preview->set(u"note", row, line.says);
        for (const QStringView column : {u"annee", u"note"}) {
            m_preview->cell(column, row)->setBold(line.heading);
            m_preview->setBack(column, row,
                               line.heading     ? std::optional(look::ground)
                                   : line.warns ? std::optional(look::second)
                                                : std::nullopt);
        }
    }
    fitRows(*m_preview, 1);
    busyChanged();
}

void Importer::busyChanged()
{
    const bool free = !busy();
    if (!m_start)
        return;
    m_start->setText(m_chosen.size() > 1 ? u"Importer les %1 saisons"_s.arg(m_chosen.size()) : u"Importer"_s);
    m_start->setEnabled(free && !m_chosen.empty());
    m_missing->setEnabled(free && data());
    m_none->setEnabled(free && !m_chosen.empty());
}

// Compared anew: the user may have worked on it since the preview.
bool Importer::mayReplace(int year)
{
    const std::size_t count = differencesOf(year).size();
    return context.dialogs.question(
        "La saison " + std::to_string(year) + " existe déjà" +
        (count == 0 ? std::string(", avec les mêmes résultats")
                    : ", avec " + plural(count, u"différence"_s).toStdString()) +
        ". La remplacer par celle des données ? Une copie en est gardée dans \"Sauvegardes\".");
}

// A season that may not be replaced is left out, the others are imported.
void Importer::start()
{
    while (m_planning->pending())
        planNext();
    if (busy() || m_chosen.empty())
        return;
    std::vector<publicdata::ImportedSeason> seasons;
    m_importing.clear();
    m_replacing = false;
    for (const int year : m_chosen) {
        const bool there = publicdata::seasonExists(context.store, year);
        if (there && !mayReplace(year))
            continue;
        m_replacing |= there || context.main.season().stem() == std::to_string(year);
        seasons.push_back({m_planned.at(year).plan, there});
        m_importing.push_back(std::to_string(year));
    }
    if (seasons.empty())
        return say(u"Rien n'a été importé."_s);
    if (context.store.history().finish)
        context.store.history().finish();
    m_firstSeasons = !folderHasSeasons(context.store);
    m_import = std::make_unique<publicdata::Import>(context.store, *data(), std::move(seasons));
    work([this] { return importOn(); });
}

// What other screens show of a season that is replaced belongs to the time before, and so they close; the main screen
// is read anew.
bool Importer::importOn()
{
    if (!m_import) // the window is closing
        return false;
    const bool last = m_import->stepsDone() + 1 == m_import->stepsInAll();
    if (last && m_replacing)
        context.screens.closeAllBut({u"Form1"_s, u"Form46"_s, u"Form67"_s, u"Historique"_s, name()});
    const results::OnShow before = results::onShow(context.main);
    const bool more = m_import->step();
    showProgress(u"Enregistrement de %1"_s.arg(qt(m_import->doing())), m_import->stepsDone(), m_import->stepsInAll());
    if (more)
        return true;
    if (m_import->done()) {
        if (!m_firstSeasons)
            results::showAnew(context.main, before);
        imported();
    } else {
        say(qt(m_import->failure()));
        m_import.reset();
    }
    return false;
}

QString Importer::importedSeasons() const
{
    constexpr std::size_t mostNamed = 12;
    if (m_importing.size() > mostNamed)
        return u"%1 saisons importées, de %2 à %3."_s.arg(m_importing.size())
            .arg(qt(m_importing.front()), qt(m_importing.back()));
    QStringList years;
    for (const std::string &year : m_importing)
        years << qt(year);
    return (years.size() > 1 ? u"Saisons importées : %1."_s : u"Saison importée : %1."_s).arg(years.join(u", "));
}

void Importer::imported()
{
    QString says = importedSeasons();
    if (m_replacing)
        says += u" Ce qui a été remplacé est copié dans Sauvegardes."_s;
    m_import.reset();
    m_chosen.clear();
    m_planned.clear();
    showSeasons();
    showPreview();
    say(says);
    context.main.said.set(says.toStdString());
    if (m_firstSeasons)
        showImported();
}

// The first seasons of a folder: the program goes on with the last of them.
void Importer::showImported()
{
    context.main.an.set(m_importing.back());
    context.store.setYearMarker(m_importing.back());
    results::openOnLastRecorded(context.main);
    context.screens.close(u"Form46"_s);
}

void Importer::workCancelled()
{
    if (!m_import)
        return;
    m_import->cancel();
    m_import.reset();
    say(u"Import annulé : rien n'a changé."_s);
}

}

ScreenRows importer()
{
    return {kindRow<Importer>(u"Importer"_s, u"Importer des saisons"_s,
                              std::make_shared<std::optional<PublicDataScreen::Release>>())};
}

}
