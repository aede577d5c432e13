// Helpers for windows.

#ifndef OTHER_HOST_WXGUI_H
#define OTHER_HOST_WXGUI_H

class wxWindow;

namespace wxg
{
/// Puts a control in the place of another, which the caller destroys.
void replaceWnd(wxWindow* oldWindow, wxWindow* newWindow);
/// Whether swatches are 32 pixels wide, not 14.
bool isDpiForLargeIcons();
} // namespace wxg

#endif
