// The host's command interface to plot style tables: the only code that opens table files.

#ifndef CMDAPI_CMA_H
#define CMDAPI_CMA_H

#include "odps/od_ps.h"

namespace cma
{

/// Reads a table file (.ctb or .stb; the contents decide the kind, not the extension).
/// @param path the file's full path
/// @return the table, or null when the file cannot be read as a table
OdPsPlotStyleTablePtr loadPlotStyleTable(const OdString& path);

/// Writes a table, replacing the file in one step: after a failure the old file is as it was.
/// @param path the file's full path
/// @return whether the table was written
bool savePlotStyleTable(const OdString& path, OdPsPlotStyleTablePtr table);

/// Makes a new table: 255 styles "Color_1" to "Color_255", or the one style "Normal".
/// @return the table; null on failure
OdPsPlotStyleTablePtr createPlotStyleTable(bool colorDependent, const OdString& description);

} // namespace cma

#endif
