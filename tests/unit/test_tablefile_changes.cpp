// Tests that a change of a table changes the lines of that change and no other, however the file
// was written. What to expect is worked out on the text alone, by a reader of its own.

#include "support/comma_locale.h"
#include "support/table_variants.h"
#include "support/tables.h"

#include "odps/od_ps_impl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>

using namespace support;

namespace
{

using Table = OdPsPlotStyleTable;
using Data = OdPsPlotStyleData;
using Lines = std::vector<std::string>;
/// New values, by where they belong: "plot_style/2/screen".
using Values = std::map<std::string, std::string>;

/// The style that the tests change.
constexpr int kStyle = 2;
const std::string kStylePath = "plot_style/" + std::to_string(kStyle) + "/";

/// A line of a text and where it belongs. The first and the last line of a group belong to it.
struct PlacedLine
{
    std::string path;
    std::string line; ///< without its end
};

std::vector<PlacedLine> placedLines(const std::string& text)
{
    std::vector<PlacedLine> placed;
    std::string group;
    for (const std::string& line : splitLines(text))
    {
        const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
        const std::size_t equals = line.find('=');
        const std::size_t brace = equals == std::string::npos ? line.find('{') : equals;
        const std::string key = line.substr(first, std::min(brace, line.size()) - first);
        if (equals == std::string::npos && brace != std::string::npos)
            group += key + "/";
        placed.push_back({equals == std::string::npos ? group : group + key, line});
        if (key.rfind('}', 0) == 0)
            group.erase(group.rfind('/', group.size() - 2) + 1);
    }
    return placed;
}

std::string withValues(const std::string& text, const Values& values)
{
    Lines lines;
    std::size_t used = 0;
    for (const PlacedLine& placed : placedLines(text))
    {
        const auto value = values.find(placed.path);
        std::string line = placed.line;
        if (value != values.end())
        {
            const std::string end = line.back() == '\r' ? "\r" : "";
            line = line.substr(0, line.find('=') + 1) + value->second + end;
            ++used;
        }
        lines.push_back(line);
    }
    EXPECT_EQ(used, values.size());
    return joinLines(lines);
}

/// The lines of a style's group.
Lines groupLines(const std::string& text, int style)
{
    const std::string path = "plot_style/" + std::to_string(style) + "/";
    Lines lines;
    for (const PlacedLine& placed : placedLines(text))
    {
        if (placed.path.rfind(path, 0) == 0)
            lines.push_back(placed.line);
    }
    return lines;
}

/// The text with the groups of the styles replaced by others, in the order of the places.
std::string withGroups(const std::string& text, const std::vector<Lines>& groups)
{
    Lines lines;
    bool isDone = false;
    for (const PlacedLine& placed : placedLines(text))
    {
        const bool isOfAStyle = placed.path.rfind("plot_style/", 0) == 0 &&
                                placed.path.size() > 11 && std::isdigit(placed.path[11]);
        if (!isOfAStyle)
            lines.push_back(placed.line);
        if (isOfAStyle && !isDone)
        {
            for (const Lines& group : groups)
                lines.insert(lines.end(), group.begin(), group.end());
            isDone = true;
        }
    }
    return joinLines(lines);
}

Lines numbered(Lines group, int number)
{
    std::string& first = group.front();
    const std::size_t digits = first.find_first_not_of(' ');
    first.replace(digits, first.find('{') - digits, std::to_string(number));
    return group;
}

/// The groups of some styles as they are numbered anew, in the order of the file.
std::vector<Lines> arranged(const TableVariant& variant, const std::string& text,
                            const std::vector<int>& styles)
{
    std::vector<Lines> groups;
    for (std::size_t i = 0; i < styles.size(); ++i)
        groups.push_back(numbered(groupLines(text, styles[i]), static_cast<int>(i)));
    if (variant.isReversed)
        std::reverse(groups.begin(), groups.end());
    return groups;
}

struct Change
{
    const char* what;
    std::function<void(Table&)> apply;
    Values values;
};

Change dataChange(const char* key, const char* value, std::function<void(Data&)> change)
{
    return {key,
            [change](Table& table) { changeData(table, kStyle, change); },
            {{kStylePath + key, value}}};
}

std::vector<Change> styleChanges()
{
    std::vector<Change> changes = {
        dataChange("color_policy", "4", [](Data& d) { d.colorPolicy = 4; }),
        dataChange("adaptive_linetype", "FALSE", [](Data& d) { d.adaptiveLinetype = false; }),
        dataChange("screen", "7", [](Data& d) { d.screening = 7; }),
        dataChange("physical_pen_number", "32", [](Data& d) { d.physicalPenNumber = 32; }),
        dataChange("virtual_pen_number", "255", [](Data& d) { d.virtualPenNumber = 255; }),
        dataChange("linetype", "3", [](Data& d) { d.linetype = 3; }),
        dataChange("fill_style", "64", [](Data& d) { d.fillStyle = 64; }),
        dataChange("end_style", "0", [](Data& d) { d.endStyle = 0; }),
        dataChange("join_style", "-1", [](Data& d) { d.joinStyle = -1; }),
        dataChange("linepattern_size", "0.25", [](Data& d) { d.linePatternSize = 0.25; }),
        dataChange("lineweight", "12", [](Data& d) { d.lineweight = 12; }),
        dataChange("mode_color", "-1023540990", [](Data& d) { d.color.setRGB(254, 1, 2); }),
    };
    changes.back().values[kStylePath + "color"] = "-1006698496"; // red, the nearest
    changes.push_back({"style's description",
                       [](Table& t) { t.styleAt(kStyle)->setDescription(L"\u00E4 {=\"\n"); },
                       {{kStylePath + "description", "\"\xC3\xA4 {=\" "}}});
    changes.push_back({"localized name",
                       [](Table& t) { t.styleAt(kStyle)->setLocalizedName(L"Tore"); },
                       {{kStylePath + "localized_name", "\"Tore"}}});
    return changes;
}

std::vector<Change> tableChanges()
{
    std::vector<Change> changes = {
        {"description",
         [](Table& t) { t.setDescription(L"\u20AC"); },
         {{"description", "\"\xE2\x82\xAC"}}},
        {"scale factor", [](Table& t) { t.setScaleFactor(1234.5); }, {{"scale_factor", "1234.5"}}},
        {"factor applied",
         [](Table& t) { t.setApplyScaleFactor(true); },
         {{"apply_factor", "TRUE"}}},
        {"inches",
         [](Table& t) { t.setDisplayCustomLineweightUnits(true); },
         {{"custom_lineweight_display_units", "1"}}},
    };
    for (int row = 0; row < 27; ++row)
        changes.push_back({"lineweight",
                           [row](Table& t) { t.setLineweightAt(row, 7.125); },
                           {{"custom_lineweight_table/" + std::to_string(row), "7.125"}}});
    return changes;
}

/// New values of the colours that refer to a style.
Values colorValues(const TableVariant& variant, int style, const std::string& name)
{
    Values values;
    for (int i = style; variant.kind == std::string("TTB") && i < 255; i += kVariantStyles)
        values["aci_table/" + std::to_string(i)] = "\"" + name;
    return values;
}

void moveStyle(Table& table, int from, int to)
{
    OdArray<OdPsPlotStylePtr> styles = table.styleArray();
    const OdPsPlotStylePtr moved = styles[static_cast<std::size_t>(from)];
    styles.erase(styles.begin() + from);
    styles.insert(styles.begin() + to, moved);
    table.setStyleArray(styles);
}

/// All variants, in a locale whose numbers look different from those of a file.
class Changes : public testing::TestWithParam<TableVariant>
{
protected:
    OdPsPlotStyleTablePtr table() const { return tableOfText(m_text, GetParam().kind); }
    bool isColorDependent() const { return GetParam().kind == std::string("CTB"); }
    Lines freshGroup(int number, const std::string& name) const;

