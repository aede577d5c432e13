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
