#pragma once
// The data files of the program folder: f1<stem>.ini, one a season and a few of other roles. There is no other memory:
// a screen reads a key when it needs it and writes a changed key at once.
//
// Text is UTF-8 here and Windows-1252 in the files; a character that the code page lacks becomes '?'.
#include "store/backups.h"
#include "store/disk.h"
#include "store/key_file.h"
#include "store/number.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace circuidex {

class History;

class Store {
public:
    explicit Store(std::filesystem::path folder, Numbers numbers = Numbers());
    ~Store();
    Store(const Store &) = delete;
    Store &operator=(const Store &) = delete;

    // The value, cut to 254 characters; empty for a key, section or file that doesn't exist or can't be read, and for a
    // stem with a path separator or "..". Never creates anything.
    std::string LireINI(std::string_view stem, std::string_view section, std::string_view key) const;

    // The file holds the value when the call returns; the first write creates it. A write that can't be made leaves the
    // file as it was and counts as lost. Line breaks and other control characters become blanks: a value is one line.
    // A file that has grown past `large` is written as a whole by flush() or settle(); until then reads give the value
    // from memory, and a kill leaves the file as it was before the user's action.
    void EcrireINI(std::string_view stem, std::string_view section, std::string_view key, std::string_view value);

    // Bytes; a hundred times a real season.
    static constexpr std::size_t large = std::size_t(4) << 20;

    // Writes what large files still lack. Whatever judges by lostWrites() whether an action was kept calls it before.
    void flush();

    // What is written to this file from hold() to release() waits in memory, where all reads see it; then the file takes
    // it as a whole, so that a kill leaves all of it or nothing. False when it was lost. flush() passes over the file.
    void hold(std::string_view stem);
    bool release(std::string_view stem);

    // The season that the next start opens: the text of the file "Année" up to the first comma, empty without one.
    std::string yearMarker() const;
    void setYearMarker(std::string_view year);

    // The same two for a section, a key and a value that are bytes of the code page already. The bytes are stored as
    // they are, line breaks included.
    std::string readBytes(std::string_view stem, std::string_view section, std::string_view key) const;
    void writeBytes(std::string_view stem, std::string_view section, std::string_view key, std::string_view value);

    // True while a key (or the year marker) lacks its last write, until a later one of that key succeeds or its file is
    // read anew because another program changed it. The main screen then says that changes aren't kept.
    bool writesLost() const;

    // How many writes failed so far, in all and to one file. What must be written as a whole compares it before and
    // after.
    unsigned lostWrites() const { return m_lostWrites; }
    unsigned lostWrites(std::string_view stem) const;

    // Files are parsed once and kept. A change made by another program is seen at the first read of the next moment; a
    // moment ends by itself after a tick of the system's coarse clock (4 ms or less), or by this call.
    void newMoment() { m_moment++; }

    // Carries what was written since the last call through to the disk itself. Called at the end of each user action;
    // the writes themselves only reach the operating system. A kill takes no finished write. A power cut before this
    // call may take the writes since the last one, of each file all or the later ones, but never the file: its content
    // at the last call is held on to beside it and comes back by itself (docs/durability.md).
    void settle();

    // From now on the care that the running program takes of its user's files (docs/restoring.md): before the first
    // write all data files are copied (store/backups.h), what an editor saved as UTF-8 is read so, and a damaged file
    // is never overwritten. With a good copy it takes no writes until that is put back; without one the first write
    // moves it out of the way, to its name with the date, as "f12005.ini.2026-11-22_2145.abime".
    void protect() { m_protected = true; }

    // The user's actions of late (store/history.h). From keepHistory() on they are noted and can be undone and redone;
    // that comes before the first file is read. Undo and redo answer the sentence, in French, why they were refused;
    // empty when it is done. All files may have changed then.
    History &history() const { return *m_history; }
    void keepHistory();
    std::string undo() { return turnHistory(true); }
    std::string redo() { return turnHistory(false); }
    std::string undoHindrance() { return historyHindrance(true); } // what undo() would answer
    std::string redoHindrance() { return historyHindrance(false); }

