// The limits that keep the memory bounded that a file can make the reader take.

#ifndef TABLEFILE_LIMITS_H
#define TABLEFILE_LIMITS_H

#include "tablefile/error.h"

#include <cstddef>

namespace tablefile
{

/// The longest text that is inflated, in bytes: 175 times the longest one met.
constexpr std::size_t kMaxText = std::size_t{16} << 20;
/// The longest file that is read: room for such a text that does not compress at all.
constexpr std::size_t kMaxFile = kMaxText + (std::size_t{1} << 20);
/// The longest name or description, in bytes; other readers take no more than 5,000.
constexpr std::size_t kMaxValue = std::size_t{256} << 10;
/// What file, text and objects of one table may take together. Ordinary styles reach the limit of
/// the text first; it is met by texts that are made of nothing but tiny styles or one huge name.
constexpr std::size_t kMaxMemory = std::size_t{48} << 20;
/// Rows of a table of lineweights or colours beyond this number are left alone.
constexpr std::size_t kMaxRows = 65536;

/// Adds up the memory of one table.
class MemoryBudget
{
public:
    /// Counts some more bytes. @throw Error when the table would take too much
    void add(std::size_t bytes, std::size_t offset = 0)
    {
        m_used += bytes;
        if (m_used > kMaxMemory)
            throw Error{Status::TooLarge, offset, reason("the table takes too much memory"),
                        offset > 0 ? Place::Text : Place::Nowhere};
    }

private:
    std::size_t m_used = 0;
};

} // namespace tablefile

#endif
