// The values of a table's text: numbers, booleans, texts and colours, and how they are written.
// None of it depends on the locale.

#ifndef TABLEFILE_VALUES_H
#define TABLEFILE_VALUES_H

#include "odps/od_color.h"
#include "odps/od_string.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace tablefile
{

/// Reads a signed decimal number. @return whether the value is one
bool readInteger(std::string_view value, std::int64_t& number);

/// Reads a finite decimal number. What follows it after a blank is a writer's binary copy of it and
/// is ignored. @return whether the value is one
bool readReal(std::string_view value, double& number);
/// The shortest decimal that reads as `value`, with one place at least.
/// @throw Error when the value is not finite
std::string writeReal(double value);

/// Reads TRUE or FALSE in any case. @return whether the value is one of them
bool readBoolean(std::string_view value, bool& boolean);
std::string writeBoolean(bool value);

/// Decodes a text value: UTF-8 where it is valid, Windows-1252 otherwise.
/// @param value with its opening quote, if it has one
/// @param text  takes the text; a buffer of the caller so that reading many values is quick
void readText(std::string_view value, std::wstring& text);
/// What a file can hold of a text: it ends at a NUL, a line break is one blank, and what is not a
/// Unicode character is U+FFFD.
std::wstring storableText(std::wstring text);
/// A text value in UTF-8, with its opening quote. @param text what storableText() gave
std::string writeText(const std::wstring& text);

/// RGB of a colour that takes the colour of the plotted object.
constexpr std::uint32_t kObjectColor = 0xFFFFFF;
/// The 24 bits that a file holds of a colour: its RGB, or kObjectColor.
std::uint32_t storedColor(OdCmEntityColor color);
/// A colour by the 24 bits that a file holds of it.
OdCmEntityColor colorOf(std::uint32_t stored);
/// The two values of a stored colour, as the signed numbers that they are written as.
struct ColorValues
{
    std::int32_t color;     ///< the nearest index colour, for readers that know no other
    std::int32_t modeColor; ///< the colour itself
};
ColorValues writeColor(std::uint32_t stored);

/// The number that a file holds of a lineweight reference. @throw Error when there is none
std::int32_t storedLineweight(double reference);
double lineweightOf(std::int32_t stored);

/// The number that a file holds of a pen, where 0 is automatic.
std::int16_t storedPen(std::int16_t pen);
std::int16_t penOf(std::int16_t stored);

} // namespace tablefile

#endif
