// Tests that a file is a whole table at any moment: while it is saved by several programs, and
// after the program that saved it has been killed.

#include "support/kills.h"
#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace support;
namespace fs = std::filesystem;

namespace
{

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
    return startRepeating([&] { return save(path, table); });
}

} // namespace

TEST(Killed, TheOldTableOrTheNewOneIsThereWhole)
{
    const TempFolder folder;
    const fs::path path = folder / "a.ctb";
    const OdPsPlotStyleTablePtr table = describedTable(L"new");
    killWhileReplacing(path, bytesOf(*describedTable(L"old")), bytesOf(*table),
                       [&] { return save(path, *table); });
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
