// Tests that a file is a whole table at any moment: while it is saved by several programs, and
// after the program that saved it has been killed.

#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

using namespace support;
namespace fs = std::filesystem;

namespace
{

using Clock = std::chrono::steady_clock;

OdPsPlotStyleTablePtr describedTable(const wchar_t* description)
{
    const OdPsPlotStyleTablePtr table = tableOfText(colorTableText());
    table->setDescription(description);
    return table;
}

bool save(const fs::path& path, const OdPsPlotStyleTable& table)
{
    return tablefile::save(path.string(), table).status == tablefile::Status::Ok;
}

/// Starts a process that saves a table over and over until it is killed.
pid_t startSaving(const fs::path& path, const OdPsPlotStyleTable& table)
{
    const pid_t child = ::fork();
    while (child == 0)
    {
        if (!save(path, table))
            ::_exit(1);
    }
    return child;
}

/// Waits for the end of a process. @return whether a kill ended it
bool wasKilled(pid_t child)
{
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) &&
           WTERMSIG(status) == SIGKILL;
}

Clock::duration timeOfASave(const fs::path& path, const OdPsPlotStyleTable& table)
{
    const Clock::time_point before = Clock::now();
    EXPECT_TRUE(save(path, table));
    return Clock::now() - before;
}

/// Kills a saving process at some moment within some time of its start.
void killWithin(Clock::duration time, pid_t child, std::mt19937& random)
{
    std::uniform_int_distribution<Clock::rep> moment(0, time.count());
    const Clock::time_point end = Clock::now() + Clock::duration(moment(random));
    while (Clock::now() < end)
        ::sched_yield();
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_TRUE(wasKilled(child));
}

} // namespace

TEST(Killed, TheOldTableOrTheNewOneIsThereWhole)
{
    constexpr int kKills = 400;
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    const OdPsPlotStyleTablePtr table = describedTable(L"new");
    const std::string before = bytesOf(*describedTable(L"old"));
    const std::string after = bytesOf(*table);
    const Clock::duration time = 3 * timeOfASave(path, *table);
    std::mt19937 random(1);
    int oldOnes = 0;
    for (int i = 0; i < kKills; ++i)
    {
        writeFile(path, before);
        killWithin(time, startSaving(path, *table), random);
        const std::string now = readFile(path);
        ASSERT_TRUE(now == before || now == after) << "kill " << i;
        oldOnes += now == before ? 1 : 0;
    }
    RecordProperty("kills_before_the_new_table", oldOnes);
    // Otherwise the kills came too early or too late to say anything.
    EXPECT_GT(oldOnes, 0);
    EXPECT_LT(oldOnes, kKills);
    EXPECT_TRUE(save(path, *table));
    for (const std::string& name : namesIn(folder.path()))
        EXPECT_TRUE(name == "a.ctb" || name.rfind(".pstyle-", 0) == 0) << name;
}

TEST(Killed, OfTwoProgramsThatSaveOneWins)
{
    constexpr int kReads = 300;
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    const OdPsPlotStyleTablePtr tables[] = {describedTable(L"one"), describedTable(L"two")};
    const std::string files[] = {bytesOf(*tables[0]), bytesOf(*tables[1])};
    writeFile(path, files[0]);
    const pid_t children[] = {startSaving(path, *tables[0]), startSaving(path, *tables[1])};
    int reads[] = {0, 0};
    for (int i = 0; i < kReads || reads[0] == 0 || reads[1] == 0; ++i)
    {
        const std::string now = readFile(path);
        ASSERT_TRUE(now == files[0] || now == files[1]) << "read " << i;
        ++reads[now == files[0] ? 0 : 1];
    }
    for (const pid_t child : children)
    {
        EXPECT_EQ(::kill(child, SIGKILL), 0);
        EXPECT_TRUE(wasKilled(child));
    }
    const std::string last = readFile(path);
    EXPECT_TRUE(last == files[0] || last == files[1]);
}
