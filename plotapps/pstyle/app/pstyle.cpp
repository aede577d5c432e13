// pstyle: the plot style table editor as a program of its own, and a host of the library.

#include "options.h"

#include "psl.h"
#include "psl_csv.h"

#include "cmdapi/cma.h"
#include "util/ut.h"

#include <wx/app.h>
#include <wx/arrstr.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/utils.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>
#include <functional>

namespace
{

using Action = Options::Action;

enum ExitStatus
{
    exitDone = 0,
    exitFailed = 1,
    exitUsage = 2,
};

// Says what went wrong on standard error, and gives the exit status for it.
int fail(ExitStatus status, const wxString& message)
{
    std::fprintf(stderr, "pstyle: %s\n", static_cast<const char*>(message.utf8_str()));
    return status;
}

// Prints lines on standard output. @return the status, after what went wrong has been said
int print(const wxArrayString& lines)
{
    for (const wxString& line : lines)
        std::printf("%s\n", static_cast<const char*>(line.utf8_str()));
    if (std::fflush(stdout) != 0)
        return fail(exitFailed, "standard output cannot be written");
    return exitDone;
}

// File names are UTF-8, like everything else on the systems that the program runs on; where they
// are not, their bytes are kept as far as the toolkit can.
wxString fullPath(const std::string& argument)
{
    if (argument.empty())
        return wxString();
    wxString text = wxString::FromUTF8(argument);
    if (text.empty())
        text = wxString(argument.c_str(), *wxConvFileName);
    wxFileName name(text);
    name.MakeAbsolute();
    return name.GetFullPath();
}

// --- Commands that show dialogs ------------------------------------------------------------

int edit(const Options& options)
{
    const wxString file = fullPath(options.file);
    const wxString source = fullPath(options.source);
    if (wxFileName::DirExists(file))
        return fail(exitUsage, file + " is a folder");
    if (!source.empty() && !wxFileName::FileExists(source))
        return fail(exitUsage, source + " does not exist");
    return editPlotStyleTable(file, source, nullptr) ? exitDone : exitFailed;
}

int create(const Options& options)
{
    const wxString folder = fullPath(options.file);
    if (!wxFileName::DirExists(folder))
        return fail(exitUsage, folder + " is not a folder");
    wxString name;
    if (!newPlotStyleTable(name, options.colorDependent, folder, nullptr))
        return exitFailed;
    if (name.empty())
        return exitDone;
    wxArrayString names;
    names.Add(name);
    return print(names);
}

int choose(const Options&)
{
    return startPlotStyleEditor(nullptr) ? exitDone : exitFailed;
}

class PstyleApp : public wxApp
{
public:
    explicit PstyleApp(std::function<int()> run)
        : m_run(std::move(run))
    {
    }

    // Until there are windows, messages go to standard error: above all the one that there is no
    // display. The toolkit ends that by itself when it has started.
    bool Initialize(int& argumentCount, wxChar** arguments) override
    {
        delete wxLog::SetActiveTarget(new wxLogStderr);
        return wxApp::Initialize(argumentCount, arguments);
    }

    bool OnInit() override
    {
        // The toolkit's notes to its developers are for those who ask for them.
        if (!wxGetEnv("WXTRACE", nullptr))
            wxLog::SetLogLevel(wxLOG_Info);
        SetAppName("pstyle");
        SetAppDisplayName(_("Plot Style Table Editor"));
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        return true;
    }

    int OnRun() override
    {
        const int status = m_run();
        wxLog::FlushActive();
        return status;
    }

private:
    std::function<int()> m_run;
};

int runWithWindows(int (*command)(const Options&), const Options& options, char* program)
{
    wxApp::SetInstance(new PstyleApp([=] { return command(options); }));
    int argc = 1;
    char* argv[] = {program, nullptr};
    const int status = wxEntry(argc, argv);
    return status < 0 ? int(exitUsage) : status;
}

// --- Commands that show nothing ------------------------------------------------------------

int list(const Options&)
{
    wxArrayString files;
    getPlotStyleFiles(files);
    return print(files);
}

int setFolder(const Options& options)
{
    const wxString folder = fullPath(options.file);
    if (!wxFileName::DirExists(folder))
        return fail(exitUsage, folder + " is not a folder");
    if (!ut::setString(ut::ECfgGroup::Paths, "PlotStylePath", folder))
        return fail(exitFailed, "the configuration cannot be written");
    if (wxGetEnv("PSTYLE_PLOT_STYLE_PATH", nullptr))
        std::fputs("pstyle: note: PSTYLE_PLOT_STYLE_PATH is set and goes first\n", stderr);
    return exitDone;
}

int exportTable(const Options& options)
{
    const wxFileName source(fullPath(options.source));
    const auto table = cma::loadPlotStyleTable(OdString(source.GetFullPath().wc_str()));
    if (table.isNull())
        return fail(exitFailed, source.GetFullPath() + " is not a plot style table");
    if (options.file.empty())
        return print(csvLines(*table, source.GetFullName()));
    const wxString target = fullPath(options.file);
    if (!exportCsv(*table, source.GetFullName(), target))
        return fail(exitFailed, "Failed to create or open file: " + target);
    return exitDone;
}

int runWithoutWindows(int (*command)(const Options&), const Options& options)
{
    const wxInitializer toolkit;
    return command(options);
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    switch (options.action)
    {
    case Action::Choose:
        return runWithWindows(choose, options, argv[0]);
    case Action::Edit:
        return runWithWindows(edit, options, argv[0]);
    case Action::Create:
        return runWithWindows(create, options, argv[0]);
    case Action::List:
        return runWithoutWindows(list, options);
    case Action::SetFolder:
        return runWithoutWindows(setFolder, options);
    case Action::Export:
        return runWithoutWindows(exportTable, options);
    case Action::Help:
        std::fputs(usage, stdout);
        return exitDone;
    case Action::Version:
        std::puts("pstyle " PSTYLE_VERSION);
        return exitDone;
    case Action::Refuse:
        break;
    }
    std::fprintf(stderr, "pstyle: %s\nTry 'pstyle --help'.\n", options.reason.c_str());
    return exitUsage;
}
