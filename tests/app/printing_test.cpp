// Every screen that offers to print gives one page of what it shows; the journal's article gives as many as it needs. The
// pages are kept, to be looked at, in the folder that CIRCUIDEX_PAGES names.
#include "platform/qt_platform.h"
#include "shell/driven_program.h"

#include <QFile>
#include <QImage>

#include <set>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class PrintedScreens : public DrivenProgram {
protected:
    PrintedScreens() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }

    QString pdf() const { return QString::fromStdString((folder / "page.pdf").string()); }
    qsizetype pages() const
    {
        QFile file(pdf());
        return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : 0;
    }
};

bool offersPrint(const Screen &screen)
{
    for (const QString &name : screen.controlNames())
        if (!name.contains(u'(') && screen.text(name).startsWith(u"Imprimer"_s))
            return true;
    return false;
}

// A page of what is on show has more than its ground.
bool showsSomething(QWidget &screen)
{
    const QImage image = screen.grab().toImage().scaled(200, 200);
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    return colours.size() > 20;
}

TEST_F(PrintedScreens, EveryScreenThatOffersItGivesOnePage)
{
    int printed = 0;
    for (const ScreenRow &row : driver->program().screens().rows()) {
        const std::string name = row.name.toStdString();
        SCOPED_TRACE(name);
        say("open " + name);
        say("settle");
        Screen *shown = driver->program().screens().find(row.name);
        if (!shown || !offersPrint(*shown))
            continue;
        QFile::remove(pdf());
        EXPECT_TRUE(printScreen(*shown, pdf()));
        EXPECT_EQ(pages(), 1);
        EXPECT_TRUE(showsSomething(*shown));
        QFile::copy(pdf(), qEnvironmentVariable("CIRCUIDEX_PAGES", u"/nowhere"_s) + u'/' + row.name + u".pdf"_s);
        say("calls");
        shown->print();
        EXPECT_NE(say("calls").find("print "), std::string::npos);
        ++printed;
        if (name != "Form1")
            say("close " + name);
    }
    EXPECT_GT(printed, 30);
}

TEST_F(PrintedScreens, AnArticleTakesThePagesThatItNeeds)
{
    EXPECT_TRUE(printText(u"Deux mots"_s, pdf()));
    EXPECT_EQ(pages(), 1);
    EXPECT_TRUE(printText(u"Une ligne du journal, assez longue pour la feuille.\n"_s.repeated(300), pdf()));
    EXPECT_GT(pages(), 4);
    EXPECT_LT(pages(), 9);
}

// Nothing is said and nothing is left open.
TEST_F(PrintedScreens, WhatCantBePrintedIsPassedOver)
{
    EXPECT_FALSE(printScreen(screen("Form1"))); // there is no printer
    EXPECT_FALSE(printText(u"x"_s));
    EXPECT_EQ(say("messages"), "");
}

}
