// Dialogs from resource documents.

#ifndef OTHER_HOST_WUT_H
#define OTHER_HOST_WUT_H

#include <wx/dialog.h>

namespace wut
{
/// Builds a dialog of the global resources into an object that has not been created.
bool loadDialog(wxDialog* dialog, wxWindow* parent, const wxString& name);
} // namespace wut

#endif
