// Dialogs from resources.

#include "wxutils/wut.h"

#include "wxgui/wxgui.h"

#include <wx/dialog.h>
#include <wx/xrc/xmlres.h>

bool wut::loadDialog(wxDialog* dialog, wxWindow* parent, const wxString& name)
{
    const bool isLoaded = wxXmlResource::Get()->LoadDialog(dialog, parent, name);
    if (isLoaded)
        wxg::showOwnLabels(dialog);
    return isLoaded;
}
