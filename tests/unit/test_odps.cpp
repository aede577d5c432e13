// Tests of the table model in memory.

#include "odps/od_ps.h"
#include "odps/od_ps_impl.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

OdPsPlotStyleTablePtr makeNamedTable(std::initializer_list<const wchar_t*> names)
{
    OdPsPlotStyleTablePtr table = new OdPsPlotStyleTableImpl(false);
    for (const wchar_t* const name : names)
        table->addNewStyle(name);
    return table;
}

/// Renames a style as an editor does that has no access to the style's own text.
void rename(OdPsPlotStyleTable& table, const OdPsPlotStylePtr& style, const wchar_t* name)
{
    OdPs::OdPsStyleMap map = table.styleMap();
    map.erase(style->localizedName().c_str());
    style->setName(name);
    style->setLocalizedName(name);
    const OdString key = style->localizedName();
    map.emplace(key.c_str(), style);
    table.setStyleMap(map);
}

} // namespace

TEST(OdColor, DefaultIsTheObjectsColor)
{
    const OdCmEntityColor color;
    EXPECT_EQ(color.color(), 0xC2FFFFFFu);
    EXPECT_EQ(color.colorMethod(), OdCmEntityColor::kByColor);
}

TEST(OdColor, PaletteOfIndexColors)
{
    EXPECT_EQ(OdCmEntityColor::lookUpRGB(1), 0xFF0000u);
    EXPECT_EQ(OdCmEntityColor::lookUpRGB(7), 0xFFFFFFu);
    EXPECT_EQ(OdCmEntityColor::lookUpRGB(249), 0x261317u);
    EXPECT_EQ(OdCmEntityColor::lookUpRGB(255), 0xFFFFFFu);
    for (const int outside : {-1, 0, 256, 1000})
        EXPECT_EQ(OdCmEntityColor::lookUpRGB(outside), 0u) << outside;
}

TEST(OdColor, NearestIndexIsTheLowestOfAlikeOnes)
{
    for (int index = 1; index <= 255; ++index)
    {
        const std::uint32_t rgb = OdCmEntityColor::lookUpRGB(index);
        const int nearest = OdCmEntityColor::lookUpACI(static_cast<std::uint8_t>(rgb >> 16),
                                                       static_cast<std::uint8_t>(rgb >> 8 & 0xFF),
                                                       static_cast<std::uint8_t>(rgb & 0xFF));
        EXPECT_LE(nearest, index);
        EXPECT_EQ(OdCmEntityColor::lookUpRGB(nearest), rgb) << index;
    }
    EXPECT_EQ(OdCmEntityColor::lookUpACI(254, 254, 254), 7);
    EXPECT_EQ(OdCmEntityColor::lookUpACI(250, 3, 2), 1);
}

TEST(OdColor, MethodsAndComponents)
{
    OdCmEntityColor color(1, 2, 3);
    EXPECT_EQ(color.color(), 0xC2010203u);
    color.setColorMethod(OdCmEntityColor::kByACI);
    EXPECT_EQ(color.color(), 0xC3010203u);
    color.setColorIndex(30);
    EXPECT_EQ(color.color(), 0xC300001Eu);
    EXPECT_EQ(color.colorIndex(), 30);
    color.setRGB(255, 0, 0);
    EXPECT_EQ(color.color(), 0xC2FF0000u);
    EXPECT_EQ(color.colorIndex(), 1);
    color.setColorMethod(OdCmEntityColor::kByLayer);
    EXPECT_EQ(color.colorIndex(), 256);
    color.setColorMethod(OdCmEntityColor::kByBlock);
    EXPECT_EQ(color.colorIndex(), 0);
    EXPECT_EQ(color.red(), 255);
}

TEST(OdPsData, DefaultTakesEverythingFromTheObject)
{
    const OdPsPlotStyleData data;
    EXPECT_EQ(data.color.color(), 0xC2FFFFFFu);
    EXPECT_EQ(data.colorPolicy, 0);
    EXPECT_FALSE(data.adaptiveLinetype);
    EXPECT_EQ(data.screening, 100);
    EXPECT_EQ(data.physicalPenNumber, -1);
    EXPECT_EQ(data.virtualPenNumber, -1);
    EXPECT_EQ(data.linetype, 31);
    EXPECT_EQ(data.fillStyle, 73);
    EXPECT_EQ(data.endStyle, 4);
    EXPECT_EQ(data.joinStyle, 5);
    EXPECT_EQ(data.linePatternSize, 0.0);
    EXPECT_EQ(data.lineweight, -1.0);
}

TEST(OdPsData, EveryFieldCountsInAComparison)
{
    const OdPsPlotStyleData plain;
    EXPECT_EQ(plain, OdPsPlotStyleData());
    const auto differsAfter = [&plain](auto change)
    {
        OdPsPlotStyleData data;
        change(data);
        return data != plain;
    };
    using Data = OdPsPlotStyleData;
    EXPECT_TRUE(differsAfter([](Data& d) { d.color.setRGB(0, 0, 0); }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.colorPolicy = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.adaptiveLinetype = true; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.screening = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.physicalPenNumber = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.virtualPenNumber = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.linetype = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.fillStyle = 64; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.endStyle = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.joinStyle = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.linePatternSize = 1; }));
    EXPECT_TRUE(differsAfter([](Data& d) { d.lineweight = 1; }));
}

