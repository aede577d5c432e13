// The values of a table's text.

#include "tablefile/values.h"

#include "tablefile/error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tablefile
{
namespace
{

constexpr wchar_t kReplacement = 0xFFFD;
constexpr std::int16_t kAutomaticPen = -1;
constexpr double kObjectLineweight = -1.0;

/// Windows-1252 from 0x80 to 0x9F; the five codes that it leaves undefined stay as they are.
constexpr std::array<wchar_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string_view trimmed(std::string_view value)
{
    while (!value.empty() && isBlank(value.front()))
        value.remove_prefix(1);
    while (!value.empty() && isBlank(value.back()))
        value.remove_suffix(1);
    return value;
}

bool equalsIgnoringCase(std::string_view value, std::string_view upper)
{
    if (value.size() != upper.size())
        return false;
    for (std::size_t i = 0; i < value.size(); ++i)
    {
        const char c = value[i];
        if ((c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c) != upper[i])
            return false;
    }
    return true;
}

bool isCharacter(std::uint32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

/// Decodes UTF-8 strictly: no overlong forms, no surrogates. @return whether all of it is valid
bool decodeUtf8(std::string_view bytes, std::wstring& text)
{
    constexpr std::array<std::uint32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
    for (std::size_t i = 0; i < bytes.size();)
    {
        const auto lead = static_cast<unsigned char>(bytes[i++]);
        const std::size_t more = lead < 0x80 ? 0 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        if ((lead >= 0x80 && lead < 0xC0) || lead >= 0xF8 || bytes.size() - i < more)
            return false;
        std::uint32_t code = more == 0 ? lead : lead & (0x3Fu >> more);
        for (std::size_t k = 0; k < more; ++k)
        {
            const auto next = static_cast<unsigned char>(bytes[i++]);
            if ((next & 0xC0) != 0x80)
                return false;
            code = code << 6 | (next & 0x3F);
        }
        if (code < kSmallest[more] || !isCharacter(code))
            return false;
        text.push_back(static_cast<wchar_t>(code));
    }
    return true;
}

void decodeWindows1252(std::string_view bytes, std::wstring& text)
{
    for (const char c : bytes)
    {
        const auto code = static_cast<unsigned char>(c);
        const bool special = code >= 0x80 && code < 0xA0;
        text.push_back(special ? kWindows1252[code - 0x80u] : static_cast<wchar_t>(code));
    }
}

void appendUtf8(std::string& bytes, std::uint32_t code)
{
    const int more = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    const std::uint32_t lead = more == 0 ? 0 : 0xFF00u >> (more + 1) & 0xFF;
    bytes.push_back(static_cast<char>(lead | code >> (6 * more)));
    for (int k = more - 1; k >= 0; --k)
        bytes.push_back(static_cast<char>(0x80 | (code >> (6 * k) & 0x3F)));
}

std::uint32_t rgbOf(OdCmEntityColor color)
{
    return color.color() & 0xFFFFFF;
}

std::int32_t withMethod(OdCmEntityColor::ColorMethod method, std::uint32_t rgb)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(method) << 24 | rgb);
}

} // namespace

bool readInteger(std::string_view value, std::int64_t& number)
{
    value = trimmed(value);
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    return error == std::errc() && stop == end;
}

bool readReal(std::string_view value, double& number)
{
    value = trimmed(value);
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    return error == std::errc() && (stop == end || isBlank(*stop)) && std::isfinite(number);
}

std::string writeReal(double value)
{
    if (!std::isfinite(value))
        throw Error{Status::CannotStore, 0, reason("a number is not finite")};
    constexpr std::size_t kLongestFixed = 1100;
    std::array<char, kLongestFixed> digits;
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                      std::chars_format::fixed);
    std::string text(digits.data(), result.ptr);
    if (text.find('.') == std::string::npos)
        text += ".0";
    return text;
}

