// Where the host's configuration values come from.

#include "util/ut.h"

#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/stdpaths.h>
#include <wx/utils.h>

#include <optional>

namespace ut
{

namespace
{

/// The user's configuration file, in the place that the desktop prescribes for such files.
wxString configFile()
{
    wxStandardPaths& paths = wxStandardPaths::Get();
    const auto layout = paths.GetFileLayout();
    paths.SetFileLayout(wxStandardPaths::FileLayout_XDG);
    const wxFileName file(paths.GetUserConfigDir() + "/pstyle", "pstyle.conf");
    paths.SetFileLayout(layout);
    return file.GetFullPath();
}

std::optional<wxString> configured(ECfgGroup group, const wxString& name)
{
    const wxString file = configFile();
    if (!wxFileName::FileExists(file))
        return std::nullopt;
    const wxFileConfig config("pstyle", wxString(), file, wxString(), wxCONFIG_USE_LOCAL_FILE);
    const wxString key = wxString::Format("/%d/%s", static_cast<int>(group), name);
    wxString value;
    if (!config.Read(key, &value))
        return std::nullopt;
    return value;
}

/// The sample tables lie beside the program's folder, in the build tree as in an installation.
wxString samplesFolder()
{
    wxFileName folder(wxStandardPaths::Get().GetExecutablePath());
    folder.SetFullName(wxString());
    folder.AppendDir("..");
    wxFileName samples(folder.GetPath() + "/" + PSTYLE_SAMPLES_DIR, wxString());
    samples.Normalize(wxPATH_NORM_DOTS | wxPATH_NORM_ABSOLUTE);
    return samples.GetPath();
}

} // namespace

wxString getString(ECfgGroup group, const wxString& name)
{
    const bool isPlotStylePath = group == ECfgGroup::Paths && name == "PlotStylePath";
    wxString value;
    if (isPlotStylePath && wxGetEnv("PSTYLE_PLOT_STYLE_PATH", &value))
        return value;
    if (const auto fromFile = configured(group, name))
        return *fromFile;
    return isPlotStylePath ? samplesFolder() : wxString();
}

} // namespace ut
