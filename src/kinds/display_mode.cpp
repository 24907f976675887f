#include "kinds/display_mode.h"

#include "platform/platform.h"
#include "results/main_record.h"
#include "results/options.h"

namespace circuidex {

void restoreDisplay(const Context &context)
{
    if (const auto saved = results::displayToRestore(context.main.season()))
        context.platform.changeDisplay({saved->width, saved->height, saved->depth}, 75);
}

}
