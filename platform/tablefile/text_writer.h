// Writes a table as text, afresh or as the changes of the text it was read from.

#ifndef TABLEFILE_TEXT_WRITER_H
#define TABLEFILE_TEXT_WRITER_H

#include "tablefile/text_reader.h"

#include <optional>
#include <string>

namespace tablefile
{

/// The whole text of a table, without the final NUL. @throw Error when a value cannot be stored
std::string freshText(const OdPsPlotStyleTable& table);

/// The text that a table was read from with its changed lines replaced; nothing when no line has
/// changed. Every line is compared with what was read, so a change that was taken back leaves no
/// trace. @throw Error when a value cannot be stored
std::optional<std::string> changedText(const OdPsPlotStyleTable& table, const Origin& origin);

} // namespace tablefile

#endif
