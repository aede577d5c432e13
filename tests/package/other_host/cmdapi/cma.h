// Plot style tables in files of this host's own: one text file for each table, with a value on each
// line, in a fixed order.

#ifndef OTHER_HOST_CMA_H
#define OTHER_HOST_CMA_H

#include "odps/od_ps.h"

namespace cma
{
/// @return null if the file is no table; the reason is traced under the mask "cmdapi", as it is for
///         the others
OdPsPlotStyleTablePtr loadPlotStyleTable(const OdString& path);
/// Writes the file anew. @return false if it could not be written; the old one is as it was
bool savePlotStyleTable(const OdString& path, const OdPsPlotStyleTablePtr& table);
/// Makes a table of 255 styles, or of the one style Normal.
OdPsPlotStyleTablePtr createPlotStyleTable(bool isColorDependent, const OdString& description);
} // namespace cma

#endif
