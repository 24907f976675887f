// SPDX-License-Identifier: GPL-3.0-or-later
// Plays one scenario file against the whole program on Qt's offscreen platform.
//
//     scenario_runner SAMPLE FILE
//
// A line of the file is a comment (#), a directive or a command of the driver:
//
//     folder sample | folder empty    the program folder that the scenario starts with; before the first command
//     decimal ,                       the user's decimal separator, otherwise a point
//     raw NAME TEXT                   writes a file of the program folder from outside, "\n" for a line break; a name
//                                     with blanks stands in quotes
//     picture NAME [WIDTHxHEIGHT]     writes a PNG picture under any name, 4x3 pixels by default
//     serve PATH TEXT                 a server on this machine gives this text there; "serveurs.ini" names the server
//     stall PATH TEXT                 the same, but half of the text comes and then nothing more
//     asked REQUEST | ...             what the server was asked for since last looked at, "GET " left out; one in
//                                     parentheses may come at any time
//     restart                         the program is killed and started on the same folder
//     > COMMAND                       given to the driver; without an expected answer any but an error is right
//     = COMMAND => ANSWER             the same, with the answer that it must give, to the letter
//     ? PLACE: NAME = TEXT | ...      what several controls of a screen, or keys of "f12005.ini [gp]", must read
//     ! PLACE: NAME = TEXT | ...      sets or writes them
//     ? COMMAND SCREEN: ..., ! press SCREEN: NAME | ...   the same with another command of the driver
//     < ANSWER                        the answer that the command before must have given
//     ~ PATTERN                       a regular expression that the answer before must match as a whole
//
// In all lines @server stands for the server's address, @folder for the program folder and @data for tests/data.
//
// An unexpected warning of Qt fails the scenario too.
#include "app/driver.h"
#include "online/test_server.h"
#include "shell/look.h"

#include <QApplication>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>

using namespace circuidex;

namespace {

int failures = 0;

void fail(const QString &where, const QString &what)
{
    ++failures;
    std::fprintf(stderr, "%s: %s\n", qPrintable(where), what.toUtf8().constData());
}

void onQtMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    const bool platform = text.startsWith(u"This plugin") || text.contains(u"XDG_RUNTIME_DIR");
    if (type != QtDebugMsg && type != QtInfoMsg && !platform)
        fail(QStringLiteral("Qt"), text);
}

class Scenario {
public:
    Scenario(QString sample, QString file) : m_sample(std::move(sample)), m_file(std::move(file)) { }

    void play()
    {
        QFile file(m_file);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            return fail(m_file, QStringLiteral("can't be read"));
        int number = 0;
        while (!file.atEnd()) {
            m_where = QStringLiteral("%1:%2").arg(m_file).arg(++number);
            QString line = QString::fromUtf8(file.readLine()).replace(u"@folder"_qs, m_folder.path());
            line.replace(u"@data"_qs, QFileInfo(m_file).absolutePath() + u"/../data"_qs);
            if (m_server)
                line.replace(u"@server"_qs, m_server->address({}));
            if (line.endsWith(u'\n'))
                line.chop(1);
            step(line);
        }
        endCommand();
        if (m_checks == 0)
            fail(m_file, QStringLiteral("expects nothing"));
    }

private:
    void step(const QString &line)
    {
        const QString rest = line.mid(2);
        if (line.startsWith(u"> ")) {
            command(rest);
        } else if (const qsizetype arrow = line.indexOf(u" => "); line.startsWith(u"= ") && arrow > 0) {
            command(line.mid(2, arrow - 2));
            expectAnswer(line.mid(arrow + 4));
        } else if (line.startsWith(u"? ") || line.startsWith(u"! ")) {
            each(rest, line.startsWith(u'?'));
        } else if (line.startsWith(u'<')) {
            expectAnswer(rest);
        } else if (line.startsWith(u"~ ")) {
            const QRegularExpression pattern(QRegularExpression::anchoredPattern(rest));
            expect(pattern.match(m_answer).hasMatch(), QStringLiteral("expected to match «%1»").arg(rest));
        } else if (!line.isEmpty() && !line.startsWith(u'#')) {
            directive(line);
        }
    }

    // One command for each item of a line.
    void each(const QString &line, bool check)
    {
        static const QRegularExpression form(QStringLiteral(R"(^(?:(\w+) )?(\w+|\S+\.ini \[[^\]]*\]): (.*)$)"));
        const auto match = form.match(line);
        const QString place = match.captured(2);
        const bool file = place.endsWith(u']');
        const QString usual = file ? (check ? u"read"_qs : u"write"_qs) : check ? u"get"_qs : u"set"_qs;
        const QString word = match.captured(1).isEmpty() ? usual : match.captured(1);
        if (!match.hasMatch())
            fail(m_where, QStringLiteral("expected: PLACE: NAME = TEXT"));
        for (const QString &item : match.captured(3).split(u" | "_qs)) {
            const QString name = item.section(u" ="_qs, 0, 0), text = item.section(u" ="_qs, 1).mid(1);
            const QString at = word + u' ' + place + (file ? u' ' : u'.') + name;
            command(check || !item.contains(u" ="_qs) ? at : at + (file ? u'=' : u' ') + text);
            if (check)
                expectAnswer(text);
        }
    }

