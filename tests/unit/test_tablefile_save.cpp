// Tests of saving: what is not changed stays, and what is changed is written as other readers
// expect it.

#include "support/tables.h"
#include "support/test_files.h"

#include "odps/od_ps_impl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <unistd.h>

using namespace support;

namespace
{

const std::vector<std::string> kNames = {"Normal", "Walls", "Doors", "Text"};
using Lines = std::vector<std::string>;

/// The lines that a save changes after a change of a table that was read from a text.
template <class Change>
Lines linesAfter(const std::string& text, const char* kind, const Change& change)
{
    const OdPsPlotStyleTablePtr table = tableOfText(text, kind);
    change(*table);
    return changedLines(text, textOf(*table));
}

template <class Change>
Lines colorLinesAfter(const Change& change)
{
    return linesAfter(colorTableText(), "CTB", change);
}

/// The lines that a save changes after a change of the data of the third style.
template <class Change>
Lines dataLinesAfter(const Change& change)
{
    return colorLinesAfter([&change](OdPsPlotStyleTable& table) { changeData(table, 2, change); });
}

/// The style groups of a table's text in the order in which they stand: "0 Normal".
Lines styleOrder(const std::string& text)
{
    Lines order;
    const Lines lines = splitLines(text);
    for (std::size_t i = 0; i + 1 < lines.size(); ++i)
    {
        if (lines[i + 1].rfind("  name=\"", 0) == 0)
            order.push_back(lines[i].substr(1, lines[i].size() - 2) + lines[i + 1].substr(7));
    }
    return order;
}

void moveStyle(OdPsPlotStyleTable& table, std::size_t from, std::size_t to)
{
    OdArray<OdPsPlotStylePtr> styles = table.styleArray();
    const OdPsPlotStylePtr moved = styles[from];
    styles.erase(styles.begin() + static_cast<std::ptrdiff_t>(from));
    styles.insert(styles.begin() + static_cast<std::ptrdiff_t>(to), moved);
    table.setStyleArray(styles);
}

using Data = OdPsPlotStyleData;
using Table = OdPsPlotStyleTable;

} // namespace

TEST(SaveUnchanged, GivesTheSameBytes)
{
    std::vector<Container> containers(6);
    containers[1].checksumXor = 1;
    containers[2].finalNuls = 0;
    containers[3].finalNuls = 3;
    containers[4].wideNumbers = true;
    containers[5].level = 1;
    for (const Container& container : containers)
    {
        const std::string file = pack(withCrLf(colorTableText()), container) + "trailing";
        EXPECT_EQ(bytesOf(*tableOf(file)), file);
    }
}

TEST(SaveUnchanged, AChangeThatIsTakenBackLeavesNoTrace)
{
    std::string text = replaced(colorTableText(), "factor=1.0", "factor=1.00 (44F=@\";\"QC\\SM0)");
    text = replaced(text, "description=\"", "description=\"\xE4");
    const std::string file = pack(text);
    const OdPsPlotStyleTablePtr table = tableOf(file);
    const Data before = dataOf(*table, 3);
    const OdString description = table->description();
    changeData(*table, 3, [](Data& data) { data.color.setRGB(1, 2, 3); });
    table->setDescription(L"other");
    table->setScaleFactor(3);
    table->setLineweightAt(4, 9);
    table->deleteStyle(table->addNewStyle(L"new"));
    moveStyle(*table, 7, 9);
    EXPECT_NE(bytesOf(*table), file);
    table->styleAt(3)->setData(before);
    table->setDescription(description);
    table->setScaleFactor(1);
    table->setLineweightAt(4, 0.13);
    moveStyle(*table, 9, 7);
    EXPECT_EQ(bytesOf(*table), file);
}

TEST(SaveUnchanged, ANameThatBeginsWithANulIsNone)
{
    using namespace std::string_literals;
    const std::string text = "plot_style{\n 0{\n  name=\"\0walls\n }\n}\n"s;
    const OdPsPlotStyleTablePtr table = tableOfText(text, "CTB");
    EXPECT_EQ(table->styleAt(0)->name(), OdString(L"Color_1"));
    const Data before = dataOf(*table, 0);
    changeData(*table, 0, [](Data& data) { data.screening = 1; });
    EXPECT_EQ(textOf(*table).find("Color_1"), std::string::npos);
    table->styleAt(0)->setData(before);
    EXPECT_EQ(textOf(*table), text);
}

