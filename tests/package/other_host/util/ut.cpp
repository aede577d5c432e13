#include "util/ut.h"

namespace
{

wxString tableFolder;

} // namespace

wxString ut::getString(ECfgGroup group, const wxString& key)
{
    return group == ECfgGroup(6) && key == "PlotStylePath" ? tableFolder : wxString();
}

void ut::setTableFolder(const wxString& folder)
{
    tableFolder = folder;
}
