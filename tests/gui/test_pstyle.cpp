// The stand-alone program as its users start it: options, exit status, silence.

#include "support/editor_test.h"

#include <gtest/gtest.h>

#include <wx/dir.h>
#include <wx/filename.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
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
    for (const char* option : {"--source", "--new", "--list", "--folder", "--export", "--picture",
                               "--size", "--help", "--version", "FILE"})
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    EXPECT_EQ(help.errors, "");
    EXPECT_EQ(run({"-h"}).output, help.output);

    const Result version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.output, "pstyle " PSTYLE_VERSION "\n");
    EXPECT_EQ(version.errors, "");
}

TEST_F(WithoutADisplay, RefusesWrongUsage)
{
    const std::pair<std::vector<wxString>, const char*> cases[] = {
        {{"--nonsense"}, "unknown option --nonsense"},
        {{"-abc"}, "unknown option -a"},
        {{"--source"}, "--source needs a value"},
        {{"--source", "a.ctb"}, "--source takes the file to create"},
        {{"--source", "", "a.ctb"}, "is not a value"},
        {{"a.ctb", "b.ctb"}, "one file at the most"},
        {{""}, "the name is empty"},
        {{"--new", "dwt", "."}, "'dwt' is not a value"},
        {{"--new", "ctb"}, "the folder for the new table"},
        {{"--list", "x"}, "--list takes no names"},
        {{"--folder"}, "--folder needs a value"},
        {{"--folder", ""}, "is not a value"},
        {{"--folder", "a", "b"}, "one folder"},
        {{"--export"}, "--export needs a value"},
        {{"--export", "a", "b", "c"}, "one text file at the most"},
        {{"--list", "--version"}, "more than one command"},
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

TEST_F(Program, WithoutArgumentsShowsTheChooser)
{
    EXPECT_EQ(run({}, cancel).status, 1);
}

TEST_F(Program, NewPrintsTheNameForTheDrawing)
{
    // Types a name and confirms; the editor, which then comes up, is cancelled.
    const auto tables = [this]
    {
        wxArrayString found;
        wxDir::GetAllFiles(folder.path(), &found, "*.stb", wxDIR_FILES);
        return found;
    };
    bool confirm = false;
    const auto nameIt = [&]
    {
        if (!tables().empty())
            type(WXK_ESCAPE);
        else if (confirm)
            type('O', wxMOD_ALT);
        else
            type('1');
        confirm = !confirm;
    };
    const Result created = run({"--new", "stb", folder.path()}, nameIt);
    EXPECT_EQ(created.status, 0);
    ASSERT_EQ(tables().size(), 1u);
    const wxFileName table(tables().front());
    EXPECT_EQ(created.output, table.GetFullName().utf8_string() + "\n");
    EXPECT_FALSE(loadTable(table.GetFullPath())->isColorDependent());

    const Result cancelled = run({"--new", "stb", folder.path()}, cancel);
    EXPECT_EQ(cancelled.status, 1);
    EXPECT_EQ(cancelled.output, "");
    EXPECT_EQ(run({"--new", "stb", folder.file("missing")}).status, 2);
}

TEST_F(WithoutADisplay, ListsTheTablesOfTheFolder)
{
    makeTable("a.ctb");
    makeFile("b.txt", "no table");
    environment.emplace_back("PSTYLE_PLOT_STYLE_PATH", folder.path().utf8_string());
    const Result list = run({"--list"});
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(list.output, "a.ctb\n");
    EXPECT_EQ(list.errors, "");
}

TEST_F(WithoutADisplay, AnEmptyFolderSettingListsNothing)
{
    environment.emplace_back("PSTYLE_PLOT_STYLE_PATH", "");
    EXPECT_EQ(run({"--list"}).output, "");
}

TEST_F(WithoutADisplay, KeepsTheFolderInTheUsersConfiguration)
{
    const wxString tables = folder.file(L"Täbles $HOME & more");
    wxMkdir(tables);
    support::writeFile((tables + "/mine.stb").utf8_string(), "");
    environment.emplace_back("XDG_CONFIG_HOME", folder.file("config").utf8_string());
    unsetenv("PSTYLE_PLOT_STYLE_PATH");
    const Result set = run({"--folder", tables});
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.errors, "");
    EXPECT_EQ(run({"--list"}).output, "mine.stb\n");
    const Result refused = run({"--folder", folder.file("missing")});
    EXPECT_EQ(refused.status, 2);
    EXPECT_NE(refused.errors.find("is not a folder"), std::string::npos);
    EXPECT_EQ(run({"--list"}).output, "mine.stb\n");
}

TEST_F(WithoutADisplay, ListsTheSampleTablesWhereNothingIsConfigured)
{
    environment.emplace_back("XDG_CONFIG_HOME", folder.file("config").utf8_string());
    unsetenv("PSTYLE_PLOT_STYLE_PATH");
    const std::string output = run({"--list"}).output;
    for (const char* name : {"Standard.ctb", "Monochrome.ctb", "Grayscale.ctb",
                             "Lineweights by Color.ctb", "Office.stb"})
        EXPECT_NE(output.find(name), std::string::npos) << name;
}

TEST_F(WithoutADisplay, ExportsToStandardOutputAndToAFile)
{
    const wxString table = makeTable("table.stb", describe(L"Grüße"));
    const Result printed = run({"--export", table});
    EXPECT_EQ(printed.status, 0);
    EXPECT_EQ(printed.errors, "");
    EXPECT_NE(printed.output.find(",FileName,table.stb\n,Description,Grüße\n"), std::string::npos);
    const wxString text = folder.file("table.csv");
    EXPECT_EQ(run({"--export", table, text}).status, 0);
    EXPECT_EQ(readBytes(text), printed.output);
}

TEST_F(WithoutADisplay, ReportsAFullStandardOutput)
{
    const std::string command = std::string("'") + PSTYLE_PROGRAM + "' --export '" +
                                makeTable("table.ctb").utf8_string() + "' >/dev/full 2>'" +
                                folder.file("errors").utf8_string() + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_EQ(readBytes(folder.file("errors")), "pstyle: standard output cannot be written\n");
}

TEST_F(WithoutADisplay, ReportsWhatItCannotExport)
{
    const Result noTable = run({"--export", makeFile("text.ctb", "no table")});
    EXPECT_EQ(noTable.status, 1);
    EXPECT_EQ(noTable.output, "");
    EXPECT_NE(noTable.errors.find("is not a plot style table"), std::string::npos);
    const Result noTarget =
        run({"--export", makeTable("table.stb"), folder.file("missing/table.csv")});
    EXPECT_EQ(noTarget.status, 1);
    EXPECT_NE(noTarget.errors.find("Failed to create or open file: "), std::string::npos);
}

namespace
{

// The picture at a path, which must be one.
wxImage imageAt(const wxString& path)
{
    wxImage image(path, wxBITMAP_TYPE_PNG);
    if (!image.IsOk())
        throw std::runtime_error("no picture: " + path.utf8_string());
    return image;
}

// How many pixels have a colour that `wanted` takes.
int count(const wxImage& image, const std::function<bool(int red, int green, int blue)>& wanted)
{
    int found = 0;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            found += wanted(image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y));
    return found;
}

} // namespace