TEST(SaveChanged, ValuesOfTheTable)
{
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.setDescription(L"W\u00E4nde"); }),
              Lines{"description=\" -> description=\"W\xC3\xA4nde"});
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.setScaleFactor(0.1); }),
              Lines{"scale_factor=1.0 -> scale_factor=0.1"});
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.setScaleFactor(1e21); }),
              Lines{"scale_factor=1.0 -> scale_factor=1000000000000000000000.0"});
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.setApplyScaleFactor(true); }),
              Lines{"apply_factor=FALSE -> apply_factor=TRUE"});
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.setDisplayCustomLineweightUnits(true); }),
              Lines{"custom_lineweight_display_units=0 -> custom_lineweight_display_units=1"});
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.setLineweightAt(26, 8); }),
              Lines{" 26=2.11 ->  26=8.0"});
}

TEST(SaveChanged, ValuesOfAStyle)
{
    const auto line = [](const char* key, const char* before, const char* after)
    { return Lines{std::string("  ") + key + before + " ->   " + key + after}; };
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.colorPolicy = 6; }), line("color_policy=", "1", "6"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.adaptiveLinetype = false; }),
              line("adaptive_linetype=", "TRUE", "FALSE"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.screening = 0; }), line("screen=", "100", "0"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.physicalPenNumber = 9; }),
              line("physical_pen_number=", "0", "9"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.virtualPenNumber = 255; }),
              line("virtual_pen_number=", "0", "255"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.linetype = 0; }), line("linetype=", "31", "0"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.fillStyle = 70; }), line("fill_style=", "73", "70"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.endStyle = 2; }), line("end_style=", "4", "2"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.joinStyle = 1; }), line("join_style=", "5", "1"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.linePatternSize = 1; }),
              line("linepattern_size=", "0.5", "1.0"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.lineweight = 2.4; }), line("lineweight=", "0", "2"));
    EXPECT_EQ(dataLinesAfter([](Data& d) { d.lineweight = 2.6; }), line("lineweight=", "0", "3"));
    EXPECT_EQ(colorLinesAfter([](Table& t) { t.styleAt(2)->setDescription(L"Red"); }),
              line("description=\"", "", "Red"));
}

TEST(SaveChanged, WhatMeansTheSameIsNoChange)
{
    EXPECT_TRUE(dataLinesAfter([](Data& d) { d.physicalPenNumber = 0; }).empty());
    EXPECT_TRUE(dataLinesAfter([](Data& d) { d.lineweight = 0; }).empty());
    EXPECT_TRUE(dataLinesAfter([](Data& d) { d.lineweight = -7.5; }).empty());
    EXPECT_TRUE(dataLinesAfter([](Data& d) { d.color.setColorIndex(7); }).empty());
    EXPECT_TRUE(dataLinesAfter([](Data& d) { d.color.setColor(0xC0000000); }).empty());
    const std::string pen =
        replaced(colorTableText(), "physical_pen_number=0", "physical_pen_number=-1");
    const auto changeScreen = [](Table& t) { changeData(t, 0, [](Data& d) { d.screening = 5; }); };
    EXPECT_EQ(linesAfter(pen, "CTB", changeScreen).size(), 1u);
}

TEST(SaveChanged, Colors)
{
    const auto linesWith = [](std::uint32_t bits)
    { return dataLinesAfter([bits](Data& d) { d.color.setColor(bits); }); };
    const auto both = [](const std::string& color, const std::string& mode)
    {
        return Lines{"  color=-1006632961 ->   color=" + color,
                     "  mode_color=-1006632961 ->   mode_color=" + mode};
    };
    const auto value = [](std::uint32_t bits)
    { return std::to_string(static_cast<std::int32_t>(bits)); };
    EXPECT_EQ(linesWith(0xC2000000), both("-1023410176", "-1023410176"));
    EXPECT_EQ(linesWith(0xC2FF0000), both(value(0xC3FF0000), value(0xC3FF0000)));
    EXPECT_EQ(linesWith(0xC2FE0102), both(value(0xC3FF0000), value(0xC2FE0102)));
    EXPECT_EQ(linesWith(0xC3000001), both(value(0xC3FF0000), value(0xC3FF0000)));
    // A colour whose nearest index colour is white keeps the first key as it is.
    EXPECT_EQ(linesWith(0xC2FEFEFE),
              Lines{"  mode_color=-1006632961 ->   mode_color=" + value(0xC2FEFEFE)});
}

