// Whole files in.

#ifndef TABLEFILE_FILE_IO_H
#define TABLEFILE_FILE_IO_H

#include "tablefile/buffer.h"

#include <string>

namespace tablefile
{

/// Reads a regular file; anything else that a path can name is refused without waiting for it.
/// @throw Error when it cannot be read or is larger than a table can be
Buffer readFile(const std::string& path);

} // namespace tablefile

#endif
