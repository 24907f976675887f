// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_download.h"

#include "online/test_server.h"
#include "store/temporary_folder.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace circuidex;
using namespace circuidex::test;
using namespace std::chrono_literals;

namespace {

const QByteArray film = QByteArray("0123456789abcdef").repeated(100'000);

class Download : public ::testing::Test {
protected:
    Download() : download(1s), said(&download, &QtDownload::DownloadStatus), ends(&download, &QtDownload::ended) { }

    // True when it came whole.
    bool fetch(const QString &source, bool flag = true)
    {
        download.StartDownload(source, place(), flag);
        ends.clear(); // of one that gave way
        return wait();
    }
    bool wait()
    {
        EXPECT_TRUE(ends.count() > 0 || ends.wait(10'000));
        EXPECT_FALSE(download.running());
        return !ends.isEmpty() && ends.last()[0].toBool();
    }
    QString place() const { return QString::fromStdString((folder / "a.avi").string()); }
    bool thereIs(const char *name) const { return std::filesystem::exists(folder / name); }

    TemporaryFolder folder;
    TestServer server;
    QtDownload download;
    QSignalSpy said, ends;
};

TEST_F(Download, BringsTheFileWholeAndTellsHowFar)
{
    server.lay("/videos/Saint Marin é.avi", {.content = film});
    server.lay("/c", {.content = film, .chunked = true});
    QSignalSpy progress(&download, &QtDownload::DownloadProgress);
    EXPECT_TRUE(fetch(server.address("/videos/Saint Marin é.avi")));
    EXPECT_EQ(content(folder / "a.avi"), film.toStdString());
    EXPECT_EQ(progress.last()[0].toUInt(), 100u);
    EXPECT_EQ(progress.last()[1].toInt(), film.size());
    EXPECT_EQ(progress.last()[2].toInt(), film.size());
    std::filesystem::remove(folder / "a.avi");
    EXPECT_TRUE(fetch(server.address("/c")));
    EXPECT_EQ(content(folder / "a.avi"), film.toStdString());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.avi"});
}

TEST_F(Download, FailsWithoutAFile)
{
    const struct {
        const char *path;
        Page page;
        QString said;
    } cases[] = {
        {"/cut", {.content = film, .sent = 1000}, "Échec"},
        {"/told more", {.content = "abc", .told = 5}, "Échec"},
        {"/silent", {.content = film, .sent = 1000, .silent = true}, "ne répond plus"},
        {"/never answers", {.content = film, .sent = 0, .silent = true}, "ne répond plus"},
        {"/elsewhere", {.status = 302, .location = "file:///etc/passwd"}, "adresse refusée"},
        {"/refused", {.content = "non", .status = 403}, "403"},
        {"/round", {.status = 302, .location = "/round"}, "cinq fois"},
    };
    for (const auto &[path, page, words] : cases) {
        SCOPED_TRACE(path);
        server.lay(path, page);
        EXPECT_FALSE(fetch(server.address(path)));
        EXPECT_FALSE(thereIs("a.avi"));
        EXPECT_TRUE(said.last()[0].toString().contains(words)) << said.last()[0].toString().toStdString();
    }
    EXPECT_FALSE(fetch(server.address("/missing")));
    EXPECT_TRUE(said.last()[0].toString().contains("404"));
    server.close();
    EXPECT_FALSE(fetch(server.address("/nobody there")));
    EXPECT_FALSE(fetch("ftp://127.0.0.1/a"));
    EXPECT_FALSE(fetch(""));
    EXPECT_FALSE(thereIs("a.avi"));
}

TEST_F(Download, FollowsAndGoesOnWhereItStood)
{
    server.lay("/a.avi", {.content = film, .etag = "\"1\"", .sent = 1'000'000, .told = film.size()});
    server.lay("/b", {.status = 301, .location = "/a.avi"});
    EXPECT_FALSE(fetch(server.address("/b")));
    ASSERT_TRUE(thereIs("a.avi.part"));
    const auto kept = std::filesystem::file_size(folder / "a.avi.part");
    server.lay("/a.avi", {.content = film, .etag = "\"1\""});
    server.asked.clear();
    EXPECT_TRUE(fetch(server.address("/b")));
    EXPECT_EQ(content(folder / "a.avi"), film.toStdString());
    const QByteArray range = kept > 0 ? " bytes=" + QByteArray::number(quint64(kept)) + "-" : QByteArray();
    EXPECT_EQ(server.asked, (QList<QByteArray>{"GET /b" + range, "GET /a.avi" + range}));
    EXPECT_GT(kept, 0u);
}

TEST_F(Download, StopsWhenTold)
{
    server.lay("/a.avi", {.content = film, .etag = "\"1\"", .sent = 500'000, .told = film.size(), .silent = true});
    QObject::connect(&download, &QtDownload::DownloadProgress, [this] { download.CancelDownload(); });
    EXPECT_FALSE(fetch(server.address("/a.avi")));
    EXPECT_EQ(said.last()[0].toString(), "Arrêté");
    EXPECT_FALSE(thereIs("a.avi"));
    download.CancelDownload();
    QCoreApplication::processEvents();
    EXPECT_EQ(ends.count(), 1);
    QObject::disconnect(&download, &QtDownload::DownloadProgress, nullptr, nullptr);
    server.lay("/b.avi", {.content = "b"});
    download.StartDownload(server.address("/a.avi"), place(), true); // gives way to the next one
    EXPECT_TRUE(fetch(server.address("/b.avi"), false));
    EXPECT_EQ(content(folder / "a.avi"), "b");
}

}

int main(int argc, char **argv)
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
        ADD_FAILURE() << "Qt: " << text.toStdString();
    });
    QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
