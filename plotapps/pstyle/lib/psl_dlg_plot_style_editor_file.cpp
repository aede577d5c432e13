// The editor's file operations: loading, saving, and the buttons that end the dialog or change the
// file.

#include "psl_dlg_plot_style_editor.h"

#include "psl_controls.h"
#include "psl_csv.h"
#include "psl_disk_version.h"
#include "psl_host_reason.h"
#include "psl_lineweight_list.h"
#include "psl_path_text.h"
#include "psl_table_paths.h"

#include "cmdapi/cma.h"
#include "files/files.h"

#include <wx/button.h>
#include <wx/filedlg.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/textctrl.h>

#include <filesystem>

namespace
{

const char* const caption = wxTRANSLATE("Plot Style Table Editor");

} // namespace

void DlgPlotStyleEditor::load()
{
    m_table = nullptr;
    // Before it is read: what is changed from here on is the work of others.
    *m_diskVersion = DiskVersion(m_fileName.GetFullPath());
    wxString path;
    if (!m_sourceFile.empty() && wxFileName::FileExists(m_sourceFile))
        path = m_sourceFile;
    else if (m_fileName.FileExists())
        path = m_fileName.GetFullPath();
    const wxString reason = hostReason([&] { m_table = readTable(path); });
    m_sourceFile.clear();
    m_modified = !m_fileName.FileExists();

    if (m_table.isNull())
        takeNoTable(withReason(
            path.empty() ? _("Failed to create plotstyle table file.")
                         : _("Invalid file format - failed to open plotstyle table file."),
            reason));
    else
        takeTableValues();

    updateFileInfo();
    updateStyleButtons();
    updateStyles();
    updateLineWeightUse(false);
    updateLineWeights(false);
    TransferDataToWindow();
    m_shownDescription = findControl<wxTextCtrl>(*this, "TextTableDescr")->GetValue();
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
    const wxString description = m_table->description().c_str();
    m_tableDescription = shownPart(description);
    m_hiddenDescription = description.Mid(m_tableDescription.length());
    m_unitsIn = m_table->isDisplayCustomLineweightUnits();
    m_unitsMm = !m_unitsIn;
    // There is no button as long as there is nothing to sort.
    findControl<wxButton>(*this, "BtnLwSort")->Show(isLineWeightListOutOfOrder(*m_table));
}

void DlgPlotStyleEditor::takeNoTable(const wxString& message)
{
    wxLogStatus("%s", message); // for hosts that write down what they are told
    wxMessageBox(message, wxGetTranslation(caption), wxOK | wxICON_ERROR, this);
    m_styleCount = 0;
    m_applyScale = false;
    m_scaleText = "1";
    m_tableDescription.clear();
    m_hiddenDescription.clear();
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
    // Whoever names a file is asked whether it may be replaced as it is.
    if (!path.empty())
        *m_diskVersion = DiskVersion(fullPath);
    const auto kept = keepOtherVersion(fullPath);
    if (!kept)
        return false;
    bool isSaved = false;
    const wxString reason = hostReason(
        [&] { isSaved = cma::savePlotStyleTable(OdString(fullPath.wc_str()), m_table); });
    if (!isSaved)
    {
        if (!kept->empty())
            wxRemoveFile(*kept);
        reportFailure(
            withReason(wxString::Format(_("Failed to save file: %ls"), fullPath), reason));
        return false;
    }
    *m_diskVersion = DiskVersion(fullPath);
    m_modified = false;
    if (!kept->empty())
        tellOfOtherVersion(fullPath, *kept);
    return true;
}

