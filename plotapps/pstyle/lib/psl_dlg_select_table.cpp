// The chooser's rows, messages and paths.

#include "psl_dlg_select_table.h"

#include "psl.h"
#include "psl_controls.h"
#include "psl_table_paths.h"

#include "desktop/desktop.h"

#include <wx/arrstr.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/valgen.h>
#include <wx/valtext.h>

wxIMPLEMENT_CLASS(DlgSelectTable, wxDialog);

// clang-format off
wxBEGIN_EVENT_TABLE(DlgSelectTable, wxDialog)
    EVT_INIT_DIALOG(DlgSelectTable::onInitDialog)
    EVT_BUTTON(wxID_OK, DlgSelectTable::onOk)
    EVT_BUTTON(XRCID("BtnBrowse"), DlgSelectTable::onBrowse)
    EVT_RADIOBUTTON(wxID_ANY, DlgSelectTable::onRadioButton)
    EVT_CHOICE(XRCID("ChoiceTableType"), DlgSelectTable::onTableType)
    EVT_UPDATE_UI(wxID_OK, DlgSelectTable::onUpdateUIOk)
wxEND_EVENT_TABLE()
    // clang-format on

    DlgSelectTable::DlgSelectTable(wxWindow* parent)
{
    m_isBuilt = buildDialog(this, parent, "DlgSelectTable");
}

// The event is not skipped: the default handling would transfer the values once more.
void DlgSelectTable::onInitDialog(wxInitDialogEvent&)
{
    constexpr int width = 400;
    placeDialog(this, width);
    findControl<wxWindow>(*this, "PanelMessage")->SetCanFocus(false);
    desktop::setSpokenName(findControl<wxWindow>(*this, "BtnBrowse"), _("Browse"));

    wxArrayString files;
    getPlotStyleFiles(files);
    wxComboBox* combo = findControl<wxComboBox>(*this, "ComboSourceFile");
    constexpr size_t mostForAMenu = 100;
    if (files.size() > mostForAMenu)
        showEntriesInList(combo);
    if (!files.empty())
        combo->Append(files); // all at once: one by one, each time the others are counted

    for (const char* name : {"ComboSourceFile", "ChoiceTableType"})
        ignoreWheelWithoutFocus(findControl<wxWindow>(*this, name));

    setValidators();
    TransferDataToWindow();
    updateItems();
}

void DlgSelectTable::setValidators()
{
    const auto bindValue = [this](const char* name, auto& value)
    { findControl<wxWindow>(*this, name)->SetValidator(wxGenericValidator(&value)); };
    bindValue("RadOpen", modeOpen);
    bindValue("RadNew", modeNew);
    bindValue("RadCopy", modeCopy);
    bindValue("ChoiceTableType", tableType);
    bindValue("ComboSourceFile", sourceFile);
    findControl<wxTextCtrl>(*this, "TextTableName")
        ->SetValidator(wxTextValidator(wxFILTER_NONE, &tableName));
}

void DlgSelectTable::updateItems()
{
    TransferDataFromWindow();
    const struct
    {
        const char* name;
        bool shown;
    } items[] = {
        {"StatTableType", modeNew},    {"ChoiceTableType", modeNew}, {"StatSourceFile", !modeNew},
        {"ComboSourceFile", !modeNew}, {"BtnBrowse", !modeNew},      {"StatTableName", !modeOpen},
        {"TextTableName", !modeOpen},  {"StatOpen1", modeOpen},      {"StatOpen2", modeOpen},
    };
    for (const auto& item : items)
        findControl<wxWindow>(*this, item.name)->Show(item.shown);
    Layout();
    updateMessage();
}

void DlgSelectTable::updateMessage()
{
    TransferDataFromWindow();
    findControl<wxStaticText>(*this, "StatMessage")->SetLabel(message());
}

wxString DlgSelectTable::message() const
{
    if (modeOpen)
        return _("Open an existing plot style table file.");
    if (modeNew && tableType == 1)
        return _("A named plot style table will be created (STB), containing one plot style named "
                 "'Normal'. New plot styles can be added in the editor.");
    if (modeNew)
        return _("A color-dependent plot style table will be created (CTB), containing 255 plot "
                 "styles, one for every color index.");
    if (modeCopy)
        return _("A new plot style table will be created based on an existing plot style table "
                 "file.");
    return wxString();
}

void DlgSelectTable::onRadioButton(wxCommandEvent&)
{
    updateItems();
}

void DlgSelectTable::onTableType(wxCommandEvent&)
{
    updateMessage();
}

// Reads the controls themselves: the members follow only when something is chosen.
void DlgSelectTable::onUpdateUIOk(wxUpdateUIEvent& event)
{
    const bool needsSource = !findControl<wxRadioButton>(*this, "RadNew")->GetValue();
    const bool needsName = !findControl<wxRadioButton>(*this, "RadOpen")->GetValue();
    const bool lacksSource =
        needsSource && findControl<wxComboBox>(*this, "ComboSourceFile")->GetValue().empty();
    const bool lacksName =
        needsName && findControl<wxTextCtrl>(*this, "TextTableName")->GetValue().empty();
    event.Enable(!lacksSource && !lacksName);
}

void DlgSelectTable::onBrowse(wxCommandEvent&)
{
    wxComboBox* combo = findControl<wxComboBox>(*this, "ComboSourceFile");
    const wxString current = combo->GetValue();
    const bool isAbsolute = wxFileName(current).IsAbsolute();
    const wxString chosen = askForTable(this, isAbsolute ? current : plotStyleFolder());
    if (!chosen.empty())
        combo->SetValue(chosen);
}

void DlgSelectTable::onOk(wxCommandEvent& event)
{
    TransferDataFromWindow();
    const wxFileName source = tableFile(sourceFile, plotStyleFolder());
    if (!modeNew && !isTableFile(source))
    {
        wxLogError(_("%ls is not a valid plot style table file."), sourceFile);
        return;
    }
    wxFileName target = source;
    if (!modeOpen)
    {
        const wxString extension = newExtension(source);
        target = withExtension(tableFile(tableName, plotStyleFolder()), extension);
        const wxString problem = newTableProblem(target, extension, tableName);
        if (!problem.empty())
        {
            wxLogError("%ls", problem);
            return;
        }
    }
    const bool copies = !modeOpen && !modeNew;
    editPlotStyleTable(target.GetFullPath(), copies ? source.GetFullPath() : wxString(), this);
    event.Skip();
}

// The extension that a new table has to have: that of its kind, or that of the table it copies.
wxString DlgSelectTable::newExtension(const wxFileName& source) const
{
    return modeNew ? tableExtension(tableType != 1) : source.GetExt().Lower();
}
