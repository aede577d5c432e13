// What the picture of a table shows.

#include "sheet_lines.h"

#include "cmdapi/cma.h"
#include "odps/od_ps.h"
#include "support/tables.h"

#include <gtest/gtest.h>

#include <wx/init.h>

#include <functional>

namespace
{

using Data = OdPsPlotStyleData;
using Rgb = std::vector<std::uint32_t>;

class SheetLines : public testing::Test
{
protected:
    // The line of the style "Normal" with some properties changed.
    SheetLine lineOf(const std::function<void(Data&)>& change)
    {
        support::changeData(*names, 0, change);
        return sheetLines(*names, 1000).at(0);
    }

    std::vector<wxString> labels(const OdPsPlotStyleTablePtr& table)
    {
        std::vector<wxString> found;
        for (const SheetLine& line : sheetLines(*table, 1000))
            found.push_back(line.label);
        return found;
    }

    const wxInitializer toolkit;
    const OdPsPlotStyleTablePtr names = cma::createPlotStyleTable(false, L"");
    const OdPsPlotStyleTablePtr colors = cma::createPlotStyleTable(true, L"");
};

} // namespace

TEST_F(SheetLines, OfANewColorTableAreOneInAllColors)
{
    const auto lines = sheetLines(*colors, 1000);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].label, L"1 – 255");
    ASSERT_EQ(lines[0].colors.size(), 255u);
    EXPECT_EQ(lines[0].colors[0], 0xFF0000u);
    EXPECT_EQ(lines[0].colors[4], 0x0000FFu);
    EXPECT_EQ(lines[0].colors[6], 0x000000u) << "index 7 is black on paper";
}

TEST_F(SheetLines, OfANewNamedTableAreOneInBlack)
{
    const auto lines = sheetLines(*names, 1000);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].label, "Normal");
    EXPECT_EQ(lines[0].colors, Rgb{0x000000});
    EXPECT_EQ(lines[0].width, SheetLine::usualWidth);
    EXPECT_TRUE(lines[0].dashes.empty());
    EXPECT_EQ(lines[0].end, SheetLine::End::Round);
    EXPECT_EQ(lines[0].join, SheetLine::Join::Round);
}

TEST_F(SheetLines, OfATableWithoutStylesAreNone)
{
    names->deleteStyle(names->styleAt(0));
    EXPECT_TRUE(sheetLines(*names, 1000).empty());
}

TEST_F(SheetLines, GroupEqualNeighbours)
{
    support::changeData(*colors, 1, [](Data& data) { data.screening = 50; });
    support::changeData(*colors, 3, [](Data& data) { data.linetype = 2; });
    support::changeData(*colors, 4, [](Data& data) { data.linetype = 2; });
    EXPECT_EQ(labels(colors), (std::vector<wxString>{"1", "2", "3", L"4 – 5", L"6 – 255"}));
    for (const wchar_t* name : {L"A", L"B", L"C"})
        names->addNewStyle(name);
    support::changeData(*names, 3, [](Data& data) { data.endStyle = 1; });
    EXPECT_EQ(labels(names), (std::vector<wxString>{L"Normal – B", "C"}));
}

TEST_F(SheetLines, DoNotTellWhatNoLineShows)
{
    names->addNewStyle(L"A");
    support::changeData(*names, 1,
                        [](Data& data)
                        {
                            data.physicalPenNumber = 3;
                            data.virtualPenNumber = 4;
                            data.fillStyle = 65;
                        });
    names->styleAt(1)->setDescription(L"another text");
    EXPECT_EQ(labels(names), (std::vector<wxString>{L"Normal – A"}));
}

TEST_F(SheetLines, TakeTheStylesColor)
{
    EXPECT_EQ(lineOf([](Data& data) { data.color.setColorIndex(5); }).colors, Rgb{0x0000FF});
    EXPECT_EQ(lineOf([](Data& data) { data.color = OdCmEntityColor(10, 20, 30); }).colors,
              Rgb{0x0A141E});
    EXPECT_EQ(lineOf([](Data& data) { data.color.setColorIndex(7); }).colors, Rgb{0x000000});
}

TEST_F(SheetLines, AreScreenedTowardsThePaper)
{
    const auto screened = [this](std::int16_t screening)
    {
        return lineOf(
                   [=](Data& data)
                   {
                       data.color = OdCmEntityColor(255, 0, 0);
                       data.screening = screening;
                   })
            .colors;
    };
    EXPECT_EQ(screened(100), Rgb{0xFF0000});
    EXPECT_EQ(screened(50), Rgb{0xFF8080});
    EXPECT_EQ(screened(0), Rgb{0xFFFFFF});
    EXPECT_EQ(screened(-5), Rgb{0xFFFFFF});
    EXPECT_EQ(screened(300), Rgb{0xFF0000});
}