TEST(SaveChanged, BackToTheObjectsColor)
{
    const std::string text =
        replaced(colorTableText(), "color=-1006632961\n  mode_color=-1006632961",
                 "color=-1006665984\n  mode_color=-1024751852");
    const Lines lines =
        linesAfter(text, "CTB", [](Table& t) { changeData(t, 0, [](Data& d) { d.color = {}; }); });
    EXPECT_EQ(lines, (Lines{"  color=-1006665984 ->   color=-1006632961",
                            "  mode_color=-1024751852 ->   mode_color=-1006632961"}));
}

TEST(SaveChanged, MissingKeysComeBehindTheirNeighbours)
{
    const std::string text = withoutKey(colorTableText(), "mode_color");
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    changeData(*table, 0, [](Data& d) { d.color.setRGB(0, 0, 0); });
    const std::string expected =
        replaced(text, "  color=-1006632961\n", "  color=-1023410176\n  mode_color=-1023410176\n");
    EXPECT_EQ(textOf(*table), expected);

    const OdPsPlotStyleTablePtr bare = tableOfText("plot_style{\r\n 0{\r\n }\r\n}", "STB");
    bare->setDescription(L"d");
    bare->setScaleFactor(2);
    bare->styleAt(0)->setName(L"n");
    changeData(*bare, 0, [](Data& d) { d.screening = 5; });
    EXPECT_EQ(textOf(*bare), "description=\"d\r\nscale_factor=2.0\r\nplot_style{\r\n 0{\r\n"
                             "  name=\"n\r\n  localized_name=\"\r\n  screen=5\r\n }\r\n}");
}

TEST(SaveChanged, MissingLineweights)
{
    const std::string text = "plot_style{\n 0{\n }\n}\n";
    const OdPsPlotStyleTablePtr none = tableOfText(text, "STB");
    none->setLineweightAt(0, 0.5);
    EXPECT_EQ(textOf(*none), text + replaced(lineweightText(), " 0=0.0", " 0=0.5"));
    const OdPsPlotStyleTablePtr some =
        tableOfText(text + "custom_lineweight_table{\n 1=0.1\n}\n", "STB");
    some->setLineweightAt(5, 0.7);
    some->setLineweightAt(1, 0.2);
    EXPECT_EQ(textOf(*some), text + "custom_lineweight_table{\n 1=0.2\n 5=0.7\n}\n");
}

TEST(SaveChanged, OtherLinesKeepEverything)
{
    std::string text = "filetype=\"ctb\n" + colorTableText();
    text = replaced(text, "  screen=100\n", "  unknown=1\n  screen=100\n  deep{\n   a=b\n  }\n");
    text = replaced(text, " 6=0.18", " 6=0.17780000000 (44F=@\";\"QC\\SM0)");
    text = replaced(text, " 7=0.2", " 7=0.17780000000 (44F=@\";\"QC\\SM0)");
    text = replaced(text, "scale_factor=1.0", "scale_factor=1");
    text = withCrLf(replaced(text, "  description=\"", "  description=\"\xE4 \x80"));
    const Lines lines = linesAfter(text, "CTB",
                                   [](Table& t)
                                   {
                                       changeData(t, 0, [](Data& d) { d.screening = 7; });
                                       t.setLineweightAt(6, 0.25);
                                   });
    EXPECT_EQ(lines, (Lines{"  screen=100\r ->   screen=7\r",
                            " 6=0.17780000000 (44F=@\";\"QC\\SM0)\r ->  6=0.25\r"}));
}

