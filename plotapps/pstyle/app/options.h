// The command line of pstyle.

#ifndef PSTYLE_OPTIONS_H
#define PSTYLE_OPTIONS_H

#include <string>

/// What the program is asked to do. Texts are in the encoding of file names.
struct Options
{
    enum class Action
    {
        Choose,    ///< show the chooser
        Edit,      ///< edit `file`, created from `source` if that is not empty
        Create,    ///< ask for a new table in the folder `file`
        List,      ///< print the names of the tables in and below the plot style folder
        SetFolder, ///< make `file` the plot style folder
        Export,    ///< write `source` as comma-separated text to `file`, or to standard output
        Picture,   ///< draw `source` into the PNG file `file`
        Help,
        Version,
        Refuse, ///< `reason` says what is wrong with the command line
    };

    Action action = Action::Choose;
    std::string file;
    std::string source;
    /// Of a new table.
    bool colorDependent = false;
    /// Of a picture: its larger side, in pixels.
    int size = 512;
    /// A key of the translation lookup. "%s" in it stands for `subject`.
    const char* reason = "";
    std::string subject;
};

/// What `size` may be: the least keeps a table's colours apart, the most is a screen full of
/// detail.
constexpr int leastPictureSize = 16;
constexpr int mostPictureSize = 4096;

/// The text that --help prints: a key of the translation lookup.
extern const char* const usage;

Options parseOptions(int argc, char** argv);

#endif
