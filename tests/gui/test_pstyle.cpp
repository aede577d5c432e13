// The stand-alone program as its users start it: options, exit status, silence.

#include "support/editor_test.h"
#include "support/hands.h"
#include "support/sanitized.h"
#include "support/table_maker.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <wx/dir.h>
#include <wx/filename.h>
#include <wx/gdicmn.h>
#include <wx/image.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
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
                support::withoutLoaderWarnings(readBytes(folder.file("errors")))};
    }

    /// Types at the program's dialog, which is the only window of the screen.
    static void type(const char* chord)
    {
        Hands hands;
        const wxSize screen = wxGetDisplaySize();
        hands.moveTo({screen.x / 2, screen.y / 2});
        hands.key(chord);
    }

    static void save() { type("alt+s"); }
    static void cancel() { type("Escape"); }

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
        EXPECT_EQ(result.errors.rfind("pstyle: ", 0), 0u) << result.errors;
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 2)
            << "the reason and a hint: " << result.errors;
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
    // Types a name and confirms; the editor, which then comes up, is cancelled. What was typed for
    // the name may have reached the editor, which then asks whether to save it.
    const auto tables = [this]
    {
        wxArrayString found;
        wxDir::GetAllFiles(folder.path(), &found, "*.stb", wxDIR_FILES);
        return found;
    };
    bool confirm = false;
    int turns = 0;
    const auto nameIt = [&]
    {
        confirm = !confirm;
        if (tables().empty())
            type(confirm ? "1" : "alt+o");
        else if (turns++ % 20 == 0) // a button acts some time after its mnemonic
            type(turns % 40 == 1 ? "Escape" : "alt+n");
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
    EXPECT_NE(noTable.errors.find("cannot be opened as a plot style table"), std::string::npos);
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
    EXPECT_NE(noTable.errors.find("cannot be opened as a plot style table"), std::string::npos);
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

TEST_F(WithoutADisplay, WritesThroughLinksAndRefusesReadOnlyFiles)
{
    const wxString table = makeTable("table.ctb");
    const wxString targets[] = {folder.file("real.png"), folder.file("real.csv")};
    const char* const commands[] = {"--picture", "--export"};
    for (int i = 0; i < 2; ++i)
    {
        const wxString& target = targets[i];
        EXPECT_EQ(run({commands[i], table, target}).status, 0);
        const std::string bytes = readBytes(target);
        const std::filesystem::path path(target.utf8_string());
        const std::filesystem::path link =
            path.parent_path() / ("link" + path.extension().string());
        std::filesystem::create_symlink(path.filename(), link);
        support::writeFile(path, "");
        EXPECT_EQ(run({commands[i], table, wxString::FromUTF8(link.native())}).status, 0);
        EXPECT_TRUE(std::filesystem::is_symlink(link));
        EXPECT_EQ(readBytes(target), bytes);
        std::filesystem::permissions(path, std::filesystem::perms::owner_read);
        const Result refused = run({commands[i], table, target});
        EXPECT_EQ(refused.status, 1);
        EXPECT_EQ(refused.errors, "pstyle: Failed to create or open file: " + path.native() +
                                      ": Permission denied\n");
        EXPECT_EQ(readBytes(target), bytes);
    }
}

TEST_F(WithoutADisplay, WritesIntoStandardOutputByItsName)
{
    const wxString table = makeTable("table.ctb");
    const Result text = run({"--export", table, "/dev/stdout"});
    EXPECT_EQ(text.status, 0) << text.errors;
    EXPECT_EQ(text.output, run({"--export", table}).output);
    const Result picture = run({"--picture", table, "/dev/stdout"});
    EXPECT_EQ(picture.status, 0) << picture.errors;
    EXPECT_EQ(picture.output.substr(1, 3), "PNG");
    EXPECT_TRUE(std::filesystem::is_symlink("/dev/stdout"));
    EXPECT_EQ(run({"--export", table, "/dev/full"}).errors,
              "pstyle: Failed to save file: /dev/full: No space left on device\n");
}

TEST_F(WithoutADisplay, LeavesPathsToTheSystem)
{
    const wxString table = makeTable("table.ctb");
    const std::filesystem::path base(folder.path().utf8_string());
    std::filesystem::create_directories(base / "elsewhere/sub");
    std::filesystem::create_symlink("elsewhere/sub", base / "link");
    support::writeFile(base / "a.csv", "");
    EXPECT_EQ(run({"--export", table, folder.file("link/../a.csv")}).status, 0);
    EXPECT_EQ(readBytes(folder.file("a.csv")), "");
    EXPECT_NE(readBytes(folder.file("elsewhere/a.csv")), "");
    std::filesystem::create_directory(base / "~");
    std::filesystem::copy_file(table.utf8_string(), base / "~/b.ctb");
    const std::string command = "cd '" + base.native() +
                                "' && '" PSTYLE_PROGRAM
                                "' --picture '~/b.ctb' './~/b.png' --size 64";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_TRUE(wxFileExists(folder.file("~/b.png")));
}

TEST_F(WithoutADisplay, ExportsOverNothingButExports)
{
    const wxString table = makeTable("table.ctb");
    const wxString fresh = folder.file("fresh.csv");
    for (const wxString& target : {fresh, fresh, makeFile("empty.csv", "")})
        EXPECT_EQ(run({"--export", table, target}).status, 0) << target;
    for (const std::string& other :
         {std::string("a,b\n"), std::string("\x89PNG\r\n\x1A\n"), readBytes(table)})
    {
        const wxString target = makeFile("other", other);
        const Result result = run({"--export", table, target});
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.errors.find(": The file is "), std::string::npos) << result.errors;
        EXPECT_EQ(readBytes(target), other);
    }
    // An export of any size is an export, by its first line.
    const std::string before = readBytes(fresh);
    makeFile("fresh.csv", before + std::string(100000, 'x'));
    std::filesystem::resize_file(fresh.utf8_string(), std::uintmax_t{600} << 20);
    EXPECT_EQ(run({"--export", table, fresh}).status, 0);
    EXPECT_EQ(readBytes(fresh), before);
}

