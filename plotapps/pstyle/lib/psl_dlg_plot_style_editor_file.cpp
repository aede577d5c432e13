// The editor's file operations: loading, saving, and the buttons that end the dialog or change the
// file.

#include "psl_dlg_plot_style_editor.h"

#include "psl_controls.h"

#include "cmdapi/cma.h"
#include "psl_csv.h"
#include "wxgui/wxgui.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/filedlg.h>
#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

namespace
{

const char* const caption = wxTRANSLATE("Plot Style Table Editor");

} // namespace

void DlgPlotStyleEditor::load()
{
    m_table = nullptr;
    wxString path;
    if (!m_sourceFile.empty() && wxFileName::FileExists(m_sourceFile))
        path = m_sourceFile;
    else if (m_fileName.FileExists())
        path = m_fileName.GetFullPath();
    m_table = readTable(path);
    m_sourceFile.clear();
    m_modified = !m_fileName.FileExists();

    if (m_table.isNull())
        takeNoTable(path);
    else
        takeTableValues();

    updateFileInfo();
    updateStyleButtons();
    updateStyles();
    updateLineWeightUse(false);
    updateLineWeights(false);
    TransferDataToWindow();
    updateStyleFields();
}

OdPsPlotStyleTablePtr DlgPlotStyleEditor::readTable(const wxString& path) const
{
    if (!path.empty())
        return cma::loadPlotStyleTable(OdString(path.wc_str()));
    const bool colorDependent = m_fileName.GetExt().Lower() == "ctb";
    return cma::createPlotStyleTable(colorDependent, OdString());
}

void DlgPlotStyleEditor::takeTableValues()
{
    m_styleCount = m_table->styleCount();
    m_applyScale = m_table->isApplyScaleFactor();
    m_scaleText = scaleFactorText();
    m_tableDescription = m_table->description().c_str();
    m_unitsIn = m_table->isDisplayCustomLineweightUnits();
    m_unitsMm = !m_unitsIn;
    // There is no button as long as there is nothing to sort.
    findControl<wxButton>(*this, "BtnLwSort")->Show(isLineWeightListOutOfOrder(*m_table));
}

void DlgPlotStyleEditor::takeNoTable(const wxString& path)
{
    wxMessageBox(path.empty() ? _("Failed to create plotstyle table file.")
                              : _("Invalid file format - failed to open plotstyle table file."),
                 wxGetTranslation(caption), wxOK | wxICON_ERROR);
    m_styleCount = 0;
    m_applyScale = false;
    m_scaleText = "1";
    m_tableDescription.clear();
    findControl<wxButton>(*this, "BtnLwSort")->Hide();
}

bool DlgPlotStyleEditor::save(const wxString& path)
{
    if (m_table.isNull())
        return false;
    if (!path.empty())
    {
        m_fileName.Assign(path);
        updateFileName();
    }
    const wxString fullPath = m_fileName.GetFullPath();
    if (!cma::savePlotStyleTable(OdString(fullPath.wc_str()), m_table))
    {
        wxLogError(_("Failed to save file: %ls"), fullPath);
        return false;
    }
    m_modified = false;
    return true;
}

bool DlgPlotStyleEditor::checkSave()
{
    TransferDataFromWindow();
    if (!m_modified || m_table.isNull())
        return true;
    const int answer = wxMessageBox(_("Do you want to save changes?"), wxGetTranslation(caption),
                                    wxYES_NO | wxCANCEL | wxICON_QUESTION);
    if (answer == wxYES)
        return save(wxString());
    return answer == wxNO;
}

// What is being typed into a pen field or a list row is taken when the focus leaves it, which
// Return and mnemonics do not cause. Gives false when a row's new text was refused just now, so
// that the user sees why and can mend it.
bool DlgPlotStyleEditor::commitPendingEdit()
{
    const int refusalsBefore = m_refusedEdits;
    // The control may be gone with the end of its edit.
    const wxWeakRef<wxWindow> focused(FindFocus());
    if (focused && IsDescendant(focused))
    {
        FindWindow(wxID_OK)->SetFocus();
        if (focused)
            focused->SetFocus();
    }
    return m_refusedEdits == refusalsBefore && !m_refusedByClick;
}

