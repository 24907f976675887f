#include "publicdata/swap_in.h"

#include "store/history.h"

#include <set>
#include <sstream>

namespace circuidex::publicdata {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view listName = "a-deplacer";

// The moves of a list, and what they touch.
class Moves {
public:
    explicit Moves(const fs::path &folder) : m_folder(folder), m_work(folder / importFolder) { }

    std::string listPath() const { return (m_work / listName).string(); }

    // All is on the disk, and the list with it: from here on the work goes on only forward.
    bool begin(const std::vector<std::string> &files) const
    {
        std::string list;
        std::set<std::string> folders{m_work.string(), m_folder.string()};
        for (const std::string &file : files) {
            const std::string path = (m_work / file).string();
            list += file + "\n";
            folders.insert(disk::folderOf(path));
            if (!disk::syncFile(path))
                return false;
        }
        disk::Stamp after;
        bool kept = disk::replace(listPath(), list, false, after) && disk::syncFile(listPath());
        for (const std::string &folder : folders)
            kept = kept && disk::syncFolder(folder);
        if (!kept)
            disk::removeName(listPath());
        return kept;
    }

    // False when one couldn't be moved; the next start tries again.
    bool run() const
    {
        std::string text;
        disk::read(listPath(), text);
        std::set<std::string> touched{m_folder.string()};
        std::istringstream list(text);
        for (std::string file; std::getline(list, file);)
            if (!move(file, touched))
                return false;
        for (const std::string &folder : touched)
            disk::syncFolder(folder);
        disk::removeName(listPath());
        clear();
        return true;
    }

    // Whether the file can take its place: nothing but an ordinary file stands there, and no link leads out of the
    // folder.
    bool fits(const std::string &file) const
    {
        const std::string to = disk::target((m_folder / file).string());
        return disk::look(to).kind != disk::Kind::refused && disk::inside(m_folder.string(), to);
    }

    void clear() const
    {
        std::error_code ignored; // what stays makes the next import fail, with a sentence
        fs::remove_all(m_work, ignored);
    }

private:
    bool move(const std::string &file, std::set<std::string> &touched) const
    {
        const std::string from = (m_work / file).string();
        const std::string to = disk::target((m_folder / file).string());
        if (disk::look(from).kind == disk::Kind::missing)
            return true; // before a kill
        if (!fits(file) || !makeFolders(fs::path(file).parent_path()))
            return false;
        touched.insert(disk::folderOf(to));
        return disk::calls.rename(from.c_str(), to.c_str()) == 0;
    }

    bool makeFolders(const fs::path &below) const
    {
        return below.empty() || (makeFolders(below.parent_path()) && disk::makeFolder((m_folder / below).string()));
    }

    const fs::path m_folder, m_work;
};

}

SwapResult swapIn(Store &store, std::string_view name, const std::vector<std::string> &files)
{
    SwapResult result;
    const Moves moves(store.folder());
    store.settle();
    const Action action(store, std::string(name));
    std::vector<std::string> fitting;
    for (const std::string &file : files) {
        const bool data = file.find('/') == file.npos; // else the text on a circuit, which may stay away
        if (moves.fits(file))
            fitting.push_back(file);
        else if (data)
            result.failure = file + " n'est pas un fichier ordinaire, ou mène hors du dossier : rien n'a été changé.";
        if (!data || disk::look((store.folder() / file).string()).kind == disk::Kind::missing)
            continue;
        result.copies.push_back(backups::keep(store.folder().string(), file));
        if (result.copies.back().empty())
            result.failure = file + " n'a pas pu être copié dans Sauvegardes : rien n'a été changé.";
    }
    if (result.failure.empty())
        for (const std::string &file : fitting)
            store.history().before((store.folder() / file).string());
    if (result.failure.empty() && !moves.begin(fitting))
        result.failure = "Le disque n'a pas pris les fichiers importés : rien n'a été changé.";
    if (result.failure.empty() && !moves.run())
        result.failure = "Un fichier importé n'a pas pu être mis en place ; le prochain démarrage reprendra ici.";
    store.newMoment();
    return result;
}

bool finishImport(const fs::path &folder)
{
    const Moves moves(folder);
    if (disk::look(moves.listPath()).kind == disk::Kind::file)
        return moves.run();
    if (std::error_code error; fs::exists(fs::symlink_status(folder / importFolder, error)))
        moves.clear();
    return false;
}

}
