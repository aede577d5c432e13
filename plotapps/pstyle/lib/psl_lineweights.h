// What the editor of lineweights shares with its hosts: see psl_lineweight_list.h for the rest.

#ifndef PSL_LINEWEIGHTS_H
#define PSL_LINEWEIGHTS_H

#include "psl_api.h"

#include <array>
#include <cstdint>

/// How many lineweights the editor has rows and combo box entries for.
constexpr int lineWeightRows = 27;

/// How many pictures show lineweights.
constexpr int lineWeightPictures = 14;

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

#endif
