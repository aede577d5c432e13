// A new table that has no file yet.

#ifndef OTHER_HOST_PLOT_STYLE_TABLE_H
#define OTHER_HOST_PLOT_STYLE_TABLE_H

#include "odps/od_ps.h"

class CPlotStyleTable
{
public:
    /// @return a table that the caller deletes
    static CPlotStyleTable* create(bool isColorDependent, const wchar_t* description);
    bool write(const OdString& path) const;

private:
    OdPsPlotStyleTablePtr table;
};

#endif
