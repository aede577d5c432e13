// An edit of a list row that is still open when another command comes: it ends first, on its own
// row, or it is refused and the command does not happen.

#include "tests/keyboard/editor_session.h"

#include "support/table_maker.h"
#include "support/tables.h"

namespace
{

using Names = std::vector<std::string>;
using Lineweights = std::vector<double>;

const char* const limitMessage = "Custom lineweights must be";

class PendingRename : public EditorSession
{
protected:
    void startRename(int row, std::string_view text)
    {
        editor().clickRow("ListStyles", row);
        editor().key("F2");
        ASSERT_TRUE(editor().edit("ListStyles").has_value());
        retype(text);
    }

    // Longer than two clicks that are one double click, and than a slow click takes.
    void passTime()
    {
        for (int i = 0; i < 150; ++i)
            editor().key("Shift_L");
    }
};

class PendingLineweight : public EditorSession
{
protected:
    // The first lineweights of the table are these.
    void openLineweights(const Lineweights& values)
    {
        openColors(
            [&values](OdPsPlotStyleTable& table)
            {
                for (std::size_t i = 0; i < values.size(); ++i)
                    table.setLineweightAt(static_cast<int>(i), values[i]);
                support::changeData(table, 0, [](auto& data) { data.lineweight = 5; });
            });
        turnToLineweights();
    }

    Lineweights storedLineweights(int count) const
    {
        Lineweights values;
        for (int i = 0; i < count; ++i)
            values.push_back(stored()->lineweightAt(i));
        return values;
    }

    // The width, in millimetres, that the first style is drawn with.
    double widthOfFirstStyle() const
    {
        return stored()->lineweightAt(static_cast<int>(dataOf(stored(), 0).lineweight) - 1);
    }
};

} // namespace

TEST_F(PendingRename, EndsBeforeItsOwnLastRowIsDeleted)
{
    openNamed({"A", "B", "C", "D"});
    startRename(4, "XY");
    editor().key("alt+l");
    EXPECT_EQ(editor().rows("ListStyles"), (Names{"Normal", "A", "B", "C"}));
    editor().key("Return");
    EXPECT_EQ(savedNames(), (Names{"Normal", "A", "B", "C"}));
}

TEST_F(PendingRename, EndsOnItsOwnRowWhenThatIsDeleted)
{
    openNamed({"A", "B", "C", "D"});
    startRename(2, "XY");
    editor().key("alt+l");
    editor().key("Return");
    EXPECT_EQ(savedNames(), (Names{"Normal", "A", "C", "D"}));
}

TEST_F(PendingRename, IsTakenBeforeAStyleIsAdded)
{
    openNamed({"A", "B"});
    startRename(1, "Walls");
    editor().key("alt+d");
    ASSERT_TRUE(editor().waitForDialog("Add Plot Style"));
    retype("New");
    editor().key("Return");
    EXPECT_EQ(savedNames(), (Names{"Normal", "Walls", "New", "B"}));
}

TEST_F(PendingRename, IsTakenByEveryOtherCommand)
{
    for (const char* command : {"alt+g", "alt+h", "ctrl+Next", "alt+s"})
    {
        openNamed({"A", "B"});
        startRename(1, "Walls");
        editor().key(command);
        if (command != std::string("alt+s"))
            EXPECT_EQ(savedNames(), (Names{"Normal", "Walls", "B"})) << command;
        else
            EXPECT_EQ(editor().wait(), 0);
        EXPECT_EQ(std::wstring(stored()->styleAt(1)->name().c_str()), L"Walls") << command;
    }
}

TEST_F(PendingRename, IsTakenWhenTheWindowIsClosedAndTheQuestionAnswered)
{
    openNamed({"A"});
    startRename(1, "Walls");
    editor().key("alt+F4");
    ASSERT_TRUE(editor().waitForDialog("Do you want to save changes?"));
    editor().key("alt+y");
    EXPECT_EQ(editor().wait(), 1);
    EXPECT_EQ(std::wstring(stored()->styleAt(1)->name().c_str()), L"Walls");
}

