// Reading the command line of pstyle.

#include "options.h"

#include <getopt.h>

#include <vector>

const char* const usage =
    R"(Usage: pstyle                            choose or create a table, and edit it
       pstyle FILE                       edit a table; it is created if it does not exist
       pstyle --source SRC FILE          create FILE from the table SRC
       pstyle --new ctb|stb DIR          create a table in a folder, and print the name of one
                                         that is for the current drawing
       pstyle --list                     print the tables of the plot style folder
       pstyle --folder DIR               make DIR the plot style folder
       pstyle --export TABLE [CSV]       write a table as comma-separated text
       pstyle --help | --version

Opens and edits plot style tables: colour-dependent ones (.ctb) and named ones (.stb).

Exit status: 0 done (a dialog: closed with OK), 1 cancelled or failed, 2 wrong usage.
)";

namespace
{

using Action = Options::Action;

Options refuse(const std::string& reason)
{
    Options options;
    options.action = Action::Refuse;
    options.reason = reason;
    return options;
}

// An option that makes the program do something else than edit, and how many names go with it.
struct Command
{
    Action action;
    const char* option;
    size_t leastNames;
    size_t mostNames;
    const char* names;
};

const Command commands[] = {
    {Action::Choose, "pstyle", 0, 1, "one file at the most"},
    {Action::Edit, "--source", 1, 1, "the file to create"},
    {Action::Create, "--new", 1, 1, "the folder for the new table"},
    {Action::List, "--list", 0, 0, "no names"},
    {Action::SetFolder, "--folder", 0, 0, "one folder"},
    {Action::Export, "--export", 0, 1, "one table, and one text file at the most"},
    {Action::Help, "--help", 0, ~size_t{0}, ""},
    {Action::Version, "--version", 0, ~size_t{0}, ""},
};

Options takeNames(Options options, const std::vector<std::string>& names)
{
    for (const Command& command : commands)
        if (command.action == options.action &&
            (names.size() < command.leastNames || names.size() > command.mostNames))
            return refuse(std::string(command.option) + " takes " + command.names);
    if (names.empty())
        return options;
    if (names.front().empty())
        return refuse("the name is empty");
    options.file = names.front();
    if (options.action == Action::Choose)
        options.action = Action::Edit;
    return options;
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
        {"version", no_argument, nullptr, 'v'},      {nullptr, 0, nullptr, 0},
    };
    Options options;
    opterr = 0;
    for (int found; (found = getopt_long(argc, argv, ":", known, nullptr)) != -1;)
    {
        if (found == ':')
            return refuse(std::string(argv[optind - 1]) + " needs a value");
        if (found == '?')
            return refuse(std::string("unknown option ") + argv[optind - 1]);
        if (options.action != Action::Choose)
            return refuse("more than one command given");
        if (!takeOption(options, found, optarg))
            return refuse(std::string("'") + optarg + "' is not a value for that option");
    }
    return takeNames(options, {argv + optind, argv + argc});
}
