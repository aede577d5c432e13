// What the user is still entering in the editor when something else happens: the text of a list row
// that is being edited, or a number typed into a field. And the keys that work from every control.

#include "psl_dlg_plot_style_editor.h"

#include "psl_controls.h"
#include "psl_numbers.h"

#include "desktop/desktop.h"

#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>
#include <utility>

namespace
{

// Whether an event tells that the user wants something done, by whatever means.
bool isCommand(const wxEvent& event)
{
    const wxEventType commands[] = {wxEVT_BUTTON, wxEVT_CHECKBOX, wxEVT_COMBOBOX,
                                    wxEVT_NOTEBOOK_PAGE_CHANGING, wxEVT_RADIOBUTTON};
    return std::find(std::begin(commands), std::end(commands), event.GetEventType()) !=
           std::end(commands);
}

// Whether what happens now comes from the user or the window manager, not from the program itself.
bool isHandlingInput()
{
    const auto currentEvent = desktop::gtkFunction<void*()>("gtk_get_current_event");
    const auto freeEvent = desktop::gtkFunction<void(void*)>("gdk_event_free");
    void* event = currentEvent && freeEvent ? currentEvent() : nullptr;
    if (event)
        freeEvent(event);
    return event;
}

using FocusHandler = int (*)(WXWidget field, void* event, void* editor);

} // namespace

// Every command passes here before its handler. A mnemonic does not move the focus, so an edit
// would go on meanwhile and end on whatever row has its number afterwards.
bool DlgPlotStyleEditor::TryBefore(wxEvent& event)
{
    if (!isCommand(event) || endPendingEntry())
        return wxDialog::TryBefore(event);
    if (auto* pageChange = dynamic_cast<wxNotebookEvent*>(&event))
        pageChange->Veto();
    showStoredChoices();
    return true;
}

// Gives false where the table refused what was entered; the user is then back in the edit. The edit
// may have ended before, by the loss of the focus: to a button that was clicked, a check box whose
// mnemonic was pressed, the window manager that closes the window.
bool DlgPlotStyleEditor::endPendingEntry()
{
    if (m_refusedEdit && (m_refusedEdit->isBeingTold || isHandlingInput()))
        return false;
    m_refusedEdit.reset();
    for (const char* name : {"ListStyles", "ListLineWeights"})
        findControl<wxListCtrl>(*this, name)->EndEditLabel(false);
    takeTypedNumber();
    return !m_refusedEdit;
}

// A check box or radio button shows the command already when that is stopped.
void DlgPlotStyleEditor::showStoredChoices()
{
    findControl<wxRadioButton>(*this, "RadLwMm")->SetValue(m_unitsMm);
    findControl<wxRadioButton>(*this, "RadLwIn")->SetValue(m_unitsIn);
    updateStyleFields();
}

// The list ends the edit whatever its handler says, so it is begun anew; not when the user gave up.
void DlgPlotStyleEditor::refuseEdit(wxListEvent& event)
{
    event.Veto();
    if (event.IsEditCancelled())
        return;
    m_refusedEdit = {wxStaticCast(event.GetEventObject(), wxListCtrl), event.GetIndex(),
                     event.GetLabel(), false};
    CallAfter(&DlgPlotStyleEditor::resumeRefusedEdit);
}

void DlgPlotStyleEditor::resumeRefusedEdit()
{
    // The reason comes first: its message would take the focus from the edit. While it is open the
    // host may destroy the editor.
    if (!m_refusedEdit)
        return;
    m_refusedEdit->isBeingTold = true;
    const wxWeakRef<DlgPlotStyleEditor> self(this);
    wxLog::FlushActive();
    if (!self || !m_refusedEdit)
        return;
    const RefusedEdit refused = *std::exchange(m_refusedEdit, std::nullopt);
    if (!refused.list->IsShownOnScreen() || refused.row >= refused.list->GetItemCount())
        return;
    if (wxTextCtrl* edit = editRow(refused.list, refused.row))
    {
        edit->ChangeValue(refused.text);
        edit->SelectAll();
    }
}

