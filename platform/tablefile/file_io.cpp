// Whole files in and out, by the system's own calls: only they tell a pipe from a file before it
// is opened for good, and only they bring a file to the disk.

#include "tablefile/file_io.h"

#include "tablefile/error.h"
#include "tablefile/limits.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tablefile
{
namespace
{

namespace fs = std::filesystem;

constexpr mode_t kPermissionBits = 07777;
constexpr mode_t kNewFileMode = 0666; // less what the user's mask takes away

[[noreturn]] void failRead(const std::string& why)
{
    throw Error{Status::CannotRead, 0, why};
}

[[noreturn]] void failWrite(const char* step, int error)
{
    throw Error{Status::CannotWrite, 0,
                std::string(step) + ": " + std::generic_category().message(error)};
}

/// An open file, closed at the end of its scope.
class File
{
public:
    explicit File(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int get() const noexcept { return m_descriptor; }
    /// @return whether closing reported no error; a late write error comes here
    bool close() noexcept
    {
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        return descriptor < 0 || ::close(descriptor) == 0;
    }

private:
    int m_descriptor;
};

/// Removes a file at the end of its scope unless it has got another name by then.
class TemporaryName
{
public:
    explicit TemporaryName(std::string path)
        : m_path(std::move(path))
    {
    }
    ~TemporaryName()
    {
        if (!m_path.empty())
            ::unlink(m_path.c_str());
    }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;

    void renameTo(const fs::path& target)
    {
        if (::rename(m_path.c_str(), target.c_str()) != 0)
            failWrite("rename", errno);
        m_path.clear();
    }

private:
    std::string m_path;
};

/// Refuses a write that could not end well. A file that its owner has made read-only is not
/// replaced, although the folder would allow it; and the system may end a program without a word
/// that writes more into a file than it is allowed to.
void checkWritable(const fs::path& target, bool exists, std::size_t size)
{
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        failWrite("replace", errno);
    struct rlimit limit = {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && size > limit.rlim_cur)
        failWrite("write", EFBIG);
}

/// Reads until the buffer is full or the file ends. @return the number of bytes
std::size_t readAll(int descriptor, char* data, std::size_t size)
{
    std::size_t done = 0;
    while (done < size)
    {
        const ssize_t count = ::read(descriptor, data + done, size - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            failRead(std::generic_category().message(errno));
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

void writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            failWrite("write", errno);
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// Follows symbolic links to the file that a path means, which need not exist.
fs::path linkTarget(fs::path path)
{
    constexpr int kMostLinks = 40; // as many as the system follows
    for (int i = 0; i < kMostLinks; ++i)
    {
        std::error_code notALink;
        const fs::path next = fs::read_symlink(path, notALink);
        if (notALink)
            return path;
        path = path.parent_path() / next; // an absolute link replaces the whole path
    }
    failWrite("follow links", ELOOP);
}

/// Creates a file of a new name in a folder. @param path takes the name
int createIn(const fs::path& folder, mode_t mode, std::string& path)
{
    constexpr int kMostTries = 1000;
    const fs::path base = folder / (".pstyle-" + std::to_string(::getpid()) + "-");
    for (int i = 0; i < kMostTries; ++i)
    {
        path = base.native() + std::to_string(i);
        const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor >= 0)
            return descriptor;
        if (errno != EEXIST)
            break;
    }
    failWrite("create", errno);
}

/// Gives a file the owner and the permission bits of another. Only a privileged user may give a
/// file away, so the owner stays where the system refuses; the group is tried by itself then.
void giveTo(int descriptor, const struct stat& other)
{
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    const bool isGiven = ::fchown(descriptor, other.st_uid, other.st_gid) == 0 ||
                         ::fchown(descriptor, kSameOwner, other.st_gid) == 0;
    (void)isGiven;
    if (::fchmod(descriptor, other.st_mode & kPermissionBits) != 0)
        failWrite("set permissions", errno);
}

/// Brings the folder's new entry to the disk. Not every file system can, and the file has its new
/// contents already, so a failure is none of the save.
void syncFolder(const fs::path& folder)
{
    const File opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.get() >= 0)
        (void)::fsync(opened.get());
}

} // namespace

Buffer readFile(const std::string& path)
{
    // A pipe without a writer would block otherwise.
    const File file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat info = {};
    if (file.get() < 0 || ::fstat(file.get(), &info) != 0)
        failRead(std::generic_category().message(errno));
    if (!S_ISREG(info.st_mode))
        failRead("not a regular file");
    if (static_cast<std::uintmax_t>(info.st_size) > kMaxFile)
        throw Error{Status::TooLarge, kMaxFile, "the file is too large"};
    Buffer bytes(static_cast<std::size_t>(info.st_size));
    bytes.shrink(readAll(file.get(), bytes.data(), bytes.size()));
    return bytes;
}

void replaceFile(const std::string& path, std::string_view bytes)
{
    const fs::path target = linkTarget(path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        failWrite("replace", EISDIR);
    checkWritable(target, exists, bytes.size());

    std::string temporaryPath;
    // Nobody who may not read the old file may read the new one, not even for a moment.
    const mode_t mode = exists ? old.st_mode & kPermissionBits : kNewFileMode;
    File file(createIn(folder, mode, temporaryPath));
    TemporaryName temporary(temporaryPath);
    if (exists)
        giveTo(file.get(), old);
    writeAll(file.get(), bytes);
    if (::fsync(file.get()) != 0)
        failWrite("synchronize", errno);
    if (!file.close())
        failWrite("close", errno);
    temporary.renameTo(target);
    syncFolder(folder);
}

} // namespace tablefile
