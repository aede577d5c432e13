// Fitting a path into the width of a label. Knows no control.

#ifndef PSL_PATH_TEXT_H
#define PSL_PATH_TEXT_H

#include <wx/string.h>

#include <functional>
#include <string>

/// Cuts a text at its end, and marks the cut with three dots, until it leaves 4 pixels of the width
/// free. A text of fewer than 16 characters is never cut, a longer one not below 12 characters and
/// the dots; a width below 7 pixels gets the whole text.
/// @param width    in pixels
/// @param measure  gives a text's width in pixels
wxString fitPath(const wxString& text, int width,
                 const std::function<int(const wxString&)>& measure);

/// A path as the system knows it; in UTF-8 where the locale has no word for it.
std::string systemPath(const wxString& path);

/// A text of the system, in which the name of a file need not be UTF-8.
wxString systemText(const std::string& text);

#endif
