// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/left_entry.h"

#include <algorithm>

namespace circuidex::results {

void LeftEntries::note(LeftEntry left)
{
    std::erase_if(m_left, [&](const LeftEntry &each) { return each.sameThing(left); });
    m_left.push_back(std::move(left));
    if (m_left.size() > most)
        m_left.erase(m_left.begin());
    tell();
}

void LeftEntries::forget(const LeftEntry &sameThing)
{
    if (std::erase_if(m_left, [&](const LeftEntry &each) { return each.sameThing(sameThing); }) > 0)
        tell();
}

std::optional<LeftEntry> LeftEntries::take()
{
    if (m_left.empty())
        return std::nullopt;
    std::optional<LeftEntry> last = std::move(m_left.back());
    m_left.pop_back();
    tell();
    return last;
}

void TypedEntry::stored(LeftEntry thing, LeftEntries &left)
{
    left.forget(thing);
    loaded(std::move(thing));
}

void TypedEntry::leave(const Texts &now, LeftEntries &left, Texts beside)
{
    if (unsaved(now)) {
        m_settled->texts = now;
        m_settled->beside = std::move(beside);
        left.note(std::move(*m_settled));
    }
    m_settled.reset();
}

}