    const std::string m_text = variantText(GetParam());

private:
    const CommaLocale m_locale;
};

/// The group of a style with the values of a new data record.
Lines Changes::freshGroup(int number, const std::string& name) const
{
    std::string text = styleText(number, name);
    text = replaced(text, "color_policy=1", "color_policy=0");
    text = replaced(text, "linepattern_size=0.5", "linepattern_size=0.0");
    text = replaced(text, "adaptive_linetype=TRUE", "adaptive_linetype=FALSE");
    Lines lines = splitLines(GetParam().hasCrLf ? withCrLf(text) : text);
    lines.pop_back();
    return lines;
}

INSTANTIATE_TEST_SUITE_P(AllVariants, Changes, testing::ValuesIn(allVariants()));

/// Fails the test where a table's text is not the expected one, by the lines that differ.
void expectText(const Table& table, const std::string& expected, const std::string& what)
{
    EXPECT_EQ(changedLines(expected, textOf(table)), Lines()) << what;
}

} // namespace

TEST_P(Changes, NoneGivesTheSameBytes)
{
    Container container;
    container.kind = GetParam().kind;
    container.level = 1;
    const std::string file = pack(m_text, container);
    const OdPsPlotStyleTablePtr table = tableOf(file);
    EXPECT_EQ(table->isColorDependent(), isColorDependent());
    EXPECT_EQ(table->styleCount(), isColorDependent() ? 255 : kVariantStyles);
    EXPECT_EQ(table->styleAt(1)->name(), OdString(L"W\u00E4nde"));
    EXPECT_EQ(dataOf(*table, 4).linePatternSize, 0.5);
    EXPECT_EQ(table->lineweightAt(21), 1.06);
    EXPECT_EQ(bytesOf(*table), file);
}

TEST_P(Changes, OfAStyle)
{
    for (const Change& change : styleChanges())
    {
        const OdPsPlotStyleTablePtr changed = table();
        change.apply(*changed);
        expectText(*changed, withValues(m_text, change.values), change.what);
    }
}

TEST_P(Changes, OfTheTable)
{
    for (const Change& change : tableChanges())
    {
        const OdPsPlotStyleTablePtr changed = table();
        change.apply(*changed);
        expectText(*changed, withValues(m_text, change.values), change.what);
    }
}