TEST(SaveChanged, TextsThatAFileCannotHold)
{
    const auto written = [](const std::wstring& text)
    {
        const OdPsPlotStyleTablePtr table = tableOfText(colorTableText());
        table->setDescription(text);
        return splitLines(textOf(*table)).front();
    };
    EXPECT_EQ(written(L"a\r\nb\nc\rd\n\n"), "description=\"a b c d  ");
    EXPECT_EQ(written(std::wstring(1, static_cast<wchar_t>(0xD800))), "description=\"\xEF\xBF\xBD");
    EXPECT_EQ(written(std::wstring(1, static_cast<wchar_t>(0x110000))),
              "description=\"\xEF\xBF\xBD");
    EXPECT_EQ(written(L"\u20AC \U0001F600 ends in {"),
              "description=\"\xE2\x82\xAC \xF0\x9F\x98\x80 ends in {");
    EXPECT_EQ(written(std::wstring(L"a\0b", 3)), "description=\"a");
}

TEST(SaveStyles, AddedAtTheEnd)
{
    const std::string text = namedTableText(kNames);
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    const OdPsPlotStylePtr added = table->addNewStyle(L"New");
    changeData(*table, 4, [](Data& d) { d.lineweight = 3; });
    const std::string saved = textOf(*table);
    EXPECT_EQ(styleOrder(saved).back(), "4\"New");
    const OdPsPlotStyleTablePtr again = tableOfText(saved, "STB");
    ASSERT_EQ(again->styleCount(), 5);
    EXPECT_EQ(dataOf(*again, 4), dataOf(*table, 4));
    table->deleteStyle(added);
    EXPECT_EQ(textOf(*table), text);
}

TEST(SaveStyles, InsertedDeletedAndMovedAreNumberedAnew)
{
    const std::string text =
        replaced(namedTableText(kNames), "  name=\"Text", "  x=1\n  name=\"Text");
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    table->addNewStyle(L"New");
    moveStyle(*table, 4, 1);
    EXPECT_EQ(styleOrder(textOf(*table)),
              (Lines{"0\"Normal", "1\"New", "2\"Walls", "3\"Doors", " x=\"Text"}));
    table->deleteStyle(table->findStyleByName(L"walls"));
    moveStyle(*table, 3, 1);
    const std::string saved = textOf(*table);
    EXPECT_NE(saved.find(" 1{\n  x=1\n  name=\"Text"), std::string::npos);
    EXPECT_NE(saved.find(" 3{\n  name=\"Doors"), std::string::npos);
    const OdPsPlotStyleTablePtr again = tableOfText(saved, "STB");
    ASSERT_EQ(again->styleCount(), table->styleCount());
    for (int i = 0; i < again->styleCount(); ++i)
        EXPECT_EQ(again->styleAt(i)->name(), table->styleAt(i)->name());
}

TEST(SaveStyles, GroupsInNoOrderKeepTheirPlaces)
{
    const std::string text = "plot_style{\n" + styleText(2, "c") + styleText(0, "a") +
                             styleText(3, "d") + styleText(1, "b") + "}\n" + lineweightText();
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    table->deleteStyle(table->styleAt(3));
    table->addNewStyle(L"new");
    moveStyle(*table, 3, 1);
    EXPECT_EQ(styleOrder(textOf(*table)), (Lines{"3\"c", "0\"a", "1\"new", "2\"b"}));
}

TEST(SaveStyles, LinesBetweenTheGroupsStay)
{
    const std::string text = "plot_style{\n count=2\n" + styleText(0, "a") + " note\n" +
                             styleText(1, "b") + " end=1\n}\n";
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    table->deleteStyle(table->styleAt(1));
    EXPECT_EQ(textOf(*table), "plot_style{\n count=2\n note\n" + styleText(0, "a") + " end=1\n}\n");
}

TEST(SaveStyles, NumbersStayWithoutSuchAChange)
{
    const std::string text =
        "plot_style{\n" + styleText(0, "a") + styleText(5, "b") + styleText(5, "c") + "}\n";
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    changeData(*table, 2, [](Data& d) { d.screening = 3; });
    EXPECT_EQ(changedLines(text, textOf(*table)), Lines{"  screen=100 ->   screen=3"});
}

