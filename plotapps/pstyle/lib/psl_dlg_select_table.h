// The chooser: opens a table, creates one from scratch, or creates one from another.

#ifndef PSL_DLG_SELECT_TABLE_H
#define PSL_DLG_SELECT_TABLE_H

#include "psl_api.h"
#include "psl_stack_dialog.h"

#include <wx/filename.h>

/// The dialog behind startPlotStyleEditor. Its OK checks the choice and runs the editor on top of
/// the dialog; when the editor has closed, this dialog ends with OK, however the editor ended.
class PSL_API DlgSelectTable : public StackDialog
{
public:
    /// Builds the dialog. @param parent  the parent window, or null
    explicit DlgSelectTable(wxWindow* parent);

private:
    void onInitDialog(wxInitDialogEvent& event);
    void onOk(wxCommandEvent& event);
    void onBrowse(wxCommandEvent& event);
    void onRadioButton(wxCommandEvent& event);
    void onTableType(wxCommandEvent& event);
    void onUpdateUIOk(wxUpdateUIEvent& event);

    void setValidators();
    void updateItems();
    void updateMessage();
    wxString message() const;
    wxString newExtension(const wxFileName& source) const;

    bool modeOpen = true;
    bool modeNew = false;
    bool modeCopy = false;
    /// 0 = colour-dependent (CTB), 1 = named (STB)
    int tableType = 0;
    wxString sourceFile;
    wxString tableName;

    wxDECLARE_CLASS(DlgSelectTable);
    wxDECLARE_EVENT_TABLE();
};

#endif
