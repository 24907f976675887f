// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen of the program opens, shows itself and closes: on full seasons, in an empty folder, on files that are no
// seasons, and in a folder that is gone.
#include "shell/driven_program.h"
#include "shell/page.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QScrollBar>
#include <QToolTip>
#include <random>

using namespace circuidex;
using namespace circuidex::test;

namespace {

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
            text += key + std::to_string(n) + "=" +
                (n % 3 == 0       ? std::string(300, 'x')
                     : n % 3 == 1 ? "1e308"
                                  : "-\\..\\") +
                "\r\n";
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
    void (*fill)(const TemporaryFolder &);
};

const auto sampleFiles = {"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"};

void scatterBytes(const TemporaryFolder &folder)
{
    for (const char *name : {"f12005.ini", "f1ARCHIVES.ini", "f1galerie.ini", "Année"})
        layDown(folder / name, randomBytes(20000));
}

void writeHuge(const TemporaryFolder &folder)
{
    std::string text = "[gp]\r\nnamegp0=" + std::string(100000, 'M') + "\r\n";
    while (text.size() < 10'000'000)
        text += std::string(100000, 'k') + "=" + std::string(100000, 'v') + "\r\n";
    layDown(folder / "f12005.ini", text);
}

constexpr const char *markup = "<b>x</b><img src=none>";

// A season whose marker, drivers, teams and races are called by markup.
void writeMarkup(const TemporaryFolder &folder)
{
    copySample(folder, {"f1ARCHIVES.ini"});
    QString text = QString::fromLatin1(content(std::filesystem::path(CIRCUIDEX_SAMPLE) / "f12005.ini").c_str());
    for (const char *name : {"Michael Schumacher", "Fernando Alonso", "Ferrari", "Renault"})
        text.replace(QLatin1String(name), QLatin1String(markup));
    text.replace(QLatin1String("Monaco"), QLatin1String("<i>Monaco<br>")).replace(QLatin1String("Chine"), QLatin1String("<u>"));
    layDown(folder / "f1<b>2005<b>.ini", text.toLatin1().toStdString());
    layDown(folder / "Année", "<b>2005<b>");
}

// While it lives, each label that comes to be seen must have been plain before it got its text.
class PlainFromTheBegin : public QObject {
public:
    PlainFromTheBegin() { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *label = event->type() == QEvent::Polish ? qobject_cast<QLabel *>(watched) : nullptr;
        const bool late = label && !label->text().isEmpty() && label->textFormat() != Qt::PlainText;
        EXPECT_FALSE(late) << label->text().toStdString();
        return false;
    }
};

// No label of the screen, no tip over it and no box in front of it takes a name for markup.
void expectPlainText(QWidget &screen)
{
    QToolTip::showText(QPoint(5, 5), QLatin1String(markup), &screen);
    const QMessageBox box(QMessageBox::Question, QLatin1String(markup), QLatin1String(markup), QMessageBox::Ok, &screen);
    for (const QLabel *label : box.findChildren<QLabel *>())
        label->ensurePolished();
    QList<QLabel *> labels = screen.findChildren<QLabel *>();
    bool tip = false, message = false;
    for (QWidget *top : QApplication::topLevelWidgets())
        if (auto *label = qobject_cast<QLabel *>(top))
            labels << label;
    for (const QLabel *label : labels) {
        tip |= label->isWindow() && label->text() == QLatin1String(markup);
        message |= label->window() == &box && label->text() == QLatin1String(markup);
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
    }
    EXPECT_TRUE(tip);
    EXPECT_TRUE(message);
    QToolTip::hideText();
}

const Folder folders[] = {
    {"sample", [](const TemporaryFolder &folder) { copySample(folder, sampleFiles); }},
    {"empty", [](const TemporaryFolder &) {}},
    {"bytes", scatterBytes},
    {"huge", writeHuge},
    {"absurd", [](const TemporaryFolder &folder) { layDown(folder / "f12005.ini", absurdSeason()); }},
    {"markup", writeMarkup},
    {"gone", [](const TemporaryFolder &folder) { std::filesystem::remove_all(folder.path()); }},
};

class EveryScreen : public testing::TestWithParam<Folder> { };

TEST_P(EveryScreen, OpensAndCloses)
{
    const TemporaryFolder folder;
    GetParam().fill(folder);
    Driver driver(folder.path(), Numbers(','));
    ASSERT_EQ(answer(driver, "start"), "ok");
    Screens &screens = driver.program().screens();
    for (const ScreenRow &row : screens.rows()) {
        const std::string name = row.name.toStdString();
        SCOPED_TRACE(name);
        if (name == "Form1" || name == "Form47") // the end of the program
            continue;
        {
            const PlainFromTheBegin watched;
            EXPECT_EQ(answer(driver, "open " + name), "ok");
            EXPECT_EQ(answer(driver, "settle"), "ok");
        }
        Screen *screen = screens.find(row.name);
        if (name == "Form33") { // with no number to explain it closes by itself
            EXPECT_EQ(screen, nullptr);
            continue;
        }
        ASSERT_NE(screen, nullptr);
        EXPECT_FALSE(screen->grab().isNull());
        const bool ordinary = GetParam().name == std::string("sample") || GetParam().name == std::string("empty");
        for (const Page *page : screen->findChildren<Page *>())
            EXPECT_FALSE(ordinary && page->horizontalScrollBar()->isVisible()) << "wider than its window";
        expectPlainText(*screen);
        for (Table *table : screen->tables())
            QAbstractItemModelTester(&table->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        for (const QString &control : screen->controlNames())
            for (const char *command : {"get ", "tip ", "geom ", "back ", "tag "})
                EXPECT_TRUE(driver.execute(QString::fromLatin1(command) + row.name + u'.' + control).has_value());
        answer(driver, "close " + name);
        EXPECT_EQ(answer(driver, "isopen " + name), "no");
        if (name == "Form11") // says that it wants a second race
            answer(driver, "messages");
    }
    EXPECT_EQ(answer(driver, "messages"), "");
}

INSTANTIATE_TEST_SUITE_P(Folders, EveryScreen, testing::ValuesIn(folders),
                         [](const auto &folder) { return std::string(folder.param.name); });

class OnTheSample : public DrivenProgram {
protected:
    OnTheSample() : DrivenProgram(sampleFiles) { }
};

// Changes that can't be kept are said on the quiet line, and no more once they can be again.
TEST_F(OnTheSample, LostWritesAreSaidQuietly)
{
    EXPECT_EQ(say("get Form1.nonconservees"), "");
    std::filesystem::remove(folder / "f12005.ini");
    std::filesystem::create_directory(folder / "f12005.ini"); // nothing can be written there
    say("write f12005.ini [gp] nogp=3");
    EXPECT_EQ(say("get Form1.nonconservees"), "Attention : les modifications ne sont pas conservées (f12005.ini).");
    EXPECT_EQ(say("messages"), "");
    std::filesystem::remove(folder / "f12005.ini");
    say("write f12005.ini [gp] nogp=3");
    EXPECT_EQ(say("get Form1.nonconservees"), "");
    EXPECT_EQ(say("read f12005.ini [gp] nogp"), "3");
}

}
