// How long each screen takes to open on a full season: made, filled and laid out, and then painted as well.
#include "app/driver.h"
#include "app/screens.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace circuidex;

namespace {

void openScreen(benchmark::State &state, const QString &form, bool painted)
{
    QTemporaryDir folder;
    for (const QString &file : QDir(QStringLiteral(CIRCUIDEX_SAMPLE)).entryList({QStringLiteral("f1*")}))
        QFile::copy(QStringLiteral(CIRCUIDEX_SAMPLE "/") + file, folder.filePath(file));
    Driver driver(folder.path().toStdString(), Numbers(','));
    driver.execute(QStringLiteral("start"));
    driver.execute(QStringLiteral("set Form1.an 2004"));
    Screens &screens = driver.program().screens();
    for (auto _ : state) {
        screens.openFromMenu(form);
        if (painted)
            if (Screen *screen = screens.find(form))
                benchmark::DoNotOptimize(screen->grab());
        state.PauseTiming();
        screens.close(form);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}

// As the menus open it; the main screen is open all the time.
const bool allScreens = [] {
    for (const ScreenRow &row : screenRows())
        for (const bool painted : {false, true})
            if (row.name != u"Form1")
                benchmark::RegisterBenchmark((row.name.toStdString() + (painted ? "/painted" : "/opened")).c_str(),
                                             openScreen, row.name, painted)
                    ->Unit(benchmark::kMillisecond);
    return true;
}();

}
