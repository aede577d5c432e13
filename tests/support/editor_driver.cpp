// Operation of the editor for its tests.

#include "support/editor_driver.h"

#include "support/table_changes.h"
#include "support/tables.h"
#include "wxgui/varies_combo.h"

#include <wx/checkbox.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <stdexcept>

const std::vector<const char*> propertyControls = {
    "ComboColor",      "CheckDither",   "CheckGrayscale", "SpinPhysPen",
    "SpinVirtPen",     "SpinScreening", "ComboLineType",  "CheckAdaptive",
    "ComboLineWeight", "ComboEndStyle", "ComboJoinStyle", "ComboFillStyle"};

Shown with(Shown shown, const Shown& changes)
{
    for (const auto& [name, contents] : changes)
        shown[name] = contents;
    return shown;
}

namespace
{

constexpr long selectedAndFocused = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;

std::string stateName(wxCheckBoxState state)
{
    return state == wxCHK_UNDETERMINED ? "undetermined"
           : state == wxCHK_CHECKED    ? "checked"
                                       : "unchecked";
}

std::vector<std::string> rowTexts(const wxListCtrl* list)
{
    std::vector<std::string> texts;
    for (long row = 0; row < list->GetItemCount(); ++row)
        texts.push_back(list->GetItemText(row).utf8_string());
    return texts;
}

std::vector<int> selectedRows(const wxListCtrl* list)
{
    std::vector<int> rows;
    for (long row = 0; row < list->GetItemCount(); ++row)
        if (list->GetItemState(row, wxLIST_STATE_SELECTED))
            rows.push_back(static_cast<int>(row));
    return rows;
}

bool editRow(wxListCtrl* list, int row, const wxString& text)
{
    wxTextCtrl* edit = list->EditLabel(row);
    if (!edit)
        return false;
    edit->SetValue(text);
    list->EndEditLabel(false);
    return true;
}

void send(wxWindow* control, wxCommandEvent&& event, int value)
{
    event.SetEventObject(control);
    event.SetInt(value);
    control->GetEventHandler()->ProcessEvent(event);
}

} // namespace

void EditorDriver::turnTo(Page page)
{
    find<wxNotebook>(m_dialog, "NoteBook")->SetSelection(page);
}

bool EditorDriver::isEnabled(const char* name)
{
    updateUi(m_dialog);
    return find<wxWindow>(m_dialog, name)->IsEnabled();
}

bool EditorDriver::isShown(const char* name) const
{
    return find<wxWindow>(m_dialog, name)->IsShown();
}

std::string EditorDriver::shown(const char* name) const
{
    auto* control = find<wxWindow>(m_dialog, name);
    if (const auto* combo = dynamic_cast<wxg::VariesCombo*>(control))
        return combo->varies() ? "Varies" : combo->GetValue().utf8_string();
    if (const auto* box = dynamic_cast<wxCheckBox*>(control))
        return stateName(box->Get3StateValue());
    if (const auto* spin = dynamic_cast<wxSpinCtrl*>(control))
        return spin->GetTextValue().utf8_string();
    if (const auto* text = dynamic_cast<wxTextCtrl*>(control))
        return text->GetValue().utf8_string();
    throw std::runtime_error(std::string("nothing to read in ") + name);
}

wxString EditorDriver::label(const char* name) const
{
    return find<wxControl>(m_dialog, name)->GetLabelText();
}

void EditorDriver::requireUse(const char* name)
{
    if (!isEnabled(name) || !isShown(name))
        throw std::runtime_error(std::string("disabled or hidden: ") + name);
}

void EditorDriver::set(const char* name, int value)
{
    requireUse(name);
    force(name, value);
}

void EditorDriver::force(const char* name, int value)
{
    auto* control = find<wxWindow>(m_dialog, name);
    const int id = control->GetId();
    if (auto* combo = dynamic_cast<wxg::VariesCombo*>(control))
    {
        combo->SetSelection(value);
        send(combo, wxCommandEvent(wxEVT_COMBOBOX, id), value);
    }
    else if (auto* box = dynamic_cast<wxCheckBox*>(control))
    {
        box->Set3StateValue(value ? wxCHK_CHECKED : wxCHK_UNCHECKED);
        send(box, wxCommandEvent(wxEVT_CHECKBOX, id), value);
    }
    else if (auto* spin = dynamic_cast<wxSpinCtrl*>(control))
    {
        spin->SetValue(value);
        send(spin, wxSpinEvent(wxEVT_SPINCTRL, id), spin->GetValue());
    }
    else
        throw std::runtime_error(std::string("nothing to set in ") + name);
}

void EditorDriver::forceClick(const char* name)
{
    auto* button = find<wxButton>(m_dialog, name);
    send(button, wxCommandEvent(wxEVT_BUTTON, button->GetId()), 0);
}

wxListCtrl* EditorDriver::styles() const
{
    return find<wxListCtrl>(m_dialog, "ListStyles");
}

std::vector<std::string> EditorDriver::styleNames() const
{
    return rowTexts(styles());
}

void EditorDriver::select(const std::vector<int>& rows)
{
    turnTo(FormView);
    styles()->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
    for (const int row : rows)
        styles()->SetItemState(row, selectedAndFocused, selectedAndFocused);
}

std::vector<int> EditorDriver::selected() const
{
    return selectedRows(styles());
}

bool EditorDriver::rename(int row, const wxString& name)
{
    turnTo(FormView);
    return editRow(styles(), row, name);
}

