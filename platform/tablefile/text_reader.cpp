// Reads the text of a table in one pass over its lines, without copying them.

#include "tablefile/text_reader.h"

#include "tablefile/container.h"
#include "tablefile/error.h"
#include "tablefile/limits.h"
#include "tablefile/values.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

namespace tablefile
{
namespace
{

using Kind = LineCursor::Kind;

[[noreturn]] void fail(std::size_t offset, const char* what)
{
    throw Error{Status::NotATable, offset, what, Place::Text};
}

/// The value that a reading function of values.h gives for a span of the text.
template <class Value>
Value valueAt(std::string_view text, Span span, bool (*read)(std::string_view, Value&),
              const char* what)
{
    Value value = {};
    if (!read(span.in(text), value))
        fail(span.begin, what);
    return value;
}

std::int64_t integerAt(std::string_view text, Span span, std::int64_t least, std::int64_t most)
{
    const std::int64_t value =
        valueAt(text, span, readInteger, reason("a value is not an integer"));
    if (value < least || value > most)
        fail(span.begin, reason("an integer is out of range"));
    return value;
}

template <class Integer>
Integer integerAt(std::string_view text, Span span)
{
    using Limits = std::numeric_limits<Integer>;
    return static_cast<Integer>(integerAt(text, span, Limits::min(), Limits::max()));
}

bool booleanAt(std::string_view text, Span span)
{
    return valueAt(text, span, readBoolean, reason("a value is neither TRUE nor FALSE"));
}

void decodeText(std::string_view text, Span span, std::wstring& decoded)
{
    if (span.end - span.begin > kMaxValue)
        throw Error{Status::TooLarge, span.begin, reason("a name or description is too long"),
                    Place::Text};
    readText(span.in(text), decoded);
}

/// The 24 colour bits of a value. Some writers forget the sign of the 32 bits.
std::uint32_t colorAt(std::string_view text, Span span)
{
    const std::int64_t value = integerAt(text, span, std::numeric_limits<std::int32_t>::min(),
                                         std::numeric_limits<std::uint32_t>::max());
    return static_cast<std::uint32_t>(value) & 0xFFFFFF;
}

void nextLine(LineCursor& lines)
{
    if (!lines.next())
        fail(lines.end(), reason("the text ends inside a group"));
}

/// Goes to the closing line of a group. @param lines stands on the opening line
void skipGroup(LineCursor& lines)
{
    for (int depth = 1; depth > 0;)
    {
        nextLine(lines);
        depth += lines.kind() == Kind::Open ? 1 : lines.kind() == Kind::Close ? -1 : 0;
    }
}

std::optional<std::uint32_t> groupNumber(std::string_view key)
{
    std::int64_t number = 0;
    if (!readInteger(key, number) || number < 0 ||
        number > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

/// Reads the value of a key that has a field of its own in the data record.
void readStyleValue(std::string_view text, StyleKey key, Span value, OdPsPlotStyleData& data)
{
    if (key == StyleKey::PhysicalPen || key == StyleKey::VirtualPen)
        data.*kStyleNumbers[indexOf(key)] = penOf(integerAt<std::int16_t>(text, value));
    else if (const auto number = kStyleNumbers[indexOf(key)])
        data.*number = integerAt<std::int16_t>(text, value);
    else if (key == StyleKey::LinePatternSize)
        data.linePatternSize = realAt(text, value);
    else if (key == StyleKey::AdaptiveLinetype)
        data.adaptiveLinetype = booleanAt(text, value);
    else if (key == StyleKey::Lineweight)
        data.lineweight = lineweightOf(integerAt<std::int32_t>(text, value));
}

/// The key that decides the colour of a style.
std::size_t colorKey(const StyleFields& fields)
{
    return indexOf(fields.value(StyleKey::ModeColor) ? StyleKey::ModeColor : StyleKey::Color);
}

bool isNameless(const OdPsPlotStyle& style)
{
    const auto& own = static_cast<const OdPsPlotStyleImpl&>(style);
    return *own.localizedNameText() == L'\0' && own.name().isEmpty();
}

/// Reads the whole text of an origin.
class TableReader
{
public:
    explicit TableReader(Origin& origin)
        : m_origin(origin)
        , m_text(origin.text())
        , m_styles(m_text)
    {
        m_budget.add(origin.file.size() + origin.textBytes.size());
    }

    OdPsPlotStyleTablePtr read();

private:
    void readGroup(LineCursor& lines);
    void readStyles(LineCursor& lines);
    void addStyle(LineCursor& lines, std::uint32_t begin, std::uint32_t number);
    bool isColorDependent() const;
    void orderStyles(bool colorDependent);
    std::vector<std::uint32_t> groupsByNumber() const;
    void nameColorStyles();
    void fillTable(OdPsPlotStyleTableImpl& table) const;
    std::vector<double> readLineweights() const;

    Origin& m_origin;
    std::string_view m_text;
    StyleReader m_styles;
    MemoryBudget m_budget;
    StyleTexts m_texts;
};

OdPsPlotStyleTablePtr TableReader::read()
{
    LineCursor lines(m_text, 0);
    std::size_t hint = 0;
    while (lines.next())
    {
        if (lines.kind() == Kind::Close)
            fail(lines.begin(), reason("a group is closed that was not opened"));
        if (lines.kind() == Kind::Open)
            readGroup(lines);
        if (lines.kind() != Kind::Value)
            continue;
        const std::size_t key = findKey(kTableKeys, lines.key(), hint);
        if (key == kTableKeys.size() || m_origin.values[key])
            continue;
        m_origin.values[key] = lines.value();
        hint = key + 1;
    }
    if (!m_origin.group(TableGroup::Styles))
        fail(m_text.size(), reason("there are no plot styles"));
    const bool colorDependent = isColorDependent();
    orderStyles(colorDependent);
    auto* const impl = new OdPsPlotStyleTableImpl(colorDependent);
    OdPsPlotStyleTablePtr table(impl);
    fillTable(*impl);
    return table;
}

/// Reads one of the table's groups. The first of several of the same name counts.
void TableReader::readGroup(LineCursor& lines)
{
    const std::size_t group = findKey(kTableGroups, lines.key(), 0);
    if (group == kTableGroups.size() || m_origin.groups[group])
        return skipGroup(lines);
    const std::uint32_t begin = lines.end();
    if (group == indexOf(TableGroup::Styles))
        readStyles(lines);
    else
        skipGroup(lines);
    m_origin.groups[group] = {begin, lines.begin()};
}

void TableReader::readStyles(LineCursor& lines)
{
    for (nextLine(lines); lines.kind() != Kind::Close; nextLine(lines))
    {
        if (lines.kind() != Kind::Open)
            continue;
        const std::uint32_t begin = lines.begin();
        if (const std::optional<std::uint32_t> number = groupNumber(lines.key()))
            addStyle(lines, begin, *number);
        else
            skipGroup(lines);
    }
}

void TableReader::addStyle(LineCursor& lines, std::uint32_t begin, std::uint32_t number)
{
    const StyleFields& fields = m_styles.read(lines);
    readStyleTexts(m_text, fields, m_texts);
    auto* const style = OdPsPlotStyleImpl::make(m_texts.name, m_texts.localizedName,
                                                m_texts.description, fields.data);
    m_origin.styles.emplace_back(style);
    m_budget.add(memoryUse(*style), begin);
    const auto position = static_cast<std::uint32_t>(m_origin.styleGroups.size());
    m_origin.styleGroups.push_back({{begin, lines.end()}, number, position});
}

bool TableReader::isColorDependent() const
{
    const Span available = m_origin.value(TableKey::AciTableAvailable);
    if (available && !booleanAt(m_text, available))
        return false;
    return isColorDependentMagic(magicOf(m_origin.file.view()));
}

/// The style groups' positions in the order of their numbers, like ones as they stand in the text.
std::vector<std::uint32_t> TableReader::groupsByNumber() const
{
    const std::vector<StyleGroup>& groups = m_origin.styleGroups;
    std::vector<std::uint32_t> order(groups.size());
    std::iota(order.begin(), order.end(), 0u);
    const auto byNumber = [&groups](std::uint32_t a, std::uint32_t b)
    { return groups[a].number < groups[b].number; };
    if (!std::is_sorted(order.begin(), order.end(), byNumber))
        std::stable_sort(order.begin(), order.end(), byNumber);
    return order;
}

/// Puts the styles into the order of their numbers. In a colour-dependent table the number says
/// which colour it is, so missing ones get a style that takes everything from the object, and what
/// goes beyond the colours or repeats one follows at the end.
void TableReader::orderStyles(bool colorDependent)
{
    OdArray<OdPsPlotStylePtr> ordered(colorDependent ? OdPs::kColorStyleCount : 0);
    for (const std::uint32_t i : groupsByNumber())
    {
        StyleGroup& group = m_origin.styleGroups[i];
        const bool hasPlace = colorDependent && group.number < OdPs::kColorStyleCount &&
                              ordered[group.number].isNull();
        group.position = hasPlace ? group.number : static_cast<std::uint32_t>(ordered.size());
        if (!hasPlace)
            ordered.emplace_back();
        ordered[group.position] = std::move(m_origin.styles[i]);
    }
    m_origin.styles = std::move(ordered);
    if (colorDependent)
        nameColorStyles();
}

/// Names the styles of a colour-dependent table that have no name, and makes the missing ones.
void TableReader::nameColorStyles()
{
    for (std::size_t i = 0; i < m_origin.styles.size(); ++i)
    {
        OdPsPlotStylePtr& style = m_origin.styles[i];
        if (style && !isNameless(*style))
            continue;
        StyleTexts texts;
        OdPsPlotStyleData data;
        if (style)
        {
            texts.description = style->description().str();
            style->getData(data);
        }
        nameColorStyle(texts, i);
        style = OdPsPlotStyleImpl::make(texts.name, texts.localizedName, texts.description, data);
    }
}

std::vector<double> TableReader::readLineweights() const
{
    std::vector<double> weights(OdPs::kDefaultLineweights.begin(), OdPs::kDefaultLineweights.end());
    const auto readRow = [&](std::size_t row, Span value)
    {
        if (row >= weights.size())
            weights.resize(row + 1);
        weights[row] = realAt(m_text, value);
    };
    forEachRow(m_text, m_origin.group(TableGroup::Lineweights), readRow);
    return weights;
}

void TableReader::fillTable(OdPsPlotStyleTableImpl& table) const
{
    TableValues values = readTableValues(m_origin);
    table.setDescription(std::move(values.description));
    table.setScaleFactor(values.scaleFactor);
    table.setApplyScaleFactor(values.applyScaleFactor);
    table.setDisplayCustomLineweightUnits(values.inches);
    table.setLineweights(readLineweights());
    table.setStyleArray(m_origin.styles);
}

} // namespace

std::size_t memoryUse(const OdPsPlotStyleImpl& style)
{
    // The lists count twice: they double when they grow, and the table has one of its own.
    constexpr std::size_t kListed = 2 * (sizeof(StyleGroup) + sizeof(OdPsPlotStylePtr));
    return style.memoryUse() + kListed;
}

OdPsPlotStyleTablePtr readTable(std::shared_ptr<Origin> origin)
{
    OdPsPlotStyleTablePtr table = TableReader(*origin).read();
    static_cast<OdPsPlotStyleTableImpl&>(*table).setOrigin(std::move(origin));
    return table;
}

TableValues readTableValues(const Origin& origin)
{
    const std::string_view text = origin.text();
    TableValues values;
    decodeText(text, origin.value(TableKey::Description), values.description);
    if (const Span factor = origin.value(TableKey::ScaleFactor))
        values.scaleFactor = realAt(text, factor);
    if (const Span apply = origin.value(TableKey::ApplyFactor))
        values.applyScaleFactor = booleanAt(text, apply);
    if (const Span units = origin.value(TableKey::LineweightUnits))
        values.inches = integerAt<std::int32_t>(text, units) == 1;
    return values;
}

const StyleFields& StyleReader::read(LineCursor& lines)
{
    if (!readLikeLast(lines))
        readAfresh(lines);
    return m_last;
}

/// Reads a group that has the keys of the group before, in the same order. Only values that differ
/// are looked at. @return whether it is such a group; if not, `lines` stands where it stood
bool StyleReader::readLikeLast(LineCursor& lines)
{
    const std::uint32_t first = lines.end();
    Span last = {m_begin, m_lines.empty() ? m_begin : m_lines.back().end}; // what is left of it
    m_begin = first;
    bool isColorNew = false;
    for (auto line = m_lines.begin(); line != m_lines.end(); ++line)
    {
        const std::uint32_t distance = lines.end() - last.begin;
        const std::uint32_t same = last.begin + commonPrefix(last.in(m_text), lines.rest());
        for (; line != m_lines.end() && line->end <= same; ++line)
        {
            last.begin = std::exchange(line->end, line->end + distance);
            if (line->key < kStyleKeys.size())
                m_last.values[line->key] = m_last.values[line->key].moved(distance);
        }
        lines.skipTo(last.begin + distance);
        if (line == m_lines.end())
        {
            // Only now it is known which value decides.
            if (isColorNew)
                readColor();
            return true;
        }
        if (line->key == kStyleKeys.size() || same < m_last.values[line->key].begin)
            break;
        lines.nextValue(m_last.values[line->key].begin + distance);
        const Span value = lines.value();
        m_last.values[line->key] = value;
        last.begin = std::exchange(line->end, lines.end());
        readStyleValue(m_text, static_cast<StyleKey>(line->key), value, m_last.data);
        isColorNew = isColorNew || line->key == colorKey(m_last);
    }
    lines.skipTo(first);
    return false;
}

/// Reads a group line by line.
void StyleReader::readAfresh(LineCursor& lines)
{
    m_last = {};
    m_begin = lines.end();
    m_lines.clear();
    bool isPlain = true;
    std::size_t expected = 0;
    for (nextLine(lines); lines.kind() != Kind::Close; nextLine(lines))
    {
        const std::size_t key = lines.kind() == Kind::Value
                                    ? findKey(kStyleKeys, lines.key(), expected)
                                    : kStyleKeys.size();
        const bool isKnown = key < kStyleKeys.size();
        // The first of several lines of a key counts.
        const bool isSecond = isKnown && m_last.values[key];
        isPlain = isPlain && !isSecond && lines.kind() != Kind::Open && m_lines.size() < kMostLines;
        if (isPlain)
            m_lines.push_back({lines.end(), key});
        if (lines.kind() == Kind::Open)
            skipGroup(lines);
        if (!isKnown || isSecond)
            continue;
        expected = key + 1;
        m_last.values[key] = lines.value();
        readStyleValue(m_text, static_cast<StyleKey>(key), lines.value(), m_last.data);
    }
    m_lines.push_back({lines.end(), kStyleKeys.size()});
    if (!isPlain)
        m_lines.clear();
    readColor();
}

void StyleReader::readColor()
{
    if (const Span color = m_last.values[colorKey(m_last)])
        m_last.data.color = colorOf(colorAt(m_text, color));
}

void readStyleTexts(std::string_view text, const StyleFields& fields, StyleTexts& texts)
{
    const Span name = fields.value(StyleKey::Name);
    const Span localized = fields.value(StyleKey::LocalizedName);
    decodeText(text, name ? name : localized, texts.name);
    if (!localized || localized.in(text) == name.in(text))
        texts.localizedName = texts.name;
    else
        decodeText(text, localized, texts.localizedName);
    decodeText(text, fields.value(StyleKey::Description), texts.description);
}

void nameColorStyle(StyleTexts& texts, std::size_t position)
{
    if (texts.name.empty() && texts.localizedName.empty())
        texts.name = texts.localizedName = OdPs::colorStyleName(static_cast<int>(position)).str();
}

void forEachRow(std::string_view text, Span group,
                const std::function<void(std::size_t, Span)>& row)
{
    std::vector<bool> seen;
    LineCursor lines(text.substr(0, group.end), group.begin);
    while (lines.next())
    {
        if (lines.kind() == Kind::Open)
            skipGroup(lines);
        const std::optional<std::uint32_t> number =
            lines.kind() == Kind::Value ? groupNumber(lines.key()) : std::nullopt;
        if (!number || *number >= kMaxRows)
            continue;
        if (*number >= seen.size())
            seen.resize(*number + 1);
        if (!seen[*number])
            row(*number, lines.value());
        seen[*number] = true;
    }
}

double realAt(std::string_view text, Span value)
{
    return valueAt(text, value, readReal, reason("a value is not a finite number"));
}

double defaultLineweight(std::size_t row)
{
    return row < OdPs::kDefaultLineweights.size() ? OdPs::kDefaultLineweights[row] : 0.0;
}

} // namespace tablefile
