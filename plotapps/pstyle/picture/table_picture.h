// A table as a picture, for folder views. Needs no display.

#ifndef PSTYLE_TABLE_PICTURE_H
#define PSTYLE_TABLE_PICTURE_H

#include <string>

class OdPsPlotStyleTable;

/// Draws a table as an upright sheet of white paper: one line for every run of equal styles, and
/// its name where there is room for it. Where there are too many lines the last ones are left out.
/// @param size  the height in pixels, from `leastPictureSize` to `mostPictureSize`
/// @return the bytes of a PNG file
std::string tablePicture(const OdPsPlotStyleTable& table, int size);

#endif
