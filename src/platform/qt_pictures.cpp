// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_pictures.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QPromise>
#include <QThreadPool>
#include <QtEndian>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace circuidex {

namespace {

constexpr qint64 mostBytes = 64 << 20;       // of a file
constexpr double mostPixels = 50e6;
constexpr double mostMemory = 100e6;         // bytes that decoding takes
constexpr double mostWork = 300e6;           // pixels of all passes over a picture
constexpr double mostPixelsAtFullSize = 16e6;
constexpr int mostChunks = 1 << 15;          // of a PNG; 64 MB in the shortest that are usual are half of them
constexpr int mostMegabytesAtOnce = 64;      // what one image may take, whatever the heading said

// What a file says of itself.
struct Heading {
    const char *format = nullptr; // Qt's name of it
    QSize size;
    double bytesPerPixel = 0; // that decoding takes, none when it goes by rows straight to the size that is shown
    qint64 passes = 1;        // over all pixels

    double pixels() const { return double(size.width()) * size.height(); }
    double work() const { return pixels() * double(passes); }
    bool bounded() const
    {
        return !size.isEmpty() && pixels() <= mostPixels && pixels() * bytesPerPixel <= mostMemory && work() <= mostWork;
    }
};

// The file, when it is an ordinary one of a bearable length. Nothing else is opened; a pipe put there meanwhile doesn't
// hold up either.
std::unique_ptr<QFile> opened(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const auto ordinary = [](const struct stat &about) { return S_ISREG(about.st_mode) && about.st_size <= mostBytes; };
    struct stat about{};
    if (path.contains(QChar(0)) || ::stat(name.constData(), &about) != 0 || !ordinary(about))
        return nullptr;
    const int handle = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (handle < 0)
        return nullptr;
    auto file = std::make_unique<QFile>();
    if (::fstat(handle, &about) == 0 && ordinary(about) &&
        file->open(handle, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return file;
    ::close(handle);
    return nullptr;
}

template <class Number>
int bigEndian(const QByteArray &bytes, qsizetype at)
{
    return int(std::min<qint64>(qFromBigEndian<Number>(bytes.constData() + at), 1 << 30));
}

Heading pngHeading(QFile &file)
{
    const QByteArray head = file.read(29);
    if (head.size() < 29 || head.mid(12, 4) != "IHDR")
        return {};
    const int depth = head.at(24), colours = head.at(25);
    Heading heading{"png", {bigEndian<quint32>(head, 16), bigEndian<quint32>(head, 20)}, 8};
    if (depth == 16)
        heading.bytesPerPixel = 16;
    else if (colours == 0 || colours == 3) // grey or a palette
        heading.bytesPerPixel = 5;
    else if (colours != 4 && head.at(28) == 0)
        heading.bytesPerPixel = 0;
    return heading;
}

Heading gifHeading(QFile &file)
{
    const QByteArray head = file.read(10);
    if (head.size() < 10)
        return {};
    const auto side = [&head](qsizetype at) { return quint8(head.at(at)) + 256 * quint8(head.at(at + 1)); };
    return {"gif", {side(6), side(8)}, 8};
}

// The formats whose heading Qt reads without reading more.
Heading headingByQt(QFile &file, const char *format, double bytesPerPixel)
{
    QImageReader reader(&file, format);
    reader.setAutoDetectImageFormat(false);
    return {format, reader.size(), bytesPerPixel};
}

// The next marker of a JPEG; 0 at the end, and after more rubbish than a sloppy writer leaves between two of them.
int nextMarker(QFile &file)
{
    char byte = 0;
    for (int skipped = 0; skipped < 4096 && file.getChar(&byte); ++skipped) {
        if (byte != '\xFF')
            continue;
        while (byte == '\xFF')
            if (++skipped == 4096 || !file.getChar(&byte))
                return 0;
        if (byte != 0)
            return quint8(byte);
    }
    return 0;
}

qint64 countScans(QFile &file)
{
    qint64 scans = 1;
    for (char last = 0; !file.atEnd();) {
        const QByteArray block = last + file.read(1 << 16);
        if (block.size() < 2)
            break;
        scans += block.count("\xFF\xDA");
        last = block.back();
    }
    return scans;
}

// What all coefficients of a JPEG take per pixel, for they are kept until the last scan has come.
double coefficientBytes(const QByteArray &frame)
{
    double blocks = 0, across = 1, down = 1;
    for (qsizetype at = 7; at < frame.size(); at += 3) {
        const int h = quint8(frame.at(at)) >> 4, v = frame.at(at) & 15;
        blocks += h * v;
        across = std::max<double>(across, h);
        down = std::max<double>(down, v);
    }
    return 2 * blocks / (across * down);
}

Heading jpegHeading(QFile &file)
{
    QByteArray frame; // precision, height, width, number of components, three bytes of each
    bool baseline = false;
    file.seek(2);
    for (int segment = 0; segment < 4096; ++segment) {
        const int marker = nextMarker(file);
        if (marker == 0 || marker == 0xD9)
            return {};
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8))
            continue;
        const QByteArray length = file.read(2);
        const qint64 left = length.size() == 2 ? bigEndian<quint16>(length, 0) - 2 : -1;
        if (left < 0)
            return {};
        if (marker == 0xDA)
            break;
        const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame) {
            frame = file.read(left);
            baseline = marker <= 0xC1;
        } else {
            file.skip(left);
        }
    }
    char inScan = 0;
    if (frame.size() < 9 || !file.getChar(&inScan))
        return {};
    Heading heading{"jpeg", {bigEndian<quint16>(frame, 3), bigEndian<quint16>(frame, 1)}};
    if (baseline && inScan == frame.at(5))
        return heading;
    heading.bytesPerPixel = coefficientBytes(frame);
    heading.passes = countScans(file);
    return heading;
}

