// SPDX-License-Identifier: GPL-3.0-or-later
// Form80 to Form83, one team's or one driver's points race by race in four seasons, each race by itself or all up to
// it.
#include "kinds/picker.h"
#include "kinds/season_table.h"
#include "results/main_record.h"

#include <QBoxLayout>

namespace circuidex::screens {

namespace {

using comparisons::SubjectKind;
using comparisons::Sum;

struct SubjectTable {
    SubjectKind subject;
    Sum sum;
    QString word; // told to the list of teams or drivers
};

class SubjectBetweenSeasons : public SeasonTable {
public:
    SubjectBetweenSeasons(Context &context, const QString &name, const QString &title, SubjectTable kind);

private:
    bool ofTeam() const { return m_kind.subject == SubjectKind::team; }
    QWidget *question();
    void ask(); // Command1

    SubjectTable m_kind;
    Field m_subject; // Text1
};

SeasonTableKind tableOf(const SubjectTable &kind)
{
    const QString points = kind.sum == Sum::ofRace ? u"Nombre de points:"_s : u"Cumul du nombre de points:"_s;
    return {u"Grand Prix N°:"_s, gpSlots, points, kind.subject, true};
}

SubjectBetweenSeasons::SubjectBetweenSeasons(Context &theContext, const QString &name, const QString &title,
                                             SubjectTable kind)
    : SeasonTable(theContext, name, title, tableOf(kind)), m_kind(std::move(kind)),
      m_subject(ofTeam() ? season().ecurie(1) : season().nom(1))
{
    layOut(question(), answer(), legendFoot());
    ask();
}

QWidget *SubjectBetweenSeasons::question()
{
    auto *row = new QHBoxLayout;
    row->setSpacing(6);
    auto *subject = box(*row, ofTeam() ? u"Ecurie:"_s : u"Pilote:"_s, u"Text1"_s, m_subject, 240, [this] { ask(); });
    m_known.offerSubjects(subject, ofTeam());
    row->addWidget(list(u"Command4"_s, [this] {
        openPicker(context.screens, ofTeam() ? PickList::teams : PickList::drivers, m_kind.word, qt(m_season.text()));
    }));
    row->addStretch(1);
    row->addWidget(openButton([this] { ask(); }));
    return card({}, row);
}

void SubjectBetweenSeasons::ask()
{
    const Waiting waiting(*this);
    const std::string &subject = m_subject.text();
    show(ofTeam() ? teamRaces(seasons(), subject, m_kind.sum) : driverRaces(seasons(), subject, m_kind.sum), subject);
}

}

ScreenRows form80()
{
    const auto row = [](const QString &form, const QString &what, SubjectTable kind) {
        return kindRow<SubjectBetweenSeasons>(form, u"Comparaison entre Saisons du Nombre de Points "_s + what,
                                              std::move(kind));
    };
    return {row(u"Form80"_s, u"Ecurie"_s, {SubjectKind::team, Sum::ofRace, u"compaecuf80"_s}),
            row(u"Form81"_s, u"Pilote"_s, {SubjectKind::driver, Sum::ofRace, u"pilotcompaan81"_s}),
            row(u"Form82"_s, u"Ecurie Cumulé"_s, {SubjectKind::team, Sum::upToRace, u"compaecuf82"_s}),
            row(u"Form83"_s, u"Pilote Cumulé"_s, {SubjectKind::driver, Sum::upToRace, u"pilotcompaan83"_s})};
}

}
