// Dialogs from resources.

#include "wxutils/wut.h"

#include <wx/dialog.h>
#include <wx/xrc/xmlres.h>

bool wut::loadDialog(wxDialog* dialog, wxWindow* parent, const wxString& name)
{
    return wxXmlResource::Get()->LoadDialog(dialog, parent, name);
}
