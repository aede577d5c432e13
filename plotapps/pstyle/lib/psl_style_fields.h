// The properties of the selected styles, gathered into what the fields show. Knows no control.

#ifndef PSL_STYLE_FIELDS_H
#define PSL_STYLE_FIELDS_H

#include "odps/od_ps.h"

#include <cstdint>
#include <functional>

/// Reserved values of the fields that hold an integer.
constexpr int fieldUnset = -2;
constexpr int fieldDiffers = -3;

/// The colour of a style as packed RGB (0xRRGGBB) that stands for the object's own colour.
constexpr std::uint32_t objectColor = 0xFFFFFF;

/// A value gathered over several styles.
template <class T>
struct Gathered
{
    enum State
    {
        Unset,
        Same,
        Differs
    } state = Unset;
    T value{};

    void add(const T& next)
    {
        if (state == Unset)
        {
            state = Same;
            value = next;
        }
        else if (state == Same && !(value == next))
        {
            state = Differs;
            value = T{};
        }
    }
};

/// What the fields show of the selected styles: for every property its common value, or
/// `fieldDiffers`.
struct StyleFields
{
    int dither = fieldUnset;
    int grayscale = fieldUnset;
    int adaptive = fieldUnset;
    int physicalPen = fieldUnset;
    int virtualPen = fieldUnset;
    int screening = fieldUnset;
    int lineType = fieldUnset;
    int lineWeight = fieldUnset;
    int endStyle = fieldUnset;
    int joinStyle = fieldUnset;
    int fillStyle = fieldUnset;
    /// Packed RGB; `objectColor` for the object's own.
    Gathered<std::uint32_t> color;
    /// Empty where the styles' descriptions differ.
    Gathered<OdString> description;
};

/// Gathers the properties of styles; with no style at all the fields show a style's usual values.
/// @param next  gives one style after the other, and null behind the last; it is not asked again
///              once every property is known to differ
StyleFields gatherStyleFields(const std::function<OdPsPlotStylePtr()>& next);

/// The RGB of a style's colour, packed; an index colour gives its palette colour.
std::uint32_t styleRgb(OdCmEntityColor color);

/// The colour that is told by its RGB, packed, and not by an index.
OdCmEntityColor byColor(std::uint32_t rgb);

/// @name Changes of one property
/// They keep the explicit-colour flag of the colour policy in step: it is set where a style has a
/// colour of its own and is not plotted in grayscale.
/// @{
void changeColor(OdPsPlotStyleData& data, std::uint32_t rgb);
void changeDither(OdPsPlotStyleData& data, bool dither);
void changeGrayscale(OdPsPlotStyleData& data, bool grayscale);
/// @}

#endif
