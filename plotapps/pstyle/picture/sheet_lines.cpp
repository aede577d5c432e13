// From styles to the lines of a sheet.

#include "sheet_lines.h"

#include "psl_lineweight_list.h"

#include "odps/od_ps.h"
#include "wxgui/color_dialog.h"

#include <wx/colour.h>

#include <algorithm>

namespace
{

const std::vector<double> linetypes[] = {
#include "linetypes.inc"
};
constexpr int solid = 0;
constexpr int firstIsoLinetype = 17;
constexpr double millimetersPerUnit = 0.5;

OdPsPlotStyleData dataOf(const OdPsPlotStyleTable& table, int style)
{
    OdPsPlotStyleData data;
    table.styleAt(style)->getData(data);
    return data;
}

bool takesObjectsColor(const OdPsPlotStyleData& data)
{
    return data.color.colorMethod() != OdCmEntityColor::kByACI &&
           (data.color.color() & 0xFFFFFF) == 0xFFFFFF;
}

// The colour of the ink, on white paper.
std::uint32_t inkColor(OdCmEntityColor color, const OdPsPlotStyleData& data)
{
    constexpr int convertToGrayscale = 2;
    const wxColour ink = wxg::toolkitColor(color);
    unsigned char channels[] = {ink.Red(), ink.Green(), ink.Blue()};
    if (data.colorPolicy & convertToGrayscale)
        wxColour::MakeGrey(&channels[0], &channels[1], &channels[2]);
    const int intensity = std::clamp<int>(data.screening, 0, 100);
    std::uint32_t rgb = 0;
    for (const int channel : channels)
        rgb = rgb << 8 | static_cast<std::uint32_t>(255 - (255 - channel) * intensity / 100);
    return rgb;
}

std::vector<std::uint32_t> colorsOf(const OdPsPlotStyleTable& table, int first, int last,
                                    const OdPsPlotStyleData& data)
{
    constexpr int black = 7;
    if (!takesObjectsColor(data))
        return {inkColor(data.color, data)};
    if (!table.isColorDependent())
        return {inkColor(wxg::indexColor(black), data)};
    constexpr int mostColors = 255;
    const int count = std::min(last - first + 1, mostColors);
    std::vector<std::uint32_t> colors;
    for (int i = 0; i < count; ++i)
    {
        const auto distance = static_cast<std::int64_t>(last - first) * i / std::max(count - 1, 1);
        const int style = first + static_cast<int>(distance);
        colors.push_back(inkColor(wxg::indexColor(style + 1), data));
    }
    return colors;
}

double widthOf(const OdPsPlotStyleTable& table, const OdPsPlotStyleData& data)
{
    const int position = lineweightIndex(data.lineweight);
    if (position < 1 || position > table.lineweightCount())
        return SheetLine::usualWidth;
    const double width = table.lineweightAt(position - 1);
    return width >= 0 && width <= maxLineWeight ? width : SheetLine::usualWidth;
}

void setDashes(SheetLine& line, const OdPsPlotStyleTable& table, const OdPsPlotStyleData& data)
{
    if (data.linetype <= solid || data.linetype >= static_cast<int>(std::size(linetypes)))
        return;
    line.dashes = linetypes[data.linetype];
    line.dashesAreWidths = data.linetype >= firstIsoLinetype;
    if (line.dashesAreWidths)
        return;
    // With a factor far from 1 a line is all ink or all gap on so small a sheet.
    const double factor =
        table.isApplyScaleFactor() ? std::clamp(table.scaleFactor(), 0.25, 4.0) : 1.0;
    for (double& length : line.dashes)
        length *= millimetersPerUnit * factor;
}

wxString nameOf(const OdPsPlotStyleTable& table, int style)
{
    if (table.isColorDependent())
        return wxString::Format("%d", style + 1);
    // The label shows both ends of a name that it has no room for.
    constexpr size_t mostOfAnEnd = 100;
    const wxString name = table.styleAt(style)->localizedName().c_str();
    if (name.length() <= 2 * mostOfAnEnd)
        return name;
    return name.Left(mostOfAnEnd) + name.Right(mostOfAnEnd);
}

SheetLine lineOf(const OdPsPlotStyleTable& table, int first, int last)
{
    const OdPsPlotStyleData data = dataOf(table, first);
    SheetLine line;
    line.label = nameOf(table, first);
    if (last > first)
        line.label += wxString(L" \u2013 ") + nameOf(table, last);
    line.colors = colorsOf(table, first, last, data);
    line.width = widthOf(table, data);
    setDashes(line, table, data);
    if (data.endStyle >= 0 && data.endStyle <= int(SheetLine::End::Diamond))
        line.end = SheetLine::End(data.endStyle);
    if (data.joinStyle >= 0 && data.joinStyle <= int(SheetLine::Join::Diamond))
        line.join = SheetLine::Join(data.joinStyle);
    return line;
}

// Whether two styles' lines look alike. The colour of the object counts as one.
bool plotAlike(OdPsPlotStyleData a, const OdPsPlotStyleData& b)
{
    // Pens and fills are not seen in a line.
    a.physicalPenNumber = b.physicalPenNumber;
    a.virtualPenNumber = b.virtualPenNumber;
    a.fillStyle = b.fillStyle;
    return a == b;
}

} // namespace

std::vector<SheetLine> sheetLines(const OdPsPlotStyleTable& table, std::size_t most)
{
    std::vector<SheetLine> lines;
    int first = 0;
    for (int next = 1; first < table.styleCount() && lines.size() < most; ++next)
    {
        if (next < table.styleCount() && plotAlike(dataOf(table, first), dataOf(table, next)))
            continue;
        lines.push_back(lineOf(table, first, next - 1));
        first = next;
    }
    return lines;
}
