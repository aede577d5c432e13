// The container of a table's text.

#include "tablefile/container.h"

#include "tablefile/error.h"
#include "tablefile/limits.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace tablefile
{
namespace
{

constexpr std::array<std::string_view, 3> kMagics = {
    "PIAFILEVERSION_2.0,CTBVER1,compress\r\npmzlibcodec",
    "PIAFILEVERSION_2.0,STBVER1,compress\r\npmzlibcodec",
    "PIAFILEVERSION_2.0,TTBVER1,compress\r\npmzlibcodec",
};
constexpr std::size_t kMagicSize = kMagics[0].size();
constexpr std::size_t kTextSizeOffset = kMagicSize + sizeof(std::uint32_t);
constexpr std::size_t kStreamOffset = kMagicSize + 3 * sizeof(std::uint32_t);
constexpr std::size_t kWideStreamOffset = kMagicSize + 3 * sizeof(std::uint64_t);
constexpr std::size_t kLastStreamOffset = 128;

constexpr std::size_t kZlibHeaderSize = 2;
/// No deflate stream inflates to more than this many times its size.
constexpr std::size_t kMaxInflation = 1032;
/// Most do not to more than this; a buffer that is just large enough is quicker to come by, so the
/// size that the header tells is tried first.
constexpr std::size_t kUsualInflation = 32;
/// Smaller files than those of the usual writers, in a fraction of the time.
constexpr int kCompressionLevel = 6;

struct FreeDecompressor
{
    void operator()(libdeflate_decompressor* d) const { libdeflate_free_decompressor(d); }
};
struct FreeCompressor
{
    void operator()(libdeflate_compressor* c) const { libdeflate_free_compressor(c); }
};

bool startsZlibStream(std::string_view bytes)
{
    if (bytes.size() < kZlibHeaderSize || bytes[0] != 0x78)
        return false;
    const unsigned flags = static_cast<unsigned char>(bytes[1]);
    const bool needsDictionary = (flags & 0x20) != 0;
    return (0x78 * 256 + flags) % 31 == 0 && !needsDictionary;
}

/// The number of four bytes at a position of the header.
std::size_t numberAt(std::string_view file, std::size_t position)
{
    std::size_t value = 0;
    for (std::size_t i = 0; i < 4 && position + i < file.size(); ++i)
        value |= std::size_t{static_cast<unsigned char>(file[position + i])} << (8 * i);
    return value;
}

/// Inflates a zlib stream; its trailer is not looked at. @return nothing when it is damaged
/// @param likelySize that the text has, maybe
std::optional<Buffer> inflate(libdeflate_decompressor* decompressor, std::string_view stream,
                              std::size_t likelySize)
{
    if (!startsZlibStream(stream))
        return std::nullopt;
    stream.remove_prefix(kZlibHeaderSize);
    const std::size_t most = std::min(kMaxText, stream.size() * kMaxInflation + 1);
    for (const std::size_t size : {likelySize, stream.size() * kUsualInflation + 1, most})
    {
        Buffer text(std::min(size, most));
        std::size_t read = 0;
        std::size_t written = 0;
        const libdeflate_result result = libdeflate_deflate_decompress_ex(
            decompressor, stream.data(), stream.size(), text.data(), text.size(), &read, &written);
        if (result == LIBDEFLATE_INSUFFICIENT_SPACE)
            continue;
        if (result != LIBDEFLATE_SUCCESS)
            return std::nullopt;
        while (written > 0 && text.data()[written - 1] == '\0')
            --written;
        text.shrink(written);
        return text;
    }
    throw Error{Status::TooLarge, kStreamOffset, reason("the text is too long"), Place::File};
}

void putNumber(char* out, std::size_t value)
{
    for (int i = 0; i < 4; ++i)
        out[i] = static_cast<char>(value >> (8 * i) & 0xFF);
}

} // namespace

std::string_view magicFor(bool colorDependent)
{
    return kMagics[colorDependent ? 0 : 1];
}

std::string_view magicOf(std::string_view file)
{
    const std::string_view magic = file.substr(0, kMagicSize);
    if (std::find(kMagics.begin(), kMagics.end(), magic) == kMagics.end())
        throw Error{Status::NotATable, 0,
                    reason("the file does not have the header of a plot style table"), Place::File};
    return magic;
}

bool isColorDependentMagic(std::string_view magic)
{
    return magic == kMagics[0];
}

Buffer unpack(std::string_view file)
{
    (void)magicOf(file);
    const std::unique_ptr<libdeflate_decompressor, FreeDecompressor> decompressor(
        libdeflate_alloc_decompressor());
    if (!decompressor)
        throw std::bad_alloc();
    const std::size_t likelySize = numberAt(file, kTextSizeOffset);
    const auto inflateAt = [&](std::size_t offset) -> std::optional<Buffer>
    {
        if (offset >= file.size())
            return std::nullopt;
        return inflate(decompressor.get(), file.substr(offset), likelySize);
    };
    for (const std::size_t usual : {kStreamOffset, kWideStreamOffset})
    {
        if (std::optional<Buffer> text = inflateAt(usual))
            return std::move(*text);
    }
    for (std::size_t offset = kMagicSize; offset <= kLastStreamOffset; ++offset)
    {
        if (std::optional<Buffer> text = inflateAt(offset))
            return std::move(*text);
    }
    throw Error{Status::NotATable, kStreamOffset,
                reason("the compressed data is incomplete or damaged"), Place::File};
}

Buffer pack(std::string_view magic, const std::string& text)
{
    const std::size_t textSize = text.size() + 1; // with the NUL that ends it
    if (textSize > kMaxText)
        throw Error{Status::TooLarge, 0, reason("the text is too long")};
    const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(kCompressionLevel));
    if (!compressor)
        throw std::bad_alloc();
    const std::size_t bound = libdeflate_zlib_compress_bound(compressor.get(), textSize);
    Buffer file(kStreamOffset + bound);
    char* const stream = file.data() + kStreamOffset;
    const std::size_t streamSize =
        libdeflate_zlib_compress(compressor.get(), text.c_str(), textSize, stream, bound);

    std::copy(magic.begin(), magic.end(), file.data());
    putNumber(file.data() + kMagicSize, libdeflate_adler32(1, stream, streamSize));
    putNumber(file.data() + kTextSizeOffset, textSize);
    putNumber(file.data() + kMagicSize + 8, streamSize);
    file.shrink(kStreamOffset + streamSize);
    return file;
}

} // namespace tablefile
