// Gathering and changing the properties of styles.

#include "psl_style_fields.h"

#include "psl_lineweight_list.h"
#include "support/tables.h"

#include "cmdapi/cma.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace
{

using Change = void (*)(OdPsPlotStyleData&);

/// The styles of a new table, one for each of the changes of a default record.
OdArray<OdPsPlotStylePtr> styles(const std::vector<Change>& changes)
{
    const OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(true, L"");
    OdArray<OdPsPlotStylePtr> result;
    for (std::size_t i = 0; i < changes.size(); ++i)
    {
        support::changeData(*table, static_cast<int>(i), changes[i]);
        result.push_back(table->styleAt(static_cast<int>(i)));
    }
    return result;
}

void leaveAlone(OdPsPlotStyleData&) {}

void changeAll(OdPsPlotStyleData& data)
{
    data.color = OdCmEntityColor(10, 20, 30);
    data.colorPolicy = 1 | 2;
    data.adaptiveLinetype = true;
    data.screening = 40;
    data.physicalPenNumber = 7;
    data.virtualPenNumber = 200;
    data.linetype = 5;
    data.fillStyle = 66;
    data.endStyle = 2;
    data.joinStyle = 1;
    data.lineweight = 9;
}

StyleFields gathered(const OdArray<OdPsPlotStylePtr>& styles)
{
    return gatherStyleFields([&styles, i = std::size_t{0}]() mutable
                             { return i < styles.size() ? styles[i++] : nullptr; });
}

/// The fields that hold an integer, in the order of the declaration.
std::vector<int> integers(const StyleFields& fields)
{
    return {fields.dither,     fields.grayscale, fields.adaptive, fields.physicalPen,
            fields.virtualPen, fields.screening, fields.lineType, fields.lineWeight,
            fields.endStyle,   fields.joinStyle, fields.fillStyle};
}

const std::vector<int> defaultIntegers = {0, 0, 0, -1, -1, 100, 31, 0, 4, 5, 73};
const std::vector<int> changedIntegers = {1, 1, 1, 7, 200, 40, 5, 9, 2, 1, 66};

OdPsPlotStyleData record(OdCmEntityColor color, std::int16_t policy)
{
    OdPsPlotStyleData data;
    data.color = color;
    data.colorPolicy = policy;
    return data;
}

OdCmEntityColor withBits(std::uint32_t bits)
{
    OdCmEntityColor color;
    color.setColor(bits);
    return color;
}

const OdCmEntityColor red(255, 0, 0);

} // namespace

TEST(GatherStyleFields, OfNoStyleAreTheUsualValues)
{
    const StyleFields fields = gathered({});
    EXPECT_EQ(integers(fields), (std::vector<int>{1, 0, 1, 0, 0, 100, 31, 0, 4, 5, 73}));
    EXPECT_EQ(fields.color.state, fields.color.Unset);
    EXPECT_TRUE(fields.description.value.isEmpty());
}

TEST(GatherStyleFields, OfOneStyleAreItsOwn)
{
    EXPECT_EQ(integers(gathered(styles({leaveAlone}))), defaultIntegers);
    const StyleFields fields = gathered(styles({changeAll}));
    EXPECT_EQ(integers(fields), changedIntegers);
    EXPECT_EQ(fields.color.state, fields.color.Same);
    EXPECT_EQ(fields.color.value, 0x0A141Eu);
}

TEST(GatherStyleFields, OfEqualStylesAreTheCommonOnes)
{
    const StyleFields fields = gathered(styles({changeAll, changeAll, changeAll}));
    EXPECT_EQ(integers(fields), changedIntegers);
    EXPECT_EQ(fields.color.state, fields.color.Same);
    EXPECT_EQ(fields.color.value, 0x0A141Eu);
}

TEST(GatherStyleFields, OfDifferingStylesDiffer)
{
    const std::vector<int> differing(defaultIntegers.size(), fieldDiffers);
    const std::vector<std::vector<Change>> selections = {
        {leaveAlone, changeAll},
        {changeAll, leaveAlone},
        {changeAll, leaveAlone, changeAll},
        {leaveAlone, leaveAlone, changeAll, leaveAlone},
    };
    for (const std::vector<Change>& selection : selections)
    {
        const StyleFields fields = gathered(styles(selection));
        EXPECT_EQ(integers(fields), differing);
        EXPECT_EQ(fields.color.state, fields.color.Differs);
    }
}

