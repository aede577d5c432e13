// Tests of the host's command interface to table files.

#include "cmdapi/cma.h"
#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

using namespace support;

TEST(Cma, CreatesATableOfColors)
{
    const OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(true, L"Described");
    ASSERT_FALSE(table.isNull());
    EXPECT_TRUE(table->isColorDependent());
    EXPECT_EQ(table->description(), OdString(L"Described"));
    EXPECT_EQ(table->scaleFactor(), 1.0);
    EXPECT_FALSE(table->isApplyScaleFactor());
    EXPECT_EQ(table->lineweightCount(), 27);
    ASSERT_EQ(table->styleCount(), 255);
    EXPECT_EQ(table->styleAt(0)->name(), OdString(L"Color_1"));
    EXPECT_EQ(table->styleAt(254)->localizedName(), OdString(L"Color_255"));
}

TEST(Cma, CreatesANamedTable)
{
    const OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(false, L"");
    ASSERT_FALSE(table.isNull());
    EXPECT_FALSE(table->isColorDependent());
    ASSERT_EQ(table->styleCount(), 1);
    EXPECT_EQ(table->styleAt(0)->localizedName(), OdString(L"Normal"));
    EXPECT_EQ(dataOf(*table, 0), OdPsPlotStyleData());
}

TEST(Cma, NewTablesComeBackEqual)
{
    const TempFolder folder;
    for (const bool colorDependent : {true, false})
    {
        // The contents decide the kind, not the extension.
        const OdString path = (folder / "table.txt").wstring();
        const OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(colorDependent, L"d");
        ASSERT_TRUE(cma::savePlotStyleTable(path, table));
        const OdPsPlotStyleTablePtr again = cma::loadPlotStyleTable(path);
        ASSERT_FALSE(again.isNull());
        EXPECT_EQ(again->isColorDependent(), colorDependent);
        EXPECT_EQ(again->description(), OdString(L"d"));
        ASSERT_EQ(again->styleCount(), table->styleCount());
        for (int i = 0; i < again->styleCount(); ++i)
            EXPECT_EQ(dataOf(*again, i), OdPsPlotStyleData());
    }
}

TEST(Cma, RenamesComeBack)
{
    const TempFolder folder;
    const OdString path = (folder / "table.stb").wstring();
    OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(false, L"");
    const OdPsPlotStylePtr style = table->addNewStyle(L"Style 1");
    OdPs::OdPsStyleMap map = table->styleMap();
    map.erase(L"Style 1");
    style->setName(L"Walls");
    style->setLocalizedName(L"Walls");
    const OdString name = style->localizedName();
    map.emplace(name.c_str(), style);
    table->setStyleMap(map);
    ASSERT_TRUE(cma::savePlotStyleTable(path, table));
    table = cma::loadPlotStyleTable(path);
    ASSERT_FALSE(table.isNull());
    EXPECT_EQ(table->findStyleByName(L"walls"), table->styleAt(1));
    EXPECT_TRUE(table->findStyleByName(L"style 1").isNull());
}

TEST(Cma, NamesThatTheLocaleDoesNotKnow)
{
    const TempFolder folder;
    const OdString path = folder.path().wstring() + L"/Pl\u00E4ne.ctb";
    ASSERT_TRUE(cma::savePlotStyleTable(path, cma::createPlotStyleTable(true, L"")));
    EXPECT_EQ(namesIn(folder.path()), std::vector<std::string>{"Pl\xC3\xA4ne.ctb"});
    EXPECT_FALSE(cma::loadPlotStyleTable(path).isNull());
}

TEST(Cma, FailuresAreNullAndFalse)
{
    const TempFolder folder;
    const OdString missing = (folder / "missing/table.ctb").wstring();
    EXPECT_TRUE(cma::loadPlotStyleTable(missing).isNull());
    EXPECT_FALSE(cma::savePlotStyleTable(missing, cma::createPlotStyleTable(true, L"")));
    EXPECT_FALSE(cma::savePlotStyleTable((folder / "a.ctb").wstring(), nullptr));
    EXPECT_TRUE(namesIn(folder.path()).empty());
}
