// Files and folders for tests.

#ifndef SUPPORT_TEST_FILES_H
#define SUPPORT_TEST_FILES_H

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace support
{

/// A new folder that is removed with all that is in it at the end of its scope.
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const noexcept { return m_path; }
    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, std::string_view bytes);
/// The names of what is in a folder, sorted.
std::vector<std::string> namesIn(const std::filesystem::path& folder);

/// What a program has written to standard error, less what the system's loader of pictures says
/// where it cannot have the sandbox that it wants, in a chroot for example.
std::string withoutLoaderWarnings(const std::string& errors);

/// Does something in a process of its own. @return what it returns, or -1 when a signal ended it
int inProcess(const std::function<int()>& work);

/// The tables in the folder that PSTYLE_REAL_TABLES names; empty when it is not set.
std::vector<std::filesystem::path> realTables();

} // namespace support

#endif