TEST(GatherStyleFields, FindDifferencesPropertyByProperty)
{
    const Change changes[] = {
        [](OdPsPlotStyleData& data) { data.colorPolicy = 1; },
        [](OdPsPlotStyleData& data) { data.colorPolicy = 2; },
        [](OdPsPlotStyleData& data) { data.adaptiveLinetype = true; },
        [](OdPsPlotStyleData& data) { data.physicalPenNumber = 1; },
        [](OdPsPlotStyleData& data) { data.virtualPenNumber = 1; },
        [](OdPsPlotStyleData& data) { data.screening = 99; },
        [](OdPsPlotStyleData& data) { data.linetype = 30; },
        [](OdPsPlotStyleData& data) { data.lineweight = 1.0; },
        [](OdPsPlotStyleData& data) { data.endStyle = 3; },
        [](OdPsPlotStyleData& data) { data.joinStyle = 4; },
        [](OdPsPlotStyleData& data) { data.fillStyle = 72; },
    };
    std::size_t field = 0;
    for (const Change change : changes)
    {
        const StyleFields fields = gathered(styles({leaveAlone, change}));
        std::vector<int> expected = defaultIntegers;
        expected[field++] = fieldDiffers;
        EXPECT_EQ(integers(fields), expected);
        EXPECT_EQ(fields.color.state, fields.color.Same);
    }
}

// The explicit-colour flag and the line pattern size have no field.
TEST(GatherStyleFields, LeaveOutWhatHasNoField)
{
    const Change change = [](OdPsPlotStyleData& data)
    {
        data.colorPolicy = 4;
        data.linePatternSize = 0.5;
    };
    const StyleFields fields = gathered(styles({leaveAlone, change}));
    EXPECT_EQ(integers(fields), defaultIntegers);
}

TEST(GatherStyleFields, RoundLineweightReferencesBeforeComparingThem)
{
    const StyleFields same =
        gathered(styles({[](OdPsPlotStyleData& data) { data.lineweight = 2.4; },
                         [](OdPsPlotStyleData& data) { data.lineweight = 1.6; }}));
    EXPECT_EQ(same.lineWeight, 2);
    const StyleFields object =
        gathered(styles({leaveAlone, [](OdPsPlotStyleData& data) { data.lineweight = 0.0; }}));
    EXPECT_EQ(object.lineWeight, 0) << "-1.0 and 0.0 are the object's own lineweight";
    const StyleFields strange = gathered(styles({[](OdPsPlotStyleData& data) {
        data.lineweight = std::numeric_limits<double>::quiet_NaN();
    }}));
    EXPECT_EQ(strange.lineWeight, 0);
}

// A record may hold the numbers that the fields reserve.
TEST(GatherStyleFields, TakeReservedNumbersForWhatTheyStandFor)
{
    const Change unset = [](OdPsPlotStyleData& data) { data.physicalPenNumber = -2; };
    const Change differs = [](OdPsPlotStyleData& data) { data.physicalPenNumber = -3; };
    const Change seven = [](OdPsPlotStyleData& data) { data.physicalPenNumber = 7; };
    EXPECT_EQ(gathered(styles({unset})).physicalPen, fieldUnset);
    EXPECT_EQ(gathered(styles({unset, seven})).physicalPen, 7);
    EXPECT_EQ(gathered(styles({seven, unset})).physicalPen, fieldDiffers);
    EXPECT_EQ(gathered(styles({differs, seven})).physicalPen, fieldDiffers);
}

TEST(GatherStyleFields, CompareColoursByTheirRgb)
{
    const struct
    {
        Change first;
        Change second;
        bool same;
    } cases[] = {
        {[](OdPsPlotStyleData& data) { data.color.setColorIndex(1); },
         [](OdPsPlotStyleData& data) { data.color.setRGB(255, 0, 0); }, true},
        {[](OdPsPlotStyleData& data) { data.color.setColorIndex(1); },
         [](OdPsPlotStyleData& data) { data.color.setColorIndex(10); }, true},
        {[](OdPsPlotStyleData& data) { data.color.setColorIndex(7); }, leaveAlone, true},
        {[](OdPsPlotStyleData& data) { data.color.setRGB(255, 0, 0); },
         [](OdPsPlotStyleData& data) { data.color.setRGB(254, 0, 0); }, false},
        {[](OdPsPlotStyleData& data) { data.color.setRGB(255, 0, 0); }, leaveAlone, false},
    };
    for (const auto& c : cases)
    {
        const StyleFields fields = gathered(styles({c.first, c.second}));
        EXPECT_EQ(fields.color.state, c.same ? fields.color.Same : fields.color.Differs);
    }
}

