// Lineweights of a table: their texts, pictures, limits and order. Knows no control.

#ifndef PSL_LINEWEIGHTS_H
#define PSL_LINEWEIGHTS_H

#include "psl_api.h"

#include <wx/string.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

class OdPsPlotStyleTable;

/// How many lineweights the editor has rows and combo box entries for.
constexpr int lineWeightRows = 27;

/// The largest lineweight that a user may enter, in millimetres.
constexpr double maxLineWeight = 200.0;

constexpr double millimetersPerInch = 25.4;

/// For every row of the editor 1 if at least one style draws with that lineweight, else 0.
using LineWeightUse = std::array<unsigned char, lineWeightRows>;

/// One lineweight while a table's list is sorted.
class LineWeightData
{
public:
    LineWeightData(std::int32_t position, double millimeters)
        : index(position)
        , value(millimeters)
    {
    }
    virtual ~LineWeightData() = default;

    /// The lineweight's 0-based position in the table before sorting.
    std::int32_t index;
    /// The lineweight in millimetres.
    double value;
};

/// Orders lineweights by value.
/// @return +1 if the first is greater, 0 if they are equal, else -1; -1 also when either value is
///         not a number
PSL_API int compareLineWeightData(LineWeightData* first, LineWeightData* second);

/// Gives the list position that a style's lineweight refers to.
/// Adds 0.5 and truncates toward zero: 2.4 gives 2, 2.6 gives 3, -1.0 gives 0.
/// @param stored  the style's lineweight field, 1-based, held as a double
/// @return 0 for "use object lineweight", otherwise a 1-based position, which may lie past the end
///         of the list; 0 also for a value that no position can have
PSL_API int lineweightIndex(double stored);

/// The displayed number of a lineweight, with four decimals behind a point and no unit.
/// @param inches  the unit of the display; false = millimetres
PSL_API wxString lineWeightText(double millimeters, bool inches);

/// The displayed number with its unit: a blank and mm, or an inch mark without a blank.
PSL_API wxString lineWeightLabel(double millimeters, bool inches);

/// How many pictures show lineweights.
constexpr int lineWeightPictures = 14;

/// The number, 1 to 14, of the picture that shows a lineweight, whatever the display unit: the
/// thickness in steps of 0.22 mm.
PSL_API int lineWeightPicture(double millimeters);

/// Reads a lineweight that the user typed, with a decimal point or a decimal comma.
/// @param inches  the unit it was typed in
/// @return millimetres, rounded to four decimals with halves away from zero; nothing for a text
/// that
///         is no number or lies outside 0 to `maxLineWeight`
PSL_API std::optional<double> parseLineWeight(const wxString& text, bool inches);

/// Whether some lineweight of the table is greater than its successor.
PSL_API bool isLineWeightListOutOfOrder(const OdPsPlotStyleTable& table);

/// Which lineweights the table's styles draw with. References past the editor's rows are left out.
/// @param table  may be null
PSL_API LineWeightUse lineWeightUse(const OdPsPlotStyleTable* table);

/// Sorts the table's lineweights ascending and makes every style refer to the value that it
/// referred to before; a reference past the list becomes 0, "use object lineweight". Styles whose
/// value stays in its place are not written.
/// @return for every lineweight its position after the sort, by its position before
PSL_API std::vector<int> sortLineWeightList(OdPsPlotStyleTable& table);

#endif
