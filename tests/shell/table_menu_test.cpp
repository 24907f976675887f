// SPDX-License-Identifier: GPL-3.0-or-later
// What every table offers, by its keys: copies with titles, files, another order for the eye, a text found.
#include "shell/driven_program.h"
#include "shell/find_line.h"
#include "shell/table_sort.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

using namespace circuidex;
using namespace circuidex::test;

namespace {

class TableMenuTest : public DrivenProgram {
protected:
    TableMenuTest() : DrivenProgram({"f12003.ini", "f12004.ini", "f12005.ini", "f1ARCHIVES.ini", "Année"}) { }

    Table &tableOf(const char *name)
    {
        say(std::string("open ") + name);
        return *screen(name).tables().front();
    }
    static void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers held = {})
    {
        QTest::keyClick(&widget, key, held);
    }
    static constexpr Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
};

TEST_F(TableMenuTest, CopiesAllWithTitles)
{
    Table &table = tableOf("Form6");
    press(table, Qt::Key_C, both);
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    EXPECT_EQ(lines[0].toStdString(), "Rang\tPilote\tEcurie\tPoints\tEcart");
    EXPECT_EQ(lines[1].toStdString(), "1er\tFernando Alonso\tRenault\t123\t0");
    EXPECT_EQ(lines.size(), 28); // of 26 drivers, and the end
}

TEST_F(TableMenuTest, SavesCsvAndHtmlForWhoIsCalledByMarkup)
{
    say("write f12005.ini [N°] nom5==1+1;\"<script>x</script>\"");
    Table &table = tableOf("Form6");
    const auto saved = [&](Qt::Key key, const char *name) {
        say("answer " + (folder / name).string());
        press(table, key, both);
        return content(folder / name);
    };
    EXPECT_TRUE(saved(Qt::Key_S, "a.csv")
                    .starts_with("\xEF\xBB\xBFRang;Pilote;Ecurie;Points;Ecart\n1er;\"'=1+1;\"\"<script>x</"
                                 "script>\"\"\";Renault;123;0\n"));
    const std::string html = saved(Qt::Key_H, "a.html");
    EXPECT_NE(html.find("<h1>Classement Pilote – saison 2005</h1>"), std::string::npos);
    EXPECT_NE(html.find("<td>=1+1;&quot;&lt;script&gt;x&lt;/script&gt;&quot;</td>"), std::string::npos);
    EXPECT_EQ(say("messages"), "");
    say("answer /nowhere/a.csv");
    press(table, Qt::Key_S, both);
    EXPECT_EQ(say("messages"), "Le fichier « /nowhere/a.csv » n'a pas pu être enregistré.");
}

QStringList names(const Table &table, int column)
{
    QStringList seen;
    for (int i = 0; i < table.model().rowCount(); ++i)
        seen << table.model().cell(table.verticalHeader()->logicalIndex(i), column).text();
    return seen;
}

TEST_F(TableMenuTest, SortsForTheEyeAlone)
{
    Table &table = tableOf("Form60");
    const QString before = table.asText();
    table.goTo(0, 4); // places gained
    press(table, Qt::Key_T, both);
    EXPECT_EQ(names(table, 4).first().toStdString(), "-1");
    press(table, Qt::Key_T, both);
    EXPECT_EQ(names(table, 4).first().toStdString(), "+11");
    EXPECT_EQ(names(table, 4).last().toStdString(), "");
    EXPECT_EQ(table.asText(), before); // the cells mean what they meant
    press(table, Qt::Key_C, both);
    EXPECT_TRUE(QApplication::clipboard()->text().section(u'\n', 1, 1).startsWith(u"4\tSaint-Marin\t"));
    const QRect place = table.visualRect(table.model().index(3, 1));
    EXPECT_LT(place.top(), place.height()); // first in sight, and a click there hits its race
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place.center());
    EXPECT_EQ(say("get Form4.gp"), "Saint-Marin");
    say("press Form60.Command3"); // another driver: the order follows
    say("settle");
    QStringList gains = names(table, 4), sorted = gains;
    std::stable_sort(sorted.begin(), sorted.end(), [](const QString &a, const QString &b) {
        return a.isEmpty() || b.isEmpty() ? !a.isEmpty() && b.isEmpty() : comesBefore(b, a);
    });
    EXPECT_EQ(gains, sorted);
    press(table, Qt::Key_O, both);
    EXPECT_EQ(names(table, 0).mid(0, 3), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
    Table &ranks = tableOf("Form6"); // whose order is the meaning
    ranks.goTo(0, 1);
    press(ranks, Qt::Key_T, both);
    EXPECT_EQ(names(ranks, 0).first().toStdString(), "1er");
}

