// The listing of the table files in the configured folder.

#include "psl.h"
#include "support/test_files.h"
#include "util/ut.h"

#include <gtest/gtest.h>

#include <wx/arrstr.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <algorithm>
#include <vector>

namespace
{

class Files : public testing::Test
{
protected:
    void SetUp() override { configure(folder.path().string()); }

    static void configure(const std::string& path)
    {
        wxSetEnv("PSTYLE_PLOT_STYLE_PATH", wxString::FromUTF8(path));
    }

    void make(const char* name) const
    {
        std::filesystem::create_directories((folder / name).parent_path());
        support::writeFile(folder / name, "");
    }

    static std::vector<wxString> sorted(const wxArrayString& files)
    {
        std::vector<wxString> names(files.begin(), files.end());
        std::sort(names.begin(), names.end());
        return names;
    }

    const wxInitializer toolkit;
    const support::TempFolder folder;
    wxArrayString files;
};

using Names = std::vector<wxString>;

} // namespace

TEST_F(Files, AreListedByNameFromAllFolders)
{
    for (const char* name : {"A.CTB", "b.stb", "c.ctb.bak", "d", "sub/e.ctb"})
        make(name);
    EXPECT_EQ(getPlotStyleFiles(files), 3u);
    ASSERT_EQ(files.size(), 3u);
    EXPECT_EQ(files[0], "e.ctb") << "what lies in folders comes first";
    EXPECT_EQ(sorted(files), (Names{"A.CTB", "b.stb", "e.ctb"}));
}

TEST_F(Files, OfAMissingFolderAreNone)
{
    files.Add("before");
    configure((folder / "missing").string());
    EXPECT_EQ(getPlotStyleFiles(files), 0u);
    EXPECT_EQ(files.size(), 1u);
    configure("");
    EXPECT_EQ(getPlotStyleFiles(files), 0u);
    make("file.ctb");
    configure((folder / "file.ctb").string());
    EXPECT_EQ(getPlotStyleFiles(files), 0u) << "a file is no folder";
    EXPECT_EQ(files.size(), 1u);
}

TEST_F(Files, OfSeveralFoldersAtOnceAreNone)
{
    make("a.ctb");
    const std::string path = folder.path().string();
    configure(path + ":" + path);
    EXPECT_EQ(getPlotStyleFiles(files), 0u);
    configure(path + ";" + path);
    EXPECT_EQ(getPlotStyleFiles(files), 0u);
}

TEST_F(Files, AreAppendedToWhatIsThere)
{
    make("a.ctb");
    files.Add("one");
    files.Add("two");
    EXPECT_EQ(getPlotStyleFiles(files), 3u);
    EXPECT_EQ(files[0], "one");
    EXPECT_EQ(files[2], "a.ctb");
}

TEST_F(Files, OfHiddenFoldersAreListedAndNamesMayRepeat)
{
    make(".hidden/a.ctb");
    make("sub/deeper/a.ctb");
    make(".b.stb");
    make(".ctb");
    EXPECT_EQ(getPlotStyleFiles(files), 3u);
    EXPECT_EQ(sorted(files), (Names{".b.stb", "a.ctb", "a.ctb"}));
}

TEST_F(Files, FolderComesFromTheEnvironmentThenTheConfigurationThenTheProgram)
{
    const auto group = ut::ECfgGroup(6);
    wxSetEnv("XDG_CONFIG_HOME", wxString::FromUTF8((folder / "config").string()));
    configure("/from/the/environment");
    EXPECT_EQ(ut::getString(group, "PlotStylePath"), "/from/the/environment");
    configure("");
    EXPECT_EQ(ut::getString(group, "PlotStylePath"), "") << "empty is a value";

    wxUnsetEnv("PSTYLE_PLOT_STYLE_PATH");
    EXPECT_TRUE(ut::getString(group, "PlotStylePath").EndsWith("share/pstyle/plotstyles"));
    EXPECT_TRUE(ut::setString(group, "PlotStylePath", L"/Pläne/$HOME \\ %d"));
    EXPECT_EQ(ut::getString(group, "PlotStylePath"), L"/Pläne/$HOME \\ %d");
    EXPECT_TRUE(ut::setString(group, "PlotStylePath", ""));
    EXPECT_EQ(ut::getString(group, "PlotStylePath"), "") << "empty is a value";
    EXPECT_EQ(ut::getString(group, "Unknown"), "");
}