TEST(OdPsStrLess, IgnoresCase)
{
    const OdPs::OdPsStrLess less;
    EXPECT_FALSE(less(L"Normal", L"NORMAL"));
    EXPECT_FALSE(less(L"NORMAL", L"Normal"));
    EXPECT_TRUE(less(L"a", L"B"));
    EXPECT_FALSE(less(L"B", L"a"));
    EXPECT_TRUE(less(L"", L"a"));
    EXPECT_TRUE(less(L"Wall", L"Walls"));
    EXPECT_FALSE(less(L"Walls", L"Wall"));
    EXPECT_FALSE(less(L"", L""));
}

TEST(OdPsStrLess, KnowsTwoCasesOfEveryLetter)
{
    const OdPs::OdPsStrLess less;
    for (const auto& [upper, lower] : {std::pair(L"A", L"a"), {L"M", L"m"}, {L"Z", L"z"}})
    {
        EXPECT_FALSE(less(upper, lower));
        EXPECT_FALSE(less(lower, upper));
    }
    for (const auto& [before, after] : {std::pair(L"@", L"`"), {L"[", L"{"}, {L"0", L"P"}})
        EXPECT_TRUE(less(before, after));
}

TEST(OdPsStrLess, KnowsTheCasesOfOtherAlphabetsInTheCLocale)
{
    const OdPs::OdPsStrLess less;
    EXPECT_FALSE(less(L"\u00C4ussere W\u00C4nde", L"\u00E4ussere w\u00E4nde"));
    EXPECT_FALSE(less(L"\u00E4ussere w\u00E4nde", L"\u00C4ussere W\u00C4nde"));
    EXPECT_FALSE(less(L"\u0421\u0422\u0415\u041D\u0410", L"\u0441\u0442\u0435\u043D\u0430"));
    EXPECT_TRUE(less(L"\u00E4", L"\u00F6"));
}

TEST(OdPsTable, NewOneHasTheDefaults)
{
    const OdPsPlotStyleTablePtr table = new OdPsPlotStyleTableImpl(true);
    EXPECT_TRUE(table->isColorDependent());
    EXPECT_TRUE(table->description().isEmpty());
    EXPECT_EQ(table->scaleFactor(), 1.0);
    EXPECT_FALSE(table->isApplyScaleFactor());
    EXPECT_FALSE(table->isDisplayCustomLineweightUnits());
    EXPECT_EQ(table->lineweightCount(), 27);
    EXPECT_EQ(table->lineweightAt(0), 0.0);
    EXPECT_EQ(table->lineweightAt(6), 0.18);
    EXPECT_EQ(table->lineweightAt(26), 2.11);
    EXPECT_EQ(table->styleCount(), 0);
}

TEST(OdPsTable, OutsideOfTheListsIsNothing)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal"});
    for (const int outside : {-1, 1, 1000000})
        EXPECT_TRUE(table->styleAt(outside).isNull()) << outside;
    for (const int outside : {-1, 27, 1000000})
    {
        table->setLineweightAt(outside, 5.0);
        EXPECT_EQ(table->lineweightAt(outside), 0.0) << outside;
    }
    EXPECT_EQ(table->lineweightCount(), 27);
}

TEST(OdPsTable, AddsStylesWithTheirNameAndDefaults)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal"});
    const OdPsPlotStylePtr style = table->addNewStyle(L"Walls");
    EXPECT_EQ(table->styleCount(), 2);
    EXPECT_EQ(table->styleAt(1), style);
    EXPECT_EQ(style->name(), OdString(L"Walls"));
    EXPECT_EQ(style->localizedName(), OdString(L"Walls"));
    EXPECT_TRUE(style->description().isEmpty());
    OdPsPlotStyleData data;
    style->getData(data);
    EXPECT_EQ(data, OdPsPlotStyleData());
}

TEST(OdPsTable, FindsStylesWithoutRegardToCase)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"Walls"});
    EXPECT_EQ(table->findStyleByName(L"WALLS"), table->styleAt(1));
    EXPECT_TRUE(table->findStyleByName(L"Doors").isNull());
    const OdPsPlotStylePtr doors = table->addNewStyle(L"Doors");
    EXPECT_EQ(table->findStyleByName(L"doors"), doors);
}

TEST(OdPsTable, FirstOfAlikeNamesIsFound)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Walls", L"walls"});
    EXPECT_EQ(table->findStyleByName(L"walls"), table->styleAt(0));
    table->deleteStyle(table->styleAt(0));
    EXPECT_EQ(table->findStyleByName(L"Walls"), table->styleAt(0));
}

