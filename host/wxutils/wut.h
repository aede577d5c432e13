// The host's helpers for dialogs.

#ifndef WXUTILS_WUT_H
#define WXUTILS_WUT_H

#include <wx/string.h>

class wxDialog;
class wxWindow;

namespace wut
{

/// Builds a dialog from its resource into an object that has not been created yet.
/// @param dialog  the object; it stays the caller's
/// @param parent  its parent window, or null
/// @param name    the name of a dialog resource that the global resource loader knows
/// @return false, with the loader's message in the log, when the resource cannot be loaded
bool loadDialog(wxDialog* dialog, wxWindow* parent, const wxString& name);

} // namespace wut

#endif
