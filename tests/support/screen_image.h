// Pictures of the screen. The toolkit's own screen reading gives what the screen showed the first
// time, so this asks the X server.

#ifndef TESTS_SCREEN_IMAGE_H
#define TESTS_SCREEN_IMAGE_H

#include <wx/image.h>
#include <wx/window.h>

/// What the screen shows in the place of a window, in device pixels; an invalid image on failure.
wxImage screenImage(const wxWindow& window);

#endif
