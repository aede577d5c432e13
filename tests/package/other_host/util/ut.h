// The configuration of this host: the folder of the tables, and nothing else.

#ifndef OTHER_HOST_UT_H
#define OTHER_HOST_UT_H

#include <wx/string.h>

namespace ut
{
/// The parts of the configuration; 6 is that of the folders.
enum class ECfgGroup : int;

/// @return an empty text for what is not set
wxString getString(ECfgGroup group, const wxString& key);

void setTableFolder(const wxString& folder);
} // namespace ut

#endif