    // From now on nothing in the folder is changed: each write is lost.
    void setReadOnly() { m_readOnly = true; }
    bool readOnly() const { return m_readOnly; }

    // Whether the program may delete this file: an ordinary one, no link, that lies in the program folder or below it
    // once all links and dots are resolved. Never in a store that is read-only.
    bool mayDelete(const std::string &path) const;

    // Copies the file as it is into "Sauvegardes", for what overwrites results without a question. The path in the
    // program folder, to be told to the user; empty when there is no file, or when no copy can be made.
    std::string keepCopy(std::string_view stem);

    // A protected file that was found damaged.
    struct Damaged {
        std::string name; // "f12005.ini"
        std::string what; // in French, to follow "est abîmé : "
        std::string aside; // the second name that it got; empty while it only stands in its place
        std::optional<backups::Copy> copy; // the newest good one
        bool restored = false;
        bool gone = false; // another program mended or removed it
        bool stands() const { return aside.empty() && !restored && !gone; }
    };
    // In the order found.
    const std::vector<Damaged> &damaged() const { return m_damaged; }

    // Puts the copy in the place of the file. What stands there gets another name first, so nothing is ever lost by it,
    // and the file's own name leads to the one or the other all the time. False when there is no copy or when it can't
    // be done; the file then stays as it is.
    bool restore(const std::string &name);

    // In French, what the user should know and isn't asked about, the gravest first; empty when all is well. Nothing of
    // a stem that names no file.
    std::string notice() const;

    const std::filesystem::path &folder() const { return m_folder; }
    const Numbers &numbers() const { return m_numbers; }
    void setNumbers(Numbers numbers) { m_numbers = numbers; }

private:
    struct Entry;
    struct Unsettled {
        std::string path;
        bool held; // the content before the first write is held on to
    };
    struct Losses {
        std::set<std::string> keys; // those that lack a write
        unsigned writes = 0;
        disk::Stamp stamp; // the file without them
    };
    Entry *entry(std::string_view stem) const;
    std::string pathOf(const std::string &name) const;
    void refresh(Entry &entry, bool beforeWrite) const;
    void parse(Entry &entry, std::string bytes) const;
    std::string_view value(std::string_view stem, std::string_view section, std::string_view key) const;
    disk::Stamp load(const std::string &path, std::string &bytes) const;
    bool set(Entry &entry, std::string_view section, std::string_view key, std::string_view value);
    bool write(Entry &entry);
    void flush(Entry &entry);
    std::string historyHindrance(bool back);
    std::string turnHistory(bool back);
    bool replaceDamaged(const std::string &path, std::string_view bytes, disk::Stamp &after);
    bool replace(const std::string &path, std::string_view bytes, disk::Stamp &after);
    std::string writtenFile(const std::string &path) const;
    void note(bool kept, const std::string &name, std::string_view section, std::string_view key,
              const std::string &path);
    void beforeFirstWrite();
    Damaged *standing(const std::string &name) const;
    bool withheld(const std::string &path, backups::Damage damage) const;

    std::filesystem::path m_folder;
    Numbers m_numbers;
    const std::unique_ptr<History> m_history;
    mutable std::map<std::string, std::unique_ptr<Entry>, std::less<>> m_files; // by stem
    mutable Entry *m_lastUsed = nullptr; // nearly always the one asked for
    mutable std::string m_section, m_key; // room for the names of one call in the code page
    mutable std::map<std::string, std::string> m_names; // of the data files on the disk, by their name in lower case
    mutable disk::Stamp m_namesStamp; // of the folder
    mutable std::map<std::string, Losses, std::less<>> m_losses; // by file name
    mutable std::vector<Damaged> m_damaged;
    std::vector<Unsettled> m_unsettled; // the files written since settle()
    std::uint64_t m_moment = 1;
    unsigned m_lostWrites = 0;
    bool m_written = false; // a write was tried
    bool m_protected = false;
    bool m_readOnly = false;
};

}
