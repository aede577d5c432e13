// Names of styles and the texts that a file can hold.

#include "psl_style_names.h"

#include "odps/od_ps.h"

wxString storableText(const wxString& entered)
{
    wxString text = entered.substr(0, entered.find(wxUniChar(0)));
    text.Replace("\r\n", " ");
    text.Replace("\r", " ");
    text.Replace("\n", " ");
    return text;
}

bool isSameName(const OdString& one, const OdString& other)
{
    const OdPs::OdPsStrLess isLess;
    return !isLess(one.c_str(), other.c_str()) && !isLess(other.c_str(), one.c_str());
}

bool isNameTaken(const OdPsPlotStyleTable& table, const wxString& name, const OdPsPlotStyle* style)
{
    const OdString wanted(name.wc_str());
    for (int i = 0; i < table.styleCount(); ++i)
    {
        const OdPsPlotStylePtr other = table.styleAt(i);
        if (other.get() != style &&
            (isSameName(wanted, other->name()) || isSameName(wanted, other->localizedName())))
            return true;
    }
    return false;
}