TEST(OdPsTable, DeletesStyles)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"Walls", L"Doors"});
    const OdPsPlotStylePtr walls = table->styleAt(1);
    table->deleteStyle(walls);
    EXPECT_EQ(table->styleCount(), 2);
    EXPECT_TRUE(table->findStyleByName(L"Walls").isNull());
    EXPECT_EQ(table->styleAt(1)->name(), OdString(L"Doors"));
    table->deleteStyle(walls);
    table->deleteStyle(nullptr);
    EXPECT_EQ(table->styleCount(), 2);
    EXPECT_EQ(walls->name(), OdString(L"Walls"));
}

TEST(OdPsTable, KeepsTheOrderOfAStyleArray)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"Walls", L"Doors"});
    OdArray<OdPsPlotStylePtr> styles = table->styleArray();
    std::swap(styles[1], styles[2]);
    styles.push_back(nullptr);
    table->setStyleArray(styles);
    ASSERT_EQ(table->styleCount(), 3);
    EXPECT_EQ(table->styleAt(1)->name(), OdString(L"Doors"));
    EXPECT_EQ(table->findStyleByName(L"walls"), table->styleAt(2));
}

TEST(OdPsTable, RenamesThroughACopyOfTheStyleMap)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"Walls", L"Doors"});
    const OdPsPlotStylePtr walls = table->findStyleByName(L"Walls");
    rename(*table, walls, L"Outer walls, a name that is long enough for the heap");
    rename(*table, walls, L"Outer walls");
    EXPECT_EQ(walls->name(), OdString(L"Outer walls"));
    EXPECT_EQ(table->findStyleByName(L"OUTER WALLS"), walls);
    EXPECT_TRUE(table->findStyleByName(L"Walls").isNull());
    EXPECT_EQ(table->styleMap().size(), 3u);
}

TEST(OdPsTable, FindsAStyleByItsNameAsWellAsByItsLocalizedName)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"Thin red", L"Walls"});
    table->styleAt(1)->setName(L"Thin_red");
    EXPECT_EQ(table->findStyleByName(L"THIN_RED"), table->styleAt(1));
    EXPECT_EQ(table->findStyleByName(L"thin red"), table->styleAt(1));
    table->styleAt(2)->setName(L"Thin red");
    EXPECT_EQ(table->findStyleByName(L"Thin red"), table->styleAt(1))
        << "what users see goes first";
}

TEST(OdPsTable, KeysOfAStyleMapOutliveTheCallersTexts)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"Walls"});
    {
        const std::wstring key(100, L'k');
        OdPs::OdPsStyleMap map;
        map.emplace(key.c_str(), table->styleAt(1));
        table->setStyleMap(map);
    }
    EXPECT_EQ(table->findStyleByName(L"walls"), table->styleAt(1));
    EXPECT_TRUE(table->findStyleByName(L"Normal").isNull());
    for (const auto& entry : table->styleMap())
        EXPECT_EQ(OdString(entry.first), entry.second->localizedName());
}

TEST(OdPsTable, NamesThatMapsPointToStayWhenAStyleIsRenamed)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal", L"A wall of bricks"});
    OdPs::OdPsStyleMap map = table->styleMap();
    const OdPsPlotStylePtr style = table->findStyleByName(L"A wall of bricks");
    for (int i = 0; i < 10; ++i)
        style->setLocalizedName(L"Another name " + std::to_wstring(i));
    EXPECT_EQ(table->findStyleByName(L"A wall of BRICKS"), style);
    EXPECT_EQ(map.count(L"a wall of bricks"), 1u);
    EXPECT_EQ(style->name(), OdString(L"A wall of bricks"));
    EXPECT_EQ(style->localizedName(), OdString(L"Another name 9"));
    table->setStyleMap(map);
    EXPECT_EQ(table->findStyleByName(L"another name 9"), style);
}

TEST(OdPsStyle, NameAndLocalizedNameChangeByThemselves)
{
    const OdPsPlotStyleTablePtr table = makeNamedTable({L"Both"});
    const OdPsPlotStylePtr style = table->styleAt(0);
    style->setName(L"Name");
    EXPECT_EQ(style->localizedName(), OdString(L"Both"));
    style->setLocalizedName(L"Localized");
    EXPECT_EQ(style->name(), OdString(L"Name"));
    style->setLocalizedName(L"Name");
    style->setLocalizedName(L"");
    EXPECT_EQ(style->name(), OdString(L"Name"));
    EXPECT_TRUE(style->localizedName().isEmpty());
    style->setDescription(L"Text");
    EXPECT_EQ(style->description(), OdString(L"Text"));
}

TEST(OdPsStyle, OutlivesItsTableWhileItIsHeld)
{
    OdPsPlotStyleTablePtr table = makeNamedTable({L"Normal"});
    const OdPsPlotStylePtr style = table->styleAt(0);
    const OdPs::OdPsStyleMap map = table->styleMap();
    table = nullptr;
    EXPECT_EQ(style->name(), OdString(L"Normal"));
    EXPECT_EQ(map.count(L"normal"), 1u);
}
