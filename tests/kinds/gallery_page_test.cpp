// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/driven_program.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class GalleryPageTest : public DrivenProgram {
protected:
    GalleryPageTest() : DrivenProgram({"f12005.ini", "Année"}) { }

    // Whether the slot would take it, and then it falls there.
    bool drop(QWidget &slot, const QList<QUrl> &files)
    {
        QMimeData dragged;
        dragged.setUrls(files);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QDropEvent fall(QPointF(5, 5), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&slot, &enter);
        QApplication::sendEvent(&slot, &fall);
        return enter.isAccepted();
    }
};

TEST_F(GalleryPageTest, AFileThatIsDroppedOnASlotIsFiledThere)
{
    Screen &films = open("frmmain");
    auto &slot = *static_cast<WidgetControl *>(films.control(QStringLiteral("Label4"), 7))->widget();
    const auto file = [](const char *path) { return QUrl::fromLocalFile(QString::fromUtf8(path)); };
    EXPECT_FALSE(drop(slot, {QUrl(QStringLiteral("http://example.org/a.avi"))}));
    EXPECT_FALSE(drop(slot, {file("/a.avi"), file("/b.avi")})) << "one at a time";
    EXPECT_TRUE(drop(slot, {file("/films/Żółw.avi")}));
    EXPECT_TRUE(say("messages").starts_with("Ce fichier ne peut pas être retenu")) << "a path that can't be kept";
    EXPECT_EQ(say("read f1galerie.ini [gp] vid7.1"), "");
    EXPECT_TRUE(drop(slot, {file("/films/été.avi")}));
    EXPECT_EQ(say("read f1galerie.ini [gp] vid7.1"), "/films/été.avi");
    EXPECT_EQ(say("get frmmain.iNdexx"), "7");
    EXPECT_EQ(say("calls"), "film open /films/été.avi\tfilm play /films/été.avi\tfilm play /films/été.avi");
}

}
