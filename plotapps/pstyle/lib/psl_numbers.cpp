// Reading and writing of numbers.

#include "psl_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>

std::optional<double> parseReal(const wxString& text)
{
    wxString withPoint = text;
    withPoint.Replace(",", ".");
    double value = 0;
    if (!withPoint.ToCDouble(&value))
        return std::nullopt;
    return value;
}

std::optional<int> parseInteger(const wxString& text, int least, int greatest)
{
    long long value = 0;
    if (!wxString(text).Trim().Trim(false).ToLongLong(&value))
        return std::nullopt;
    return static_cast<int>(std::clamp<long long>(value, least, greatest));
}

namespace
{

wxString textOf(double value, std::chars_format format, int precision)
{
    std::array<char, 400> text{}; // the longest number has 309 digits before the point
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision).ptr;
    return wxString(text.data(), static_cast<size_t>(end - text.data()));
}

} // namespace

wxString fixedText(double value, int decimals)
{
    return textOf(value, std::chars_format::fixed, decimals);
}

wxString generalText(double value)
{
    constexpr int significantDigits = 6;
    return textOf(value, std::chars_format::general, significantDigits);
}