TEST_F(PendingRename, StopsACommandWhenItIsRefusedAndGoesOn)
{
    for (const char* command : {"ctrl+Prior", "ctrl+Tab", "ctrl+Next", "alt+l", "alt+d", "alt+g",
                                "alt+s", "alt+o", "alt+a"})
    {
        openNamed({"A", "B"});
        startRename(2, "a:b");
        // The message is there before a user lets the keys go.
        editor().hands().hold(command);
        ASSERT_TRUE(editor().waitForDialog("cannot contain")) << command;
        EXPECT_EQ(editor().text("NoteBook"), "Form View") << command << " behind the message";
        editor().hands().letGo(command);
        editor().key("Return");
        EXPECT_EQ(editor().dialogs().size(), 1u) << command;
        EXPECT_EQ(editor().edit("ListStyles"), "a:b") << command;
        EXPECT_EQ(editor().text("NoteBook"), "Form View") << command;
        EXPECT_EQ(editor().text("CheckGrayscale"), "unchecked") << command;
        retype("ab");
        editor().key("Return");
        EXPECT_EQ(savedNames(), (Names{"Normal", "A", "ab"})) << command;
    }
}

TEST_F(PendingRename, GoesOnAfterARefusalByReturnOrByAClickElsewhere)
{
    openNamed({"A", "B"});
    startRename(1, "b");
    editor().hands().key("Return");
    ASSERT_TRUE(editor().waitForDialog("already exists"));
    editor().key("Return");
    EXPECT_EQ(editor().edit("ListStyles"), "b");
    editor().hands().click(editor().control("wxID_CANCEL").place.centre());
    ASSERT_TRUE(editor().waitForDialog("already exists"));
    editor().key("Return");
    EXPECT_FALSE(editor().hasEnded());
    EXPECT_EQ(editor().edit("ListStyles"), "b");
    editor().key("Escape");
    EXPECT_EQ(editor().rows("ListStyles"), (Names{"Normal", "A", "B"}));
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed, so nothing is asked";
}

// A click on a selected row begins an edit, too, if nothing else comes for a while.
TEST_F(PendingRename, IsBegunOnceByASlowClickAndAKey)
{
    openNamed({"A", "B"});
    editor().clickRow("ListStyles", 2);
    passTime();
    editor().clickRow("ListStyles", 2);
    editor().key("F2");
    retype("Walls");
    passTime();
    EXPECT_EQ(editor().edit("ListStyles"), "Walls");
    editor().key("Return");
    EXPECT_EQ(savedNames(), (Names{"Normal", "A", "Walls"}));
}

TEST_F(PendingRename, IsNotBegunByASlowClickOnARowThatIsDeletedThen)
{
    openNamed({"A", "B", "C"});
    editor().clickRow("ListStyles", 2);
    passTime();
    editor().clickRow("ListStyles", 2);
    editor().key("Delete");
    passTime();
    EXPECT_EQ(editor().edit("ListStyles"), std::nullopt);
    EXPECT_EQ(savedNames(), (Names{"Normal", "A", "C"}));
}

TEST_F(PendingRename, ScrollsItsRowIntoView)
{
    std::vector<std::string> names;
    for (int i = 1; i < 60; ++i)
        names.push_back("Style " + std::to_string(i));
    openNamed(names);
    editor().clickRow("ListStyles", 1);
    editor().wheel("ListStyles", 10);
    ASSERT_FALSE(editor().isRowInView("ListStyles", 1));
    editor().key("F2");
    EXPECT_TRUE(editor().isRowInView("ListStyles", 1));
    retype("Style 2");
    editor().wheel("ListStyles", 10);
    editor().hands().key("Return");
    ASSERT_TRUE(editor().waitForDialog("already exists"));
    editor().key("Return");
    EXPECT_EQ(editor().edit("ListStyles"), "Style 2");
    EXPECT_TRUE(editor().isRowInView("ListStyles", 1));
}

TEST_F(PendingRename, ToNothingShowsTheNameAgain)
{
    openNamed({"A", "B"});
    startRename(1, "x");
    editor().key("BackSpace");
    editor().key("Return");
    EXPECT_EQ(editor().rows("ListStyles"), (Names{"Normal", "A", "B"}));
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed";
}

TEST_F(PendingLineweight, IsTakenBeforeTheSort)
{
    openLineweights({0, 0.05, 0.09, 0.1, 0.13, 1.5, 0.02});
    startLineweight(5, "1.6");
    editor().key("alt+r");
    editor().key("Return");
    EXPECT_EQ(saved()->lineweightAt(0), 0);
    EXPECT_EQ(storedLineweights(6), (Lineweights{0, 0.02, 0.05, 0.09, 0.1, 0.13}));
    EXPECT_EQ(widthOfFirstStyle(), 0.13);
}

