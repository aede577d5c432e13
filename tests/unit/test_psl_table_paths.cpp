// The path rules of the dialogs that open and create tables.

#include "psl_table_paths.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

namespace
{

struct Case
{
    const wchar_t* typed;
    const wchar_t* folder;
    const wchar_t* expected;
};

} // namespace

TEST(TableFile, LiesInTheFolderUnlessItIsAbsolute)
{
    const Case cases[] = {
        {L"a.ctb", L"/tables", L"/tables/a.ctb"},
        {L"a.ctb", L"/tables/", L"/tables/a.ctb"},
        {L"sub/a.ctb", L"/tables", L"/tables/a.ctb"},
        {L"../a.ctb", L"/tables", L"/tables/a.ctb"},
        {L"/other/a.ctb", L"/tables", L"/other/a.ctb"},
        {L"/other/sub/a", L"/tables", L"/other/sub/a"},
        {L"a", L"/tables", L"/tables/a"},
        {L"A.CTB", L"/tables", L"/tables/A.CTB"},
        {L"a.b.ctb", L"/tables", L"/tables/a.b.ctb"},
        {L".hidden", L"/tables", L"/tables/.hidden"},
        {L"~/a.ctb", L"/tables", L"/tables/a.ctb"},
        {L"Pläne für A1.ctb", L"/Tabellen/ü", L"/Tabellen/ü/Pläne für A1.ctb"},
        {L"图.stb", L"/tables", L"/tables/图.stb"},
        {L"a.ctb", L"", L"a.ctb"},
        {L"100%s.ctb", L"/R&D", L"/R&D/100%s.ctb"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(tableFile(c.typed, c.folder).GetFullPath(), c.expected);
}

TEST(TableFile, GetsAnExtensionWhereItHasNone)
{
    const Case cases[] = {
        {L"/t/a", L"ctb", L"/t/a.ctb"},
        {L"/t/a.", L"ctb", L"/t/a.ctb"},
        {L"/t/a.stb", L"ctb", L"/t/a.stb"},
        {L"/t/a.Stb", L"stb", L"/t/a.Stb"},
        {L"/t/.hidden", L"stb", L"/t/.hidden.stb"},
        {L"/t/a.b", L"stb", L"/t/a.b"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(withExtension(wxFileName(c.typed), c.folder).GetFullPath(), c.expected)
            << wxString(c.typed);
}

TEST(TableFile, OfAKindHasItsExtension)
{
    EXPECT_EQ(tableExtension(true), "ctb");
    EXPECT_EQ(tableExtension(false), "stb");
}

TEST(TableFile, CanBeOpenedIfItExistsUnderTheRightExtension)
{
    const support::TempFolder folder;
    const auto canOpen = [&folder](const char* name, bool make)
    {
        if (make)
            support::writeFile(folder / name, "");
        return isTableFile(wxFileName(wxString::FromUTF8((folder / name).string())));
    };
    EXPECT_TRUE(canOpen("a.ctb", true));
    EXPECT_TRUE(canOpen("B.STB", true));
    EXPECT_FALSE(canOpen("c.txt", true));
    EXPECT_FALSE(canOpen("d", true));
    EXPECT_FALSE(canOpen("ctb", true));
    EXPECT_FALSE(canOpen("missing.ctb", false));
    std::filesystem::create_directory(folder / "folder.ctb");
    EXPECT_FALSE(canOpen("folder.ctb", false));
}

TEST(NewTable, IsRefusedForItsExtensionBeforeItsExistence)
{
    const support::TempFolder folder;
    support::writeFile(folder / "there.ctb", "");
    const auto problem = [&folder](const char* name, const char* extension)
    {
        const wxFileName file(wxString::FromUTF8((folder / name).string()));
        return newTableProblem(file, extension, "as typed");
    };
    EXPECT_EQ(problem("new.ctb", "ctb"), "");
    EXPECT_EQ(problem("new.CTB", "ctb"), "");
    EXPECT_EQ(problem("new.STB", "ctb"),
              "Extension 'stb' is not valid for this type of plot style table.");
    EXPECT_EQ(problem("there.ctb", "stb"),
              "Extension 'ctb' is not valid for this type of plot style table.");
    EXPECT_EQ(problem("there.ctb", "ctb"), "File 'as typed' exists already.");
}