TEST_F(Program, CreatesACopyOnlyWhereThereIsNothing)
{
    const wxString source = makeTable("a.ctb");
    const wxString copy = makeTable("b.ctb", describe(L"mine"));
    const std::string before = readBytes(copy);
    const Result exists = run({"--source", source, copy});
    EXPECT_EQ(exists.status, 2);
    EXPECT_EQ(exists.errors, "pstyle: " + copy.utf8_string() + " exists already\n");
    EXPECT_EQ(readBytes(copy), before);
    const wxString names = makeTable("names.stb");
    for (const auto& [from, to] :
         {std::pair{source, "new.stb"}, std::pair{source, "new"}, std::pair{names, "new.ctb"}})
    {
        const Result result = run({"--source", from, folder.file(to)});
        EXPECT_EQ(result.status, 2);
        EXPECT_NE(result.errors.find("must have the extension"), std::string::npos)
            << result.errors;
    }
    const Result damaged = run({"--source", makeFile("bad.ctb", "x"), folder.file("new.ctb")});
    EXPECT_EQ(damaged.status, 1);
    EXPECT_NE(damaged.errors.find("cannot be opened as a plot style table: The file does not have"),
              std::string::npos)
        << damaged.errors;
}

TEST_F(WithoutADisplay, KnowsFoldersOfAnyName)
{
    const wxString tables = folder.file(L"é");
    wxMkdir(tables);
    support::writeFile((tables + "/mine.stb").utf8_string(), "");
    environment.emplace_back("LC_ALL", "C");
    environment.emplace_back("PSTYLE_PLOT_STYLE_PATH", tables.utf8_string());
    EXPECT_EQ(run({"--list"}).output, "mine.stb\n");
}

