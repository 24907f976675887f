// Every screen of the program opens, shows itself and closes: on full seasons, in an empty folder, on files that are no
// seasons, and in a folder that is gone.
#include "app/driver.h"
#include "platform/qt_platform.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

using namespace circuidex;

namespace {

void write(const QTemporaryDir &folder, const char *name, const std::string &bytes)
{
    QFile file(folder.filePath(QString::fromUtf8(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes.data(), static_cast<qint64>(bytes.size())), static_cast<qint64>(bytes.size()));
}

std::string randomBytes(std::size_t size)
{
    std::mt19937 random(20051016);
    std::string bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

// Absurd values under real keys.
std::string absurdSeason()
{
    std::string text = "[N°]\r\n";
    for (int n = 0; n < 40; ++n)
        for (const char *key : {"nom", "ecurie", "nbpts", "vic", "pol", "podiums", "ptstot", "nbgp", "path", "pi"})
            text += key + std::to_string(n) + "=" + (n % 3 == 0 ? std::string(300, 'x') : n % 3 == 1 ? "1e308" : "-\\..\\") + "\r\n";
    text += "[gp]\r\nnogp=99999999999999999999\r\n";
    for (int k = -5; k < 40; ++k)
        text += "namegp" + std::to_string(k) + "=Monaco\r\n";
    text += "[podium]\r\n";
    for (int place = 1; place <= 8; ++place)
        text += "podium" + std::to_string(place) + "Monaco=" + (place % 2 == 0 ? "999999999" : "abc") + "\r\n";
    text += "[bareme]\r\n1=beaucoup\r\n2=1e400\r\n";
    return text;
}

struct Folder {
    const char *name;
    void (*fill)(QTemporaryDir &);
};

void copySample(QTemporaryDir &folder)
{
    for (const char *name : {"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"})
        ASSERT_TRUE(QFile::copy(QString::fromUtf8(CIRCUIDEX_SAMPLE "/") + QString::fromUtf8(name),
                                folder.filePath(QString::fromUtf8(name))));
}

void scatterBytes(QTemporaryDir &folder)
{
    for (const char *name : {"f12005.ini", "f1ARCHIVES.ini", "f1galerie.ini", "Année"})
        write(folder, name, randomBytes(20000));
}

void writeHuge(QTemporaryDir &folder)
{
    std::string text = "[gp]\r\nnamegp0=" + std::string(100000, 'M') + "\r\n";
    while (text.size() < 10'000'000)
        text += std::string(100000, 'k') + "=" + std::string(100000, 'v') + "\r\n";
    write(folder, "f12005.ini", text);
}

const Folder folders[] = {
    {"sample", copySample},
    {"empty", [](QTemporaryDir &) {}},
    {"bytes", scatterBytes},
    {"huge", writeHuge},
    {"absurd", [](QTemporaryDir &folder) { write(folder, "f12005.ini", absurdSeason()); }},
    {"gone", [](QTemporaryDir &folder) { folder.remove(); }},
};

class EveryScreen : public testing::TestWithParam<Folder> {};

TEST_P(EveryScreen, OpensAndCloses)
{
    QTemporaryDir folder;
    GetParam().fill(folder);
    Driver driver(folder.path().toStdString(), Numbers(','));
    const auto say = [&](const QString &command) { return driver.execute(command).value_or(QString()).toStdString(); };
    ASSERT_EQ(say(QStringLiteral("start")), "ok");
    Screens &screens = driver.program().screens();
    for (const ScreenRow &row : screens.rows()) {
        SCOPED_TRACE(row.name.toStdString());
        if (row.name == u"Form1")
            continue;
        EXPECT_EQ(say(QStringLiteral("open ") + row.name), "ok");
        EXPECT_EQ(say(QStringLiteral("settle")), "ok");
        const Screen *screen = screens.find(row.name);
        if (row.name == u"Form33") { // with no number to explain it closes by itself
            EXPECT_EQ(screen, nullptr);
            continue;
        }
        ASSERT_NE(screen, nullptr);
        EXPECT_FALSE(const_cast<Screen *>(screen)->grab().isNull());
        for (Table *table : screen->tables())
            QAbstractItemModelTester(&table->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (const QString &control : screen->controlNames())
            for (const char *command : {"get ", "tip ", "geom ", "back ", "tag "}) {
                const QString reference = row.name + u'.' + control;
                EXPECT_TRUE(driver.execute(QString::fromLatin1(command) + reference).has_value());
            }
        say(QStringLiteral("close ") + row.name);
        EXPECT_EQ(say(QStringLiteral("isopen ") + row.name), "no");
    }
    EXPECT_EQ(say(QStringLiteral("messages")), "");
}

INSTANTIATE_TEST_SUITE_P(Folders, EveryScreen, testing::ValuesIn(folders),
                         [](const auto &folder) { return std::string(folder.param.name); });

// Changes that can't be kept are said on the quiet line, and no more once they can be again.
TEST(LostWrites, AreSaidQuietly)
{
    QTemporaryDir folder;
    copySample(folder);
    Driver driver(folder.path().toStdString(), Numbers());
    const auto say = [&](const char *command) { return driver.execute(QString::fromUtf8(command)).value_or(QString()).toStdString(); };
    say("start");
    EXPECT_EQ(say("get Form1.nonconservees"), "");
    QFile::remove(folder.filePath(QStringLiteral("f12005.ini")));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("f12005.ini"))); // nothing can be written there
    say("write f12005.ini [gp] nogp=3");
    EXPECT_EQ(say("get Form1.nonconservees"), "Attention : les modifications ne sont pas conservées.");
    EXPECT_EQ(say("messages"), "");
    ASSERT_TRUE(QDir(folder.path()).rmdir(QStringLiteral("f12005.ini")));
    say("write f12005.ini [gp] nogp=3");
    EXPECT_EQ(say("get Form1.nonconservees"), "");
    EXPECT_EQ(say("read f12005.ini [gp] nogp"), "3");
}

// "Imprimer" gives a page with what the screen shows.
TEST(Printing, MakesOnePage)
{
    QTemporaryDir folder;
    copySample(folder);
    Driver driver(folder.path().toStdString(), Numbers());
    driver.execute(QStringLiteral("start"));
    const QString file = folder.filePath(QStringLiteral("page.pdf"));
    ASSERT_TRUE(printScreen(*driver.program().screens().find(QStringLiteral("Form1")), file));
    QFile page(file);
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QByteArray bytes = page.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_GT(bytes.size(), 5000);
}

}
