// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/folder_choice.h"

#include "platform/program_folder.h"
#include "store/dialogs.h"
#include "store/store.h"

namespace circuidex {

QString openAnotherFolder(Context &context, const std::function<void()> &leave)
{
    const auto chosen = context.dialogs.chooseFolder("Ouvrir un dossier de saisons");
    if (!chosen)
        return {};
    std::error_code error;
    if (!std::filesystem::is_directory(*chosen, error))
        return u"Ce n'est pas un dossier : %1"_s.arg(qt(*chosen));
    if (std::filesystem::equivalent(*chosen, context.store.folder(), error))
        return u"Ce dossier est déjà ouvert."_s;
    if (!context.platform.keepFolder(*chosen))
        return u"Le choix ne peut pas être noté : le dossier du programme n'accepte pas l'écriture."_s;
    context.platform.startProgram((executableFolder() / "circuidex").string());
    leave();
    return {};
}

}
