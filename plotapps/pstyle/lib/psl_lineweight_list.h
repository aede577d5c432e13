// Lineweights of a table: their texts, pictures, limits and order. Knows no control.

#ifndef PSL_LINEWEIGHT_LIST_H
#define PSL_LINEWEIGHT_LIST_H

#include "psl_lineweights.h"

#include "odps/od_ps.h"

#include <wx/string.h>

#include <optional>
#include <vector>

/// The largest lineweight that a user may enter, in millimetres.
constexpr double maxLineWeight = 200.0;

constexpr double millimetersPerInch = 25.4;

/// Gives the list position that a style's lineweight refers to.
/// Adds 0.5 and truncates toward zero: 2.4 gives 2, 2.6 gives 3, -1.0 gives 0.
/// @param stored  the style's lineweight field, 1-based, held as a double
/// @return 0 for "use object lineweight", otherwise a 1-based position, which may lie past the end
///         of the list; 0 also for a value that no position can have
int lineweightIndex(double stored);

/// The displayed number of a lineweight, with four decimals behind a point and no unit.
/// @param inches  the unit of the display; false = millimetres
wxString lineWeightText(double millimeters, bool inches);

/// The displayed number with its unit: a blank and mm, or an inch mark without a blank.
wxString lineWeightLabel(double millimeters, bool inches);

/// The number, 1 to 14, of the picture that shows a lineweight, whatever the display unit: the
/// thickness in steps of 0.22 mm.
int lineWeightPicture(double millimeters);

/// Reads a lineweight that the user typed, with a decimal point or a decimal comma.
/// @param inches  the unit it was typed in
/// @return millimetres, rounded to four decimals with halves away from zero; nothing for a text
///         that is no number or lies outside 0 to `maxLineWeight`
std::optional<double> parseLineWeight(const wxString& text, bool inches);

/// Whether some lineweight of the table is greater than its successor.
bool isLineWeightListOutOfOrder(const OdPsPlotStyleTable& table);

/// Which lineweights the table's styles draw with. References past the editor's rows are left out.
/// @param table  may be null
LineWeightUse lineWeightUse(const OdPsPlotStyleTable* table);

/// Sorts the table's lineweights ascending and makes every style refer to the value that it
/// referred to before; a reference past the list becomes 0, "use object lineweight". Styles whose
/// value stays in its place are not written.
/// @return for every lineweight its position after the sort, by its position before
std::vector<int> sortLineWeightList(OdPsPlotStyleTable& table);

#endif
