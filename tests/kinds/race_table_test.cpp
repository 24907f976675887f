// SPDX-License-Identifier: GPL-3.0-or-later
// What a table race by race tells beside its figures.
#include "shell/driven_program.h"

using namespace circuidex;

namespace {

class RaceTableTest : public test::DrivenProgram {
protected:
    RaceTableTest() : DrivenProgram({"f12005.ini", "Année"}) { }

    std::string bold()
    {
        std::string names;
        const CellModel &cells = screen("Form31").tables().front()->model();
        for (int row = 0; row < cells.rowCount(); ++row)
            if (cells.index(row, 1).data(Qt::FontRole).value<QFont>().bold())
                names += cells.index(row, 1).data().toString().toStdString() + '.';
        return names;
    }
};

TEST_F(RaceTableTest, TheGrandPrixOfTheMainScreenIsBold)
{
    open("Form31");
    EXPECT_EQ(bold(), "Japon.");
    say("press Form1.Command9");
    EXPECT_EQ(bold(), "Brésil.");
    say("set Form31.Text2 1949");
    say("press Form31.Command2");
    EXPECT_EQ(bold(), "");
}

}
