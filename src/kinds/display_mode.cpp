// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/display_mode.h"

#include "platform/platform.h"
#include "results/main_record.h"
#include "results/options.h"

namespace circuidex {

namespace {

constexpr DisplayMode madeFor{1024, 768, 32};
constexpr int hertz = 75;

void changeMode(const Context &context, const DisplayMode &wanted)
{
    switch (context.platform.changeDisplay(wanted, hertz)) {
    case DisplayChange::done:
        break;
    case DisplayChange::restartNeeded:
        if (context.dialogs.questionUnder("Info", "Redémarrer le PC ?"))
            context.platform.restartMachine();
        break;
    case DisplayChange::refused:
        context.dialogs.messageUnder("Error", "Mode not supported");
    }
    const DisplayMode now = context.platform.displayMode();
    if (now.width != wanted.width && now.height != wanted.height)
        context.platform.changeDisplayPlainly(wanted.width, wanted.height);
}

void restore(const Context &context, const std::optional<results::SavedDisplay> &saved)
{
    if (saved)
        changeMode(context, {saved->width, saved->height, saved->depth});
}

}

void adaptDisplay(const Context &context)
{
    changeMode(context, madeFor);
}

void restoreDisplay(const Context &context)
{
    const Season season = context.main.season();
    if (results::adaptsDisplay(season))
        restore(context, results::savedDisplay(season));
}

void stopAdaptingDisplay(const Context &context)
{
    results::setAdaptsDisplay(context.main.writableSeason(), false);
    restore(context, results::savedDisplay(context.main.season()));
}

}
