// The one way in which files are written: what stays of the old file, what is written to and what
// is refused, and who may read it afterwards.

#include "support/test_files.h"
#include "files/files.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

using namespace support;
namespace fs = std::filesystem;

namespace
{

const char* const kAccessList = "system.posix_acl_access";
const char* const kDefaultList = "system.posix_acl_default";

/// The entries of an access list, by their tags in posix_acl.h of the Linux kernel.
struct Entry
{
    std::uint16_t tag;
    std::uint16_t permissions;
    std::uint32_t id = 0xFFFFFFFF;
};
constexpr std::uint16_t kOwner = 0x01;
constexpr std::uint16_t kUser = 0x02;
constexpr std::uint16_t kGroup = 0x04;
constexpr std::uint16_t kNamedGroup = 0x08;
constexpr std::uint16_t kMask = 0x10;
constexpr std::uint16_t kOthers = 0x20;

void append(std::string& bytes, std::uint32_t number, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<char>(number >> (8 * i)));
}

std::string accessList(const std::vector<Entry>& entries)
{
    std::string bytes;
    append(bytes, 2, 4);
    for (const Entry& entry : entries)
    {
        append(bytes, entry.tag, 2);
        append(bytes, entry.permissions, 2);
        append(bytes, entry.id, 4);
    }
    return bytes;
}

/// One that lets a stranger read and write, but the owning group do nothing.
std::string listForAStranger()
{
    return accessList({{kOwner, 6}, {kUser, 6, 12345}, {kGroup, 0}, {kMask, 6}, {kOthers, 0}});
}

