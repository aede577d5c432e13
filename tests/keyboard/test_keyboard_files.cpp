// What happens to files around the editor: others change them, they cannot be read or written, and
// they hold texts that no field can show.

#include "tests/keyboard/editor_session.h"

#include "support/table_maker.h"
#include "support/tables.h"

#include <algorithm>
#include <filesystem>

namespace
{

using Names = std::vector<std::string>;

std::string described(const char* text)
{
    const auto table = support::tableOf(support::pack(support::colorTableText()));
    const std::string description = text;
    table->setDescription(std::wstring(description.begin(), description.end()).c_str());
    return support::bytesOf(*table);
}

class FilesOfASession : public EditorSession
{
protected:
    /// Changes the table's description, by the keyboard.
    void describe(std::string_view text)
    {
        editor().click("TextTableDescr");
        retype(text);
    }

    /// The files of the folder but the table.
    Names others() const
    {
        Names names = support::namesIn(folder.path());
        names.erase(std::remove(names.begin(), names.end(), "table.ctb"), names.end());
        return names;
    }

    std::string bytes() const { return support::readFile(file); }

    /// Has others write the file, and saves: both versions are there then, and the user is told.
    void saveOverTheirs()
    {
        const std::string theirs = described("theirs");
        support::writeFile(file, theirs);
        editor().hands().key("alt+s");
        ASSERT_TRUE(editor().waitForDialog("was changed by another program"));
        editor().key("Return");
        EXPECT_EQ(editor().wait(), 0);
        EXPECT_EQ(stored()->description(), OdString(L"mine"));
        ASSERT_EQ(others().size(), 1u);
        EXPECT_EQ(others().front().rfind("table (changed on disk 2", 0), 0u) << others().front();
        EXPECT_EQ(support::readFile(folder / others().front()), theirs);
        expectKept();
    }

    /// Expects that standard error tells, at last, what the only other file was kept for.
    void expectKept()
    {
        expectedErrors += "pstyle: File '" + file +
                          "' was changed by another program while it was being edited. Its "
                          "contents were kept as '" +
                          (folder / others().at(0)).string() + "'.\n";
    }
};

} // namespace

TEST_F(FilesOfASession, WhatOthersHaveWrittenIsKeptAndTheUserIsTold)
{
    open("table.ctb", described("old"));
    describe("mine");
    saveOverTheirs();
}

TEST_F(FilesOfASession, ATableThatHasAppearedIsKept)
{
    file = (folder / "table.ctb").string();
    start({file});
    describe("mine");
    saveOverTheirs();
}

TEST_F(FilesOfASession, ATableThatWasOnlyTouchedIsReplacedWithoutAWord)
{
    const std::string old = described("old");
    open("table.ctb", old);
    describe("mine");
    std::filesystem::remove(file);
    support::writeFile(file, old);
    EXPECT_EQ(saved()->description(), OdString(L"mine"));
    EXPECT_EQ(others(), Names{});
}

TEST_F(FilesOfASession, NothingIsKeptOfASaveThatFails)
{
    const std::string theirs = described("theirs");
    open("table.ctb", described("old"));
    describe("mine");
    support::writeFile(file, theirs);
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    editor().hands().key("alt+s");
    ASSERT_TRUE(editor().waitForDialog("Failed to save file: " + file + " Permission denied"));
    editor().key("Return");
    EXPECT_EQ(others(), Names{});
    EXPECT_EQ(bytes(), theirs);
    expectedErrors = "pstyle: Failed to save file: " + file + ": Permission denied\n";
    EXPECT_EQ(editor().errors(), expectedErrors);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    editor().hands().key("alt+s");
    ASSERT_TRUE(editor().waitForDialog("was changed by another program"));
    editor().key("Return");
    EXPECT_EQ(editor().wait(), 0);
    ASSERT_EQ(others().size(), 1u);
    expectKept();
}

TEST_F(FilesOfASession, ATableThatCannotBeReadGivesItsReason)
{
    const std::filesystem::path bad = folder / "bad.ctb";
    support::writeFile(bad, support::pack("apply_factor=maybe\nplot_style{\n}\n"));
    open("table.ctb", described("old"));
    editor().hands().key("alt+o");
    ASSERT_TRUE(editor().waitForDialog("Select a Plot Style File"));
    editor().type(bad.string());
    editor().hands().key("Return");
    const std::string message = "Invalid file format - failed to open plotstyle table file.";
    const std::string reason =
        "A value is neither TRUE nor FALSE (at byte 13 of the uncompressed text)";
    ASSERT_TRUE(editor().waitForDialog(message + " " + reason));
    editor().key("Return");
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1);
    expectedErrors = "pstyle: " + message + ": " + reason + "\n";
}

