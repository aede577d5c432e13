// Tables that say the same in every way in which files are written.

#ifndef SUPPORT_TABLE_VARIANTS_H
#define SUPPORT_TABLE_VARIANTS_H

#include <iosfwd>
#include <string>
#include <vector>

namespace support
{

/// How numbers are written.
enum class NumberForm
{
    Shortest, ///< 0.5, 1.0
    Padded,   ///< 0.500000, 1.000000
    Suffixed, ///< with a binary copy that holds a `=` and a `"`
};

/// A way of writing a table.
struct TableVariant
{
    const char* kind = "CTB";
    bool isReversed = false;     ///< groups, keys and rows from the last to the first
    bool isFlat = false;         ///< no indents
    bool isWindows1252 = false;  ///< else UTF-8
    bool hasCrLf = false;        ///< else LF
    bool hasUnknownKeys = false; ///< among the table's, a style's and the lineweights' keys
    NumberForm numbers = NumberForm::Shortest;
};

/// Every combination.
std::vector<TableVariant> allVariants();
/// Names a variant where a test fails.
void PrintTo(const TableVariant& variant, std::ostream* stream);

/// The number of styles that the text of a variant holds.
constexpr int kVariantStyles = 5;
/// The name of one of them, in the encoding of the variant. Style 1 has a letter that is not
/// ASCII, style 3 characters that also mean something to the format.
std::string variantStyleName(const TableVariant& variant, int style);
/// The text of a table of five styles, 27 lineweights and, but for STB, 255 colours.
std::string variantText(const TableVariant& variant);

} // namespace support

#endif
