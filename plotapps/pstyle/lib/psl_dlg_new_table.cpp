// Naming and writing a new table file.

#include "psl_dlg_new_table.h"

#include "psl.h"
#include "psl_controls.h"
#include "psl_host_reason.h"
#include "psl_table_paths.h"

#include "wxutils/plot_style_table.h"

#include <wx/checkbox.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/valgen.h>
#include <wx/valtext.h>

#include <memory>

wxIMPLEMENT_CLASS(DlgNewTable, wxDialog);

// clang-format off
wxBEGIN_EVENT_TABLE(DlgNewTable, wxDialog)
    EVT_INIT_DIALOG(DlgNewTable::onInitDialog)
    EVT_BUTTON(wxID_OK, DlgNewTable::onOk)
    EVT_UPDATE_UI(wxID_OK, DlgNewTable::onUpdateUIOk)
wxEND_EVENT_TABLE()
    // clang-format on

    DlgNewTable::DlgNewTable(bool isColorDependent, const wxString& folder, wxWindow* parent)
    : colorDependent(isColorDependent)
    , directory(folder)
{
    m_isBuilt = buildDialog(this, parent, "DlgNewTable");
}

wxFileName DlgNewTable::fileName() const
{
    wxFileName file = wxFileName::DirName(directory);
    file.SetFullName(wxFileName(tableName).GetFullName());
    return withExtension(file, tableExtension(colorDependent));
}

// The event is not skipped: the default handling would transfer the values once more.
void DlgNewTable::onInitDialog(wxInitDialogEvent&)
{
    constexpr int width = 400;
    placeDialog(this, width);
    findControl<wxWindow>(*this, "PanelMessage")->SetCanFocus(false);

    findControl<wxTextCtrl>(*this, "TextTableName")
        ->SetValidator(wxTextValidator(wxFILTER_NONE, &tableName));
    findControl<wxCheckBox>(*this, "CheckLaunchEditor")
        ->SetValidator(wxGenericValidator(&launchEditor));
    findControl<wxCheckBox>(*this, "CheckUseInDrawing")
        ->SetValidator(wxGenericValidator(&useInDrawing));

    findControl<wxStaticText>(*this, "StatMessage")
        ->SetLabel(colorDependent
                       ? _("A new color-dependent plot style table will be created (CTB). It will "
                           "contain 255 plot styles that have initially been set to the default "
                           "values. Use the Editor to modify any of the plot styles.")
                       : _("A new named plot style table will be created (STB). It will contain "
                           "one plot style named 'Normal'. New plot styles can be added in the "
                           "Editor."));
    TransferDataToWindow();
    SetFocus();
}

void DlgNewTable::onUpdateUIOk(wxUpdateUIEvent& event)
{
    event.Enable(!findControl<wxTextCtrl>(*this, "TextTableName")->GetValue().empty());
}

void DlgNewTable::onOk(wxCommandEvent& event)
{
    TransferDataFromWindow();
    const wxFileName file = fileName();
    const wxString problem = newTableProblem(file, tableExtension(colorDependent), tableName);
    if (!problem.empty())
    {
        wxLogError("%ls", problem);
        return;
    }
    const wxString path = file.GetFullPath();
    bool isWritten = false;
    const wxString reason = hostReason([&] { isWritten = writeTable(path); });
    if (!isWritten)
    {
        reportFailure(withReason(wxString::Format(_("Failed to save file: %ls"), path), reason));
        return;
    }
    if (launchEditor)
        editPlotStyleTable(path, this);
    event.Skip();
}

bool DlgNewTable::writeTable(const wxString& path) const
{
    const std::unique_ptr<CPlotStyleTable> table(CPlotStyleTable::create(colorDependent, nullptr));
    return table && table->write(path.wc_str());
}
