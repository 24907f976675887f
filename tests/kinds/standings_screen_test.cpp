// SPDX-License-Identifier: GPL-3.0-or-later
// What a person sees and does in the large tables: colours that are painted, keys that walk, heads with whole names.
#include "shell/driven_program.h"

#include <QTest>

using namespace circuidex;

namespace {

class LargeTables : public test::DrivenProgram {
protected:
    LargeTables() : DrivenProgram({"f12003.ini", "Année"}) { say("set Form1.an 2003"); }

    // Near the right edge of a cell's bottom, where no letter reaches.
    static QColor painted(Table &table, int row, int column)
    {
        const QRect cell = table.visualRect(table.model().index(row, column));
        return table.viewport()->grab().toImage().pixelColor(cell.right() - 3, cell.bottom() - 2);
    }
};

TEST_F(LargeTables, PaintTheFavouritesRow)
{
    Table &table = *open("Form6").tables().front();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model().index(2, 1)).center());
    EXPECT_EQ(say("get Form6.Text5"), "Juan Pablo Montoya");
    for (int column = 1; column <= 4; ++column)
        EXPECT_EQ(painted(table, 2, column), QColor(192, 192, 255)) << column;
    EXPECT_NE(painted(table, 2, 0), QColor(192, 192, 255)) << "the rank is the row's";
    EXPECT_NE(painted(table, 3, 1), QColor(192, 192, 255));

    Table &detail = *open("Form7").tables().front();
    detail.setBack(u"Text5", 30, QColor(192, 255, 192)); // race 1, driver 5
    EXPECT_EQ(painted(detail, 4, 2), QColor(192, 255, 192));
}

TEST_F(LargeTables, AnswerKeys)
{
    Screen &drivers = open("Form6");
    drivers.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&drivers));
    Table &table = *drivers.tables().front();
    table.setCurrentIndex(table.model().index(4, 1));
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(say("get Form6.Text5"), "Fernando Alonso");
    EXPECT_EQ(say("get Form6.classement"), "6");
    say("set Form6.Text5 Jarno Trulli");
    QTest::keyClick(&drivers, Qt::Key_Return);
    EXPECT_EQ(say("get Form6.classement"), "8");
    QTest::keyClick(&drivers, Qt::Key_PageDown);
    EXPECT_EQ(say("get Form6.Text5"), "Michael Schumacher");
    QTest::keyClick(&drivers, Qt::Key_PageUp);
    EXPECT_EQ(say("get Form6.nopilott"), "0");
    QTest::keyClick(&drivers, Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(say("get Form26.Label2"), "fr6");
    QTest::keyClick(&drivers, Qt::Key_Escape);
    EXPECT_EQ(say("isopen Form6"), "no");
}

TEST_F(LargeTables, HeadTheirRaces)
{
    const Screen &detail = open("Form7");
    const auto head = [&](std::size_t band, int column, int role) {
        return detail.tables().at(band)->model().headerData(column, Qt::Horizontal, role).toString().toStdString();
    };
    EXPECT_EQ(head(0, 1, Qt::DisplayRole), "Australie");
    EXPECT_EQ(head(1, 1, Qt::DisplayRole), "G. bretagne");
    EXPECT_EQ(head(1, 1, Qt::ToolTipRole), "Grande bretagne");
    EXPECT_LE(detail.width(), 1024);
    EXPECT_LE(detail.height(), 768);
}

}
