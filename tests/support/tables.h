// Tables of texts and texts of tables, for tests of the file layer.

#ifndef SUPPORT_TABLES_H
#define SUPPORT_TABLES_H

#include "support/table_maker.h"
#include "tablefile/tablefile.h"

#include <string>
#include <string_view>
#include <vector>

namespace support
{

/// The bytes as the codec takes them.
tablefile::Buffer bufferOf(std::string_view bytes);

/// Decodes a file that must be a table. @throw std::runtime_error when it is none
OdPsPlotStyleTablePtr tableOf(std::string_view file);
/// The text of a table in a plain container of a kind, decoded.
OdPsPlotStyleTablePtr tableOfText(std::string_view text, const char* kind = "CTB");

/// The bytes that a table is saved as; fails the test when it cannot be saved.
std::string bytesOf(const OdPsPlotStyleTable& table);
/// The text that a table is saved as.
std::string textOf(const OdPsPlotStyleTable& table);

/// What two tables differ in, a text each; an object's own pens and lineweights may be held in
/// either of their forms.
std::vector<std::string> differences(const OdPsPlotStyleTable& a, const OdPsPlotStyleTable& b);

/// The data record of a style.
OdPsPlotStyleData dataOf(const OdPsPlotStyleTable& table, int index);

/// Applies a change to the data record of a style.
template <class Change>
void changeData(OdPsPlotStyleTable& table, int index, const Change& change)
{
    OdPsPlotStyleData data = dataOf(table, index);
    change(data);
    table.styleAt(index)->setData(data);
}

} // namespace support

#endif
