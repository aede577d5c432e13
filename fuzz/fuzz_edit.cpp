// Fuzzes editing: a table that is loaded, changed and saved comes back with the changed values,
// and a table whose changes are taken back is saved as it was.
//
// The input is a text, followed by the bytes that choose the changes.

#include "fuzz/require.h"

#include "support/tables.h"
#include "tablefile/text_writer.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>

namespace
{

using Table = OdPsPlotStyleTable;
using tablefile::Status;

std::wstring anyText(FuzzedDataProvider& input)
{
    static const std::wstring kTexts[] = {
        L"",           L"Walls",   L" = {", L"\u00E4\U0001F600", L"two\r\nlines",
        L"\"quoted\"", L"Color_1", L"}",    L"Normal",           std::wstring(5000, L'x')};
    return input.PickValueInArray(kTexts);
}

double anyNumber(FuzzedDataProvider& input)
{
    static const double kNumbers[] = {0, -1, 1, 0.1, 2.4, 27, 1e300, 1e-300, 65536.5, -0.0, 1e10};
    return input.PickValueInArray(kNumbers);
}

OdPsPlotStyleData anyData(FuzzedDataProvider& input, OdPsPlotStyleData data)
{
    std::int16_t OdPsPlotStyleData::*const kNumbers[] = {
        &OdPsPlotStyleData::colorPolicy,      &OdPsPlotStyleData::screening,
        &OdPsPlotStyleData::linetype,         &OdPsPlotStyleData::physicalPenNumber,
        &OdPsPlotStyleData::virtualPenNumber, &OdPsPlotStyleData::fillStyle,
        &OdPsPlotStyleData::endStyle,         &OdPsPlotStyleData::joinStyle};
    switch (input.ConsumeIntegralInRange(0, 4))
    {
    case 0:
        data.color.setColor(input.ConsumeIntegral<std::uint32_t>());
        break;
    case 1:
        data.adaptiveLinetype = input.ConsumeBool();
        break;
    case 2:
        data.linePatternSize = anyNumber(input);
        break;
    case 3:
        data.lineweight = anyNumber(input);
        break;
    default:
        data.*input.PickValueInArray(kNumbers) = input.ConsumeIntegral<std::int16_t>();
    }
    return data;
}

void changeStyle(Table& table, FuzzedDataProvider& input)
{
    if (table.styleCount() == 0)
        return;
    const int index = input.ConsumeIntegralInRange(0, table.styleCount() - 1);
    const OdPsPlotStylePtr style = table.styleAt(index);
    switch (input.ConsumeIntegralInRange(0, 4))
    {
    case 0:
        return style->setName(anyText(input));
    case 1:
        return style->setLocalizedName(anyText(input));
    case 2:
        return style->setDescription(anyText(input));
    case 3:
        return table.deleteStyle(style);
    default:
        return style->setData(anyData(input, support::dataOf(table, index)));
    }
}

void moveStyles(Table& table, FuzzedDataProvider& input)
{
    OdArray<OdPsPlotStylePtr> styles = table.styleArray();
    if (styles.size() == 0)
        return;
    const auto place = input.ConsumeIntegralInRange<std::size_t>(0, styles.size() - 1);
    std::rotate(styles.begin(), styles.begin() + static_cast<std::ptrdiff_t>(place), styles.end());
    table.setStyleArray(styles);
}

void changeTable(Table& table, FuzzedDataProvider& input)
{
    switch (input.ConsumeIntegralInRange(0, 8))
    {
    case 0:
        return table.setDescription(anyText(input));
    case 1:
        return table.setScaleFactor(anyNumber(input));
    case 2:
        return table.setApplyScaleFactor(input.ConsumeBool());
    case 3:
        return table.setDisplayCustomLineweightUnits(input.ConsumeBool());
    case 4:
        return table.setLineweightAt(input.ConsumeIntegralInRange(0, table.lineweightCount()),
                                     anyNumber(input));
    case 5:
        return static_cast<void>(table.addNewStyle(anyText(input)));
    case 6:
        return moveStyles(table, input);
    default:
        return changeStyle(table, input);
    }
}

/// What a file holds of a style at a position. A style of a colour is never without a name.
tablefile::StyleValues storedValues(const Table& table, int index)
{
    tablefile::StyleValues values = tablefile::valuesOf(*table.styleAt(index));
    if (table.isColorDependent())
        tablefile::nameColorStyle(values.texts, static_cast<std::size_t>(index));
    return values;
}

void requireSame(const Table& a, const Table& b)
{
    require(a.isColorDependent() == b.isColorDependent(), "the kind comes back");
    for (std::size_t key = 0; key < tablefile::kTableKeys.size(); ++key)
    {
        const auto written = [key](const Table& table)
        {
            return tablefile::writeTableValue(static_cast<tablefile::TableKey>(key),
                                              tablefile::valuesOf(table), table.isColorDependent());
        };
        require(written(a) == written(b), "the table's values come back");
    }
    require(a.lineweightCount() == b.lineweightCount(), "the number of lineweights comes back");
    for (int i = 0; i < a.lineweightCount(); ++i)
        require(a.lineweightAt(i) == b.lineweightAt(i), "the lineweights come back");
    // The reader gives every colour a style, and a table may hold fewer.
    require(a.isColorDependent() ? a.styleCount() <= b.styleCount()
                                 : a.styleCount() == b.styleCount(),
            "the number of styles comes back");
    for (int i = 0; i < a.styleCount(); ++i)
        require(areEqual(storedValues(a, i), storedValues(b, i)), "the styles come back");
}

/// Sets everything of a table to what another holds, of whose styles it has had changed ones.
void takeBack(Table& table, const Table& original, const OdArray<OdPsPlotStylePtr>& styles)
{
    table.setDescription(original.description());
    table.setScaleFactor(original.scaleFactor());
    table.setApplyScaleFactor(original.isApplyScaleFactor());
    table.setDisplayCustomLineweightUnits(original.isDisplayCustomLineweightUnits());
    for (int i = 0; i < original.lineweightCount(); ++i)
        table.setLineweightAt(i, original.lineweightAt(i));
    table.setStyleArray(styles);
    for (int i = 0; i < original.styleCount(); ++i)
    {
        table.styleAt(i)->setName(original.styleAt(i)->name());
        table.styleAt(i)->setLocalizedName(original.styleAt(i)->localizedName());
        table.styleAt(i)->setDescription(original.styleAt(i)->description());
        table.styleAt(i)->setData(support::dataOf(original, i));
    }
}

void requireComesBack(const Table& table)
{
    const tablefile::EncodeResult saved = tablefile::encode(table);
    const Status status = saved.error.status;
    require(status == Status::Ok || status == Status::CannotStore || status == Status::TooLarge,
            "a table is saved or refused for its values");
    if (status != Status::Ok)
        return;
    const tablefile::LoadResult again = tablefile::decode(support::bufferOf(saved.bytes.view()));
    require(!again.table.isNull(), "what was saved can be loaded");
    requireSame(table, *again.table);
    const tablefile::EncodeResult savedAgain = tablefile::encode(*again.table);
    require(savedAgain.bytes.view() == saved.bytes.view(), "a second save changes nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    support::Container container;
    static const char* const kKinds[] = {"CTB", "STB", "TTB"};
    container.kind = input.PickValueInArray(kKinds);
    container.level = 0;
    const auto count = input.ConsumeIntegralInRange<std::size_t>(1, 6);
    const auto changeSize = std::min<std::size_t>(input.remaining_bytes(), count * 8);
    const std::string text = input.ConsumeBytesAsString(input.remaining_bytes() - changeSize);
    const std::string file = support::pack(text, container);
    const OdPsPlotStyleTablePtr table = tablefile::decode(support::bufferOf(file)).table;
    if (table.isNull())
        return 0;
    const OdPsPlotStyleTablePtr original = support::tableOf(file);
    const OdArray<OdPsPlotStylePtr> styles = table->styleArray();
    for (std::size_t i = 0; i < count; ++i)
        changeTable(*table, input);
    requireComesBack(*table);
    takeBack(*table, *original, styles);
    require(support::bytesOf(*table) == file, "changes that are taken back leave no trace");
    return 0;
}
