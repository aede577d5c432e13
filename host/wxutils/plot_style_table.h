// The host's helper for new plot style table files.

#ifndef WXUTILS_PLOT_STYLE_TABLE_H
#define WXUTILS_PLOT_STYLE_TABLE_H

#include "odps/od_ps.h"

/// A new plot style table on its way into a file.
class CPlotStyleTable
{
public:
    /// Makes a table: 255 default styles, or the one style "Normal".
    /// @param description  the table's description; null for none
    /// @return a table that the caller owns and deletes; null on failure
    static CPlotStyleTable* create(bool colorDependent, const wchar_t* description);

    /// Writes the table, replacing a file of that name. @param path the file's full path
    /// @return whether the file was written
    bool write(const wchar_t* path) const;

private:
    explicit CPlotStyleTable(OdPsPlotStyleTablePtr table);

    OdPsPlotStyleTablePtr m_table;
};

#endif