TEST(SaveStyles, ColorsWithoutAStyleAreNotWrittenUnlessChanged)
{
    const std::string text = replaced(colorTableText(), styleText(1, "Color_2"), "");
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    const Data before = dataOf(*table, 1);
    changeData(*table, 1, [](Data& d) { d.screening = 3; });
    const std::string saved = textOf(*table);
    EXPECT_EQ(styleOrder(saved)[1], "1\"Color_2");
    EXPECT_EQ(styleOrder(saved).size(), 255u);
    EXPECT_EQ(dataOf(*tableOfText(saved), 1).screening, 3);
    table->styleAt(1)->setData(before);
    EXPECT_EQ(textOf(*table), text);
}

TEST(SaveStyles, AddedBeyondTheColorsIsWritten)
{
    const OdPsPlotStyleTablePtr table = tableOfText(colorTableText());
    table->addNewStyle(L"Color_256");
    EXPECT_EQ(tableOfText(textOf(*table))->styleCount(), 256);
}

TEST(SaveStyles, AColorsStyleWithoutANameKeepsTheOneItHasWhenItMoves)
{
    std::string text = withoutKey(withoutKey(colorTableText(), "name"), "localized_name");
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    moveStyle(*table, 4, 2);
    const OdPsPlotStyleTablePtr again = tableOfText(textOf(*table));
    EXPECT_EQ(again->styleAt(2)->name(), OdString(L"Color_5"));
    EXPECT_EQ(again->styleAt(3)->localizedName(), OdString(L"Color_3"));
    EXPECT_EQ(again->styleAt(5)->name(), OdString(L"Color_6"));
    moveStyle(*table, 2, 4);
    EXPECT_EQ(textOf(*table), text);
}

TEST(SaveStyles, AColorsStyleWithoutANameGetsBothWhenOneIsSet)
{
    const std::string text = replaced(replaced(colorTableText(), "name=\"Color_3\n", "name=\"\n"),
                                      "localized_name=\"Color_3\n", "localized_name=\"\n");
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    ASSERT_EQ(table->styleAt(2)->name(), OdString(L"Color_3"));
    table->styleAt(2)->setLocalizedName(L"Other");
    const OdPsPlotStyleTablePtr again = tableOf(bytesOf(*table));
    EXPECT_EQ(again->styleAt(2)->name(), OdString(L"Color_3"));
    EXPECT_EQ(again->styleAt(2)->localizedName(), OdString(L"Other"));
    table->styleAt(2)->setLocalizedName(L"Color_3");
    EXPECT_EQ(textOf(*table), text) << "taken back";
}

TEST(SaveNames, ARenameChangesTheTwoNames)
{
    const Lines lines = linesAfter(namedTableText(kNames), "STB",
                                   [](Table& t)
                                   {
                                       t.styleAt(1)->setName(L"Outer walls");
                                       t.styleAt(1)->setLocalizedName(L"Outer walls");
                                   });
    EXPECT_EQ(lines, (Lines{"  name=\"Walls ->   name=\"Outer walls",
                            "  localized_name=\"Walls ->   localized_name=\"Outer walls"}));
}

TEST(SaveNames, AMissingNameIsWrittenWhenItIsNoLongerTheOther)
{
    const std::string start = "plot_style{\n 0{\n";
    const std::string end = " }\n}\n";
    const auto savedAfter = [&](const std::string& lines, const wchar_t* name, const wchar_t* local)
    {
        const OdPsPlotStyleTablePtr table = tableOfText(start + lines + end, "STB");
        table->styleAt(0)->setName(name);
        table->styleAt(0)->setLocalizedName(local);
        const std::string saved = textOf(*table);
        const OdPsPlotStyleTablePtr again = tableOfText(saved, "STB");
        EXPECT_EQ(again->styleAt(0)->name(), OdString(name));
        EXPECT_EQ(again->styleAt(0)->localizedName(), OdString(local));
        return saved.substr(start.size(), saved.size() - start.size() - end.size());
    };
    const std::string name = "  name=\"a\xE4\n";
    const std::string local = "  localized_name=\"a\xE4\n";
    EXPECT_EQ(savedAfter(name, L"b", L"b"), "  name=\"b\n");
    EXPECT_EQ(savedAfter(name, L"b", L"a\u00E4"), "  name=\"b\n  localized_name=\"a\xC3\xA4\n");
    EXPECT_EQ(savedAfter(name, L"a\u00E4", L"b"), name + "  localized_name=\"b\n");
    EXPECT_EQ(savedAfter(local, L"b", L"b"), "  localized_name=\"b\n");
    EXPECT_EQ(savedAfter(local, L"b", L"a\u00E4"), "  name=\"b\n" + local);
    EXPECT_EQ(savedAfter("", L"b", L"b"), "  name=\"b\n");
    EXPECT_EQ(savedAfter("", L"", L"b"), "  name=\"\n  localized_name=\"b\n");
    EXPECT_EQ(savedAfter("", L"", L""), "");
}

