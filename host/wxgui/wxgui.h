// The host's GUI helpers.

#ifndef WXGUI_WXGUI_H
#define WXGUI_WXGUI_H

#include <wx/string.h>

class wxWindow;

namespace wxg
{

/// Puts a window in the place of another of the same parent: in its sizer, in the tab order, and
/// under its name, so that look-ups by name find the new one. The old window is left to the
/// caller, who destroys it.
/// @return whether the old window was found in a sizer
bool replaceWnd(wxWindow* oldWindow, wxWindow* newWindow);

/// Whether the screen's resolution calls for large icons: text is drawn at 144 or more pixels per
/// inch. Pixels that the desktop scales by itself count as one.
bool isDpiForLargeIcons();

/// Where a dockable pane of the host stands until the user moves it.
struct DockState
{
    /// The key under which the host keeps the pane's state.
    wxString key;
    bool docked = true;
    bool shown = true;
};

} // namespace wxg

/// The host's default dock states; every translation unit that includes this has its own.
static const wxg::DockState rightDockState{"RDOCK"};
static const wxg::DockState leftDockState{"LDOCK"};

#endif
