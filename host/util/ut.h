// The host's configuration, and the user's language.

#ifndef UTIL_UT_H
#define UTIL_UT_H

#include <wx/string.h>

namespace ut
{

/// A numbered group of configuration values. The host's numbers are fixed: 6 is that of folders and
/// files, "PlotStylePath" (the folder of the plot style tables) among them.
enum class ECfgGroup : int
{
};

/// Reads a configuration value. "PlotStylePath" of group 6 is looked up in the environment
/// variable PSTYLE_PLOT_STYLE_PATH, then in the user's configuration file, then it is the folder of
/// sample tables that is installed with the program. A value that is set but empty counts as set.
/// A file that is damaged or cannot be read defines nothing, and the toolkit's log is told once.
/// @return the value; empty for one that nothing defines
wxString getString(ECfgGroup group, const wxString& name);

/// Stores a configuration value in the user's configuration file, which is made if need be. A
/// damaged file is kept under another name.
/// @return false when the file cannot be written, after the toolkit's log has been told why
bool setString(ECfgGroup group, const wxString& name, const wxString& value);

/// Has the toolkit's translation lookup answer in the user's language, as far as there is a
/// catalogue for it: the program's own lie in the folder share/locale beside that of the program.
/// Called once, before any text is looked up.
void loadTranslations();

} // namespace ut

#endif
