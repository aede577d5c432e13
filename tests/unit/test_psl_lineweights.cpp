// Texts, pictures, limits and order of lineweights.

#include "psl_lineweight_list.h"

#include "odps/od_ps_impl.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace
{

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// A style that refers to a lineweight and counts how often its record is written.
class RecordingStyle final : public OdPsPlotStyle
{
public:
    explicit RecordingStyle(double lineweight) { data.lineweight = lineweight; }

    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    OdString name() const override { return {}; }
    OdString description() const override { return {}; }
    void getData(OdPsPlotStyleData& record) const override { record = data; }
    OdString localizedName() const override { return {}; }
    void setData(const OdPsPlotStyleData& record) override
    {
        ++writes;
        data = record;
    }
    void setDescription(const OdString&) override {}
    void setName(const OdString&) override {}
    void setLocalizedName(const OdString&) override {}

    OdPsPlotStyleData data;
    int writes = 0;

private:
    ~RecordingStyle() override = default;
    int m_references = 0;
};

/// A named table with these lineweights, and a style for each of the references.
class Table
{
public:
    explicit Table(const std::vector<double>& lineweights,
                   const std::vector<double>& references = {})
        : m_impl(new OdPsPlotStyleTableImpl(false))
        , table(m_impl)
    {
        m_impl->setLineweights(lineweights);
        OdArray<OdPsPlotStylePtr> styles;
        for (const double reference : references)
        {
            recorders.push_back(new RecordingStyle(reference));
            styles.push_back(recorders.back());
        }
        table->setStyleArray(styles);
    }

    std::vector<double> lineweights() const
    {
        std::vector<double> values;
        for (int i = 0; i < table->lineweightCount(); ++i)
            values.push_back(table->lineweightAt(i));
        return values;
    }

    std::vector<double> references() const
    {
        std::vector<double> values;
        for (const RecordingStyle* style : recorders)
            values.push_back(style->data.lineweight);
        return values;
    }

    std::vector<int> writes() const
    {
        std::vector<int> counts;
        for (const RecordingStyle* style : recorders)
            counts.push_back(style->writes);
        return counts;
    }

private:
    OdPsPlotStyleTableImpl* m_impl;

public:
    OdPsPlotStyleTablePtr table;
    std::vector<RecordingStyle*> recorders;
};

int compared(double first, double second)
{
    LineWeightData a(0, first);
    LineWeightData b(1, second);
    return compareLineWeightData(&a, &b);
}

std::vector<int> positionsAfterSort(const std::vector<double>& lineweights)
{
    return sortLineWeightList(*Table(lineweights).table);
}

} // namespace

TEST(CompareLineWeightData, OrdersByValueAlone)
{
    EXPECT_EQ(compared(0.25, 0.2), 1);
    EXPECT_EQ(compared(0.2, 0.25), -1);
    EXPECT_EQ(compared(0.25, 0.25), 0);
    EXPECT_EQ(compared(-0.0, 0.0), 0);
    EXPECT_EQ(compared(infinity, 200.0), 1);
}

TEST(CompareLineWeightData, IsLessForWhatIsNotANumber)
{
    EXPECT_EQ(compared(notANumber, 0.25), -1);
    EXPECT_EQ(compared(0.25, notANumber), -1);
    EXPECT_EQ(compared(notANumber, notANumber), -1);
}

TEST(LineweightIndex, AddsAHalfAndTruncatesTowardZero)
{
    const struct
    {
        double stored;
        int index;
    } cases[] = {
        {0.0, 0}, {-1.0, 0}, {-1.4, 0}, {0.4, 0},   {0.5, 1},
        {2.4, 2}, {2.5, 3},  {2.6, 3},  {27.0, 27}, {40.0, 40},
    };
    for (const auto& c : cases)
        EXPECT_EQ(lineweightIndex(c.stored), c.index) << c.stored;
}

TEST(LineweightIndex, IsZeroForWhatNoPositionCanBe)
{
    for (const double stored : {notANumber, infinity, -infinity, 1e300, -1e300, 2147483648.0})
        EXPECT_EQ(lineweightIndex(stored), 0) << stored;
    EXPECT_EQ(lineweightIndex(2147483646.0), 2147483646);
}