TEST_F(FilesOfASession, ADescriptionOfAQuarterOfAMillionLettersIsNotLost)
{
    constexpr std::size_t length = 250000;
    const std::string whole(length, 'd');
    open("table.ctb", described(whole.c_str()));
    EXPECT_LT(editor().text("TextTableDescr").size(), 10000u);
    editor().click("TextTableDescr");
    editor().keys({"ctrl+Home", "x"});
    EXPECT_EQ(saved()->description(), OdString((L"x" + std::wstring(length, L'd')).c_str()));
}

TEST_F(FilesOfASession, ANameOfAQuarterOfAMillionLettersIsNotLost)
{
    const std::string name(250000, 'n');
    openNamed({name, "Walls"});
    editor().key("Down");
    EXPECT_LT(editor().rows("ListStyles").at(1).size(), 10000u);
    editor().key("F2");
    ASSERT_TRUE(editor().edit("ListStyles").has_value());
    editor().key("Return");
    editor().key("alt+r"); // the screening
    retype("40");
    EXPECT_EQ(savedNames(), (Names{"Normal", name, "Walls"}));
    EXPECT_EQ(savedData(1).screening, 40);
}

TEST_F(FilesOfASession, ALongNameThatIsEditedKeepsItsEnd)
{
    const std::string name = "begin" + std::string(1000, 'n') + "end";
    openNamed({name, name + "2", "Walls"});
    editor().key("Down");
    editor().keys({"F2", "Home", "x", "End", "y"});
    editor().key("Return");
    editor().key("Down");
    editor().key("F2");
    retype("Doors");
    editor().key("Return");
    EXPECT_EQ(savedNames(), (Names{"Normal", "x" + name.substr(0, 250) + "y" + name.substr(250),
                                   "Doors", "Walls"}));
}

TEST_F(FilesOfASession, ADescriptionThatIsReplacedIsReplaced)
{
    open("table.ctb", described(std::string(250000, 'd').c_str()));
    describe("mine");
    EXPECT_EQ(saved()->description(), OdString(L"mine"));
}

TEST_F(FilesOfASession, LinksInACircleAreAFailedSave)
{
    file = (folder / "table.ctb").string();
    std::filesystem::create_symlink("table.ctb", file);
    start({file});
    editor().hands().key("alt+s");
    ASSERT_TRUE(editor().waitForDialog("Failed to save file: " + file));
    editor().key("Return");
    expectedErrors =
        "pstyle: Failed to save file: " + file + ": Too many levels of symbolic links\n";
    EXPECT_FALSE(editor().hasEnded());
}

TEST_F(FilesOfASession, ASaveAfterAFailedSaveAsKeepsNothing)
{
    open("table.ctb", described("old"));
    describe("mine");
    const std::string other = (folder / "other.ctb").string();
    support::writeFile(other, described("other"));
    std::filesystem::permissions(other, std::filesystem::perms::owner_read);
    editor().hands().key("alt+a");
    ASSERT_TRUE(editor().waitForDialog("Save Plot Style File As"));
    retype("other");
    editor().hands().key("Return");
    ASSERT_TRUE(editor().waitForDialog("exists already. Replace it?"));
    editor().hands().key("alt+y");
    ASSERT_TRUE(editor().waitForDialog("Failed to save file: " + other));
    editor().key("Return");
    expectedErrors = "pstyle: Failed to save file: " + other + ": Permission denied\n";
    std::filesystem::permissions(other, std::filesystem::perms::owner_all);
    file = other;
    EXPECT_EQ(saved()->description(), OdString(L"mine"));
    EXPECT_EQ(others(), Names{"other.ctb"});
}

TEST_F(FilesOfASession, AFileThatHasBecomeADeviceIsNotWritten)
{
    open("table.ctb", described("old"));
    describe("mine");
    std::filesystem::remove(file);
    std::filesystem::create_symlink("/dev/null", file);
    editor().hands().key("alt+s");
    ASSERT_TRUE(editor().waitForDialog("It is not a file any more."));
    editor().key("Return");
    expectedErrors = "pstyle: Failed to save file: " + file + ": It is not a file any more.\n";
    std::filesystem::remove(file);
    EXPECT_EQ(saved()->description(), OdString(L"mine"));
}

TEST_F(FilesOfASession, AFileThatHasBecomeALinkInACircleLosesNothing)
{
    open("table.ctb", described("old"));
    describe("mine");
    std::filesystem::remove(file);
    std::filesystem::create_symlink("table.ctb", file);
    editor().hands().key("alt+s");
    ASSERT_TRUE(editor().waitForDialog("Failed to save file: " + file));
    editor().key("Return");
    expectedErrors =
        "pstyle: Failed to save file: " + file + ": Too many levels of symbolic links\n";
    std::filesystem::remove(file);
    EXPECT_EQ(saved()->description(), OdString(L"mine"));
}
