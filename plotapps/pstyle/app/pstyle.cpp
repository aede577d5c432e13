// pstyle: the plot style table editor as a program of its own, and a host of the library.

#include "options.h"
#include "table_picture.h"

#include "psl.h"
#include "psl_csv.h"
#include "psl_host_reason.h"
#include "psl_path_text.h"
#include "psl_table_paths.h"

#include "cmdapi/cma.h"
#include "files/files.h"
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

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <unistd.h>

namespace
{

using Action = Options::Action;

enum ExitStatus
{
    exitDone = 0,
    exitFailed = 1,
    exitUsage = 2,
};

// Says what there is to say on standard error, in one line, and gives the exit status for it.
int say(ExitStatus status, wxString message)
{
    message.Replace("\n", ": ");
    std::fprintf(stderr, "pstyle: %s\n", static_cast<const char*>(message.utf8_str()));
    return status;
}

// Runs a command. @return its status, after what has kept it from coming to an end has been said:
// that the current folder is gone, for instance
int guarded(const std::function<int()>& command)
{
    try
    {
        return command();
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        return say(exitFailed, systemText(files::reasonOf(error, std::string())));
    }
    catch (const std::bad_alloc&)
    {
        std::fputs("pstyle: out of memory\n", stderr);
        return exitFailed;
    }
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

// File names are UTF-8, like everything else on the systems that the program runs on. The system
// alone knows what ".." means behind a symbolic link, so it stays, and "~" is a name like any
// other: where it is more, the shell has dealt with it.
wxString fullPath(const std::string& argument)
{
    if (argument.empty())
        return wxString();
    std::filesystem::path path;
    for (const std::filesystem::path& part : std::filesystem::absolute(argument))
        if (part != ".")
            path /= part;
    return wxString::FromUTF8(path.native());
}

// The table that a command reads; null, after the user has been told, where it cannot be read.
OdPsPlotStyleTablePtr sourceTable(const wxString& path)
{
    OdPsPlotStyleTablePtr table;
    const wxString reason =
        hostReason([&] { table = cma::loadPlotStyleTable(OdString(path.wc_str())); });
    if (!table.isNull())
        return table;
    std::error_code failure;
    const auto kind = std::filesystem::status(systemPath(path), failure).type();
    if (kind == std::filesystem::file_type::directory)
        say(exitFailed, wxString::Format(_("%s is a folder"), path));
    else if (kind == std::filesystem::file_type::not_found)
        say(exitFailed, wxString::Format(_("%s does not exist"), path));
    else
        say(exitFailed,
            withReason(wxString::Format(_("%s cannot be opened as a plot style table"), path),
                       reason));
    return nullptr;
}

// --- Commands that show dialogs ------------------------------------------------------------

// Nothing is overwritten that the user has not been asked about.
wxString copyProblem(const OdPsPlotStyleTable& source, const wxString& copy)
{
    const wxString extension = tableExtension(source.isColorDependent());
    if (!wxFileName(copy).GetExt().IsSameAs(extension, false))
        return wxString::Format(_("a copy of this table must have the extension .%s"), extension);
    if (files::kindOf(systemPath(copy)) != files::Kind::Nothing)
        return wxString::Format(_("%s exists already"), copy);
    return wxString();
}

int edit(const Options& options)
{
    const wxString file = fullPath(options.file);
    const wxString source = fullPath(options.source);
    switch (files::kindOf(systemPath(file)))
    {
    case files::Kind::Nothing:
    case files::Kind::File:
        break;
    case files::Kind::Folder:
        return say(exitUsage, wxString::Format(_("%s is a folder"), file));
    default:
        return say(exitUsage, wxString::Format(_("%s is not a file"), file));
    }
    if (!source.empty())
    {
        const auto table = sourceTable(source);
        if (table.isNull())
            return wxFileName::FileExists(source) ? exitFailed : exitUsage;
        const wxString problem = copyProblem(*table, file);
        if (!problem.empty())
            return say(exitUsage, problem);
    }
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

// Writes messages on standard error. Where another target shows them in windows, only those about
// files, which come to the status line, too.
class StandardErrorLog : public wxLog
{
public:
    explicit StandardErrorLog(wxLog* windows = nullptr)
        : m_windows(windows)
    {
    }

    void Flush() override
    {
        wxLog::Flush();
        if (m_windows)
            m_windows->Flush();
    }

private:
    void DoLogRecord(wxLogLevel level, const wxString& message,
                     const wxLogRecordInfo& info) override
    {
        if (m_windows ? level == wxLOG_Status : level < wxLOG_Status)
            say(exitFailed, message);
        if (m_windows)
            m_windows->LogRecord(level, message, info);
    }

    std::unique_ptr<wxLog> m_windows;
};

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
        delete wxLog::SetActiveTarget(new StandardErrorLog);
        return wxApp::Initialize(argumentCount, arguments);
    }

    bool OnInit() override
    {
        // The toolkit's notes to its developers are for those who ask for them.
        if (!wxGetEnv("WXTRACE", nullptr))
            wxLog::SetLogLevel(wxLOG_Info);
        wxLog::GetActiveTarget(); // makes the one that shows messages in windows
        wxLog::SetActiveTarget(new StandardErrorLog(wxLog::SetActiveTarget(nullptr)));
        SetAppName("pstyle");
        ut::loadTranslations();
        SetAppDisplayName(_("Plot Style Table Editor"));
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        return true;
    }

    int OnRun() override
    {
        const int status = guarded(m_run);
        wxLog::FlushActive();
        return status;
    }

    // What a command of the user has failed at is not done; the rest goes on, and nothing is lost.
    bool OnExceptionInMainLoop() override
    {
        try
        {
            throw;
        }
        catch (const std::bad_alloc&)
        {
            say(exitFailed, _("out of memory"));
            wxLogError("%s", _("out of memory"));
        }
        catch (const std::exception& error)
        {
            wxLogError("%s", systemText(error.what()));
        }
        return true;
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
    wxString folder = fullPath(options.file);
    if (!wxFileName::DirExists(folder))
        return say(exitUsage, wxString::Format(_("%s is not a folder"), folder));
    if (folder.length() > 1 && folder.EndsWith("/"))
        folder.RemoveLast();
    if (!ut::setString(ut::ECfgGroup(6), "PlotStylePath", folder))
        return say(exitFailed, _("the configuration cannot be written"));
    if (wxGetEnv("PSTYLE_PLOT_STYLE_PATH", nullptr))
        return say(exitDone, _("note: PSTYLE_PLOT_STYLE_PATH is set and goes first"));
    return exitDone;
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
    const CsvExport done = exportCsv(*table, source.GetFullName(), target, Replaceable::Exports);
    if (done.result == CsvExport::Done)
        return exitDone;
    const wxString message = done.result == CsvExport::NotOpened
                                 ? _("Failed to create or open file: %ls")
                                 : _("Failed to save file: %ls");
    return say(exitFailed, withReason(wxString::Format(message, target), done.reason));
}

// A slip of the hand must not put a picture in the place of a table. Folder views make an empty
// file beforehand.
bool mayBecomePicture(const std::string& path)
{
    const std::string signature = "\x89PNG\r\n\x1A\n";
    if (files::kindOf(path) != files::Kind::File)
        return true;
    const std::string beginning = files::beginningOf(path, signature.size());
    return beginning.empty() || beginning == signature;
}

int drawTable(const Options& options)
{
    const auto table = sourceTable(fullPath(options.source));
    if (table.isNull())
        return exitFailed;
    const wxString target = fullPath(options.file);
    try
    {
        if (!mayBecomePicture(systemPath(target)))
            return say(exitFailed,
                       wxString::Format(_("%s is not a picture and is not replaced"), target));
        files::replace(systemPath(target), tablePicture(*table, options.size));
        return exitDone;
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        return say(exitFailed,
                   withReason(wxString::Format(_("Failed to create or open file: %ls"), target),
                              systemText(files::reasonOf(error, systemPath(target)))));
    }
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
    std::setlocale(LC_CTYPE, "C.UTF-8"); // as the desktop's toolkit does for windows
    const wxInitializer toolkit;
    delete wxLog::SetActiveTarget(new StandardErrorLog);
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

// What is opened later must not become the standard output or error of a program that was started
// without: messages would go there. These cannot be written, so that a lost output is a failure.
void openStandardStreams()
{
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO)
        descriptor = open("/dev/null", O_RDONLY);
    if (descriptor > STDERR_FILENO)
        close(descriptor);
}

} // namespace

int main(int argc, char** argv)
{
    openStandardStreams();
    std::signal(SIGXFSZ, SIG_IGN); // a file that grows too large is an error like others
    return guarded(
        [=]
        {
            const Options options = parseOptions(argc, argv);
            const Command* command = std::find_if(std::begin(commands), std::end(commands),
                                                  [&](const Command& candidate)
                                                  { return candidate.action == options.action; });
            return command->showsWindows ? runWithWindows(command->run, options, argv[0])
                                         : runWithoutWindows(command->run, options);
        });
}
