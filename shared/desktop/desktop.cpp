// What screen readers are told, and the texts of standard buttons.

#include "desktop/desktop.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/stockitem.h>
#include <wx/window.h>

namespace desktop
{

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

void setSpokenName(wxWindow* control, const wxString& name)
{
    tell("atk_object_set_name", control, name);
}

void setSpokenValue(wxWindow* control, const wxString& value)
{
    tell("atk_object_set_description", control, value);
}

void setSpokenRole(wxWindow* control, SpokenRole role)
{
    const auto set = gtkFunction<void(void*, int)>("atk_object_set_role");
    void* object = accessible(control);
    if (set && object)
        set(object, static_cast<int>(role));
}

void showOwnLabels(wxWindow* window)
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

} // namespace desktop
