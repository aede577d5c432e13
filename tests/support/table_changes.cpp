// Compares the texts of table files.

#include "support/table_changes.h"

#include "support/table_maker.h"

#include <gtest/gtest.h>

namespace
{

std::string trimmed(const std::string& line)
{
    const std::size_t first = line.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : line.substr(first);
}

bool opensGroup(const std::string& line)
{
    return !line.empty() && line.back() == '{' && line.find('=') == std::string::npos;
}

// The lines of a table's text, each behind the names of the groups around it.
std::vector<std::string> linesWithPaths(const std::vector<std::string>& lines)
{
    std::vector<std::string> groups;
    std::vector<std::string> result;
    for (const std::string& indented : lines)
    {
        const std::string line = trimmed(indented);
        std::string path;
        for (const std::string& group : groups)
            path += group + "/";
        result.push_back(path + line);
        if (opensGroup(line))
            groups.push_back(line.substr(0, line.size() - 1));
        else if (line == "}" && !groups.empty())
            groups.pop_back();
    }
    return result;
}

} // namespace

std::vector<std::string> tableChanges(const std::string& before, const std::string& after)
{
    const std::vector<std::string> oldLines = support::splitLines(support::unpack(before));
    const std::vector<std::string> newLines = support::splitLines(support::unpack(after));
    EXPECT_EQ(oldLines.size(), newLines.size());
    const std::vector<std::string> paths = linesWithPaths(newLines);
    std::vector<std::string> changes;
    for (std::size_t i = 0; i < std::min(oldLines.size(), newLines.size()); ++i)
        if (oldLines[i] != newLines[i])
            changes.push_back(paths[i]);
    return changes;
}
