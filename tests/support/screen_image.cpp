// Reading the screen from the X server.

#include "support/screen_image.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cmath>

namespace
{

unsigned char channel(unsigned long pixel, unsigned long mask)
{
    while (mask != 0 && (mask & 1) == 0)
    {
        pixel >>= 1;
        mask >>= 1;
    }
    return static_cast<unsigned char>(pixel & mask);
}

wxImage toImage(XImage& source)
{
    wxImage image(source.width, source.height);
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x)
        {
            const unsigned long pixel = XGetPixel(&source, x, y);
            image.SetRGB(x, y, channel(pixel, source.red_mask), channel(pixel, source.green_mask),
                         channel(pixel, source.blue_mask));
        }
    return image;
}

} // namespace

wxImage screenImage(const wxWindow& window)
{
    const double scale = window.GetContentScaleFactor();
    const auto pixels = [scale](int length)
    { return static_cast<int>(std::lround(length * scale)); };
    const wxRect area = window.GetScreenRect();
    Display* display = XOpenDisplay(nullptr);
    if (!display)
        return wxImage();
    XImage* source = XGetImage(display, DefaultRootWindow(display), pixels(area.x), pixels(area.y),
                               static_cast<unsigned>(pixels(area.width)),
                               static_cast<unsigned>(pixels(area.height)), AllPlanes, ZPixmap);
    wxImage image;
    if (source)
    {
        image = toImage(*source);
        XDestroyImage(source);
    }
    XCloseDisplay(display);
    return image;
}