// Keeps what another program has written into the file since the editor read it. There is no room
// for a question on the way to a save.
// @return the name that it is kept under; empty where there is nothing to keep, nothing where it
// cannot be kept and so must not be replaced
std::optional<wxString> DlgPlotStyleEditor::keepOtherVersion(const wxString& path)
{
    const files::Kind kind = files::kindOf(systemPath(path));
    if (kind == files::Kind::Stream || kind == files::Kind::Disk)
    {
        reportFailure(withReason(wxString::Format(_("Failed to save file: %ls"), path),
                                 _("It is not a file any more.")));
        return std::nullopt;
    }
    const DiskVersion now(path);
    if (!now.isFile() || now == *m_diskVersion)
        return wxString();
    try
    {
        return keepDiskVersion(path);
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        const wxString reason =
            _("It was changed by another program while it was being edited, and "
              "its new contents cannot be kept.");
        reportFailure(
            withReason(withReason(wxString::Format(_("Failed to save file: %ls"), path), reason),
                       systemText(files::reasonOf(error, systemPath(path)))));
        return std::nullopt;
    }
}

void DlgPlotStyleEditor::tellOfOtherVersion(const wxString& path, const wxString& kept)
{
    const wxString message =
        wxString::Format(_("File '%ls' was changed by another program while it was being edited. "
                           "Its contents were kept as '%ls'."),
                         path, kept);
    wxLogStatus("%s", message);
    wxLogWarning("%s", message);
}

bool DlgPlotStyleEditor::checkSave()
{
    TransferDataFromWindow();
    if (!m_modified || m_table.isNull())
        return true;
    const int answer = wxMessageBox(_("Do you want to save changes?"), wxGetTranslation(caption),
                                    wxYES_NO | wxCANCEL | wxICON_QUESTION, this);
    if (answer == wxYES)
        return save(wxString());
    return answer == wxNO;
}

bool DlgPlotStyleEditor::isCtb() const
{
    return !m_table.isNull() && m_table->isColorDependent();
}

void DlgPlotStyleEditor::onOpen(wxCommandEvent&)
{
    if (!checkSave())
        return;
    const wxString chosen = askForTable(this, m_fileName.GetPath());
    if (chosen.empty())
        return;
    m_fileName.Assign(chosen);
    load();
}

void DlgPlotStyleEditor::onSaveAs(wxCommandEvent&)
{
    if (!Validate() || !TransferDataFromWindow())
        return;
    const wxString filter =
        isCtb() ? _("Color-dependent Plot Style files (*.ctb)|*.ctb|All files (*.*)|*.*")
                : _("Named Plot Style files (*.stb)|*.stb|All files (*.*)|*.*");
    wxFileDialog dialog(this, _("Save Plot Style File As"), m_fileName.GetPath(),
                        m_fileName.GetFullName(), filter, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    ignoreCaseOfFilters(dialog);
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxFileName typed(chosenPath(dialog));
    const wxString extension = tableExtension(isCtb());
    const wxFileName chosen = withExtension(typed, extension);
    if (!chosen.GetExt().IsSameAs(extension, false))
        wxLogError(_("%ls is not a valid name to save to."), chosen.GetFullName());
    else if (!typed.GetExt().empty() || mayReplace(chosen))
        save(chosen.GetFullPath());
}

// The file dialog has asked about the name as it was typed, without the extension.
bool DlgPlotStyleEditor::mayReplace(const wxFileName& file)
{
    if (!file.FileExists())
        return true;
    return wxMessageBox(
               wxString::Format(_("File '%ls' exists already. Replace it?"), file.GetFullName()),
               wxGetTranslation(caption), wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION, this) == wxYES;
}

void DlgPlotStyleEditor::onOk(wxCommandEvent& event)
{
    if (!Validate() || !TransferDataFromWindow())
        return;
    if (m_modified && !save(wxString()))
        return;
    event.Skip();
}

void DlgPlotStyleEditor::onCancel(wxCommandEvent& event)
{
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
    ignoreCaseOfFilters(dialog);
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxString path = chosenPath(dialog);
    const CsvExport done = exportCsv(*m_table, m_fileName.GetFullName(), path, Replaceable::Texts);
    // The user is told what keeps an export from beginning, and that alone.
    if (done.result == CsvExport::NotOpened)
        reportFailure(withReason(wxString::Format(_("Failed to create or open file: %ls"), path),
                                 done.reason));
    else if (done.result == CsvExport::NotWritten)
        wxLogStatus("%s",
                    withReason(wxString::Format(_("Failed to save file: %ls"), path), done.reason));
}
