// What the screens behind the lists get of a choice: stand-ins for them note what is written into which control and
// what is pressed, in order.
#include "app/driver.h"
#include "app/screens.h"
#include "kinds/picker.h"
#include "store/temporary_folder.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace circuidex;

namespace {

QStringList journal;

class StandIn : public Screen {
public:
    StandIn(Context &theContext, const QString &name, const QString &title) : Screen(theContext, name, title)
    {
        for (const char *box : {"Text1", "Text5", "no", "nopilot", "Label16"})
            note(QString::fromLatin1(box), std::nullopt);
        note(QStringLiteral("Text3"), 4);
        note(QStringLiteral("Text99"), 7);
        for (const char *button : {"Command1", "Command2", "Command3", "Command7", "Command8", "Command55"})
            hidden(QString::fromLatin1(button), {},
                   [this, button] { journal << this->name() + u'.' + QString::fromLatin1(button); });
    }

private:
    void note(const QString &box, std::optional<int> index)
    {
        hidden(box, {}, {}, index).onChange = [this, box, index](const QString &text) {
            const QString tag = control(box, index)->tag;
            journal << this->name() + u'.' + box + u'=' + text + (tag.isEmpty() ? tag : QStringLiteral(" tag ") + tag);
        };
    }
};

Screen *makeStandIn(Context &context, const QString &name, const QString &title)
{
    return new StandIn(context, name, title);
}

std::vector<ScreenRow> rowsWith(const std::vector<const char *> &standIns)
{
    std::vector<ScreenRow> rows;
    for (ScreenRow &row : screenRows())
        if (row.name == u"Form25" || row.name == u"Form26" || row.name == u"Form42")
            rows.push_back(row);
    for (const char *name : standIns)
        rows.push_back({QString::fromLatin1(name), {}, makeStandIn});
    return rows;
}

class PickersTest : public testing::Test {
protected:
    PickersTest()
    {
        std::filesystem::copy(CIRCUIDEX_SAMPLE, folder.path());
        main.an.set("2005");
        screens.setContext(context);
        journal.clear();
    }

    // Opens the list, clicks on an entry, and tells what came of it.
    QString pick(PickList kind, const char *word, int entry)
    {
        journal.clear();
        Screen *list = openPicker(screens, kind, QString::fromLatin1(word));
        const QString name = list->name();
        list->press(kind == PickList::teams ? QStringLiteral("Text3") : QStringLiteral("Label6"), entry);
        EXPECT_FALSE(screens.isOpen(name)) << word;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return journal.join(QStringLiteral(", "));
    }

    circuidex::test::TemporaryFolder folder;
    Store store{folder.path()};
    QueuedDialogs dialogs;
    RecordingPlatform platform;
    results::MainRecord main{store, dialogs};
    Screens screens{rowsWith({"Form1", "Form3", "Form8", "Form20", "Form23", "Form34", "Form48", "Form60",
                              "Form61", "Form78", "Form94"})};
    Context context{store, main, dialogs, platform, screens};
};

TEST_F(PickersTest, OpenScreensAreServed)
{
    struct Case {
        PickList list;
        const char *word;
        int entry;
        const char *screen, *expected;
    };
    const Case cases[] = {
        {PickList::drivers, "class7", 8, "Form48", "Form48.Text99=Kimi Räikkönen tag 9"},
        {PickList::drivers, "n3", 8, "Form8", "Form8.Text5=9, Form8.Label16=Kimi Räikkönen, Form8.Command1"},
        {PickList::drivers, "fr3", 25, "Form3", "Form3.nopilot=26, Form3.Command3"},
        {PickList::drivers, "resum", 4, "Form60", "Form60.no=4, Form60.Text1=Fernando Alonso, Form60.Command2"},
        {PickList::teams, "resecurie", 3, "Form61", "Form61.Text1=Renault, Form61.Command2"},
        {PickList::teams, "nobody", 3, "Form61", ""},
        {PickList::grandsPrix, "f344", 3, "Form34", "Form34.Text3=Monaco"},
        {PickList::grandsPrix, "compaecu", 3, "Form78", "Form78.Text1=Monaco, Form78.Command55"},
        {PickList::grandsPrix, "a1", 3, "Form20", "Form20.Text1=Monaco, Form20.Command1"},
    };
    for (const Case &c : cases) {
        screens.open(QString::fromLatin1(c.screen));
        EXPECT_EQ(pick(c.list, c.word, c.entry).toStdString(), c.expected) << c.word;
    }
}

// A screen that was closed in the meantime isn't opened again.
TEST_F(PickersTest, ClosedScreensStayClosed)
{
    EXPECT_EQ(pick(PickList::drivers, "n3", 0) + pick(PickList::grandsPrix, "a1", 0), QString());
    EXPECT_TRUE(screens.openNames().isEmpty());
}

// Without a word a driver's wins are shown, whether their screen was open or not.
TEST_F(PickersTest, ADriverThatNobodyAskedForShowsHisWins)
{
    EXPECT_EQ(pick(PickList::drivers, "", 4).toStdString(), "Form23.Text1=Fernando Alonso, Form23.Command1");
    EXPECT_EQ(screens.openNames(), QStringList{QStringLiteral("Form23")});
    EXPECT_EQ(pick(PickList::drivers, "unheard", 8).toStdString(), "Form23.Text1=Kimi Räikkönen, Form23.Command1");
}

// An opener may want another season; what an earlier one left on the open list is gone.
TEST_F(PickersTest, TheLastOpenerCounts)
{
    screens.open(QStringLiteral("Form60"));
    openPicker(screens, PickList::drivers, QStringLiteral("classcarriere"));
    Screen *list = openPicker(screens, PickList::drivers, QStringLiteral("resum"), QStringLiteral("2003"));
    EXPECT_EQ(list->text(QStringLiteral("Tag")), QString());
    list->press(QStringLiteral("Label6"), 5);
    EXPECT_EQ(journal.join(u' '), QStringLiteral("Form60.no=5 Form60.Text1=Kimi Räikkönen Form60.Command2"));
}

TEST_F(PickersTest, TagsAreLeftAsTags)
{
    screens.open(QStringLiteral("Form94"));
    Screen *list = openPicker(screens, PickList::grandsPrix, QStringLiteral("courseanalyse94"));
    EXPECT_EQ(list->text(QStringLiteral("Tag")), QStringLiteral("courseanalyse94"));
    EXPECT_EQ(list->text(QStringLiteral("Label2")), QString());
}

}
