// The user's configuration file: what a damaged one does, and how it is written.

#include "support/kept_log.h"
#include "support/test_files.h"
#include "util/ut.h"

#include <gtest/gtest.h>

#include <wx/debug.h>
#include <wx/init.h>
#include <wx/utils.h>

#include <random>
#include <sys/stat.h>

namespace
{

class Configuration : public testing::Test
{
protected:
    void SetUp() override
    {
        wxSetAssertHandler([](const wxString&, int, const wxString&, const wxString& condition,
                              const wxString&) { ADD_FAILURE() << condition; });
        wxUnsetEnv("PSTYLE_PLOT_STYLE_PATH");
        wxSetEnv("XDG_CONFIG_HOME", wxString::FromUTF8(folder.path().string()));
        std::filesystem::create_directory(folder / "pstyle");
    }

    std::filesystem::path file() const { return folder / "pstyle/pstyle.conf"; }
    std::vector<std::string> names() const { return support::namesIn(folder / "pstyle"); }
    static wxString value() { return ut::getString(ut::ECfgGroup(6), "PlotStylePath"); }
    static bool store(const wxString& text)
    {
        return ut::setString(ut::ECfgGroup(6), "PlotStylePath", text);
    }

    const wxInitializer toolkit;
    const support::TempFolder folder;
    support::KeptLog log;
};

bool isDefault(const wxString& folder)
{
    return folder.EndsWith("share/pstyle/plotstyles");
}

} // namespace

// The first test of this process: it is said once.
TEST_F(Configuration, ThatIsDamagedIsSaidOnceAndDefinesNothing)
{
    support::writeFile(file(), "[6]\n=\nPlotStylePath=/x\n");
    EXPECT_TRUE(isDefault(value()));
    EXPECT_TRUE(isDefault(value()));
    EXPECT_EQ(log.messages, std::vector<wxString>{"The configuration file '" + file().string() +
                                                  "' is not used: it is damaged"});
}

TEST_F(Configuration, ThatIsDamagedIsKeptAndWrittenAnew)
{
    const std::string damaged = "[6]\n=\nPlotStylePath=/x\n";
    support::writeFile(file(), damaged);
    EXPECT_TRUE(store("/tables"));
    EXPECT_EQ(value(), "/tables");
    EXPECT_EQ(names(), (std::vector<std::string>{"pstyle (damaged).conf", "pstyle.conf"}));
    EXPECT_EQ(support::readFile(folder / "pstyle/pstyle (damaged).conf"), damaged);
    EXPECT_EQ(log.messages.size(), 1u);
}

TEST_F(Configuration, KeepsWhatElseItHolds)
{
    support::writeFile(file(), "# mine\n[1]\nOther=1\n[6]\nPlotStylePath=/x\n");
    EXPECT_TRUE(store("/y"));
    EXPECT_EQ(support::readFile(file()), "# mine\n[1]\nOther=1\n[6]\nPlotStylePath=/y\n");
    EXPECT_EQ(names(), std::vector<std::string>{"pstyle.conf"});
}

TEST_F(Configuration, IsWrittenThroughALink)
{
    std::filesystem::create_directory(folder / "elsewhere");
    std::filesystem::create_symlink("../elsewhere/mine.conf", file());
    EXPECT_TRUE(store("/tables"));
    EXPECT_TRUE(std::filesystem::is_symlink(file()));
    EXPECT_EQ(support::readFile(folder / "elsewhere/mine.conf"), "[6]\nPlotStylePath=/tables\n");
    EXPECT_EQ(names(), std::vector<std::string>{"pstyle.conf"});
    EXPECT_EQ(value(), "/tables");
}

TEST_F(Configuration, ThatIsReadOnlyStaysAndTheReasonIsTold)
{
    support::writeFile(file(), "[6]\nPlotStylePath=/x\n");
    ASSERT_EQ(::chmod(file().c_str(), 0444), 0);
    EXPECT_FALSE(store("/y"));
    EXPECT_EQ(value(), "/x");
    EXPECT_EQ(log.messages, std::vector<wxString>{file().string() + ": Permission denied"});
}

TEST_F(Configuration, OfAnyBytesNeverFailsAnAssertion)
{
    const std::string tokens[] = {"[",  "]",  "6", "/", "..", "=", "PlotStylePath",      "\n",
                                  "\\", "\"", "!", "#", ";",  " ", std::string(1, '\0'), "\xFF",
                                  "x"};
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i)
    {
        std::string bytes;
        for (auto length = random() % 30; length > 0; --length)
            bytes += tokens[random() % std::size(tokens)];
        support::writeFile(file(), bytes);
        value();
        ASSERT_TRUE(store("/tables")) << bytes;
        ASSERT_EQ(value(), "/tables") << bytes;
        std::filesystem::remove_all(folder / "pstyle");
        std::filesystem::create_directory(folder / "pstyle");
    }
}

TEST_F(Configuration, ThatIsTooLongIsKeptToo)
{
    std::string bytes = "[7]\n";
    for (int i = 0; i < 12000; ++i)
        bytes += "K" + std::to_string(i) + "=" + std::string(100, 'v') + "\n";
    support::writeFile(file(), bytes);
    EXPECT_TRUE(store("/tables"));
    EXPECT_EQ(value(), "/tables");
    EXPECT_TRUE(support::readFile(folder / "pstyle/pstyle (damaged).conf") == bytes);
}

TEST_F(Configuration, ThatIsADeviceIsEmptyAndIsNotWritten)
{
    std::filesystem::create_symlink("/dev/zero", file());
    EXPECT_TRUE(isDefault(value()));
    EXPECT_FALSE(store("/tables"));
    EXPECT_EQ(log.messages, std::vector<wxString>{file().string() + " is not a file"});
    EXPECT_EQ(names(), std::vector<std::string>{"pstyle.conf"});
}

TEST_F(Configuration, WithAnImmutableKeyIsNotChanged)
{
    const std::string bytes = "[6]\n!PlotStylePath=/x\n";
    support::writeFile(file(), bytes);
    EXPECT_FALSE(store("/y"));
    EXPECT_EQ(support::readFile(file()), bytes);
    EXPECT_EQ(value(), "/x");
}

TEST_F(Configuration, ThatIsDamagedAndReadOnlyStays)
{
    const std::string damaged = "[6]\n=\n";
    support::writeFile(file(), damaged);
    ASSERT_EQ(::chmod(file().c_str(), 0444), 0);
    EXPECT_FALSE(store("/tables"));
    EXPECT_EQ(support::readFile(file()), damaged);
    EXPECT_EQ(names(), std::vector<std::string>{"pstyle.conf"});
    EXPECT_EQ(log.messages.size(), 1u);
}

TEST_F(Configuration, ThatIsDamagedTakesAnyFolder)
{
    support::writeFile(file(), "[6]\n=\n");
    EXPECT_TRUE(store("/$HOME \\ %d"));
    EXPECT_EQ(value(), "/$HOME \\ %d");
}
