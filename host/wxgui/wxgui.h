// The host's GUI helpers.

#ifndef WXGUI_WXGUI_H
#define WXGUI_WXGUI_H

#include <wx/string.h>

class wxListCtrl;
class wxSpinCtrl;
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

/// Lets a spin control show texts that are not numbers. What the user types is still taken as a
/// number.
void allowSpinText(wxSpinCtrl* spin);

/// Has the standard buttons below a window show their own texts. The toolkit would show the
/// desktop's instead: in another language where the desktop lacks the user's, and with mnemonics
/// that nobody has compared with those of the window.
void showOwnLabels(wxWindow* window);

/// What a control that draws itself is to a screen reader. The numbers are those of the desktop's
/// accessibility toolkit.
enum class SpokenRole : int
{
    ColorChooser = 9,
    ComboBox = 11,
    List = 30,
};

/// Tells screen readers what a control is called that has neither a text of its own nor a label
/// before it.
/// @param name  translated, without mnemonic
void setSpokenName(wxWindow* control, const wxString& name);
void setSpokenRole(wxWindow* control, SpokenRole role);
/// Tells screen readers what a control shows that draws itself. Called whenever that changes.
void setSpokenValue(wxWindow* control, const wxString& value);

/// Makes a list known to screen readers: its name, and the text of the row that has the focus.
void speakList(wxListCtrl* list, const wxString& name);
/// Tells the text of the row that has the focus anew, when the program has changed it.
void speakFocusedRow(wxListCtrl* list);

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
