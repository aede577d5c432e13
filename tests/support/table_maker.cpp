// Makes the text and the bytes of table files.

#include "support/table_maker.h"

#include <gtest/gtest.h>
#include <libdeflate.h>

#include <memory>

namespace support
{
namespace
{

constexpr std::size_t kHeaderSize = 60;
constexpr std::size_t kMostText = std::size_t{64} << 20;

void appendNumber(std::string& bytes, std::uint64_t number, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
}

std::string deflated(std::string_view text, int level)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    std::string stream(libdeflate_zlib_compress_bound(compressor.get(), text.size()), '\0');
    stream.resize(libdeflate_zlib_compress(compressor.get(), text.data(), text.size(),
                                           stream.data(), stream.size()));
    return stream;
}

std::string tableStart(bool colors)
{
    return std::string("description=\"\naci_table_available=") + (colors ? "TRUE" : "FALSE") +
           "\nscale_factor=1.0\napply_factor=FALSE\ncustom_lineweight_display_units=0\n";
}

std::string stylesText(const std::vector<std::string>& names)
{
    std::string text = "plot_style{\n";
    for (std::size_t i = 0; i < names.size(); ++i)
        text += styleText(static_cast<int>(i), names[i]);
    return text + "}\n";
}

std::string colorsText(const std::vector<std::string>& names)
{
    std::string text = "aci_table{\n";
    for (std::size_t i = 0; i < 255; ++i)
        text += " " + std::to_string(i) + "=\"" + names[i % names.size()] + "\n";
    return text + "}\n";
}

} // namespace

std::string pack(std::string_view text, const Container& container)
{
    const std::string padded =
        std::string(text) + std::string(static_cast<std::size_t>(container.finalNuls), '\0');
    const std::string stream = deflated(padded, container.level);
    const std::uint32_t checksum =
        libdeflate_adler32(1, stream.data(), stream.size()) ^ container.checksumXor;
    const int size = container.wideNumbers ? 8 : 4;
    std::string file = "PIAFILEVERSION_2.0," + container.kind + "VER1,compress\r\npmzlibcodec";
    appendNumber(file, checksum, size);
    appendNumber(file, container.inflatedSize ? container.inflatedSize : padded.size(), size);
    appendNumber(file, container.compressedSize ? container.compressedSize : stream.size(), size);
    return file + container.padding + stream;
}

std::string unpack(std::string_view file)
{
    if (file.size() < kHeaderSize)
    {
        ADD_FAILURE() << "the file has no header";
        return {};
    }
    const std::string_view stream = file.substr(kHeaderSize);
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    std::string text;
    std::size_t size = 0;
    libdeflate_result result = LIBDEFLATE_INSUFFICIENT_SPACE;
    for (std::size_t room = 64 * 1024; result == LIBDEFLATE_INSUFFICIENT_SPACE && room <= kMostText;
         room *= 4)
    {
        text.resize(room);
        result = libdeflate_zlib_decompress(decompressor.get(), stream.data(), stream.size(),
                                            text.data(), text.size(), &size);
    }
    EXPECT_EQ(result, LIBDEFLATE_SUCCESS);
    text.resize(size);
    if (!text.empty() && text.back() == '\0')
        text.pop_back();
    return text;
}

std::vector<std::string> splitLines(std::string_view text)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin <= text.size();)
    {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

std::string joinLines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += (&line == &lines.front() ? "" : "\n") + line;
    return text;
}

std::vector<std::string> changedLines(std::string_view before, std::string_view after)
{
    const std::vector<std::string> a = splitLines(before);
    const std::vector<std::string> b = splitLines(after);
    EXPECT_EQ(a.size(), b.size());
    std::vector<std::string> changes;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i)
    {
        if (a[i] != b[i])
            changes.push_back(a[i] + " -> " + b[i]);
    }
    return changes;
}

std::string withCrLf(std::string_view text)
{
    std::string result;
    for (const char c : text)
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return result;
}

std::string withoutKey(std::string_view text, std::string_view key)
{
    std::vector<std::string> kept;
    for (const std::string& line : splitLines(text))
    {
        const std::size_t first = line.find_first_not_of(' ');
        if (first == std::string::npos ||
            line.compare(first, key.size() + 1, std::string(key) + "=") != 0)
            kept.push_back(line);
    }
    return joinLines(kept);
}

std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    const std::size_t found = text.find(from);
    if (found == std::string::npos)
    {
        ADD_FAILURE() << "the text has no " << from;
        return text;
    }
    return text.replace(found, from.size(), to);
}

std::string styleText(int number, std::string_view name)
{
    const std::string quoted = '"' + std::string(name) + '\n';
    return " " + std::to_string(number) + "{\n  name=" + quoted + "  localized_name=" + quoted +
           "  description=\"\n"
           "  color=-1006632961\n"
           "  mode_color=-1006632961\n"
           "  color_policy=1\n"
           "  physical_pen_number=0\n"
           "  virtual_pen_number=0\n"
           "  screen=100\n"
           "  linepattern_size=0.5\n"
           "  linetype=31\n"
           "  adaptive_linetype=TRUE\n"
           "  lineweight=0\n"
           "  fill_style=73\n"
           "  end_style=4\n"
           "  join_style=5\n"
           " }\n";
}

std::string lineweightText()
{
    static const char* const kWeights[] = {"0.0",  "0.05", "0.09", "0.1",  "0.13", "0.15", "0.18",
                                           "0.2",  "0.25", "0.3",  "0.35", "0.4",  "0.45", "0.5",
                                           "0.53", "0.6",  "0.65", "0.7",  "0.8",  "0.9",  "1.0",
                                           "1.06", "1.2",  "1.4",  "1.58", "2.0",  "2.11"};
    std::string text = "custom_lineweight_table{\n";
    int row = 0;
    for (const char* const weight : kWeights)
        text += " " + std::to_string(row++) + "=" + weight + "\n";
    return text + "}\n";
}

std::string colorTableText()
{
    std::vector<std::string> names;
    for (int i = 1; i <= 255; ++i)
        names.push_back("Color_" + std::to_string(i));
    return tableStart(true) + colorsText(names) + stylesText(names) + lineweightText();
}

std::string namedTableText(const std::vector<std::string>& names)
{
    return tableStart(false) + stylesText(names) + lineweightText();
}

std::string mappedTableText(const std::vector<std::string>& names)
{
    return tableStart(true) + colorsText(names) + stylesText(names) + lineweightText();
}

std::string largeTableText(int count)
{
    std::string text = tableStart(false) + "plot_style{\n";
    for (int i = 0; i < count; ++i)
    {
        const std::string name = "\"Style " + std::to_string(i) + "\n";
        const std::int64_t color = -1023410176 + i; // an index colour's bits, whatever the RGB
        text += " " + std::to_string(i) + "{\n  name=" + name + "  localized_name=" + name +
                "  color=" + std::to_string(color) + "\n  lineweight=" + std::to_string(i % 28) +
                "\n }\n";
    }
    return text + "}\n" + lineweightText();
}

} // namespace support