TEST_F(WithoutADisplay, DrawsATable)
{
    const wxString table = makeTable("table.stb",
                                     [](OdPsPlotStyleTable& names)
                                     {
                                         OdPsPlotStyleData red;
                                         red.color = OdCmEntityColor(255, 0, 0);
                                         red.lineweight = 27;
                                         names.addNewStyle(L"Red")->setData(red);
                                     });
    const wxString picture = folder.file("table.png");
    const Result result = run({"--picture", table, picture});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output + result.errors, "");
    const wxImage image = imageAt(picture);
    EXPECT_EQ(image.GetSize(), wxSize(362, 512));
    const int red = count(image, [](int r, int g, int b) { return r == 255 && g == 0 && b == 0; });
    const int black = count(image, [](int r, int g, int b) { return r + g + b < 30; });
    const int paper = count(image, [](int r, int g, int b) { return r + g + b == 3 * 255; });
    EXPECT_GT(red, 1000) << "a line of two millimetres";
    EXPECT_GT(black, 100);
    EXPECT_LT(black, red / 2) << "a line of a quarter of a millimetre";
    EXPECT_GT(paper, 362 * 512 / 2);

    EXPECT_EQ(run({"--size", "64", "--picture", table, picture}).status, 0) << "replaced";
    EXPECT_EQ(imageAt(picture).GetSize(), wxSize(45, 64));
    for (const char* size : {"16", "4096"})
        EXPECT_EQ(run({"--picture", table, picture, "--size", size}).status, 0) << size;
}

