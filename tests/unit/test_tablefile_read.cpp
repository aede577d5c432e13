// Tests of reading table files: every variant that files come in.

#include "support/comma_locale.h"
#include "support/tables.h"

#include <gtest/gtest.h>

using namespace support;

namespace
{

tablefile::Status statusOf(std::string_view file)
{
    const tablefile::LoadResult result = tablefile::decode(bufferOf(file));
    EXPECT_EQ(result.table.isNull(), result.error.status != tablefile::Status::Ok);
    EXPECT_EQ(result.error.what.empty(), !result.table.isNull());
    return result.error.status;
}

tablefile::Status statusOfText(std::string_view text)
{
    return statusOf(pack(text));
}

/// The first style of a colour-dependent table in which one line is replaced.
OdPsPlotStyleData firstWith(std::string_view line, std::string_view replacement)
{
    return dataOf(*tableOfText(replaced(colorTableText(), line, replacement)), 0);
}

const std::vector<std::string> kNames = {"Normal", "Walls", "Doors"};

} // namespace

TEST(ReadContainer, KindDecidesWhetherColorsDecide)
{
    EXPECT_TRUE(tableOfText(colorTableText(), "CTB")->isColorDependent());
    EXPECT_FALSE(tableOfText(namedTableText(kNames), "STB")->isColorDependent());
    EXPECT_FALSE(tableOfText(mappedTableText(kNames), "TTB")->isColorDependent());
    EXPECT_FALSE(tableOfText(namedTableText(kNames), "CTB")->isColorDependent());
    EXPECT_FALSE(tableOfText(mappedTableText(kNames), "STB")->isColorDependent());
    const std::string silent = withoutKey(colorTableText(), "aci_table_available");
    EXPECT_TRUE(tableOfText(silent, "CTB")->isColorDependent());
    EXPECT_FALSE(tableOfText(silent, "STB")->isColorDependent());
}

TEST(ReadContainer, HeaderNumbersMayBeAnything)
{
    for (const std::uint32_t junk : {1u, 0x7FFFFFFFu, 0x40000000u, 0xFFFFFFFFu})
    {
        Container container;
        container.checksumXor = junk;
        container.inflatedSize = junk;
        container.compressedSize = junk;
        EXPECT_EQ(tableOf(pack(colorTableText(), container))->styleCount(), 255) << junk;
    }
    std::string zeros = pack(colorTableText());
    std::fill(zeros.begin() + 48, zeros.begin() + 60, '\0');
    EXPECT_EQ(tableOf(zeros)->styleCount(), 255);
}

TEST(ReadContainer, AnyNumberOfFinalNuls)
{
    for (const int nuls : {0, 1, 2, 100})
    {
        Container container;
        container.finalNuls = nuls;
        EXPECT_EQ(tableOf(pack(colorTableText(), container))->styleCount(), 255) << nuls;
    }
}

TEST(ReadContainer, StreamBehindWideNumbersOrPadding)
{
    Container wide;
    wide.wideNumbers = true;
    EXPECT_EQ(tableOf(pack(colorTableText(), wide))->styleCount(), 255);
    for (const std::size_t padding : {1u, 5u, 68u})
    {
        Container padded;
        padded.padding.assign(padding, 'x');
        EXPECT_EQ(tableOf(pack(colorTableText(), padded))->styleCount(), 255) << padding;
    }
    // What looks like a stream among the wide numbers is none.
    wide.kind = "STB";
    std::string file = pack(namedTableText({"Normal", "Wall", "Door"}), wide);
    const std::string empty("\x78\x9C\x03\0\0\0\0\1", 8);
    file.replace(62, empty.size(), empty);
    EXPECT_EQ(tableOf(file)->styleCount(), 3);
    Container tooFar;
    tooFar.padding.assign(69, 'x');
    EXPECT_EQ(statusOf(pack(colorTableText(), tooFar)), tablefile::Status::NotATable);
}

TEST(ReadContainer, TrailerOfTheStreamIsNotNeeded)
{
    std::string file = pack(colorTableText());
    file.back() = static_cast<char>(~file.back());
    EXPECT_EQ(tableOf(file)->styleCount(), 255);
    EXPECT_EQ(tableOf(file + "more")->styleCount(), 255);
}

