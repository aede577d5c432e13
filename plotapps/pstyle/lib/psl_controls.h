// How the dialogs' sources find their controls and read their file dialogs.

#ifndef PSL_CONTROLS_H
#define PSL_CONTROLS_H

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/window.h>
#include <wx/xrc/xmlres.h>

/// The control of a window with this resource name, which the window's resource has to have.
template <class Control>
Control* findControl(const wxWindow& window, const char* name)
{
    return wxStaticCast(window.FindWindow(wxXmlResource::GetXRCID(name)), Control);
}

/// The path that a confirmed file dialog gives. The dialog knows the whole path only after it has
/// really been shown.
inline wxString chosenPath(const wxFileDialog& dialog)
{
    const wxString path = dialog.GetPath();
    if (!path.empty())
        return path;
    return wxFileName(dialog.GetDirectory(), dialog.GetFilename()).GetFullPath();
}

#endif
