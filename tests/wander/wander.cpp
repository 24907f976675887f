// SPDX-License-Identifier: GPL-3.0-or-later
// wander SAMPLE STEPS [SEED]: opens every screen and then uses the program at random, as a child at the keyboard would,
// on a full season, on half a season, in an empty folder and on damaged files, so many steps in all. It must not crash,
// hang or trip a sanitizer. The commands of the driver go to wander.log, which circuidex-driver repeats: the last line
// is the one that was at work.
#include "app/driver.h"
#include "results/amending.h"
#include "results/navigation.h"
#include "shell/look.h"
#include "store/temporary_folder.h"

#include <QApplication>
#include <QImage>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <unistd.h>

using namespace circuidex;
using test::TemporaryFolder;
namespace fs = std::filesystem;

namespace {

constexpr int secondsPerStep = 60; // a hang; some steps open a screen on ten megabytes of hostile data
constexpr int stepsPerProgram = 2500; // then another folder, so that all start from what is told of them
constexpr qsizetype mostScreens = 10; // open at once

using Random = std::mt19937;

int below(Random &random, qsizetype count)
{
    return static_cast<int>(random() % static_cast<unsigned long>(count));
}

void fillWhole(const fs::path &sample, const fs::path &folder, Random &)
{
    fs::copy(sample, folder, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
}

// The last season up to its ninth race; the others are taken back by the program itself.
void fillHalf(const fs::path &sample, const fs::path &folder, Random &random)
{
    fillWhole(sample, folder, random);
    Store store(folder);
    QueuedDialogs dialogs;
    results::MainRecord main(store, dialogs);
    main.an.set("2005");
    for (int slot = 18; slot > 8; --slot) {
        main.Label40.set(std::to_string(slot));
        results::showGrandPrix(main);
        results::cancelGrandPrix(main);
    }
}

void fillNothing(const fs::path &, const fs::path &, Random &) { }

// Files cut off, bytes changed in all of them, absurd numbers behind real keys.
void fillDamaged(const fs::path &sample, const fs::path &folder, Random &random)
{
    fillWhole(sample, folder, random);
    for (const auto &entry : fs::directory_iterator(folder)) {
        if (!entry.is_regular_file())
            continue;
        std::string bytes = test::content(entry.path());
        if (bytes.empty())
            continue;
        for (std::size_t i = 0; i < bytes.size() / 100; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        for (const char *absurd : {"=-1", "=99999999999999999999", "=1e308", "=vrai;\"", "="})
            if (const auto at = bytes.find('=', random() % bytes.size()); at != std::string::npos)
                bytes.insert(at, absurd);
        if (random() % 4 == 0)
            bytes.resize(random() % bytes.size());
        test::layDown(entry.path(), bytes);
    }
}

constexpr struct {
    const char *name;
    void (*fill)(const fs::path &, const fs::path &, Random &);
} folders[] = {{"full", fillWhole}, {"half", fillHalf}, {"empty", fillNothing}, {"damaged", fillDamaged}};

const QStringList texts{{},
                        u"0"_s,
                        u"1"_s,
                        u"5"_s,
                        u"26"_s,
                        u"19"_s,
                        u"-1"_s,
                        u"2005"_s,
                        u"2004"_s,
                        u"99999999999999999999"_s,
                        u"1,5"_s,
                        u"1e308"_s,
                        u"Monaco"_s,
                        u"Fernando Alonso"_s,
                        u"Renault"_s,
                        u"vrai"_s,
                        u"é = \"ç\" ;[x]"_s,
                        u"../../x"_s,
                        u"31/02"_s,
                        u"14/03"_s,
                        u"galerie"_s,
                        u"<b>x</b>"_s,
                        QString(4000, u'W'),
                        u"\\n\\n\\t"_s,
                        u"\u4e16\u754c"_s};
const QStringList keys{u"Enter"_s,  u"Space"_s,     u"Escape"_s, u"Tab"_s,      u"Left"_s, u"Right"_s,
                       u"Up"_s,     u"Down"_s,      u"PageUp"_s, u"PageDown"_s, u"Home"_s, u"End"_s,
                       u"Delete"_s, u"Backspace"_s, u"F1"_s,     u"a"_s,        u"7"_s,    u","_s};

class Wanderer {
public:
    Wanderer(const fs::path &folder, Random &random, std::ofstream &log)
        : m_folder(folder), m_random(random), m_log(log), m_driver(folder, Numbers(','))
    {
        m_log << "# " << folder << '\n';
        say(u"start"_s);
    }

    void openEveryScreen()
    {
        const ScreenRows rows = screens().rows(); // one screen ends the program, and its rows with it
        for (const ScreenRow &row : rows) {
            if (row.name == u"Form1")
                continue;
            say(u"open "_s + row.name);
            say(u"settle"_s);
            say(u"close "_s + row.name);
            restartWhenEnded();
        }
    }

    void step()
    {
        act(below(m_random, 100));
        restartWhenEnded();
    }

private:
    Screens &screens() { return m_driver.program().screens(); }
    const QString &any(const QStringList &of) { return of[below(m_random, of.size())]; }

    void say(const QString &command)
    {
        m_log << command.toStdString() << '\n';
        m_log.flush();
        alarm(secondsPerStep);
        m_driver.execute(command);
        alarm(0);
    }

    QString anyControl()
    {
        const QStringList open = screens().openNames();
        if (open.isEmpty())
            return u"Form1.Command1"_s;
        const QString screen = any(open);
        const QStringList controls = screens().find(screen)->controlNames();
        return screen + u'.' + (controls.isEmpty() ? QString() : any(controls));
    }

    void openAny()
    {
        if (screens().openNames().size() > mostScreens)
            closeAny();
        say(u"open "_s +
            screens().rows()[static_cast<std::size_t>(below(m_random, qsizetype(screens().rows().size())))].name);
    }

    void closeAny()
    {
        QStringList open = screens().openNames();
        open.removeAll(u"Form1"_s); // whose end is the program's
        if (!open.isEmpty())
            say(u"close "_s + any(open));
    }

    void answer()
    {
        const QString folder = QString::fromStdString(m_folder.string());
        say(u"answer "_s +
            any({u"oui"_s,
                 u"non"_s,
                 {},
                 folder + u"/photo.png"_s,
                 folder + u"/f12005.ini"_s,
                 folder,
                 folder + u"/nouveau.png"_s,
                 folder + u"/absent.avi"_s}));
    }

    // Percents of what a person does.
    void act(int of100)
    {
        if (of100 < 40)
            say(u"press "_s + anyControl());
        else if (of100 < 52)
            openAny();
        else if (of100 < 66)
            say(u"set "_s + anyControl() + u' ' + any(texts));
        else if (of100 < 76)
            say(u"key "_s + anyControl() + u' ' + any(keys));
        else if (of100 < 81)
            say(u"double "_s + anyControl());
        else if (of100 < 85)
            say(u"hover "_s + anyControl());
        else if (of100 < 90)
            closeAny();
        else if (of100 < 94)
            answer();
        else if (of100 < 97)
            say(u"wait 20"_s);
        else if (of100 < 98)
            say(u"size "_s + anyControl().section(u'.', 0, 0) + any({u" 1 1"_s, u" 4000 3000"_s, u" 30000 20000"_s}));
        else if (of100 < 99)
            say(u"write f12005.ini [gp] nogp="_s + any(texts));
        else
            say(u"settle"_s);
    }

    void restartWhenEnded()
    {
        if (m_driver.platform().ended || !screens().isOpen(u"Form1"_s))
            say(u"start"_s);
    }

    fs::path m_folder;
    Random &m_random;
    std::ofstream &m_log;
    Driver m_driver;
};

void onHang(int)
{
    constexpr char text[] = "wander: a step hangs; it is the last line of wander.log\n";
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text, sizeof text - 1);
    std::abort();
}

}

int main(int argc, char **argv)
{
    if (argc < 3) {
        std::cerr << "wander SAMPLE STEPS [SEED]\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    look::dress(application);
    std::signal(SIGALRM, onHang);
    const int steps = std::atoi(argv[2]);
    Random random(argc > 3 ? static_cast<unsigned>(std::atoi(argv[3])) : 20051016u);
    std::ofstream log("wander.log");
    for (int done = 0, which = 0; done < steps; ++which) {
        const auto &kind = folders[which % std::ssize(folders)];
        const TemporaryFolder folder;
        kind.fill(argv[1], folder.path(), random);
        QImage(40, 30, QImage::Format_RGB32).save(QString::fromStdString((folder / "photo.png").string()));
        Wanderer wanderer(folder.path(), random, log);
        if (which < std::ssize(folders))
            wanderer.openEveryScreen();
        const int end = std::min(steps, done + std::min(stepsPerProgram, (steps + 3) / 4));
        for (; done < end; ++done)
            wanderer.step();
        std::cout << kind.name << ": " << done << " steps" << std::endl;
    }
    return 0;
}
