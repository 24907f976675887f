// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/gallery.h"

#include "results/season_fixture.h"

#include <random>

using namespace circuidex;
using namespace circuidex::media;
using namespace circuidex::test;

namespace {

// A gallery on an empty folder, and what its slots show, "1=a.avi 3=b.avi" for the taken ones.
struct Shown {
    explicit Shown(const GalleryKind &kind, char decimalSeparator = '.')
        : desk(Desk::empty, decimalSeparator), gallery(desk.store, kind)
    {
        gallery.show = [this](int slot, const std::string &path) { paths[slot] = path; };
    }
    std::string now() const
    {
        std::string text = gallery.page.text() + "/" + gallery.iNdexx.text();
        for (const auto &[slot, path] : paths)
            text += path.empty() ? "" : " " + std::to_string(slot) + "=" + path;
        return text;
    }

    Desk desk;
    Gallery gallery;
    std::map<int, std::string> paths;
};

struct Step {
    const char *what;
    std::function<void(Gallery &)> act;
    const char *now; // page, index, taken slots
};

void walk(Shown &shown, const std::vector<Step> &steps)
{
    for (const Step &step : steps) {
        step.act(shown.gallery);
        EXPECT_EQ(shown.now(), step.now) << step.what;
    }
}

const auto next = [](Gallery &g) { g.stepForward(); };
const auto back = [](Gallery &g) { g.stepBack(); };
const auto pageOn = [](Gallery &g) { g.nextPage(); };
const auto pageBack = [](Gallery &g) { g.previousPage(); };
const auto at = [](const char *index) { return [index](Gallery &g) { g.iNdexx.set(index); }; };
const auto go = [](const char *page) { return [page](Gallery &g) { g.goToPage(page); }; };

TEST(Gallery, FilmsGoFromPageToPage)
{
    Shown shown(films);
    for (const char *key : {"vid1.1=a b.avi", "vid20.2=c.avi", "vid21.2=d.avi"})
        shown.desk.write(std::string("galerie [gp] ") + key);
    walk(shown,
         {{"first opening", [](Gallery &g) { g.open(); }, "1/23 1=a b.avi"},
          {"next, first of all", next, "2/1 20=c.avi"},
          {"back to the page before", back, "1/20 1=a b.avi"},
          {"next after the last slot", next, "2/1 20=c.avi"},
          {"next page", pageOn, "3/0"},
          {"slot 1 of page 3", next, "3/1"},
          {"before it", back, "2/20 20=c.avi"},
          {"page before", pageBack, "1/0 1=a b.avi"},
          {"page 1 stays", pageBack, "1/0 1=a b.avi"},
          {"and step back from it", back, "1/20 1=a b.avi"},
          {"an index that is no number", at("x"), "1/x 1=a b.avi"},
          {"counts as the end", next, "2/1 20=c.avi"},
          {"a page below", go("-3"), "-3/0"},
          {"is left for the first", pageBack, "1/0 1=a b.avi"},
          {"far out", go("99999999999"), "99999999999/0"},
          {"and further", pageOn, "100000000000/0"},
          {"no number", go("deux"), "deux/0"},
          {"has no next one", pageOn, "deux/0"},
          {"filed", [](Gallery &g) { g.file(3, "é.avi"); }, "deux/0 3=é.avi"},
          {"nothing selected to empty", [](Gallery &g) { g.emptySelected(); }, "deux/0 3=é.avi"},
          {"selected", at("3"), "deux/3 3=é.avi"},
          {"emptied", [](Gallery &g) { g.emptySelected(); }, "deux/3"},
          {"kept for the next opening", [](Gallery &g) { g.goToPage("2"), g.keepPage(); }, "2/0 20=c.avi"},
          {"opened again", [](Gallery &g) { g.open(); }, "2/23 20=c.avi"},
          {"the page emptied", [](Gallery &g) { g.emptyPage(); }, "2/23"}});
    EXPECT_EQ(shown.desk.read("galerie [N°] pagevideo"), "2");
    for (const char *key : {"vid20.2", "vid21.2", "vid0.2", "vid25.2"})
        EXPECT_TRUE(shown.desk.keys("galerie").contains(std::string("[gp] ") + key)) << key;
    EXPECT_EQ(shown.desk.read("galerie [gp] vid21.2"), "");
}

TEST(Gallery, PhotosStayOnTheirPageAndGoBelowTheFirst)
{
    Shown shown(photos);
    for (const char *key : {"img24.0=a.jpg", "img1.=b.jpg", "vid1.1=film.avi"})
        shown.desk.write(std::string("galerie [gp] ") + key);
    walk(shown,
         {{"first opening", [](Gallery &g) { g.open(); }, "1/1"},
          {"no step back from the first", back, "1/1"},
          {"page before", pageBack, "0/24 24=a.jpg"},
          {"no step on from the last", next, "0/24 24=a.jpg"},
          {"a step back", back, "0/23 24=a.jpg"},
          {"further down", pageBack, "-1/24"},
          {"no number at all", go(""), "/1 1=b.jpg"},
          {"stays so", pageOn, "/1 1=b.jpg"},
          {"filed in it", [](Gallery &g) { g.file(2, "c.jpg"); }, "/1 1=b.jpg 2=c.jpg"},
          {"kept", [](Gallery &g) { g.goToPage("0"), g.keepPage(); }, "0/1 24=a.jpg"}});
    EXPECT_EQ(shown.desk.read("galerie [gp] imgsauv"), "0");
    EXPECT_EQ(shown.desk.read("galerie [gp] img2."), "c.jpg");
}

// Both galleries in one file, 100,000 pages walked at random, files put in and taken out on the way: each page shows
// what a plain table says, and in the end the file holds exactly that.
TEST(Gallery, HundredThousandPagesShowWhatWasFiled)
{
    Desk desk(Desk::empty);
    Gallery galleries[]{{desk.store, films}, {desk.store, photos}};
    std::map<int, std::string> shown[2];
    std::map<std::pair<int, int>, std::string> filed[2]; // by page and slot
    int page[2]{};
    for (int i = 0; i < 2; ++i) {
        galleries[i].show = [&seen = shown[i]](int slot, const std::string &path) { seen[slot] = path; };
        galleries[i].open();
        page[i] = 1;
    }
    std::mt19937 random(2005);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int walked = 0; walked < 100'000; ++walked) {
        const int i = upTo(2);
        Gallery &gallery = galleries[i];
        const bool on = upTo(2) != 0;
        on ? gallery.nextPage() : gallery.previousPage();
        page[i] = on ? page[i] + 1 : i == 0 ? std::max(page[i] - 1, 1) : page[i] - 1;
        ASSERT_EQ(gallery.page.text(), std::to_string(page[i]));
        if (walked % 50 == 0) {
            const int slot = 1 + upTo(gallery.kind().slotCount);
            const std::string path = upTo(4) == 0 ? "" : "/films/" + std::to_string(walked);
            gallery.file(slot, path);
            filed[i][{page[i], slot}] = path;
        }
        for (int slot = 1; slot <= gallery.kind().slotCount; ++slot) {
            const auto known = filed[i].find({page[i], slot});
            ASSERT_EQ(shown[i][slot], known == filed[i].end() ? "" : known->second) << page[i] << " " << slot;
        }
    }
    Keys expected;
    for (int i = 0; i < 2; ++i)
        for (const auto &[where, path] : filed[i])
            expected["[gp] " + std::string(galleries[i].kind().prefix) + std::to_string(where.second) + "." +
                     std::to_string(where.first)] = path;
    EXPECT_EQ(desk.keys("galerie"), expected);
}

}
