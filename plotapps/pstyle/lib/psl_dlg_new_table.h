// The dialog that creates a new table file for the host.

#ifndef PSL_DLG_NEW_TABLE_H
#define PSL_DLG_NEW_TABLE_H

#include "psl_api.h"
#include "psl_stack_dialog.h"

#include <wx/filename.h>

/// The dialog behind newPlotStyleTable. Its OK writes an empty table file and, if wanted, runs the
/// editor on it, on top of the dialog.
class PSL_API DlgNewTable : public StackDialog
{
public:
    /// Builds the dialog.
    /// @param isColorDependent  the kind of the new table; false = named
    /// @param folder            the folder in which the file is created
    /// @param parent            the parent window, or null
    DlgNewTable(bool isColorDependent, const wxString& folder, wxWindow* parent);

    /// The file that the dialog creates: the typed name, without a folder part, in the dialog's
    /// folder. A name without an extension gets that of the kind.
    wxFileName fileName() const;

    /// Whether the user wants the new table for the current drawing.
    bool isForDrawing() const { return useInDrawing; }

private:
    void onInitDialog(wxInitDialogEvent& event);
    void onOk(wxCommandEvent& event);
    void onUpdateUIOk(wxUpdateUIEvent& event);

    bool writeTable(const wxString& path) const;

    bool colorDependent;
    wxString directory;
    wxString tableName;
    bool launchEditor = true;
    bool useInDrawing = true;

    wxDECLARE_CLASS(DlgNewTable);
    wxDECLARE_EVENT_TABLE();
};

#endif
