// What a sheet of a table's styles shows: a line for every run of equal styles. Draws nothing.

#ifndef PSTYLE_SHEET_LINES_H
#define PSTYLE_SHEET_LINES_H

#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <vector>

class OdPsPlotStyleTable;

/// A line as a run of neighbouring equal styles plots it.
struct SheetLine
{
    enum class End
    {
        Butt,
        Square,
        Round,
        Diamond,
    };
    enum class Join
    {
        Miter,
        Bevel,
        Round,
        Diamond,
    };

    /// The names of the run's first and last style, of long ones both ends; of a colour-dependent
    /// table, the numbers of their colours.
    wxString label;
    /// RGB, screened and in grayscale where the style says so. More than one where the styles of a
    /// colour-dependent table take the colour of the object: then that of each style, or of as many
    /// of them, evenly spread, as a line can show.
    std::vector<std::uint32_t> colors;
    /// In millimetres. An object's own lineweight is drawn as the usual one.
    double width = usualWidth;
    /// Lengths of ink and gap by turns, in millimetres or in widths of the line; empty for a solid
    /// line, as which an object's own linetype is drawn.
    std::vector<double> dashes;
    /// ISO linetypes are measured in widths of the line.
    bool dashesAreWidths = false;
    /// An object's own end and join are drawn round, as plotters do.
    End end = End::Round;
    Join join = Join::Round;

    static constexpr double usualWidth = 0.25;
};

/// The lines of a table's sheet, in the order of the styles.
/// @param most  what comes after so many lines is left out: no sheet has room for it
std::vector<SheetLine> sheetLines(const OdPsPlotStyleTable& table, std::size_t most);

#endif
