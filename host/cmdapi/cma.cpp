// The host's command interface to plot style tables.

#include "cmdapi/cma.h"

#include "odps/od_ps_impl.h"
#include "tablefile/tablefile.h"

#include <wx/intl.h>
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

wxString reasonOf(const tablefile::Error& error)
{
    const wxString reason = wxGetTranslation(wxString::FromUTF8(error.what));
    const auto offset = static_cast<unsigned long>(error.offset);
    switch (error.place)
    {
    case tablefile::Place::File:
        return wxString::Format(_("%s (at byte %lu of the file)"), reason, offset);
    case tablefile::Place::Text:
        return wxString::Format(_("%s (at byte %lu of the uncompressed text)"), reason, offset);
    default:
        return reason;
    }
}

/// Leaves the reason of a failure to whoever has turned the trace on; null and false are all that
/// the interface itself tells.
bool isDone(const tablefile::Error& error)
{
    if (error.status == tablefile::Status::Ok)
        return true;
    wxLogTrace(wxS("cmdapi"), wxS("%s"), reasonOf(error));
    return false;
}

} // namespace

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString& path)
{
    const tablefile::LoadResult result = tablefile::load(systemPath(path));
    return isDone(result.error) ? result.table : nullptr;
}

bool cma::savePlotStyleTable(const OdString& path, OdPsPlotStyleTablePtr table)
{
    if (table.isNull())
        return false;
    return isDone(tablefile::save(systemPath(path), *table));
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
