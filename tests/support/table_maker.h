// Makes the text and the bytes of table files, in every variant that files come in.

#ifndef SUPPORT_TABLE_MAKER_H
#define SUPPORT_TABLE_MAKER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace support
{

/// How a text is put into a file.
struct Container
{
    std::string kind = "CTB";      ///< CTB, STB, TTB, or anything else
    int finalNuls = 1;             ///< NULs behind the text
    bool wideNumbers = false;      ///< three 64-bit numbers, so that the stream is at 72
    std::string padding;           ///< bytes between the numbers and the stream
    std::uint32_t checksumXor = 0; ///< bits to flip in the checksum
    /// The sizes that the header states; 0 states the true ones.
    std::uint32_t inflatedSize = 0;
    std::uint32_t compressedSize = 0;
    int level = 6; ///< of the compression; 0 stores
};

/// The bytes of a table file with this text.
std::string pack(std::string_view text, const Container& container = {});
/// The text of a table file, by a reader of its own: what follows the 60 bytes of the header,
/// inflated, less one NUL. Fails the test when that is not a zlib stream with a right trailer.
std::string unpack(std::string_view file);

std::vector<std::string> splitLines(std::string_view text);
std::string joinLines(const std::vector<std::string>& lines);

/// The lines in which two texts of the same number of lines differ: "old -> new".
std::vector<std::string> changedLines(std::string_view before, std::string_view after);

/// The text with every LF made a CR LF.
std::string withCrLf(std::string_view text);
/// The text without the lines whose key is `key`.
std::string withoutKey(std::string_view text, std::string_view key);
/// The text with `from` replaced by `to`, once; fails the test when it does not occur.
std::string replaced(std::string text, std::string_view from, std::string_view to);

/// One style group as other programs write it, with a number and a name.
std::string styleText(int number, std::string_view name);
/// The text of a colour-dependent table of 255 styles, as other programs write it.
std::string colorTableText();
/// The text of a named table with these styles.
std::string namedTableText(const std::vector<std::string>& names);
/// The text of a named table with colours that refer to its styles: colour i to style i modulo
/// the number of styles.
std::string mappedTableText(const std::vector<std::string>& names);
/// The text of a named table of many styles with short groups: "Style 0", "Style 1" …, of which
/// every one has a colour and a lineweight of its own.
std::string largeTableText(int count);
/// The lineweight group of a new table.
std::string lineweightText();

} // namespace support

#endif
