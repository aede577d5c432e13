// Killing programs while they write.

#include "support/kills.h"

#include "support/sanitized.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace support
{
namespace
{

using Clock = std::chrono::steady_clock;

Clock::duration timeOf(const std::function<bool()>& step)
{
    const Clock::time_point before = Clock::now();
    EXPECT_TRUE(step());
    return Clock::now() - before;
}

/// Kills a process at some moment within some time from now.
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

pid_t startRepeating(const std::function<bool()>& step)
{
    const pid_t child = ::fork();
    while (child == 0)
    {
        if (!step())
            ::_exit(1);
    }
    return child;
}

bool wasKilled(pid_t child)
{
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFSIGNALED(status) &&
           WTERMSIG(status) == SIGKILL;
}

void killWhileReplacing(const std::filesystem::path& file, const std::string& before,
                        const std::string& after, const std::function<bool()>& replace)
{
    constexpr int kKills = kIsSanitized ? 50 : 500; // a sanitized process is slow to fork
    const Clock::duration time = 3 * timeOf(replace);
    ASSERT_TRUE(readFile(file) == after);
    std::mt19937 random(1);
    int oldOnes = 0;
    for (int i = 0; i < kKills; ++i)
    {
        const bool isNew = i % 2 == 1;
        if (isNew)
            std::filesystem::remove(file);
        else
            writeFile(file, before);
        killWithin(time, startRepeating(replace), random);
        const bool isMissing = !std::filesystem::exists(file);
        const std::string now = isMissing ? std::string() : readFile(file);
        ASSERT_TRUE(now == after || (isNew ? isMissing : now == before)) << "kill " << i;
        oldOnes += now == after ? 0 : 1;
    }
    testing::Test::RecordProperty("kills_before_the_new_file", oldOnes);
    // Otherwise the kills came too early or too late to say anything.
    EXPECT_GT(oldOnes, 0);
    EXPECT_LT(oldOnes, kKills);
    EXPECT_TRUE(replace());
    int leftBehind = 0;
    for (const std::string& name : namesIn(file.parent_path()))
    {
        const bool isTemporary = name.rfind(".pstyle-", 0) == 0;
        EXPECT_TRUE(isTemporary || name == file.filename()) << name;
        leftBehind += isTemporary ? 1 : 0;
    }
    testing::Test::RecordProperty("left_behind", leftBehind);
}

} // namespace support
