// Changes the text that a table was read from.
//
// The values that the text gives are compared with those that the table holds now, and each line
// that differs becomes an edit. Everything else of the text stays: unknown keys, the order of keys
// and styles, line ends, the bytes of a value.

#include "tablefile/text_editor.h"

#include "tablefile/text_writer.h"
#include "tablefile/values.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>

namespace tablefile
{
namespace
{

/// A replacement of a part of the text; an empty part is an insertion.
struct Edit
{
    Span span;
    std::string text;
};

/// Copies a part of the text with the edits that lie in it.
std::string edited(std::string_view text, Span part, std::vector<Edit> edits)
{
    std::stable_sort(edits.begin(), edits.end(),
                     [](const Edit& a, const Edit& b) { return a.span.begin < b.span.begin; });
    std::string result;
    result.reserve(part.end - part.begin + edits.size() * 16);
    for (const Edit& edit : edits)
    {
        result.append(Span{part.begin, edit.span.begin}.in(text)).append(edit.text);
        part.begin = edit.span.end;
    }
    return result.append(part.in(text));
}

std::uint32_t lineEnd(std::string_view text, std::uint32_t position)
{
    const std::size_t end = text.find('\n', position);
    return static_cast<std::uint32_t>(end == std::string_view::npos ? text.size() : end + 1);
}

/// A style that the reader made, as all styles are that have a group in the text.
const OdPsPlotStyleImpl& ownStyle(const OdPsPlotStyle& style)
{
    return static_cast<const OdPsPlotStyleImpl&>(style);
}

/// Whether such a style may hold other values than those that were read.
bool wasSet(const OdPsPlotStyle& style)
{
    return ownStyle(style).wasDataSet() || ownStyle(style).wasTextSet();
}

/// Whether a key of a style needs a line or another value on its line. Where the text lacks one of
/// the two names, the other stands in for it, so a change of either may call for the missing one.
bool needsLine(StyleKey key, const StyleFields& fields, const StyleValues& original,
               const StyleValues& now)
{
    const bool isName = key == StyleKey::Name || key == StyleKey::LocalizedName;
    if (!isName || fields.value(key))
        return differs(key, original, now);
    const bool isRenamed =
        differs(StyleKey::Name, original, now) || differs(StyleKey::LocalizedName, original, now);
    const bool hasNeither = !fields.value(StyleKey::Name) && !fields.value(StyleKey::LocalizedName);
    const bool isStoodInFor =
        now.texts.name == now.texts.localizedName && !(hasNeither && key == StyleKey::Name);
    return isRenamed && !isStoodInFor;
}

/// Collects the edits that turn an origin's text into that of the table as it is now.
class TableEditor
{
public:
    TableEditor(const OdPsPlotStyleTableImpl& table, const Origin& origin)
        : m_table(table)
        , m_origin(origin)
        , m_text(origin.text())
        , m_reader(m_text)
        , m_newLine(m_text.find("\r\n") == std::string_view::npos ? kNewLine : "\r\n")
        , m_styles(table.styles())
        , m_sameStyles(m_styles == origin.styles)
    {
    }

    std::optional<std::string> changedText();

private:
    struct PlacedStyle
    {
        const StyleGroup* group; ///< null for a style that the text does not have
        const OdPsPlotStyle* style;
        std::uint32_t number;
    };

    template <std::size_t N>
    void setValue(std::vector<Edit>& edits, const std::array<std::string_view, N>& keys,
                  const std::array<Span, N>& values, std::size_t key, const std::string& value,
                  std::uint32_t first, std::string_view indent) const;
    void insertLines(std::vector<Edit>& edits, std::uint32_t position, std::string lines) const;
    void replace(std::vector<Edit>& edits, Span span, std::string text) const;

    void editTableValues();
    void editLineweights();
    void editStyles();
    void editStyleNames();

    StyleTexts originalTexts(const StyleFields& fields) const;
    StyleTexts originalTexts(const StyleFields& fields, std::size_t position,
                             const StyleTexts& now) const;
    const StyleFields& fieldsOf(const StyleGroup& group);
    void editStyle(std::vector<Edit>& edits, const StyleGroup& group, std::size_t position,
                   const OdPsPlotStyleImpl& style);
    bool isDefaultColorStyle(std::size_t position) const;
    bool hasChangedFillers() const;
    std::vector<PlacedStyle> placedStyles() const;
    std::string arrangedStyles();
    std::string styleText(const PlacedStyle& placed);
    std::map<std::wstring, std::wstring> changedNames();

