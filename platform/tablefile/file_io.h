// Whole files in and out.

#ifndef TABLEFILE_FILE_IO_H
#define TABLEFILE_FILE_IO_H

#include "tablefile/buffer.h"

#include <string>
#include <string_view>

namespace tablefile
{

/// Reads a regular file; anything else that a path can name is refused without waiting for it.
/// @throw Error when it cannot be read or is larger than a table can be
Buffer readFile(const std::string& path);

/// Writes a file in one step: a file of the same folder is written and then takes the place of the
/// old one, whose permission bits it gets. A symbolic link stays, and what it points to is
/// replaced. A read-only file is not replaced. A process that is killed on the way may leave the
/// file behind that it was writing, ".pstyle-<process>-<number>"; nothing else ever stays.
/// @throw Error when the file cannot be written; then the old one is as it was
void replaceFile(const std::string& path, std::string_view bytes);

} // namespace tablefile

#endif
