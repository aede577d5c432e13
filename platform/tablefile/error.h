// How the file layer reports that something went wrong.

#ifndef TABLEFILE_ERROR_H
#define TABLEFILE_ERROR_H

#include <cstddef>
#include <string>

namespace tablefile
{

/// What kind of failure it was.
enum class Status
{
    Ok,
    CannotRead,  ///< the file cannot be opened or read
    NotATable,   ///< the contents are not a table
    TooLarge,    ///< beyond the limits that keep memory bounded
    CannotStore, ///< the table holds a value that a file cannot
    CannotWrite, ///< the file cannot be written
};

/// A failure, or none. The codec throws it inside and returns it at its borders.
struct Error
{
    Status status = Status::Ok;
    /// Where, where that means something: a position in the file, or in the inflated text.
    std::size_t offset = 0;
    /// Why, for a developer.
    std::string what;
};

} // namespace tablefile

#endif
