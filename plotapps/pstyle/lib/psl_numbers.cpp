// Reading of numbers.

#include "psl_numbers.h"

#include <algorithm>

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
