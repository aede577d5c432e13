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

/// Marks a text as a key of the translation lookup.
constexpr const char* reason(const char* text)
{
    return text;
}

/// What the offset of a failure counts the bytes of.
enum class Place
{
    Nowhere, ///< the failure has no place, and the offset is 0
    File,
    Text, ///< the inflated text
};

/// A failure, or none. The codec throws it inside and returns it at its borders.
struct Error
{
    Status status = Status::Ok;
    std::size_t offset = 0;
    /// Why: a key of the translation lookup, or what the system says in the user's language.
    std::string what;
    Place place = Place::Nowhere;
};

} // namespace tablefile

#endif