// What is typed into a number field counts when the user leaves it or makes any other use of the
// dialog. The toolkit tells of it only when the focus goes, which is too late after a click into
// the list: other styles are selected by then.
void DlgPlotStyleEditor::bindNumberFields()
{
    for (const char* name : {"SpinPhysPen", "SpinVirtPen", "SpinScreening"})
    {
        wxSpinCtrl* field = findControl<wxSpinCtrl>(*this, name);
        ignoreWheelWithoutFocus(field);
        field->Bind(wxEVT_TEXT,
                    [this, field](wxCommandEvent& event)
                    {
                        event.Skip();
                        m_typedInto = field;
                    });
        const auto take = [this](wxEvent& event)
        {
            event.Skip();
            takeTypedNumber();
        };
        field->Bind(wxEVT_KILL_FOCUS, take);
        // The toolkit sends that when GTK has taken the text already, and whatever is no number for
        // 0.
        const auto connect = desktop::gtkFunction<unsigned long(
            WXWidget, const char*, FocusHandler, void*, void*, int)>("g_signal_connect_data");
        if (connect)
            connect(field->GetHandle(), "focus-out-event", onFocusLeaves, this, nullptr, 0);
        field->Bind(wxEVT_LEFT_DOWN, take);
        field->Bind(wxEVT_MOUSEWHEEL, take);
        field->Bind(wxEVT_KEY_DOWN,
                    [this](wxKeyEvent& event)
                    {
                        event.Skip();
                        if (isOneOf(event.GetKeyCode(),
                                    {WXK_UP, WXK_DOWN, WXK_PAGEUP, WXK_PAGEDOWN, WXK_NUMPAD_UP,
                                     WXK_NUMPAD_DOWN, WXK_NUMPAD_PAGEUP, WXK_NUMPAD_PAGEDOWN}))
                            takeTypedNumber();
                    });
    }
}

int DlgPlotStyleEditor::onFocusLeaves(WXWidget, void*, void* editor)
{
    static_cast<DlgPlotStyleEditor*>(editor)->takeTypedNumber();
    return 0; // and the toolkit goes on
}

// Nothing for a text that is no number. A pen field that was emptied shows its word for 0.
std::optional<int> DlgPlotStyleEditor::typedNumber(const wxSpinCtrl& field) const
{
    const wxString text = field.GetTextValue();
    const wxString name = field.GetName();
    const bool isSinglePen = (name == "SpinPhysPen" && !m_physicalPenVaries) ||
                             (name == "SpinVirtPen" && !m_virtualPenVaries);
    if (isSinglePen && (text.empty() || text == _("Automatic")))
        return 0;
    return parseInteger(text, field.GetMin(), field.GetMax());
}

// What is no number leaves the styles as they are, and the field shows them again.
void DlgPlotStyleEditor::takeTypedNumber()
{
    wxSpinCtrl* field = std::exchange(m_typedInto, nullptr);
    if (!field)
        return;
    const auto number = typedNumber(*field);
    if (number && !isStored(*field, *number))
    {
        field->SetValue(*number);
        wxSpinEvent entered(wxEVT_SPINCTRL, field->GetId());
        entered.SetEventObject(field);
        entered.SetPosition(*number);
        field->HandleWindowEvent(entered);
    }
    updateStyleFields();
}

namespace
{

// Return confirms the dialog from where it is not a habit of doing something else: not from a list
// or a field, where it ends an entry, and not from a check box or radio button.
bool confirmsByReturn(wxWindow* control)
{
    const auto* combo = dynamic_cast<wxOwnerDrawnComboBox*>(control);
    return (combo && !combo->IsPopupShown()) || dynamic_cast<wxNotebook*>(control);
}

} // namespace

// The keys that mean the same wherever the focus is. A default button would get Return from the
// fields, too.
void DlgPlotStyleEditor::onCharHook(wxKeyEvent& event)
{
    const int key = event.GetKeyCode();
    const bool isReturn = isOneOf(key, {WXK_RETURN, WXK_NUMPAD_ENTER}) && !event.HasAnyModifiers();
    if (isReturn)
        takeTypedNumber();
    const bool turnsPage =
        event.ControlDown() && !event.AltDown() &&
        isOneOf(key, {WXK_PAGEUP, WXK_PAGEDOWN, WXK_NUMPAD_PAGEUP, WXK_NUMPAD_PAGEDOWN, WXK_TAB});
    if (turnsPage)
    {
        const bool isBack = isOneOf(key, {WXK_PAGEUP, WXK_NUMPAD_PAGEUP}) || event.ShiftDown();
        // The toolkit takes a page change by a program back only with the user's next input.
        if (endPendingEntry())
            findControl<wxNotebook>(*this, "NoteBook")->AdvanceSelection(!isBack);
    }
    else if (isReturn && confirmsByReturn(FindFocus()) && FindWindow(wxID_OK)->IsEnabled())
        press(wxID_OK);
    else
        event.Skip();
}

// Presses a button as the user would, so that what a click has to go through a key has to, too.
void DlgPlotStyleEditor::press(int id)
{
    wxWindow* button = FindWindow(id);
    wxCommandEvent pressed(wxEVT_BUTTON, id);
    pressed.SetEventObject(button);
    button->HandleWindowEvent(pressed);
}
