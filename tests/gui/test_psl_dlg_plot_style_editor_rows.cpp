// The editor's lineweight list on tables of any number of lineweights. Files always give the editor
// all the rows that it has, a host need not: this program takes its place.

#include "support/editor_driver.h"

#include "odps/od_ps_impl.h"
#include "support/tables.h"
#include "wxgui/image_combo.h"

#include <wx/listctrl.h>

#include <numeric>

namespace
{

/// The table that the host has, and how often it was asked to save it.
OdPsPlotStyleTablePtr hostTable;
int saves = 0;

class RowCounts : public EditorTest
{
protected:
    void SetUp() override { saves = 0; }
    void TearDown() override { hostTable = nullptr; }

    // Makes a named table with these lineweights and two styles that refer to them.
    void makeHostTable(const std::vector<double>& lineweights, double referenceOfA,
                       double referenceOfB)
    {
        auto* table = new OdPsPlotStyleTableImpl(false);
        hostTable = table;
        table->setLineweights(lineweights);
        for (const wchar_t* name : {L"Normal", L"A", L"B"})
            table->addNewStyle(name);
        support::changeData(*table, 1,
                            [=](OdPsPlotStyleData& data) { data.lineweight = referenceOfA; });
        support::changeData(*table, 2,
                            [=](OdPsPlotStyleData& data) { data.lineweight = referenceOfB; });
    }

    std::vector<double> references() const
    {
        return {support::dataOf(*hostTable, 1).lineweight,
                support::dataOf(*hostTable, 2).lineweight};
    }

    const wxString file = makeFile("table.stb", "the host reads it");
};

std::vector<double> fortyToOne()
{
    std::vector<double> values(40);
    std::iota(values.rbegin(), values.rend(), 1.0);
    return values;
}

std::vector<std::string> texts(std::vector<std::string> first)
{
    first.resize(27);
    return first;
}

} // namespace

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString&)
{
    return hostTable;
}

bool cma::savePlotStyleTable(const OdString&, OdPsPlotStyleTablePtr)
{
    ++saves;
    return true;
}

TEST_F(RowCounts, LeaveTheRowsPastTheEndBlank)
{
    makeHostTable({0.5, 1.0, 2.0}, 3, 5);
    Editor dialog(file);
    EditorDriver editor(dialog);
    EXPECT_EQ(editor.lineweightTexts(), texts({"0.5000", "1.0000", "2.0000"}));
    const auto* combo = find<wxg::ImageCombo>(dialog, "ComboLineWeight");
    EXPECT_EQ(combo->GetString(3), "2.0000 mm");
    for (unsigned entry = 4; entry < combo->GetCount(); ++entry)
        EXPECT_EQ(combo->GetString(entry), "");
    editor.useInches(true);
    EXPECT_EQ(editor.lineweightTexts(), texts({"0.0197", "0.0394", "0.0787"}));
}

TEST_F(RowCounts, LetNoRowPastTheEndBeEdited)
{
    makeHostTable({0.5, 1.0, 2.0}, 3, 5);
    Editor dialog(file);
    EditorDriver editor(dialog);
    for (int row = 3; row < 27; ++row)
    {
        EXPECT_FALSE(editor.editLineweight(row, "1.5")) << row;
        editor.forceClick("BtnLwEdit");
        EXPECT_EQ(editor.lineweights()->GetEditControl(), nullptr) << row;
    }
    EXPECT_TRUE(editor.editLineweight(2, "1.5"));
    EXPECT_EQ(hostTable->lineweightAt(2), 1.5);
}

TEST_F(RowCounts, SortFewerLineweights)
{
    makeHostTable({2.0, 1.0, 0.5}, 1, 27);
    Editor dialog(file);
    EditorDriver editor(dialog);
    editor.select({1});
    editor.selectLineweight(0);
    editor.forceClick("BtnLwSort");
    EXPECT_EQ(editor.lineweightTexts(), texts({"0.5000", "1.0000", "2.0000"}));
    EXPECT_EQ(editor.selectedLineweight(), 2);
    EXPECT_EQ(editor.shown("ComboLineWeight"), "2.0000 mm");
    EXPECT_EQ(references(), (std::vector<double>{3, 0}));
}

// The style that referred past the end has the object's lineweight then, and the field says so.
TEST_F(RowCounts, ShowTheObjectsLineweightForAReferencePastTheEndAfterASort)
{
    makeHostTable({2.0, 1.0, 0.5}, 1, 27);
    Editor dialog(file);
    EditorDriver editor(dialog);
    editor.select({2});
    EXPECT_EQ(editor.shown("ComboLineWeight"), "");
    editor.selectLineweight(20);
    editor.forceClick("BtnLwSort");
    EXPECT_EQ(editor.shown("ComboLineWeight"), "Use object lineweight");
}

TEST_F(RowCounts, MayBeNone)
{
    makeHostTable({}, 1, 0);
    Editor dialog(file);
    EditorDriver editor(dialog);
    EXPECT_EQ(editor.lineweightTexts(), texts({}));
    EXPECT_FALSE(editor.isShown("BtnLwSort"));
    editor.forceClick("BtnLwSort");
    editor.useInches(true);
    EXPECT_EQ(references(), (std::vector<double>{0, 0}));
}

TEST_F(RowCounts, MayBeOne)
{
    makeHostTable({0.5}, 1, 0);
    Editor dialog(file);
    EditorDriver editor(dialog);
    EXPECT_FALSE(editor.isShown("BtnLwSort"));
    editor.editLineweight(0, "0.7");
    EXPECT_EQ(editor.lineweightTexts(), texts({"0.7000"}));
    EXPECT_EQ(references(), (std::vector<double>{1, 0}));
}

TEST_F(RowCounts, MayBeMoreThanTheEditorShows)
{
    makeHostTable(fortyToOne(), 1, 40);
    Editor dialog(file);
    EditorDriver editor(dialog);
    EXPECT_EQ(editor.lineweightTexts().front(), "40.0000");
    EXPECT_TRUE(editor.isShown("BtnLwSort"));
    click(dialog, "BtnLwSort");
    EXPECT_EQ(editor.lineweightTexts().front(), "1.0000");
    EXPECT_EQ(editor.lineweightTexts().back(), "27.0000");
    EXPECT_EQ(hostTable->lineweightAt(39), 40.0);
    EXPECT_EQ(references(), (std::vector<double>{40, 1}));
    click(dialog, wxID_OK);
    EXPECT_EQ(saves, 1);
}

// The selected value and the one that the field shows go where the editor has no row for them.
TEST_F(RowCounts, LetASelectedValueLeaveTheRows)
{
    makeHostTable(fortyToOne(), 1, 40);
    Editor dialog(file);
    EditorDriver editor(dialog);
    editor.select({1});
    EXPECT_EQ(editor.shown("ComboLineWeight"), "40.0000 mm");
    editor.selectLineweight(0);
    click(dialog, "BtnLwSort");
    EXPECT_EQ(editor.shown("ComboLineWeight"), "");
    EXPECT_EQ(find<wxg::ImageCombo>(dialog, "ComboLineWeight")->value(), 40);
}

TEST_F(RowCounts, MarkReferencesWithinTheRows)
{
    makeHostTable({1, 2, 3}, 3, 1000000);
    Editor dialog(file);
    EditorDriver editor(dialog);
    EXPECT_EQ(editor.usedLineweights(), std::vector<int>{2});
}
