// SPDX-License-Identifier: GPL-3.0-or-later
// Verifier, the second reading: a season as the user entered it beside the same season in public data, difference by
// difference, with the rule that a total differs by. A click opens the race, "Corriger" sets what the data says by the
// program's own amendment, one undo each.
#include "kinds/empty_note.h"
#include "kinds/place_names.h"
#include "kinds/public_data_screen.h"
#include "kinds/race_table.h"
#include "publicdata/comparison.h"
#include "publicdata/correction.h"
#include "results/main_record.h"
#include "results/undo.h"
#include "shell/look.h"
#include "shell/screens.h"
#include "store/history.h"

#include <QBoxLayout>

#include <algorithm>

namespace circuidex::screens {

namespace {

using publicdata::Difference;
using publicdata::DifferenceKind;

constexpr int differenceRows = 500, reasonColumn = 4;

bool isTotal(const Difference &difference)
{
    return difference.kind == DifferenceKind::driverTotal || difference.kind == DifferenceKind::teamTotal;
}

QString whatDiffers(const Difference &difference)
{
    switch (difference.kind) {
    case DifferenceKind::driverName:
        return u"nom du pilote %1"_s.arg(difference.slot);
    case DifferenceKind::driverMissing:
        return u"pilote absent"_s;
    case DifferenceKind::raceName:
        return u"nom"_s;
    case DifferenceKind::raceMissing:
        return difference.gp ? u"non enregistrée"_s : u"course absente"_s;
    case DifferenceKind::raceUnknown:
        return u"course inconnue"_s;
    case DifferenceKind::date:
        return u"date"_s;
    case DifferenceKind::pole:
        return u"pole"_s;
    case DifferenceKind::place:
        return u"arrivée, "_s + placeName(difference.place);
    case DifferenceKind::grid:
        return u"grille, "_s + placeName(difference.place);
    case DifferenceKind::wholeGrid:
        return u"grille absente"_s;
    case DifferenceKind::driverTotal:
    case DifferenceKind::teamTotal:
        break;
    }
    return u"total"_s;
}

QString reasonOf(const publicdata::Part &part, const Season &season)
{
    if (part.reason == publicdata::Reason::otherResult && part.gp && !season.recorded(season.namegp(*part.gp)))
        return u"course non enregistrée"_s;
    return qt(publicdata::inFrench(part.reason));
}

// "points de course sprint : +8 ; point du meilleur tour : +1", each reason once.
QString reasonsOf(const Difference &difference, const Season &season)
{
    std::vector<std::pair<QString, double>> sums;
    for (const publicdata::Part &part : difference.parts) {
        const QString reason = reasonOf(part, season);
        const auto known = std::ranges::find(sums, reason, &std::pair<QString, double>::first);
        if (known == sums.end())
            sums.emplace_back(reason, part.points);
        else
            known->second += part.points;
    }
    QStringList reasons;
    for (const auto &[reason, points] : sums)
        reasons << u"%1 : %2%3"_s.arg(reason, points > 0 ? u"+"_s : QString(), qt(season.numbers().text(points)));
    return reasons.join(u" ; "_s);
}

class Verifier : public PublicDataScreen {
public:
    Verifier(Context &context, const QString &name, const QString &title, Kept kept);

protected:
    void dataRead() override { compare(); }
    void busyChanged() override;

private:
    QLayout *head();
    QWidget *differencesCard();
    void step(int by);
    void compare();
    void showDifferences();
    void showRow(int row);
    QString summary() const;
    void pressed(const QString &column, int row);
    void correct(const Difference &difference);

