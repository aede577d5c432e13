// Versions of a file, told apart by their bytes.

#include "psl_disk_version.h"

#include "files/files.h"

#include <wx/datetime.h>
#include <wx/filename.h>
#include <wx/intl.h>

#include <array>
#include <filesystem>
#include <fstream>

namespace
{

// FNV-1a with 64 bits, by Fowler, Noll and Vo.
constexpr std::uint64_t firstHash = 0xCBF29CE484222325;
constexpr std::uint64_t hashPrime = 0x100000001B3;
// A table is never as long; of a longer file the beginning is looked at.
constexpr std::int64_t mostRead = std::int64_t{32} << 20;

} // namespace

DiskVersion::DiskVersion(const wxString& path)
{
    const std::string name = path.utf8_string();
    if (files::kindOf(name) != files::Kind::File)
        return;
    std::ifstream file(name, std::ios::binary);
    std::array<char, 65536> part;
    m_hash = firstHash;
    m_size = 0;
    while (m_size < mostRead && (file.read(part.data(), part.size()) || file.gcount() > 0))
    {
        for (std::streamsize i = 0; i < file.gcount(); ++i)
            m_hash =
                (m_hash ^ static_cast<unsigned char>(part[static_cast<size_t>(i)])) * hashPrime;
        m_size += file.gcount();
    }
    std::error_code unknown;
    const auto wholeSize = std::filesystem::file_size(name, unknown);
    if (!unknown)
        m_size = static_cast<std::int64_t>(wholeSize);
}

bool DiskVersion::operator==(const DiskVersion& other) const
{
    return m_size == other.m_size && m_hash == other.m_hash;
}

wxString keepDiskVersion(const wxString& path)
{
    const wxString changed = wxFileName(path).GetModificationTime().Format("%Y-%m-%d %H-%M-%S");
    const wxString remark = wxString::Format(_(" (changed on disk %s)"), changed);
    return wxString::FromUTF8(files::keepAside(path.utf8_string(), remark.utf8_string()));
}
