// The drop-down lists of the style properties: opened, left and walked through by keys and pointer.

#include "tests/keyboard/editor_session.h"

#include "support/tables.h"

namespace
{

class Combos : public EditorSession
{
protected:
    // Goes round by Tab once and gives the controls that had the focus.
    std::vector<std::string> tabOrder()
    {
        std::vector<std::string> order{editor().focus()};
        do
        {
            editor().key("Tab");
            order.push_back(editor().focus());
        } while (order.back() != order.front() && order.size() < 50);
        return order;
    }

    // By the pointer at first; a click right after the list has closed is taken for the end of the
    // click that closed it.
    void open(const std::string& combo)
    {
        if (editor().focus() == combo)
            editor().key("alt+Down");
        else
            editor().click(combo);
        ASSERT_TRUE(editor().openList(combo).has_value()) << combo;
    }

    int highlighted(const std::string& combo)
    {
        const auto list = editor().openList(combo);
        return list ? list->highlighted : -1;
    }

    void expectUnchanged()
    {
        editor().key("Escape");
        EXPECT_EQ(editor().wait(), 1) << "nothing was changed, so nothing is asked";
    }
};

const char* const combos[] = {"ComboColor",    "ComboLineType",  "ComboLineWeight",
                              "ComboEndStyle", "ComboJoinStyle", "ComboFillStyle"};
const char* const mnemonics[] = {"alt+c", "alt+t", "alt+w", "alt+e", "alt+n", "alt+f"};

} // namespace

TEST_F(Combos, StayInTheTabOrderAfterTheirListsWereOpen)
{
    openColors();
    const auto before = tabOrder();
    for (const char* combo : combos)
    {
        open(combo);
        editor().key("Escape");
        EXPECT_EQ(editor().focus(), combo);
        editor().clickRow("ListStyles", 0);
    }
    EXPECT_EQ(tabOrder(), before);
    expectUnchanged();
}

TEST_F(Combos, KeepTheirMnemonicsAfterTheirListsWereOpen)
{
    openColors();
    for (std::size_t i = 0; i < std::size(combos); ++i)
    {
        open(combos[i]);
        editor().key("Escape");
        editor().clickRow("ListStyles", 0);
        editor().key(mnemonics[i]);
        EXPECT_EQ(editor().focus(), combos[i]);
    }
}

TEST_F(Combos, LookFocusedOnlyWhileTheyAre)
{
    openColors();
    const ScreenRect face = editor().control("ComboEndStyle").place;
    const auto looksFocused = [&] { return editor().hands().blueShare(face) > 0.5; };
    EXPECT_FALSE(looksFocused());
    open("ComboEndStyle");
    editor().key("Escape");
    EXPECT_TRUE(editor().waitFor(looksFocused));
    editor().clickRow("ListStyles", 0);
    EXPECT_TRUE(editor().waitFor([&] { return !looksFocused(); }));
}

TEST_F(Combos, EscapeInAnOpenListRestoresWhatWasShown)
{
    openColors([](OdPsPlotStyleTable& table)
               { support::changeData(table, 0, [](auto& data) { data.joinStyle = 2; }); });
    ASSERT_EQ(editor().text("ComboJoinStyle"), "Round");
    for (const char* keys : {"Down", "d", "m", "End"})
    {
        open("ComboJoinStyle");
        editor().key(keys);
        EXPECT_NE(highlighted("ComboJoinStyle"), 3) << keys;
        editor().key("Escape");
        EXPECT_EQ(editor().text("ComboJoinStyle"), "Round") << keys;
    }
    open("ComboJoinStyle");
    editor().key("d");
    editor().clickRow("ListStyles", 0);
    EXPECT_FALSE(editor().openList("ComboJoinStyle").has_value());
    EXPECT_EQ(editor().text("ComboJoinStyle"), "Round") << "a click elsewhere picks nothing";
    expectUnchanged();
}

TEST_F(Combos, EscapeLeavesVaryingStylesAsTheyAre)
{
    openColors([](OdPsPlotStyleTable& table)
               { support::changeData(table, 0, [](auto& data) { data.joinStyle = 2; }); });
    editor().clickRow("ListStyles", 1, "shift");
    open("ComboJoinStyle");
    editor().key("d");
    editor().key("Escape");
    EXPECT_EQ(editor().text("ComboJoinStyle"), "Varies");
    expectUnchanged();
}

TEST_F(Combos, LettersAndReturnPick)
{
    openColors();
    open("ComboJoinStyle");
    editor().type("di");
    EXPECT_EQ(highlighted("ComboJoinStyle"), 4);
    editor().key("Return");
    EXPECT_EQ(editor().text("ComboJoinStyle"), "Diamond");
    EXPECT_EQ(savedData(0).joinStyle, 3);
}

TEST_F(Combos, LettersTypedInOneGoAreOneText)
{
    openColors();
    open("ComboLineType");
    editor().type("dotted");
    EXPECT_EQ(highlighted("ComboLineType"), 3) << "behind another entry with this letter";
    editor().key("Return");
    EXPECT_EQ(savedData(0).linetype, 2);
}

TEST_F(Combos, AClickPicksTheSecondOfTwoEqualLineweights)
{
    openColors([](OdPsPlotStyleTable& table) { table.setLineweightAt(3, 0.09); });
    open("ComboLineWeight");
    const auto list = editor().openList("ComboLineWeight");
    ASSERT_TRUE(list.has_value());
    int y = list->place.y;
    // The fifth entry, wherever it is: the highlight follows the pointer.
    while (highlighted("ComboLineWeight") != 4 && y < list->place.y + list->place.height)
    {
        editor().hands().moveTo({list->place.x + 20, y += 4});
        editor().settle();
    }
    editor().clickAt({list->place.x + 20, y});
    EXPECT_FALSE(editor().openList("ComboLineWeight").has_value());
    EXPECT_EQ(savedData(0).lineweight, 4);
}

TEST_F(Combos, OpenByAClickAfterTheWheelHasPassed)
{
    openColors();
    editor().clickRow("ListStyles", 2);
    editor().click("SpinVirtPen");
    for (const char* combo : combos)
    {
        editor().wheel(combo, 1);
        editor().click(combo);
        EXPECT_TRUE(editor().openList(combo).has_value()) << combo;
        editor().key("Escape");
    }
}

TEST_F(Combos, PagesDoNotTurnUnderAnOpenList)
{
    openColors();
    open("ComboJoinStyle");
    editor().key("ctrl+Next");
    EXPECT_EQ(editor().text("NoteBook"), "Form View");
    EXPECT_TRUE(editor().openList("ComboJoinStyle").has_value());
    editor().key("Escape");
    expectUnchanged();
}

TEST_F(Combos, DownOnTheLastColourChangesNothing)
{
    openColors([](OdPsPlotStyleTable& table)
               { support::changeData(table, 0, [](auto& data) { data.color.setRGB(0, 0, 0); }); });
    ASSERT_EQ(editor().text("ComboColor"), "Black");
    editor().key("alt+c");
    editor().keys({"Down", "Next", "End"});
    EXPECT_EQ(editor().text("ComboColor"), "Black");
    EXPECT_EQ(editor().dialogs().size(), 1u);
    expectUnchanged();
}

TEST_F(Combos, ReturnOnAClosedOneConfirms)
{
    openColors();
    editor().key("alt+n");
    editor().key("Down");
    editor().key("Return");
    EXPECT_EQ(editor().wait(), 0);
    EXPECT_EQ(dataOf(stored(), 0).joinStyle, 0);
}
