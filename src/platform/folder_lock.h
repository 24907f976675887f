// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Tells whether another running program has the data folder open. The system itself lets the lock go when its holder
// ends, however it ends, so a program that crashed stands in nobody's way.
#include <filesystem>

namespace circuidex {

class FolderLock {
public:
    // Takes the lock if it is free. A lock file that can't be opened counts as taken. A folder where there can be none
    // (read-only, gone, a file system without locks) counts as free: nothing could be written there by two either, or
    // nothing can be known.
    explicit FolderLock(const std::filesystem::path &folder);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    bool heldElsewhere() const { return m_heldElsewhere; }

private:
    int m_file = -1;
    bool m_heldElsewhere = false;
};

}
