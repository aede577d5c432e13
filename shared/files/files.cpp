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
#include <functional>
#include <linux/limits.h>
#include <linux/magic.h>
#include <optional>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
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
constexpr mode_t kGroupBits = 070;
constexpr mode_t kOtherBits = 07;
constexpr mode_t kOwnerBits = 0700;
constexpr mode_t kAnyWriteBit = 0222;
constexpr mode_t kNewFileMode = 0666; // less what the user's mask or the folder takes away

std::error_code codeOf(int error)
{
    return {error, std::generic_category()};
}

[[noreturn]] void fail(const char* step, const fs::path& path, int error)
{
    throw fs::filesystem_error(step, path, codeOf(error));
}

[[noreturn]] void failWrite(const char* step, const fs::path& path, int error)
{
    throw WriteError(step, path, codeOf(error));
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
    int release() noexcept { return std::exchange(m_number, -1); }
    /// @return whether closing reported no error; a late write error comes here
    bool close() noexcept
    {
        const int number = release();
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

    const char* get() const noexcept { return m_path.c_str(); }
    /// The file has got another name.
    void release() noexcept { m_path.clear(); }

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

/// Refuses to follow a link that somebody else has put into a folder where everybody may put files:
/// as the system does where it is told to (fs.protected_symlinks), which never sees us follow it.
void checkLink(const fs::path& link)
{
    struct stat own = {};
    struct stat folder = {};
    const bool isKnown =
        ::lstat(link.c_str(), &own) == 0 && ::stat(folderOf(link).c_str(), &folder) == 0;
    const bool isForAll = (folder.st_mode & S_ISVTX) != 0 && (folder.st_mode & S_IWOTH) != 0;
    if (isKnown && isForAll && own.st_uid != ::geteuid() && own.st_uid != folder.st_uid)
        fail("follow links", link, EACCES);
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
        checkLink(target.path);
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

using Clock = std::chrono::steady_clock;
constexpr std::chrono::seconds kPatience{3};

void writeAll(int descriptor, std::string_view bytes, const fs::path& path)
{
    constexpr int kLongestPause = 10000; // milliseconds without a byte that is taken
    while (!bytes.empty())
    {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (errno == EAGAIN)
        {
            pollfd room = {descriptor, POLLOUT, 0};
            if (::poll(&room, 1, kLongestPause) == 0)
                failWrite("write", path, ETIMEDOUT);
        }
        else if (errno != EINTR)
            failWrite("write", path, errno);
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
        sigset_t pending = {};
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

/// Takes a step again and again while it fails with an error that may pass.
/// @return what the step returns when it is not negative @throw when patience ends
int patiently(const std::function<int()>& step, int passingError, const fs::path& path)
{
    constexpr int kPauseMilliseconds = 10;
    const Clock::time_point end = Clock::now() + kPatience;
    for (;;)
    {
        const int result = step();
        if (result >= 0)
            return result;
        if (errno != passingError || Clock::now() >= end)
            fail("open", path, errno);
        ::poll(nullptr, 0, kPauseMilliseconds);
    }
}

int connectTo(const fs::path& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.native().size() >= sizeof(address.sun_path))
        fail("open", path, ENAMETOOLONG);
    path.native().copy(address.sun_path, sizeof(address.sun_path) - 1);
    Descriptor connection(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const auto connect = [&]
    {
        return ::connect(connection.get(), reinterpret_cast<const sockaddr*>(&address),
                         sizeof(address));
    };
    patiently(connect, EAGAIN, path);
    return connection.release();
}

/// Opens a pipe or device. A pipe needs a reader, who may come later than the writer.
int openStream(const fs::path& path, bool isPipe)
{
    const auto open = [&path]
    { return ::open(path.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); };
    return patiently(open, isPipe ? ENXIO : 0, path);
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
        failWrite("close", target.path, errno);
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

/// An entry of an access list, as it is stored; see posix_acl_xattr.h of the Linux kernel. Numbers
/// are stored with the least significant byte first, which is that of the systems we run on.
struct AccessEntry
{
    enum Tag : std::uint16_t
    {
        Owner = 0x01,
        User = 0x02,
        OwningGroup = 0x04,
        Group = 0x08,
        Mask = 0x10,
        Others = 0x20,
    };

    std::uint16_t tag;
    std::uint16_t permissions; // three bits, as those of a mode
    std::uint32_t id;
};

constexpr std::size_t kListVersionSize = 4;

std::vector<AccessEntry> entriesOf(const std::string& list)
{
    std::vector<AccessEntry> entries((list.size() - std::min(list.size(), kListVersionSize)) /
                                     sizeof(AccessEntry));
    std::memcpy(entries.data(), list.data() + kListVersionSize,
                entries.size() * sizeof(AccessEntry));
    return entries;
}

/// Who has what: the three classes of a mode, and the named users and groups.
class Access
{
public:
    Access(mode_t mode, const std::optional<std::string>& list)
        : m_mode(mode)
    {
        if (!list)
            return;
        m_version = list->substr(0, kListVersionSize);
        m_entries = entriesOf(*list);
    }

    bool hasList() const { return !m_entries.empty(); }

    /// Gives the classes of a file that has got another owner, another group, or both, no more than
    /// their members had. With a list, the old ones become entries of their own. The new owner gets
    /// what he needs to save again: he may set permissions anyway.
    void takeFrom(std::optional<uid_t> oldOwner, std::optional<gid_t> oldGroup)
    {
        const mode_t ownersPermissions = m_mode >> 6 & kOtherBits;
        if (hasList())
            applyMask();
        if (oldOwner && hasList())
        {
            add(AccessEntry::User, *oldOwner).permissions = bitsOf(ownersPermissions);
            widenMask(ownersPermissions);
        }
        else if (oldOwner) // who is among the group or the others now
            m_mode &= kOwnerBits | ownersPermissions << 3 | ownersPermissions;
        if (oldGroup && hasList())
        {
            add(AccessEntry::Group, *oldGroup).permissions |= find(AccessEntry::OwningGroup);
            limitOwningGroup();
        }
        else if (oldGroup)
        {
            // The old group's members are among the others now, and others are in the new group.
            const mode_t both = (m_mode >> 3) & m_mode & kOtherBits;
            m_mode = (m_mode & kOwnerBits) | both << 3 | both;
        }
        if (oldOwner)
            setOwner(ownersPermissions | kReadAndWrite);
    }

    /// The mode without a list: the named users and groups fall among the group or the others, who
    /// get no more than any of them had.
    mode_t modeWithoutList() const
    {
        mode_t least = hasList() ? kOtherBits : (m_mode >> 3) & kOtherBits;
        for (const AccessEntry& entry : m_entries)
            if (entry.tag != AccessEntry::Owner && entry.tag != AccessEntry::Others)
                least &= entry.permissions;
        const mode_t others = hasList() ? m_mode & least : m_mode & kOtherBits;
        return (m_mode & ~(kGroupBits | kOtherBits)) | least << 3 | others;
    }

    mode_t mode() const { return m_mode; }

    std::string list() const
    {
        std::string bytes = m_version;
        bytes.append(reinterpret_cast<const char*>(m_entries.data()),
                     m_entries.size() * sizeof(AccessEntry));
        return bytes;
    }

private:
    static constexpr mode_t kReadAndWrite = 06;

    static std::uint16_t bitsOf(mode_t permissions)
    {
        return static_cast<std::uint16_t>(permissions & kOtherBits);
    }

    /// The permissions of the first entry of a kind.
    std::uint16_t find(AccessEntry::Tag tag) const
    {
        const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                        [tag](const AccessEntry& e) { return e.tag == tag; });
        return found == m_entries.end() ? std::uint16_t{0} : found->permissions;
    }

    static bool isMasked(const AccessEntry& entry)
    {
        return entry.tag == AccessEntry::User || entry.tag == AccessEntry::OwningGroup ||
               entry.tag == AccessEntry::Group;
    }

    /// Takes from every entry what the mask keeps from it.
    void applyMask()
    {
        const std::uint16_t mask = bitsOf(m_mode >> 3);
        for (AccessEntry& entry : m_entries)
            if (isMasked(entry))
                entry.permissions &= mask;
    }

    void widenMask(mode_t permissions)
    {
        m_mode |= permissions << 3; // while there is a list, the group's bits are the mask
        for (AccessEntry& entry : m_entries)
            if (entry.tag == AccessEntry::Mask)
                entry.permissions |= bitsOf(permissions);
    }

    /// Gives the owning group, which is another now, no more than the others and every named group
    /// have: its members may be in any of them.
    void limitOwningGroup()
    {
        std::uint16_t most = find(AccessEntry::Others);
        for (const AccessEntry& entry : m_entries)
            if (entry.tag == AccessEntry::Group)
                most &= entry.permissions;
        for (AccessEntry& entry : m_entries)
            if (entry.tag == AccessEntry::OwningGroup)
                entry.permissions &= most;
    }

    void setOwner(mode_t permissions)
    {
        m_mode = (m_mode & ~kOwnerBits) | permissions << 6;
        for (AccessEntry& entry : m_entries)
            if (entry.tag == AccessEntry::Owner)
                entry.permissions = bitsOf(permissions);
    }

    /// The entry of a user or group; a new one without permissions, behind those of its kind, where
    /// the list has none.
    AccessEntry& add(AccessEntry::Tag tag, std::uint32_t id)
    {
        const auto found =
            std::find_if(m_entries.begin(), m_entries.end(),
                         [=](const AccessEntry& e) { return e.tag == tag && e.id == id; });
        if (found != m_entries.end())
            return *found;
        const auto behind = std::find_if(m_entries.begin(), m_entries.end(),
                                         [tag](const AccessEntry& e) { return e.tag > tag; });
        return *m_entries.insert(behind, {tag, 0, id});
    }

    mode_t m_mode;
    std::string m_version;
    std::vector<AccessEntry> m_entries; // none where there is no list
};

bool setList(int descriptor, const std::string& list)
{
    return ::fsetxattr(descriptor, kAccessList, list.data(), list.size(), 0) == 0;
}

/// Takes away the list that a file's folder has given it. @return whether it has none now
bool removeList(int descriptor)
{
    return ::fremovexattr(descriptor, kAccessList) == 0 || errno == ENODATA || errno == ENOTSUP;
}

/// The access list of a file. @return nothing where it has none @throw when that is not known
std::optional<std::string> accessListOf(const fs::path& path)
{
    auto list = attribute(path, kAccessList);
    if (!list && errno != ENODATA && errno != ENOTSUP)
        fail("look at", path, errno);
    return list;
}

/// Sets the permissions of a file. Some shares know none; then it must be allowed no more anyway.
void giveMode(int descriptor, mode_t mode, const fs::path& path)
{
    if (::fchmod(descriptor, mode) == 0)
        return;
    const int error = errno;
    struct stat info = {};
    if (::fstat(descriptor, &info) != 0 || (info.st_mode & kPermissionBits & ~mode) != 0)
        fail("set permissions", path, error);
}

/// Gives a file, which only its owner may use yet, the owner, permissions, access list and
/// attributes of another. Only a privileged user may give a file away, so the owner stays where the
/// system refuses; the group is tried by itself then. Nobody gets more access than before.
void giveTo(int descriptor, const fs::path& other, const struct stat& info)
{
    constexpr auto kSameOwner = static_cast<uid_t>(-1);
    const bool isGiven = ::fchown(descriptor, info.st_uid, info.st_gid) == 0 ||
                         ::fchown(descriptor, kSameOwner, info.st_gid) == 0;
    (void)isGiven; // what came of it is looked at
    struct stat now = {};
    if (::fstat(descriptor, &now) != 0)
        fail("look at", other, errno);

    // An attribute that cannot be set is lost. Those of users permit nothing; those of the system
    // are the folder's then, as for every new file.
    for (const std::string& name : attributeNames(other))
    {
        const auto value =
            name.rfind(kAnyAccessList, 0) == 0 ? std::nullopt : attribute(other, name.c_str());
        if (value)
            (void)::fsetxattr(descriptor, name.c_str(), value->data(), value->size(), 0);
    }

    Access access(info.st_mode & kPermissionBits, accessListOf(other));
    access.takeFrom(now.st_uid == info.st_uid ? std::nullopt : std::optional(info.st_uid),
                    now.st_gid == info.st_gid ? std::nullopt : std::optional(info.st_gid));
    const bool hasItsList = access.hasList() && setList(descriptor, access.list());
    const bool hasNone = !hasItsList && removeList(descriptor);
    mode_t mode = hasItsList ? access.mode() : access.modeWithoutList();
    if (!hasItsList && !hasNone)
        mode &= ~kGroupBits; // the folder's list stays, and the group's bits are its mask
    giveMode(descriptor, mode, other);
}

// --- Replacing ---------------------------------------------------------------------------------

/// Refuses a write that could not end well. A read-only file is not replaced, although the folder
/// may allow it, and root may do anything. The system may end a program without a word that writes
/// more into a file than it is allowed to.
void checkWritable(const fs::path& target, const struct stat* old, std::size_t size)
{
    if (old && (old->st_mode & kAnyWriteBit) == 0)
        fail("replace", target, EACCES);
    if (old && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        fail("replace", target, errno);
    struct rlimit limit = {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && size > limit.rlim_cur)
        failWrite("write", target, EFBIG);
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
/// contents already, so that a failure does not make the save fail.
void syncFolder(const fs::path& folder)
{
    const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened.get() >= 0)
        (void)::fsync(opened.get());
}

/// Writes a new file of a temporary name into a folder. @param old  what it is to be like; null for
/// nothing @param target  for messages
std::string writeBeside(const fs::path& target, const struct stat* old, std::string_view bytes)
{
    std::string path;
    // Nobody who may not read the old file may read the new one, not even for a moment.
    constexpr mode_t kOwnersOnly = 0600;
    Descriptor file(createIn(folderOf(target), old ? kOwnersOnly : kNewFileMode, path));
    TemporaryName temporary(path);
    if (old)
        giveTo(file.get(), target, *old);
    writeAll(file.get(), bytes, target);
    if (::fsync(file.get()) != 0)
        failWrite("synchronize", target, errno);
    if (!file.close())
        failWrite("close", target, errno);
    temporary.release();
    return path;
}

void replaceFile(const fs::path& target, const struct stat* old, std::string_view bytes)
{
    checkWritable(target, old, bytes.size());
    TemporaryName temporary(writeBeside(target, old, bytes));
    if (::rename(temporary.get(), target.c_str()) != 0)
        fail("rename", target, errno);
    temporary.release();
    syncFolder(folderOf(target));
}

/// Copies a file to a name that must be free. @return 0, or the error
int copyTo(const fs::path& file, const fs::path& copy)
{
    struct stat info = {};
    if (::stat(file.c_str(), &info) != 0)
        return errno;
    const std::string bytes = beginningOf(file, static_cast<std::size_t>(info.st_size));
    TemporaryName temporary(writeBeside(file, &info, bytes));
    constexpr unsigned kNoReplace = 1; // RENAME_NOREPLACE of the Linux kernel
    const bool isRenamed = ::syscall(SYS_renameat2, AT_FDCWD, temporary.get(), AT_FDCWD,
                                     copy.c_str(), kNoReplace) == 0;
    if (isRenamed)
    {
        temporary.release();
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // File systems that do not know that may have hard links, of one's own files at least.
    if (::link(temporary.get(), copy.c_str()) == 0)
        return 0;
    if (errno == EEXIST || fs::exists(fs::symlink_status(copy)))
        return EEXIST;
    if (::rename(temporary.get(), copy.c_str()) != 0)
        return errno;
    temporary.release();
    return 0;
}

/// A name shortened to so many bytes, by whole letters of UTF-8.
std::string shortened(std::string name, std::size_t most)
{
    if (name.size() <= most)
        return name;
    const auto isInsideALetter = [&](std::size_t i) { return (name[i] & 0xC0) == 0x80; };
    while (most > 0 && isInsideALetter(most))
        --most;
    name.resize(most);
    return name;
}

} // namespace

std::string reasonOf(const fs::filesystem_error& failure, const std::string& named)
{
    const std::string& culprit = failure.path1().native();
    return (culprit == named ? std::string() : culprit + ": ") + failure.code().message();
}

Kind kindOf(const std::string& path)
{
    try
    {
        struct stat info = {};
        return kindOf(targetOf(path), info);
    }
    catch (const fs::filesystem_error&) // links lead in a circle, for instance
    {
        return Kind::Nothing;
    }
}

std::size_t readAll(int descriptor, char* data, std::size_t size, const std::string& path)
{
    std::size_t done = 0;
    while (done < size)
    {
        const ssize_t count = ::read(descriptor, data + done, size - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            fail("read", path, errno);
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::string beginningOf(const std::string& path, std::size_t size)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (file.get() < 0)
        fail("open", path, errno);
    std::string bytes(size, '\0');
    bytes.resize(readAll(file.get(), bytes.data(), size, path));
    return bytes;
}

bool looksLikeText(std::string_view beginning)
{
    using namespace std::string_view_literals;
    const auto beginsWith = [beginning](std::string_view mark)
    { return beginning.substr(0, mark.size()) == mark; };
    constexpr std::array kWideMarks = {"\xFF\xFE"sv, "\xFE\xFF"sv};
    if (std::any_of(kWideMarks.begin(), kWideMarks.end(), beginsWith))
        return true;
    // Those of which the beginning may pass for a text.
    constexpr std::array kOthers = {"\x89PNG"sv, "%PDF-"sv, "PK\3\4"sv, "GIF8"sv, "\xFF\xD8\xFF"sv};
    return std::none_of(kOthers.begin(), kOthers.end(), beginsWith) &&
           beginning.find('\0') == std::string_view::npos;
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
        const std::size_t room = kLongestName - std::min(kLongestName, end.size());
        const fs::path kept = folderOf(file) / (shortened(file.stem(), room) + end);
        if (::link(file.c_str(), kept.c_str()) == 0)
            return kept;
        const int error = errno == EEXIST ? EEXIST : copyTo(file, kept);
        if (error == 0)
            return kept;
        if (error != EEXIST)
            fail("keep", kept, error);
    }
    fail("keep", file, EEXIST);
}

} // namespace files
