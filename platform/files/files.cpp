// Files in one step, by the system's own calls: only they bring a file to the disk, and only they
// know access lists.

#include "files/files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <linux/limits.h>
#include <linux/magic.h>
#include <optional>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/vfs.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace files
{
namespace
{

constexpr mode_t kPermissionBits = 0777;
constexpr mode_t kSpecialBits = 07000;
constexpr mode_t kGroupBits = 070;
constexpr mode_t kOtherBits = 07;
constexpr mode_t kOwnerBits = 0700;
constexpr mode_t kAnyWriteBit = 0222;
constexpr mode_t kNewFileMode = 0666; // less what the user's mask or the folder takes away

[[noreturn]] void fail(const char* step, const fs::path& path, int error)
{
    throw fs::filesystem_error(step, path, std::error_code(error, std::generic_category()));
}

/// An open file, closed at the end of its scope.
class Descriptor
{
public:
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const noexcept { return m_number; }
    /// @return whether closing reported no error; a late write error comes here
    bool close() noexcept
    {
        const int number = std::exchange(m_number, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int m_number;
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
            fail("rename", target, errno);
        m_path.clear();
    }

private:
    std::string m_path;
};

/// Where a path leads.
struct Target
{
    fs::path path; ///< the file, which need not exist, without symbolic links at its end
    /// Whether the path is a name that the system gives to what a process has open.
    bool isOpenFile = false;
};

fs::path folderOf(const fs::path& path)
{
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// Whether a link is one of those that stand for what a process has open: what they seem to lead to
/// is only the name that it had.
bool isOpenFileLink(const fs::path& link)
{
    struct statfs system = {};
    return ::statfs(folderOf(link).c_str(), &system) == 0 && system.f_type == PROC_SUPER_MAGIC &&
           folderOf(link).filename() == "fd";
}

Target targetOf(const fs::path& start)
{
    constexpr int kMostLinks = 40; // as many as the system follows
    Target target{start};
    for (int i = 0; i < kMostLinks; ++i)
    {
        std::error_code notALink;
        const fs::path next = fs::read_symlink(target.path, notALink);
        if (notALink)
            return target;
        // "/dev/fd" is itself a link.
        std::error_code unknown;
        const fs::path folder = fs::canonical(folderOf(target.path), unknown);
        if (!unknown && isOpenFileLink(folder / target.path.filename()))
            return {folder / target.path.filename(), true};
        target.path = folderOf(target.path) / next; // an absolute link replaces the whole path
    }
    fail("follow links", start, ELOOP);
}

Kind kindOf(const Target& target, struct stat& info)
{
    if (::stat(target.path.c_str(), &info) != 0)
        return Kind::Nothing;
    if (S_ISDIR(info.st_mode))
        return Kind::Folder;
    if (S_ISBLK(info.st_mode))
        return Kind::Disk;
    return S_ISREG(info.st_mode) && !target.isOpenFile ? Kind::File : Kind::Stream;
}

// --- Writing -----------------------------------------------------------------------------------

void writeAll(int descriptor, std::string_view bytes, const fs::path& path)
{
    while (!bytes.empty())
    {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno == EAGAIN)
        {
            pollfd room = {descriptor, POLLOUT, 0};
            ::poll(&room, 1, -1);
        }
        else if (errno != EINTR)
            fail("write", path, errno);
    }
}

/// Keeps the system from ending the process when it writes into a pipe that is closed at the other
/// end: for its scope, and for this thread alone.
class WithoutPipeSignal
{
public:
    WithoutPipeSignal()
    {
        sigemptyset(&m_pipe);
        sigaddset(&m_pipe, SIGPIPE);
        sigset_t pending;
        sigpending(&pending);
        m_wasPending = sigismember(&pending, SIGPIPE) == 1;
        pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    ~WithoutPipeSignal()
    {
        const timespec atOnce = {};
        if (!m_wasPending)
            (void)sigtimedwait(&m_pipe, nullptr, &atOnce);
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;

private:
    sigset_t m_pipe;
    sigset_t m_before;
    bool m_wasPending;
};

int connectTo(const fs::path& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof(address.sun_path))
        fail("connect", path, ENAMETOOLONG);
    path.native().copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor >= 0 &&
        ::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0)
        return descriptor;
    const int error = errno;
    ::close(descriptor);
    fail("connect", path, error);
}

/// Opens a pipe or device. A pipe needs a reader, who may come later than the writer.
int openStream(const fs::path& path, bool isPipe)
{
    constexpr std::chrono::seconds kPatience{3};
    constexpr int kPauseMilliseconds = 10;
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;)
    {
        const int descriptor =
            ::open(path.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (descriptor >= 0)
            return descriptor;
        if (errno != ENXIO || !isPipe || std::chrono::steady_clock::now() >= end)
            fail("open", path, errno);
        ::poll(nullptr, 0, kPauseMilliseconds);
    }
}

/// What this process has open itself is not opened anew: a socket cannot be, and a file would be
/// written from its beginning.
int duplicateOf(const fs::path& path)
{
    const std::string number = path.filename();
    const int descriptor = std::atoi(number.c_str());
    std::error_code unknown;
    const bool isOwn = fs::equivalent(path.parent_path(), "/proc/self/fd", unknown);
    return isOwn ? ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0) : -1;
}

void writeIntoStream(const Target& target, mode_t mode, std::string_view bytes)
{
    const int own = target.isOpenFile ? duplicateOf(target.path) : -1;
    Descriptor stream(own >= 0         ? own
                      : S_ISSOCK(mode) ? connectTo(target.path)
                                       : openStream(target.path, S_ISFIFO(mode)));
    const WithoutPipeSignal quiet;
    writeAll(stream.get(), bytes, target.path);
    if (!stream.close())
        fail("close", target.path, errno);
}

// --- Permissions -------------------------------------------------------------------------------

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr std::string_view kAnyAccessList = "system.posix_acl_";

/// The value of an attribute of a file. @return nothing where it has none
std::optional<std::string> attribute(const fs::path& path, const char* name)
{
    std::string value(XATTR_SIZE_MAX, '\0');
    const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
    if (size < 0)
        return std::nullopt;
    value.resize(static_cast<std::size_t>(size));
    return value;
}

std::vector<std::string> attributeNames(const fs::path& path)
{
    std::string list(XATTR_LIST_MAX, '\0');
    const ssize_t size = ::listxattr(path.c_str(), list.data(), list.size());
    std::vector<std::string> names;
    for (ssize_t i = 0; i < size; i += static_cast<ssize_t>(names.back().size()) + 1)
        names.emplace_back(list.data() + i);
    return names;
}

/// What an access list allows the owning group, as the group's bits of a mode. While there is a
/// list, those bits tell the most that anybody named in the list may have, which is more.
mode_t groupBitsOf(const std::string& accessList)
{
    // Four bytes of version, then entries of tag, permissions (two bytes each) and id (four); see
    // posix_acl_xattr.h of the Linux kernel. The least significant byte comes first.
    constexpr std::size_t kVersionSize = 4;
    constexpr std::size_t kEntrySize = 8;
    constexpr char kOwningGroup = 0x04;
    for (std::size_t i = kVersionSize; i + kEntrySize <= accessList.size(); i += kEntrySize)
        if (accessList[i] == kOwningGroup && accessList[i + 1] == 0)
            return static_cast<mode_t>(accessList[i + 2] & 07) << 3;
    return 0;
}

/// Gives a file the access list of another. @return whether it has that now
bool giveAccessList(int descriptor, const std::optional<std::string>& list)
{
    if (list)
        return ::fsetxattr(descriptor, kAccessList, list->data(), list->size(), 0) == 0;
    // The folder may have given it one.
    return ::fremovexattr(descriptor, kAccessList) == 0 || errno == ENODATA || errno == ENOTSUP;
}

/// Gives a file the owner, permissions, access list and attributes of another. Only a privileged
/// user may give a file away, so the owner stays where the system refuses; the group is tried by
/// itself then.
void giveTo(int descriptor, const fs::path& other, const struct stat& info)
{
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    const bool keepsOwner = ::fchown(descriptor, info.st_uid, info.st_gid) == 0;
    const bool keepsGroup = keepsOwner || ::fchown(descriptor, kSameOwner, info.st_gid) == 0;

    for (const std::string& name : attributeNames(other))
    {
        // What cannot be kept gives nobody access.
        const auto value =
            name.rfind(kAnyAccessList, 0) == 0 ? std::nullopt : attribute(other, name.c_str());
        if (value)
            (void)::fsetxattr(descriptor, name.c_str(), value->data(), value->size(), 0);
    }

    mode_t mode = info.st_mode & (kPermissionBits | (keepsOwner ? kSpecialBits : 0));
    const auto list = attribute(other, kAccessList);
    // Another group gets what it had as one of the others.
    if (!keepsGroup)
        mode &= ~kGroupBits | (mode & kOtherBits) << 3;
    const bool keepsList = giveAccessList(descriptor, keepsGroup ? list : std::nullopt);
    if (list && !(keepsGroup && keepsList))
        mode &= ~kGroupBits | groupBitsOf(*list);
    if (!list && !keepsList)
        mode &= ~kGroupBits;
    if (::fchmod(descriptor, mode) != 0)
        fail("set permissions", other, errno);
}

// --- Replacing ---------------------------------------------------------------------------------

/// Refuses a write that could not end well. A file that is read-only is not replaced, although the
/// folder would allow it, and root be able to; and the system may end a program without a word that
/// writes more into a file than it is allowed to.
void checkWritable(const fs::path& target, const struct stat* old, std::size_t size)
{
    if (old && (old->st_mode & kAnyWriteBit) == 0)
        fail("replace", target, EACCES);
    if (old && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        fail("replace", target, errno);
    struct rlimit limit = {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && size > limit.rlim_cur)
        fail("write", target, EFBIG);
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
    fail("create", folder, errno);
}

/// Brings the folder's new entry to the disk. Not every file system can, and the file has its new
/// contents already, so a failure is none of the save.
void syncFolder(const fs::path& folder)
{
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.get() >= 0)
        (void)::fsync(opened.get());
}

void replaceFile(const fs::path& target, const struct stat* old, std::string_view bytes)
{
    checkWritable(target, old, bytes.size());
    const fs::path folder = folderOf(target);
    std::string temporaryPath;
    // Nobody who may not read the old file may read the new one, not even for a moment.
    const mode_t mode = old ? old->st_mode & kOwnerBits : kNewFileMode;
    Descriptor file(createIn(folder, mode, temporaryPath));
    TemporaryName temporary(temporaryPath);
    if (old)
        giveTo(file.get(), target, *old);
    writeAll(file.get(), bytes, target);
    if (::fsync(file.get()) != 0)
        fail("synchronize", target, errno);
    if (!file.close())
        fail("close", target, errno);
    temporary.renameTo(target);
    syncFolder(folder);
}

} // namespace

std::string reasonOf(const fs::filesystem_error& failure)
{
    return failure.path1().native() + ": " + failure.code().message();
}

Kind kindOf(const std::string& path)
{
    struct stat info = {};
    return kindOf(targetOf(path), info);
}

std::string beginningOf(const std::string& path, std::size_t size)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    std::string bytes(size, '\0');
    const ssize_t count = file.get() < 0 ? -1 : ::read(file.get(), bytes.data(), size);
    if (count < 0)
        fail("read", path, errno);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

bool looksLikeText(std::string_view beginning)
{
    constexpr std::array<std::string_view, 2> kWideMarks = {"\xFF\xFE", "\xFE\xFF"};
    for (const std::string_view mark : kWideMarks)
        if (beginning.substr(0, mark.size()) == mark)
            return true;
    constexpr std::string_view kTextControls = "\t\n\v\f\r";
    return std::all_of(beginning.begin(), beginning.end(),
                       [&](char c)
                       {
                           const bool isControl = static_cast<unsigned char>(c) < ' ';
                           return !isControl || kTextControls.find(c) != std::string_view::npos;
                       });
}

void replace(const std::string& path, std::string_view bytes)
{
    const Target target = targetOf(path);
    struct stat info = {};
    switch (kindOf(target, info))
    {
    case Kind::Folder:
        fail("replace", target.path, EISDIR);
    case Kind::Disk:
        fail("replace", target.path, EPERM);
    case Kind::Stream:
        return writeIntoStream(target, info.st_mode, bytes);
    case Kind::File:
        return replaceFile(target.path, &info, bytes);
    case Kind::Nothing:
        return replaceFile(target.path, nullptr, bytes);
    }
}

std::string keepAside(const std::string& path, const std::string& remark)
{
    constexpr int kMostTries = 1000;
    constexpr std::size_t kLongestName = 255; // bytes, on the usual file systems
    const fs::path file = targetOf(path).path;
    const std::string extension = file.extension();
    for (int i = 1; i <= kMostTries; ++i)
    {
        const std::string end = (i > 1 ? remark + " " + std::to_string(i) : remark) + extension;
        std::string stem = file.stem();
        stem.resize(std::min(stem.size(), kLongestName - std::min(kLongestName, end.size())));
        while (!stem.empty() && stem.size() + end.size() == kLongestName && (stem.back() & 0x80))
            stem.pop_back(); // a letter that may have been cut
        const fs::path kept = folderOf(file) / (stem + end);
        if (::link(file.c_str(), kept.c_str()) == 0)
            return kept;
        std::error_code failure(errno, std::generic_category());
        if (failure == std::errc::file_exists)
            continue;
        if (fs::copy_file(file, kept, failure))
            return kept;
        if (failure == std::errc::file_exists)
            continue;
        ::unlink(kept.c_str()); // a part of a copy
        fail("keep", kept, failure.value());
    }
    fail("keep", file, EEXIST);
}

} // namespace files
