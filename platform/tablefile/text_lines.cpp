// The lines of a table's text.

#include "tablefile/text_lines.h"

#include <algorithm>
#include <cstddef>

namespace tablefile
{
namespace
{

using Word = std::uint64_t;
constexpr std::ptrdiff_t kWord = sizeof(Word);

/// The bits that differ in the words that two texts begin with.
Word difference(const char* a, const char* b)
{
    Word x = 0;
    Word y = 0;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    return x ^ y;
}

/// The first byte that has one of these bits, of which there is one.
int firstByte(Word bits)
{
    constexpr bool kIsLowestFirst = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
    return (kIsLowestFirst ? __builtin_ctzll(bits) : __builtin_clzll(bits)) / 8;
}

} // namespace

std::uint32_t commonPrefix(std::string_view a, std::string_view b)
{
    const char* x = a.data();
    const char* y = b.data();
    const char* const end = x + std::min(a.size(), b.size());
    const auto size = [&](const char* to) { return static_cast<std::uint32_t>(to - a.data()); };
    // Four words at once without a branch between them, since common parts are long.
    const auto differs = [&](int word) { return difference(x + word * kWord, y + word * kWord); };
    while (end - x >= 4 * kWord && (differs(0) | differs(1) | differs(2) | differs(3)) == 0)
    {
        x += 4 * kWord;
        y += 4 * kWord;
    }
    for (; end - x >= kWord; x += kWord, y += kWord)
    {
        if (const Word bits = difference(x, y))
            return size(x + firstByte(bits));
    }
    for (; x != end && *x == *y; ++x)
        ++y;
    return size(x);
}

} // namespace tablefile
