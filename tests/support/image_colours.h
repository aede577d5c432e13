// The colours of pictures.

#ifndef TESTS_SUPPORT_IMAGE_COLOURS_H
#define TESTS_SUPPORT_IMAGE_COLOURS_H

#include <wx/image.h>

#include <set>

/// The colour of a pixel, as 0xRRGGBB.
inline unsigned long rgbOf(const wxImage& image, int x, int y)
{
    return static_cast<unsigned long>(image.GetRed(x, y)) << 16 |
           static_cast<unsigned long>(image.GetGreen(x, y)) << 8 | image.GetBlue(x, y);
}

/// The colours of all pixels, each once.
inline std::set<unsigned long> coloursOf(const wxImage& image)
{
    std::set<unsigned long> colours;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            colours.insert(rgbOf(image, x, y));
    return colours;
}

#endif