bool setAttribute(const fs::path& path, const char* name, const std::string& value)
{
    return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

/// @return "none" where there is no such attribute
std::string attribute(const fs::path& path, const char* name)
{
    std::array<char, 1000> value;
    const ssize_t size = ::getxattr(path.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : std::string(value.data(), static_cast<std::size_t>(size));
}

struct stat statOf(const fs::path& path)
{
    struct stat info = {};
    EXPECT_EQ(::stat(path.c_str(), &info), 0) << path;
    return info;
}

mode_t modeOf(const fs::path& path)
{
    return statOf(path).st_mode & 07777;
}

/// @return the reason of a failure; 0 when there was none
int errorOf(const std::function<void()>& step)
{
    try
    {
        step();
        return 0;
    }
    catch (const fs::filesystem_error& error)
    {
        EXPECT_FALSE(error.path1().empty());
        return error.code().value();
    }
}

int replaceError(const fs::path& path)
{
    return errorOf([&path] { files::replace(path, "new"); });
}

class Files : public testing::Test
{
protected:
    fs::path make(const char* name, mode_t mode = 0644) const
    {
        const fs::path path = folder / name;
        writeFile(path, "old");
        EXPECT_EQ(::chmod(path.c_str(), mode), 0);
        return path;
    }

    const TempFolder folder;
};

/// Needs somebody who may give files away and be somebody else.
class FilesOfOthers : public Files
{
protected:
    void SetUp() override
    {
        if (::geteuid() != 0)
            GTEST_SKIP() << "only a privileged user may be somebody else";
        ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    }

    /// Replaces a file as a user who is in no group of the file's. @return the reason of a failure
    static int replaceAsNobody(const fs::path& path)
    {
        constexpr uid_t kNobody = 65534;
        return inProcess(
            [&path]
            {
                const bool isNobody = ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
                return isNobody ? replaceError(path) : -1;
            });
    }
};

} // namespace

TEST_F(Files, KeepTheirAccessListAndAttributes)
{
    const fs::path path = make("a", 0600);
    ASSERT_TRUE(setAttribute(path, kAccessList, listForAStranger()));
    ASSERT_TRUE(setAttribute(path, "user.origin", "office"));
    ASSERT_EQ(modeOf(path), 0660u) << "the group's bits are the list's mask";
    ASSERT_EQ(replaceError(path), 0);
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(attribute(path, kAccessList), listForAStranger());
    EXPECT_EQ(attribute(path, "user.origin"), "office");
    EXPECT_EQ(modeOf(path), 0660u);
}

TEST_F(Files, GetNoAccessListFromTheirFolder)
{
    const fs::path path = make("a", 0640);
    ASSERT_TRUE(setAttribute(folder.path(), kDefaultList, listForAStranger()));
    ASSERT_EQ(replaceError(path), 0);
    EXPECT_EQ(attribute(path, kAccessList), "none");
    EXPECT_EQ(modeOf(path), 0640u);
    ASSERT_EQ(replaceError(folder / "new"), 0);
    EXPECT_NE(attribute(folder / "new", kAccessList), "none") << "new files do";
}

TEST_F(FilesOfOthers, KeepTheirOwner)
{
    const fs::path path = make("a", 0640);
    constexpr uid_t kSomebody = 1234;
    constexpr gid_t kSomeGroup = 4321;
    ASSERT_EQ(::chown(path.c_str(), kSomebody, kSomeGroup), 0);
    ASSERT_EQ(replaceError(path), 0);
    EXPECT_EQ(statOf(path).st_uid, kSomebody);
    EXPECT_EQ(statOf(path).st_gid, kSomeGroup);
    EXPECT_EQ(modeOf(path), 0640u);
}

TEST_F(FilesOfOthers, GiveAnotherGroupNoMoreThanTheOthersHad)
{
    const fs::path path = make("a", 0672);
    ASSERT_EQ(replaceAsNobody(path), 0);
    EXPECT_EQ(readFile(path), "new");
    EXPECT_NE(statOf(path).st_gid, ::getegid());
    EXPECT_EQ(modeOf(path), 0622u);
}

TEST_F(FilesOfOthers, GiveTheOldOwnerNoMoreAsOneOfTheGroup)
{
    const fs::path path = make("a", 0066);
    ASSERT_EQ(replaceAsNobody(path), 0);
    EXPECT_EQ(modeOf(path), 0600u) << "the new owner can save again";
}

TEST_F(FilesOfOthers, LoseTheirSpecialBits)
{
    const fs::path path = make("a", 06755);
    ASSERT_EQ(replaceError(path), 0);
    EXPECT_EQ(modeOf(path), 0755u);
}

TEST_F(FilesOfOthers, AreNotReachedByLinksThatOthersHavePutWhereEverybodyMay)
{
    constexpr uid_t kSomebody = 1234;
    make("mine");
    fs::create_directory(folder / "public");
    ASSERT_EQ(::chmod((folder / "public").c_str(), 01777), 0);
    for (const char* const target : {"mine", "new"})
    {
        const fs::path link = folder / "public" / (std::string("to ") + target);
        fs::create_symlink(std::string("../") + target, link);
        ASSERT_EQ(::lchown(link.c_str(), kSomebody, kSomebody), 0);
        EXPECT_EQ(replaceError(link), EACCES);
    }
    EXPECT_EQ(readFile(folder / "mine"), "old");
    EXPECT_FALSE(fs::exists(folder / "new"));
}

TEST_F(FilesOfOthers, GiveTheOldGroupNoMoreAsOthers)
{
    const fs::path path = make("a", 0606);
    ASSERT_EQ(replaceAsNobody(path), 0);
    EXPECT_EQ(modeOf(path), 0600u) << "the group had nothing, and its members are others now";
}

TEST_F(FilesOfOthers, KeepTheListForEverybodyWhoIsInIt)
{
    const fs::path path = make("a");
    constexpr std::uint32_t kNobody = 65534;
    ASSERT_TRUE(setAttribute(path, kAccessList,
                             accessList({{kOwner, 6},
                                         {kUser, 0, 2222},
                                         {kUser, 6, kNobody},
                                         {kGroup, 6},
                                         {kNamedGroup, 0, 3333},
                                         {kMask, 6},
                                         {kOthers, 4}})));
    ASSERT_EQ(replaceAsNobody(path), 0);
    EXPECT_EQ(statOf(path).st_uid, kNobody);
    EXPECT_EQ(attribute(path, kAccessList), accessList({{kOwner, 6},
                                                        {kUser, 0, 2222},
                                                        {kUser, 6, kNobody},
                                                        {kUser, 6, 0}, // the old owner
                                                        {kGroup, 0},   // as group 3333 at the most
                                                        {kNamedGroup, 0, 3333},
                                                        {kNamedGroup, 6, 0}, // the old group
                                                        {kMask, 6},
                                                        {kOthers, 4}}));
    EXPECT_EQ(modeOf(path), 0664u);
}

TEST_F(FilesOfOthers, KeepWhatTheMaskOfTheListAllowed)
{
    const fs::path path = make("a");
    ASSERT_TRUE(setAttribute(path, kAccessList,
                             accessList({{kOwner, 5},
                                         {kUser, 2, 0}, // without effect: the owner
                                         {kUser, 7, 2222},
                                         {kGroup, 7},
                                         {kMask, 2},
                                         {kOthers, 6}})));
    ASSERT_EQ(replaceAsNobody(path), 0);
    EXPECT_EQ(attribute(path, kAccessList), accessList({{kOwner, 7}, // and can save again
                                                        {kUser, 5, 0},
                                                        {kUser, 2, 2222},
                                                        {kGroup, 2},
                                                        {kNamedGroup, 2, 0},
                                                        {kMask, 7},
                                                        {kOthers, 6}}));
    EXPECT_EQ(modeOf(path), 0776u);
}

// In a namespace that does not know the users of the list, so that it cannot be set.
TEST_F(FilesOfOthers, GiveNobodyMoreWhereTheListCannotBeSet)
{
    const fs::path path = make("a", 0600);
    const std::string list =
        accessList({{kOwner, 6}, {kUser, 0, 1002}, {kGroup, 6}, {kMask, 6}, {kOthers, 4}});
    ASSERT_TRUE(setAttribute(path, kAccessList, list));
    ASSERT_TRUE(setAttribute(folder.path(), kDefaultList, listForAStranger()));
    const int result = inProcess(
        [&path]
        {
            if (::unshare(CLONE_NEWUSER) != 0)
                return -1;
            writeFile("/proc/self/setgroups", "deny");
            writeFile("/proc/self/uid_map", "0 0 1");
            writeFile("/proc/self/gid_map", "0 0 1");
            return replaceError(path);
        });
    if (result < 0 || result == 255)
        GTEST_SKIP() << "no namespaces of users here";
    ASSERT_EQ(result, 0);
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(attribute(path, kAccessList), "none");
    EXPECT_EQ(modeOf(path), 0600u) << "somebody had nothing";
}

TEST_F(Files, OfTemporaryNamesAreNotWrittenInto)
{
    // Somebody has guessed the names, and put a file and a link where the new file is to be made.
    const fs::path path = make("a");
    const fs::path victim = make("victim");
    const std::string name = ".pstyle-" + std::to_string(::getpid()) + "-";
    writeFile(folder / (name + "0"), "in the way");
    fs::create_symlink(victim, folder / (name + "1"));
    EXPECT_EQ(replaceError(path), 0);
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(readFile(victim), "old");
    EXPECT_EQ(readFile(folder / (name + "0")), "in the way");
    EXPECT_EQ(namesIn(folder.path()).size(), 4u);

    // With every name taken it gives up.
    for (int i = 2; i < 1000; ++i)
        writeFile(folder / (name + std::to_string(i)), "");
    EXPECT_EQ(replaceError(path), EEXIST);
}

TEST_F(Files, ThatAreReadOnlyAreNotReplacedByAnyone)
{
    const fs::path path = make("a", 0444);
    EXPECT_EQ(replaceError(path), EACCES);
    EXPECT_EQ(readFile(path), "old");
    EXPECT_EQ(namesIn(folder.path()).size(), 1u);
}

TEST_F(Files, BehindLinksAreReplacedAndTheLinksStay)
{
    make("real");
    fs::create_directory(folder / "sub");
    make("sub/real");
    fs::create_symlink("../real", folder / "sub/link");
    ASSERT_EQ(replaceError(folder / "sub/link"), 0);
    EXPECT_TRUE(fs::is_symlink(folder / "sub/link"));
    EXPECT_EQ(readFile(folder / "real"), "new");
    EXPECT_EQ(readFile(folder / "sub/real"), "old");
}

TEST_F(Files, BesideAFolderBehindALinkAreFoundByTheSystem)
{
    fs::create_directories(folder / "elsewhere/sub");
    fs::create_symlink("elsewhere/sub", folder / "link");
    make("a");
    ASSERT_EQ(replaceError(folder / "link/../a"), 0);
    EXPECT_EQ(readFile(folder / "elsewhere/a"), "new");
    EXPECT_EQ(readFile(folder / "a"), "old");
}

TEST_F(Files, ThatAreFoldersOrDisksAreRefused)
{
    fs::create_directory(folder / "sub");
    EXPECT_EQ(files::kindOf(folder / "sub"), files::Kind::Folder);
    EXPECT_EQ(replaceError(folder / "sub"), EISDIR);
    EXPECT_EQ(files::kindOf(folder / "missing"), files::Kind::Nothing);
    if (::mknod((folder / "disk").c_str(), S_IFBLK | 0600, makedev(7, 250)) == 0)
    {
        EXPECT_EQ(files::kindOf(folder / "disk"), files::Kind::Disk);
        EXPECT_EQ(replaceError(folder / "disk"), EPERM);
    }
    EXPECT_EQ(replaceError("/dev/full"), ENOSPC);
    EXPECT_EQ(replaceError("/dev/null"), 0);
    EXPECT_EQ(files::kindOf("/dev/null"), files::Kind::Stream);
}

TEST_F(Files, ThatArePipesAreWrittenInto)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const std::string bytes(300000, 'x'); // more than a pipe holds at once
    std::string read;
    std::thread reader([&] { read = readFile(pipe); });
    files::replace(pipe, bytes);
    reader.join();
    EXPECT_TRUE(read == bytes);
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_F(Files, ThatArePipesNeedAReader)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(replaceError(pipe), ENXIO);
    std::thread reader([&] { ::close(::open(pipe.c_str(), O_RDONLY | O_CLOEXEC)); });
    EXPECT_EQ(errorOf([&] { files::replace(pipe, std::string(300000, 'x')); }), EPIPE)
        << "and the process goes on";
    reader.join();
}