TEST(GatherStyleFields, CompareDescriptionsExactly)
{
    OdArray<OdPsPlotStylePtr> two = styles({leaveAlone, leaveAlone});
    two[0]->setDescription(L"thin");
    two[1]->setDescription(L"thin");
    EXPECT_EQ(gathered(two).description.value, L"thin");
    two[1]->setDescription(L"Thin");
    const StyleFields fields = gathered(two);
    EXPECT_EQ(fields.description.state, fields.description.Differs);
    EXPECT_TRUE(fields.description.value.isEmpty());
    two.push_back(two[0]);
    EXPECT_TRUE(gathered(two).description.value.isEmpty());
}

// The gathering ends early, but not before the descriptions differ, too.
TEST(GatherStyleFields, CompareDescriptionsWhenAllElseDiffers)
{
    OdArray<OdPsPlotStylePtr> three = styles({leaveAlone, changeAll, leaveAlone});
    for (const OdPsPlotStylePtr& style : three)
        style->setDescription(L"thin");
    three[2]->setDescription(L"wide");
    const StyleFields fields = gathered(three);
    EXPECT_EQ(fields.description.state, fields.description.Differs);
}

TEST(StyleRgb, GivesIndexColoursTheirPaletteColour)
{
    EXPECT_EQ(styleRgb(withBits(0xC3000001)), 0xFF0000u);
    EXPECT_EQ(styleRgb(withBits(0xC3000007)), 0xFFFFFFu);
    EXPECT_EQ(styleRgb(withBits(0xC300001E)), OdCmEntityColor::lookUpRGB(30));
}

TEST(StyleRgb, TakesTheOtherBitsAsTheyStand)
{
    EXPECT_EQ(styleRgb(OdCmEntityColor(1, 2, 3)), 0x010203u);
    EXPECT_EQ(styleRgb(OdCmEntityColor()), objectColor);
    EXPECT_EQ(styleRgb(withBits(0xC0123456)), 0x123456u);
}

TEST(ChangeColor, StoresABycolourValue)
{
    OdPsPlotStyleData data = record(withBits(0xC3000005), 0);
    changeColor(data, 0x010203);
    EXPECT_EQ(data.color.color(), 0xC2010203u);
    changeColor(data, objectColor);
    EXPECT_EQ(data.color.color(), 0xC2FFFFFFu);
}

TEST(ChangeColor, KeepsTheExplicitColourFlagInStep)
{
    const struct
    {
        std::int16_t before;
        std::uint32_t rgb;
        std::int16_t after;
    } cases[] = {
        {0, 0xFF0000, 4},    {4, 0xFF0000, 4}, {1, 0xFF0000, 5},    {2, 0xFF0000, 2},
        {6, 0xFF0000, 2},    {7, 0x000000, 3}, {4, objectColor, 0}, {5, objectColor, 1},
        {2, objectColor, 2}, {0, 0x000000, 4},
    };
    for (const auto& c : cases)
    {
        OdPsPlotStyleData data = record(OdCmEntityColor(), c.before);
        changeColor(data, c.rgb);
        EXPECT_EQ(data.colorPolicy, c.after) << c.before << " " << c.rgb;
    }
}

TEST(ChangeDither, ChangesItsFlagAlone)
{
    for (std::int16_t policy = 0; policy < 8; ++policy)
    {
        OdPsPlotStyleData data = record(red, policy);
        changeDither(data, true);
        EXPECT_EQ(data.colorPolicy, policy | 1);
        changeDither(data, false);
        EXPECT_EQ(data.colorPolicy, policy & ~1);
        EXPECT_EQ(data.color, red);
    }
}

TEST(ChangeGrayscale, ClearsAndRestoresTheExplicitColourFlag)
{
    const struct
    {
        OdCmEntityColor color;
        std::int16_t before;
        bool grayscale;
        std::int16_t after;
    } cases[] = {
        {red, 4, true, 2},
        {red, 5, true, 3},
        {red, 2, false, 4},
        {red, 3, false, 5},
        {red, 0, false, 4},
        {withBits(0xC3000001), 2, false, 4},
        {OdCmEntityColor(), 0, true, 2},
        {OdCmEntityColor(), 2, false, 0},
        {OdCmEntityColor(), 6, false, 0},
        {withBits(0xC3000007), 2, false, 0},
    };
    for (const auto& c : cases)
    {
        OdPsPlotStyleData data = record(c.color, c.before);
        changeGrayscale(data, c.grayscale);
        EXPECT_EQ(data.colorPolicy, c.after) << c.before << " " << c.grayscale;
        EXPECT_EQ(data.color, c.color);
    }
}

TEST(Changes, LeaveEveryOtherPropertyAlone)
{
    OdPsPlotStyleData data;
    changeAll(data);
    OdPsPlotStyleData expected = data;
    changeColor(data, 0xFF0000);
    changeDither(data, false);
    changeGrayscale(data, false);
    expected.color = red;
    expected.colorPolicy = 4;
    EXPECT_TRUE(data == expected);
}
