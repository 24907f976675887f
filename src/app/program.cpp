#include "app/program.h"

#include "app/screens.h"
#include "online/update_notice.h"
#include "platform/file_lookup.h"
#include "platform/qt_pictures.h"
#include "publicdata/swap_in.h"
#include "results/simulation.h"
#include "store/history.h"

#include <QAbstractEventDispatcher>
#include <QLocale>
#include <QTimer>

#include <algorithm>

namespace circuidex {

using namespace Qt::StringLiterals;

namespace {

results::Surroundings surroundings(const Store &store, const std::filesystem::path &folder)
{
    results::Surroundings machine;
    machine.findFile = [folder](const std::string &stored) { return findFile(folder, stored); };
    machine.findPicture = [folder](const std::string &stored) {
        std::string found = findFile(folder, stored);
        return canShowPicture(QString::fromStdString(found)) ? found : std::string();
    };
    machine.deleteFile = [&store](const std::string &path) {
        std::error_code ignored; // a file that can't be deleted stays
        if (!store.mayDelete(path))
            return;
        store.history().before(path);
        std::filesystem::remove(path, ignored);
    };
    return machine;
}

}

Program::Program(std::filesystem::path folder, Numbers numbers, Dialogs &dialogs, Platform &platform)
    : m_store(folder, numbers), m_main(m_store, dialogs, surroundings(m_store, folder)),
      m_context{m_store, m_main, dialogs, platform, m_screens}, m_screens(screenRows())
{
    m_store.protect();
    m_screens.setContext(m_context);
}

Program::~Program() = default;

void Program::start(const QString &first)
{
    if (!m_store.readOnly())
        publicdata::finishImport(m_store.folder()); // of a run that was killed
    m_store.keepHistory();
    for (const std::string &stem : {m_store.yearMarker(), std::string("ARCHIVES"), std::string("galerie")})
        m_store.LireINI(stem, {}, {}); // a damaged one is asked about before the first screen writes to it
    if (!m_store.readOnly())
        m_updateNotice = online::takeNotice(m_store.folder());
    offerCopies();
    results::forgetUnrecorded(m_store);
    m_screens.open(first);
}

void Program::settle()
{
    m_store.settle();
    m_store.newMoment();
    const std::string notice = m_main.quietNotice();
    m_main.writesLost.set(notice + (notice.empty() || m_updateNotice.empty() ? "" : "\n") + m_updateNotice);
}

void Program::settleAtRest()
{
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &m_atRest, [this] {
        settle();
        if (offersCopies()) // a box can't be shown from here
            QTimer::singleShot(0, &m_atRest, [this] { offerCopies(); });
    });
}

bool Program::offersCopies() const
{
    const auto &damaged = m_store.damaged();
    return !m_store.readOnly() &&
        std::any_of(damaged.begin() + static_cast<std::ptrdiff_t>(m_offered), damaged.end(),
                    [](const Store::Damaged &each) { return each.copy && each.stands(); });
}

void Program::offerCopies()
{
    if (m_store.readOnly())
        return;
    while (m_offered < m_store.damaged().size()) {
        const Store::Damaged each = m_store.damaged()[m_offered++];
        if (!each.copy || !each.stands())
            continue;
        const bool wanted = m_context.dialogs.question(
            "Le fichier " + each.name + " est abîmé : " + each.what + ".\n\nRemettre sa copie du " + each.copy->when +
            " ? Le fichier abîmé est gardé sous un autre nom.");
        if (wanted && !m_store.restore(each.name))
            m_context.dialogs.message("La copie n'a pas pu être remise. Le fichier est resté tel quel.");
    }
    settle();
}

Opening openingOf(const FolderLock &lock, Dialogs &dialogs)
{
    if (!lock.heldElsewhere())
        return Opening::alone;
    const bool look =
        dialogs.question("Circuidex est déjà ouvert sur ce dossier. Deux programmes qui écrivent dans les mêmes "
                         "fichiers se gêneraient.\n\nL'ouvrir en lecture seule, sans rien y changer ?");
    return look ? Opening::readOnly : Opening::refused;
}

Numbers userNumbers()
{
    QString name;
    for (const char *variable : {"LC_ALL", "LC_NUMERIC", "LANG"})
        if (name.isEmpty())
            name = qEnvironmentVariable(variable);
    const QString point = QLocale(name.section(u'.', 0, 0)).decimalPoint();
    return Numbers(point == u"," ? ',' : '.');
}

}
