// Numbers as users type them and as the dialogs show them, whatever the locale. Knows no control.

#ifndef PSL_NUMBERS_H
#define PSL_NUMBERS_H

#include <wx/string.h>

#include <optional>

/// Reads a number with a decimal point or a decimal comma.
/// @return nothing for a text that is not a number as a whole
std::optional<double> parseReal(const wxString& text);

/// Reads a whole number and takes it to the nearer end of a range where it lies outside.
/// @return nothing for a text that is not a whole number
std::optional<int> parseInteger(const wxString& text, int least, int greatest);

/// A number with so many decimals behind a point.
wxString fixedText(double value, int decimals);

/// A number in the shortest form of six significant digits, with a point.
wxString generalText(double value);

#endif
