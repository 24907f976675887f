// SPDX-License-Identifier: GPL-3.0-or-later
// Every screen that offers to print gives one page of what it shows; the journal's article gives as many as it needs. The
// pages are kept, to be looked at, in the folder that CIRCUIDEX_PAGES names.
#include "platform/qt_pictures.h"
#include "platform/qt_platform.h"
#include "shell/driven_program.h"

#include <QFile>
#include <QImage>
#include <QPainter>

#include <cmath>

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

// How far a page of a dense printer is from what the screen shows, per pixel and colour, of 255.
double distance(Screen &screen)
{
    QImage page(screen.size() * 2, QImage::Format_RGB32);
    page.setDotsPerMeterX(23622); // 600 dots per inch
    page.setDotsPerMeterY(23622);
    page.fill(Qt::white);
    QPainter painter(&page);
    drawScreen(screen, painter, page.size());
    painter.end();
    const auto small = [](const QImage &image) { return image.scaled(100, 100, Qt::IgnoreAspectRatio, Qt::SmoothTransformation); };
    const QImage printed = small(page), shown = small(screen.grab().toImage());
    double all = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 100; ++x)
            all += std::abs(qGray(printed.pixel(x, y)) - qGray(shown.pixel(x, y)));
    return all / 10'000;
}

TEST_F(PrintedScreens, EveryScreenThatOffersItGivesOnePage)
{
    int printed = 0;
    for (const ScreenRow &row : driver->program().screens().rows()) {
        const std::string name = row.name.toStdString();
        SCOPED_TRACE(name);
        if (name == "Form47")
            continue; // the end of the program
        say("open " + name);
        say("settle");
        Screen *shown = driver->program().screens().find(row.name);
        if (!shown || !offersPrint(*shown))
            continue;
        QFile::remove(pdf());
        EXPECT_TRUE(printScreen(*shown, pdf()));
        EXPECT_EQ(pages(), 1);
        shown->grab(); // asks for its pictures
        awaitPictures();
        EXPECT_LT(distance(*shown), 5);
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
