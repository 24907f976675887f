// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a test drive the store from outside: one command a line on standard input, one answer a line. Fields are bytes
// in hexadecimal; "-" is the empty text, "!" stands for absent.
//
//     F bytes               a new case: a file of its own with these bytes     -> F 1
//     E bytes               another program rewrites that file, or removes it  -> E 1
//     R section key         read                                               -> R value
//     W section key value   write                                              -> W 1, or 0 when it wasn't done
//     D                     the bytes of the file                              -> D bytes
#include "store/store.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

namespace {

using circuidex::Store;

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::error_code error;
        std::string name = (std::filesystem::temp_directory_path(error) / "keyfile-XXXXXX").string();
        if (const char *made = ::mkdtemp(name.data()))
            m_path = made;
    }
    ~TemporaryFolder()
    {
        std::error_code error;
        if (!m_path.empty())
            std::filesystem::remove_all(m_path, error);
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    const std::filesystem::path &path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

std::optional<std::string> decoded(const std::string &field)
{
    if (field == "!")
        return std::nullopt;
    std::string bytes;
    for (std::size_t i = 0; i + 1 < field.size(); i += 2)
        bytes += static_cast<char>(std::strtol(field.substr(i, 2).c_str(), nullptr, 16));
    return bytes;
}

std::string encoded(const std::optional<std::string> &bytes)
{
    if (!bytes)
        return "!";
    std::string field;
    for (const char c : *bytes) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
        field += digits;
    }
    return field.empty() ? "-" : field;
}

class Adapter {
public:
    std::string answer(const std::string &line)
    {
        std::istringstream words(line);
        std::string command, a, b, c;
        words >> command >> a >> b >> c;
        m_store.newMoment();
        if (command == "F")
            return newCase(a);
        if (command == "E")
            return layDown(a) ? "E 1" : "E 0";
        if (command == "R")
            return "R " + encoded(m_store.readBytes(m_stem, decoded(a).value_or(""), decoded(b).value_or("")));
        if (command == "W")
            return write(decoded(a), decoded(b), decoded(c)) ? "W 1" : "W 0";
        if (command == "D")
            return "D " + encoded(content());
        return "? unknown command";
    }

private:
    std::filesystem::path file() const { return m_folder.path() / ("f1" + m_stem + ".ini"); }

    std::string newCase(const std::string &field)
    {
        std::error_code error;
        std::filesystem::remove(file(), error);
        m_stem = std::to_string(++m_cases);
        return layDown(field) ? "F 1" : "F 0";
    }

    bool layDown(const std::string &field)
    {
        const auto bytes = decoded(field);
        std::error_code error;
        if (!bytes) {
            std::filesystem::remove(file(), error);
            return !error;
        }
        std::ofstream out(file(), std::ios::binary | std::ios::trunc);
        out << *bytes;
        out.close();
        return !out.fail();
    }

    // A value without text would be the removal of a key, which the store doesn't have.
    bool write(const std::optional<std::string> &section, const std::optional<std::string> &key,
               const std::optional<std::string> &value)
    {
        if (!section || !key || !value)
            return false;
        const unsigned lost = m_store.lostWrites();
        m_store.writeBytes(m_stem, *section, *key, *value);
        m_store.flush();
        return m_store.lostWrites() == lost;
    }

    std::optional<std::string> content() const
    {
        std::ifstream in(file(), std::ios::binary);
        if (!in)
            return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

    TemporaryFolder m_folder;
    Store m_store{m_folder.path()};
    std::string m_stem = "0";
    int m_cases = 0;
};

}

int main()
{
    Adapter adapter;
    for (std::string line; std::getline(std::cin, line);)
        if (!line.empty())
            std::cout << adapter.answer(line) << std::endl;
    return 0;
}
