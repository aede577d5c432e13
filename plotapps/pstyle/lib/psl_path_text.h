// Fitting a path into the width of a label. Knows no control.

#ifndef PSL_PATH_TEXT_H
#define PSL_PATH_TEXT_H

#include "psl_api.h"

#include <wx/string.h>

#include <functional>

/// Cuts a text at its end, and marks the cut with three dots, until it leaves 4 pixels of the width
/// free. A text of fewer than 16 characters is never cut, a longer one not below 12 characters and
/// the dots; a width below 7 pixels gets the whole text.
/// @param width    in pixels
/// @param measure  gives a text's width in pixels
PSL_API wxString fitPath(const wxString& text, int width,
                         const std::function<int(const wxString&)>& measure);

#endif
