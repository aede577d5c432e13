// A host of the editor for walks at random: walk_host TABLE
// It looks after the table in memory: every file that is saved is read back and compared with it,
// and what a style holds can be asked for. What is wrong goes to standard error.

#include "psl.h"
#include "support/tables.h"
#include "tablefile/tablefile.h"

#include "cmdapi/cma.h"

#include <wx/app.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>

namespace
{

/// The table that is being edited.
OdPsPlotStyleTablePtr editedTable;

void complain(const std::string& what)
{
    std::fprintf(stderr, "walk: %s\n", what.c_str());
}

OdPsPlotStyleTablePtr read(const OdString& path)
{
    return tablefile::load(wxString(path.c_str()).utf8_string()).table;
}

void complainOfAssertion(const wxString& file, int line, const wxString&, const wxString& condition,
                         const wxString& message)
{
    complain("assertion " + (condition + " " + message + " in " + file).utf8_string() + ":" +
             std::to_string(line));
}

} // namespace

class WalkHost : public wxApp
{
    bool OnInit() override
    {
        wxSetAssertHandler(complainOfAssertion);
        SetAppName("walk");
        wxLog::SetLogLevel(wxLOG_Info);
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        return argc == 2;
    }

    int OnRun() override { return editPlotStyleTable(argv[1], nullptr) ? 0 : 1; }
};

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString& path)
{
    return editedTable = read(path);
}

bool cma::savePlotStyleTable(const OdString& path, OdPsPlotStyleTablePtr table)
{
    const std::string name = wxString(path.c_str()).utf8_string();
    if (tablefile::save(name, *table).status != tablefile::Status::Ok)
        return false;
    for (const std::string& difference : support::differences(*read(path), *table))
        complain("the file differs from the table in memory: " + difference);
    return true;
}

/// Tells the eye what a style of the table in memory holds: its name, pens and screening.
extern "C" const char* tellStyle(int index)
{
    static std::string told;
    const OdPsPlotStylePtr style = editedTable.isNull() ? nullptr : editedTable->styleAt(index);
    if (style.isNull())
        return "";
    OdPsPlotStyleData data;
    style->getData(data);
    told = wxString(style->name().c_str()).utf8_string() + "\t" +
           std::to_string(data.physicalPenNumber) + "\t" + std::to_string(data.virtualPenNumber) +
           "\t" + std::to_string(data.screening);
    return told.c_str();
}

wxIMPLEMENT_APP(WalkHost);