TEST_F(SheetLines, AreGrayWhereTheStyleSaysSo)
{
    const auto gray = lineOf(
        [](Data& data)
        {
            data.color = OdCmEntityColor(255, 0, 0);
            data.colorPolicy = 2 | 4;
        });
    const std::uint32_t level = gray.colors.at(0) & 0xFF;
    EXPECT_EQ(gray.colors, Rgb{level << 16 | level << 8 | level});
    EXPECT_NEAR(level, 0.299 * 255, 1) << "the luma of red by ITU-R BT.601";
}

TEST_F(SheetLines, TakeTheirWidthFromTheTablesList)
{
    const auto width = [this](double lineweight)
    { return lineOf([=](Data& data) { data.lineweight = lineweight; }).width; };
    EXPECT_EQ(width(3), names->lineweightAt(2));
    EXPECT_EQ(width(0), SheetLine::usualWidth);
    EXPECT_EQ(width(500), SheetLine::usualWidth) << "past the end of the list";
    names->setLineweightAt(2, -1.0);
    EXPECT_EQ(width(3), SheetLine::usualWidth) << "no width at all";
}

TEST_F(SheetLines, AreDashedByTheLinetype)
{
    const auto dashes = [this](std::int16_t linetype)
    { return lineOf([=](Data& data) { data.linetype = linetype; }).dashes; };
    EXPECT_TRUE(dashes(0).empty()) << "solid";
    EXPECT_EQ(dashes(1), (std::vector<double>{3.5, 1.0})) << "dashed";
    EXPECT_TRUE(dashes(31).empty()) << "the object's own";
    EXPECT_TRUE(dashes(-1).empty());
    EXPECT_TRUE(dashes(1000).empty());
    for (std::int16_t linetype = 1; linetype <= 30; ++linetype)
    {
        EXPECT_GE(dashes(linetype).size(), 2u) << linetype;
        EXPECT_EQ(dashes(linetype).size() % 2, 0u) << linetype;
    }
}

TEST_F(SheetLines, ScaleLinetypesOnlyWhereTheFactorIsForThem)
{
    constexpr std::int16_t dashed = 1;
    constexpr std::int16_t isoDash = 17;
    names->setScaleFactor(2.0);
    const auto dashes = [this](std::int16_t linetype)
    { return lineOf([=](Data& data) { data.linetype = linetype; }).dashes; };
    EXPECT_EQ(dashes(dashed), (std::vector<double>{3.5, 1.0})) << "the factor is not applied";
    names->setApplyScaleFactor(true);
    EXPECT_EQ(dashes(dashed), (std::vector<double>{7.0, 2.0}));
    EXPECT_EQ(dashes(isoDash), (std::vector<double>{12.0, 3.0})) << "in widths of the line";
    names->setScaleFactor(1e9);
    EXPECT_EQ(dashes(dashed), (std::vector<double>{14.0, 4.0})) << "still to be seen as a dash";
}

TEST_F(SheetLines, HaveTheStylesEndsAndJoins)
{
    for (std::int16_t style = 0; style < 4; ++style)
    {
        const SheetLine line = lineOf(
            [=](Data& data)
            {
                data.endStyle = style;
                data.joinStyle = style;
            });
        EXPECT_EQ(static_cast<int>(line.end), style);
        EXPECT_EQ(static_cast<int>(line.join), style);
    }
    const SheetLine unknown = lineOf(
        [](Data& data)
        {
            data.endStyle = -3;
            data.joinStyle = 4;
        });
    EXPECT_EQ(unknown.end, SheetLine::End::Round);
    EXPECT_EQ(unknown.join, SheetLine::Join::Round);
}

TEST_F(SheetLines, ShowsNoMoreThanItHasRoomFor)
{
    for (int i = 0; i < 100; ++i)
    {
        OdPsPlotStyleData data;
        data.screening = static_cast<std::int16_t>(i);
        names->addNewStyle(L"x")->setData(data);
    }
    EXPECT_EQ(sheetLines(*names, 1000).size(), 101u);
    EXPECT_EQ(sheetLines(*names, 7).size(), 7u);
}

TEST_F(SheetLines, ShowsBothEndsOfALongName)
{
    const std::wstring name = L"begin" + std::wstring(250000, L'n') + L"end";
    names->addNewStyle(name.c_str());
    const wxString label = sheetLines(*names, 1000).back().label;
    EXPECT_TRUE(label.EndsWith("end"));
    EXPECT_TRUE(label.Contains("begin"));
    EXPECT_LT(label.length(), 500u);
}

TEST_F(SheetLines, ShowsTheColoursOfALongRunInEqualDistances)
{
    for (int i = 0; i < 1000; ++i)
        colors->addNewStyle(L"x");
    const auto lines = sheetLines(*colors, 1000);
    ASSERT_EQ(lines.size(), 1u);
    const Rgb& shown = lines[0].colors;
    ASSERT_EQ(shown.size(), 255u);
    EXPECT_EQ(shown.front(), 0xFF0000u) << "that of the first style";
    // 1255 styles, of which every fifth is shown, roughly: the 6th is the second.
    EXPECT_EQ(shown[1], OdCmEntityColor::lookUpRGB(1 + 1254 / 254));
}