TEST_F(Files, ThatAreSocketsAreWrittenInto)
{
    const fs::path path = folder / "socket";
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    ASSERT_EQ(::listen(server, 1), 0);
    ASSERT_EQ(replaceError(path), 0);
    const int connection = ::accept(server, nullptr, nullptr);
    std::array<char, 10> read;
    EXPECT_EQ(::read(connection, read.data(), read.size()), 3);
    EXPECT_EQ(std::string(read.data(), 3), "new");
    ::close(connection);
    ::close(server);
    EXPECT_TRUE(fs::is_socket(path));
    EXPECT_EQ(replaceError(path), ECONNREFUSED);
}

TEST_F(Files, ThatAProcessHasOpenAreWrittenIntoWhereItIs)
{
    const fs::path path = folder / "output";
    const int result = inProcess(
        [&]
        {
            const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            if (::dup2(file, STDOUT_FILENO) < 0 || ::write(STDOUT_FILENO, "before ", 7) != 7)
                return -1;
            for (const char* const name : {"/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"})
            {
                if (files::kindOf(name) != files::Kind::Stream)
                    return -2;
                files::replace(name, "new ");
            }
            return ::write(STDOUT_FILENO, "after", 5) == 5 ? 0 : -3;
        });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(readFile(path), "before new new new after");
    EXPECT_EQ(namesIn(folder.path()).size(), 1u);
    EXPECT_TRUE(fs::is_symlink("/dev/stdout"));
}

