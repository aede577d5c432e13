// The same checks over the tables of a folder that PSTYLE_REAL_TABLES names.

#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace support;

namespace
{

/// The tables of the folder; skips the calling test when there is none.
#define REAL_TABLES_OR_SKIP(tables)                                                                \
    const std::vector<std::filesystem::path> tables = realTables();                                \
    if (tables.empty())                                                                            \
    GTEST_SKIP() << "PSTYLE_REAL_TABLES names no folder of tables"

/// A style whose lines are all there: the last one of a table.
int lastStyle(const OdPsPlotStyleTable& table)
{
    return table.styleCount() - 1;
}

struct Change
{
    const char* what;
    std::function<void(OdPsPlotStyleTable&)> apply;
    const char* key; ///< of the only line that the change touches
};

const Change kChanges[] = {
    {"description", [](OdPsPlotStyleTable& t) { t.setDescription(L"Another one"); },
     "description=\"Another one"},
    {"factor", [](OdPsPlotStyleTable& t) { t.setScaleFactor(t.scaleFactor() + 0.5); },
     "scale_factor="},
    {"apply", [](OdPsPlotStyleTable& t) { t.setApplyScaleFactor(!t.isApplyScaleFactor()); },
     "apply_factor="},
    {"units",
     [](OdPsPlotStyleTable& t)
     { t.setDisplayCustomLineweightUnits(!t.isDisplayCustomLineweightUnits()); },
     "custom_lineweight_display_units="},
    {"lineweight", [](OdPsPlotStyleTable& t) { t.setLineweightAt(22, 7.25); }, " 22=7.25"},
    {"screening",
     [](OdPsPlotStyleTable& t)
     { changeData(t, lastStyle(t), [](OdPsPlotStyleData& d) { d.screening = 13; }); },
     "  screen=13"},
    {"pattern",
     [](OdPsPlotStyleTable& t)
     { changeData(t, lastStyle(t), [](OdPsPlotStyleData& d) { d.linePatternSize = 0.75; }); },
     "  linepattern_size=0.75"},
    {"style description",
     [](OdPsPlotStyleTable& t) { t.styleAt(lastStyle(t))->setDescription(L"Other"); },
     "  description=\"Other"},
};

} // namespace

TEST(RealTables, AreSavedAsTheyWere)
{
    REAL_TABLES_OR_SKIP(tables);
    for (const std::filesystem::path& path : tables)
    {
        const std::string file = readFile(path);
        const OdPsPlotStyleTablePtr table = tableOf(file);
        EXPECT_GT(table->styleCount(), 0) << path;
        EXPECT_EQ(table->isColorDependent(), path.extension() == ".ctb") << path;
        EXPECT_EQ(bytesOf(*table), file) << path;
    }
}

TEST(RealTables, OneChangeIsOneLine)
{
    REAL_TABLES_OR_SKIP(tables);
    for (const std::filesystem::path& path : tables)
    {
        const std::string before = unpack(readFile(path));
        for (const Change& change : kChanges)
        {
            const OdPsPlotStyleTablePtr table = tableOf(readFile(path));
            change.apply(*table);
            const std::vector<std::string> lines = changedLines(before, textOf(*table));
            ASSERT_EQ(lines.size(), 1u) << path << ' ' << change.what;
            EXPECT_NE(lines[0].find(change.key), std::string::npos) << path << ' ' << lines[0];
        }
    }
}

TEST(RealTables, SettingWhatIsThereChangesNothing)
{
    REAL_TABLES_OR_SKIP(tables);
    for (const std::filesystem::path& path : tables)
    {
        const std::string file = readFile(path);
        const OdPsPlotStyleTablePtr table = tableOf(file);
        table->setDescription(table->description());
        for (int i = 0; i < table->styleCount(); ++i)
        {
            const OdPsPlotStylePtr style = table->styleAt(i);
            style->setName(style->name());
            style->setLocalizedName(style->localizedName());
            style->setDescription(style->description());
            style->setData(dataOf(*table, i));
        }
        EXPECT_EQ(bytesOf(*table), file) << path;
    }
}

TEST(RealTables, ColorChangesOnlyTheColor)
{
    REAL_TABLES_OR_SKIP(tables);
    for (const std::filesystem::path& path : tables)
    {
        const OdPsPlotStyleTablePtr table = tableOf(readFile(path));
        const int style = lastStyle(*table);
        const OdPsPlotStyleData before = dataOf(*table, style);
        changeData(*table, style, [](OdPsPlotStyleData& d) { d.color.setRGB(18, 52, 86); });
        const std::string saved = textOf(*table);
        EXPECT_NE(saved.find("  mode_color=-1038994346\n"), std::string::npos) << path;
        const OdPsPlotStyleTablePtr again = tableOf(pack(saved));
        OdPsPlotStyleData after = dataOf(*tableOf(bytesOf(*table)), style);
        EXPECT_EQ(after.color.color(), 0xC2123456u) << path;
        after.color = before.color;
        EXPECT_EQ(after, before) << path;
    }
}

TEST(RealTables, AddingAndDeletingStylesKeepsTheOthers)
{
    REAL_TABLES_OR_SKIP(tables);
    for (const std::filesystem::path& path : tables)
    {
        const std::string file = readFile(path);
        const OdPsPlotStyleTablePtr table = tableOf(file);
        if (table->isColorDependent())
            continue;
        const OdPsPlotStylePtr added = table->addNewStyle(L"Something new");
        OdArray<OdPsPlotStylePtr> styles = table->styleArray();
        std::rotate(styles.begin() + 1, styles.end() - 1, styles.end());
        table->setStyleArray(styles);
        const OdPsPlotStyleTablePtr again = tableOf(bytesOf(*table));
        ASSERT_EQ(again->styleCount(), table->styleCount()) << path;
        EXPECT_EQ(again->styleAt(1)->name(), added->name());
        EXPECT_EQ(again->styleAt(2)->name(), table->styleAt(2)->name());
        table->deleteStyle(added);
        EXPECT_EQ(bytesOf(*table), file) << path;
    }
}