TEST_F(WithoutADisplay, DrawsTablesOfAnySize)
{
    const wxString picture = folder.file("table.png");
    const auto draw = [&](const char* name, const std::function<void(OdPsPlotStyleTable&)>& change)
    {
        EXPECT_EQ(run({"--picture", makeTable(name, change), picture}).status, 0) << name;
        return imageAt(picture);
    };
    const auto isInk = [](int r, int g, int b) { return r + g + b < 3 * 150; };
    EXPECT_EQ(count(draw("none.stb",
                         [](OdPsPlotStyleTable& names) { names.deleteStyle(names.styleAt(0)); }),
                    isInk),
              0);
    const wxImage many =
        draw("many.stb",
             [](OdPsPlotStyleTable& names)
             {
                 OdPsPlotStyleData data;
                 for (int i = 0; i < 3000; ++i)
                 {
                     data.screening = i % 2 ? 100 : 60;
                     names.addNewStyle(OdString(std::to_wstring(i).c_str()))->setData(data);
                 }
             });
    EXPECT_GT(count(many, isInk), 2000);
    const wxImage colors = draw("colors.ctb",
                                [](OdPsPlotStyleTable& table)
                                {
                                    for (int i = 0; i < 255; ++i)
                                    {
                                        OdPsPlotStyleData data;
                                        data.lineweight = 1 + i % 27;
                                        table.styleAt(i)->setData(data);
                                    }
                                });
    const auto isRed = [](int r, int g, int b) { return r > 200 && g < 60 && b < 60; };
    EXPECT_GT(count(colors, isRed), 10) << "an object's colour is that of its index";
}

TEST_F(WithoutADisplay, RefusesToDrawOverAnotherFile)
{
    const wxString table = makeTable("table.ctb");
    const std::string before = readBytes(table);
    const Result result = run({"--picture", table, table});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("is not a picture and is not replaced"), std::string::npos);
    EXPECT_EQ(readBytes(table), before);
    EXPECT_EQ(run({"--picture", table, makeFile("empty", "")}).status, 0)
        << "as the folder view's programs make one beforehand";
    const wxString pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.utf8_str(), S_IRUSR | S_IWUSR), 0);
    EXPECT_EQ(run({"--picture", table, pipe}).status, 1);
    EXPECT_EQ(run({"--export", table, table}).status, 1);
    EXPECT_EQ(readBytes(table), before);
}

TEST_F(WithoutADisplay, ReportsWhatItCannotDraw)
{
    EXPECT_NE(run({"--picture", "missing.ctb", "a.png"}).errors.find("does not exist"),
              std::string::npos);
    EXPECT_NE(run({"--picture", folder.path(), "a.png"}).errors.find("is a folder"),
              std::string::npos);
    const Result noTable =
        run({"--picture", makeFile("text.ctb", "no table"), folder.file("a.png")});
    EXPECT_EQ(noTable.status, 1);
    EXPECT_NE(noTable.errors.find("is not a plot style table"), std::string::npos);
    const wxString table = makeTable("table.ctb");
    const Result noTarget = run({"--picture", table, folder.file("missing/a.png")});
    EXPECT_EQ(noTarget.status, 1);
    EXPECT_NE(noTarget.errors.find("Failed to create or open file: "), std::string::npos);
    const std::vector<std::vector<wxString>> wrong{
        {"--picture", table},          {"--picture", table, "a.png", "--size", "15"},
        {"--size", "64", table},       {"--picture", table, "a.png", "--size", "4097"},
        {"--size", "64", "--list"},    {"--picture", table, "a.png", "--size", "12x"},
        {"--picture", table, "a", "b"}};
    for (const auto& arguments : wrong)
        EXPECT_EQ(run(arguments).status, 2) << arguments.back();
}

TEST_F(WithoutADisplay, SpeaksTheUsersLanguage)
{
    environment.push_back({"LANGUAGE", "de"});
    EXPECT_EQ(run({"--export", makeFile("text.ctb", "no table")}).errors,
              "pstyle: " + folder.file("text.ctb").utf8_string() + " ist keine Plotstiltabelle\n");
    EXPECT_NE(run({"--help"}).output.find("Aufruf: pstyle"), std::string::npos);
    EXPECT_EQ(run({"--nonsense"}).errors,
              "pstyle: unbekannte Option --nonsense\npstyle: siehe „pstyle --help“\n");
}