TEST(ReadText, ValuesOfATable)
{
    std::string text = replaced(colorTableText(), "description=\"", "description=\"A = \"b\" {");
    text = replaced(text, "scale_factor=1.0", "scale_factor=2.5");
    text = replaced(text, "apply_factor=FALSE", "apply_factor=True");
    text = replaced(text, "units=0", "units=1");
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    EXPECT_EQ(table->description(), OdString(L"A = \"b\" {"));
    EXPECT_EQ(table->scaleFactor(), 2.5);
    EXPECT_TRUE(table->isApplyScaleFactor());
    EXPECT_TRUE(table->isDisplayCustomLineweightUnits());
}

TEST(ReadText, MissingKeysHaveTheValuesOfANewTable)
{
    const OdPsPlotStyleTablePtr table = tableOfText("plot_style{\n 0{\n }\n}", "STB");
    EXPECT_TRUE(table->description().isEmpty());
    EXPECT_EQ(table->scaleFactor(), 1.0);
    EXPECT_FALSE(table->isApplyScaleFactor());
    EXPECT_FALSE(table->isDisplayCustomLineweightUnits());
    EXPECT_EQ(table->lineweightCount(), 27);
    EXPECT_EQ(table->lineweightAt(26), 2.11);
    ASSERT_EQ(table->styleCount(), 1);
    EXPECT_EQ(dataOf(*table, 0), OdPsPlotStyleData());
}

TEST(ReadText, ValuesOfAStyle)
{
    EXPECT_EQ(firstWith("color_policy=1", "color_policy=7").colorPolicy, 7);
    EXPECT_TRUE(firstWith("color_policy=1", "color_policy=7").adaptiveLinetype);
    EXPECT_FALSE(firstWith("linetype=TRUE", "linetype=false").adaptiveLinetype);
    EXPECT_EQ(firstWith("physical_pen_number=0", "physical_pen_number=255").physicalPenNumber, 255);
    EXPECT_EQ(firstWith("virtual_pen_number=0", "virtual_pen_number=3").virtualPenNumber, 3);
    EXPECT_EQ(firstWith("virtual_pen_number=0", "virtual_pen_number=0").virtualPenNumber, -1);
    EXPECT_EQ(firstWith("screen=100", "screen=0").screening, 0);
    EXPECT_EQ(firstWith("  linetype=31", "  linetype=12").linetype, 12);
    EXPECT_EQ(firstWith("size=0.5", "size=0.25").linePatternSize, 0.25);
    EXPECT_EQ(firstWith("lineweight=0", "lineweight=0").lineweight, -1.0);
    EXPECT_EQ(firstWith("lineweight=0", "lineweight=999").lineweight, 999.0);
    EXPECT_EQ(firstWith("fill_style=73", "fill_style=64").fillStyle, 64);
    EXPECT_EQ(firstWith("end_style=4", "end_style=0").endStyle, 0);
    EXPECT_EQ(firstWith("join_style=5", "join_style=-3").joinStyle, -3);
}

TEST(ReadText, Colors)
{
    const auto colorWith = [](const std::string& lines)
    { return firstWith("color=-1006632961\n  mode_color=-1006632961", lines).color.color(); };
    constexpr std::uint32_t kObject = 0xC2FFFFFF;
    EXPECT_EQ(colorWith("color=-1006632961\n  mode_color=-1006632961"), kObject);
    EXPECT_EQ(colorWith("color=-1023410176\n  mode_color=-1023410176"), 0xC2000000u);
    EXPECT_EQ(colorWith("color=-1006665984\n  mode_color=-1024751852"), 0xC2EB8714u);
    EXPECT_EQ(colorWith("mode_color=-1024751852\n  color=-1006665984"), 0xC2EB8714u);
    EXPECT_EQ(colorWith("color=-1"), kObject);           // method FF, no mode_color
    EXPECT_EQ(colorWith("color=-65536"), 0xC2FF0000u);   // method FF
    EXPECT_EQ(colorWith("color=16711680"), 0xC2FF0000u); // method 00
    EXPECT_EQ(colorWith("color=4294901760"), 0xC2FF0000u);
    EXPECT_EQ(colorWith("screen=100"), kObject);
}

