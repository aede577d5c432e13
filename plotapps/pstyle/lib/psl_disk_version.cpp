// Versions of a file, told apart by their bytes.

#include "psl_disk_version.h"

#include "psl_path_text.h"

#include "files/files.h"

#include <wx/datetime.h>
#include <wx/filename.h>
#include <wx/intl.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>

namespace
{

// A table is never as long; of a longer file the beginning is looked at.
constexpr std::uintmax_t mostRead = std::uintmax_t{32} << 20;

} // namespace

DiskVersion::DiskVersion(const wxString& path)
{
    const std::string name = systemPath(path);
    if (files::kindOf(name) != files::Kind::File)
        return;
    try
    {
        m_size = std::filesystem::file_size(name);
        m_hash = std::hash<std::string>()(files::beginningOf(name, std::min(*m_size, mostRead)));
    }
    catch (const std::filesystem::filesystem_error&)
    {
        // A file that cannot be read is like any other such file of its size.
        m_size = m_size.value_or(0);
    }
}

bool DiskVersion::operator==(const DiskVersion& other) const
{
    return m_size == other.m_size && m_hash == other.m_hash;
}

wxString keepDiskVersion(const wxString& path)
{
    const wxString changed = wxFileName(path).GetModificationTime().Format("%Y-%m-%d %H-%M-%S");
    const wxString remark = wxString::Format(_(" (changed on disk %s)"), changed);
    return systemText(files::keepAside(systemPath(path), remark.utf8_string()));
}
