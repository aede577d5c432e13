// Tests of files on the disk: what a save leaves there, and what a failed one does not.

#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
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

/// What a process of its own reports.
constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kNotPossible = 2;

/// Saves where that must fail. @param culprit  the path that the reason has to name
/// @return kDone when it did, with the expected reason
int failsToSave(const fs::path& path, const fs::path& culprit, const std::string& why)
{
    const tablefile::Error error = tablefile::save(path.string(), *changedTable());
    const bool isExpected = error.status == Status::CannotWrite &&
                            error.what == (culprit == path ? "" : culprit.string() + ": ") + why;
    if (!isExpected)
        std::fprintf(stderr, "the reason was \"%s\"\n", error.what.c_str());
    return isExpected ? kDone : kFailed;
}

void openToAll(const TempFolder& folder)
{
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
}

/// Does something as a user whom permissions bind, in a process of its own.
int asOrdinaryUser(const std::function<int()>& work)
{
    constexpr uid_t kNobody = 65534;
    return inProcess(
        [&work]
        {
            const bool isBound =
                ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
            return isBound ? work() : kFailed;
        });
}

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
    for (const mode_t mode : {0600u, 0640u, 0664u, 0755u})
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

TEST(Disk, ALinkIntoAFolderThatIsGone)
{
    const TempFolder folder;
    fs::create_symlink("vanished/a.ctb", folder / "a.ctb");
    EXPECT_EQ(save(folder / "a.ctb"), Status::CannotWrite);
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.ctb"});
}

TEST(Disk, ATableWhoseFolderHasVanished)
{
    const TempFolder folder;
    fs::create_directory(folder / "tables");
    const fs::path path = folder / "tables/a.ctb";
    ASSERT_EQ(save(path), Status::Ok);
    const OdPsPlotStyleTablePtr table = tablefile::load(path.string()).table;
    fs::remove_all(folder / "tables");
    EXPECT_EQ(tablefile::save(path.string(), *table).status, Status::CannotWrite);
    EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(Disk, AReadOnlyFileIsNotReplaced)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    writeFile(path, "old");
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    openToAll(folder);
    EXPECT_EQ(asOrdinaryUser([&path] { return failsToSave(path, path, "Permission denied"); }),
              kDone);
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.ctb"});
}

TEST(Disk, AFolderWithoutWritePermission)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    writeFile(path, "old");
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    const int result =
        asOrdinaryUser([&] { return failsToSave(path, folder.path(), "Permission denied"); });
    ASSERT_EQ(::chmod(folder.path().c_str(), 0700), 0);
    EXPECT_EQ(result, kDone);
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.ctb"});
}

TEST(Disk, AFileSizeLimit)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    writeFile(path, "old");
    const auto saveWithLimit = [&path]
    {
        // The signal that a write beyond the limit raises would end the process.
        constexpr rlim_t kMostBytes = 1000;
        const struct rlimit limit = {kMostBytes, kMostBytes};
        return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 ? failsToSave(path, path, "File too large")
                                                      : kNotPossible;
    };
    EXPECT_EQ(inProcess(saveWithLimit), kDone);
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"a.ctb"});
}

TEST(Disk, AFullDisk)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    const auto saveOnAFullDisk = [&]
    {
        // A disk that only this process sees, with room for some pages.
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", folder.path().c_str(), "tmpfs", 0, "size=16k") != 0)
            return kNotPossible;
        writeFile(path, "old");
        writeFile(folder / "filler", std::string(12 * 1024 - 1, 'x'));
        std::ofstream(folder / "more") << std::string(64 * 1024, 'x');
        const int result = failsToSave(path, path, "No space left on device");
        const bool isAsItWas = readFile(path) == "old" && namesIn(folder.path()).size() == 3;
        return isAsItWas ? result : kFailed;
    };
    const int result = inProcess(saveOnAFullDisk);
    if (result == kNotPossible)
        GTEST_SKIP() << "only a privileged user may make a small disk";
    EXPECT_EQ(result, kDone);
}
