// Window replacement and screen queries.

#include "wxgui/wxgui.h"

#include "desktop/desktop.h"

#include <wx/sizer.h>
#include <wx/window.h>

bool wxg::replaceWnd(wxWindow* oldWindow, wxWindow* newWindow)
{
    newWindow->SetName(oldWindow->GetName());
    newWindow->MoveAfterInTabOrder(oldWindow);
    wxSizer* sizer = oldWindow->GetContainingSizer();
    return sizer && sizer->Replace(oldWindow, newWindow);
}

// The toolkit's own figure tells only by how much pixels are scaled, which pictures are as well.
bool wxg::isDpiForLargeIcons()
{
    constexpr double largeIconsPpi = 144;
    const auto defaultScreen = desktop::gtkFunction<void*()>("gdk_screen_get_default");
    const auto resolution = desktop::gtkFunction<double(void*)>("gdk_screen_get_resolution");
    if (!defaultScreen || !resolution)
        return false;
    void* screen = defaultScreen();
    return screen && resolution(screen) >= largeIconsPpi;
}
