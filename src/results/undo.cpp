// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/undo.h"

#include "results/navigation.h"
#include "results/race_entry.h"
#include "results/simulation.h"
#include "store/history.h"

namespace circuidex::results {

namespace {

bool isStored(const MainRecord &main)
{
    std::error_code error;
    return std::filesystem::exists(main.store.folder() / ("f1" + main.season().stem() + ".ini"), error);
}

}

OnShow onShow(const MainRecord &main)
{
    return {main.gp.text() == main.season().read(keys::gp, keys::namegp(main.Label40.text())), isStored(main)};
}

void showAnew(MainRecord &main, OnShow before)
{
    leaveRace(main);
    if (before.stored && !isStored(main))
        previousSeason(main);
    else
        before.inCalendar ? showSeason(main) : showGrandPrix(main);
    main.setScale(loadScale(main.season()));
    main.Label11.set("");
    main.overwritten.clear();
}

std::string hindrance(MainRecord &main, Turn turn)
{
    if (const auto running = runningSimulation(main.store))
        return "Une simulation est en cours : arrêtez-la d'abord (Graphique des Points Pilote).";
    return turn == Turn::undo ? main.store.undoHindrance() : main.store.redoHindrance();
}

bool turnHistory(MainRecord &main, Turn turn)
{
    std::string refusal = hindrance(main, turn);
    const bool back = turn == Turn::undo;
    const std::string name = back ? main.store.history().undoable() : main.store.history().redoable();
    const OnShow before = onShow(main);
    if (refusal.empty()) {
        leaveRace(main); // as the file holds it until now
        refusal = back ? main.store.undo() : main.store.redo();
    }
    if (refusal.empty())
        showAnew(main, before);
    main.said.set(!refusal.empty() ? refusal : (back ? "Annulé : " : "Rétabli : ") + name);
    return refusal.empty();
}

}