TEST_F(WithoutADisplay, FailsWithoutAStandardOutput)
{
    const std::string table = makeTable("table.ctb").utf8_string();
    const std::string export_ = std::string("'") + PSTYLE_PROGRAM + "' --export '" + table + "'";
    EXPECT_EQ(WEXITSTATUS(std::system((export_ + " >&- 2>&-").c_str())), 1);
    EXPECT_EQ(WEXITSTATUS(std::system((export_ + " '" + table + ".csv' <&- >&- 2>&-").c_str())), 0);
    EXPECT_EQ(readBytes(table + ".csv").substr(0, 17), "PLOTSTYLE_TABLE,,");
}

TEST_F(WithoutADisplay, SaysThatAFileGrowsTooLarge)
{
    const std::string command = "ulimit -f 1; '" PSTYLE_PROGRAM "' --export '" +
                                makeTable("table.ctb").utf8_string() + "' >'" +
                                folder.file("output").utf8_string() + "' 2>/dev/null";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
}

TEST_F(WithoutADisplay, DrawsAQuarterOfAMillionStyles)
{
    for (const char* const kind : {"CTB", "STB"})
    {
        std::string text = "plot_style{\n";
        for (int i = 0; i < 250000; ++i)
            text += std::to_string(i) + "{\n}\n";
        support::Container container;
        container.kind = kind;
        const wxString table = makeFile("large", support::pack(text + "}\n", container));
        const wxString picture = folder.file("large.png");
        EXPECT_EQ(run({"--picture", table, picture}).status, 0);
        EXPECT_EQ(imageAt(picture).GetSize(), wxSize(362, 512));
    }
}

TEST_F(WithoutADisplay, SaysThatMemoryIsOut)
{
    if (support::kIsSanitized)
        GTEST_SKIP() << "the sanitizer's own memory is in the way";
    support::Container named;
    named.kind = "STB";
    const wxString table =
        makeFile("large.stb", support::pack(support::largeTableText(60000), named));
    // Enough for the libraries, with which the program begins, but not for the work.
    const auto statusWith = [this](int megabytes, const wxString& arguments)
    {
        const std::string command = "ulimit -v " + std::to_string(megabytes * 1024) + "; '" +
                                    PSTYLE_PROGRAM + "' " + arguments.utf8_string() + " 2>'" +
                                    folder.file("errors").utf8_string() + "' >/dev/null";
        const int status = std::system(command.c_str());
        EXPECT_TRUE(WIFEXITED(status)) << megabytes;
        return WEXITSTATUS(status);
    };
    int told = 0;
    for (int megabytes = 60; megabytes <= 400; megabytes += 20)
    {
        if (statusWith(megabytes, "--version") != 0)
            continue;
        EXPECT_LT(statusWith(megabytes, "--export '" + table + "'"), 128)
            << megabytes << readBytes(folder.file("errors"));
        told += readBytes(folder.file("errors")).find("out of memory") != std::string::npos;
    }
    EXPECT_GT(told, 0);
}

TEST_F(WithoutADisplay, SpeaksTheUsersLanguage)
{
    environment.push_back({"LANGUAGE", "de"});
    EXPECT_EQ(run({"--export", makeFile("text.ctb", "no table")}).errors,
              "pstyle: " + folder.file("text.ctb").utf8_string() +
                  " kann nicht als Plotstiltabelle geöffnet werden: "
                  "Die Datei hat nicht den Kopf einer Plotstiltabelle (bei Byte 0 der Datei)\n");
    EXPECT_NE(run({"--help"}).output.find("Aufruf: pstyle"), std::string::npos);
    EXPECT_EQ(run({"--nonsense"}).errors,
              "pstyle: unbekannte Option --nonsense\npstyle: siehe „pstyle --help“\n");
}
