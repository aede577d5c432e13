// Changes the text that a table was read from into that of the table as it is now.

#ifndef TABLEFILE_TEXT_EDITOR_H
#define TABLEFILE_TEXT_EDITOR_H

#include "tablefile/text_reader.h"

#include <optional>
#include <string>

namespace tablefile
{

/// The text that a table was read from with its changed lines replaced; nothing when no line has
/// changed. Values that were set are compared with what was read, so a change that was taken back
/// leaves no trace. @param origin what the table was read from  @throw Error when a value cannot be
/// stored
std::optional<std::string> changedText(const OdPsPlotStyleTableImpl& table, const Origin& origin);

} // namespace tablefile

#endif
