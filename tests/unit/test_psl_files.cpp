// The listing of the table files in the configured folder.

#include "psl.h"
#include "support/test_files.h"
#include "util/ut.h"

#include <gtest/gtest.h>

#include <wx/arrstr.h>
#include <wx/dir.h>
#include <wx/filename.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <algorithm>
#include <unistd.h>
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

TEST_F(Files, AreListedInTheOrderOfTheToolkitsTraversal)
{
    for (const char* name :
         {"a/z.ctb", "a/b/y.stb", "c/.d/x.ctb", "w.ctb", ".v.stb", "u.txt", "t.CTB"})
        make(name);
    std::filesystem::create_symlink("nowhere.ctb", folder / "dangling.ctb");
    std::filesystem::create_directory_symlink("a/b", folder / "link");
    std::filesystem::create_directory(folder / "folder.ctb");
    for (int i = 0; i < 20; ++i)
        std::filesystem::create_directory_symlink("a/b", folder / ("link" + std::to_string(i)));

    struct Everything : wxDirTraverser
    {
        wxDirTraverseResult OnFile(const wxString& path) override
        {
            const wxFileName file(path);
            if (wxString("ctb stb").Contains(file.GetExt().Lower()) && !file.GetExt().empty())
                names.Add(file.GetFullName());
            return wxDIR_CONTINUE;
        }
        wxDirTraverseResult OnDir(const wxString&) override { return wxDIR_CONTINUE; }
        wxArrayString names;
    } everything;
    wxDir(wxString::FromUTF8(folder.path().string()))
        .Traverse(everything, wxString(), wxDIR_FILES | wxDIR_DIRS | wxDIR_HIDDEN);
    getPlotStyleFiles(files);
    EXPECT_EQ(files.size(), 28u) << "one of them by way of the links, too";
    EXPECT_TRUE(files == everything.names);
}

TEST_F(Files, AreListedOnceWhereLinksLeadInCircles)
{
    make("x.ctb");
    make("sub/deeper/y.ctb");
    std::filesystem::create_directory_symlink(".", folder / "a");
    std::filesystem::create_directory_symlink(".", folder / "b");
    std::filesystem::create_directory_symlink("../..", folder / "sub/deeper/up");
    std::filesystem::create_directory_symlink(folder.path(), folder / "sub/root");
    EXPECT_EQ(getPlotStyleFiles(files), 2u);
}

// In every folder two links lead to the next one, so that there are 2^30 ways to the last.
TEST_F(Files, AreListedAFewTimesWhereThereAreCountlessWaysToThem)
{
    constexpr int depth = 30;
    for (int i = 0; i < depth; ++i)
    {
        const std::filesystem::path here = folder / ("d" + std::to_string(i));
        const std::string next = "../d" + std::to_string(i + 1);
        std::filesystem::create_directory(here);
        std::filesystem::create_directory_symlink(next, here / "one");
        std::filesystem::create_directory_symlink(next, here / "two");
    }
    make(("d" + std::to_string(depth) + "/a.ctb").c_str());
    const size_t count = getPlotStyleFiles(files);
    EXPECT_GE(count, 1u);
    EXPECT_LE(count, 1000u);
}

TEST_F(Files, OfTheSystemItselfAreNoTables)
{
    make("x.ctb");
    std::filesystem::create_directory_symlink("/proc", folder / "processes");
    std::filesystem::create_directory_symlink("/proc/self", folder / "self");
    std::filesystem::create_directory_symlink("/sys", folder / "system");
    EXPECT_EQ(getPlotStyleFiles(files), 1u);
    configure("/proc");
    EXPECT_EQ(getPlotStyleFiles(files), 1u);
}

TEST_F(Files, InFoldersThatCannotBeReadArePassedOver)
{
    make("x.ctb");
    make("closed/y.ctb");
    std::filesystem::permissions(folder / "closed", std::filesystem::perms::none);
    const size_t most = geteuid() == 0 ? 2 : 1;
    EXPECT_EQ(getPlotStyleFiles(files), most);
    std::filesystem::permissions(folder / "closed", std::filesystem::perms::owner_all);
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
