// SPDX-License-Identifier: GPL-3.0-or-later
// How long a step through the calendar takes on the main screen when every Grand Prix has two pictures of two megapixels:
// files looked up, decoded, scaled and painted.
#include "app/driver.h"

#include <QDir>
#include <QPainter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace circuidex;

namespace {

// A photo's worth of detail, so that the decoder has something to do.
QImage photo(int number)
{
    QImage image(1633, 1225, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgb((x * number + y) & 255, (x ^ y) & 255, (x * y / 97 + 13 * number) & 255);
    }
    return image;
}

void fill(const QTemporaryDir &folder)
{
    for (const QString &name : QDir(QStringLiteral(CIRCUIDEX_SAMPLE)).entryList({QStringLiteral("f1*")}))
        QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/") + name, folder.filePath(name));
    QDir(folder.path()).mkpath(QStringLiteral("Photos/Circuits"));
    QDir(folder.path()).mkpath(QStringLiteral("Photos/Actu"));
    Store store(folder.path().toStdString());
    const WritableSeason season(store, "2005");
    for (int slot = 0; slot < gpSlots; ++slot) {
        const QString gp = QString::fromStdString(season.namegp(slot));
        photo(slot + 1).save(folder.filePath(QStringLiteral("Photos/Circuits/%1.JPG").arg(gp)), "JPG", 85);
        photo(slot + 31).save(folder.filePath(QStringLiteral("Photos/Actu/%12005.JPG").arg(gp)), "JPG", 85);
    }
}

void stepWithPictures(benchmark::State &state)
{
    QTemporaryDir folder;
    fill(folder);
    Driver driver(folder.path().toStdString(), Numbers(','));
    driver.execute(QStringLiteral("start"));
    Screen *main = driver.program().screens().find(QStringLiteral("Form1"));
    if (main->text(QStringLiteral("Image1")).isEmpty())
        state.SkipWithError("no picture is shown");
    QPixmap canvas(main->size());
    for (auto _ : state) {
        main->press(QStringLiteral("Command8"));
        main->render(&canvas);
    }
}
BENCHMARK(stepWithPictures)->Unit(benchmark::kMillisecond);

}