Shown EditorDriver::fields()
{
    updateUi(m_dialog);
    Shown fields{{"TextStyleDescr", shown("TextStyleDescr")}};
    for (const char* name : propertyControls)
        fields[name] = shown(name);
    return fields;
}

wxListCtrl* EditorDriver::lineweights() const
{
    return find<wxListCtrl>(m_dialog, "ListLineWeights");
}

std::vector<std::string> EditorDriver::lineweightTexts() const
{
    return rowTexts(lineweights());
}

std::vector<int> EditorDriver::usedLineweights() const
{
    constexpr int checkMark = 1;
    std::vector<int> rows;
    for (int row = 0; row < lineweights()->GetItemCount(); ++row)
        if (imageOf(lineweights(), row) == checkMark)
            rows.push_back(row);
    return rows;
}

void EditorDriver::selectLineweight(int row)
{
    turnTo(Lineweights);
    lineweights()->SetItemState(row, selectedAndFocused, selectedAndFocused);
}

int EditorDriver::selectedLineweight() const
{
    const std::vector<int> rows = selectedRows(lineweights());
    return rows.empty() ? -1 : rows.front();
}

bool EditorDriver::editLineweight(int row, const wxString& text)
{
    selectLineweight(row);
    return editRow(lineweights(), row, text);
}

void EditorDriver::cancelLineweightEdit(int row)
{
    selectLineweight(row);
    if (!lineweights()->EditLabel(row))
        throw std::runtime_error("the row cannot be edited");
    lineweights()->EndEditLabel(true);
}

void EditorDriver::useInches(bool inches)
{
    turnTo(Lineweights);
    auto* button = find<wxRadioButton>(m_dialog, inches ? "RadLwIn" : "RadLwMm");
    button->SetValue(true);
    send(button, wxCommandEvent(wxEVT_RADIOBUTTON, button->GetId()), 1);
}

void EditorDriver::closeUnasked()
{
    // A question would be a dialog without an answer.
    click(m_dialog, wxID_CANCEL);
    EXPECT_FALSE(m_dialog.IsModal());
}

void EditorDriverTest::TearDown()
{
    for (const std::string& message : takeErrors())
        ADD_FAILURE() << "unexpected message: " << message;
}

void EditorDriverTest::store(const OdPsPlotStyleTablePtr& table)
{
    file = folder.file(table->isColorDependent() ? "table.ctb" : "table.stb");
    ASSERT_TRUE(cma::savePlotStyleTable(OdString(file.wc_str()), table));
    m_stored = readBytes(file);
}

void EditorDriverTest::store(const std::string& bytes, const char* extension)
{
    file = makeFile(wxString("table.") + extension, bytes);
    m_stored = bytes;
}

EditorDriver& EditorDriverTest::open()
{
    m_editor = std::make_unique<Editor>(file);
    m_driver = std::make_unique<EditorDriver>(*m_editor);
    return *m_driver;
}

EditorDriver& EditorDriverTest::open(const OdPsPlotStyleTablePtr& table)
{
    store(table);
    return open();
}

void EditorDriverTest::show(const OdPsPlotStyleTablePtr& table,
                            const std::function<void(EditorDriver&)>& script)
{
    store(table);
    answers.run(
        [&script](wxDialog* dialog)
        {
            ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
            EditorDriver driver(*dialog);
            script(driver);
        });
    DlgPlotStyleEditor(file, wxString(), nullptr).ShowModal();
}

bool EditorDriverTest::isModified()
{
    return m_editor->isModified();
}

void EditorDriverTest::save()
{
    click(*m_editor, wxID_OK);
    EXPECT_TRUE(m_editor->endedWith(wxID_OK));
}

OdPsPlotStyleTablePtr EditorDriverTest::savedTable() const
{
    return loadTable(file);
}

OdPsPlotStyleData EditorDriverTest::savedData(int style) const
{
    return support::dataOf(*savedTable(), style);
}

std::vector<std::string> EditorDriverTest::savedChanges() const
{
    return tableChanges(m_stored, readBytes(file));
}

std::vector<std::string> EditorDriverTest::takeErrors()
{
    std::vector<std::string> messages;
    for (const wxString& message : errors.messages())
        messages.push_back(message.utf8_string());
    errors.clear();
    return messages;
}

OdPsPlotStyleTablePtr namedTable(const std::vector<std::wstring>& names)
{
    OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(false, L"");
    for (const std::wstring& name : names)
        table->addNewStyle(name);
    return table;
}

OdPsPlotStyleTablePtr colorTable()
{
    return cma::createPlotStyleTable(true, L"");
}

int imageOf(const wxListCtrl* list, long row)
{
    wxListItem item;
    item.SetId(row);
    item.SetMask(wxLIST_MASK_IMAGE);
    return list->GetItem(item) ? item.GetImage() : -1;
}

bool isVisible(const wxListCtrl* list, long row)
{
    wxRect rect;
    return list->GetItemRect(row, rect) && rect.y >= 0 &&
           rect.GetBottom() < list->GetClientSize().y;
}

bool focus(wxWindow* control)
{
    // Without a window manager the keyboard belongs to the window under the pointer.
    wxUIActionSimulator().MouseMove(control->GetScreenPosition() + wxPoint(10, 10));
    control->SetFocus();
    return waitFor([control] { return control->IsDescendant(wxWindow::FindFocus()); });
}

void typeInto(wxWindow* control, const char* text)
{
    ASSERT_TRUE(focus(control));
    wxUIActionSimulator().Text(text);
}

void pressKey(wxWindow* control, int key, int modifiers)
{
    ASSERT_TRUE(focus(control));
    wxUIActionSimulator().Char(key, modifiers);
}