TEST(LineWeightTexts, HaveFourDecimalsAndTheUnit)
{
    const struct
    {
        double millimeters;
        bool inches;
        const char* text;
        const char* label;
    } cases[] = {
        {0.25, false, "0.2500", "0.2500 mm"},      {0.25, true, "0.0098", "0.0098\""},
        {0.0, false, "0.0000", "0.0000 mm"},       {0.0, true, "0.0000", "0.0000\""},
        {200.0, false, "200.0000", "200.0000 mm"}, {200.0, true, "7.8740", "7.8740\""},
        {25.4, true, "1.0000", "1.0000\""},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(lineWeightText(c.millimeters, c.inches), c.text);
        EXPECT_EQ(lineWeightLabel(c.millimeters, c.inches), c.label);
    }
}

TEST(LineWeightPictures, ChangeAtEveryThreshold)
{
    constexpr double step = 0.22;
    for (int picture = 1; picture <= 13; ++picture)
    {
        const double threshold = (picture + 0.5) * step;
        EXPECT_EQ(lineWeightPicture(threshold - 1e-6), picture);
        EXPECT_EQ(lineWeightPicture(threshold + 1e-6), picture + 1);
    }
}

TEST(LineWeightPictures, OfParticularValues)
{
    EXPECT_EQ(lineWeightPicture(0.0), 1);
    EXPECT_EQ(lineWeightPicture(-1.0), 1);
    EXPECT_EQ(lineWeightPicture(2.11), 10);
    EXPECT_EQ(lineWeightPicture(3.0), 14);
    EXPECT_EQ(lineWeightPicture(200.0), 14);
}

TEST(ParseLineWeight, AcceptsZeroTo200MillimetersAfterRounding)
{
    const struct
    {
        const char* text;
        bool inches;
        double value;
    } cases[] = {
        {"0", false, 0.0},         {"0.25", false, 0.25},       {" 1.5", false, 1.5},
        {"200", false, 200.0},     {"200.00004", false, 200.0}, {"-0.00004", false, 0.0},
        {"0", true, 0.0},          {"0.5", true, 12.7},         {"0.0098", true, 0.2489},
        {"7.874", true, 199.9996},
    };
    for (const auto& c : cases)
    {
        const auto value = parseLineWeight(c.text, c.inches);
        ASSERT_TRUE(value) << c.text;
        EXPECT_DOUBLE_EQ(*value, c.value) << c.text;
        EXPECT_FALSE(std::signbit(*value)) << c.text;
    }
}

TEST(ParseLineWeight, RejectsWhatIsOutOfRangeAfterRounding)
{
    for (const char* text :
         {"200.0001", "200.00006", "201", "-0.0001", "-0.00006", "-1", "1e300", "-1e300"})
        EXPECT_FALSE(parseLineWeight(text, false)) << text;
    for (const char* text : {"7.8741", "7.8742", "200", "-0.00001"})
        EXPECT_FALSE(parseLineWeight(text, true)) << text;
}

TEST(ParseLineWeight, RejectsWhatIsNoNumber)
{
    for (const char* text : {"", "abc", "0.25 mm", "0,25,1", "nan", "inf", "-inf", "1.5 "})
        for (const bool inches : {false, true})
            EXPECT_FALSE(parseLineWeight(text, inches)) << text;
}

// These halves have an exact binary form, so that the fifth decimal is what it looks like.
TEST(ParseLineWeight, RoundsHalvesAwayFromZero)
{
    const struct
    {
        const char* text;
        double value;
    } cases[] = {
        {"0.03125", 0.0313}, {"0.09375", 0.0938}, {"0.15625", 0.1563}, {"0.21875", 0.2188},
        {"0.28125", 0.2813}, {"0.34375", 0.3438}, {"0.03124", 0.0312}, {"0.03126", 0.0313},
    };
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(parseLineWeight(c.text, false).value_or(-1), c.value) << c.text;
}

