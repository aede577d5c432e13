// Reading the command line of pstyle.

#include "options.h"

#include <wx/string.h>
#include <wx/translation.h>

#include <charconv>
#include <cstring>
#include <getopt.h>
#include <vector>

const char* const usage = wxTRANSLATE(
    R"(Usage: pstyle                            choose or create a table, and edit it
       pstyle FILE                       edit a table; it is created if it does not exist
       pstyle --source SRC FILE          create FILE from the table SRC
       pstyle --new ctb|stb DIR          create a table in a folder, and print the name of one
                                         that is for the current drawing
       pstyle --list                     name the tables in and below the plot style folder
       pstyle --folder DIR               make DIR the plot style folder
       pstyle --export TABLE [CSV]       write a table as comma-separated text
       pstyle --picture TABLE PNG        draw a table, a line for each run of equal styles
              [--size N]                 ... at most N pixels wide and high (16 to 4096)
       pstyle --help | --version

Opens and edits plot style tables: color-dependent ones (.ctb) and named ones (.stb).

Exit status: 0 done (a dialog: closed with OK), 1 cancelled or failed, 2 wrong usage.
)");

namespace
{

using Action = Options::Action;

Options refuse(const char* reason, const std::string& subject = {})
{
    Options options;
    options.action = Action::Refuse;
    options.reason = reason;
    options.subject = subject;
    return options;
}

// An option that makes the program do something else than edit, and how many names go with it.
struct Command
{
    Action action;
    const char* option;
    size_t leastNames;
    size_t mostNames;
    /// Said where there are more or fewer names.
    const char* reason;
};

const Command commands[] = {
    {Action::Choose, "pstyle", 0, 1, wxTRANSLATE("%s takes one file at the most")},
    {Action::Edit, "--source", 1, 1, wxTRANSLATE("%s takes the file to create")},
    {Action::Create, "--new", 1, 1, wxTRANSLATE("%s takes the folder for the new table")},
    {Action::List, "--list", 0, 0, wxTRANSLATE("%s takes no names")},
    {Action::SetFolder, "--folder", 0, 0, wxTRANSLATE("%s takes one folder")},
    {Action::Export, "--export", 0, 1,
     wxTRANSLATE("%s takes one table, and one text file at the most")},
    {Action::Picture, "--picture", 1, 1, wxTRANSLATE("%s takes one table and one picture file")},
    {Action::Help, "--help", 0, ~size_t{0}, ""},
    {Action::Version, "--version", 0, ~size_t{0}, ""},
};

Options takeNames(Options options, const std::vector<std::string>& names)
{
    for (const Command& command : commands)
        if (command.action == options.action &&
            (names.size() < command.leastNames || names.size() > command.mostNames))
            return refuse(command.reason, command.option);
    if (names.empty())
        return options;
    if (names.front().empty())
        return refuse(wxTRANSLATE("the name is empty"));
    options.file = names.front();
    if (options.action == Action::Choose)
        options.action = Action::Edit;
    return options;
}

bool readSize(int& size, const char* text)
{
    const char* const end = text + std::strlen(text);
    const auto [rest, error] = std::from_chars(text, end, size);
    return error == std::errc() && rest == end && size >= leastPictureSize &&
           size <= mostPictureSize;
}

// Takes one option with its value. @return false when the value is not one it can have
bool takeOption(Options& options, int option, const char* value)
{
    switch (option)
    {
    case 's':
        options.action = Action::Edit;
        options.source = value;
        return !options.source.empty();
    case 'n':
        options.action = Action::Create;
        options.colorDependent = value == std::string("ctb");
        return options.colorDependent || value == std::string("stb");
    case 'f':
        options.action = Action::SetFolder;
        options.file = value;
        return !options.file.empty();
    case 'e':
        options.action = Action::Export;
        options.source = value;
        return !options.source.empty();
    case 'p':
        options.action = Action::Picture;
        options.source = value;
        return !options.source.empty();
    case 'l':
        options.action = Action::List;
        return true;
    case 'h':
        options.action = Action::Help;
        return true;
    default:
        options.action = Action::Version;
        return true;
    }
}

} // namespace

Options parseOptions(int argc, char** argv)
{
    const option known[] = {
        {"source", required_argument, nullptr, 's'}, {"new", required_argument, nullptr, 'n'},
        {"folder", required_argument, nullptr, 'f'}, {"export", required_argument, nullptr, 'e'},
        {"list", no_argument, nullptr, 'l'},         {"help", no_argument, nullptr, 'h'},
        {"version", no_argument, nullptr, 'v'},      {"picture", required_argument, nullptr, 'p'},
        {"size", required_argument, nullptr, 'z'},   {nullptr, 0, nullptr, 0},
    };
    Options options;
    bool isSized = false;
    for (int found; (found = getopt_long(argc, argv, ":h", known, nullptr)) != -1;)
    {
        if (found == ':')
            return refuse(wxTRANSLATE("%s needs a value"), argv[optind - 1]);
        if (found == '?')
            return refuse(wxTRANSLATE("unknown option %s"),
                          optopt ? std::string("-") + char(optopt) : argv[optind - 1]);
        isSized |= found == 'z';
        if (found != 'z' && options.action != Action::Choose)
            return refuse(wxTRANSLATE("more than one command given"));
        if (!(found == 'z' ? readSize(options.size, optarg) : takeOption(options, found, optarg)))
            return refuse(wxTRANSLATE("'%s' is not a value for that option"), optarg);
    }
    if (isSized && options.action != Action::Picture)
        return refuse(wxTRANSLATE("%s goes with --picture"), "--size");
    for (int i = 1; i < argc; ++i)
        if (*argv[i] && wxString::FromUTF8(argv[i]).empty())
            return refuse(wxTRANSLATE("a name is not UTF-8"));
    return takeNames(options, {argv + optind, argv + argc});
}