namespace
{

// Whether Return has nothing to do for a control that has the focus: no entry to end, no line to
// break, no open list to pick from, no button to press.
bool hasNoUseForReturn(wxWindow* control)
{
    const auto* combo = dynamic_cast<wxOwnerDrawnComboBox*>(control);
    return (combo && !combo->IsPopupShown()) || dynamic_cast<wxNotebook*>(control) ||
           dynamic_cast<wxCheckBox*>(control) || dynamic_cast<wxRadioButton*>(control);
}

} // namespace

// Return confirms the dialog, where it has nothing else to do. A default button would get it from
// the fields, too. A list is left alone: one Return too many at the end of a rename must not close
// the dialog.
void DlgPlotStyleEditor::onReturn(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool isReturn = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    wxWindow* confirm = FindWindow(wxID_OK);
    if (!isReturn || event.HasAnyModifiers() || !hasNoUseForReturn(FindFocus()) ||
        !confirm->IsEnabled())
    {
        event.Skip();
        return;
    }
    wxCommandEvent pressed(wxEVT_BUTTON, wxID_OK);
    pressed.SetEventObject(confirm);
    confirm->HandleWindowEvent(pressed);
}

// A click on a button ends an edit first and reaches the button's handler at once. Whatever the
// user does later has nothing to do with the refusal any more.
void DlgPlotStyleEditor::refuseEdit(wxListEvent& event)
{
    event.Veto();
    ++m_refusedEdits;
    if (!wxg::isHandlingMousePress())
        return;
    m_refusedByClick = true;
    CallAfter([this] { m_refusedByClick = false; });
}

bool DlgPlotStyleEditor::isCtb() const
{
    return !m_table.isNull() && m_table->isColorDependent();
}

void DlgPlotStyleEditor::onOpen(wxCommandEvent&)
{
    if (!commitPendingEdit() || !checkSave())
        return;
    const wxString chosen = askForTable(this, m_fileName.GetPath());
    if (chosen.empty())
        return;
    m_fileName.Assign(chosen);
    load();
}

void DlgPlotStyleEditor::onSaveAs(wxCommandEvent&)
{
    if (!commitPendingEdit() || !Validate() || !TransferDataFromWindow())
        return;
    const wxString filter =
        isCtb() ? _("Color-dependent Plot Style files (*.ctb)|*.ctb|All files (*.*)|*.*")
                : _("Named Plot Style files (*.stb)|*.stb|All files (*.*)|*.*");
    wxFileDialog dialog(this, _("Save Plot Style File As"), m_fileName.GetPath(),
                        m_fileName.GetFullName(), filter, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxFileName chosen(chosenPath(dialog));
    if (chosen.GetExt().IsSameAs(isCtb() ? "ctb" : "stb", false))
        save(chosen.GetFullPath());
    else
        wxLogError(_("%ls is not a valid name to save to."), chosen.GetFullName());
}

void DlgPlotStyleEditor::onOk(wxCommandEvent& event)
{
    if (!commitPendingEdit() || !Validate() || !TransferDataFromWindow())
        return;
    if (m_modified && !save(wxString()))
        return;
    event.Skip();
}

void DlgPlotStyleEditor::onCancel(wxCommandEvent& event)
{
    commitPendingEdit();
    if (checkSave())
        event.Skip();
}

void DlgPlotStyleEditor::onUpdateUISave(wxUpdateUIEvent& event)
{
    event.Enable(!m_table.isNull());
}

void DlgPlotStyleEditor::onExport(wxCommandEvent&)
{
    if (m_table.isNull())
        return;
    TransferDataFromWindow();
    wxFileName proposed = m_fileName;
    proposed.SetName(m_fileName.GetFullName());
    proposed.SetExt("csv");
    wxFileDialog dialog(this, _("Export Plot Style File To"), proposed.GetPath(),
                        proposed.GetFullName(),
                        _("Comma-separated-value files (*.csv)|*.csv|Text files (*.txt)|*.txt|All "
                          "files (*.*)|*.*"),
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxString path = chosenPath(dialog);
    // The editor reports what keeps an export from beginning, and that alone.
    if (exportCsv(*m_table, m_fileName.GetFullName(), path) == CsvExport::NotOpened)
        wxLogError(_("Failed to create or open file: %ls"), path);
}
