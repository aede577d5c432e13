// Window replacement, screen queries, and what the toolkit leaves to its own toolkit.

#include "wxgui/wxgui.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/stockitem.h>
#include <wx/window.h>

#include <dlfcn.h>

bool wxg::replaceWnd(wxWindow* oldWindow, wxWindow* newWindow)
{
    newWindow->SetName(oldWindow->GetName());
    newWindow->MoveAfterInTabOrder(oldWindow);
    wxSizer* sizer = oldWindow->GetContainingSizer();
    return sizer && sizer->Replace(oldWindow, newWindow);
}

namespace
{

// The toolkit loads GTK, which need not be there to compile.
template <class Function>
Function* gtkFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

} // namespace

// The toolkit's own figure tells only by how much pixels are scaled, which pictures are as well.
bool wxg::isDpiForLargeIcons()
{
    constexpr double largeIconsPpi = 144;
    const auto defaultScreen = gtkFunction<void*()>("gdk_screen_get_default");
    const auto resolution = gtkFunction<double(void*)>("gdk_screen_get_resolution");
    if (!defaultScreen || !resolution)
        return false;
    void* screen = defaultScreen();
    return screen && resolution(screen) >= largeIconsPpi;
}

void wxg::allowSpinText(wxSpinCtrl* spin)
{
    if (const auto setNumeric = gtkFunction<void(void*, int)>("gtk_spin_button_set_numeric"))
        setNumeric(spin->GetHandle(), 0);
}

namespace
{

// The part of a control that has the focus: of a list that is a window of its own.
wxWindow* focusPart(wxWindow* control)
{
    if (dynamic_cast<wxListCtrl*>(control))
        for (wxWindow* part : control->GetChildren())
            if (part->AcceptsFocus())
                return part;
    return control;
}

// What the desktop's accessibility toolkit knows of a control; null where there is none.
void* accessible(wxWindow* control)
{
    const auto accessibleOf = gtkFunction<void*(WXWidget)>("gtk_widget_get_accessible");
    const wxWindow* part = focusPart(control);
    const WXWidget widget = part->m_wxwindow ? part->m_wxwindow : part->GetHandle();
    return accessibleOf && widget ? accessibleOf(widget) : nullptr;
}

// Calls one of that toolkit's functions that take a text.
void tell(const char* function, wxWindow* control, const wxString& text)
{
    const auto set = gtkFunction<void(void*, const char*)>(function);
    void* object = accessible(control);
    if (set && object)
        set(object, text.utf8_str());
}

} // namespace

void wxg::setSpokenName(wxWindow* control, const wxString& name)
{
    tell("atk_object_set_name", control, name);
}

void wxg::setSpokenValue(wxWindow* control, const wxString& value)
{
    tell("atk_object_set_description", control, value);
}

void wxg::setSpokenRole(wxWindow* control, SpokenRole role)
{
    const auto set = gtkFunction<void(void*, int)>("atk_object_set_role");
    void* object = accessible(control);
    if (set && object)
        set(object, static_cast<int>(role));
}

void wxg::speakList(wxListCtrl* list, const wxString& name)
{
    setSpokenName(list, name);
    setSpokenRole(list, SpokenRole::List);
    const auto speakRow = [list](wxListEvent& event)
    {
        event.Skip();
        // The new text of a row is there after the event.
        list->CallAfter([list] { speakFocusedRow(list); });
    };
    list->Bind(wxEVT_LIST_ITEM_FOCUSED, speakRow);
    list->Bind(wxEVT_LIST_END_LABEL_EDIT, speakRow);
}

void wxg::speakFocusedRow(wxListCtrl* list)
{
    const long row = list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    setSpokenValue(list, row < 0 ? wxString() : list->GetItemText(row));
}

void wxg::showOwnLabels(wxWindow* window)
{
    for (wxWindow* child : window->GetChildren())
    {
        showOwnLabels(child);
        const wxWindowID id = child->GetId();
        if (!dynamic_cast<wxButton*>(child) || !wxIsStockID(id))
            continue;
        // Only a button of a number of its own keeps its text.
        child->SetId(wxID_NONE);
        child->SetLabel(child->GetLabel());
        child->SetId(id);
    }
}
