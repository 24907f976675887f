#pragma once
// The running program: the store of its folder, the main screen's record, and all its screens.
#include "platform/folder_lock.h"
#include "platform/program_folder.h"
#include "results/main_record.h"
#include "kinds/undo.h"
#include "shell/screens.h"

#include <filesystem>
#include <memory>

namespace circuidex {

class Program {
public:
    Program(std::filesystem::path folder, Numbers numbers, Dialogs &dialogs, Platform &platform);
    ~Program();

    Store &store() { return m_store; }
    Screens &screens() { return m_screens; }
    const Screens &screens() const { return m_screens; }
    Context &context() { return m_context; }

    // Loads the main screen, as a start does; or the splash screen, which leads on to it.
    void start(const QString &first = QStringLiteral("Form1"));

    // Between two actions of the user: what was written goes to the disk itself, and the main screen says so if a write
    // was lost.
    void settle();

    // From now on, whenever the event loop goes to rest: an action of the user has ended. Asks about copies, too.
    void settleAtRest();

    // Asks, once for each data file found damaged, whether its newest good copy shall take its place. `offersCopies`
    // says whether there is anything to ask.
    bool offersCopies() const;
    void offerCopies();

private:
    Store m_store;
    results::MainRecord m_main;
    Context m_context; // outlives the screens, which use it to the last
    Screens m_screens;
    UndoKeys m_undoKeys{m_context};
    std::string m_updateNotice; // why the extractor refused an update before this start
    std::size_t m_offered = 0; // of the store's damaged files
    QObject m_atRest;
};

// How a folder may be opened that another program may have open: two that write would take each other's changes back.
enum class Opening { alone, readOnly, refused };
Opening openingOf(const FolderLock &lock, Dialogs &dialogs);

// The user's decimal separator, from LC_ALL, LC_NUMERIC and LANG.
Numbers userNumbers();

}
