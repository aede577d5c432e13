// Walking and searching the lists, and turning the pages, by keys.

#include "tests/keyboard/editor_session.h"

#include "support/table_maker.h"
#include "support/tables.h"

namespace
{

using Rows = std::vector<int>;

class Lists : public EditorSession
{
protected:
    // Types in one go, and then so that the next text is another one.
    void search(std::string_view text)
    {
        editor().clickRow("ListStyles", 0);
        editor().type(text);
    }
};

} // namespace

TEST_F(Lists, TypingGoesToTheRowThatBegins)
{
    openColors();
    search("Color 137");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{136});
    editor().key("shift+Down");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{136, 137})) << "a range goes on from there";
}

TEST_F(Lists, DigitsGoToAColour)
{
    openColors();
    search("42");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{41});
}

TEST_F(Lists, ATextBeginsAnewAfterOtherKeysAndOtherControls)
{
    openColors();
    search("12");
    editor().keys({"Tab", "shift+Tab"});
    ASSERT_EQ(editor().focus(), "ListStyles");
    editor().type("15");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{14});
    editor().key("Down");
    editor().type("21");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{20});
}

TEST_F(Lists, ATextThatNothingBeginsWithKeepsTheSelection)
{
    openColors();
    search("999");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{98}) << "no colour has the whole number";
}

TEST_F(Lists, ABlankByItselfSelectsTheRowOrNot)
{
    openColors();
    editor().key("space");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{});
    editor().key("space");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{0});
}

TEST_F(Lists, NamesWithBlanksAreFound)
{
    openNamed({"Thin wall", "Thin red", "Thin red 2"});
    search("thin red 2");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{3});
}

TEST_F(Lists, OneLetterAgainAndAgainGoesRound)
{
    openNamed({"Axis", "Area", "Beam"});
    search("a");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{1});
    editor().type("a");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{2});
    editor().type("a");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{1}) << "however long the user takes";
}

TEST_F(Lists, LineweightsAreFoundByTheirNumbers)
{
    openColors();
    turnToLineweights();
    editor().clickRow("ListLineWeights", 0);
    editor().type("0.5");
    EXPECT_EQ(editor().selected("ListLineWeights"), Rows{13});
}

TEST_F(Lists, PagesTurnFromEveryControl)
{
    openColors();
    for (const char* control : {"ListStyles", "ComboColor", "SpinPhysPen", "CheckDither"})
    {
        if (control == std::string("ListStyles"))
            editor().clickRow(control, 0);
        else
            editor().click(control);
        if (editor().openList(control))
            editor().key("Escape");
        ASSERT_EQ(editor().focus(), control);
        editor().key("ctrl+Next");
        EXPECT_EQ(editor().text("NoteBook"), "Lineweights") << control;
        editor().key("ctrl+Prior");
        EXPECT_EQ(editor().text("NoteBook"), "Form View") << control;
        editor().key("ctrl+shift+Tab");
        EXPECT_EQ(editor().text("NoteBook"), "General") << control;
        editor().key("ctrl+Tab");
        EXPECT_EQ(editor().text("NoteBook"), "Form View") << control;
    }
    editor().key("ctrl+Prior");
    editor().click("TextTableDescr");
    editor().key("ctrl+Tab");
    EXPECT_EQ(editor().text("NoteBook"), "Form View");
    editor().key("ctrl+Prior");
    editor().click("wxID_OK");
    EXPECT_EQ(editor().wait(), 0);
}

TEST_F(Lists, AClickOnOneOfAllSelectedStylesLeavesThatOne)
{
    openColors([](OdPsPlotStyleTable& table)
               { support::changeData(table, 3, [](auto& data) { data.screening = 40; }); });
    editor().key("ctrl+a");
    ASSERT_EQ(editor().selected("ListStyles").size(), 255u);
    EXPECT_EQ(editor().text("SpinScreening"), "0");
    editor().clickRow("ListStyles", 3);
    EXPECT_EQ(editor().selected("ListStyles"), Rows{3});
    EXPECT_EQ(editor().text("SpinScreening"), "40");
    editor().key("shift+Down");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{3, 4}));
}