TEST_F(TableMenuTest, KnowsNumbersDatesAndNames)
{
    for (const auto &[a, b] : {std::pair("2", "10"),
                               {"- 10 pts", "+ 3"},
                               {"-1", "="},
                               {"=", "+1"},
                               {"1,5", "1,25e"},
                               {"2nd", "10ème"},
                               {"20/03/2004", "07/03/2005"},
                               {"12", "Alonso"},
                               {"Écosse", "Etats-unis"}})
        EXPECT_TRUE(comesBefore(QString::fromUtf8(a), QString::fromUtf8(b)) !=
                    comesBefore(QString::fromUtf8(b), QString::fromUtf8(a)))
            << a << ' ' << b;
    EXPECT_TRUE(comesBefore(u"2"_s, u"10"_s));
    EXPECT_TRUE(comesBefore(u"- 10 pts"_s, u"+ 3"_s));
    EXPECT_TRUE(comesBefore(u"20/03/2004"_s, u"07/03/2005"_s));
}

TEST_F(TableMenuTest, FindsATextAndGoesOn)
{
    Table &table = tableOf("Form6");
    say("key Form6.Text5 Ctrl+F");
    auto *line = dynamic_cast<FindLine *>(table.findChild<QFrame *>(u"find"_s));
    ASSERT_TRUE(line && line->isVisibleTo(&table));
    auto *edit = line->findChild<QLineEdit *>();
    const auto found = [&] { return table.currentIndex().data().toString().toStdString(); };
    QTest::keyClicks(edit, u"schuma"_s);
    EXPECT_EQ(found(), "Michael Schumacher");
    press(*edit, Qt::Key_Return);
    EXPECT_EQ(found(), "Ralf Schumacher");
    press(*edit, Qt::Key_Return); // round again
    EXPECT_EQ(found(), "Michael Schumacher");
    press(*edit, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(found(), "Ralf Schumacher");
    edit->setText(u"raikkonen"_s);
    EXPECT_EQ(found(), "Kimi Räikkönen");
    edit->setText(u"personne"_s);
    EXPECT_EQ(line->findChild<QLabel *>()->text().toStdString(), "aucun");
    press(*edit, Qt::Key_Escape);
    EXPECT_FALSE(line->isVisibleTo(&table));
    EXPECT_EQ(say("isopen Form6"), "yes");
    EXPECT_EQ(say("get Form6.Text3(1)"), "Fernando Alonso");
}

TEST_F(TableMenuTest, OpensByTheMenuKey)
{
    const auto captions = [](QWidget &widget) {
        press(widget, Qt::Key_F10, Qt::ShiftModifier);
        QStringList seen;
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            for (const QAction *action : menu->actions())
                seen << action->text().section(u'\t', 0, 0);
            menu->close();
        }
        return seen.join(u'|').toStdString();
    };
    Table &sorts = tableOf("Form60"), &ranks = tableOf("Form6");
    sorts.setFocus();
    sorts.goTo(0, 1);
    EXPECT_EQ(captions(sorts),
              "Copier|Copier tout le tableau||Enregistrer en CSV…|Enregistrer en HTML…||Trier par cette "
              "colonne||Rechercher…");
    ranks.setFocus();
    EXPECT_EQ(captions(ranks), "Copier|Copier tout le tableau||Enregistrer en CSV…|Enregistrer en HTML…||Rechercher…");
}

}
