// The plot style table editor: everything that a host calls.
//
// All functions belong to the GUI thread. None of them throws, ends the process, or leaves anything
// behind but the registered resources: no window, no changed focus, locale, log target, image
// handler or folder. Messages go to the toolkit's log, its status line and its message boxes.
//
// The functions that open a dialog need a wxApp and the toolkit's resource handlers
// (wxXmlResource::InitAllHandlers), and register the embedded dialogs with their first call in the
// process, where the host has not done it (InitPslXmlResource). They run until the dialog is
// closed. Where it cannot be built they show nothing, tell the log why, and return false. They may
// be called while another of them is running. A parent that is destroyed meanwhile leaves the
// dialog to itself.

#ifndef PSL_H
#define PSL_H

#include "psl_api.h"

#include <wx/string.h>

class wxArrayString;
class wxWindow;

/// Shows the editor on a table file. A file that does not exist becomes a new table of the kind
/// that the extension names (ctb: colour-dependent, any other: named). Nothing is written before
/// the user saves; the user may also open other tables in it and save under other names.
/// @param file    the full path of the table file to edit and save
/// @param parent  the parent window, or null
/// @return whether the editor was closed by "Save & Close"; a table that cannot be read is the
///         user's to deal with, in the editor
PSL_API bool editPlotStyleTable(const wxString& file, wxWindow* parent);

/// The same, but the contents come from another table file; they reach `file` with the first save.
/// @param sourceFile  the full path of the table file to copy from, which is never written
PSL_API bool editPlotStyleTable(const wxString& file, const wxString& sourceFile, wxWindow* parent);

/// Shows the chooser, which opens a table, creates one from scratch or creates one from another,
/// and runs the editor on it. It needs the host's configuration for the folder of the tables.
/// @param parent  the parent window, or null
/// @return whether the choice was confirmed; not whether the editor could be shown, or saved
PSL_API bool startPlotStyleEditor(wxWindow* parent);

/// Shows a dialog that asks for the name of a new table, writes its file and, if the user wants it,
/// opens the editor on it. Never replaces a file.
/// @param fileName        receives the file's name and extension, without a folder, if the user
///                        wants the table for the current drawing; else it is emptied
/// @param colorDependent  the kind of the table; false = named
/// @param directory       the folder in which the file is created, which exists
/// @param parent          the parent window, or null
/// @return whether the file was created
PSL_API bool newPlotStyleTable(wxString& fileName, bool colorDependent, const wxString& directory,
                               wxWindow* parent);

/// Appends the names, without folders, of the table files in the configured plot style folder and
/// all folders below it, in the order in which the system lists them. It needs the host's
/// configuration, but no display, shows nothing, and passes over folders that cannot be read.
/// @return how many entries `files` holds now, older ones included; 0 when there is no such folder
PSL_API size_t getPlotStyleFiles(wxArrayString& files);

/// Registers the embedded dialogs and pictures with the toolkit: files in its memory file system,
/// documents in the global wxXmlResource. Shows nothing. A host calls it when it has replaced the
/// global wxXmlResource. A second call registers everything twice, and the toolkit logs an error
/// for each file.
PSL_API void InitPslXmlResource();

/// @name Names of property values
/// In the user's language. They need nothing and show nothing.
/// @{

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
/// @}

#endif