TEST_F(PendingLineweight, IsTakenBeforeTheButtonBeginsAnother)
{
    openLineweights({});
    startLineweight(5, "3");
    editor().key("alt+e");
    EXPECT_EQ(editor().edit("ListLineWeights"), "3.0000");
    editor().key("Return");
    saved();
    EXPECT_EQ(storedLineweights(6), (Lineweights{0, 0.05, 0.09, 0.1, 0.13, 0.18}));
    EXPECT_EQ(stored()->lineweightAt(26), 3);
}

TEST_F(PendingLineweight, IsTakenInTheUnitItWasTypedIn)
{
    openLineweights({});
    startLineweight(26, "5");
    editor().key("alt+i");
    EXPECT_EQ(saved()->lineweightAt(26), 5);
    EXPECT_TRUE(stored()->isDisplayCustomLineweightUnits());
}

TEST_F(PendingLineweight, KeepsTheUnitWhenItIsRefused)
{
    openLineweights({});
    startLineweight(26, "999");
    editor().hands().key("alt+i");
    ASSERT_TRUE(editor().waitForDialog(limitMessage));
    editor().key("Return");
    EXPECT_EQ(editor().text("RadLwMm"), "checked");
    EXPECT_EQ(editor().text("RadLwIn"), "unchecked");
    EXPECT_EQ(editor().edit("ListLineWeights"), "999");
    editor().key("Escape");
    editor().key("Escape");
    EXPECT_EQ(editor().waitForDialog("Do you want to save changes?"), true)
        << "giving up takes the value that the row shows";
}

TEST_F(PendingLineweight, HoldsTheDialogOpenWhenItIsRefusedByAClickOnCancel)
{
    openLineweights({});
    startLineweight(5, "999");
    editor().hands().click(editor().control("wxID_CANCEL").place.centre());
    ASSERT_TRUE(editor().waitForDialog(limitMessage));
    EXPECT_EQ(editor().dialogs().size(), 2u) << "the editor is still there";
    editor().key("Return");
    EXPECT_EQ(editor().edit("ListLineWeights"), "999");
    retype("0.16");
    editor().key("Return");
    EXPECT_EQ(saved()->lineweightAt(5), 0.16);
}

TEST_F(PendingLineweight, CanBeGivenUpWhereTheTableHoldsWhatIsRefused)
{
    openLineweights({250});
    editor().clickRow("ListLineWeights", 0);
    editor().key("F2");
    editor().hands().key("Escape");
    ASSERT_TRUE(editor().waitForDialog(limitMessage)) << "giving up takes the value that is shown";
    editor().key("Return");
    EXPECT_FALSE(editor().edit("ListLineWeights").has_value());
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed, so nothing is asked";
}

TEST_F(PendingLineweight, HoldsTheWindowOpenWhenItIsRefused)
{
    openLineweights({});
    startLineweight(5, "999");
    editor().hands().key("alt+F4");
    ASSERT_TRUE(editor().waitForDialog(limitMessage));
    editor().key("Return");
    EXPECT_EQ(editor().edit("ListLineWeights"), "999");
}

// A slow click: the button goes up when the message is there already.
TEST_F(PendingLineweight, HoldsTheDialogOpenWhenTheClickIsSlow)
{
    openLineweights({});
    startLineweight(5, "999");
    editor().hands().press(editor().control("wxID_OK").place.centre());
    ASSERT_TRUE(editor().waitForDialog(limitMessage));
    editor().hands().release();
    editor().settle();
    EXPECT_EQ(editor().dialogs().size(), 2u);
    editor().key("Return");
    EXPECT_EQ(editor().edit("ListLineWeights"), "999");
    retype("0.16");
    editor().key("Return");
    EXPECT_EQ(saved()->lineweightAt(5), 0.16);
}

TEST_F(PendingLineweight, TakesADecimalComma)
{
    openLineweights({});
    startLineweight(26, "1,5");
    editor().key("Return");
    EXPECT_EQ(editor().rows("ListLineWeights")[24], "1.5000");
    saved();
    EXPECT_EQ(stored()->lineweightAt(24), 1.5);
}
