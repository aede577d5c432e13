// How the dialogs' sources find their controls and read their file dialogs.

#ifndef PSL_CONTROLS_H
#define PSL_CONTROLS_H

#include <wx/window.h>
#include <wx/xrc/xmlres.h>

class wxFileDialog;

/// The control of a window with this resource name, which the window's resource has to have.
template <class Control>
Control* findControl(const wxWindow& window, const char* name)
{
    return wxStaticCast(window.FindWindow(wxXmlResource::GetXRCID(name)), Control);
}

/// The path that a confirmed file dialog gives. The dialog knows the whole path only after it has
/// really been shown.
wxString chosenPath(const wxFileDialog& dialog);

/// Asks for an existing table file. @param directory  where the dialog starts
/// @return the file's full path; empty when the user cancelled
wxString askForTable(wxWindow* parent, const wxString& directory);

#endif
