// The container of a table's text: a header that names the kind, three numbers, a zlib stream.

#ifndef TABLEFILE_CONTAINER_H
#define TABLEFILE_CONTAINER_H

#include "tablefile/buffer.h"

#include <string>
#include <string_view>

namespace tablefile
{

/// The magic that a new file of a kind begins with.
std::string_view magicFor(bool colorDependent);

/// The magic of a file: its kind and the first 48 bytes.
/// @throw Error when the file does not begin like a table
std::string_view magicOf(std::string_view file);

/// Whether a file with this magic holds a colour-dependent table, as far as the magic tells.
bool isColorDependentMagic(std::string_view magic);

/// Inflates the text of a table file, without the NULs at its end.
///
/// Neither the header's numbers nor the checksums are relied on, since real files have wrong ones:
/// the text is whole when its deflate stream is.
/// @throw Error when the file is not a table, its stream is damaged or its text is too long
Buffer unpack(std::string_view file);

/// Makes the bytes of a table file.
/// @throw Error when the text is too long to be read again
Buffer pack(std::string_view magic, const std::string& text);

} // namespace tablefile

#endif