TEST(SaveNames, ColorsFollowARenamedStyle)
{
    const std::string text = mappedTableText(kNames);
    const OdPsPlotStyleTablePtr table = tableOfText(text, "TTB");
    table->styleAt(1)->setName(L"Doors");
    table->styleAt(2)->setName(L"Walls");
    const std::string file = bytesOf(*table);
    EXPECT_EQ(file.substr(19, 3), "TTB");
    const Lines lines = changedLines(text, unpack(file));
    EXPECT_EQ(lines[0], " 1=\"Walls ->  1=\"Doors");
    EXPECT_EQ(lines[1], " 2=\"Doors ->  2=\"Walls");
    EXPECT_EQ(lines.size(), 128u + 2u);
}

TEST(SaveNames, ColorsKeepANameThatAnotherStyleHasTaken)
{
    const OdPsPlotStyleTablePtr table = tableOfText(mappedTableText(kNames), "TTB");
    table->deleteStyle(table->styleAt(2));
    table->addNewStyle(L"Doors");
    const std::string saved = textOf(*table);
    EXPECT_NE(saved.find(" 0=\"Normal\n 1=\"Walls\n 2=\"Doors\n 3=\"Text\n"), std::string::npos);
}

namespace
{

// A table of "Normal", two styles that are both named "Thin_red", and "thin_RED"; of six colours
// four mean one of these names.
OdPsPlotStyleTablePtr tableOfTwins()
{
    std::string text = mappedTableText({"Normal", "Twin1", "Twin2", "thin_RED"});
    text = replaced(text, "  name=\"Twin1\n", "  name=\"Thin_red\n");
    text = replaced(text, "  name=\"Twin2\n", "  name=\"Thin_red\n");
    text = replaced(text, " 1=\"Twin1\n", " 1=\"Thin_red\n");
    text = replaced(text, " 2=\"Twin2\n", " 2=\"Thin_red\n");
    return tableOfText(text, "TTB");
}

// What the first four colours mean after a save.
std::string firstColors(const OdPsPlotStyleTablePtr& table)
{
    const std::string text = textOf(*table);
    const std::size_t begin = text.find(" 0=\"");
    return text.substr(begin, text.find(" 4=\"") - begin);
}

} // namespace

TEST(SaveNames, ColorsOfANameThatTwoStylesHaveStayWhenOneOfThemGoesOrIsRenamed)
{
    const std::string before = firstColors(tableOfTwins());
    EXPECT_EQ(before, " 0=\"Normal\n 1=\"Thin_red\n 2=\"Thin_red\n 3=\"thin_RED\n");
    for (const int twin : {1, 2})
    {
        OdPsPlotStyleTablePtr table = tableOfTwins();
        table->styleAt(twin)->setName(L"Axis");
        EXPECT_EQ(firstColors(table), before) << twin;
        table = tableOfTwins();
        table->deleteStyle(table->styleAt(twin));
        EXPECT_EQ(firstColors(table), before) << twin;
    }
    const OdPsPlotStyleTablePtr both = tableOfTwins();
    both->styleAt(1)->setName(L"Axis");
    both->styleAt(2)->setName(L"Beam");
    EXPECT_EQ(firstColors(both), before);
}

TEST(SaveNames, ColorsThatCanOnlyMeanOneStyleFollowIt)
{
    OdPsPlotStyleTablePtr table = tableOfTwins();
    table->styleAt(3)->setName(L"Axis");
    EXPECT_EQ(firstColors(table), " 0=\"Normal\n 1=\"Thin_red\n 2=\"Thin_red\n 3=\"Axis\n");
    table = tableOfTwins();
    const OdPsPlotStylePtr first = table->styleAt(1);
    table->styleAt(2)->setName(L"Axis");
    table->deleteStyle(first);
    EXPECT_EQ(firstColors(table), " 0=\"Normal\n 1=\"Axis\n 2=\"Axis\n 3=\"thin_RED\n")
        << "the only one that is left of them";
    table = tableOfTwins();
    table->deleteStyle(table->styleAt(2));
    table->deleteStyle(table->styleAt(1));
    EXPECT_EQ(firstColors(table), " 0=\"Normal\n 1=\"Normal\n 2=\"Normal\n 3=\"thin_RED\n");
}