bool readBoolean(std::string_view value, bool& boolean)
{
    value = trimmed(value);
    boolean = equalsIgnoringCase(value, "TRUE");
    return boolean || equalsIgnoringCase(value, "FALSE");
}

std::string writeBoolean(bool value)
{
    return value ? "TRUE" : "FALSE";
}

void readText(std::string_view value, std::wstring& text)
{
    if (!value.empty() && value.front() == '"')
        value.remove_prefix(1);
    // Almost every text is ASCII, where all three encodings agree.
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::all_of(value.begin(), value.end(), isAscii))
    {
        text.resize(value.size());
        std::copy(value.begin(), value.end(), text.begin());
        return;
    }
    text.clear();
    if (decodeUtf8(value, text))
        return;
    text.clear();
    decodeWindows1252(value, text);
}

std::wstring storableText(std::wstring text)
{
    text.resize(std::min(text.find(L'\0'), text.size()));
    const auto isStorable = [](wchar_t c)
    { return c != L'\r' && c != L'\n' && isCharacter(static_cast<std::uint32_t>(c)); };
    if (std::all_of(text.begin(), text.end(), isStorable))
        return text;
    std::wstring stored;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool isBreak = text[i] == L'\n' || text[i] == L'\r';
        const bool endsCrLf = text[i] == L'\n' && i > 0 && text[i - 1] == L'\r';
        if (!endsCrLf)
            stored.push_back(isBreak ? L' ' : isStorable(text[i]) ? text[i] : kReplacement);
    }
    return stored;
}

std::string writeText(const std::wstring& text)
{
    std::string bytes = "\"";
    bytes.reserve(text.size() + 1);
    for (const wchar_t c : text)
        appendUtf8(bytes, static_cast<std::uint32_t>(c));
    return bytes;
}

std::uint32_t storedColor(OdCmEntityColor color)
{
    switch (color.colorMethod())
    {
    case OdCmEntityColor::kByLayer:
    case OdCmEntityColor::kByBlock:
        return kObjectColor;
    case OdCmEntityColor::kByACI:
    {
        const int index = color.colorIndex();
        return index == 0 ? kObjectColor : OdCmEntityColor::lookUpRGB(index);
    }
    default:
        return rgbOf(color);
    }
}

OdCmEntityColor colorOf(std::uint32_t stored)
{
    if (stored == kObjectColor)
        return {};
    return {static_cast<std::uint8_t>(stored >> 16 & 0xFF),
            static_cast<std::uint8_t>(stored >> 8 & 0xFF),
            static_cast<std::uint8_t>(stored & 0xFF)};
}

ColorValues writeColor(std::uint32_t stored)
{
    constexpr std::uint32_t kBlack = 0;
    const OdCmEntityColor color = colorOf(stored);
    const std::uint32_t nearest = OdCmEntityColor::lookUpRGB(color.colorIndex());
    // Black is not in the palette, and yet the files call it an index colour.
    const bool isIndexColor = stored == nearest || stored == kBlack;
    const auto method = isIndexColor ? OdCmEntityColor::kByACI : OdCmEntityColor::kByColor;
    return {withMethod(OdCmEntityColor::kByACI, stored == kBlack ? kBlack : nearest),
            withMethod(method, stored)};
}

std::int32_t storedLineweight(double reference)
{
    if (reference <= 0)
        return 0;
    const double nearest = reference + 0.5;
    if (!(nearest < static_cast<double>(std::numeric_limits<std::int32_t>::max()) + 1))
        throw Error{Status::CannotStore, 0, reason("a lineweight reference is out of range")};
    return static_cast<std::int32_t>(nearest);
}

double lineweightOf(std::int32_t stored)
{
    return stored == 0 ? kObjectLineweight : static_cast<double>(stored);
}

std::int16_t storedPen(std::int16_t pen)
{
    return pen == kAutomaticPen ? std::int16_t{0} : pen;
}

std::int16_t penOf(std::int16_t stored)
{
    return stored == 0 ? kAutomaticPen : stored;
}

} // namespace tablefile