TEST(ReadText, RepeatedAndChangedLinesOfStyles)
{
    // Styles that repeat, change and lack lines of the styles before them.
    std::string text = "plot_style{\n";
    text += " 0{\n  name=\"a\n  screen=50\n  linetype=3\n  lineweight=4\n }\n";
    text += " 1{\n  name=\"b\n  screen=50\n  linetype=3\n  lineweight=4\n }\n";
    text += " 2{\n  name=\"c\n  screen=51\n  linetype=3\n }\n";
    text += " 3{\n  linetype=3\n  name=\"d\n  screen=50\n  screen=77\n  lineweight=4\n }\n";
    text += " 4{\n }\n}\n";
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    ASSERT_EQ(table->styleCount(), 5);
    EXPECT_EQ(dataOf(*table, 0), dataOf(*table, 1));
    EXPECT_EQ(dataOf(*table, 0), dataOf(*table, 3));
    EXPECT_EQ(dataOf(*table, 1).lineweight, 4.0);
    EXPECT_EQ(dataOf(*table, 2).screening, 51);
    EXPECT_EQ(dataOf(*table, 2).linetype, 3);
    EXPECT_EQ(dataOf(*table, 2).lineweight, -1.0);
    EXPECT_EQ(dataOf(*table, 4), OdPsPlotStyleData());
    EXPECT_EQ(table->styleAt(3)->localizedName(), OdString(L"d"));
}

TEST(ReadText, StylesThatEndAlikeButBeginDifferently)
{
    const std::string rest = "  screen=60\n  end_style=1\n }\n";
    std::string text = "plot_style{\n";
    text += " 0{\n  name=\"a\n  linetype=3\n" + rest;
    text += " 1{\n  screen=50\n  name=\"b\n  linetype=4\n  linetype=3\n" + rest; // repeats
    text += " 2{\n  name=\"c\n  linetype=3\n" + rest;
    text += " 3{\n  screen=50\n  linetype=3\n" + rest; // the rest repeats what is there
    text += " 4{\n  linetype=3\n" + rest;
    const OdPsPlotStyleTablePtr table = tableOfText(text + "}\n", "STB");
    ASSERT_EQ(table->styleCount(), 5);
    const int kScreens[] = {60, 50, 60, 50, 60};
    const int kLinetypes[] = {3, 4, 3, 3, 3};
    for (int i = 0; i < 5; ++i)
    {
        EXPECT_EQ(dataOf(*table, i).screening, kScreens[i]) << i;
        EXPECT_EQ(dataOf(*table, i).linetype, kLinetypes[i]) << i;
        EXPECT_EQ(dataOf(*table, i).endStyle, 1) << i;
    }
}

TEST(ReadText, GroupsInStylesThatDifferInTheMiddle)
{
    std::string text = "plot_style{\n";
    for (int i = 0; i < 3; ++i)
    {
        const std::string number = std::to_string(i);
        text += " " + number + "{\n  name=\"a\n  later{\n   x=1\n   y=" + number +
                "\n   linetype=9\n  }\n  linetype=3\n  screen=" + number + "\n  end_style=2\n }\n";
    }
    const OdPsPlotStyleTablePtr table = tableOfText(text + "}\n", "STB");
    ASSERT_EQ(table->styleCount(), 3);
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(dataOf(*table, i).linetype, 3) << i;
        EXPECT_EQ(dataOf(*table, i).screening, i);
        EXPECT_EQ(dataOf(*table, i).endStyle, 2) << i;
    }
}

TEST(ReadText, ValuesOfAnyLengthInStylesOfTheSameKeys)
{
    for (const std::string end : {"\n", "\r\n"})
    {
        std::string text = "plot_style{" + end;
        for (int i = 0; i < 120; ++i)
        {
            const std::string number = std::to_string(i);
            text += " " + number + "{" + end + "  name=\"" +
                    std::string(static_cast<std::size_t>(i) % 7, 'n') + number + end +
                    "  later=" + std::to_string(i % 3) + end + "  color=" + number + end +
                    "  screen=" + std::to_string(i / 2) + end + "  just this" + end +
                    "  linepattern_size=" + number + ".5" + end + " }" + end;
        }
        const OdPsPlotStyleTablePtr table = tableOfText(text + "}" + end, "STB");
        ASSERT_EQ(table->styleCount(), 120);
        for (int i = 0; i < 120; ++i)
        {
            const std::wstring name =
                std::wstring(static_cast<std::size_t>(i) % 7, L'n') + std::to_wstring(i);
            EXPECT_EQ(table->styleAt(i)->name(), OdString(name));
            EXPECT_EQ(table->styleAt(i)->localizedName(), OdString(name));
            EXPECT_EQ(dataOf(*table, i).color.color(), 0xC2000000u + static_cast<unsigned>(i));
            EXPECT_EQ(dataOf(*table, i).screening, i / 2);
            EXPECT_EQ(dataOf(*table, i).linePatternSize, i + 0.5);
        }
    }
}