Heading headingOf(QFile &file)
{
    const QByteArray head = file.peek(12);
    if (head.startsWith("\xFF\xD8\xFF"))
        return jpegHeading(file);
    if (head.startsWith("\x89PNG\r\n\x1A\n"))
        return pngHeading(file);
    if (head.startsWith("GIF87a") || head.startsWith("GIF89a"))
        return gifHeading(file);
    if (head.startsWith("BM"))
        return headingByQt(file, "bmp", 8);
    if (head.startsWith("RIFF") && head.endsWith("WEBP"))
        return headingByQt(file, "webp", 8);
    return {};
}

// An opened picture within all bounds, at its begin; no format when it is none.
struct Source {
    std::unique_ptr<QFile> file;
    Heading heading;
};

Source sourceOf(const QString &path)
{
    static const QList<QByteArray> known = QImageReader::supportedImageFormats();
    Source source{opened(path), {}};
    if (!source.file)
        return {};
    source.heading = headingOf(*source.file);
    if (!source.heading.format || !known.contains(source.heading.format) || !source.heading.bounded() ||
        !source.file->seek(0))
        return {};
    return source;
}

double secondsAtWork()
{
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

// A file that ends when its decoder has worked on it for many times as long as a picture of its size takes: one may go on
// for minutes behind the last pixel. The thread's own time counts, so that a busy machine refuses nothing.
class Paced : public QIODevice {
public:
    Paced(QIODevice &inner, double pixels) : m_inner(inner), m_until(secondsAtWork() + 0.03 + pixels * 160e-9)
    {
        open(ReadOnly | Unbuffered);
    }
    qint64 size() const override { return m_inner.size(); }
    bool seek(qint64 at) override { return QIODevice::seek(at) && m_inner.seek(at); }

protected:
    qint64 readData(char *to, qint64 most) override
    {
        return secondsAtWork() > m_until ? -1 : m_inner.read(to, most);
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QIODevice &m_inner;
    double m_until;
};

// A PNG without its texts and profiles, which aren't shown and may unpack to a thousand times their length.
QByteArray essentialChunks(QFile &file)
{
    QByteArray kept;
    kept.reserve(file.size());
    kept = file.read(8);
    for (int chunk = 0; chunk < mostChunks; ++chunk) {
        const QByteArray head = file.read(8);
        if (head.size() < 8)
            break;
        const qint64 length = qint64(bigEndian<quint32>(head, 0)) + 4; // and the check sum
        const bool essential = (head.at(4) & 0x20) == 0 || head.endsWith("tRNS");
        if (essential)
            kept += head + file.read(std::min(length, mostBytes));
        else if (file.skip(length) < length)
            break;
    }
    return kept;
}

// The size to decode to: a picture too large to be held as a whole is taken at half its size at the most.
QSize decodedSize(const QSize &full, const QSize &room, double pixels)
{
    const bool fits = full.width() <= room.width() && full.height() <= room.height();
    QSize size = fits ? full : full.scaled(room, Qt::KeepAspectRatio);
    if (pixels > mostPixelsAtFullSize)
        size = size.boundedTo(full / 2 - QSize(1, 1));
    return size.expandedTo({1, 1});
}

QThreadPool &decoders()
{
    static QThreadPool *const pool = [] {
        auto *made = new QThreadPool(QCoreApplication::instance());
        made->setMaxThreadCount(2);
        return made;
    }();
    return *pool;
}

// Held while a picture is decoded that takes memory beyond what is shown: one of them at a time.
std::unique_lock<std::mutex> turnOf(const Source &source)
{
    static std::mutex large;
    constexpr double smallMemory = 5e6; // bytes
    const bool inMemory = source.heading.format == QByteArrayView("png"); // the file itself
    const double takes = source.heading.pixels() * source.heading.bytesPerPixel + (inMemory ? double(source.file->size()) : 0);
    return takes > smallMemory ? std::unique_lock(large) : std::unique_lock<std::mutex>();
}

std::atomic<bool> startedAny = false;

}

bool canShowPicture(const QString &path)
{
    return sourceOf(path).heading.format != nullptr;
}

QSize sizeOfPicture(const QString &path)
{
    const Source source = sourceOf(path);
    if (!source.file || source.heading.format != QByteArrayView("jpeg")) // only a camera's picture may be turned
        return source.heading.size;
    QImageReader reader(source.file.get(), source.heading.format);
    reader.setAutoDetectImageFormat(false);
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    return turned ? source.heading.size.transposed() : source.heading.size;
}

bool isQuickPicture(const QString &path)
{
    const Source source = sourceOf(path);
    return !source.file || (source.heading.work() <= 300e3 && source.file->size() <= 512 << 10);
}

QImage scaledPicture(const QString &path, QSize room)
{
    const Source source = room.isEmpty() ? Source() : sourceOf(path);
    if (!source.file)
        return {};
    const auto turn = turnOf(source);
    QBuffer chunks;
    if (source.heading.format == QByteArrayView("png")) {
        chunks.setData(essentialChunks(*source.file));
        chunks.open(QIODevice::ReadOnly);
    }
    QImageReader::setAllocationLimit(mostMegabytesAtOnce);
    Paced paced(chunks.isOpen() ? static_cast<QIODevice &>(chunks) : *source.file, source.heading.work());
    QImageReader reader(&paced, source.heading.format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize size = decodedSize(source.heading.size, turned ? room.transposed() : room, source.heading.pixels());
    if (size != source.heading.size)
        reader.setScaledSize(size);
    const QImage image = reader.read();
    if (image.isNull() || (image.width() <= room.width() && image.height() <= room.height()))
        return image;
    return image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

QFuture<QImage> startPicture(const QString &path, QSize room)
{
    const auto promise = std::make_shared<QPromise<QImage>>();
    promise->start();
    startedAny = true;
    decoders().start([promise, path, room] {
        if (!promise->isCanceled())
            promise->addResult(scaledPicture(path, room));
        promise->finish();
    });
    return promise->future();
}

bool awaitPictures()
{
    if (!startedAny.exchange(false))
        return false;
    decoders().waitForDone();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::FutureCallOut);
    return true;
}

}
