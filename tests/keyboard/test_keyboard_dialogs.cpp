// The chooser, the new-table dialog and the file dialogs; and names that are taken.

#include "tests/keyboard/editor_session.h"

#include "support/table_maker.h"
#include "support/tables.h"

#include <cstdlib>

namespace
{

using Names = std::vector<std::string>;

// Tests of the program's other dialogs, with a plot style folder of their own.
class Dialogs : public EditorSession
{
protected:
    void SetUp() override
    {
        support::writeFile(folder / "old.ctb", support::pack(support::colorTableText()));
        setenv("PSTYLE_PLOT_STYLE_PATH", folder.path().c_str(), 1);
    }
    void TearDown() override
    {
        EditorSession::TearDown();
        unsetenv("PSTYLE_PLOT_STYLE_PATH");
    }
};

class TakenNames : public EditorSession
{
protected:
    // "Thin red" is named Thin_red in the file, as in older tables.
    void openOldNames()
    {
        support::Container named;
        named.kind = "STB";
        const std::string text =
            support::replaced(support::namedTableText({"Normal", "Thin red", "Walls"}),
                              "  name=\"Thin red\n", "  name=\"Thin_red\n");
        open("table.stb", support::pack(text, named));
        turnToFormView();
    }
};

} // namespace

TEST_F(TakenNames, ARenameToANameOfAnotherStyleIsRefused)
{
    openOldNames();
    editor().clickRow("ListStyles", 2);
    editor().key("F2");
    retype("thin_RED");
    editor().hands().key("Return");
    ASSERT_TRUE(editor().waitForDialog("A style named 'thin_RED' already exists."));
    editor().key("Return");
    editor().key("Escape");
    EXPECT_EQ(savedNames(), (Names{"Normal", "Thin red", "Walls"}));
}

TEST_F(TakenNames, AStyleMayTakeItsOwnName)
{
    openOldNames();
    editor().clickRow("ListStyles", 1);
    editor().key("F2");
    retype("Thin_red");
    editor().key("Return");
    EXPECT_EQ(savedNames(), (Names{"Normal", "Thin_red", "Walls"}));
}

TEST_F(TakenNames, AddingANameOfAnotherStyleEndsSilently)
{
    openOldNames();
    editor().key("Insert");
    ASSERT_TRUE(editor().waitForDialog("Add Plot Style"));
    retype("Thin_red");
    editor().key("Return");
    EXPECT_EQ(editor().dialogs().size(), 1u);
    EXPECT_EQ(editor().rows("ListStyles"), (Names{"Normal", "Thin red", "Walls"}));
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed";
}

TEST_F(Dialogs, TheChooserOpensOnAHundredThousandFilesAndLinksInCircles)
{
    for (int i = 0; i < 100000; ++i)
    {
        const auto sub = folder / ("sub" + std::to_string(i / 1000));
        std::filesystem::create_directory(sub);
        support::writeFile(sub / (std::to_string(i) + ".ctb"), "");
    }
    std::filesystem::create_directory_symlink(".", folder / "a");
    std::filesystem::create_directory_symlink(".", folder / "b");
    start({});
    editor().click("ComboSourceFile");
    editor().type("old.ctb");
    editor().hands().key("Return");
    ASSERT_TRUE(editor().waitForDialog("Plot Style Table Editor - old.ctb"));
    editor().key("Escape");
}

TEST_F(Dialogs, TheChooserIsWorkedByMnemonics)
{
    start({});
    editor().key("alt+s");
    EXPECT_EQ(editor().text("RadNew"), "checked");
    editor().key("alt+t");
    editor().key("alt+n");
    EXPECT_EQ(editor().focus(), "TextTableName");
    editor().type("made");
    editor().key("Return");
    ASSERT_TRUE(editor().waitForDialog("Plot Style Table Editor - made.ctb"));
    file = (folder / "made.ctb").string();
    EXPECT_TRUE(saved()->isColorDependent());
}

TEST_F(Dialogs, TheWheelChangesNothingInTheChooserThatHasNotTheFocus)
{
    start({});
    editor().wheel("ComboSourceFile", 1);
    EXPECT_EQ(editor().text("ComboSourceFile"), "");
    editor().key("alt+s");
    editor().wheel("ChoiceTableType", 1);
    EXPECT_EQ(editor().text("ChoiceTableType"), "CTB");
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1);
}

TEST_F(Dialogs, TheNewTableDialogHasItsWidthAndMnemonics)
{
    start({"--new", "ctb", folder.path().string()});
    // The window manager has a say, and takes its time.
    EXPECT_TRUE(editor().waitFor([this] { return editor().dialogWidth() == 400; }))
        << editor().dialogWidth();
    editor().key("alt+n");
    editor().type("made");
    editor().key("alt+l");
    EXPECT_EQ(editor().text("CheckLaunchEditor"), "unchecked");
    editor().key("alt+u");
    EXPECT_EQ(editor().text("CheckUseInDrawing"), "unchecked");
    editor().key("alt+o");
    EXPECT_EQ(editor().wait(), 0);
    EXPECT_TRUE(std::filesystem::exists(folder / "made.ctb"));
}

TEST_F(Dialogs, SaveAsGivesTheExtensionOfTheKind)
{
    openColors();
    editor().hands().key("alt+a");
    ASSERT_TRUE(editor().waitForDialog("Save Plot Style File As"));
    retype("other");
    editor().hands().key("Return");
    ASSERT_TRUE(editor().waitFor([this] { return std::filesystem::exists(folder / "other.ctb"); }));
    EXPECT_FALSE(std::filesystem::exists(folder / "other"));
    editor().settle();
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1);
}
