// File dialogs.

#include "psl_controls.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/intl.h>

wxString chosenPath(const wxFileDialog& dialog)
{
    const wxString path = dialog.GetPath();
    if (!path.empty())
        return path;
    return wxFileName(dialog.GetDirectory(), dialog.GetFilename()).GetFullPath();
}

wxString askForTable(wxWindow* parent, const wxString& directory)
{
    wxFileDialog dialog(parent, _("Select a Plot Style File"), directory, wxString(),
                        _("Plot Style files (*.ctb;*.stb)|*.ctb;*.stb|All files (*.*)|*.*"),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    return dialog.ShowModal() == wxID_OK ? chosenPath(dialog) : wxString();
}