TEST_F(Files, AreKeptAsideUnderANameOfTheirOwn)
{
    const fs::path path = make("table.ctb", 0640);
    fs::create_symlink("table.ctb", folder / "link.ctb");
    EXPECT_EQ(files::keepAside(path, " (old)"), folder / "table (old).ctb");
    EXPECT_EQ(files::keepAside(folder / "link.ctb", " (old)"), folder / "table (old) 2.ctb");
    ASSERT_EQ(replaceError(path), 0);
    EXPECT_EQ(readFile(folder / "table (old).ctb"), "old");
    EXPECT_EQ(modeOf(folder / "table (old).ctb"), 0640u);
    EXPECT_EQ(readFile(path), "new");
}

// A name that has no room for a remark loses its end, by whole letters.
TEST_F(Files, WithLongNamesAreKeptAsideUnderShorterOnes)
{
    const struct
    {
        const char* letter;
        int count;
        const char* extension;
        std::size_t kept;
    } cases[] = {
        {"\xC3\xA4", 125, ".ctb", 244},    {"\xE4\xB8\xAD", 83, ".ctb", 243},
        {"\xE4\xB8\xAD", 82, ".stb", 243}, {"x", 251, ".ctb", 245},
        {"y", 245, ".ctb", 245},           {"x", 244, ".ctb", 244},
        {"\xF0\x9F\x98\x80", 62, "", 248},
    };
    for (const auto& c : cases)
    {
        std::string stem;
        for (int i = 0; i < c.count; ++i)
            stem += c.letter;
        const fs::path kept = files::keepAside(make((stem + c.extension).c_str()), " (old)");
        EXPECT_EQ(readFile(kept), "old");
        EXPECT_EQ(kept.filename().native(), stem.substr(0, c.kept) + " (old)" + c.extension);
    }
}