TEST_P(Changes, OfANameAndTheColorsThatReferToIt)
{
    for (int style = 0; style < kVariantStyles; ++style)
    {
        const OdPsPlotStyleTablePtr changed = table();
        changed->styleAt(style)->setName(L"\u00D6ffnung = {");
        changed->styleAt(style)->setLocalizedName(L"Other");
        const std::string path = "plot_style/" + std::to_string(style) + "/";
        Values values = colorValues(GetParam(), style,
                                    "\xC3\x96"
                                    "ffnung = {");
        values[path + "name"] = "\"\xC3\x96"
                                "ffnung = {";
        values[path + "localized_name"] = "\"Other";
        expectText(*changed, withValues(m_text, values), "renamed");
    }
}

TEST_P(Changes, AnAddedStyleFollowsTheLastOne)
{
    const OdPsPlotStyleTablePtr changed = table();
    const int count = changed->styleCount();
    changed->addNewStyle(L"New");
    std::vector<Lines> groups = arranged(GetParam(), m_text, {0, 1, 2, 3, 4});
    groups.insert(GetParam().isReversed ? groups.begin() + 1 : groups.end(),
                  freshGroup(count, "New"));
    expectText(*changed, withGroups(m_text, groups), "added");
}

TEST_P(Changes, ADeletedStyleTakesOnlyItsLines)
{
    if (isColorDependent())
        return; // every colour has its style
    for (int style = 1; style < kVariantStyles; ++style)
    {
        const OdPsPlotStyleTablePtr changed = table();
        changed->deleteStyle(changed->styleAt(style));
        std::vector<int> rest = {0, 1, 2, 3, 4};
        rest.erase(rest.begin() + style);
        const std::string text = withValues(m_text, colorValues(GetParam(), style, "Normal"));
        expectText(*changed, withGroups(text, arranged(GetParam(), text, rest)), "deleted");
    }
}

TEST_P(Changes, AMovedStyleKeepsItsLines)
{
    if (isColorDependent())
        return; // every colour has its style
    const OdPsPlotStyleTablePtr changed = table();
    moveStyle(*changed, 3, 1);
    const std::vector<int> order = {0, 3, 1, 2, 4};
    std::vector<Lines> groups = arranged(GetParam(), m_text, order);
    if (GetParam().isReversed)
    {
        // Groups that were in no order keep their places and take new numbers.
        groups.clear();
        for (int style = kVariantStyles - 1; style >= 0; --style)
        {
            const auto place = std::find(order.begin(), order.end(), style) - order.begin();
            groups.push_back(numbered(groupLines(m_text, style), static_cast<int>(place)));
        }
    }
    expectText(*changed, withGroups(m_text, groups), "moved");
    moveStyle(*changed, 1, 3);
    expectText(*changed, m_text, "moved back");
}

TEST(Texts, EveryTextComesBackFromAFile)
{
    const std::wstring kTexts[] = {L"",
                                   L"a=b",
                                   L"{",
                                   L"}",
                                   L"ends in {",
                                   L"\"",
                                   L"\"quoted\"",
                                   L" leading",
                                   L"trailing ",
                                   L"\ttabs\t",
                                   std::wstring(4000, L'x'),
                                   std::wstring(4000, L'\u00E4'),
                                   L"\u00C3\u00A4", // looks like UTF-8 in Windows-1252
                                   L"\u20AC\u0081\u00FF",
                                   L"\U0001F600\U0010FFFF",
                                   L"\uFEFF\u2028"};
    for (const std::wstring& text : kTexts)
    {
        for (const std::string& original : {colorTableText(), withCrLf(namedTableText({"a", "b"}))})
        {
            const OdPsPlotStyleTablePtr table = tableOfText(original);
            table->setDescription(text);
            table->styleAt(1)->setName(text);
            table->styleAt(1)->setLocalizedName(L"l" + text);
            table->styleAt(1)->setDescription(text);
            const OdPsPlotStyleTablePtr again = tableOf(bytesOf(*table));
            EXPECT_EQ(again->description(), OdString(text));
            EXPECT_EQ(again->styleAt(1)->name(), OdString(text));
            EXPECT_EQ(again->styleAt(1)->localizedName(), OdString(L"l" + text));
            EXPECT_EQ(again->styleAt(1)->description(), OdString(text));
        }
    }
}

TEST(Texts, ALineBreakBecomesABlank)
{
    for (const wchar_t* const text : {L"a\nb", L"a\rb", L"a\r\nb"})
    {
        const OdPsPlotStyleTablePtr table = tableOfText(namedTableText({"a", "b"}), "STB");
        table->styleAt(1)->setName(text);
        table->styleAt(1)->setDescription(text);
        table->setDescription(text);
        const OdPsPlotStyleTablePtr again = tableOf(bytesOf(*table));
        EXPECT_EQ(again->styleAt(1)->name(), OdString(L"a b"));
        EXPECT_EQ(again->styleAt(1)->description(), OdString(L"a b"));
        EXPECT_EQ(again->description(), OdString(L"a b"));
    }
}