    void command(const QString &line)
    {
        endCommand();
        m_command = line;
        m_answer = driver().execute(line).value_or(QStringLiteral("(no answer)"));
        m_open = true;
    }

    void expectAnswer(const QString &answer)
    {
        expect(m_answer == answer, QStringLiteral("expected «%1»").arg(answer));
    }

    void expect(bool right, const QString &what)
    {
        ++m_checks;
        m_open = false;
        if (!right)
            fail(m_where, QStringLiteral("%1\n    %2, got «%3»").arg(m_command, what, m_answer));
    }

    // A command that no line looked at must at least not have failed.
    void endCommand()
    {
        if (m_open && m_answer.startsWith(u"error:"))
            fail(m_where, QStringLiteral("before: %1\n    %2").arg(m_command, m_answer));
        m_open = false;
    }

    void directive(const QString &line)
    {
        endCommand();
        const QString word = line.section(u' ', 0, 0);
        const QString rest = line.section(u' ', 1);
        if (word == u"folder" && rest == u"sample")
            copySample();
        else if (word == u"decimal")
            m_decimal = rest.at(0).toLatin1();
        else if (word == u"raw" && rest.startsWith(u'"'))
            writeRaw(rest.section(u'"', 1, 1), rest.section(u'"', 2).mid(1));
        else if (word == u"raw")
            writeRaw(rest.section(u' ', 0, 0), rest.section(u' ', 1));
        else if (word == u"picture")
            writePicture(rest.section(u' ', 0, 0), rest.section(u' ', 1));
        else if (word == u"serve" || word == u"stall")
            serve(rest.section(u' ', 0, 0), lines(rest.section(u' ', 1)), word == u"stall");
        else if (word == u"asked")
            expectAsked(rest);
        else if (word == u"restart")
            m_driver.reset();
        else if (line != u"folder empty")
            fail(m_where, QStringLiteral("no such directive: ") + line);
    }

    void copySample()
    {
        const QDir sample(QDir(m_sample).absolutePath());
        for (QDirIterator at(sample.path(), QDir::Files, QDirIterator::Subdirectories); at.hasNext();) {
            const QString file = at.next(), name = sample.relativeFilePath(file);
            if (!QFile::copy(file, placeOf(name)))
                fail(m_where, QStringLiteral("can't copy ") + name);
        }
    }

    void serve(const QString &path, const QByteArray &text, bool stalls)
    {
        if (!m_server) {
            m_server = std::make_unique<test::TestServer>();
            const QString address = m_server->address({});
            writeRaw(u"serveurs.ini"_qs,
                     u"[serveurs]\\nmaj=%1\\nmiroir=%1/miroir\\nsite=%1/site\\ncontact=moi@exemple.org\\n"_qs.arg(
                         address));
        }
        m_server->lay(path, {.content = text, .sent = stalls ? text.size() / 2 : -1, .silent = stalls});
    }

    void expectAsked(const QString &requests)
    {
        QStringList asked;
        for (const QByteArray &request : m_server ? std::exchange(m_server->asked, {}) : QList<QByteArray>())
            asked << QString::fromUtf8(request.mid(4));
        ++m_checks;
        const QString all = asked.join(u" | "_qs);
        QStringList expected = requests.split(u" | "_qs, Qt::SkipEmptyParts);
        expected.removeIf([&asked](const QString &each) {
            return each.startsWith(u'(') && asked.removeOne(each.mid(1, each.size() - 2));
        });
        if (asked != expected)
            fail(m_where, QStringLiteral("the server was asked for «%1»").arg(all));
    }

    // Of a file to be, its folder made.
    QString placeOf(const QString &name) const
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        return path;
    }

    static QByteArray lines(QString text)
    {
        return text.replace(u"\\n"_qs, u"\r\n"_qs).toLatin1();
    }

    void writeRaw(const QString &name, const QString &text)
    {
        QFile file(placeOf(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(lines(text)) < 0)
            fail(m_where, QStringLiteral("can't write ") + name);
    }

    void writePicture(const QString &name, const QString &size)
    {
        const QStringList sides = (size.isEmpty() ? u"4x3"_qs : size).split(u'x');
        QImage image(sides.value(0).toInt(), sides.value(1).toInt(), QImage::Format_Mono);
        image.fill(1);
        if (!image.save(placeOf(name), "PNG"))
            fail(m_where, QStringLiteral("can't write ") + name);
    }

    Driver &driver()
    {
        if (!m_driver)
            m_driver = std::make_unique<Driver>(m_folder.path().toStdString(), Numbers(m_decimal));
        return *m_driver;
    }

    QString m_sample, m_file, m_where, m_command, m_answer;
    QTemporaryDir m_folder;
    std::unique_ptr<test::TestServer> m_server;
    std::unique_ptr<Driver> m_driver;
    char m_decimal = '.';
    bool m_open = false;
    int m_checks = 0;
};

}

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(onQtMessage);
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    look::dress(application);
    if (argc != 3)
        return 2;
    Scenario(QString::fromUtf8(argv[1]), QString::fromUtf8(argv[2])).play();
    return failures == 0 ? 0 : 1;
}