TEST_F(Files, ThatNobodyReadsFromFailInTheEnd)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_EQ(errorOf([&] { files::replace(pipe, std::string(300000, 'x')); }), ETIMEDOUT);
    ::close(reader);
}

// A signal that the host has blocked, and waits for, is left to it.
TEST_F(Files, ThatArePipesLeaveTheSignalsOfTheirHost)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    sigset_t pipeSignal;
    sigset_t before;
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);
    const auto isPending = []
    {
        sigset_t pending;
        sigpending(&pending);
        return sigismember(&pending, SIGPIPE) == 1;
    };
    for (const bool isRaised : {false, true})
    {
        if (isRaised)
            pthread_kill(pthread_self(), SIGPIPE);
        std::thread reader([&] { ::close(::open(pipe.c_str(), O_RDONLY | O_CLOEXEC)); });
        EXPECT_EQ(errorOf([&] { files::replace(pipe, std::string(300000, 'x')); }), EPIPE);
        reader.join();
        EXPECT_EQ(isPending(), isRaised);
    }
    const timespec atOnce = {};
    sigtimedwait(&pipeSignal, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(Files, ThatComeInPiecesAreReadAsFarAsAsked)
{
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    std::string bytes(20, '-');
    ASSERT_EQ(::write(ends[1], "12345", 5), 5);
    std::thread writer(
        [&]
        {
            int waiting = 1;
            while (waiting > 0) // until the first piece has been read
                ::ioctl(ends[0], FIONREAD, &waiting);
            EXPECT_EQ(::write(ends[1], "67890abcdefg", 12), 12);
        });
    EXPECT_EQ(files::readAll(ends[0], bytes.data(), 10, "a pipe"), 10u);
    writer.join();
    EXPECT_EQ(bytes, "1234567890----------");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(Files, BehindLinksInACircleAreNothing)
{
    fs::create_symlink("b", folder / "a");
    fs::create_symlink("a", folder / "b");
    EXPECT_EQ(files::kindOf(folder / "a"), files::Kind::Nothing);
    EXPECT_EQ(replaceError(folder / "a"), ELOOP);
}

TEST(FileFailures, NameThePathToBlameUnlessItIsKnown)
{
    const fs::filesystem_error failure("write", "/a/b",
                                       std::make_error_code(std::errc::no_space_on_device));
    EXPECT_EQ(files::reasonOf(failure, "/a"), "/a/b: No space left on device");
    EXPECT_EQ(files::reasonOf(failure, "/a/b"), "No space left on device");
}

TEST_F(Files, CannotBeKeptAsideWhereTheyAreMissing)
{
    EXPECT_EQ(errorOf([&] { files::keepAside(folder / "missing", " (old)"); }), ENOENT);
    EXPECT_TRUE(namesIn(folder.path()).empty());
}

TEST(FileContents, AreTextsOrNot)
{
    using namespace std::string_view_literals;
    for (const std::string_view text : {""sv, "a,b\r\n\tc\f"sv, "\xEF\xBB\xBF\xC3\xA4"sv, "\xE4"sv,
                                        "\xFF\xFE"
                                        "a\0"sv,
                                        "\xFE\xFF\0a"sv, "a\x1A"sv, "\x1B[1m"sv})
        EXPECT_TRUE(files::looksLikeText(text)) << text;
    for (const std::string_view other :
         {"\x89PNG\r\n\x1A\n"sv, "a\0"sv, "PK\3\4"sv, "%PDF-1.7\n"sv, "\xFF\xD8\xFF"sv})
        EXPECT_FALSE(files::looksLikeText(other)) << other;
}
