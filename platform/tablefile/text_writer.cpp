// Writes the values and the groups of a table as text.

#include "tablefile/text_writer.h"

#include "tablefile/error.h"
#include "tablefile/limits.h"
#include "tablefile/values.h"

namespace tablefile
{
namespace
{

constexpr std::string_view kRowIndent = " ";

void appendGroupStart(std::string& text, TableGroup group, std::string_view newLine)
{
    append(text, {kTableGroups[indexOf(group)], "{", newLine});
}

void appendColorNames(std::string& text)
{
    appendGroupStart(text, TableGroup::AciTable, kNewLine);
    for (int i = 0; i < OdPs::kColorStyleCount; ++i)
    {
        const std::string name = writeText(OdPs::colorStyleName(i).str());
        appendRow(text, static_cast<std::size_t>(i), name, kNewLine);
    }
    append(text, {"}", kNewLine});
}

} // namespace

void makeStorable(StyleTexts& texts)
{
    for (std::wstring* text : {&texts.name, &texts.localizedName, &texts.description})
        *text = storableText(std::move(*text));
}

StyleTexts textsOf(const OdPsPlotStyle& style)
{
    StyleTexts texts{style.name().str(), style.localizedName().str(), style.description().str()};
    makeStorable(texts);
    return texts;
}

StyleValues valuesOf(const OdPsPlotStyle& style)
{
    StyleValues values{textsOf(style), {}};
    style.getData(values.data);
    return values;
}

std::string writeStyleValue(StyleKey key, const StyleValues& values)
{
    const OdPsPlotStyleData& data = values.data;
    switch (key)
    {
    case StyleKey::Name:
        return writeTextValue(values.texts.name);
    case StyleKey::LocalizedName:
        return writeTextValue(values.texts.localizedName);
    case StyleKey::Description:
        return writeTextValue(values.texts.description);
    case StyleKey::Color:
        return std::to_string(writeColor(storedColor(data.color)).color);
    case StyleKey::ModeColor:
        return std::to_string(writeColor(storedColor(data.color)).modeColor);
    case StyleKey::PhysicalPen:
    case StyleKey::VirtualPen:
        return std::to_string(storedPen(data.*kStyleNumbers[indexOf(key)]));
    case StyleKey::LinePatternSize:
        return writeReal(data.linePatternSize);
    case StyleKey::AdaptiveLinetype:
        return writeBoolean(data.adaptiveLinetype);
    case StyleKey::Lineweight:
        return std::to_string(storedLineweight(data.lineweight));
    default:
        return std::to_string(data.*kStyleNumbers[indexOf(key)]);
    }
}

bool differs(StyleKey key, const StyleValues& a, const StyleValues& b)
{
    switch (key)
    {
    case StyleKey::Name:
        return a.texts.name != b.texts.name;
    case StyleKey::LocalizedName:
        return a.texts.localizedName != b.texts.localizedName;
    case StyleKey::Description:
        return a.texts.description != b.texts.description;
    case StyleKey::Color:
    case StyleKey::ModeColor:
        return storedColor(a.data.color) != storedColor(b.data.color);
    case StyleKey::PhysicalPen:
    case StyleKey::VirtualPen:
        return storedPen(a.data.*kStyleNumbers[indexOf(key)]) !=
               storedPen(b.data.*kStyleNumbers[indexOf(key)]);
    case StyleKey::LinePatternSize:
        return a.data.linePatternSize != b.data.linePatternSize;
    case StyleKey::AdaptiveLinetype:
        return a.data.adaptiveLinetype != b.data.adaptiveLinetype;
    case StyleKey::Lineweight:
        return storedLineweight(a.data.lineweight) != storedLineweight(b.data.lineweight);
    default:
        return a.data.*kStyleNumbers[indexOf(key)] != b.data.*kStyleNumbers[indexOf(key)];
    }
}

bool areEqual(const StyleValues& a, const StyleValues& b)
{
    for (std::size_t key = 0; key < kStyleKeys.size(); ++key)
    {
        if (differs(static_cast<StyleKey>(key), a, b))
            return false;
    }
    return true;
}

TableValues valuesOf(const OdPsPlotStyleTable& table)
{
    return {table.description().str(), table.scaleFactor(), table.isApplyScaleFactor(),
            table.isDisplayCustomLineweightUnits()};
}

std::string writeTableValue(TableKey key, const TableValues& values, bool colorDependent)
{
    switch (key)
    {
    case TableKey::Description:
        return writeTextValue(storableText(values.description));
    case TableKey::AciTableAvailable:
        return writeBoolean(colorDependent);
    case TableKey::ScaleFactor:
        return writeReal(values.scaleFactor);
    case TableKey::ApplyFactor:
        return writeBoolean(values.applyScaleFactor);
    case TableKey::LineweightUnits:
        return values.inches ? "1" : "0";
    }
    return {};
}

std::string writeTextValue(const std::wstring& text)
{
    std::string written = writeText(text);
    if (written.size() > kMaxValue)
        throw Error{Status::TooLarge, 0, reason("a name or description is too long")};
    return written;
}

void append(std::string& text, std::initializer_list<std::string_view> parts)
{
    for (const std::string_view part : parts)
        text.append(part);
}

void appendStyle(std::string& text, std::uint32_t number, const StyleValues& values,
                 std::string_view newLine)
{
    append(text, {kRowIndent, std::to_string(number), "{", newLine});
    for (std::size_t key = 0; key < kStyleKeys.size(); ++key)
    {
        const std::string value = writeStyleValue(static_cast<StyleKey>(key), values);
        append(text, {kStyleIndent, kStyleKeys[key], "=", value, newLine});
    }
    append(text, {kRowIndent, "}", newLine});
}

void appendRow(std::string& text, std::size_t row, std::string_view value, std::string_view newLine)
{
    append(text, {kRowIndent, std::to_string(row), "=", value, newLine});
}

void appendLineweights(std::string& text, const OdPsPlotStyleTable& table, std::string_view newLine)
{
    appendGroupStart(text, TableGroup::Lineweights, newLine);
    for (int i = 0; i < table.lineweightCount(); ++i)
        appendRow(text, static_cast<std::size_t>(i), writeReal(table.lineweightAt(i)), newLine);
    append(text, {"}", newLine});
}

std::string freshText(const OdPsPlotStyleTable& table)
{
    const TableValues values = valuesOf(table);
    std::string text;
    for (std::size_t key = 0; key < kTableKeys.size(); ++key)
    {
        const std::string value =
            writeTableValue(static_cast<TableKey>(key), values, table.isColorDependent());
        append(text, {kTableKeys[key], "=", value, kNewLine});
    }
    if (table.isColorDependent())
        appendColorNames(text);
    appendGroupStart(text, TableGroup::Styles, kNewLine);
    for (int i = 0; i < table.styleCount(); ++i)
        appendStyle(text, static_cast<std::uint32_t>(i), valuesOf(*table.styleAt(i)), kNewLine);
    append(text, {"}", kNewLine});
    appendLineweights(text, table, kNewLine);
    return text;
}

} // namespace tablefile
