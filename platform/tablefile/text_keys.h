// The keys of a table's text, in the order in which a new file has them.

#ifndef TABLEFILE_TEXT_KEYS_H
#define TABLEFILE_TEXT_KEYS_H

#include "odps/od_ps.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace tablefile
{

enum class TableKey : std::size_t
{
    Description,
    AciTableAvailable,
    ScaleFactor,
    ApplyFactor,
    LineweightUnits,
};

constexpr std::array<std::string_view, 5> kTableKeys = {"description", "aci_table_available",
                                                        "scale_factor", "apply_factor",
                                                        "custom_lineweight_display_units"};

enum class TableGroup : std::size_t
{
    AciTable,
    Styles,
    Lineweights,
};

constexpr std::array<std::string_view, 3> kTableGroups = {"aci_table", "plot_style",
                                                          "custom_lineweight_table"};

enum class StyleKey : std::size_t
{
    Name,
    LocalizedName,
    Description,
    Color,
    ModeColor,
    ColorPolicy,
    PhysicalPen,
    VirtualPen,
    Screen,
    LinePatternSize,
    Linetype,
    AdaptiveLinetype,
    Lineweight,
    FillStyle,
    EndStyle,
    JoinStyle,
};

constexpr std::array<std::string_view, 16> kStyleKeys = {
    "name",         "localized_name",      "description",        "color",      "mode_color",
    "color_policy", "physical_pen_number", "virtual_pen_number", "screen",     "linepattern_size",
    "linetype",     "adaptive_linetype",   "lineweight",         "fill_style", "end_style",
    "join_style"};

/// The fields of the data record that are plain numbers in the file too; null for the other keys.
constexpr std::array<std::int16_t OdPsPlotStyleData::*, kStyleKeys.size()> kStyleNumbers = {
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    &OdPsPlotStyleData::colorPolicy,
    &OdPsPlotStyleData::physicalPenNumber,
    &OdPsPlotStyleData::virtualPenNumber,
    &OdPsPlotStyleData::screening,
    nullptr,
    &OdPsPlotStyleData::linetype,
    nullptr,
    nullptr,
    &OdPsPlotStyleData::fillStyle,
    &OdPsPlotStyleData::endStyle,
    &OdPsPlotStyleData::joinStyle};

template <class Key>
constexpr std::size_t indexOf(Key key)
{
    return static_cast<std::size_t>(key);
}

/// Finds a key. @param hint where to look first: most files keep the order of the keys
/// @return the key's position, or the number of keys when it is none of them
template <std::size_t N>
std::size_t findKey(const std::array<std::string_view, N>& keys, std::string_view key,
                    std::size_t hint)
{
    for (std::size_t i = 0; i < N; ++i)
    {
        const std::size_t candidate = hint + i < N ? hint + i : hint + i - N;
        if (keys[candidate] == key)
            return candidate;
    }
    return N;
}

} // namespace tablefile

#endif
