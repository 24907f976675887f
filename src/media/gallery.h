#pragma once
// A gallery: numbered slots on numbered pages, each slot with the path of a file that the user filed there, kept in the
// gallery file. The films and the photos differ in a few numbers only; what a slot looks like is the screen's affair.
#include "store/field.h"
#include "store/season.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace circuidex::media {

struct GalleryKind {
    std::string_view name; // "galerie photo"
    int slotCount; // of a page, from 1
    std::string_view prefix; // of their keys, section gp: "vid3.12" is slot 3 of page 12
    std::string_view pageSection, pageKey; // where the page on show is kept when the gallery closes
    std::string_view noPath; // what a free slot says
    int onOpening, onNextPage, onPageBefore; // the index afterwards
    bool turnsPages; // a step past the end of a page goes on to the next one; then no page comes before the first
};

inline constexpr GalleryKind films{"galerie vidéo", 20, "vid", keys::N, "pagevideo", "Emplacement libre", 23, 0, 0, true};
inline constexpr GalleryKind photos{"galerie photo", 24, "img", keys::gp, "imgsauv", "", 1, 1, 24, false};

class Gallery {
public:
    Gallery(Store &store, const GalleryKind &kind) : m_store(store), m_kind(kind) { }

    const GalleryKind &kind() const { return m_kind; }

    Field page{"1"}; // a number without limits; any other text gives pages of its own
    Field iNdexx{"0"}; // the selected slot; out of the page's range for none

    // Told of every slot of a page that comes on show, and of one that changes; an empty path is a free slot.
    std::function<void(int slot, const std::string &path)> show = [](int, const std::string &) {};

    void open(); // on the page that was on show last, 1 at first
    void keepPage() const; // for the next opening

    void nextPage();
    void previousPage();
    void goToPage(const std::string &number);

    // The index one on or back. Films go from page to page; photos stay within theirs.
    void stepForward();
    void stepBack();

    std::optional<int> selected() const; // from 1
    std::string path(int slot) const;

    void file(int slot, const std::string &path);
    void emptySelected(); // the file itself stays on the disk, here and below
    void emptyPage();

private:
    std::string key(std::string_view slot) const;
    std::string action(const std::string &what) const; // its name in the history
    void write(std::string_view slot, const std::string &path) const;
    void fill(int indexAfter);
    bool beyond(double last, bool forward) const;

    Store &m_store;
    GalleryKind m_kind;
};

}
