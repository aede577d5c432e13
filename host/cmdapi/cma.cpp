// The host's command interface to plot style tables.

#include "cmdapi/cma.h"

#include "odps/od_ps_impl.h"
#include "tablefile/tablefile.h"

#include <wx/log.h>
#include <wx/string.h>

#include <string>

namespace
{

/// The name of a file as the system knows it; in UTF-8 where the locale has no word for it.
std::string systemPath(const OdString& path)
{
    const wxString text(path.c_str());
    const std::string native(text.fn_str());
    return native.empty() ? std::string(text.utf8_str()) : native;
}

/// Leaves the reason of a failure to a developer who turns the trace on; the caller of the
/// interface has its own words for the user.
void traceFailure(const wchar_t* step, const OdString& path, const tablefile::Error& error)
{
    wxLogTrace(wxS("cmdapi"), wxS("%ls %ls: %s at offset %lu"), step, path.c_str(),
               wxString::FromUTF8(error.what), static_cast<unsigned long>(error.offset));
}

} // namespace

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString& path)
{
    const tablefile::LoadResult result = tablefile::load(systemPath(path));
    if (result.error.status != tablefile::Status::Ok)
        traceFailure(L"load", path, result.error);
    return result.table;
}

bool cma::savePlotStyleTable(const OdString& path, OdPsPlotStyleTablePtr table)
{
    if (table.isNull())
        return false;
    const tablefile::Error error = tablefile::save(systemPath(path), *table);
    if (error.status != tablefile::Status::Ok)
        traceFailure(L"save", path, error);
    return error.status == tablefile::Status::Ok;
}

OdPsPlotStyleTablePtr cma::createPlotStyleTable(bool colorDependent, const OdString& description)
{
    OdPsPlotStyleTablePtr table = new OdPsPlotStyleTableImpl(colorDependent);
    table->setDescription(description);
    if (!colorDependent)
        table->addNewStyle(L"Normal");
    for (int i = 0; colorDependent && i < OdPs::kColorStyleCount; ++i)
        table->addNewStyle(OdPs::colorStyleName(i));
    return table;
}
