// Where the host's configuration values and texts come from.

#include "util/ut.h"

#include "files/files.h"

#include <wx/arrstr.h>
#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/sstream.h>
#include <wx/stdpaths.h>
#include <wx/translation.h>
#include <wx/utils.h>

#include <clocale>
#include <filesystem>
#include <libintl.h>
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

/// Notes whether the toolkit finds fault with a file while this lives, be it by a message or by an
/// assertion that fails.
class FaultFinder : private wxLog
{
public:
    FaultFinder()
        : m_log(wxLog::SetActiveTarget(this))
        , m_assertHandler(wxSetAssertHandler(onAssert))
    {
        s_hasFound = false;
    }
    ~FaultFinder() override
    {
        wxSetAssertHandler(m_assertHandler);
        wxLog::SetActiveTarget(m_log);
    }
    FaultFinder(const FaultFinder&) = delete;
    FaultFinder& operator=(const FaultFinder&) = delete;

    bool hasFound() const { return s_hasFound; }

private:
    void DoLogRecord(wxLogLevel level, const wxString&, const wxLogRecordInfo&) override
    {
        s_hasFound = s_hasFound || level <= wxLOG_Warning;
    }
    static void onAssert(const wxString&, int, const wxString&, const wxString&, const wxString&)
    {
        s_hasFound = true;
    }

    inline static bool s_hasFound = false;
    wxLog* m_log;
    wxAssertHandler_t m_assertHandler;
};

std::unique_ptr<wxFileConfig> configOf(const std::string& bytes)
{
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    auto config = std::make_unique<wxFileConfig>(stream);
    // A value is what it says: a folder may have a $ in its name.
    config->SetExpandEnvVars(false);
    return config;
}

struct Config
{
    std::unique_ptr<wxFileConfig> values;
    bool isDamaged = false;
};

/// Reads a configuration file; what is no file is empty.
/// @throw std::filesystem::filesystem_error when it cannot be read
Config readConfig(const wxString& file)
{
    constexpr size_t mostRead = 1 << 20;
    const std::string path = file.utf8_string();
    const std::string bytes = files::kindOf(path) == files::Kind::File
                                  ? files::beginningOf(path, mostRead)
                                  : std::string();
    Config config;
    const FaultFinder faults;
    config.values = configOf(bytes);
    config.isDamaged =
        faults.hasFound() || bytes.find('\0') != std::string::npos || bytes.size() == mostRead;
    return config;
}

/// Writes the configuration. @param isDamaged  whether the old one is kept under another name
/// @throw std::filesystem::filesystem_error when that fails; then nothing has changed
void replaceConfig(const std::string& path, const std::string& text, bool isDamaged)
{
    const std::string kept =
        isDamaged ? files::keepAside(path, _(" (damaged)").utf8_string()) : std::string();
    try
    {
        files::replace(path, text);
    }
    catch (...)
    {
        if (!kept.empty())
            std::filesystem::remove(kept);
        throw;
    }
    if (!kept.empty())
        wxLogWarning(_("The damaged configuration file was kept as '%s'."),
                     wxString::FromUTF8(kept));
}

/// Tells the user once that the configuration is not used.
void warnOfConfig(const wxString& file, const wxString& reason)
{
    static bool isSaid = false;
    if (!isSaid)
        wxLogWarning(_("The configuration file '%s' is not used: %s"), file, reason);
    isSaid = true;
}

std::optional<wxString> configured(ECfgGroup group, const wxString& name)
{
    const wxString file = configFile();
    try
    {
        const Config config = readConfig(file);
        wxString value;
        if (config.isDamaged)
            warnOfConfig(file, _("it is damaged"));
        else if (config.values->Read(keyOf(group, name), &value))
            return value;
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        warnOfConfig(file, wxString::FromUTF8(files::reasonOf(error, file.utf8_string())));
    }
    return std::nullopt;
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
    const bool isPlotStylePath = group == ECfgGroup(6) && name == "PlotStylePath";
    wxString value;
    if (isPlotStylePath && wxGetEnv("PSTYLE_PLOT_STYLE_PATH", &value))
        return value;
    if (const auto fromFile = configured(group, name))
        return *fromFile;
    return isPlotStylePath ? besideProgram(PSTYLE_SAMPLES_DIR) : wxString();
}

bool setString(ECfgGroup group, const wxString& name, const wxString& value)
{
    const wxFileName file(configFile());
    const std::string path = file.GetFullPath().utf8_string();
    try
    {
        std::filesystem::create_directories(file.GetPath().utf8_string());
        const files::Kind kind = files::kindOf(path);
        if (kind != files::Kind::Nothing && kind != files::Kind::File)
        {
            wxLogError(_("%s is not a file"), file.GetFullPath());
            return false;
        }
        Config config = readConfig(file.GetFullPath());
        if (config.isDamaged)
            config.values = configOf(std::string());
        wxStringOutputStream text;
        wxString written;
        config.values->Write(keyOf(group, name), value);
        // A key may have been made immutable, by an exclamation mark before it.
        if (!config.values->Read(keyOf(group, name), &written) || written != value ||
            !config.values->Save(text))
            return false;
        replaceConfig(path, text.GetString().utf8_string(), config.isDamaged);
        return true;
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        wxLogError("%s", wxString::FromUTF8(files::reasonOf(error, std::string())));
        return false;
    }
}

void loadTranslations()
{
    // For the texts of the desktop's own dialogs. Numbers stay as they are: in the toolkit's hands.
    std::setlocale(LC_MESSAGES, "");
    // The system's own reasons come in the encoding of all other texts.
    bind_textdomain_codeset("libc", "UTF-8");
    auto* translations = new wxTranslations; // becomes the toolkit's
    wxTranslations::Set(translations);
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(besideProgram(PSTYLE_LOCALE_DIR));
    translations->SetLanguage(preferredLanguage(*translations));
    // The catalogue that is added last is asked first.
    translations->AddStdCatalog();
    translations->AddCatalog("pstyle");
}

} // namespace ut