TEST(LineWeightOrder, IsLookedAtPairByPair)
{
    const struct
    {
        std::vector<double> lineweights;
        bool outOfOrder;
    } cases[] = {{{}, false},    {{2}, false},      {{1, 2, 3}, false},     {{1, 1, 1}, false},
                 {{2, 1}, true}, {{1, 3, 2}, true}, {{1, 2, 1.9999}, true}, {{0, 0, 5, 5}, false}};
    for (const auto& c : cases)
        EXPECT_EQ(isLineWeightListOutOfOrder(*Table(c.lineweights).table), c.outOfOrder);
}

TEST(LineWeightUses, MarkEveryReferredRow)
{
    const Table table({1, 2, 3}, {-1.0, 0.0, 1.0, 3.0, 2.6, 3.4});
    LineWeightUse expected{};
    expected[0] = 1;
    expected[2] = 1;
    EXPECT_EQ(lineWeightUse(table.table.get()), expected);
}

TEST(LineWeightUses, LeaveOutReferencesPastTheRows)
{
    const Table table({1, 2, 3}, {28.0, 40.0, 1e300, -5.0, notANumber, 27.0});
    LineWeightUse expected{};
    expected[26] = 1;
    EXPECT_EQ(lineWeightUse(table.table.get()), expected);
}

TEST(LineWeightUses, AreNoneWithoutATable)
{
    EXPECT_EQ(lineWeightUse(nullptr), LineWeightUse{});
}

TEST(SortLineWeightList, PutsDistinctValuesInAscendingOrder)
{
    Table table({0.5, 0.1, 2.0, 0.0, 1.0});
    EXPECT_EQ(sortLineWeightList(*table.table), (std::vector<int>{2, 1, 4, 0, 3}));
    EXPECT_EQ(table.lineweights(), (std::vector<double>{0.0, 0.1, 0.5, 1.0, 2.0}));
}

TEST(SortLineWeightList, SortsManyValues)
{
    std::vector<double> values;
    for (int i = 0; i < 60; ++i)
        values.push_back(i * 37 % 60 / 10.0);
    Table table(values);
    const std::vector<int> positions = sortLineWeightList(*table.table);
    for (int i = 0; i < 60; ++i)
    {
        EXPECT_DOUBLE_EQ(table.table->lineweightAt(i), i / 10.0);
        EXPECT_EQ(positions[static_cast<std::size_t>(i)], i * 37 % 60);
    }
}

