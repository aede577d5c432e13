// Path rules of the dialogs that open and create tables.

#include "psl_table_paths.h"

#include "util/ut.h"

#include <wx/intl.h>

wxString plotStyleFolder()
{
    return ut::getString(ut::ECfgGroup(6), "PlotStylePath");
}

wxFileName tableFile(const wxString& typed, const wxString& folder)
{
    const wxFileName name(typed);
    if (name.IsAbsolute())
        return name;
    wxFileName file = wxFileName::DirName(folder);
    file.SetFullName(name.GetFullName());
    return file;
}

bool isTableFile(const wxFileName& file)
{
    const wxString extension = file.GetExt().Lower();
    return file.FileExists() && (extension == "ctb" || extension == "stb");
}

wxString tableExtension(bool colorDependent)
{
    return colorDependent ? "ctb" : "stb";
}

wxFileName withExtension(wxFileName file, const wxString& extension)
{
    if (file.GetExt().empty())
        file.SetExt(extension);
    return file;
}

wxString newTableProblem(const wxFileName& file, const wxString& extension, const wxString& typed)
{
    const wxString given = file.GetExt().Lower();
    if (given != extension)
        return wxString::Format(
            _("Extension '%ls' is not valid for this type of plot style table."), given);
    if (file.FileExists())
        return wxString::Format(_("File '%ls' exists already."), typed);
    return wxString();
}
