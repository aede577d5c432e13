// Calls of the desktop's own toolkit, where wxWidgets has none, and what they are needed for:
// telling screen readers about controls.

#ifndef DESKTOP_DESKTOP_H
#define DESKTOP_DESKTOP_H

#include <wx/string.h>

#include <dlfcn.h>

class wxWindow;

namespace desktop
{

/// A function of GTK or its libraries, which wxWidgets has loaded and which need not be there to
/// compile. @return null where there is none of that name
template <class Function>
Function* gtkFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

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

/// Has the standard buttons below a window show their own texts. The toolkit would show the
/// desktop's instead: in another language where the desktop lacks the user's, and with mnemonics
/// that nobody has compared with those of the window.
void showOwnLabels(wxWindow* window);

} // namespace desktop

#endif
