#include "store/history.h"

#include "store/store.h"
#include "store/temporary_folder.h"
#include "store/watched_calls.h"

#include <gmock/gmock.h>

#include <map>
#include <random>

namespace circuidex {

using namespace test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using Files = std::map<std::string, std::string>;

Files filesOf(const std::filesystem::path &folder)
{
    Files files;
    for (const auto &entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().filename().string().front() != '.')
            files[entry.path().filename().string()] = content(entry.path());
    return files;
}

class HistoryOf : public testing::Test {
protected:
    HistoryOf() { start(); }

    void start()
    {
        store.reset();
        store.emplace(folder.path());
        store->keepHistory();
    }
    void act(const std::string &name, const std::string &stem, const std::string &value)
    {
        const Action action(*store, name);
        store->EcrireINI(stem, "N", "k", value);
    }
    void writeNameless(const std::string &stem, const std::string &key, const std::string &value)
    {
        store->EcrireINI(stem, "N", key, value);
        store->settle();
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const History::Item &item : store->history().items())
            names.push_back((item.undone ? "-" : "") + item.name);
        return names;
    }

    TemporaryFolder folder;
    std::optional<Store> store;
};

// The calls that carry data to the disk do nothing: a thousand histories would wait for it.
class WithoutSyncs {
public:
    WithoutSyncs()
    {
        disk::calls.sync = disk::calls.syncFolder = [](int) { return 0; };
    }
    ~WithoutSyncs() { disk::calls = m_calls; }

private:
    const disk::Calls m_calls = disk::calls;
};

}

TEST_F(HistoryOf, ActionsOverSeveralFilesAreUndoneAndRedoneByTheirNames)
{
    layDown(folder / "f12004.ini", "; old\n[N]\nk=0");
    const Files before = filesOf(folder.path());
    {
        const Action import(*store, "import de 2004 et 2005");
        act("enregistrement", "2004", "1");
        store->settle(); // the import goes on over turns of the event loop
        act("enregistrement", "2005", "1");
    }
    const Files imported = filesOf(folder.path());
    act("profil de Senna", "2005", "2");
    const Files after = filesOf(folder.path());
    EXPECT_THAT(names(), ElementsAre("profil de Senna", "import de 2004 et 2005"));
    EXPECT_EQ(store->undo(), "");
    EXPECT_EQ(filesOf(folder.path()), imported);
    start();
    EXPECT_EQ(store->LireINI("2005", "N", "k"), "1");
    EXPECT_EQ(store->undo(), "");
    EXPECT_EQ(filesOf(folder.path()), before);
    EXPECT_EQ(store->LireINI("2005", "N", "k"), "");
    EXPECT_THAT(store->undo(), HasSubstr("rien à annuler"));
    EXPECT_THAT(names(), ElementsAre("-profil de Senna", "-import de 2004 et 2005"));
    EXPECT_EQ(store->redo() + store->redo(), "");
    EXPECT_EQ(filesOf(folder.path()), after);
    EXPECT_EQ(store->undo(), "");
    act("barème", "2004", "9");
    EXPECT_THAT(names(), ElementsAre("barème", "import de 2004 et 2005")); // what was undone can't be redone any more
}

TEST_F(HistoryOf, WhatHasNoNameGoesAndComesWithTheActionBeforeIt)
{
    act("un", "2005", "1");
    writeNameless("2005", "option", "a");
    writeNameless("galerie", "page", "3");
    const Files optioned = filesOf(folder.path());
    start();
    EXPECT_EQ(store->undo(), "");
    EXPECT_EQ(filesOf(folder.path()), (Files{{"f1galerie.ini", optioned.at("f1galerie.ini")}}));
    EXPECT_EQ(store->redo(), "");
    EXPECT_EQ(filesOf(folder.path()), optioned);
    store->history().name("deux");
    writeNameless("2005", "k", "2");
    EXPECT_EQ(store->undo() + store->undo(), "");
    writeNameless("2005", "option", "b"); // on the undone side
    const Files undone = filesOf(folder.path());
    EXPECT_EQ(store->redo(), "");
    EXPECT_EQ(store->LireINI("2005", "N", "option"), "a");
    EXPECT_EQ(store->undo(), "");
    EXPECT_EQ(filesOf(folder.path()), undone);
}

TEST_F(HistoryOf, AnotherProgramsChangeIsNeverTakenBack)
{
    act("un", "2005", "1");
    act("deux", "2006", "1");
    layDown(folder / "f12005.ini", "[N]\nk=ailleurs");
    const Files changed = filesOf(folder.path());
    EXPECT_EQ(store->undo(), "");
    EXPECT_EQ(store->undo(), "Impossible d'annuler « un » : f12005.ini a été changé depuis par un autre programme.");
    act("trois", "2005", "3");
    EXPECT_EQ(store->undo(), "");
    EXPECT_THAT(store->undo(), HasSubstr("autre programme")); // it stands behind the action too
    EXPECT_EQ(content(folder / "f12005.ini"), changed.at("f12005.ini"));
}

