// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/driver.h"

#include "platform/qt_download.h"
#include "platform/qt_page.h"
#include "platform/qt_pictures.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QPixmap>
#include <QPointer>
#include <QRegularExpression>

#include <functional>
#include <map>

namespace circuidex {

using namespace Qt::StringLiterals;

namespace {

const QString ok = u"ok"_s;

QString error(const QString &reason)
{
    return u"error: "_s + reason;
}

// A text in one line.
QString escaped(QString text)
{
    return text.replace(u'\\', QLatin1String("\\\\"))
        .replace(u'\n', QLatin1String("\\n"))
        .replace(u'\r', QLatin1String("\\r"))
        .replace(u'\t', QLatin1String("\\t"));
}

QString unescaped(const QString &text)
{
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) != u'\\' || i + 1 == text.size()) {
            plain += text.at(i);
            continue;
        }
        const QChar next = text.at(++i);
        plain += next == u'n' ? u'\n' : next == u't' ? u'\t' : next == u'r' ? u'\r' : next;
    }
    return plain;
}

QString list(QStringList texts)
{
    for (QString &text : texts)
        text = escaped(text);
    return texts.join(u'\t');
}

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

QString colour(const std::optional<QColor> &colour)
{
    return colour ? colour->name().toUpper() : u"default"_s;
}

// "f12005.ini" is the file of the stem "2005".
std::optional<std::string> stemOf(const QString &file)
{
    if (!file.startsWith(u"f1") || !file.endsWith(u".ini"))
        return std::nullopt;
    return file.mid(2, file.size() - 6).toStdString();
}

