// New plot style table files, by way of the host's command interface.

#include "wxutils/plot_style_table.h"

#include "cmdapi/cma.h"

#include <utility>

CPlotStyleTable::CPlotStyleTable(OdPsPlotStyleTablePtr table)
    : m_table(std::move(table))
{
}

CPlotStyleTable* CPlotStyleTable::create(bool colorDependent, const wchar_t* description)
{
    OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(colorDependent, description);
    return table.isNull() ? nullptr : new CPlotStyleTable(std::move(table));
}

bool CPlotStyleTable::write(const wchar_t* path) const
{
    return cma::savePlotStyleTable(path, m_table);
}