TEST(SaveText, LinesBehindATextWithoutAFinalLineEndFollowOneAnother)
{
    std::string text = withoutKey(namedTableText(kNames), "scale_factor");
    text.erase(text.find("custom_lineweight_table{"));
    text = "description=\"ends without a line end\n" + text;
    while (text.back() == '\n')
        text.pop_back();
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    table->setLineweightAt(0, 0.07);
    const std::string saved = textOf(*table);
    EXPECT_EQ(saved.find("\n\n"), std::string::npos) << saved;
    EXPECT_EQ(tableOfText(saved, "STB")->lineweightAt(0), 0.07);
}

TEST(SaveText, LinesBehindATextThatEndsInHalfALineEnd)
{
    const OdPsPlotStyleTablePtr table = tableOfText("plot_style{\r\n 0{\r\n }\r\n}\r", "STB");
    table->setLineweightAt(0, 0.07);
    const std::string saved = textOf(*table);
    EXPECT_EQ(saved.find("\r\r"), std::string::npos) << saved;
    EXPECT_EQ(tableOfText(saved, "STB")->lineweightAt(0), 0.07);
}

TEST(SaveNames, ColorsOfADeletedStyleFallBackToTheFirst)
{
    const OdPsPlotStyleTablePtr table = tableOfText(mappedTableText(kNames), "TTB");
    table->deleteStyle(table->styleAt(2));
    table->styleAt(0)->setName(L"Main");
    const std::string saved = textOf(*table);
    EXPECT_NE(saved.find(" 0=\"Main\n 1=\"Walls\n 2=\"Main\n 3=\"Text\n"), std::string::npos);
    EXPECT_EQ(saved.find("Doors"), std::string::npos);
}

TEST(SaveNew, TableOfColors)
{
    const OdPsPlotStyleTablePtr table = new OdPsPlotStyleTableImpl(true);
    for (int i = 0; i < 255; ++i)
        table->addNewStyle(OdPs::colorStyleName(i));
    std::string expected = colorTableText();
    const std::pair<const char*, const char*> kFresh[] = {{"policy=1\n", "policy=0\n"},
                                                          {"size=0.5\n", "size=0.0\n"},
                                                          {"linetype=TRUE\n", "linetype=FALSE\n"}};
    for (const auto& [theirs, ours] : kFresh)
    {
        for (std::size_t at = 0; (at = expected.find(theirs, at)) != std::string::npos;)
            expected.replace(at, std::string(theirs).size(), ours);
    }
    const std::string file = bytesOf(*table);
    EXPECT_EQ(unpack(file), expected);
    EXPECT_EQ(file.substr(19, 3), "CTB");
    const OdPsPlotStyleTablePtr again = tableOf(file);
    ASSERT_EQ(again->styleCount(), 255);
    for (int i = 0; i < 255; ++i)
        EXPECT_EQ(dataOf(*again, i), Data());
}

TEST(SaveNew, HeaderIsTrue)
{
    const OdPsPlotStyleTablePtr table = tableOfText(colorTableText());
    table->setDescription(L"x");
    const std::string file = bytesOf(*table);
    Container container;
    const std::string text = unpack(file);
    EXPECT_EQ(file.substr(0, 60), pack(text, container).substr(0, 60));
}

