// Writes the values and the groups of a table as text.

#ifndef TABLEFILE_TEXT_WRITER_H
#define TABLEFILE_TEXT_WRITER_H

#include "tablefile/text_reader.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace tablefile
{

constexpr std::string_view kNewLine = "\n";
constexpr std::string_view kStyleIndent = "  ";

/// What a file holds of a style.
struct StyleValues
{
    StyleTexts texts; ///< made storable
    OdPsPlotStyleData data;
};

void makeStorable(StyleTexts& texts);
/// The texts of a style, made storable.
StyleTexts textsOf(const OdPsPlotStyle& style);
StyleValues valuesOf(const OdPsPlotStyle& style);
TableValues valuesOf(const OdPsPlotStyleTable& table);

/// A text value that is not too long to be read again. @throw Error when it is
std::string writeTextValue(const std::wstring& text);
/// What follows the `=` of a style's key. @throw Error when the value cannot be stored
std::string writeStyleValue(StyleKey key, const StyleValues& values);
/// What follows the `=` of a table's key. @throw Error when the value cannot be stored
std::string writeTableValue(TableKey key, const TableValues& values, bool colorDependent);

/// Whether a file would hold another value of a key. Both keys of the colour change together, even
/// where the nearest index colour stays the same: other writers choose it differently.
bool differs(StyleKey key, const StyleValues& a, const StyleValues& b);
/// Whether a file would hold the same of two styles.
bool areEqual(const StyleValues& a, const StyleValues& b);

void append(std::string& text, std::initializer_list<std::string_view> parts);
/// Appends the group of a style.
void appendStyle(std::string& text, std::uint32_t number, const StyleValues& values,
                 std::string_view newLine);
/// Appends a row of a group of numbered values.
void appendRow(std::string& text, std::size_t row, std::string_view value,
               std::string_view newLine);
/// Appends the group of a table's lineweights.
void appendLineweights(std::string& text, const OdPsPlotStyleTable& table,
                       std::string_view newLine);

/// The whole text of a new table, without the final NUL.
/// @throw Error when a value cannot be stored
std::string freshText(const OdPsPlotStyleTable& table);

} // namespace tablefile

#endif