    const OdPsPlotStyleTableImpl& m_table;
    const Origin& m_origin;
    std::string_view m_text;
    StyleReader m_reader;
    std::string_view m_newLine; ///< what the lines of the text end in
    const OdArray<OdPsPlotStylePtr>& m_styles;
    bool m_sameStyles; ///< the same objects in the same order as when the text was read
    std::vector<Edit> m_edits;
};

std::optional<std::string> TableEditor::changedText()
{
    editTableValues();
    editLineweights();
    editStyles();
    editStyleNames();
    if (m_edits.empty())
        return std::nullopt;
    return edited(m_text, {0, static_cast<std::uint32_t>(m_text.size())}, std::move(m_edits));
}

void TableEditor::replace(std::vector<Edit>& edits, Span span, std::string text) const
{
    if (span.in(m_text) != text)
        edits.push_back({span, std::move(text)});
}

void TableEditor::insertLines(std::vector<Edit>& edits, std::uint32_t position,
                              std::string lines) const
{
    // The text's last line may have no end, which the first lines behind it have to supply.
    const auto isThere = [position](const Edit& edit)
    { return edit.span.begin == position && edit.span.end == position; };
    const bool lacksEnd = position > 0 && m_text[position - 1] != '\n';
    if (lacksEnd && std::none_of(edits.begin(), edits.end(), isThere))
        lines.insert(0, m_text[position - 1] == '\r' ? kNewLine : m_newLine);
    edits.push_back({{position, position}, std::move(lines)});
}

/// Gives a key of a group a value. A key that the text lacks goes behind the nearest of those that
/// come before it in a new file. @param first where the group's lines begin
template <std::size_t N>
void TableEditor::setValue(std::vector<Edit>& edits, const std::array<std::string_view, N>& keys,
                           const std::array<Span, N>& values, std::size_t key,
                           const std::string& value, std::uint32_t first,
                           std::string_view indent) const
{
    if (values[key])
        return replace(edits, values[key], value);
    std::uint32_t position = first;
    for (std::size_t before = key; before > 0 && position == first; --before)
    {
        if (values[before - 1])
            position = lineEnd(m_text, values[before - 1].end);
    }
    std::string line(indent);
    append(line, {keys[key], "=", value, m_newLine});
    insertLines(edits, position, std::move(line));
}

void TableEditor::editTableValues()
{
    const TableValues original = readTableValues(m_origin);
    const TableValues now = valuesOf(m_table);
    const bool colorDependent = m_table.isColorDependent();
    for (std::size_t i = 0; i < kTableKeys.size(); ++i)
    {
        const auto key = static_cast<TableKey>(i);
        const std::string value = writeTableValue(key, now, colorDependent);
        if (value != writeTableValue(key, original, colorDependent))
            setValue(m_edits, kTableKeys, m_origin.values, i, value, 0, {});
    }
}

void TableEditor::editLineweights()
{
    const auto count = static_cast<std::size_t>(m_table.lineweightCount());
    std::vector<Span> rows(count);
    const Span group = m_origin.group(TableGroup::Lineweights);
    forEachRow(m_text, group,
               [&rows](std::size_t row, Span value)
               {
                   if (row < rows.size())
                       rows[row] = value;
               });
    std::string missing;
    for (std::size_t row = 0; row < count; ++row)
    {
        const double now = m_table.lineweightAt(static_cast<int>(row));
        const double original = rows[row] ? realAt(m_text, rows[row]) : defaultLineweight(row);
        if (now == original)
            continue;
        if (rows[row])
            replace(m_edits, rows[row], writeReal(now));
        else
            appendRow(missing, row, writeReal(now), m_newLine);
    }
    if (missing.empty())
        return;
    if (group)
        return insertLines(m_edits, group.end, std::move(missing));
    missing.clear();
    appendLineweights(missing, m_table, m_newLine);
    insertLines(m_edits, static_cast<std::uint32_t>(m_text.size()), std::move(missing));
}

const StyleFields& TableEditor::fieldsOf(const StyleGroup& group)
{
    LineCursor lines(m_text, group.span.begin);
    lines.next();
    return m_reader.read(lines);
}

/// The texts that the text gives a style.
StyleTexts TableEditor::originalTexts(const StyleFields& fields) const
{
    StyleTexts texts;
    readStyleTexts(m_text, fields, texts);
    makeStorable(texts); // a name that begins with a NUL is none
    return texts;
}

/// The same for a style that has these texts now. Where a style of a colour has no names the reader
/// gives it those of its position, so they need not be written; but both or none.
StyleTexts TableEditor::originalTexts(const StyleFields& fields, std::size_t position,
                                      const StyleTexts& now) const
{
    const StyleTexts texts = originalTexts(fields);
    StyleTexts named = texts;
    if (m_table.isColorDependent())
        nameColorStyle(named, position);
    const bool isNamedSo = named.name == now.name && named.localizedName == now.localizedName;
    return isNamedSo ? named : texts;
}

void TableEditor::editStyle(std::vector<Edit>& edits, const StyleGroup& group, std::size_t position,
                            const OdPsPlotStyleImpl& style)
{
    const StyleFields& fields = fieldsOf(group);
    StyleValues original;
    StyleValues now;
    original.data = fields.data;
    style.getData(now.data);
    // Texts that are alike need not be known.
    if (style.wasTextSet() || position != group.position)
    {
        now.texts = textsOf(style);
        original.texts = originalTexts(fields, position, now.texts);
    }
    const std::uint32_t first = lineEnd(m_text, group.span.begin);
    for (std::size_t i = 0; i < kStyleKeys.size(); ++i)
    {
        const auto key = static_cast<StyleKey>(i);
        if (needsLine(key, fields, original, now))
            setValue(edits, kStyleKeys, fields.values, i, writeStyleValue(key, now), first,
                     kStyleIndent);
    }
}

/// Whether a style is like the one that stands in for a colour that the text has no style for.
bool TableEditor::isDefaultColorStyle(std::size_t position) const
{
    const std::wstring name = OdPs::colorStyleName(static_cast<int>(position)).str();
    return position < OdPs::kColorStyleCount &&
           areEqual(valuesOf(*m_styles[position]), {{name, name, {}}, {}});
}

/// Whether a style has been changed that stands in for a colour that the text has no style for.
bool TableEditor::hasChangedFillers() const
{
    if (m_origin.styleGroups.size() == m_styles.size())
        return false;
    std::vector<bool> hasGroup(m_styles.size());
    for (const StyleGroup& group : m_origin.styleGroups)
        hasGroup[group.position] = true;
    for (std::size_t i = 0; i < m_styles.size(); ++i)
    {
        if (!hasGroup[i] && wasSet(*m_styles[i]) && !isDefaultColorStyle(i))
            return true;
    }
    return false;
}

void TableEditor::editStyles()
{
    if (!m_sameStyles || hasChangedFillers())
        return replace(m_edits, m_origin.group(TableGroup::Styles), arrangedStyles());
    for (const StyleGroup& group : m_origin.styleGroups)
    {
        const OdPsPlotStyle& style = *m_styles[group.position];
        if (wasSet(style))
            editStyle(m_edits, group, group.position, ownStyle(style));
    }
}

/// The styles in the order in which their groups are to be written. Groups that stood in the order
/// of their numbers do so again; otherwise they keep their places, and a new one follows the group
/// of the style that precedes it in the table.
std::vector<TableEditor::PlacedStyle> TableEditor::placedStyles() const
{
    const std::vector<StyleGroup>& groups = m_origin.styleGroups;
    std::unordered_map<const OdPsPlotStyle*, const StyleGroup*> groupOf;
    for (const StyleGroup& group : groups)
        groupOf.emplace(m_origin.styles[group.position].get(), &group);

    std::vector<std::pair<std::size_t, PlacedStyle>> placed; // with the place among the groups
    std::size_t place = 0;
    for (std::size_t i = 0; i < m_styles.size(); ++i)
    {
        const auto found = groupOf.find(m_styles[i].get());
        const StyleGroup* const group = found == groupOf.end() ? nullptr : found->second;
        if (!group && m_table.isColorDependent() && isDefaultColorStyle(i))
            continue;
        if (group)
            place = static_cast<std::size_t>(group - groups.data()) + 1;
        const bool keepsNumber = group && m_sameStyles;
        const std::uint32_t number = keepsNumber ? group->number : static_cast<std::uint32_t>(i);
        placed.push_back({place, {group, m_styles[i].get(), number}});
    }
    const auto byNumber = [](const StyleGroup& a, const StyleGroup& b)
    { return a.number < b.number; };
    if (!std::is_sorted(groups.begin(), groups.end(), byNumber))
        std::stable_sort(placed.begin(), placed.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<PlacedStyle> result;
    result.reserve(placed.size());
    for (const auto& entry : placed)
        result.push_back(entry.second);
    return result;
}

std::string TableEditor::styleText(const PlacedStyle& placed)
{
    if (!placed.group)
    {
        std::string text;
        appendStyle(text, placed.number, valuesOf(*placed.style), m_newLine);
        return text;
    }
    const Span span = placed.group->span;
    std::vector<Edit> edits;
    if (placed.number != placed.group->number)
    {
        const std::size_t digits = m_text.find_first_not_of(" \t", span.begin);
        const std::size_t brace = m_text.find('{', digits);
        replace(edits, {static_cast<std::uint32_t>(digits), static_cast<std::uint32_t>(brace)},
                std::to_string(placed.number));
    }
    const std::size_t position = m_sameStyles ? placed.group->position : placed.number;
    const bool mayNeedAName = m_table.isColorDependent() && position != placed.group->position;
    if (wasSet(*placed.style) || mayNeedAName)
        editStyle(edits, *placed.group, position, ownStyle(*placed.style));
    return edited(m_text, span, std::move(edits));
}

/// The contents of the styles' group after styles have been added, deleted or moved.
std::string TableEditor::arrangedStyles()
{
    const Span contents = m_origin.group(TableGroup::Styles);
    std::string text;
    text.reserve(contents.end - contents.begin);
    // Lines between the groups belong to no style: they come first.
    std::uint32_t between = contents.begin;
    for (const StyleGroup& group : m_origin.styleGroups)
    {
        text.append(Span{between, group.span.begin}.in(m_text));
        between = group.span.end;
    }
    for (const PlacedStyle& placed : placedStyles())
        text.append(styleText(placed));
    return text.append(Span{between, contents.end}.in(m_text));
}

/// The names that colours may refer to and that have changed: the new name of a renamed style, and
/// the name of the first style for a deleted one. Where several styles were read with one name
/// nothing tells which of them its colours mean: it stays as long as one of them has it, or when
/// they have got several names.
std::map<std::wstring, std::wstring> TableEditor::changedNames()
{
    std::map<std::wstring, std::wstring> names;
    const auto mayBeRenamed = [this](const StyleGroup& group)
    { return ownStyle(*m_origin.styles[group.position]).wasTextSet(); };
    const std::vector<StyleGroup>& groups = m_origin.styleGroups;
    if (m_sameStyles && std::none_of(groups.begin(), groups.end(), mayBeRenamed))
        return names;
    std::unordered_set<const OdPsPlotStyle*> present;
    std::set<std::wstring> presentNames;
    for (const OdPsPlotStylePtr& style : m_styles)
    {
        present.insert(style.get());
        presentNames.insert(storableText(style->name().str()));
    }
    // What has become of each name that styles were read with; a deleted style has none any more.
    std::map<std::wstring, std::set<std::wstring>> namesNow;
    for (const StyleGroup& group : groups)
    {
        const OdPsPlotStyle& style = *m_origin.styles[group.position];
        const std::wstring original = originalTexts(fieldsOf(group)).name;
        std::set<std::wstring>& now = namesNow[original];
        if (present.count(&style) > 0)
            now.insert(storableText(style.name().str()));
    }
    const std::wstring first = storableText(m_styles.front()->name().str());
    for (const auto& [original, now] : namesNow)
    {
        // Another style may have taken the place of a deleted one under its name.
        if (now.empty() && presentNames.count(original) == 0)
            names.emplace(original, first);
        else if (now.size() == 1 && *now.begin() != original)
            names.emplace(original, *now.begin());
    }
    return names;
}

/// Keeps the colours' references to named styles whole.
void TableEditor::editStyleNames()
{
    const Span colors = m_origin.group(TableGroup::AciTable);
    if (m_table.isColorDependent() || !colors || m_styles.empty())
        return;
    const std::map<std::wstring, std::wstring> names = changedNames();
    if (names.empty())
        return;
    std::wstring name;
    forEachRow(m_text, colors,
               [&](std::size_t, Span value)
               {
                   readText(value.in(m_text), name);
                   const auto found = names.find(name);
                   if (found != names.end() && found->second != name)
                       replace(m_edits, value, writeTextValue(found->second));
               });
}

} // namespace

std::optional<std::string> changedText(const OdPsPlotStyleTableImpl& table, const Origin& origin)
{
    return TableEditor(table, origin).changedText();
}

} // namespace tablefile
