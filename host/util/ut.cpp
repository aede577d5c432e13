// Where the host's configuration values and texts come from.

#include "util/ut.h"

#include <wx/arrstr.h>
#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/stdpaths.h>
#include <wx/translation.h>
#include <wx/utils.h>

#include <clocale>
#include <memory>
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

wxString keyOf(ECfgGroup group, const wxString& name)
{
    return wxString::Format("/%d/%s", static_cast<int>(group), name);
}

std::unique_ptr<wxFileConfig> openConfig(const wxString& file)
{
    auto config = std::make_unique<wxFileConfig>("pstyle", wxString(), file, wxString(),
                                                 wxCONFIG_USE_LOCAL_FILE);
    // A value is what it says: a folder may have a $ in its name.
    config->SetExpandEnvVars(false);
    return config;
}

std::optional<wxString> configured(ECfgGroup group, const wxString& name)
{
    const wxLogNull noMessages; // a file that cannot be read defines nothing
    const wxString file = configFile();
    wxString value;
    if (!wxFileName::FileExists(file) || !openConfig(file)->Read(keyOf(group, name), &value))
        return std::nullopt;
    return value;
}

// The program's files lie beside its own folder, in the build tree as in an installation.
wxString besideProgram(const wxString& folderName)
{
    wxFileName folder(wxStandardPaths::Get().GetExecutablePath());
    folder.SetFullName(wxString());
    folder.AppendDir("..");
    wxFileName beside(folder.GetPath() + "/" + folderName, wxString());
    beside.Normalize(wxPATH_NORM_DOTS | wxPATH_NORM_ABSOLUTE);
    return beside.GetPath();
}

// The first language of LANGUAGE that there is a catalogue for, where that is set: the toolkit
// gives LANG the preference. Else that of LANG, else English.
wxString preferredLanguage(wxTranslations& translations)
{
    const wxString catalogue = "pstyle";
    const wxArrayString available = translations.GetAvailableTranslations(catalogue);
    wxString languages;
    wxGetEnv("LANGUAGE", &languages);
    for (const wxString& name : wxSplit(languages, ':'))
    {
        const wxString language = name.BeforeFirst('.').BeforeFirst('@');
        if (available.Index(language) != wxNOT_FOUND ||
            available.Index(language.BeforeFirst('_')) != wxNOT_FOUND)
            return language;
    }
    const wxString byLocale =
        languages.empty() ? translations.GetBestTranslation(catalogue) : wxString();
    return available.Index(byLocale.BeforeFirst('_')) == wxNOT_FOUND ? wxString("en") : byLocale;
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
    return isPlotStylePath ? besideProgram(PSTYLE_SAMPLES_DIR) : wxString();
}

bool setString(ECfgGroup group, const wxString& name, const wxString& value)
{
    const wxLogNull noMessages; // the caller reports
    const wxFileName file(configFile());
    if (!file.DirExists() && !file.Mkdir(wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL))
        return false;
    const auto config = openConfig(file.GetFullPath());
    return config->Write(keyOf(group, name), value) && config->Flush();
}

void loadTranslations()
{
    // For the texts of the desktop's own dialogs. Numbers stay as they are: in the toolkit's hands.
    std::setlocale(LC_MESSAGES, "");
    auto* translations = new wxTranslations; // becomes the toolkit's
    wxTranslations::Set(translations);
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(besideProgram(PSTYLE_LOCALE_DIR));
    translations->SetLanguage(preferredLanguage(*translations));
    // The catalogue that is added last is asked first.
    translations->AddStdCatalog();
    translations->AddCatalog("pstyle");
}

} // namespace ut