    Field m_year;
    std::optional<publicdata::Comparison> m_comparison;
    Table *m_rows = nullptr;
    Label *m_found = nullptr;
    Button *m_compare = nullptr;
    int m_shown = 0; // rows
};

Verifier::Verifier(Context &theContext, const QString &name, const QString &title, Kept kept)
    : PublicDataScreen(theContext, name, title, std::move(kept)), m_year(theContext.main.an.text())
{
    auto *layout = page();
    layout->addWidget(sourceCard());
    layout->addWidget(differencesCard(), 1);
    layout->addWidget(progressCard());
    auto *foot = footRow(u"imprimer"_s);
    foot->addWidget(button(u"importer"_s, u"Importer des saisons…"_s, [this] { context.screens.open(u"Importer"_s); }));
    foot->addWidget(button(u"fermer"_s, u"Fermer"_s, [this] { close(); }));
    layout->addLayout(foot);
    resize(1000, 690);
    compare();
    begin();
}

QLayout *Verifier::head()
{
    const auto arrow = [this](const QString &name, const QString &sign, const QString &tip, int by) {
        auto *made = button(name, sign, [this, by] { step(by); });
        made->setFixedWidth(34);
        made->setToolTip(tip);
        return made;
    };
    auto *year = add(u"saison"_s, new Edit);
    year->setFixedWidth(64);
    year->setAlignment(Qt::AlignCenter);
    year->setToolTip(u"Saison à vérifier ; Entrée la compare"_s);
    bind(year, m_year);
    connect(year, &QLineEdit::returnPressed, this, [this] { compare(); });
    m_compare = button(u"comparer"_s, u"Comparer"_s, [this] { compare(); });
    m_compare->makeMain();
    m_found = add(u"bilan"_s, new Label);
    m_found->setObjectName(u"figure"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(styled(u"Saison"_s, "hint"));
    row->addWidget(arrow(u"precedente"_s, u"◀"_s, u"Saison précédente (Ctrl+Page préc.)"_s, -1));
    row->addWidget(year);
    row->addWidget(arrow(u"suivante"_s, u"▶"_s, u"Saison suivante (Ctrl+Page suiv.)"_s, 1));
    row->addWidget(m_compare);
    row->addSpacing(2 * look::gap);
    row->addWidget(m_found, 1);
    shortcut(
        u"Ctrl+PgUp"_s, [this] { step(-1); }, u"Saison précédente"_s);
    shortcut(
        u"Ctrl+PgDown"_s, [this] { step(1); }, u"Saison suivante"_s);
    return row;
}

QWidget *Verifier::differencesCard()
{
    const QString open = u"Cliquez pour ouvrir la course"_s;
    m_rows = table({{u"course"_s, u"Course, pilote, écurie"_s, 146, Qt::AlignLeft, open, 0, true},
                    {u"quoi"_s, u"Quoi"_s, 112, Qt::AlignLeft, open, 0, true},
                    {u"tenu"_s, u"Votre saison"_s, 146, Qt::AlignLeft, open, 0, true},
                    {u"publie"_s, u"Données publiques"_s, 146, Qt::AlignLeft, open, 0, true},
                    {u"raison"_s, u"D'où vient la différence"_s, 0, Qt::AlignLeft, open, 0, true},
                    {u"corriger"_s, QString(), 72, Qt::AlignCenter,
                     u"Mettre ce que disent les données ; se laisse annuler"_s, 0, true}},
                   differenceRows);
    keepFitting(*m_rows, reasonColumn);
    m_rows->onPress = [this](const QString &column, int row) { pressed(column, row); };
    auto *layout = new QVBoxLayout;
    layout->addLayout(head());
    layout->addWidget(m_rows, 1);
    return card(u"Votre saison à côté des données"_s, layout);
}

void Verifier::step(int by)
{
    m_year.set(context.store.numbers().stepped(m_year.text(), by));
    compare();
}

void Verifier::compare()
{
    m_comparison.reset();
    const Season season(context.store, seasonStem(m_year.text()));
    if (data()) {
        const Waiting waiting(*this);
        m_comparison = publicdata::compareSeason(season, *data());
    }
    showDifferences();
}

void Verifier::showDifferences()
{
    m_shown = m_comparison ? std::min(static_cast<int>(m_comparison->differences.size()), differenceRows) : 0;
    for (int row = 0; row < differenceRows; ++row)
        showRow(row);
    fitRows(*m_rows, reasonColumn);
    m_found->setText(summary());
}

// What is to be corrected, apart from totals: those may differ by the rules alone.
QString Verifier::summary() const
{
    const QString year = qt(m_year.text());
    if (!data())
        return u"Choisissez le fichier des données, ou téléchargez-le"_s;
    if (!m_comparison)
        return u"Les données n'ont pas de saison \"%1\""_s.arg(year);
    const std::vector<Difference> &all = m_comparison->differences;
    const auto totals = std::ranges::count_if(all, isTotal), others = std::ssize(all) - totals;
    const auto correctable = std::ranges::count_if(all, &Difference::correctable);
    QString says = others == 0 ? u"%1 : aucune différence dans les courses"_s.arg(year)
                               : u"%1 : %2 différence%3, dont %4 à corriger"_s.arg(year)
                                     .arg(others)
                                     .arg(others > 1 ? u"s"_s : QString())
                                     .arg(correctable);
    if (totals > 0)
        says += u" ; %1 %2 pas officiel%3"_s.arg(totals).arg(totals > 1 ? u"totaux ne sont"_s : u"total n'est"_s,
                                                             totals > 1 ? u"s"_s : QString());
    return says;
}

void Verifier::showRow(int row)
{
    const bool there = row < m_shown;
    const Difference difference = there ? m_comparison->differences[static_cast<std::size_t>(row)] : Difference();
    const Season season(context.store, there ? m_comparison->year : std::string());
    m_rows->setRowHidden(row, !there);
    m_rows->set(u"course", row, qt(difference.subject));
    m_rows->set(u"quoi", row, there ? whatDiffers(difference) : QString());
    m_rows->set(u"tenu", row, qt(difference.held));
    m_rows->set(u"publie", row, qt(difference.published));
    m_rows->set(u"raison", row, there ? reasonsOf(difference, season) : QString());
    m_rows->set(u"corriger", row, difference.correctable ? u"Corriger"_s : QString());
    m_rows->setBack(u"corriger", row, difference.correctable ? std::optional(look::chosen) : std::nullopt);
    const bool held = difference.correctable && !difference.held.empty();
    m_rows->setBack(u"tenu", row, held ? std::optional(look::loss) : std::nullopt);
    m_rows->setBack(u"publie", row, difference.correctable ? std::optional(look::gain) : std::nullopt);
}

void Verifier::busyChanged()
{
    m_compare->setEnabled(!busy() && data());
}

void Verifier::pressed(const QString &column, int row)
{
    if (busy() || row >= m_shown)
        return;
    const Difference difference = m_comparison->differences[static_cast<std::size_t>(row)];
    if (column == u"corriger" && difference.correctable)
        return correct(difference);
    const Season season(context.store, m_comparison->year);
    if (difference.gp)
        openGrandPrix(context, m_comparison->year, season.namegp(*difference.gp));
}

// What was typed on the main screen and isn't stored can be taken up again; the screens of this race close.
void Verifier::correct(const Difference &difference)
{
    const Waiting waiting(*this);
    if (context.store.history().finish)
        context.store.history().finish();
    const results::OnShow before = results::onShow(context.main);
    const std::string refusal = publicdata::correct(context.store, *m_comparison, difference);
    if (refusal.empty() && context.main.season().stem() == m_comparison->year)
        results::showAnew(context.main, before);
    for (const QString &stale : {u"Form4"_s, u"Form32"_s, u"Form48"_s})
        context.screens.close(stale);
    const std::string done = "Corrigé : " + difference.subject + ", " + whatDiffers(difference).toStdString() +
        (difference.published.empty() ? "" : " : " + difference.published);
    say(qt(refusal.empty() ? done : refusal));
    if (refusal.empty())
        context.main.said.set(done);
    compare();
}

}

ScreenRows verifier()
{
    return {kindRow<Verifier>(u"Verifier"_s, u"Vérifier avec des données publiques"_s,
                              std::make_shared<std::optional<PublicDataScreen::Release>>())};
}

}
