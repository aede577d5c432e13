// Paths as labels show them and as the system knows them.

#include "psl_path_text.h"

#include <gtest/gtest.h>

#include <wx/init.h>

TEST(FitPath, KeepsWhatFits)
{
    const auto measure = [](const wxString& s) { return static_cast<int>(s.length()) * 10; };
    const wxString path = "Path: /a/folder/of/tables/table.ctb"; // 35 characters
    EXPECT_EQ(fitPath(path, 354, measure), path);
    EXPECT_EQ(fitPath(path, 353, measure), path.Left(31) + "...");
    EXPECT_EQ(fitPath(path, 344, measure), path.Left(31) + "...");
    EXPECT_EQ(fitPath(path, 343, measure), path.Left(30) + "...");
}

TEST(FitPath, NeverKeepsFewerThanTwelveCharacters)
{
    const auto measure = [](const wxString& s) { return static_cast<int>(s.length()) * 10; };
    const wxString path = "Path: /a/folder/of/tables/table.ctb";
    EXPECT_EQ(fitPath(path, 10, measure), "Path: /a/fol...");
    EXPECT_EQ(fitPath(path, 7, measure), "Path: /a/fol...");
    EXPECT_EQ(fitPath(path, 6, measure), path) << "a control too narrow to cut for";
    EXPECT_EQ(fitPath("fifteen letters", 10, measure), "fifteen letters");
    EXPECT_EQ(fitPath("sixteen letters!", 10, measure), "sixteen lett...");
}

TEST(SystemPath, IsReadBackAsItStands)
{
    const wxInitializer toolkit;
    const wxString path = L"/tables/b\u00FCro \u5899.ctb";
    EXPECT_EQ(systemPath(path), "/tables/b\xC3\xBCro \xE5\xA2\x99.ctb");
    EXPECT_EQ(systemText(systemPath(path)), path);
}

TEST(SystemPath, ANameThatIsNotUtf8IsShown)
{
    const wxInitializer toolkit;
    EXPECT_FALSE(systemText("/tables/b\xFCro.ctb").empty());
}
