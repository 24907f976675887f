// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A folder of a test's own, gone with the test, and plain file access that shares nothing with the store.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>
#include <algorithm>

namespace circuidex::test {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "circuidex-test-XXXXXX").string();
        if (const char *made = ::mkdtemp(name.data()))
            m_path = made;
    }
    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    const std::filesystem::path &path() const { return m_path; }
    std::filesystem::path operator/(const std::string &name) const { return m_path / name; }

    // Names in the folder, sorted; hidden ones too.
    std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (const auto &entry : std::filesystem::directory_iterator(m_path))
            all.push_back(entry.path().filename().string());
        std::sort(all.begin(), all.end());
        return all;
    }

private:
    std::filesystem::path m_path;
};

inline std::string content(const std::filesystem::path &file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

inline void layDown(const std::filesystem::path &file, const std::string &bytes)
{
    std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
}

}
