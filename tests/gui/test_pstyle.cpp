// The stand-alone program as its users start it: options, exit status, silence.

#include "support/editor_test.h"

#include <gtest/gtest.h>

#include <wx/gdicmn.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

struct Result
{
    int status = -1;
    std::string output;
    std::string errors;
};

class Program : public EditorTest
{
protected:
    /// Runs the program. @param whileRunning  is called again and again until the program has ended
    Result run(
        const std::vector<wxString>& arguments, const std::function<void()>& whileRunning = [] {})
    {
        const pid_t child = fork();
        if (child == 0)
            become(arguments);
        int status = 0;
        constexpr long patience = 30000;
        wxStopWatch watch;
        while (waitpid(child, &status, WNOHANG) == 0)
        {
            if (watch.Time() > patience)
            {
                ADD_FAILURE() << "the program does not end";
                kill(child, SIGKILL);
            }
            whileRunning();
            wxMilliSleep(20);
        }
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readBytes(folder.file("output")),
                readBytes(folder.file("errors"))};
    }

    /// Types at the program's dialog, which is the only window of the screen.
    static void type(int key, int modifiers = wxMOD_NONE)
    {
        wxUIActionSimulator simulator;
        const wxSize screen = wxGetDisplaySize();
        simulator.MouseMove(screen.x / 2, screen.y / 2);
        simulator.Char(key, modifiers);
    }

    static void save() { type('S', wxMOD_ALT); }
    static void cancel() { type(WXK_ESCAPE); }

    std::vector<std::pair<std::string, std::string>> environment;

private:
    [[noreturn]] void become(const std::vector<wxString>& arguments) const
    {
        std::vector<std::string> words{PSTYLE_PROGRAM};
        for (const wxString& argument : arguments)
            words.push_back(argument.utf8_string());
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);
        for (const auto& [name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        redirect(STDOUT_FILENO, "output");
        redirect(STDERR_FILENO, "errors");
        execv(argv[0], argv.data());
        _exit(127);
    }

    void redirect(int descriptor, const char* name) const
    {
        const int file =
            open(folder.file(name).utf8_str(), O_WRONLY | O_CREAT | O_TRUNC, S_IRUSR | S_IWUSR);
        dup2(file, descriptor);
    }
};

class WithoutADisplay : public Program
{
protected:
    void SetUp() override { environment = {{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}}; }
};

} // namespace

TEST_F(WithoutADisplay, ShowsHelpAndVersion)
{
    const Result help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.output.find("Usage: pstyle"), std::string::npos);
    for (const char* option : {"--source", "--help", "--version", "FILE"})
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    EXPECT_EQ(help.errors, "");

    const Result version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "pstyle " PSTYLE_VERSION "\n");
    EXPECT_EQ(version.errors, "");
}

TEST_F(WithoutADisplay, RefusesWrongUsage)
{
    const std::pair<std::vector<wxString>, const char*> cases[] = {
        {{"--nonsense"}, "--nonsense"},
        {{"--source"}, "--source needs a value"},
        {{"--source", "a.ctb"}, "--source needs a file to create"},
        {{"a.ctb", "b.ctb"}, "more than one file"},
        {{""}, "the file name is empty"},
    };
    for (const auto& [arguments, reason] : cases)
    {
        const Result result = run(arguments);
        EXPECT_EQ(result.status, 2) << reason;
        EXPECT_EQ(result.output, "") << reason;
        EXPECT_NE(result.errors.find(reason), std::string::npos) << result.errors;
    }
}

TEST_F(WithoutADisplay, SaysWhyItCannotOpenAWindow)
{
    const Result result = run({makeTable("table.ctb")});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.errors.find("DISPLAY"), std::string::npos) << result.errors;
}

TEST_F(Program, SaveAndCloseGivesZero)
{
    const Result result = run({makeTable("table.ctb")}, save);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

TEST_F(Program, CancelGivesOne)
{
    const Result result = run({makeTable("table.stb")}, cancel);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

TEST_F(Program, CreatesAMissingFile)
{
    const wxString file = folder.file(L"neü.ctb");
    EXPECT_EQ(run({file}, save).status, 0);
    EXPECT_TRUE(loadTable(file)->isColorDependent());
}

TEST_F(Program, CreatesAFileFromASource)
{
    const wxString source = makeTable("source.stb", describe(L"from here"));
    const wxString file = folder.file("copy.stb");
    EXPECT_EQ(run({"--source", source, file}, save).status, 0);
    EXPECT_EQ(readBytes(file), readBytes(source));
}

TEST_F(Program, RefusesFilesThatItCannotUse)
{
    const Result isFolder = run({folder.path()});
    EXPECT_EQ(isFolder.status, 2);
    EXPECT_NE(isFolder.errors.find("is a folder"), std::string::npos) << isFolder.errors;

    const Result noSource = run({"--source", folder.file("missing.ctb"), folder.file("a.ctb")});
    EXPECT_EQ(noSource.status, 2);
    EXPECT_NE(noSource.errors.find("does not exist"), std::string::npos) << noSource.errors;
    EXPECT_FALSE(wxFileExists(folder.file("a.ctb")));
}

TEST_F(Program, WithoutArgumentsACancelledFileDialogGivesOne)
{
    EXPECT_EQ(run({}, cancel).status, 1);
}
