// Tables of texts and texts of tables.

#include "support/tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace support
{

tablefile::Buffer bufferOf(std::string_view bytes)
{
    tablefile::Buffer buffer(bytes.size());
    std::copy(bytes.begin(), bytes.end(), buffer.data());
    return buffer;
}

OdPsPlotStyleTablePtr tableOf(std::string_view file)
{
    const tablefile::LoadResult result = tablefile::decode(bufferOf(file));
    if (result.table.isNull())
        throw std::runtime_error("not a table: " + result.error.what);
    return result.table;
}

OdPsPlotStyleTablePtr tableOfText(std::string_view text, const char* kind)
{
    Container container;
    container.kind = kind;
    return tableOf(pack(text, container));
}

std::string bytesOf(const OdPsPlotStyleTable& table)
{
    const tablefile::EncodeResult result = tablefile::encode(table);
    EXPECT_EQ(result.error.status, tablefile::Status::Ok) << result.error.what;
    return std::string(result.bytes.view());
}

std::string textOf(const OdPsPlotStyleTable& table)
{
    return unpack(bytesOf(table));
}

OdPsPlotStyleData dataOf(const OdPsPlotStyleTable& table, int index)
{
    OdPsPlotStyleData data;
    table.styleAt(index)->getData(data);
    return data;
}

} // namespace support

namespace
{

// A style's properties with one form of those that have two: pens and lineweights of the object.
OdPsPlotStyleData normalized(const OdPsPlotStyleTable& table, int style)
{
    OdPsPlotStyleData data = support::dataOf(table, style);
    for (std::int16_t* pen : {&data.physicalPenNumber, &data.virtualPenNumber})
        *pen = std::max<std::int16_t>(*pen, 0);
    data.lineweight = std::max(data.lineweight, 0.0);
    return data;
}

// A description as a file holds it: on one line.
std::wstring stored(const OdString& description)
{
    std::wstring text = description.str();
    std::replace(text.begin(), text.end(), L'\n', L' ');
    return text;
}

bool areEqualStyles(const OdPsPlotStyleTable& a, const OdPsPlotStyleTable& b, int style)
{
    const OdPsPlotStylePtr one = a.styleAt(style);
    const OdPsPlotStylePtr other = b.styleAt(style);
    return one->name() == other->name() && one->localizedName() == other->localizedName() &&
           one->description() == other->description() &&
           normalized(a, style) == normalized(b, style);
}

} // namespace

std::vector<std::string> support::differences(const OdPsPlotStyleTable& a,
                                              const OdPsPlotStyleTable& b)
{
    std::vector<std::string> found;
    const auto compare = [&found](const std::string& what, bool isEqual)
    {
        if (!isEqual)
            found.push_back(what);
    };
    compare("kind", a.isColorDependent() == b.isColorDependent());
    compare("description", stored(a.description()) == stored(b.description()));
    compare("scale factor", a.scaleFactor() == b.scaleFactor());
    compare("apply factor", a.isApplyScaleFactor() == b.isApplyScaleFactor());
    compare("unit", a.isDisplayCustomLineweightUnits() == b.isDisplayCustomLineweightUnits());
    compare("number of lineweights", a.lineweightCount() == b.lineweightCount());
    for (int row = 0; row < std::min(a.lineweightCount(), b.lineweightCount()); ++row)
        compare("lineweight " + std::to_string(row), a.lineweightAt(row) == b.lineweightAt(row));
    compare("number of styles", a.styleCount() == b.styleCount());
    for (int style = 0; style < std::min(a.styleCount(), b.styleCount()); ++style)
        compare("style " + std::to_string(style), areEqualStyles(a, b, style));
    return found;
}
