// SPDX-License-Identifier: GPL-3.0-or-later
// The program without a pointer: what answers a click is reached by keys, and every key is on the list of keys.
#include "shell/driven_program.h"

#include "shell/key_names.h"
#include "shell/letter_line.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeySequence>
#include <QRegularExpression>

#include <set>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class Keyboard : public DrivenProgram {
protected:
    Keyboard() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }
};

bool answersClicks(const QWidget &widget)
{
    const auto *clicks = dynamic_cast<const Clicks *>(&widget);
    return qobject_cast<const QAbstractButton *>(&widget) || (clicks && (clicks->onClick || clicks->onDoubleClick));
}

// By Tab, by arrows in a menu and in a gallery, whose slots take the focus from each other, or by a key of its own
// that its tip names, as in the calendar.
bool reachedByKeys(const QWidget &widget)
{
    return (widget.focusPolicy() & Qt::TabFocus) || widget.property("menu").isValid() ||
        (widget.focusPolicy() == Qt::ClickFocus && dynamic_cast<const Clicks *>(&widget)) ||
        widget.toolTip().contains(QRegularExpression(u"\\((Ctrl|Alt|F4)"_s));
}

TEST_F(Keyboard, ReachesWhatAnswersAClick)
{
    for (const ScreenRow &row : driver->program().screens().rows()) {
        const QString name = row.name;
        if (name == u"Intro" || name == u"Form47")
            continue; // they begin and end the program
        say("open " + name.toStdString());
        say("settle");
        const Screen *screen = driver->program().screens().find(name);
        if (!screen)
            continue; // one that closes by itself
        for (const QWidget *widget : screen->findChildren<QWidget *>())
            EXPECT_TRUE(!widget->isVisible() || !answersClicks(*widget) || reachedByKeys(*widget))
                << name.toStdString() << ' ' << widget->objectName().toStdString();
        std::set<QString> keys;
        for (const auto &list : {screen->keysOfAll(), screen->keys()})
            for (const Screen::Key &key : list) {
                EXPECT_TRUE(keys.insert(key.keys).second) << name.toStdString() << " twice: " << key.keys.toStdString();
                EXPECT_FALSE(key.does.isEmpty()) << name.toStdString() << " " << key.keys.toStdString();
            }
        if (name != u"Form1")
            say("close " + name.toStdString());
    }
}

TEST_F(Keyboard, PressesTheMainScreensButtonsByTheirLetters)
{
    Screen &main = screen("Form1");
    for (int twice = 0; twice < 2; ++twice) { // opens it and closes it
        main.activateWindow();
        QApplication::processEvents();
        sendKey(*main.focusWidget(), u"Alt+C"_s);
        EXPECT_EQ(say("get Form1.Command32"), twice ? "Classement" : "[F] Classement");
    }
    EXPECT_EQ(placeOfLetter(u"[F] Infos, Forum"_s, u'F'), 11);
    EXPECT_EQ(placeOfLetter(u"Courbes"_s, u'b'), 4);
    EXPECT_EQ(placeOfLetter(u"Courbes"_s, u'z'), -1);
    EXPECT_EQ(keysInWords(QKeySequence(u"Ctrl+Shift+PgUp"_s)), u"Maj+Ctrl+Page préc."_s);
}

}
