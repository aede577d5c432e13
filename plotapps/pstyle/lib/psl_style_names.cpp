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

bool isNameTaken(const OdPsPlotStyleTable& table, const wxString& name, const OdPsPlotStyle* style)
{
    const OdPs::OdPsStrLess isLess;
    const std::wstring wanted = name.ToStdWstring();
    const auto isWanted = [&](const OdString& other)
    { return !isLess(wanted.c_str(), other.c_str()) && !isLess(other.c_str(), wanted.c_str()); };
    for (int i = 0; i < table.styleCount(); ++i)
    {
        const OdPsPlotStylePtr other = table.styleAt(i);
        if (other.get() != style && (isWanted(other->name()) || isWanted(other->localizedName())))
            return true;
    }
    return false;
}
