// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/folder_lock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace circuidex {

// The file stays when the program ends: were it removed, two programs could each hold a file of that name.
FolderLock::FolderLock(const std::filesystem::path &folder)
{
    const std::filesystem::path name = folder / ".circuidex-verrou";
    m_file = ::open(name.c_str(), O_RDONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666);
    struct stat there;
    m_heldElsewhere = m_file < 0 ? ::lstat(name.c_str(), &there) == 0
                                 : ::flock(m_file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

FolderLock::~FolderLock()
{
    if (m_file >= 0)
        ::close(m_file);
}

}
