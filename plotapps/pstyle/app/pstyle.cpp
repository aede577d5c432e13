// pstyle: the plot style table editor as a program of its own, and a host of the library.

#include "options.h"
#include "table_picture.h"

#include "psl.h"
#include "psl_csv.h"
#include "psl_replace_file.h"

#include "cmdapi/cma.h"
#include "util/ut.h"

#include <wx/app.h>
#include <wx/arrstr.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/init.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/utils.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
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

// Says what there is to say on standard error, and gives the exit status for it.
int say(ExitStatus status, const wxString& message)
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
        return say(exitFailed, _("standard output cannot be written"));
    return exitDone;
}

// File names are UTF-8, like everything else on the systems that the program runs on.
wxString fullPath(const std::string& argument)
{
    if (argument.empty())
        return wxString();
    wxFileName name(wxString::FromUTF8(argument));
    name.MakeAbsolute();
    return name.GetFullPath();
}

// --- Commands that show dialogs ------------------------------------------------------------

int edit(const Options& options)
{
    const wxString file = fullPath(options.file);
    const wxString source = fullPath(options.source);
    if (wxFileName::DirExists(file))
        return say(exitUsage, wxString::Format(_("%s is a folder"), file));
    if (!source.empty() && !wxFileName::FileExists(source))
        return say(exitUsage, wxString::Format(_("%s does not exist"), source));
    return editPlotStyleTable(file, source, nullptr) ? exitDone : exitFailed;
}

int create(const Options& options)
{
    const wxString folder = fullPath(options.file);
    if (!wxFileName::DirExists(folder))
        return say(exitUsage, wxString::Format(_("%s is not a folder"), folder));
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
        ut::loadTranslations();
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
        return say(exitUsage, wxString::Format(_("%s is not a folder"), folder));
    if (!ut::setString(ut::ECfgGroup::Paths, "PlotStylePath", folder))
        return say(exitFailed, _("the configuration cannot be written"));
    if (wxGetEnv("PSTYLE_PLOT_STYLE_PATH", nullptr))
        return say(exitDone, _("note: PSTYLE_PLOT_STYLE_PATH is set and goes first"));
    return exitDone;
}

// The table that a command reads; null, after the user has been told, where it cannot be read.
OdPsPlotStyleTablePtr sourceTable(const wxString& path)
{
    const auto table = cma::loadPlotStyleTable(OdString(path.wc_str()));
    if (table.isNull())
        say(exitFailed,
            wxString::Format(wxFileName::DirExists(path) ? _("%s is a folder")
                             : !wxFileName::Exists(path) ? _("%s does not exist")
                                                         : _("%s is not a plot style table"),
                             path));
    return table;
}

int exportTable(const Options& options)
{
    const wxFileName source(fullPath(options.source));
    const auto table = sourceTable(source.GetFullPath());
    if (table.isNull())
        return exitFailed;
    if (options.file.empty())
        return print(csvLines(*table, source.GetFullName()));
    const wxString target = fullPath(options.file);
    if (exportCsv(*table, source.GetFullName(), target) != CsvExport::Done)
        return say(exitFailed, wxString::Format(_("Failed to create or open file: %ls"), target));
    return exitDone;
}

// A slip of the hand must not put a picture in the place of a table. Folder views make an empty
// file beforehand.
bool mayBecomePicture(const wxString& path)
{
    const wxLogNull noMessages; // about a file that cannot be read
    if (wxFileName::Exists(path) && !wxFileName::FileExists(path))
        return false;
    return !wxFileName::Exists(path) || wxFileName::GetSize(path) == 0 ||
           wxPNGHandler().CanRead(path);
}

int drawTable(const Options& options)
{
    const auto table = sourceTable(fullPath(options.source));
    if (table.isNull())
        return exitFailed;
    const wxString target = fullPath(options.file);
    if (!mayBecomePicture(target))
        return say(exitFailed,
                   wxString::Format(_("%s is not a picture and is not replaced"), target));
    const std::string picture = tablePicture(*table, options.size);
    if (!replaceFile(target, picture.data(), picture.size()))
        return say(exitFailed, wxString::Format(_("Failed to create or open file: %ls"), target));
    return exitDone;
}

int help(const Options&)
{
    return print(wxSplit(wxString(wxGetTranslation(usage)).Trim(), '\n'));
}

int showVersion(const Options&)
{
    return print(wxSplit("pstyle " PSTYLE_VERSION, '\n'));
}

int refuse(const Options& options)
{
    wxString reason = wxGetTranslation(options.reason);
    reason.Replace("%s", wxString::FromUTF8(options.subject));
    say(exitUsage, reason);
    return say(exitUsage, _("try 'pstyle --help'"));
}

int runWithoutWindows(int (*command)(const Options&), const Options& options)
{
    const wxInitializer toolkit;
    ut::loadTranslations();
    return command(options);
}

struct Command
{
    Action action;
    int (*run)(const Options&);
    bool showsWindows;
};

const Command commands[] = {
    {Action::Choose, choose, true},        {Action::Edit, edit, true},
    {Action::Create, create, true},        {Action::List, list, false},
    {Action::SetFolder, setFolder, false}, {Action::Export, exportTable, false},
    {Action::Picture, drawTable, false},   {Action::Help, help, false},
    {Action::Version, showVersion, false}, {Action::Refuse, refuse, false},
};

} // namespace

int main(int argc, char** argv)
{
    const Options options = parseOptions(argc, argv);
    const Command* command =
        std::find_if(std::begin(commands), std::end(commands),
                     [&](const Command& candidate) { return candidate.action == options.action; });
    return command->showsWindows ? runWithWindows(command->run, options, argv[0])
                                 : runWithoutWindows(command->run, options);
}
