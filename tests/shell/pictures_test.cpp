// SPDX-License-Identifier: GPL-3.0-or-later
// Which files are shown as pictures, and how large ones come to their frame.
#include "platform/qt_pictures.h"
#include "shell/widgets.h"
#include "store/temporary_folder.h"

#include <QImageReader>
#include <QtEndian>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class Pictures : public testing::Test {
protected:
    QString at(const char *name) const { return QString::fromStdString((folder / name).string()); }
    QString saved(const char *name, const char *format, int width, int height) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        EXPECT_TRUE(image.save(at(name), format)) << format;
        return at(name);
    }
    QString laid(const char *name, const std::string &bytes) const
    {
        layDown(folder / name, bytes);
        return at(name);
    }
    TemporaryFolder folder;
};

constexpr char png[] = "\x89PNG\r\n\x1A\n\0\0\0\rIHDR";

std::string pngOf(quint32 width, quint32 height, int depth, int colours, int interlaced)
{
    std::string bytes(png, sizeof png - 1);
    for (const quint32 side : {qToBigEndian(width), qToBigEndian(height)})
        bytes.append(reinterpret_cast<const char *>(&side), sizeof side);
    for (const int each : {depth, colours, 0, 0, interlaced})
        bytes += static_cast<char>(each);
    return bytes;
}

TEST_F(Pictures, OfTheProgramsFormatsAreShownWhateverTheirName)
{
    for (const char *format : {"JPG", "PNG", "BMP", "WEBP"}) {
        if (!QImageReader::supportedImageFormats().contains(QByteArray(format).toLower()))
            continue; // the system lacks WebP
        const QString path = saved("photo.txt", format, 60, 40);
        EXPECT_TRUE(canShowPicture(path)) << format;
        EXPECT_EQ(scaledPicture(path, {30, 30}).size(), QSize(30, 20)) << format;
        EXPECT_EQ(scaledPicture(path, {90, 90}).size(), QSize(60, 40)) << format;
    }
    const QString gif = laid("photo.png", std::string("GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35));
    EXPECT_EQ(scaledPicture(gif, {9, 9}).size(), QSize(1, 1));
}

TEST_F(Pictures, OfOtherKindsAreNot)
{
    saved("x.ppm", "PPM", 9, 9);
    saved("x.ico", "ICO", 9, 9);
    laid("x.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'><image href='/dev/zero'/></svg>");
    laid("empty.png", "");
    saved("long.png", "PNG", 9, 9);
    std::filesystem::resize_file(folder / "long.png", (64 << 20) + 1);
    ASSERT_EQ(::mkfifo((folder / "pipe.png").c_str(), 0600), 0);
    std::filesystem::create_directory(folder / "folder.png");
    std::filesystem::create_symlink("/dev/zero", folder / "device.png");
    for (const char *name : {"x.ppm", "x.ico", "x.svg", "empty.png", "long.png", "pipe.png", "folder.png", "device.png", "none"}) {
        EXPECT_FALSE(canShowPicture(at(name))) << name;
        EXPECT_TRUE(scaledPicture(at(name), {9, 9}).isNull()) << name;
    }
}

// As a camera stores them that was held upright: a quarter turn to the right, in a note before the picture.
TEST_F(Pictures, AreTurnedAsTheirCameraWasHeld)
{
    saved("x.jpg", "JPG", 40, 20);
    const std::string note("\xFF\xE1\0\x22" "Exif\0\0MM\0*\0\0\0\x8\0\1\1\x12\0\3\0\0\0\1\0\6\0\0\0\0\0\0", 36);
    laid("turned.jpg", content(folder / "x.jpg").insert(2, note));
    EXPECT_EQ(sizeOfPicture(at("x.jpg")), QSize(40, 20));
    EXPECT_EQ(sizeOfPicture(at("turned.jpg")), QSize(20, 40));
    EXPECT_EQ(scaledPicture(at("turned.jpg"), {90, 90}).size(), QSize(20, 40));
    EXPECT_EQ(sizeOfPicture(at("none.jpg")), QSize());
}

TEST_F(Pictures, AreBoundedByTheirHeading)
{
    constexpr struct {
        quint32 width, height;
        int depth, colours, interlaced;
        bool shown;
    } cases[] = {
        {10000, 5000, 8, 2, 0, true},  {10000, 5001, 8, 2, 0, false}, // by rows: 50 million pixels
        {4000, 3000, 8, 6, 1, true},   {5000, 3000, 8, 6, 1, false},  // as a whole: 100 MB
        {2500, 2500, 16, 2, 0, true},  {3000, 2500, 16, 2, 0, false},
        {5000, 4000, 8, 3, 0, true},   {5000, 4001, 1, 0, 0, false},
        {60000, 60000, 8, 2, 0, false},
        {0, 9, 8, 2, 0, false},        {0xFFFFFFFF, 0xFFFFFFFF, 8, 2, 0, false},
    };
    for (const auto &c : cases)
        EXPECT_EQ(canShowPicture(laid("x.png", pngOf(c.width, c.height, c.depth, c.colours, c.interlaced))), c.shown)
            << c.width << " x " << c.height;
    EXPECT_FALSE(canShowPicture(laid("x.gif", "GIF89a\xFF\xFF\xFF\xFF")));
    // A progressive JPEG is gone over once a scan.
    const std::string frame("\xFF\xD8\xFF\xC2\0\x11\x8\x3\xE8\x3\xE8\3\1\x22\0\2\x11\0\3\x11\0", 21), scan("\xFF\xDA\0\x8\1\1", 6);
    std::string scans;
    for (int i = 0; i < 300; ++i)
        scans += scan;
    EXPECT_TRUE(canShowPicture(laid("x.jpg", frame + scans)));
    EXPECT_FALSE(canShowPicture(laid("x.jpg", frame + scans + scan)));
}

TEST_F(Pictures, ComeToTheirFrameOffTheEventLoopWhenTheyAreLarge)
{
    const auto middle = [](Picture &picture) { return picture.grab().toImage().pixelColor(picture.rect().center()); };
    for (const int width : {200, 3000}) {
        auto picture = std::make_unique<Picture>();
        picture->resize(90, 90);
        picture->setPath(saved("x.png", "PNG", width, width));
        const QColor first = middle(*picture);
        EXPECT_EQ(first == QColor(Qt::red), width == 200) << width;
        EXPECT_EQ(awaitPictures(), width == 3000);
        EXPECT_EQ(middle(*picture), QColor(Qt::red)) << width;
        picture->setPath({}); // while nothing is known of it
        EXPECT_NE(middle(*picture), QColor(Qt::red));
        picture->setPath(at("x.png"));
        middle(*picture);
        picture.reset(); // and while it is decoded
        awaitPictures();
    }
}

}
