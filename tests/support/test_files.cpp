// Files and folders for tests.

#include "support/test_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace support
{

TempFolder::TempFolder()
{
    std::string name = fs::temp_directory_path() / "pstyle-test-XXXXXX";
    if (!::mkdtemp(name.data()))
        throw std::runtime_error("cannot make a folder for a test");
    m_path = name;
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string readFile(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void writeFile(const fs::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    ASSERT_TRUE(file) << path;
}

std::vector<std::string> namesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string withoutLoaderWarnings(const std::string& errors)
{
    std::istringstream lines(errors);
    std::string kept;
    for (std::string line; std::getline(lines, line);)
    {
        if (line.rfind("WARNING: Glycin running without sandbox.", 0) != 0)
            kept += line + '\n';
    }
    return kept;
}

int inProcess(const std::function<int()>& work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::vector<fs::path> realTables()
{
    std::vector<fs::path> tables;
    const char* const folder = std::getenv("PSTYLE_REAL_TABLES");
    if (!folder)
        return tables;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    {
        const std::string extension = entry.path().extension();
        if (extension == ".ctb" || extension == ".stb")
            tables.push_back(entry.path());
    }
    std::sort(tables.begin(), tables.end());
    return tables;
}

} // namespace support
