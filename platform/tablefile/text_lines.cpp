// The lines of a table's text.

#include "tablefile/text_lines.h"

#include <algorithm>
#include <array>

namespace tablefile
{

std::uint32_t commonPrefix(std::string_view a, std::string_view b)
{
    using Word = std::uint64_t;
    using Block = std::array<Word, 4>;
    const std::size_t most = std::min(a.size(), b.size());
    std::size_t size = 0;
    for (Block x, y; size + sizeof x <= most; size += sizeof x)
    {
        std::memcpy(&x, a.data() + size, sizeof x);
        std::memcpy(&y, b.data() + size, sizeof y);
        if (((x[0] ^ y[0]) | (x[1] ^ y[1]) | (x[2] ^ y[2]) | (x[3] ^ y[3])) != 0)
            break;
    }
    for (Word x, y; size + sizeof x <= most; size += sizeof x)
    {
        std::memcpy(&x, a.data() + size, sizeof x);
        std::memcpy(&y, b.data() + size, sizeof y);
        if (x != y)
            break;
    }
    while (size < most && a[size] == b[size])
        ++size;
    return static_cast<std::uint32_t>(size);
}

} // namespace tablefile
