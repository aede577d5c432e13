#include "cmdapi/cma.h"
#include "wxutils/plot_style_table.h"
#include "wxutils/wut.h"

#include <wx/xrc/xmlres.h>

bool wut::loadDialog(wxDialog* dialog, wxWindow* parent, const wxString& name)
{
    return wxXmlResource::Get()->LoadDialog(dialog, parent, name);
}

CPlotStyleTable* CPlotStyleTable::create(bool isColorDependent, const wchar_t* description)
{
    auto* newTable = new CPlotStyleTable;
    newTable->table = cma::createPlotStyleTable(isColorDependent, description ? description : L"");
    return newTable;
}

bool CPlotStyleTable::write(const OdString& path) const
{
    return cma::savePlotStyleTable(path, table);
}
