// Where the tables lie that users name. Knows no control.

#ifndef PSL_TABLE_PATHS_H
#define PSL_TABLE_PATHS_H

#include <wx/filename.h>
#include <wx/string.h>

/// The configured folder of the plot style tables; empty where none is.
wxString plotStyleFolder();

/// The file that a typed name means: the name itself if it is an absolute path, else its name and
/// extension in the folder. A folder part of a relative name is not used.
wxFileName tableFile(const wxString& typed, const wxString& folder);

/// Whether the file can be opened as far as its name tells: it exists, and its extension is ctb or
/// stb in any case.
bool isTableFile(const wxFileName& file);

/// The extension of a kind of tables: ctb or stb.
wxString tableExtension(bool colorDependent);

/// Gives a file without an extension this one.
wxFileName withExtension(wxFileName file, const wxString& extension);

/// The message, in the user's language, why a table cannot be created there; empty if it can.
/// @param extension  the one required, in lower case; compared without regard to case
/// @param typed      the name as the user typed it, for the message
wxString newTableProblem(const wxFileName& file, const wxString& extension, const wxString& typed);

#endif
