// Reads and writes plot style tables as .ctb and .stb files.

#ifndef TABLEFILE_TABLEFILE_H
#define TABLEFILE_TABLEFILE_H

#include "odps/od_ps.h"
#include "tablefile/buffer.h"
#include "tablefile/error.h"

#include <string>

namespace tablefile
{

/// A table, or the reason why there is none.
struct LoadResult
{
    OdPsPlotStyleTablePtr table; ///< null after a failure
    Error error;
};

/// The bytes of a table file, or the reason why there are none.
struct EncodeResult
{
    Buffer bytes;
    Error error;
};

/// Makes a table of the bytes of a table file. The table remembers them: they come back from
/// encode() but for what has been changed.
LoadResult decode(Buffer file);

/// Gives the bytes of a table's file. A table that decode() made and that holds the same values
/// as then gives the very bytes that it was made of; a changed one differs from them in the lines
/// of what has changed. Any other table is written afresh.
EncodeResult encode(const OdPsPlotStyleTable& table);

/// Reads a table file. @param path in the system's own encoding
LoadResult load(const std::string& path);

/// Writes a table file, replacing an old one in one step; after a failure the old one is as it was
/// and nothing else is left behind. @param path in the system's own encoding
/// @return the reason of a failure; Status::Ok otherwise
Error save(const std::string& path, const OdPsPlotStyleTable& table);

} // namespace tablefile

#endif