TEST(SaveNew, EveryValueComesBack)
{
    const OdPsPlotStyleTablePtr table = new OdPsPlotStyleTableImpl(false);
    table->setDescription(L"All values {=\"");
    table->setScaleFactor(1.0 / 3.0);
    table->setApplyScaleFactor(true);
    table->setDisplayCustomLineweightUnits(true);
    table->setLineweightAt(3, 0.1 + 0.2);
    table->addNewStyle(L"Normal");
    const OdPsPlotStylePtr style = table->addNewStyle(L"\u0421\u0442\u0435\u043D\u044B");
    style->setLocalizedName(L"Other");
    style->setDescription(L"Text");
    const Data data{{1, 2, 3}, 7, true, 42, 12, 13, 14, 65, 1, 2, 1e-7, 27};
    style->setData(data);
    const OdPsPlotStyleTablePtr again = tableOf(bytesOf(*table));
    EXPECT_FALSE(again->isColorDependent());
    EXPECT_EQ(again->description(), table->description());
    EXPECT_EQ(again->scaleFactor(), 1.0 / 3.0);
    EXPECT_TRUE(again->isApplyScaleFactor());
    EXPECT_TRUE(again->isDisplayCustomLineweightUnits());
    EXPECT_EQ(again->lineweightAt(3), 0.1 + 0.2);
    ASSERT_EQ(again->styleCount(), 2);
    EXPECT_EQ(again->styleAt(1)->name(), style->name());
    EXPECT_EQ(again->styleAt(1)->localizedName(), OdString(L"Other"));
    EXPECT_EQ(again->styleAt(1)->description(), OdString(L"Text"));
    EXPECT_EQ(dataOf(*again, 1), data);
}

TEST(SaveChanged, AReferenceAsLargeAsAnyCanBe)
{
    for (const char* const stored : {"2147483647", "-2147483648", "2147483646"})
    {
        const std::string line = std::string("  lineweight=") + stored + "\n";
        const std::string text = replaced(namedTableText({"Normal"}), "  lineweight=0\n", line);
        const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
        changeData(*table, 0, [](Data& data) { data.screening = 50; });
        EXPECT_EQ(changedLines(text, textOf(*table)), Lines{"  screen=100 ->   screen=50"})
            << stored;
    }
}

// As long a text as can be read, in which the kind of line ends was once looked for anew for each
// of the lines.
TEST(SaveChanged, SixtyThousandStylesGetALineEach)
{
    constexpr int kCount = 60000;
    constexpr unsigned kPatience = 8; // seconds; it takes a fifth of one, and once took eleven
    const int result = inProcess(
        []
        {
            ::alarm(kPatience);
            const std::string other = "  note=" + std::string(230, 'x') + "\n";
            std::string text = "plot_style{\n";
            for (int i = 0; i < kCount; ++i)
                text += std::to_string(i) + "{\n" + other + "}\n";
            const OdPsPlotStyleTablePtr table = tableOfText(text + "}\n", "STB");
            for (int i = 0; i < kCount; ++i)
                changeData(*table, i, [](Data& data) { data.screening = 50; });
            const std::vector<std::string> lines = splitLines(textOf(*table));
            return std::count(lines.begin(), lines.end(), "  screen=50") == kCount ? 0 : 1;
        });
    EXPECT_EQ(result, 0);
}

TEST(SaveRefused, WhatTheReaderWouldRefuse)
{
    const auto statusAfter = [](auto change)
    {
        const OdPsPlotStyleTablePtr table = tableOfText(namedTableText(kNames), "STB");
        change(*table);
        return tablefile::encode(*table).error.status;
    };
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    using tablefile::Status;
    EXPECT_EQ(statusAfter([](Table& t) { t.setScaleFactor(kNan); }), Status::CannotStore);
    EXPECT_EQ(statusAfter([](Table& t) { t.setLineweightAt(0, kInfinity); }), Status::CannotStore);
    EXPECT_EQ(statusAfter([](Table& t) { changeData(t, 0, [](Data& d) { d.lineweight = kNan; }); }),
              Status::CannotStore);
    EXPECT_EQ(statusAfter([](Table& t) { changeData(t, 0, [](Data& d) { d.lineweight = 1e10; }); }),
              Status::CannotStore);
    EXPECT_EQ(statusAfter([](Table& t) { t.setDescription(std::wstring(300000, L'x')); }),
              Status::TooLarge);
    EXPECT_EQ(statusAfter(
                  [](Table& t)
                  {
                      const std::wstring text(200000, L'x');
                      for (int i = 0; i < 90; ++i)
                          t.addNewStyle(L"n")->setDescription(text);
                  }),
              Status::TooLarge);
}
