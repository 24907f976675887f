#pragma once
// All screens of the program by name, and which of them are open. A screen is made when it is opened and gone when it is
// closed; what it must remember stands in the files.
#include "shell/screen.h"

#include <functional>
#include <map>
#include <vector>

namespace circuidex {

struct ScreenRow {
    QString name;  // "Form6"
    QString title; // as on its bar
    std::function<Screen *(Context &, const QString &name, const QString &title)> make;
    // What its menu entry does once it is open; most do nothing.
    std::function<void(Screen &)> opened = {};
};

using ScreenRows = std::vector<ScreenRow>;

// The row of a screen whose class needs no more than its name and title.
template <class S>
ScreenRow screenRow(QString name, QString title, std::function<void(Screen &)> opened = {})
{
    return {std::move(name), std::move(title),
            [](Context &context, const QString &named, const QString &titled) -> Screen * {
                return new S(context, named, titled);
            },
            std::move(opened)};
}

// The same for a class that serves several screens, told apart by what is given to its constructor besides.
template <class S, class Kind>
ScreenRow kindRow(QString name, QString title, Kind kind)
{
    return {std::move(name), std::move(title),
            [kind = std::move(kind)](Context &context, const QString &named, const QString &titled) -> Screen * {
                return new S(context, named, titled, kind);
            }};
}

class Screens {
public:
    explicit Screens(std::vector<ScreenRow> rows) : m_rows(std::move(rows)) {}
    ~Screens();
    void setContext(Context &context) { m_context = &context; }

    // Makes it if need be and brings it to the front. Null when the program has no such screen.
    Screen *open(const QString &name);
    // The same without showing it, for a screen that is only to act and is closed again at once.
    Screen *openUnseen(const QString &name);
    // Opens it as its menu entry does it.
    Screen *openFromMenu(const QString &name);
    Screen *find(const QString &name) const; // null when it isn't open
    bool isOpen(const QString &name) const { return find(name) != nullptr; }
    bool exists(const QString &name) const { return row(name) != nullptr; }
    void close(const QString &name);
    void closeAllBut(const QStringList &kept); // what a closing screen would open by it doesn't come up
    void comeToFront() const; // all that can be seen, the main screen also when it is minimised
    void quit(); // as by "Quitter" of the main screen
    void bringMainBack() const; // the main screen in sight again, after a screen that took its place

    QStringList openNames() const; // in the order of opening
    const std::vector<ScreenRow> &rows() const { return m_rows; }

    // Called by a screen when it comes into being and when it closes.
    void opened(Screen &screen) { m_open.push_back(&screen); }
    void closed(Screen &screen);

    // Told of every screen that opens (true) or closes (false).
    std::function<void(const QString &name, bool open)> onChange;

    // True as long as a timer of less than a second runs on an open screen.
    bool timersPending() const;

private:
    const ScreenRow *row(const QString &name) const;

    std::vector<ScreenRow> m_rows;
    std::vector<Screen *> m_open;
    Context *m_context = nullptr;
    bool m_ending = false;
};

}
