// SPDX-License-Identifier: GPL-3.0-or-later
// The program called by a script: what it writes is what the screens show, and the folder stays as it was.
#include "platform/program_folder.h"
#include "shell/driven_program.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

using namespace circuidex;
using namespace circuidex::test;

namespace {

struct Outcome {
    int status;
    QByteArray out, error;
};

Outcome run(const QStringList &arguments)
{
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    for (const QString &display : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s})
        environment.remove(display);
    environment.insert(u"LC_ALL"_s, u"fr_FR.UTF-8"_s);
    program.setProcessEnvironment(environment);
    program.start(QString::fromStdString((executableFolder() / "circuidex").string()), arguments);
    EXPECT_TRUE(program.waitForFinished(100'000));
    return {program.exitCode(), program.readAllStandardOutput(), program.readAllStandardError()};
}

class CommandLineTest : public testing::Test {
protected:
    CommandLineTest() { copySample(folder, {"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}); }

    Outcome onFolder(QStringList arguments) const
    {
        return run(QStringList{u"--dossier"_s, QString::fromStdString(folder.path().string())} + arguments);
    }
    // Names, bytes and times of change.
    std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>> state() const
    {
        std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>> files;
        for (const auto &file : std::filesystem::directory_iterator(folder.path()))
            files[file.path().filename().string()] = {content(file.path()), file.last_write_time()};
        return files;
    }

    TemporaryFolder folder;
};

// The texts of the named cells, each under its column; what no cell of the export stands for must be empty.
void expectSame(const Table &shown, const QJsonObject &exported)
{
    const CellModel &model = shown.model();
    const QJsonArray titles = exported[u"colonnes"].toArray(), rows = exported[u"lignes"].toArray();
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0, at = 0; column < model.columnCount(); ++column) {
            const Column &of = model.columns()[std::size_t(column)];
            const bool there =
                at < titles.size() && titles[at].toString() == QString(of.title).replace(u'\n', u' ').trimmed();
            const QString text = model.cell(row, column).text();
            const bool taken = there && row < rows.size();
            const QString told = taken ? rows[row].toArray()[at].toString() : QString();
            if (taken || !of.name.isEmpty()) {
                EXPECT_EQ(told.toStdString(), taken ? text.toStdString() : text.trimmed().toStdString())
                    << row << ' ' << column;
            }
            at += there;
        }
}

TEST_F(CommandLineTest, ExportsAllTablesAsTheScreensShowThem)
{
    const auto before = state();
    for (const char *year : {"2003", "2004", "2005"}) {
        const TemporaryFolder into, own;
        const QString out = QString::fromStdString(into.path().string());
        ASSERT_EQ(onFolder({u"--exporter"_s, u"tout"_s, u"--saison"_s, QLatin1String(year), u"--format"_s, u"json"_s,
                            u"--vers"_s, out})
                      .status,
                  0);
        copySample(own, {"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini"});
        layDown(own / "Année", year);
        Driver driver(own.path(), Numbers(','));
        answer(driver, "start");
        int tables = 0;
        for (const ScreenRow &row : driver.program().screens().rows()) {
            QFile file(out + u'/' + row.name + u".json"_s);
            if (!file.open(QIODevice::ReadOnly))
                continue;
            if (row.name == u"Raccourcis") // tells of the screens that are open
                continue;
            SCOPED_TRACE(row.name.toStdString() + ' ' + year);
            answer(driver, "open " + row.name.toStdString());
            answer(driver, "settle");
            const QJsonArray exported = QJsonDocument::fromJson(file.readAll())[u"tableaux"].toArray();
            const Screen *screen = driver.program().screens().find(row.name);
            ASSERT_TRUE(screen);
            for (int i = 0; const Table *table : screen->tables())
                if (table->isVisibleTo(screen)) {
                    expectSame(*table, exported[i++].toObject());
                    ++tables;
                }
            answer(driver, "close " + row.name.toStdString());
        }
        EXPECT_GT(tables, 45);
    }
    EXPECT_EQ(state(), before);
}

TEST_F(CommandLineTest, GivesTheStandingsThatWerePublished)
{
    QStringList published, exported;
    for (const QByteArray &line :
         QByteArray::fromStdString(content(std::filesystem::path(CIRCUIDEX_TESTDATA) / "2004.standings.tsv"))
             .split('\n'))
        if (const QByteArrayList cells = line.split('\t'); cells.size() > 3 && !line.startsWith('#'))
            published << QString::fromUtf8(cells[2] + ' ' + cells[3]);
    for (const auto &[screen, name, points] : {std::tuple(u"form6"_s, 1, 3), std::tuple(u"Form5"_s, 1, 2)})
        for (const QByteArray &line :
             onFolder({u"--exporter"_s, screen, u"--saison"_s, u"2004"_s}).out.split('\n').mid(1))
            if (const QByteArrayList cells = line.split(';'); cells.size() > 3)
                exported << QString::fromUtf8(cells[name] + ' ' + cells[points]);
    published.sort(); // without points the order is a matter of taste
    exported.sort();
    EXPECT_EQ(exported.join(u'\n').toStdString(), published.join(u'\n').toStdString());
}

TEST_F(CommandLineTest, GivesAChartAsPicture)
{
    const Outcome svg = onFolder({u"--exporter"_s, u"Form8"_s, u"--saison"_s, u"2004"_s, u"--format"_s, u"svg"_s});
    EXPECT_EQ(svg.status, 0);
    EXPECT_TRUE(svg.out.contains("Graphique des Points Pilote – saison 2004 – "));
    EXPECT_TRUE(onFolder({u"--exporter"_s, u"Form8"_s, u"--format"_s, u"pdf"_s}).out.startsWith("%PDF-"));
    EXPECT_TRUE(onFolder({u"--exporter"_s, u"Form6"_s, u"--format"_s, u"png"_s}).out.startsWith("\x89PNG"));
}

TEST_F(CommandLineTest, TellsWhatIsWrong)
{
    const QString inFolder = QString::fromStdString((folder / "a.csv").string());
    const struct {
        int status;
        const char16_t *words, *error;
    } cases[] = {
        {0, u"--version", u""},
        {0, u"--liste", u""},
        {0, u"--help", u""},
        {2, u"--fusee", u"option inconnue"},
        {2, u"--exporter", u"il manque une valeur"},
        {2, u"Form6", u"argument inattendu"},
        {2, u"--saison 2004", u"vont avec"},
        {2, u"--exporter Form999", u"écran inconnu"},
        {2, u"--exporter Form6 --format xls", u"format inconnu"},
        {2, u"--exporter tout", u"demande un dossier"},
        {1, u"--exporter Form6 --saison 1950", u"n'est pas dans le dossier"},
        {1, u"--exporter Form6 --saison ../f12004", u"n'est pas dans le dossier"},
        {1, u"--exporter Form6 --vers /nowhere/a.csv", u"n'a pas pu être écrit"},
        {1, u"--exporter Form37", u"n'a ni tableau ni courbe"},
        {1, u"--exporter Form6 --format svg", u"SVG"},
        {1, u"--exporter Form6 --vers DOSSIER/a.csv", u"rien n'est écrit"},
    };
    for (const auto &[status, words, error] : cases) {
        const QString line = QString::fromUtf16(words).replace(u"DOSSIER"_s, inFolder.chopped(6));
        SCOPED_TRACE(line.toStdString());
        const Outcome got = onFolder(line.split(u' '));
        EXPECT_EQ(got.status, status);
        EXPECT_EQ(got.out.isEmpty(), status != 0);
        const QString told = QString::fromUtf8(got.error);
        EXPECT_TRUE(*error ? told.contains(QString::fromUtf16(error)) : told.isEmpty()) << told.toStdString();
    }
    EXPECT_EQ(run({u"--dossier"_s, u"/nowhere"_s}).status, 1);
}

}
