// The plot style table editor: everything that a host calls.
//
// All functions belong to the GUI thread. The host has initialised the toolkit's resource handlers
// (wxXmlResource::InitAllHandlers) and its PNG and ICO image handlers before it opens a dialog.

#ifndef PSL_H
#define PSL_H

#include "psl_api.h"

#include <wx/string.h>

class wxArrayString;
class wxWindow;

/// Opens the editor modally on a table file. A file that does not exist becomes a new table of the
/// kind that the extension names (ctb: colour-dependent, any other: named).
/// @param file    the table file to edit and save
/// @param parent  the parent window, or null
/// @return whether the editor was closed by "Save & Close"
PSL_API bool editPlotStyleTable(const wxString& file, wxWindow* parent);

/// The same, but the contents come from another table file; they reach `file` with the first save.
/// @param sourceFile  the table file to copy from
PSL_API bool editPlotStyleTable(const wxString& file, const wxString& sourceFile, wxWindow* parent);

/// Shows the chooser, which opens a table, creates one from scratch or creates one from another,
/// and runs the editor on it.
/// @return whether the editor was opened; not whether it saved
PSL_API bool startPlotStyleEditor(wxWindow* parent);

/// Asks for the name of a new table, writes its file and, if the user wants it, opens the editor on
/// it.
/// @param fileName        receives the file's name and extension, without a folder, if the user
///                        wants the table for the current drawing; else it is emptied
/// @param colorDependent  the kind of the table; false = named
/// @param directory       the folder in which the file is created
/// @return whether the file was created
PSL_API bool newPlotStyleTable(wxString& fileName, bool colorDependent, const wxString& directory,
                               wxWindow* parent);

/// Appends the names, without folders, of the table files in the configured plot style folder and
/// all folders below it, in the order in which the system lists them.
/// @return how many entries `files` holds now, older ones included; 0 when there is no such folder
PSL_API size_t getPlotStyleFiles(wxArrayString& files);

/// Registers the embedded dialogs and pictures with the toolkit. The functions that open a dialog
/// do so themselves, once per process; a second call would register everything twice.
PSL_API void InitPslXmlResource();

/// The translated name of a colour: 0 for the object's colour, 1 to 7 for the first index colours,
/// else "Color %d".
PSL_API wxString strColor(int color);
/// The translated name of a linetype, 0 to 31; else "Line type %d".
PSL_API wxString strLineType(int lineType);
/// The translated name of a line end style, 0 to 4; else "End style %d".
PSL_API wxString strEndStyle(int endStyle);
/// The translated name of a line join style, 0 to 5 except 4; else "Join style %d".
PSL_API wxString strJoinStyle(int joinStyle);
/// The translated name of a fill style, 64 to 73; else "Fill style %d".
PSL_API wxString strFillStyle(int fillStyle);

#endif