TEST(SortLineWeightList, LeavesSortedValuesAndTheirStylesAlone)
{
    Table table({0.0, 0.1, 0.2}, {1.0, 2.0, 3.0, -1.0});
    EXPECT_EQ(sortLineWeightList(*table.table), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(table.lineweights(), (std::vector<double>{0.0, 0.1, 0.2}));
    EXPECT_EQ(table.references(), (std::vector<double>{1.0, 2.0, 3.0, -1.0}));
    EXPECT_EQ(table.writes(), (std::vector<int>{0, 0, 0, 0}));
}

TEST(SortLineWeightList, TradesThePlacesOfTwoEqualValues)
{
    Table table({0.3, 0.3, 0.5}, {1.0, 2.0, 3.0});
    EXPECT_EQ(sortLineWeightList(*table.table), (std::vector<int>{1, 0, 2}));
    EXPECT_EQ(table.lineweights(), (std::vector<double>{0.3, 0.3, 0.5}));
    EXPECT_EQ(table.references(), (std::vector<double>{2.0, 1.0, 3.0}));
    EXPECT_EQ(table.writes(), (std::vector<int>{1, 1, 0}));
}

// A new value goes before the equal one that the binary search meets first, in the middle of the
// run: the orders below are worked out by hand.
TEST(SortLineWeightList, PutsEqualValuesBeforeTheOneThatTheSearchMeets)
{
    const struct
    {
        std::vector<double> lineweights;
        std::vector<int> positions;
    } cases[] = {
        {{1, 1, 1}, {2, 0, 1}},
        {{1, 1, 1, 1}, {3, 0, 2, 1}},
        {{1, 1, 1, 1, 1}, {4, 0, 3, 1, 2}},
        {{1, 1, 1, 1, 1, 1}, {5, 0, 4, 1, 3, 2}},
        {{1, 1, 1, 1, 1, 1, 1}, {6, 0, 5, 1, 4, 2, 3}},
        {{5, 1, 5, 3, 5}, {4, 0, 3, 1, 2}},
        {{0.0, -0.0}, {1, 0}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(positionsAfterSort(c.lineweights), c.positions)
            << testing::PrintToString(c.lineweights);
}

TEST(SortLineWeightList, LosesNoValueThatIsNotANumber)
{
    Table table({2.0, notANumber, 1.0}, {1.0, 2.0, 3.0});
    EXPECT_EQ(sortLineWeightList(*table.table), (std::vector<int>{2, 1, 0}));
    EXPECT_EQ(table.table->lineweightAt(0), 1.0);
    EXPECT_TRUE(std::isnan(table.table->lineweightAt(1)));
    EXPECT_EQ(table.table->lineweightAt(2), 2.0);
    EXPECT_EQ(table.references(), (std::vector<double>{3.0, 2.0, 1.0}));
}

TEST(SortLineWeightList, LetsEveryStyleFollowItsValue)
{
    const std::vector<double> before = {0.5, 0.1, 2.0, 0.0, 1.0};
    Table table(before, {1.0, 2.0, 3.0, 4.0, 5.0, 0.0, -1.0, 0.4});
    sortLineWeightList(*table.table);
    EXPECT_EQ(table.references(), (std::vector<double>{3.0, 2.0, 5.0, 1.0, 4.0, 0.0, -1.0, 0.4}));
    for (std::size_t style = 0; style < before.size(); ++style)
    {
        const int row = lineweightIndex(table.references()[style]) - 1;
        EXPECT_EQ(table.table->lineweightAt(row), before[style]);
    }
}

TEST(SortLineWeightList, WritesOnlyStylesWhoseValueMoved)
{
    Table table({0.0, 0.2, 0.1}, {1.0, 2.0, 3.0, 0.0, -1.0, 1.3});
    sortLineWeightList(*table.table);
    EXPECT_EQ(table.writes(), (std::vector<int>{0, 1, 1, 0, 0, 0}));
    EXPECT_EQ(table.references()[5], 1.3) << "an unmoved reference keeps its fraction";
}

TEST(SortLineWeightList, ChangesNothingElseInAStyle)
{
    Table table({0.2, 0.1}, {1.0});
    OdPsPlotStyleData& data = table.recorders[0]->data;
    data.screening = 40;
    data.linePatternSize = 0.5;
    data.color = OdCmEntityColor(1, 2, 3);
    OdPsPlotStyleData expected = data;
    expected.lineweight = 2.0;
    sortLineWeightList(*table.table);
    EXPECT_TRUE(table.recorders[0]->data == expected);
}

TEST(SortLineWeightList, GivesReferencesPastTheListTheObjectsLineweight)
{
    Table table({0.0, 0.1, 0.2}, {4.0, 27.0, 1000.0, 3.0});
    sortLineWeightList(*table.table);
    EXPECT_EQ(table.references(), (std::vector<double>{0.0, 0.0, 0.0, 3.0}));
    EXPECT_EQ(table.writes(), (std::vector<int>{1, 1, 1, 0}));
}

TEST(SortLineWeightList, SortsTablesWithoutValuesAndWithMoreThanTheEditorShows)
{
    Table none({}, {1.0, 0.0});
    EXPECT_TRUE(sortLineWeightList(*none.table).empty());
    EXPECT_EQ(none.references(), (std::vector<double>{0.0, 0.0}));

    std::vector<double> values(30);
    std::iota(values.rbegin(), values.rend(), 0.0);
    Table many(values, {1.0, 30.0});
    sortLineWeightList(*many.table);
    EXPECT_EQ(many.table->lineweightAt(0), 0.0);
    EXPECT_EQ(many.table->lineweightAt(29), 29.0);
    EXPECT_EQ(many.references(), (std::vector<double>{30.0, 1.0}));
}
