// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The whole program on a folder of a test's own, with files of the sample, spoken to by the commands of the driver.
#include "app/driver.h"
#include "store/temporary_folder.h"

#include <gtest/gtest.h>

namespace circuidex::test {

inline std::string answer(Driver &driver, const std::string &command)
{
    return driver.execute(QString::fromStdString(command)).value_or(QString()).toStdString();
}

inline void copySample(const TemporaryFolder &folder, std::initializer_list<const char *> files)
{
    for (const char *name : files)
        std::filesystem::copy_file(std::filesystem::path(CIRCUIDEX_SAMPLE) / name, folder / name);
}

class DrivenProgram : public testing::Test {
protected:
    explicit DrivenProgram(std::initializer_list<const char *> files)
    {
        copySample(folder, files);
        driver.emplace(folder.path(), Numbers(','));
        say("start");
    }

    std::string say(const std::string &command) { return answer(*driver, command); }
    Screen &screen(const char *name) { return *driver->program().screens().find(QString::fromLatin1(name)); }
    Screen &open(const char *name) { return *driver->program().screens().open(QString::fromLatin1(name)); }

    TemporaryFolder folder;
    std::optional<Driver> driver;
};

}
