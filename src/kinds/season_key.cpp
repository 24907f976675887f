// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/season_key.h"

#include "kinds/place_names.h"
#include "shell/look.h"
#include "store/names.h"

namespace circuidex {

using namespace comparisons;

QString seasonTip(const SeasonHead &head, const std::string &subject)
{
    const QString champion = head.champion.empty() ? u"champion inconnu"_s : u"champion %1"_s.arg(qt(head.champion));
    const QString tip = qt(head.year) + u": "_s + champion;
    if (subject.empty())
        return tip;
    if (!head.subjectPlace)
        return tip + u"\n%1: non classé"_s.arg(qt(subject));
    const QString place = placeName(*head.subjectPlace) + (head.over ? u""_s : u" pour l'instant"_s);
    return tip + u"\n%1: %2"_s.arg(qt(subject), place);
}

SeasonKey::SeasonKey(const Screen &screen, Heads heads, const Colours &colours, QString prefix)
    : m_screen(screen), m_heads(std::move(heads)), m_prefix(std::move(prefix))
{
    for (std::size_t s = 0; s < m_heads.size(); ++s) {
        Control *head = m_screen.control(m_heads[s].name, m_heads[s].index);
        const bool onDark = look::contrast(look::onBar, colours[s]) > look::contrast(look::ink, colours[s]);
        head->setBack(colours[s]);
        head->setFore(onDark ? look::onBar : look::ink);
    }
}

void SeasonKey::show(const Store &store, std::string_view newestYear, SubjectKind kind,
                     const std::string &subject) const
{
    if (!isYear(newestYear))
        return;
    const auto known = seasonHeads(store, newestYear, kind, subject);
    for (std::size_t s = 0; s < m_heads.size(); ++s) {
        Control *head = m_screen.control(m_heads[s].name, m_heads[s].index);
        head->setText(m_prefix + qt(known[s].year));
        if (const auto *label = dynamic_cast<WidgetControl *>(head))
            label->widget()->setToolTip(seasonTip(known[s], subject));
    }
}

}
