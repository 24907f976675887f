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
#include <string>
#include <string_view>
#include <vector>

namespace circuidex {

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
    // file as it was and raises writesLost(). Line breaks in a value become blanks: a value is one line.
    void EcrireINI(std::string_view stem, std::string_view section, std::string_view key, std::string_view value);

    // The season that the next start opens: the text of the file "Année" up to the first comma, empty without one.
    std::string yearMarker() const;
    void setYearMarker(std::string_view year);

    // The same two for a section, a key and a value that are bytes of the code page already. The bytes are stored as
    // they are, line breaks included.
    std::string readBytes(std::string_view stem, std::string_view section, std::string_view key) const;
    void writeBytes(std::string_view stem, std::string_view section, std::string_view key, std::string_view value);

    // True from a write that failed until the next one that succeeds: the main screen then says that changes aren't
    // kept.
    bool writesLost() const { return m_writesLost; }

    // How many writes failed so far. What must be written as a whole compares it before and after.
    unsigned lostWrites() const { return m_lostWrites; }

    // Files are parsed once and kept. A change made by another program is seen at the first read of the next moment; a
    // moment ends by itself after a tick of the system's coarse clock (4 ms or less), or by this call.
    void newMoment() { m_moment++; }

    // Carries what was written since the last call through to the disk itself. Called at the end of each user action;
    // the writes themselves only reach the operating system. A kill takes no finished write. A power cut before this
    // call may take the writes since the last one, of each file all or the later ones, but never the file: its content
    // at the last call is held on to beside it and comes back by itself (docs/durability.md).
    void settle();

    // From now on the care that the running program takes of its user's files: before the first write all data files
    // are copied (store/backups.h), and a file that isn't text is never overwritten. The first write to it moves it out
    // of the way, to its name with the date, as "f12005.ini.2026-11-22_2145.abime".
    void protect() { m_protected = true; }

    // From now on nothing in the folder is changed: each write is lost.
    void setReadOnly() { m_readOnly = true; }
    bool readOnly() const { return m_readOnly; }

    // A protected file that was found to be no text.
    struct Damaged {
        std::string name; // "f12005.ini"
        std::string aside; // the name that it bears since it was moved; empty while it stands in its place
        std::optional<backups::Copy> copy; // the newest good one
        bool restored = false;
    };
    // In the order found.
    const std::vector<Damaged> &damaged() const { return m_damaged; }

    // Puts the copy in the place of the file. What stands there is moved aside first, so nothing is ever lost by it.
    // False when there is no copy or when it can't be done; the file then stays as it is.
    bool restore(const std::string &name);

    // In French, what the user should know and isn't asked about, the gravest first; empty when all is well.
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
    Entry *entry(std::string_view stem) const;
    void refresh(Entry &entry, bool beforeWrite) const;
    std::string_view value(std::string_view stem, std::string_view section, std::string_view key) const;
    disk::Stamp load(const std::string &path, std::string &bytes) const;
    bool write(const std::string &path, std::string_view bytes, bool overText, disk::Stamp &after);
    bool replace(const std::string &target, std::string_view bytes, disk::Stamp &after);
    bool lose(); // a write; false
    void beforeFirstWrite();
    Damaged &noteDamage(const std::string &path) const;

    std::filesystem::path m_folder;
    Numbers m_numbers;
    mutable std::map<std::string, std::unique_ptr<Entry>, std::less<>> m_files; // by stem
    mutable Entry *m_lastUsed = nullptr; // nearly always the one asked for
    mutable std::string m_section, m_key; // room for the names of one call in the code page
    mutable std::vector<Damaged> m_damaged;
    std::vector<Unsettled> m_unsettled; // the files written since settle()
    std::uint64_t m_moment = 1;
    bool m_writesLost = false;
    unsigned m_lostWrites = 0;
    bool m_written = false; // a write was tried
    bool m_protected = false;
    bool m_readOnly = false;
};

}