TEST_F(HistoryOf, TheLastFiftyActionsAreKept)
{
    for (int i = 1; i <= 55; ++i)
        act("action " + std::to_string(i), "2005", std::to_string(i));
    EXPECT_EQ(names().size(), 50u);
    EXPECT_EQ(names().back(), "action 6");
    while (store->undo().empty()) { }
    EXPECT_EQ(store->LireINI("2005", "N", "k"), "5");
    EXPECT_EQ(TemporaryFolder().names().size() +
                  std::size_t(std::distance(std::filesystem::directory_iterator(folder / "Historique"),
                                            std::filesystem::directory_iterator())),
              51u); // a copy each, and the index
}

TEST_F(HistoryOf, WhatIsMissingOrDamagedIsSaidAndHarmsNothing)
{
    act("un", "2005", "1");
    act("deux", "2005", "2");
    const Files files = filesOf(folder.path());
    std::filesystem::remove(folder / "Historique/2-0");
    EXPECT_THAT(store->undo(), HasSubstr("manque ou est abîmée"));
    layDown(folder / "Historique/index", std::string(300, '\0'));
    start();
    EXPECT_THAT(store->undo(), HasSubstr("illisible"));
    act("trois", "2005", "3");
    EXPECT_THAT(names(), ElementsAre("trois"));
    EXPECT_EQ(store->undo(), "");
    EXPECT_EQ(filesOf(folder.path()), files);
    store->setReadOnly();
    EXPECT_THAT(store->redo(), HasSubstr("Lecture seule"));
}

// Whatever step of it the disk refuses, the action is done all the same; an undo is done as a whole or not at all.
TEST_F(HistoryOf, ARefusedCallCostsTheUndoAtMost)
{
    layDown(folder / "f12004.ini", "[N]\nk=0");
    int faults = 0;
    for (int refused = 0; refused < 80; ++refused) {
        act("avant", "2004", "a");
        act("avant", "2005", "a");
        int calls = 0;
        const auto hook = [&](const WatchedCalls::Call &call) {
            const bool ours =
                call.path.find("Historique") != std::string::npos || call.to.find("Historique") != std::string::npos;
            return ours && writes(call) && calls++ == refused ? ENOSPC : 0;
        };
        const Files before = filesOf(folder.path());
        {
            const WatchedCalls watched(hook);
            const Action action(*store, "deux fichiers");
            store->EcrireINI("2004", "N", "k", "b");
            store->EcrireINI("2005", "N", "k", "b");
        }
        EXPECT_EQ(store->LireINI("2004", "N", "k") + store->LireINI("2005", "N", "k"), "bb");
        const Files after = filesOf(folder.path());
        std::string refusal;
        {
            const WatchedCalls watched(hook);
            refusal = store->undo();
        }
        const Files undone = filesOf(folder.path());
        EXPECT_EQ(undone, refusal.empty() ? before : after) << refused << refusal;
        faults += !refusal.empty();
        start(); // finds nothing half done
        EXPECT_EQ(filesOf(folder.path()), undone) << refused;
    }
    EXPECT_GT(faults, 5);
}

// Random histories over four files, with and without names, with files made and deleted, undone and redone at random.
TEST(Histories, AnyHistoryIsUndoneAndRedoneByteForByte)
{
    const WithoutSyncs quick;
    const bool all = std::getenv("CIRCUIDEX_EVERY_HISTORY") != nullptr;
    for (unsigned seed = 0; seed < (all ? 1000u : 8u); ++seed) {
        std::mt19937 random(seed);
        const auto one = [&](unsigned of) { return unsigned(random() % of); };
        const TemporaryFolder folder;
        auto store = std::make_unique<Store>(folder.path());
        store->keepHistory();
        std::vector<Files> states{filesOf(folder.path())}; // before each action
        for (int i = 0; i < 50; ++i) {
            const std::string first = "200" + std::to_string(one(3));
            {
                const Action action(*store, "action " + std::to_string(i));
                store->EcrireINI(first, "N", "k", std::to_string(random()));
                for (unsigned writes = 1 + one(6); writes > 0; --writes)
                    store->EcrireINI("200" + std::to_string(one(3)), "N" + std::to_string(one(2)),
                                     "k" + std::to_string(one(5)), std::to_string(random()));
                const std::string text = (folder / "Journal p1.txt").string();
                if (one(5) == 0 && std::filesystem::exists(text)) {
                    store->history().before(text);
                    std::filesystem::remove(text);
                } else if (one(5) == 0) {
                    store->history().before(text);
                    layDown(text + ".new", std::to_string(random()));
                    std::filesystem::rename(text + ".new", text);
                }
            }
            if (one(5) == 0) // a display option, which goes with the action before it
                store->EcrireINI(first, "options", "o", std::to_string(random()));
            store->settle();
            states.push_back(filesOf(folder.path()));
        }
        std::size_t at = 50;
        const auto step = [&](bool back) {
            if (one(20) == 0) {
                store = std::make_unique<Store>(folder.path());
                store->keepHistory();
            }
            ASSERT_EQ(back ? store->undo() : store->redo(), "") << seed << " " << at;
            at += back ? std::size_t(-1) : 1;
        };
        const auto walk = [&](std::size_t to) {
            while (at != to) {
                ASSERT_NO_FATAL_FAILURE(step(to < at));
                ASSERT_EQ(filesOf(folder.path()), states[at]) << seed << " " << at;
            }
        };
        for (const std::size_t to :
             {std::size_t(0), std::size_t(50), std::size_t(one(51)), std::size_t(one(51)), std::size_t(0)})
            ASSERT_NO_FATAL_FAILURE(walk(to));
    }
}

}