TEST_F(Lists, RangesBeginInRowsThatAreThere)
{
    // Before anything is selected, in the first row.
    open("fresh.ctb", support::pack(support::colorTableText()));
    editor().key("ctrl+Next");
    editor().key("Tab");
    for (int i = 0; editor().focus() != "ListStyles" && i < 20; ++i)
        editor().key("Tab");
    ASSERT_EQ(editor().focus(), "ListStyles");
    editor().key("shift+Down");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{0, 1}));
    editor().key("shift+Up");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{0});

    // After a key that led nowhere.
    editor().keys({"ctrl+End", "Down", "shift+Up"});
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{253, 254}));
    editor().keys({"ctrl+Home", "Up", "shift+Down"});
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{0, 1}));
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1);

    // A row that was deleted is no beginning any more, and a new one is.
    openNamed({"a", "b", "c", "d", "e", "f"});
    editor().clickRow("ListStyles", 6);
    editor().clickRow("ListStyles", 3, "shift");
    ASSERT_EQ(editor().selected("ListStyles"), (Rows{3, 4, 5, 6}));
    editor().key("Delete");
    ASSERT_EQ(editor().selected("ListStyles"), Rows{});
    editor().key("shift+Up");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{1, 2}));
    editor().key("Insert");
    ASSERT_TRUE(editor().waitForDialog("Add Plot Style"));
    editor().key("Return");
    ASSERT_EQ(editor().selected("ListStyles"), Rows{3});
    editor().key("shift+Up");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{2, 3}));

    // The last rows are deleted, and the key after that leads nowhere.
    editor().key("Delete");
    editor().keys({"Down", "shift+Up"});
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{0, 1}));
    editor().click("ListStyles");
    ASSERT_EQ(editor().selected("ListStyles"), Rows{}) << "that is below the rows";
    editor().keys({"shift+Down", "shift+Up"});
    EXPECT_EQ(editor().selected("ListStyles"), Rows{0});
    EXPECT_EQ(saved()->styleCount(), 2);
}

TEST_F(Lists, RangesReachFromTheirBeginningToTheFocus)
{
    openColors();
    editor().clickRow("ListStyles", 3);
    editor().keys({"shift+Down", "shift+Down"});
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{3, 4, 5}));
    editor().keys({"shift+Up", "shift+Up", "shift+Up", "shift+Up"});
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{1, 2, 3}));
    editor().rightClickRow("ListStyles", 8);
    editor().key("shift+Down");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{8, 9})) << "a right click begins one, too";
    editor().clickRow("ListStyles", 3);
    editor().key("shift+Home");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{0, 1, 2, 3}));
    editor().clickRow("ListStyles", 5, "shift");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{3, 4, 5}));
    editor().clickRow("ListStyles", 1, "ctrl");
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{1, 3, 4, 5}));
    editor().keys({"ctrl+Down", "shift+Down"});
    EXPECT_EQ(editor().selected("ListStyles"), (Rows{1, 2, 3}))
        << "the clicked row is the beginning";
    editor().key("shift+End");
    EXPECT_EQ(editor().selected("ListStyles").size(), 254u);
    editor().keys({"Home", "shift+Next"});
    const Rows page = editor().selected("ListStyles");
    EXPECT_GT(page.size(), 2u);
    editor().keys({"shift+Next", "shift+Prior"});
    EXPECT_EQ(editor().selected("ListStyles"), page);
    editor().key("shift+Prior");
    EXPECT_EQ(editor().selected("ListStyles"), Rows{0});
}

TEST_F(Lists, ReturnOnACheckBoxOrARadioButtonDoesNotConfirm)
{
    openColors();
    editor().click("CheckDither");
    editor().key("Return");
    EXPECT_FALSE(editor().hasEnded());
    turnToLineweights();
    editor().click("RadLwIn");
    editor().key("Return");
    EXPECT_FALSE(editor().hasEnded());
    EXPECT_EQ(editor().dialogs().size(), 1u);
    EXPECT_TRUE(saved()->isDisplayCustomLineweightUnits());
}
