// SPDX-License-Identifier: GPL-3.0-or-later
#include "kinds/update_runner.h"

#include "kinds/display_mode.h"
#include "online/servers.h"
#include "platform/platform.h"
#include "platform/program_folder.h"
#include "shell/screens.h"
#include "shell/title_bar.h"
#include "store/store.h"

#include <algorithm>

namespace circuidex {

using online::RunStep;

namespace {

const QString screenName = u"Form67"_s;
const QString captions[]{u"Résultats"_s, u"Logiciel"_s, u"Photos"_s}; // of the archives

void hideTitleButtons(Screen &screen)
{
    for (const QString &name : {u"Image3apa"_s, u"Image4apa"_s})
        if (auto *image = dynamic_cast<ShapeControl *>(screen.control(name))) {
            TwipRect place = image->geometry();
            place.top = 50000;
            image->geometryNow = {};
            image->setGeometry(place);
        }
    if (auto *bar = screen.findChild<TitleBar *>())
        bar->hideButtons();
}

}

void UpdateRunner::begin(Context &context, online::UpdateRun run, const Places &places)
{
    if (running())
        return;
    m_context = &context;
    m_places = places;
    m_steps = online::stepsOf(run);
    m_fetched = 0;
    m_toFetch = static_cast<std::size_t>(std::count_if(
        m_steps.begin(), m_steps.end(), [](const RunStep &step) { return step.what == RunStep::download; }));
    m_stay = std::make_unique<QEventLoopLocker>();
    m_besideMain = context.screens.isOpen(u"Form1"_s);
    connect(&m_download, &QtDownload::ended, this, &UpdateRunner::goOn, Qt::UniqueConnection);
    goOn();
}

// To the next transfer, or to the end. Whoever closes the main screen ends the program himself, and the run with it.
void UpdateRunner::goOn()
{
    while (running() && !m_steps.empty()) {
        if (m_besideMain && !m_context->screens.isOpen(u"Form1"_s))
            break;
        const RunStep step = m_steps.front();
        m_steps.erase(m_steps.begin());
        act(step);
        if (step.what == RunStep::download)
            return;
    }
    m_context = nullptr;
    m_stay.reset();
}

void UpdateRunner::act(const RunStep &step)
{
    Screens &screens = m_context->screens;
    switch (step.what) {
    case RunStep::hideTitleButtons:
        if (Screen *screen = screens.find(screenName))
            hideTitleButtons(*screen);
        break;
    case RunStep::deleteOld:
        online::removeDownload(destinationPath(*m_context, m_places.at(step.archive).destination));
        break;
    case RunStep::download:
        m_archive = step.archive;
        ++m_fetched;
        m_download.StartDownload(m_places.at(step.archive).source,
                                 qt(destinationPath(*m_context, m_places.at(step.archive).destination).string()), true);
        break;
    case RunStep::restoreDisplay:
    case RunStep::restoreDisplayOrFallback:
        restoreDisplay(*m_context);
        break;
    case RunStep::closeScreen:
        screens.close(screenName);
        break;
    case RunStep::startExtractor:
        m_context->platform.startProgram((executableFolder() / "Zip").string());
        break;
    case RunStep::endProgram:
        m_context->platform.endProgram();
    }
}

QString UpdateRunner::fetching() const
{
    if (!m_download.running())
        return {};
    return m_toFetch < 2 ? captions[m_archive]
                         : u"%1 (%2 sur %3)"_s.arg(captions[m_archive]).arg(m_fetched).arg(m_toFetch);
}

QString updateObstacle(const Context &context)
{
    if (context.store.readOnly())
        return u"Le dossier est ouvert en lecture seule : il ne peut pas être mis à jour."_s;
    if (online::readServers(context.store.folder()).maj.empty())
        return u"Aucun serveur de mise à jour n'est configuré. Donnez son adresse à la clé \"maj\" de la section "
               "[serveurs] du fichier serveurs.ini, dans le dossier du programme."_s;
    return {};
}

QString destinationText(const Context &context, std::string_view name)
{
    return qt(context.store.folder().string().append(name));
}

std::filesystem::path destinationPath(const Context &context, const QString &text)
{
    const QString folder = qt(context.store.folder().string());
    if (!text.startsWith(folder + u'\\'))
        return text.toStdString();
    return context.store.folder() / text.mid(folder.size() + 1).toStdString();
}

}
