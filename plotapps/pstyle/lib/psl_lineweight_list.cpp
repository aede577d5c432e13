// Arithmetic and order of lineweights.

#include "psl_lineweight_list.h"

#include "psl_numbers.h"

#include "odps/od_ps.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

int compareLineWeightData(LineWeightData* first, LineWeightData* second)
{
    if (first->value > second->value)
        return 1;
    return first->value == second->value ? 0 : -1;
}

int lineweightIndex(double stored)
{
    const double position = std::trunc(stored + 0.5);
    const bool fits = std::abs(position) <= std::numeric_limits<int>::max();
    return fits ? static_cast<int>(position) : 0;
}

wxString lineWeightText(double millimeters, bool inches)
{
    return fixedText(millimeters / (inches ? millimetersPerInch : 1.0), 4);
}

// The blank before mm and none before the inch mark are intended: so units are written in drawings.
wxString lineWeightLabel(double millimeters, bool inches)
{
    return lineWeightText(millimeters, inches) + (inches ? "\"" : " mm");
}

int lineWeightPicture(double millimeters)
{
    constexpr double millimetersPerStep = 0.22;
    const double steps = millimeters / millimetersPerStep;
    int picture = 1;
    while (picture < lineWeightPictures && !(steps < picture + 0.5))
        ++picture;
    return picture;
}

std::optional<double> parseLineWeight(const wxString& text, bool inches)
{
    const auto number = parseReal(text);
    if (!number)
        return std::nullopt;
    double value = *number * (inches ? millimetersPerInch : 1.0);
    // Far outside the limits; rounding would not fit the integer.
    if (!(std::abs(value) <= 10 * maxLineWeight))
        return std::nullopt;
    value += value >= 0 ? 0.00005 : -0.00005;
    value = static_cast<double>(static_cast<std::int64_t>(value * 10000.0)) / 10000.0;
    if (value > maxLineWeight || value < 0.0)
        return std::nullopt;
    return value;
}

bool isLineWeightListOutOfOrder(const OdPsPlotStyleTable& table)
{
    for (int i = 1; i < table.lineweightCount(); ++i)
        if (table.lineweightAt(i - 1) > table.lineweightAt(i))
            return true;
    return false;
}

LineWeightUse lineWeightUse(const OdPsPlotStyleTable* table)
{
    LineWeightUse use{};
    for (int s = 0; table && s < table->styleCount(); ++s)
    {
        OdPsPlotStyleData data;
        table->styleAt(s)->getData(data);
        const int position = lineweightIndex(data.lineweight);
        if (position >= 1 && position <= lineWeightRows)
            use[static_cast<std::size_t>(position - 1)] = 1;
    }
    return use;
}

namespace
{

using SortedLineWeights = std::vector<std::unique_ptr<LineWeightData>>;

// Where a new entry goes: before the first entry with an equal value that the search meets.
SortedLineWeights::iterator insertionPoint(SortedLineWeights& sorted, LineWeightData* entry)
{
    auto low = sorted.begin();
    auto high = sorted.end();
    while (low < high)
    {
        const auto middle = low + (high - low) / 2;
        const int order = compareLineWeightData(entry, middle->get());
        if (order == 0)
            return middle;
        if (order < 0)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

SortedLineWeights sortedLineWeights(const OdPsPlotStyleTable& table)
{
    SortedLineWeights sorted;
    for (int i = 0; i < table.lineweightCount(); ++i)
    {
        auto entry = std::make_unique<LineWeightData>(i, table.lineweightAt(i));
        const auto place = insertionPoint(sorted, entry.get());
        sorted.insert(place, std::move(entry));
    }
    return sorted;
}

void remapStyles(OdPsPlotStyleTable& table, const std::vector<int>& newPosition)
{
    for (int s = 0; s < table.styleCount(); ++s)
    {
        const OdPsPlotStylePtr style = table.styleAt(s);
        OdPsPlotStyleData data;
        style->getData(data);
        const int old = lineweightIndex(data.lineweight) - 1;
        if (old < 0)
            continue;
        const bool isListed = old < static_cast<int>(newPosition.size());
        const int position = isListed ? newPosition[static_cast<std::size_t>(old)] : -1;
        if (position == old)
            continue;
        data.lineweight = position + 1;
        style->setData(data);
    }
}

} // namespace

std::vector<int> sortLineWeightList(OdPsPlotStyleTable& table)
{
    const SortedLineWeights sorted = sortedLineWeights(table);
    std::vector<int> newPosition(sorted.size());
    for (std::size_t p = 0; p < sorted.size(); ++p)
    {
        table.setLineweightAt(static_cast<int>(p), sorted[p]->value);
        newPosition[static_cast<std::size_t>(sorted[p]->index)] = static_cast<int>(p);
    }
    remapStyles(table, newPosition);
    return newPosition;
}
