#include "media/gallery.h"

#include "store/history.h"

namespace circuidex::media {

namespace {

constexpr int lastEmptied = 25; // the keys of this many slots are emptied with a page, from 0

}

std::string Gallery::key(std::string_view slot) const
{
    return keys::join(m_kind.prefix, keys::join(slot, keys::join(".", page.text())));
}

std::string Gallery::action(const std::string &what) const
{
    return std::string(m_kind.name).append(", page ").append(page.text()).append(" : ").append(what);
}

void Gallery::write(std::string_view slot, const std::string &path) const
{
    WritableSeason(m_store, std::string(keys::galerie)).write(keys::gp, key(slot), path);
}

std::string Gallery::path(int slot) const
{
    return m_store.LireINI(keys::galerie, keys::gp, key(std::to_string(slot)));
}

void Gallery::fill(int indexAfter)
{
    for (int slot = 1; slot <= m_kind.slotCount; ++slot)
        show(slot, path(slot));
    iNdexx.set(std::to_string(indexAfter));
}

void Gallery::open()
{
    const std::string kept = m_store.LireINI(keys::galerie, m_kind.pageSection, m_kind.pageKey);
    page.set(kept.empty() ? "1" : kept);
    fill(m_kind.onOpening);
}

void Gallery::keepPage() const
{
    WritableSeason(m_store, std::string(keys::galerie)).write(m_kind.pageSection, m_kind.pageKey, page.text());
}

void Gallery::nextPage()
{
    page.set(m_store.numbers().stepped(page.text(), 1));
    fill(m_kind.onNextPage);
}

void Gallery::previousPage()
{
    const auto number = m_store.numbers().value(page.text());
    if (m_kind.turnsPages && (!number || *number <= 1))
        page.set("1");
    else
        page.set(m_store.numbers().stepped(page.text(), -1));
    fill(m_kind.onPageBefore);
}

void Gallery::goToPage(const std::string &number)
{
    page.set(number);
    fill(m_kind.onNextPage);
}

// An index that is no number is taken for one at the end.
bool Gallery::beyond(double last, bool forward) const
{
    const auto index = m_store.numbers().value(iNdexx.text());
    return !index || (forward ? *index >= last : *index <= last);
}

void Gallery::stepForward()
{
    if (beyond(m_kind.slotCount, true)) {
        if (!m_kind.turnsPages)
            return;
        nextPage();
        iNdexx.set("0");
    }
    iNdexx.set(m_store.numbers().stepped(iNdexx.text(), 1));
}

void Gallery::stepBack()
{
    if (beyond(1, false)) {
        if (!m_kind.turnsPages)
            return;
        previousPage();
        iNdexx.set(std::to_string(m_kind.slotCount + 1));
    }
    iNdexx.set(m_store.numbers().stepped(iNdexx.text(), -1));
}

std::optional<int> Gallery::selected() const
{
    return m_store.numbers().whole(iNdexx.text(), 1, m_kind.slotCount);
}

void Gallery::file(int slot, const std::string &path)
{
    const Action undoable(m_store, action("emplacement " + std::to_string(slot)));
    write(std::to_string(slot), path);
    show(slot, path);
}

void Gallery::emptySelected()
{
    const Action undoable(m_store, action("emplacement " + iNdexx.text() + " vidé"));
    write(iNdexx.text(), {});
    if (const auto slot = selected())
        show(*slot, {});
}

void Gallery::emptyPage()
{
    const Action undoable(m_store, action("page vidée"));
    for (int slot = 0; slot <= lastEmptied; ++slot) {
        write(std::to_string(slot), {});
        if (slot >= 1 && slot <= m_kind.slotCount)
            show(slot, {});
    }
}

}
