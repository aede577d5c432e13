// Telling whether others have changed a file, and keeping what they have written.

#include "psl_disk_version.h"

#include "support/test_files.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

class Version : public testing::Test
{
protected:
    DiskVersion now() const { return DiskVersion(path()); }
    wxString path() const { return wxString::FromUTF8((folder / "table.ctb").string()); }
    void write(const char* bytes) const { support::writeFile(folder / "table.ctb", bytes); }

    const support::TempFolder folder;
};

} // namespace

TEST_F(Version, OfAMissingFileIsThatThereIsNone)
{
    EXPECT_FALSE(now().isFile());
    EXPECT_EQ(now(), DiskVersion());
    std::filesystem::create_directory(folder / "table.ctb");
    EXPECT_EQ(now(), DiskVersion()) << "a folder is no file";
}

TEST_F(Version, IsThatOfTheBytes)
{
    write("");
    const DiskVersion empty = now();
    EXPECT_TRUE(empty.isFile());
    EXPECT_NE(empty, DiskVersion());
    write("one");
    const DiskVersion one = now();
    EXPECT_NE(one, empty);
    write("two");
    EXPECT_NE(now(), one) << "of the same size";
    write("one");
    std::filesystem::last_write_time(folder / "table.ctb",
                                     std::filesystem::file_time_type::clock::now() -
                                         std::chrono::hours(1));
    EXPECT_EQ(now(), one) << "of another time";
}

TEST_F(Version, OfALongFileIsThatOfItsBeginningAndSize)
{
    write("one");
    std::filesystem::resize_file(folder / "table.ctb", std::uintmax_t{600} << 20);
    const DiskVersion before = now();
    std::filesystem::resize_file(folder / "table.ctb", (std::uintmax_t{600} << 20) + 1);
    EXPECT_NE(now(), before);
}

TEST_F(Version, IsKeptUnderANameThatTellsWhenItWasChanged)
{
    write("theirs");
    const wxString kept = keepDiskVersion(path());
    EXPECT_TRUE(kept.Matches(path().BeforeLast('.') + " (changed on disk 2*-*-* *-*-*).ctb"))
        << kept;
    EXPECT_EQ(support::readFile(kept.utf8_string()), "theirs");
}
