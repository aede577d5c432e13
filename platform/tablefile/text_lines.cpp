// The lines of a table's text.

#include "tablefile/text_lines.h"

#include <algorithm>

namespace tablefile
{
namespace
{

/// The number of bytes that two texts have in common at their beginnings.
std::size_t commonPrefix(std::string_view a, std::string_view b)
{
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t size = 0;
    for (std::uint64_t x = 0, y = 0; x == y && size + sizeof x <= most;
         size += x == y ? sizeof x : 0)
    {
        std::memcpy(&x, a.data() + size, sizeof x);
        std::memcpy(&y, b.data() + size, sizeof y);
    }
    while (size < most && a[size] == b[size])
        ++size;
    return size;
}

} // namespace

std::size_t commonLines(std::string_view a, std::string_view b)
{
    return a.substr(0, commonPrefix(a, b)).rfind('\n') + 1; // no line gives 0
}

} // namespace tablefile
