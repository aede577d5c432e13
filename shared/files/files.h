// The one way in which files are written.

#ifndef FILES_FILES_H
#define FILES_FILES_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

/// Every function takes a path in the system's own encoding and leaves its links and its ".." to
/// the system. What fails is reported as a std::filesystem::filesystem_error, which tells the path
/// that is to blame and the system's reason.
namespace files
{

/// A failure of writing itself: the disk is full, for instance, or the file would be too large.
struct WriteError : std::filesystem::filesystem_error
{
    using filesystem_error::filesystem_error;
};

/// The system's reason, with the path to blame before it. @param named  the path that the user
/// knows of, which is left out
std::string reasonOf(const std::filesystem::filesystem_error& failure, const std::string& named);

/// What a path leads to, behind all symbolic links.
enum class Kind
{
    Nothing,
    File, ///< a regular file
    Folder,
    Stream, ///< a pipe, a socket, a character device, or what a process has open (/dev/stdout)
    Disk,   ///< a block device, which is never written to
};

/// Never fails: what cannot be reached is nothing.
Kind kindOf(const std::string& path);

/// Reads from an open file until the buffer is full or the file ends. @param path  for a failure
/// @return the number of bytes
std::size_t readAll(int descriptor, char* data, std::size_t size, const std::string& path);

/// The first bytes of a regular file; fewer when the file is shorter.
std::string beginningOf(const std::string& path, std::size_t size);

/// Whether a file that begins like this may be a text: it has no NUL, or a byte-order mark, and
/// does not begin like one of the usual other kinds of file.
bool looksLikeText(std::string_view beginning);

/// Writes a file in one step: a file of the same folder is written, brought to the disk, and then
/// takes the place of the old one. It gets the owner, the permissions (without the bits that run a
/// program as somebody else), the access list and the attributes of the old file; where one of them
/// cannot be kept, nobody gets more access than before. A symbolic link stays, and what it leads to
/// is replaced, unless somebody else has put the link where everybody may. A read-only file is not
/// replaced, and neither is a folder or a block device. After a failure the old file is as it was.
/// A process that is killed on the way may leave the file behind that it was writing,
/// ".pstyle-<process>-<number>"; nothing else ever stays.
///
/// A stream is written to instead. A pipe that nobody opens for reading fails after three seconds,
/// and a stream that is opened by its name and that nobody reads from after ten.
void replace(const std::string& path, std::string_view bytes);

/// Gives what a file holds now a second name beside it, so that a replacement of the file does not
/// lose it. Nothing is copied where the file system has hard links.
/// @param remark  goes before the extension: "a.ctb" and " (old)" give "a (old).ctb"; if there is
///                such a file already, "a (old) 2.ctb", and so on
/// @return the second name, with its folder, which is that of the file behind symbolic links
std::string keepAside(const std::string& path, const std::string& remark);

} // namespace files

#endif
