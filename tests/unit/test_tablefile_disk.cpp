// Tests of files on the disk: what a save leaves there, and what a failed one does not.

#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace support;
namespace fs = std::filesystem;

namespace
{

/// A table that has been changed, so that a save has something to write.
OdPsPlotStyleTablePtr changedTable()
{
    const OdPsPlotStyleTablePtr table = tableOfText(colorTableText());
    table->setDescription(L"changed");
    return table;
}

tablefile::Status save(const fs::path& path)
{
    const tablefile::Error error = tablefile::save(path.string(), *changedTable());
    EXPECT_EQ(error.what.empty(), error.status == tablefile::Status::Ok);
    return error.status;
}

mode_t modeOf(const fs::path& path)
{
    struct stat info = {};
    EXPECT_EQ(::stat(path.c_str(), &info), 0);
    return info.st_mode & 07777;
}

bool isChangedTable(const fs::path& path)
{
    return unpack(readFile(path)).rfind("description=\"changed\n", 0) == 0;
}

using tablefile::Status;

} // namespace

TEST(Disk, SavesAndLoads)
{
    const TempFolder folder;
    ASSERT_EQ(save(folder / "a.ctb"), Status::Ok);
    const tablefile::LoadResult loaded = tablefile::load((folder / "a.ctb").string());
    ASSERT_FALSE(loaded.table.isNull());
    EXPECT_EQ(loaded.table->description(), OdString(L"changed"));
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.ctb"});
}

TEST(Disk, UnchangedTableIsTheSameFile)
{
    const TempFolder folder;
    const std::string file = pack(colorTableText()) + "trailing";
    writeFile(folder / "a.ctb", file);
    const tablefile::LoadResult loaded = tablefile::load((folder / "a.ctb").string());
    ASSERT_EQ(tablefile::save((folder / "b.ctb").string(), *loaded.table).status, Status::Ok);
    EXPECT_EQ(readFile(folder / "b.ctb"), file);
}

TEST(Disk, KeepsThePermissionsOfTheOldFile)
{
    const TempFolder folder;
    for (const mode_t mode : {0600u, 0640u, 0664u, 0755u, 0444u})
    {
        const fs::path path = folder / "a.ctb";
        fs::remove(path);
        writeFile(path, "old");
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        ASSERT_EQ(save(path), Status::Ok);
        EXPECT_EQ(modeOf(path), mode);
    }
}

TEST(Disk, KeepsTheOwnerOfTheOldFile)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    writeFile(path, "old");
    constexpr uid_t kOwner = 1234;
    constexpr gid_t kGroup = 4321;
    if (::chown(path.c_str(), kOwner, kGroup) != 0)
        GTEST_SKIP() << "only a privileged user may give files away";
    ASSERT_EQ(save(path), Status::Ok);
    struct stat info = {};
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_uid, kOwner);
    EXPECT_EQ(info.st_gid, kGroup);
}

TEST(Disk, NewFilesFollowTheMask)
{
    const TempFolder folder;
    const mode_t before = ::umask(027);
    const Status status = save(folder / "a.ctb");
    ::umask(before);
    ASSERT_EQ(status, Status::Ok);
    EXPECT_EQ(modeOf(folder / "a.ctb"), 0640u);
}

TEST(Disk, WritesThroughLinks)
{
    const TempFolder folder;
    fs::create_directory(folder / "real");
    writeFile(folder / "real/table.ctb", "old");
    fs::create_symlink("real/table.ctb", folder / "relative.ctb");
    fs::create_symlink(folder / "relative.ctb", folder / "absolute.ctb");
    fs::create_symlink("real/new.ctb", folder / "dangling.ctb");
    for (const char* const link : {"absolute.ctb", "dangling.ctb"})
    {
        ASSERT_EQ(save(folder / link), Status::Ok);
        EXPECT_TRUE(fs::is_symlink(folder / link));
    }
    EXPECT_TRUE(fs::is_symlink(folder / "relative.ctb"));
    EXPECT_TRUE(isChangedTable(folder / "real/table.ctb"));
    EXPECT_TRUE(isChangedTable(folder / "real/new.ctb"));
    EXPECT_EQ(namesIn(folder / "real"), (std::vector<std::string>{"new.ctb", "table.ctb"}));
}

TEST(Disk, LinksInACircle)
{
    const TempFolder folder;
    fs::create_symlink("b.ctb", folder / "a.ctb");
    fs::create_symlink("a.ctb", folder / "b.ctb");
    EXPECT_EQ(save(folder / "a.ctb"), Status::CannotWrite);
    EXPECT_EQ(tablefile::load((folder / "a.ctb").string()).error.status, Status::CannotRead);
    EXPECT_EQ(namesIn(folder.path()).size(), 2u);
}

TEST(Disk, PathsThatCannotBeWritten)
{
    const TempFolder folder;
    writeFile(folder / "file", "old");
    fs::create_directory(folder / "folder.ctb");
    ASSERT_EQ(::mkfifo((folder / "pipe.ctb").c_str(), 0600), 0);
    const std::string longName(300, 'x');
    for (const std::string& name : {std::string("file/a.ctb"), std::string("vanished/a.ctb"),
                                    std::string("folder.ctb"), std::string("pipe.ctb"), longName})
        EXPECT_EQ(save(folder / name), Status::CannotWrite) << name;
    EXPECT_EQ(save(""), Status::CannotWrite);
    EXPECT_EQ(readFile(folder / "file"), "old");
    EXPECT_EQ(namesIn(folder.path()), (std::vector<std::string>{"file", "folder.ctb", "pipe.ctb"}));
}

TEST(Disk, LongNamesAreNoTrouble)
{
    const TempFolder folder;
    const std::string name = std::string(251, 'x') + ".ctb";
    EXPECT_EQ(save(folder / name), Status::Ok);
    EXPECT_EQ(save(folder / name), Status::Ok);
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{name});
}

TEST(Disk, ATableThatCannotBeStoredLeavesTheFileAlone)
{
    const TempFolder folder;
    writeFile(folder / "a.ctb", "old");
    const OdPsPlotStyleTablePtr table = changedTable();
    table->setDescription(std::wstring(300000, L'x'));
    EXPECT_EQ(tablefile::save((folder / "a.ctb").string(), *table).status, Status::TooLarge);
    EXPECT_EQ(readFile(folder / "a.ctb"), "old");
    EXPECT_EQ(namesIn(folder.path()).size(), 1u);
}

TEST(Disk, AFullDiskLeavesTheFileAlone)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    writeFile(path, "old");
    const pid_t child = ::fork();
    if (child == 0)
    {
        // A file may not grow beyond some bytes: a write fails half way, as on a full disk.
        constexpr rlim_t kMostBytes = 1000;
        const struct rlimit limit = {kMostBytes, kMostBytes};
        ::signal(SIGXFSZ, SIG_IGN);
        const bool failed =
            ::setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
            tablefile::save(path.string(), *changedTable()).status == Status::CannotWrite;
        ::_exit(failed ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.ctb"});
}