// What is due, or where nothing is, what comes next.
void runEvents(bool awaitMore)
{
    QCoreApplication::processEvents(awaitMore ? QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents
                                              : QEventLoop::AllEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Transfers and pages on their way. Each may take its time: with every one that comes or goes the clock starts anew.
class Traffic {
public:
    bool pending()
    {
        const State now{downloadCount(), pagesOnTheirWay()};
        if (!(now == m_seen) || !m_since.isValid())
            m_since.start();
        m_seen = now;
        return (now.downloads.running > 0 || now.pages > 0) && !m_since.hasExpired(mostWait);
    }

private:
    static constexpr int mostWait = 10'000; // milliseconds
    struct State {
        DownloadCount downloads;
        int pages = 0;
        bool operator==(const State &) const = default;
    };
    State m_seen;
    QElapsedTimer m_since;
};

// The command, the first word of the argument, and what follows it.
struct Words {
    QString first, rest;
};

Words split(const QString &text)
{
    const qsizetype blank = text.indexOf(u' ');
    return blank < 0 ? Words{text, {}} : Words{text.left(blank), text.mid(blank + 1)};
}

// The screen with all its pictures, which the first look at it asks for.
QPixmap grabbed(Screen &screen)
{
    const QPixmap first = screen.grab();
    return awaitPictures() ? screen.grab() : first;
}

// "W H" in twips, as if the user had pulled the window.
QString resized(Screen &screen, const QString &size)
{
    const Words words = split(size);
    bool wide = false, high = false;
    const double width = words.first.toDouble(&wide), height = words.rest.toDouble(&high);
    const auto bearable = [](double twips) { return twips > 0 && twips <= 1e6; };
    if (!wide || !high || !bearable(width) || !bearable(height))
        return error(u"expected: width and height in twips"_s);
    screen.setSize(width, height);
    return ok;
}

bool saveTables(const Screen &screen, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write((screen.title() + u'\n').toUtf8());
    for (const Table *table : screen.tables())
        file.write((u'\n' + table->asText()).toUtf8());
    return true;
}

}

void QueuedDialogs::message(const std::string &text)
{
    shown << QString::fromStdString(text);
}

bool QueuedDialogs::question(const std::string &text)
{
    shown << QString::fromStdString(text);
    if (answers.empty())
        return false;
    const QString answer = answers.front();
    answers.pop_front();
    return answer.compare(u"oui", Qt::CaseInsensitive) == 0 || answer.compare(u"yes", Qt::CaseInsensitive) == 0;
}

std::optional<std::string> QueuedDialogs::chooseFile(const std::string &title, const std::string &, const std::string &preset)
{
    asked << QString::fromStdString(title + '\n' + preset);
    if (answers.empty())
        return std::nullopt;
    const QString answer = answers.front();
    answers.pop_front();
    return answer.isEmpty() ? std::nullopt : std::optional(answer.toStdString());
}

std::optional<std::string> QueuedDialogs::chooseNewFile(const std::string &title, const std::string &filter)
{
    return chooseFile(title, filter, {});
}

std::optional<std::string> QueuedDialogs::chooseFolder(const std::string &title)
{
    return chooseFile(title, {}, {});
}

void RecordingPlatform::print(QWidget &, const std::string &name, Printing how)
{
    calls << (how == Printing::asked ? u"print dialog "_s : u"print "_s) + QString::fromStdString(name);
}

void RecordingPlatform::printText(const std::string &text, Printing how)
{
    calls << (how == Printing::asked ? u"print dialog text "_s : u"print text "_s) + QString::fromStdString(text);
}

void RecordingPlatform::startProgram(const std::string &path)
{
    calls << u"start "_s + QString::fromStdString(path);
}

void RecordingPlatform::openAddress(const std::string &address)
{
    calls << u"open "_s + QString::fromStdString(address);
}

DisplayChange RecordingPlatform::changeDisplay(const DisplayMode &mode, int hertz)
{
    calls << u"mode %1 %2 %3 %4"_s.arg(mode.width).arg(mode.height).arg(mode.depth).arg(hertz);
    if (displayAnswer == DisplayChange::done)
        show(mode);
    return displayAnswer;
}

void RecordingPlatform::changeDisplayPlainly(int width, int height)
{
    calls << u"mode %1 %2"_s.arg(width).arg(height);
    show({width, height, display.depth});
}

void RecordingPlatform::setDisplay(const DisplayMode &mode)
{
    m_displayTold = true;
    show(mode);
}

void RecordingPlatform::show(const DisplayMode &mode)
{
    display = mode;
    if (m_displayTold)
        room = {0, 0, mode.width, mode.height};
}

void RecordingPlatform::restartMachine()
{
    calls << u"restart"_s;
}

bool RecordingPlatform::keepFolder(const std::string &path)
{
    calls << u"folder "_s + QString::fromStdString(path);
    return true;
}

void RecordingPlatform::endProgram()
{
    calls << u"end"_s;
    ended = true;
}

void RecordingPlatform::startAnew()
{
    m_player.reset();
    ended = false;
}

Driver::Driver(const std::filesystem::path &folder, Numbers numbers)
    : m_folder(folder), m_numbers(numbers),
      m_program(std::make_unique<Program>(folder, numbers, m_dialogs, m_platform))
{
}

Driver::~Driver()
{
    leave();
}

// With what it had asked of the network.
void Driver::leave()
{
    m_program.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

std::optional<QString> Driver::execute(const QString &line)
{
    if (line.trimmed().isEmpty() || line.startsWith(u'#'))
        return std::nullopt;
    const Words words = split(line);
    QString answer;
    if (auto found = dispatch(words.first, words.rest))
        answer = *std::move(found);
    else if (auto onScreen = onScreens(words.first, words.rest))
        answer = *std::move(onScreen);
    else if (auto onFile = onFiles(words.first, words.rest))
        answer = *std::move(onFile);
    else
        answer = onControl(words.first, words.rest).value_or(error(u"no such command: "_s + words.first));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // screens that closed are gone
    m_program->settle();
    if (m_platform.ended)
        startAnew();
    m_program->offerCopies();
    return answer;
}

// What the program wrote stays, the rest is gone with it.
void Driver::startAnew()
{
    leave();
    m_platform.startAnew();
    m_program = std::make_unique<Program>(m_folder, m_numbers, m_dialogs, m_platform);
}

// A program that is about to end has ended before.
void Driver::start(const QString &first)
{
    if (m_program->screens().isOpen(u"Form47"_s)) {
        m_program->settle();
        startAnew();
    }
    m_program->start(first);
}

std::optional<QString> Driver::dispatch(const QString &command, const QString &arguments)
{
    if (command == u"start") {
        start(u"Form1"_s);
        return ok;
    }
    if (command == u"quit") {
        m_ended = true;
        return ok;
    }
    if (command == u"windows")
        return m_program->screens().openNames().join(u'\t');
    if (command == u"screens") {
        QStringList names;
        for (const ScreenRow &row : m_program->screens().rows())
            names << row.name;
        return names.join(u'\t');
    }
    if (command == u"messages")
        return list(std::exchange(m_dialogs.shown, {}));
    if (command == u"strokes")
        return QString::number(std::exchange(m_strokes, 0));
    if (command == u"film")
        return onFilm(arguments);
    if (command == u"display")
        return onDisplay(arguments);
    if (command == u"asked")
        return list(std::exchange(m_dialogs.asked, {}));
    if (command == u"calls")
        return list(std::exchange(m_platform.calls, {}));
    if (command == u"answer") {
        m_dialogs.answers.push_back(unescaped(arguments));
        return ok;
    }
    if (command == u"wait")
        return wait(std::clamp(arguments.toInt(), 0, 600000));
    if (command == u"settle")
        return settle();
    return std::nullopt;
}

QString Driver::wait(int milliseconds) const
{
    QTimer over;
    over.setSingleShot(true);
    over.setTimerType(Qt::PreciseTimer);
    over.start(milliseconds);
    do
        runEvents(true);
    while (over.isActive() && !m_platform.ended);
    return ok;
}

QString Driver::settle() const
{
    constexpr int mostWait = 60'000, look = 100; // milliseconds; a silent server brings no event
    Traffic traffic;
    QTimer wake;
    wake.start(look);
    QElapsedTimer elapsed;
    elapsed.start();
    runEvents(false);
    while (!m_platform.ended) {
        const bool pictures = awaitPictures(), timers = m_program->screens().timersPending();
        const bool onTheWay = traffic.pending();
        if (!pictures && !timers && !onTheWay)
            break;
        if (!onTheWay && elapsed.hasExpired(mostWait))
            return error(u"timers don't come to rest"_s);
        runEvents(!pictures);
    }
    return ok;
}

// "display 1280 1024 32", "display result 1"
QString Driver::onDisplay(const QString &argument)
{
    const QStringList words = argument.split(u' ', Qt::SkipEmptyParts);
    const auto number = [&](qsizetype i) { return words.value(i).toInt(); };
    if (words.value(0) == u"result" && words.size() == 2)
        m_platform.displayAnswer = number(1) == 0   ? DisplayChange::done
                                   : number(1) == 1 ? DisplayChange::restartNeeded
                                                    : DisplayChange::refused;
    else if (words.size() == 3)
        m_platform.setDisplay({number(0), number(1), number(2)});
    else
        return error(u"expected: display W H DEPTH, or display result N"_s);
    return ok;
}

// "film 60000 1500", "film at 2000 50", "film none"
std::optional<QString> Driver::onFilm(const QString &argument)
{
    static const QRegularExpression form(QStringLiteral(R"(^(at )?(-?\d+) (-?\d+)$)"));
    StandInPlayer &film = m_platform.film;
    const auto match = form.match(argument);
    const bool none = argument == u"none", position = match.capturedLength(1) > 0;
    if (!match.hasMatch() && !none)
        return error(u"expected: film [at] MS FRAMES, or film none"_s);
    if (!position)
        film.refuses = none;
    if (none)
        return ok;
    auto &told = position ? film.at : film.length;
    told[0] = match.captured(2).toLongLong();
    told[1] = match.captured(3).toLongLong();
    return ok;
}

std::optional<QString> Driver::onScreens(const QString &command, const QString &argument)
{
    static const QStringList commands{u"open"_s,     u"close"_s, u"isopen"_s,
                                      u"controls"_s, u"title"_s, u"shot"_s,
                                      u"tables"_s,   u"pointer"_s, u"size"_s, u"state"_s,
                                      u"keys"_s,     u"type"_s};
    if (!commands.contains(command))
        return std::nullopt;
    const Words words = split(argument);
    Screens &screens = m_program->screens();
    if (!screens.exists(words.first))
        return error(u"no such screen: "_s + words.first);
    if (command == u"open" && words.first == u"Intro" && !screens.isOpen(u"Form1"_s)) {
        start(words.first); // as the program itself begins
        return ok;
    }
    if (command == u"open") {
        screens.openFromMenu(words.first);
        return ok;
    }
    if (command == u"close") {
        screens.close(words.first);
        return ok;
    }
    Screen *screen = screens.find(words.first);
    if (command == u"isopen")
        return screen ? u"yes"_s : u"no"_s;
    if (command == u"title")
        for (const ScreenRow &row : screens.rows())
            if (row.name == words.first && !screen)
                return escaped(row.title);
    if (!screen)
        return error(u"not open: "_s + words.first);
    if (command == u"title")
        return escaped(screen->title());
    if (command == u"controls")
        return screen->controlNames().join(u'\t');
    if (command == u"pointer")
        return screen->waiting() ? u"wait"_s : u"normal"_s;
    if (command == u"state")
        return screen->isMinimized() ? u"minimised"_s : u"normal"_s;
    if (command == u"keys" || command == u"type")
        return keyed(*screen, command == u"type" ? words.rest.split(QString(), Qt::SkipEmptyParts)
                                                 : words.rest.split(u' ', Qt::SkipEmptyParts));
    if (command == u"size")
        return resized(*screen, words.rest);
    if (command == u"tables")
        return saveTables(*screen, words.rest) ? ok : error(u"can't write "_s + words.rest);
    return grabbed(*screen).save(words.rest, "PNG") ? ok : error(u"can't write "_s + words.rest);
}

// Each goes to what has the focus by then; of a screen that a key closed, nothing is left to take one.
QString Driver::keyed(Screen &screen, const QStringList &names)
{
    const QPointer<Screen> asked(&screen);
    for (const QString &name : names) {
        if (!asked || !m_program->screens().isOpen(asked->name()))
            return error(u"closed before "_s + name);
        ++m_strokes;
        QApplication::setActiveWindow(asked);
        sendKey(asked->focusWidget() ? *asked->focusWidget() : *asked, name);
    }
    return ok;
}

std::optional<QString> Driver::onFiles(const QString &command, const QString &argument)
{
    if (command != u"read" && command != u"write")
        return std::nullopt;
    static const QRegularExpression form(QStringLiteral(R"(^(\S+) \[([^\]]*)\] (.*)$)"));
    const auto match = form.match(argument);
    const auto stem = stemOf(match.captured(1));
    if (!match.hasMatch() || !stem)
        return error(u"expected: f1<stem>.ini [section] key"_s);
    const std::string section = unescaped(match.captured(2)).toStdString();
    const QString key = match.captured(3);
    if (command == u"read")
        return escaped(QString::fromStdString(m_program->store().LireINI(*stem, section, unescaped(key).toStdString())));
    const qsizetype equals = key.indexOf(u'=');
    if (equals < 0)
        return error(u"expected: key=value"_s);
    m_program->store().EcrireINI(*stem, section, unescaped(key.left(equals)).toStdString(),
                                unescaped(key.mid(equals + 1)).toStdString());
    return ok;
}

Control *Driver::find(const QString &reference, QString &reason) const
{
    static const QRegularExpression form(QStringLiteral(R"(^(\w+)\.([^(]+)(?:\((-?\d+)\))?$)"));
    const auto match = form.match(reference);
    const Screens &screens = m_program->screens();
    if (!match.hasMatch() || !screens.exists(match.captured(1))) {
        reason = error(u"no such screen or control: "_s + reference);
        return nullptr;
    }
    const Screen *screen = screens.find(match.captured(1));
    if (!screen) {
        reason = error(u"not open: "_s + match.captured(1));
        return nullptr;
    }
    const auto index = match.capturedLength(3) > 0 ? std::optional(match.captured(3).toInt()) : std::nullopt;
    Control *control = screen->control(match.captured(2), index);
    if (!control)
        reason = error(u"no such control: "_s + reference);
    return control;
}

// "FormN.Name(a..b)": the texts of the cells a to b.
QString Driver::run(const QString &reference) const
{
    static const QRegularExpression form(QStringLiteral(R"(^(.+)\((-?\d+)\.\.(-?\d+)\)$)"));
    const auto match = form.match(reference);
    QStringList texts;
    for (int i = match.captured(2).toInt(); i <= match.captured(3).toInt() && texts.size() < 10000; ++i) {
        QString reason;
        const Control *control = find(u"%1(%2)"_s.arg(match.captured(1)).arg(i), reason);
        if (!control)
            return reason;
        texts << control->text();
    }
    return list(texts);
}

std::optional<QString> Driver::onControl(const QString &command, const QString &argument)
{
    using Handler = std::function<QString(Control &, const QString &)>;
    static const std::map<QString, Handler> handlers{
        {u"get"_s, [](Control &c, const QString &) { return escaped(c.text()); }},
        {u"tag"_s, [](Control &c, const QString &) { return escaped(c.tag); }},
        {u"tip"_s, [](Control &c, const QString &) { return escaped(c.tip()); }},
        {u"back"_s, [](Control &c, const QString &) { return colour(c.back()); }},
        {u"fore"_s, [](Control &c, const QString &) { return colour(c.fore()); }},
        {u"press"_s, [](Control &c, const QString &) { c.press(); return ok; }},
        {u"double"_s, [](Control &c, const QString &) { c.doubleClick(); return ok; }},
        {u"hover"_s, [](Control &c, const QString &) { c.hover(); return ok; }},
        {u"key"_s, [](Control &c, const QString &key) { c.key(key); return ok; }},
        {u"set"_s, [](Control &c, const QString &text) { c.setText(unescaped(text)); return ok; }},
        {u"geom"_s,
         [](Control &c, const QString &) {
             const TwipRect r = c.geometry();
             return QStringList{number(r.left), number(r.top), number(r.width), number(r.height)}.join(u'\t');
         }},
        {u"line"_s,
         [](Control &c, const QString &) {
             const auto l = c.line();
             if (!l)
                 return error(u"not a line"_s);
             return QStringList{number(l->x1), number(l->y1), number(l->x2), number(l->y2), number(l->width)}.join(u'\t');
         }},
    };
    const auto handler = handlers.find(command);
    if (handler == handlers.end())
        return std::nullopt;
    const Words words = split(argument);
    if (command == u"get" && words.first.contains(QLatin1String("..")))
        return run(words.first);
    if (command == u"geom" && m_program->screens().isOpen(words.first)) { // of the window itself
        const TwipRect r = m_program->screens().find(words.first)->place();
        return QStringList{number(r.left), number(r.top), number(r.width), number(r.height)}.join(u'\t');
    }
    QString reason;
    Control *control = find(words.first, reason);
    return control ? handler->second(*control, words.rest) : reason;
}

}
