// pstyle: the plot style table editor as a program of its own, and a host of the library.

#include "psl.h"

#include <wx/app.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/xrc/xmlres.h>

#include "util/ut.h"

#include <getopt.h>

#include <cstdio>
#include <string>

namespace
{

enum ExitStatus
{
    exitSaved = 0,
    exitCancelled = 1,
    exitUsage = 2,
};

constexpr char usage[] = "Usage: pstyle [--source SRC] [FILE]\n"
                         "Opens and edits plot style tables (.ctb, .stb).\n"
                         "\n"
                         "  FILE            the table to edit; created if it does not exist\n"
                         "  --source SRC    create FILE from the table SRC\n"
                         "  --help          show this help\n"
                         "  --version       show the version\n"
                         "\n"
                         "Exit status: 0 saved and closed, 1 cancelled, 2 wrong usage.\n";

struct Options
{
    enum class Action
    {
        Edit,
        Help,
        Version,
        Refuse
    } action = Action::Edit;
    /// In the encoding of file names; empty for none.
    std::string file;
    std::string source;
};

Options refuse(const std::string& why)
{
    std::fprintf(stderr, "pstyle: %s\nTry 'pstyle --help'.\n", why.c_str());
    Options options;
    options.action = Options::Action::Refuse;
    return options;
}

Options parseArguments(int argc, char** argv)
{
    const option known[] = {
        {"source", required_argument, nullptr, 's'},
        {"help", no_argument, nullptr, 'h'},
        {"version", no_argument, nullptr, 'v'},
        {nullptr, 0, nullptr, 0},
    };
    Options options;
    bool hasSource = false;
    opterr = 0;
    for (int found; (found = getopt_long(argc, argv, ":", known, nullptr)) != -1;)
    {
        switch (found)
        {
        case 's':
            options.source = optarg;
            hasSource = true;
            break;
        case 'h':
            options.action = Options::Action::Help;
            return options;
        case 'v':
            options.action = Options::Action::Version;
            return options;
        case ':':
            return refuse(std::string(argv[optind - 1]) + " needs a value");
        default:
            return refuse(std::string("unknown option ") + argv[optind - 1]);
        }
    }
    if (argc - optind > 1)
        return refuse("more than one file given");
    if (optind < argc)
        options.file = argv[optind];
    if (optind < argc && options.file.empty())
        return refuse("the file name is empty");
    if (hasSource && options.file.empty())
        return refuse("--source needs a file to create");
    return options;
}

class PstyleApp : public wxApp
{
public:
    explicit PstyleApp(Options options)
        : m_options(std::move(options))
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
        SetAppName("pstyle");
        SetAppDisplayName(_("Plot Style Table Editor"));
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        return true;
    }

    int OnRun() override
    {
        const wxString file = m_options.file.empty() ? askForFile() : fullPath(m_options.file);
        const wxString source = fullPath(m_options.source);
        if (file.empty())
            return exitCancelled;
        if (wxFileName::DirExists(file))
            return reportUnusable(file, "is a folder");
        if (!source.empty() && !wxFileName::FileExists(source))
            return reportUnusable(source, "does not exist");
        const bool saved = editPlotStyleTable(file, source, nullptr);
        wxLog::FlushActive();
        return saved ? exitSaved : exitCancelled;
    }

private:
    static wxString fullPath(const std::string& argument)
    {
        if (argument.empty())
            return wxString();
        wxFileName name(wxString(argument.c_str(), *wxConvFileName));
        name.MakeAbsolute();
        return name.GetFullPath();
    }

    static wxString askForFile()
    {
        wxFileDialog dialog(nullptr, _("Select a Plot Style File"),
                            ut::getString(ut::ECfgGroup::Paths, "PlotStylePath"), wxString(),
                            _("Plot Style files (*.ctb;*.stb)|*.ctb;*.stb|All files (*.*)|*.*"),
                            wxFD_OPEN | wxFD_FILE_MUST_EXIST);
        return dialog.ShowModal() == wxID_OK ? dialog.GetPath() : wxString();
    }

    static int reportUnusable(const wxString& path, const char* why)
    {
        std::fprintf(stderr, "pstyle: %s %s\n", static_cast<const char*>(path.utf8_str()), why);
        return exitUsage;
    }

    Options m_options;
};

int edit(const Options& options, char* program)
{
    wxApp::SetInstance(new PstyleApp(options));
    int argc = 1;
    char* argv[] = {program, nullptr};
    const int status = wxEntry(argc, argv);
    return status < 0 ? int(exitUsage) : status;
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = parseArguments(argc, argv);
    switch (options.action)
    {
    case Options::Action::Help:
        std::fputs(usage, stdout);
        return exitSaved;
    case Options::Action::Version:
        std::puts("pstyle " PSTYLE_VERSION);
        return exitSaved;
    case Options::Action::Refuse:
        return exitUsage;
    case Options::Action::Edit:
        break;
    }
    return edit(options, argv[0]);
}