TEST(ReadText, StylesOfManyUnknownLines)
{
    std::string text = "plot_style{\n";
    for (int i = 0; i < 3; ++i)
    {
        const std::string number = std::to_string(i);
        text += " " + number + "{\n  name=\"a\n";
        for (int line = 0; line < 100; ++line)
            text += "  later=1\n";
        text += "  screen=" + number + "\n }\n";
    }
    const OdPsPlotStyleTablePtr table = tableOfText(text + "}\n", "STB");
    ASSERT_EQ(table->styleCount(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(dataOf(*table, i).screening, i);
}

TEST(ReadText, WrongValuesBehindStylesOfTheSameKeys)
{
    const std::string start = "plot_style{\n 0{\n  screen=1\n  mode_color=-1\n }\n 1{\n";
    const auto isTable = [&start](const std::string& rest)
    { return statusOfText(start + rest) == tablefile::Status::Ok; };
    EXPECT_TRUE(isTable("  screen=2\n  mode_color=-1\n }\n}\n"));
    EXPECT_TRUE(isTable("  screen=2\n  mode_color=1\n }\n}"));
    EXPECT_FALSE(isTable("  screen=x\n  mode_color=-1\n }\n}\n"));
    EXPECT_FALSE(isTable("  screen=1\n  mode_color=-1x\n }\n}\n"));
    EXPECT_FALSE(isTable("  screen=1\n  mode_color=-"));
    EXPECT_FALSE(isTable("  screen=1\n  mode_color=-1\n "));
    EXPECT_FALSE(isTable("  screen=1\n  mode_color=-1\n }"));
}

TEST(ReadText, TheColorIsDecidedByTheWholeStyle)
{
    const std::string text = "plot_style{\n"
                             " 0{\n  color=-1006632961\n  screen=1\n }\n"
                             " 1{\n  color=none\n  mode_color=-1023344896\n  screen=1\n }\n"
                             " 2{\n  color=none\n  mode_color=-1023344640\n  screen=1\n }\n}\n";
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    EXPECT_EQ(dataOf(*table, 0).color.color(), 0xC2FFFFFFu);
    EXPECT_EQ(dataOf(*table, 1).color.color(), 0xC200FF00u);
    EXPECT_EQ(dataOf(*table, 2).color.color(), 0xC2010000u);
}

TEST(ReadText, RealsInEveryNotation)
{
    const auto factor = [](const std::string& value) {
        return tableOfText(replaced(colorTableText(), "factor=1.0", "factor=" + value))
            ->scaleFactor();
    };
    EXPECT_EQ(factor("0.00"), 0.0);
    EXPECT_EQ(factor("1"), 1.0);
    EXPECT_EQ(factor("1.000000"), 1.0);
    EXPECT_EQ(factor("-2.5"), -2.5);
    EXPECT_EQ(factor("0.17780000000 (44F=@\";\"QC\\SM0)"), 0.1778);
    EXPECT_EQ(factor("0.05080000000 (DCH!380- $ ZB@)"), 0.0508);
}

TEST(ReadText, NothingDependsOnTheLocale)
{
    const CommaLocale comma;
    const OdPsPlotStyleTablePtr table =
        tableOfText(replaced(colorTableText(), "factor=1.0", "factor=1234.5"));
    EXPECT_EQ(table->scaleFactor(), 1234.5);
    table->setScaleFactor(54321.25);
    changeData(*table, 0, [](OdPsPlotStyleData& data) { data.screening = 1000; });
    const std::string text = textOf(*table);
    EXPECT_NE(text.find("scale_factor=54321.25\n"), std::string::npos);
    EXPECT_NE(text.find("screen=1000\n"), std::string::npos);
}

TEST(ReadText, NamesInUtf8OrWindows1252)
{
    const auto nameOf = [](const std::string& bytes)
    { return tableOfText(namedTableText({bytes}), "STB")->styleAt(0)->localizedName(); };
    EXPECT_EQ(nameOf("W\xC3\xA4nde"), OdString(L"W\u00E4nde"));
    EXPECT_EQ(nameOf("W\xE4nde"), OdString(L"W\u00E4nde"));
    EXPECT_EQ(nameOf("\x80 \x99 \x81"), OdString(L"\u20AC \u2122 \u0081"));
    EXPECT_EQ(nameOf("\xE5\xA2\x99"), OdString(L"\u5899"));
    EXPECT_EQ(nameOf("\xF0\x9F\x98\x80"), OdString(L"\U0001F600"));
    EXPECT_EQ(nameOf("\xC0\x80"), OdString(L"\u00C0\u20AC"));           // overlong
    EXPECT_EQ(nameOf("\xED\xA0\x80"), OdString(L"\u00ED\u00A0\u20AC")); // a surrogate
    EXPECT_EQ(nameOf("\xF4\x90\x80\x80").str().size(), 4u);             // beyond Unicode
    EXPECT_EQ(nameOf("\xC3"), OdString(L"\u00C3"));                     // cut short
    EXPECT_EQ(nameOf("\xF4\x8F\xBF\xBF"), OdString(L"\U0010FFFF"));
    EXPECT_EQ(nameOf("\xED\x9F\xBF"), OdString(L"\uD7FF"));
    EXPECT_EQ(nameOf("\xEE\x80\x80"), OdString(L"\uE000"));
    EXPECT_EQ(nameOf("\xED\xBF\xBF").str().size(), 3u);     // the last surrogate
    EXPECT_EQ(nameOf("\xF8\x90\x80\x80").str().size(), 4u); // no first byte of anything
    EXPECT_EQ(nameOf("\x90\x90").str().size(), 2u);         // nor this one
    const OdPsPlotStyleTablePtr mixed = tableOfText(namedTableText({"\xE4", "\xC3\xA4"}), "STB");
    EXPECT_EQ(mixed->styleAt(0)->name(), mixed->styleAt(1)->name());
}

TEST(ReadText, LineEndsAndIndentsDoNotMatter)
{
    const OdPsPlotStyleTablePtr plain = tableOfText(colorTableText());
    std::string flat;
    for (const std::string& line : splitLines(colorTableText()))
        flat += line.substr(std::min(line.find_first_not_of(' '), line.size())) + "\n";
    for (const std::string& text : {withCrLf(colorTableText()), flat})
    {
        const OdPsPlotStyleTablePtr table = tableOfText(text);
        ASSERT_EQ(table->styleCount(), 255);
        EXPECT_EQ(table->styleAt(4)->name(), OdString(L"Color_5"));
        EXPECT_EQ(dataOf(*table, 4), dataOf(*plain, 4));
        EXPECT_EQ(table->lineweightAt(26), 2.11);
    }
}

TEST(ReadText, OrderIsThatOfTheNumbers)
{
    const std::string text = lineweightText() + "plot_style{\n" + styleText(7, "seven") +
                             styleText(0, "zero") + styleText(3, "three") + "}\n";
    const OdPsPlotStyleTablePtr table = tableOfText(text, "STB");
    ASSERT_EQ(table->styleCount(), 3);
    EXPECT_EQ(table->styleAt(0)->name(), OdString(L"zero"));
    EXPECT_EQ(table->styleAt(1)->name(), OdString(L"three"));
    EXPECT_EQ(table->styleAt(2)->name(), OdString(L"seven"));
}

TEST(ReadText, StyleOfAColorKeepsItsPlace)
{
    const std::string text = replaced(colorTableText(), styleText(1, "Color_2"), "");
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    ASSERT_EQ(table->styleCount(), 255);
    EXPECT_EQ(table->styleAt(1)->localizedName(), OdString(L"Color_2"));
    EXPECT_EQ(dataOf(*table, 1), OdPsPlotStyleData());
    EXPECT_EQ(table->styleAt(2)->name(), OdString(L"Color_3"));
    const OdPsPlotStyleTablePtr more =
        tableOfText(replaced(text, "plot_style{\n", "plot_style{\n" + styleText(300, "extra")));
    ASSERT_EQ(more->styleCount(), 256);
    EXPECT_EQ(more->styleAt(255)->name(), OdString(L"extra"));
}

TEST(ReadText, MissingNames)
{
    const std::string text = withoutKey(namedTableText(kNames), "localized_name");
    EXPECT_EQ(tableOfText(text, "STB")->styleAt(1)->localizedName(), OdString(L"Walls"));
    const std::string nameless = withoutKey(withoutKey(colorTableText(), "name"), "localized_name");
    EXPECT_EQ(tableOfText(nameless)->styleAt(6)->localizedName(), OdString(L"Color_7"));
    EXPECT_EQ(tableOfText(nameless)->styleAt(6)->name(), OdString(L"Color_7"));
}

TEST(ReadText, Lineweights)
{
    const std::string text = colorTableText();
    const std::string noTable = text.substr(0, text.find("custom_lineweight_table"));
    EXPECT_EQ(tableOfText(noTable)->lineweightAt(26), 2.11);
    const OdPsPlotStyleTablePtr some =
        tableOfText(noTable + "custom_lineweight_table{\n 8=0.33\n 22=8.0\n 3=0.1 (a=b{)\n}\n");
    EXPECT_EQ(some->lineweightCount(), 27);
    EXPECT_EQ(some->lineweightAt(8), 0.33);
    EXPECT_EQ(some->lineweightAt(22), 8.0);
    EXPECT_EQ(some->lineweightAt(23), 1.4);
    const OdPsPlotStyleTablePtr grouped =
        tableOfText(replaced(text, " 0=0.0\n", " later{\n  0=0.7\n }\n 0=0.06\n"));
    EXPECT_EQ(grouped->lineweightAt(0), 0.06);
    const OdPsPlotStyleTablePtr more =
        tableOfText(replaced(text, " 26=2.11\n", " 26=2.11\n 27=3.0\n 29=5.0\n"));
    EXPECT_EQ(more->lineweightCount(), 30);
    EXPECT_EQ(more->lineweightAt(27), 3.0);
    EXPECT_EQ(more->lineweightAt(28), 0.0);
    EXPECT_EQ(more->lineweightAt(29), 5.0);
}

TEST(ReadText, UnknownKeysAndGroupsAreNotInTheWay)
{
    std::string text = "filetype=\"ctb\nsome junk\n\n" + colorTableText();
    text =
        replaced(text, "  screen=100\n", "  future{\n   screen=3\n  }\n  screen=55\n  other=x\n");
    text += "future{\n deep{\n }\n screen=1\n}\n";
    const OdPsPlotStyleTablePtr table = tableOfText(text);
    ASSERT_EQ(table->styleCount(), 255);
    EXPECT_EQ(dataOf(*table, 0).screening, 55);
    EXPECT_EQ(dataOf(*table, 0).joinStyle, 5);
}

TEST(ReadText, WhatIsNoTable)
{
    const std::string text = colorTableText();
    using tablefile::Status;
    EXPECT_EQ(statusOfText(""), Status::NotATable);
    EXPECT_EQ(statusOfText("Hello, world"), Status::NotATable);
    EXPECT_EQ(statusOfText(text.substr(0, text.size() - 2)), Status::NotATable);
    EXPECT_EQ(statusOfText(text.substr(0, text.size() / 2)), Status::NotATable);
    EXPECT_EQ(statusOfText(text + "}\n"), Status::NotATable);
    EXPECT_EQ(statusOfText(text.substr(0, text.find("plot_style"))), Status::NotATable);
    const std::pair<const char*, const char*> kWrong[] = {
        {"screen=100", "screen=32768"},
        {"screen=100", "screen="},
        {"screen=100", "screen=1x"},
        {"screen=100", "screen=99999999999999999999"},
        {"factor=1.0", "factor=nan"},
        {"factor=1.0", "factor=inf"},
        {"factor=1.0", "factor=1,5"},
        {"factor=1.0", "factor=1e999"},
        {"apply_factor=FALSE", "apply_factor=0"},
        {" 6=0.18", " 6=?"},
        {"color=-1006632961\n  mode_color=-1006632961", "color=red"},
    };
    for (const auto& [right, wrong] : kWrong)
        EXPECT_EQ(statusOfText(replaced(text, right, wrong)), Status::NotATable) << wrong;
}
