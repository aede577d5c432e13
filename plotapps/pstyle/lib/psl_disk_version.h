// Noticing that a file has been changed by others.

#ifndef PSL_DISK_VERSION_H
#define PSL_DISK_VERSION_H

#include <wx/string.h>

#include <cstdint>
#include <optional>

/// What a file held at some moment; also that there was none. Two versions are equal when the file
/// was left alone in between or holds the same bytes again.
class DiskVersion
{
public:
    /// No file.
    DiskVersion() = default;
    /// What a file holds now. @param path  its full path
    explicit DiskVersion(const wxString& path);

    bool isFile() const { return m_size.has_value(); }
    bool operator==(const DiskVersion& other) const;
    bool operator!=(const DiskVersion& other) const { return !(*this == other); }

private:
    std::optional<std::uintmax_t> m_size; // none where there is no file
    std::size_t m_hash = 0;               // of the bytes
};

/// Gives what a file holds now a second name beside it that tells when it was last changed.
/// @return the second name, with its folder
/// @throw std::filesystem::filesystem_error when that cannot be done
wxString keepDiskVersion(const wxString& path);

#endif
