// Window replacement, screen queries, and what the toolkit leaves to its own toolkit.

#include "wxgui/wxgui.h"

#include <wx/sizer.h>
#include <wx/spinctrl.h>
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

bool wxg::isHandlingMousePress()
{
    constexpr int buttonPress = 4; // GDK_BUTTON_PRESS; every event begins with its type
    const auto currentEvent = gtkFunction<int*()>("gtk_get_current_event");
    const auto freeEvent = gtkFunction<void(int*)>("gdk_event_free");
    int* event = currentEvent && freeEvent ? currentEvent() : nullptr;
    if (!event)
        return false;
    const bool isPress = *event == buttonPress;
    freeEvent(event);
    return isPress;
}
