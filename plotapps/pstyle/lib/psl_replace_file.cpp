// A temporary file beside the old one, and a rename.

#include "psl_replace_file.h"

#include <wx/file.h>
#include <wx/filename.h>
#include <wx/log.h>

#include <filesystem>

namespace
{

namespace fs = std::filesystem;

bool writeAndRename(const wxString& path, const void* data, size_t size)
{
    wxFile file;
    const wxString temporary = wxFileName::CreateTempFileName(path, &file);
    if (temporary.empty())
        return false;
    std::error_code failure;
    fs::permissions(temporary.utf8_string(), fs::status(path.utf8_string()).permissions(), failure);
    if (file.Write(data, size) == size && file.Flush() && file.Close())
        fs::rename(temporary.utf8_string(), path.utf8_string(), failure);
    else
        failure = std::make_error_code(std::errc::io_error);
    if (failure)
        wxRemoveFile(temporary);
    return !failure;
}

} // namespace

bool replaceFile(const wxString& path, const void* data, size_t size)
{
    const wxLogNull noMessages; // the caller reports
    const bool isNew = !wxFileName::Exists(path);
    // With the permissions that the user's new files have.
    if (isNew && !wxFile().Create(path))
        return false;
    const bool isWritten = writeAndRename(path, data, size);
    if (isNew && !isWritten)
        wxRemoveFile(path);
    return isWritten;
}
