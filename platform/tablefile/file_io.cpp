// Whole files in, by the system's own calls: only they tell a pipe from a file before it is opened
// for good.

#include "tablefile/file_io.h"

#include "tablefile/error.h"
#include "tablefile/limits.h"

#include "files/files.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tablefile
{
namespace
{

[[noreturn]] void failRead(const std::string& why)
{
    throw Error{Status::CannotRead, 0, why};
}

/// An open file, closed at the end of its scope.
class File
{
public:
    explicit File(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~File()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int get() const noexcept { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace

Buffer readFile(const std::string& path)
{
    // A pipe without a writer would block otherwise.
    const File file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat info = {};
    if (file.get() < 0 || ::fstat(file.get(), &info) != 0)
        failRead(std::generic_category().message(errno));
    if (!S_ISREG(info.st_mode))
        failRead(reason("not a regular file"));
    if (static_cast<std::uintmax_t>(info.st_size) > kMaxFile)
        throw Error{Status::TooLarge, kMaxFile, reason("the file is too large"), Place::File};
    Buffer bytes(static_cast<std::size_t>(info.st_size));
    try
    {
        bytes.shrink(files::readAll(file.get(), bytes.data(), bytes.size(), path));
    }
    catch (const std::filesystem::filesystem_error& error)
    {
        failRead(error.code().message());
    }
    return bytes;
}

} // namespace tablefile
