// The editor's lineweight list.

#include "support/editor_driver.h"
#include "support/screen_image.h"
#include "support/table_maker.h"
#include "support/tables.h"

#include "wxgui/image_combo.h"

#include <wx/listctrl.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

namespace
{

using Lines = std::vector<std::string>;
using Rows = std::vector<int>;
using Values = std::vector<double>;

const char* const limitMessage = "Custom lineweights must be greater than or equal to 0 and less "
                                 "than or equal to 200 mm (7.8740\").";

// A named table whose first lineweights are these; the others are in ascending order behind 100.
OdPsPlotStyleTablePtr tableOf(const Values& first, const Values& references = {})
{
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < references.size(); ++i)
        names.push_back(L"Style " + std::to_wstring(i + 1));
    OdPsPlotStyleTablePtr table = namedTable(names);
    for (int row = 0; row < table->lineweightCount(); ++row)
    {
        const auto i = static_cast<std::size_t>(row);
        table->setLineweightAt(row, i < first.size() ? first[i] : 100.0 + row);
    }
    for (std::size_t i = 0; i < references.size(); ++i)
        support::changeData(*table, static_cast<int>(i + 1),
                            [reference = references[i]](OdPsPlotStyleData& data)
                            { data.lineweight = reference; });
    return table;
}

// The bytes of a named table with styles A and B of these references and more lineweights than the
// editor shows: 1, 2 and so on.
std::string fileWithManyLineweights(int count, int referenceOfA, int referenceOfB)
{
    const auto styleWith = [](int number, const char* name, int reference)
    {
        return support::replaced(support::styleText(number, name), "lineweight=0",
                                 "lineweight=" + std::to_string(reference));
    };
    std::string text = "description=\"\naci_table_available=FALSE\nscale_factor=1.0\n"
                       "apply_factor=FALSE\ncustom_lineweight_display_units=0\nplot_style{\n";
    text += support::styleText(0, "Normal") + styleWith(1, "A", referenceOfA) +
            styleWith(2, "B", referenceOfB) + "}\ncustom_lineweight_table{\n";
    for (int row = 0; row < count; ++row)
        text += " " + std::to_string(row) + "=" + std::to_string(row + 1) + ".0\n";
    support::Container container;
    container.kind = "STB";
    return support::pack(text + "}\n", container);
}

class LineweightList : public EditorDriverTest
{
protected:
    Values savedLineweights(int count = 4) const
    {
        Values values;
        for (int row = 0; row < count; ++row)
            values.push_back(savedTable()->lineweightAt(row));
        return values;
    }

    // The references of the styles behind "Normal".
    Values savedReferences() const
    {
        const OdPsPlotStyleTablePtr table = savedTable();
        Values references;
        for (int style = 1; style < table->styleCount(); ++style)
            references.push_back(support::dataOf(*table, style).lineweight);
        return references;
    }
};

Lines firstTexts(const EditorDriver& editor, std::size_t count = 4)
{
    Lines texts = editor.lineweightTexts();
    texts.resize(count);
    return texts;
}

wxg::ImageCombo* comboOf(EditorDriver& editor)
{
    return find<wxg::ImageCombo>(editor.dialog(), "ComboLineWeight");
}

std::string entry(EditorDriver& editor, unsigned index)
{
    return comboOf(editor)->GetString(index).utf8_string();
}

} // namespace

// --- What the page shows -----------------------------------------------------------------------

TEST_F(LineweightList, ShowsEveryLineweightInMillimetres)
{
    EditorDriver& editor = open(namedTable());
    const Lines expected = {"0.0000", "0.0500", "0.0900", "0.1000", "0.1300", "0.1500", "0.1800",
                            "0.2000", "0.2500", "0.3000", "0.3500", "0.4000", "0.4500", "0.5000",
                            "0.5300", "0.6000", "0.6500", "0.7000", "0.8000", "0.9000", "1.0000",
                            "1.0600", "1.2000", "1.4000", "1.5800", "2.0000", "2.1100"};
    EXPECT_EQ(editor.lineweightTexts(), expected);
    ASSERT_EQ(comboOf(editor)->GetCount(), 28u);
    EXPECT_EQ(entry(editor, 0), "Use object lineweight");
    for (unsigned row = 0; row < 27; ++row)
        EXPECT_EQ(entry(editor, row + 1), expected[row] + " mm");
}

TEST_F(LineweightList, SwitchesTheUnitOfListAndCombo)
{
    constexpr int quarter = 8;
    EditorDriver& editor = open(namedTable());
    editor.useInches(true);
    EXPECT_EQ(editor.lineweightTexts()[quarter], "0.0098");
    EXPECT_EQ(entry(editor, quarter + 1), "0.0098\"");
    editor.useInches(false);
    EXPECT_EQ(editor.lineweightTexts()[quarter], "0.2500");
    EXPECT_EQ(entry(editor, quarter + 1), "0.2500 mm");
    EXPECT_EQ(entry(editor, 0), "Use object lineweight");
}

TEST_F(LineweightList, StoresTheUnitAndNoOtherValue)
{
    EditorDriver& editor = open(namedTable());
    editor.useInches(true);
    EXPECT_TRUE(isModified());
    save();
    EXPECT_EQ(savedChanges(), Lines{"custom_lineweight_display_units=1"});

    EditorDriver& again = open();
    EXPECT_TRUE(find<wxRadioButton>(again.dialog(), "RadLwIn")->GetValue());
    EXPECT_FALSE(find<wxRadioButton>(again.dialog(), "RadLwMm")->GetValue());
    EXPECT_EQ(again.lineweightTexts()[8], "0.0098");
    again.useInches(false);
    save();
    EXPECT_EQ(savedChanges(), Lines{});
}

TEST_F(LineweightList, KeepsTheSelectedComboEntryWhenTheUnitIsSwitched)
{
    EditorDriver& editor = open(tableOf({0.25}, {1}));
    editor.select({1});
    EXPECT_EQ(editor.shown("ComboLineWeight"), "0.2500 mm");
    editor.useInches(true);
    EXPECT_EQ(editor.shown("ComboLineWeight"), "0.0098\"");
    EXPECT_EQ(comboOf(editor)->GetSelection(), 1);
    editor.useInches(false);
    EXPECT_EQ(editor.shown("ComboLineWeight"), "0.2500 mm");
}

TEST_F(LineweightList, MarksTheLineweightsInUse)
{
    EditorDriver& editor = open(tableOf({}, {1, 3, 3, 27, 0, -1}));
    EXPECT_EQ(editor.usedLineweights(), (Rows{0, 2, 26}));
    editor.select({1});
    editor.set("ComboLineWeight", 5);
    EXPECT_EQ(editor.usedLineweights(), (Rows{2, 4, 26}));
    editor.select({2});
    editor.set("ComboLineWeight", 0);
    EXPECT_EQ(editor.usedLineweights(), (Rows{2, 4, 26})) << "another style draws with it";
    editor.select({1, 2, 3, 4, 5, 6});
    editor.set("ComboLineWeight", 2);
    EXPECT_EQ(editor.usedLineweights(), Rows{1});
}

TEST_F(LineweightList, MarksTheLineweightsInUseAfterASortAndASwitchOfTheUnit)
{
    EditorDriver& editor = open(tableOf({3, 2, 1}, {1}));
    EXPECT_EQ(editor.usedLineweights(), Rows{0});
    editor.useInches(true);
    EXPECT_EQ(editor.usedLineweights(), Rows{0});
    click(editor.dialog(), "BtnLwSort");
    EXPECT_EQ(editor.usedLineweights(), Rows{2});
}

TEST_F(LineweightList, TellsWhatTheMarksMean)
{
    EXPECT_FALSE(open(namedTable()).lineweights()->GetToolTipText().empty());
}

// --- The buttons -------------------------------------------------------------------------------

TEST_F(LineweightList, ShowsTheSortButtonForValuesOutOfOrder)
{
    const struct
    {
        Values first;
        bool shown;
    } cases[] = {
        {{}, false},       {{1, 2, 3}, false}, {{1, 1, 3}, false},
        {{2, 1, 3}, true}, {{1, 3, 2}, true},  {{1, 200}, true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(open(tableOf(c.first)).isShown("BtnLwSort"), c.shown)
            << testing::PrintToString(c.first);
}

TEST_F(LineweightList, KeepsTheSortButtonAsLoadingLeftIt)
{
    EditorDriver& shown = open(tableOf({2, 1}));
    click(shown.dialog(), "BtnLwSort");
    EXPECT_TRUE(shown.isShown("BtnLwSort"));
    EXPECT_TRUE(shown.isEnabled("BtnLwSort"));
    EditorDriver& hidden = open(tableOf({1, 2}));
    hidden.editLineweight(0, "200");
    EXPECT_FALSE(hidden.isShown("BtnLwSort"));
}

TEST_F(LineweightList, EnablesTheEditButtonForASelectedRow)
{
    EditorDriver& editor = open(namedTable());
    EXPECT_FALSE(editor.isEnabled("BtnLwEdit"));
    editor.selectLineweight(4);
    EXPECT_TRUE(editor.isEnabled("BtnLwEdit"));
    editor.lineweights()->SetItemState(4, 0, wxLIST_STATE_SELECTED);
    EXPECT_FALSE(editor.isEnabled("BtnLwEdit"));
}

TEST_F(LineweightList, StartsAnEditByTheButton)
{
    EditorDriver& editor = open(namedTable());
    editor.selectLineweight(8);
    click(editor.dialog(), "BtnLwEdit");
    wxTextCtrl* edit = editor.lineweights()->GetEditControl();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->GetValue(), "0.2500");
    editor.lineweights()->EndEditLabel(true);
}

TEST_F(LineweightList, StartsNoEditWithoutASelection)
{
    EditorDriver& editor = open(namedTable());
    editor.forceClick("BtnLwEdit");
    EXPECT_EQ(editor.lineweights()->GetEditControl(), nullptr);
    EXPECT_FALSE(isModified());
}

// --- Editing -----------------------------------------------------------------------------------

TEST_F(LineweightList, AcceptsValuesWithinTheLimits)
{
    const struct
    {
        const char* text;
        bool inches;
        double value;
    } cases[] = {
        {"200", false, 200.0},      {"-0.00004", false, 0.0},  {"0", false, 0.0},
        {"0.15625", false, 0.1563}, {"7.874", true, 199.9996}, {"0.5", true, 12.7},
    };
    for (const auto& c : cases)
    {
        EditorDriver& editor = open(namedTable());
        editor.useInches(c.inches);
        EXPECT_TRUE(editor.editLineweight(26, c.text));
        const int row = editor.selectedLineweight();
        EXPECT_TRUE(isModified());
        save();
        EXPECT_DOUBLE_EQ(savedTable()->lineweightAt(row), c.value) << c.text;
        EXPECT_EQ(takeErrors(), Lines{}) << c.text;
    }
}

TEST_F(LineweightList, RefusesValuesOutsideTheLimits)
{
    const struct
    {
        const char* text;
        bool inches;
    } cases[] = {
        {"200.0001", false}, {"-0.0001", false}, {"-1", false},  {"999", false},
        {"abc", false},      {"1 mm", false},    {"nan", false}, {"inf", true},
        {"1e300", true},     {"7.8741", true},   {"-1", true},   {"1\"", true},
    };
    for (const auto& c : cases)
    {
        OdPsPlotStyleTablePtr table = namedTable();
        table->setDisplayCustomLineweightUnits(c.inches);
        EditorDriver& editor = open(table);
        const Lines before = editor.lineweightTexts();
        EXPECT_TRUE(editor.editLineweight(8, c.text));
        EXPECT_EQ(takeErrors(), Lines{limitMessage}) << c.text;
        EXPECT_EQ(editor.lineweightTexts(), before) << c.text;
        EXPECT_EQ(editor.selectedLineweight(), 8);
        EXPECT_FALSE(isModified()) << c.text;
    }
}

TEST_F(LineweightList, TakesAnEmptyTextForNoChange)
{
    EditorDriver& editor = open(namedTable());
    EXPECT_TRUE(editor.editLineweight(8, ""));
    EXPECT_EQ(editor.lineweightTexts()[8], "") << "until the next refresh";
    editor.useInches(true);
    editor.useInches(false);
    EXPECT_EQ(editor.lineweightTexts()[8], "0.2500");
}

TEST_F(LineweightList, IsNotModifiedByAnEmptyText)
{
    EditorDriver& editor = open(namedTable());
    editor.editLineweight(8, "");
    EXPECT_FALSE(isModified());
}

TEST_F(LineweightList, ShowsTheRefreshedTextInsteadOfTheTypedOne)
{
    EditorDriver& editor = open(tableOf({1, 2, 3}));
    editor.editLineweight(1, " 2.50001");
    EXPECT_EQ(firstTexts(editor, 3), (Lines{"1.0000", "2.5000", "3.0000"}));
    editor.useInches(true);
    editor.editLineweight(1, "0.1");
    EXPECT_EQ(firstTexts(editor, 3), (Lines{"0.0394", "0.1000", "0.1181"}));
}

TEST_F(LineweightList, StoresTheRoundedDisplayOfACancelledEditInInches)
{
    EditorDriver& editor = open(tableOf({0.1, 0.25, 1}));
    editor.useInches(true);
    editor.cancelLineweightEdit(1);
    save();
    EXPECT_EQ(savedLineweights(3), (Values{0.1, 0.2489, 1}));
}

TEST_F(LineweightList, IsModifiedByACancelledEdit)
{
    OdPsPlotStyleTablePtr table = tableOf({0.1, 0.25, 1});
    for (const bool inches : {true, false})
    {
        table->setDisplayCustomLineweightUnits(inches);
        EditorDriver& editor = open(table);
        editor.cancelLineweightEdit(1);
        EXPECT_TRUE(isModified());
    }
}

TEST_F(LineweightList, RoundsTheValueOfACancelledEditInMillimetres)
{
    EditorDriver& editor = open(tableOf({0.1, 0.250049, 1}));
    editor.cancelLineweightEdit(0);
    editor.cancelLineweightEdit(1);
    save();
    EXPECT_EQ(savedLineweights(3), (Values{0.1, 0.25, 1}));
}

TEST_F(LineweightList, SortsAfterEveryEdit)
{
    EditorDriver& editor = open(tableOf({1, 2, 3, 4}, {1, 2, 3}));
    editor.editLineweight(0, "3.5");
    EXPECT_EQ(firstTexts(editor), (Lines{"2.0000", "3.0000", "3.5000", "4.0000"}));
    EXPECT_EQ(editor.selectedLineweight(), 2);
    save();
    EXPECT_EQ(savedLineweights(), (Values{2, 3, 3.5, 4}));
    EXPECT_EQ(savedReferences(), (Values{3, 1, 2}));
}

// --- Sorting -----------------------------------------------------------------------------------

TEST_F(LineweightList, SortsAscendingAndLetsTheStylesFollow)
{
    EditorDriver& editor = open(tableOf({4, 1, 3, 2}, {1, 2, 3, 4, 0, 5}));
    click(editor.dialog(), "BtnLwSort");
    EXPECT_EQ(firstTexts(editor), (Lines{"1.0000", "2.0000", "3.0000", "4.0000"}));
    EXPECT_EQ(entry(editor, 1), "1.0000 mm");
    EXPECT_EQ(entry(editor, 4), "4.0000 mm");
    save();
    EXPECT_EQ(savedLineweights(), (Values{1, 2, 3, 4}));
    EXPECT_EQ(savedReferences(), (Values{4, 1, 3, 2, -1, 5}));
}

TEST_F(LineweightList, GivesTheSecondSmallestValueTheSecondPlace)
{
    EditorDriver& editor = open(tableOf({9, 8, 7}, {2}));
    click(editor.dialog(), "BtnLwSort");
    save();
    EXPECT_EQ(savedReferences(), Values{2});
    EXPECT_EQ(savedLineweights(3), (Values{7, 8, 9}));
}

TEST_F(LineweightList, ChangesOnlyWhatMovedInTheFile)
{
    EditorDriver& editor = open(tableOf({2, 1, 3}, {1, 3, 0}));
    click(editor.dialog(), "BtnLwSort");
    save();
    EXPECT_EQ(savedChanges(), (Lines{"plot_style/1/lineweight=2", "custom_lineweight_table/0=1.0",
                                     "custom_lineweight_table/1=2.0"}));
}

TEST_F(LineweightList, MarksASortOfSortedValuesModifiedAndChangesNothing)
{
    EditorDriver& editor = open(tableOf({1, 2, 3}, {1, 3}));
    editor.forceClick("BtnLwSort");
    EXPECT_TRUE(isModified());
    save();
    EXPECT_EQ(savedChanges(), Lines{});
}

TEST_F(LineweightList, TradesThePlacesOfTwoEqualValuesAndTheStylesReferences)
{
    EditorDriver& editor = open(tableOf({1, 1, 2}, {1, 2, 3}));
    editor.forceClick("BtnLwSort");
    save();
    EXPECT_EQ(savedLineweights(3), (Values{1, 1, 2}));
    EXPECT_EQ(savedReferences(), (Values{2, 1, 3}));
}

TEST_F(LineweightList, GivesReferencesPastTheEndTheObjectsLineweight)
{
    const OdPsPlotStyleTablePtr table = tableOf({2, 1}, {40, 28, 1});
    EditorDriver& editor = open(table);
    EXPECT_EQ(editor.usedLineweights(), Rows{0}) << "marks for shown rows only";
    click(editor.dialog(), "BtnLwSort");
    save();
    EXPECT_EQ(savedReferences(), (Values{-1, -1, 2})) << "a stored 0 reads as -1";
}

TEST_F(LineweightList, KeepsReferencesPastTheEndWithoutASort)
{
    EditorDriver& editor = open(tableOf({}, {40, 28}));
    editor.select({2});
    editor.set("SpinScreening", 50);
    save();
    EXPECT_EQ(savedChanges(), Lines{"plot_style/2/screen=50"});
    EXPECT_EQ(savedReferences(), (Values{40, 28}));
}

TEST_F(LineweightList, KeepsTheComboOnItsValueThroughASort)
{
    EditorDriver& editor = open(tableOf({4, 1, 3, 2}, {1}));
    editor.select({1});
    ASSERT_EQ(editor.shown("ComboLineWeight"), "4.0000 mm");
    click(editor.dialog(), "BtnLwSort");
    EXPECT_EQ(editor.shown("ComboLineWeight"), "4.0000 mm");
    EXPECT_EQ(comboOf(editor)->value(), 4);
}

TEST_F(LineweightList, MovesTheSelectionWithItsValue)
{
    for (const auto& [before, after] : {std::pair(0, 3), std::pair(1, 0), std::pair(3, 1)})
    {
        EditorDriver& editor = open(tableOf({4, 1, 3, 2}));
        editor.selectLineweight(before);
        click(editor.dialog(), "BtnLwSort");
        EXPECT_EQ(editor.selectedLineweight(), after);
    }
}

TEST_F(LineweightList, KeepsTheComboOnItsValueWhenAnEditMovesIt)
{
    EditorDriver& editor = open(tableOf({1, 2, 3}, {1, 2}));
    editor.select({2});
    editor.editLineweight(0, "2.5");
    EXPECT_EQ(editor.shown("ComboLineWeight"), "2.0000 mm");
    EXPECT_EQ(comboOf(editor)->value(), 1);
    editor.select({1});
    EXPECT_EQ(editor.shown("ComboLineWeight"), "2.5000 mm");
}

TEST_F(LineweightList, KeepsTheFirstComboEntryThroughASort)
{
    EditorDriver& editor = open(tableOf({2, 1}, {0}));
    editor.select({1});
    click(editor.dialog(), "BtnLwSort");
    EXPECT_EQ(editor.shown("ComboLineWeight"), "Use object lineweight");
}

TEST_F(LineweightList, LeavesVaryingComboEntriesThroughASort)
{
    EditorDriver& editor = open(tableOf({2, 1}, {1, 2}));
    editor.select({1, 2});
    click(editor.dialog(), "BtnLwSort");
    EXPECT_EQ(editor.shown("ComboLineWeight"), "Varies");
    editor.useInches(true);
    EXPECT_EQ(editor.shown("ComboLineWeight"), "Varies");
    EXPECT_EQ(comboOf(editor)->GetSelection(), wxNOT_FOUND);
}

// --- Tables that do not have 27 lineweights ----------------------------------------------------

TEST_F(LineweightList, ShowsTheFirst27OfMoreLineweights)
{
    store(fileWithManyLineweights(30, 27, 30), "stb");
    EditorDriver& editor = open();
    ASSERT_EQ(editor.lineweightTexts().size(), 27u);
    EXPECT_EQ(editor.lineweightTexts().back(), "27.0000");
    EXPECT_EQ(comboOf(editor)->GetCount(), 28u);
    EXPECT_EQ(editor.usedLineweights(), Rows{26});
    editor.select({1});
    EXPECT_EQ(editor.shown("ComboLineWeight"), "27.0000 mm");
    editor.select({2});
    EXPECT_EQ(editor.shown("ComboLineWeight"), "");
    editor.useInches(true);
    EXPECT_EQ(editor.shown("ComboLineWeight"), "");
}

TEST_F(LineweightList, KeepsTheLineweightsThatItDoesNotShow)
{
    store(fileWithManyLineweights(30, 27, 30), "stb");
    EditorDriver& editor = open();
    editor.editLineweight(0, "1.5");
    save();
    EXPECT_EQ(savedChanges(), Lines{"custom_lineweight_table/0=1.5"});
}

// The largest values go behind the rows that the editor shows.
TEST_F(LineweightList, SortsTheLineweightsThatItDoesNotShow)
{
    store(fileWithManyLineweights(30, 1, 30), "stb");
    EditorDriver& editor = open();
    editor.select({1});
    ASSERT_EQ(editor.shown("ComboLineWeight"), "1.0000 mm");
    editor.editLineweight(0, "200");
    EXPECT_EQ(editor.lineweightTexts().front(), "2.0000");
    EXPECT_EQ(editor.lineweightTexts().back(), "28.0000");
    save();
    EXPECT_EQ(savedTable()->lineweightAt(29), 200.0);
    EXPECT_EQ(savedReferences(), (Values{30, 29}));
}

// --- Without a table ---------------------------------------------------------------------------

TEST_F(LineweightList, IsBlankAndIdleWithoutATable)
{
    store("no table", "stb");
    answers.press(wxID_OK);
    EditorDriver& editor = open();
    const Lines blank(27);
    EXPECT_EQ(editor.lineweightTexts(), blank);
    EXPECT_EQ(editor.usedLineweights(), Rows{});
    EXPECT_FALSE(editor.isShown("BtnLwSort"));
    EXPECT_FALSE(editor.editLineweight(3, "1"));
    editor.forceClick("BtnLwSort");
    editor.useInches(true);
    EXPECT_EQ(editor.lineweightTexts(), blank);
    for (unsigned row = 1; row <= 27; ++row)
        EXPECT_EQ(entry(editor, row), "");
    EXPECT_FALSE(isModified());
}

TEST_F(LineweightList, ForgetsTheLineweightsOfTheTableBefore)
{
    EditorDriver& editor = open(tableOf({2, 1}, {1}));
    const wxString other = folder.file("broken.stb");
    writeBytes(other, "no table");
    answers.choose(other);
    answers.press(wxID_OK);
    click(editor.dialog(), "BtnOpen");
    EXPECT_EQ(editor.lineweightTexts(), Lines(27));
    EXPECT_EQ(editor.usedLineweights(), Rows{});
    EXPECT_FALSE(editor.isShown("BtnLwSort"));
}

// --- On the screen -----------------------------------------------------------------------------

namespace
{

// Types into a row and leaves the edit open.
void startEdit(EditorDriver& editor, int row, const wxString& text)
{
    editor.selectLineweight(row);
    wxTextCtrl* edit = editor.lineweights()->EditLabel(row);
    ASSERT_NE(edit, nullptr);
    ASSERT_TRUE(focus(edit));
    edit->SetValue(text);
}

// Types into a row and takes the focus away from the edit.
void leaveEdit(EditorDriver& editor, int row, const wxString& text)
{
    startEdit(editor, row, text);
    find<wxWindow>(editor.dialog(), "BtnLwEdit")->SetFocus();
    EXPECT_TRUE(waitFor([&editor] { return !editor.lineweights()->GetEditControl(); }));
}

} // namespace

// The end of an edit by the loss of the focus, when it is refused, is followed by a second end.
TEST_F(LineweightList, ChangesNothingByARefusedEditWhenTheFocusGoes)
{
    OdPsPlotStyleTablePtr table = tableOf({0.1, 0.25, 1});
    table->setDisplayCustomLineweightUnits(true);
    show(table,
         [this](EditorDriver& editor)
         {
             leaveEdit(editor, 1, "999");
             EXPECT_EQ(takeErrors(), Lines{limitMessage});
             EXPECT_EQ(editor.lineweightTexts()[1], "0.0098");
             editor.closeUnasked();
         });
    EXPECT_EQ(savedChanges(), Lines{});
}

TEST_F(LineweightList, ChangesNoNeighbourByAnEditWhenTheFocusGoes)
{
    OdPsPlotStyleTablePtr table = tableOf({0.1, 0.25, 0.35001, 1});
    table->setDisplayCustomLineweightUnits(true);
    show(table,
         [](EditorDriver& editor)
         {
             leaveEdit(editor, 1, "0.5");
             click(editor.dialog(), wxID_OK);
         });
    EXPECT_EQ(savedLineweights(), (Values{0.1, 0.35001, 1, 12.7}));
}

TEST_F(LineweightList, StoresAnEditOnceAfterARefusedOne)
{
    show(tableOf({1, 2, 3, 4}),
         [this](EditorDriver& editor)
         {
             leaveEdit(editor, 1, "999");
             EXPECT_EQ(takeErrors(), Lines{limitMessage});
             leaveEdit(editor, 1, "2.5");
             click(editor.dialog(), wxID_OK);
         });
    EXPECT_EQ(savedLineweights(), (Values{1, 2.5, 3, 4}));
}

// A mnemonic presses the button while the edit goes on.
TEST_F(LineweightList, SavesTheValueThatIsBeingTyped)
{
    show(tableOf({1, 2, 3, 4}),
         [](EditorDriver& editor)
         {
             startEdit(editor, 1, "2.5");
             click(editor.dialog(), wxID_OK);
         });
    EXPECT_EQ(savedLineweights(), (Values{1, 2.5, 3, 4}));
}

TEST_F(LineweightList, ScrollsToAValueThatMoved)
{
    show(namedTable(),
         [](EditorDriver& editor)
         {
             editor.turnTo(EditorDriver::Lineweights);
             ASSERT_TRUE(waitFor([&editor] { return isVisible(editor.lineweights(), 0); }));
             ASSERT_FALSE(isVisible(editor.lineweights(), 26));
             editor.editLineweight(0, "200");
             EXPECT_EQ(editor.selectedLineweight(), 26);
             EXPECT_TRUE(waitFor([&editor] { return isVisible(editor.lineweights(), 26); }));
         });
}

namespace
{

bool isOpaque(const wxImage& image, int x, int y)
{
    return !image.HasAlpha() || image.GetAlpha(x, y) == wxALPHA_OPAQUE;
}

wxColour colourAt(const wxImage& image, int x, int y)
{
    return {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)};
}

int count(const wxImage& image, const wxColour& ink)
{
    int pixels = 0;
    for (int y = 0; y < image.GetHeight(); ++y)
        for (int x = 0; x < image.GetWidth(); ++x)
            pixels += isOpaque(image, x, y) && colourAt(image, x, y) == ink;
    return pixels;
}

wxImage picture(const char* name)
{
    return wxXmlResource::Get()->LoadBitmap(name).ConvertToImage();
}

wxImage faceOf(wxWindow* control)
{
    control->Refresh();
    control->Update();
    return screenImage(*control);
}

} // namespace

// The pictures are bars of one colour; how much of it the closed field shows tells which one it is.
TEST_F(LineweightList, DrawsEveryLineweightWithItsPicture)
{
    const struct
    {
        double millimeters;
        const char* picture;
    } cases[] = {
        {0.0, "BmpLineWeight01"},   {0.32, "BmpLineWeight01"}, {0.34, "BmpLineWeight02"},
        {2.11, "BmpLineWeight10"},  {2.9, "BmpLineWeight13"},  {3.0, "BmpLineWeight14"},
        {200.0, "BmpLineWeight14"},
    };
    Values values;
    for (const auto& c : cases)
        values.push_back(c.millimeters);
    show(tableOf(values, {1}),
         [&cases](EditorDriver& editor)
         {
             const wxImage fullest = picture("BmpLineWeight14");
             const wxColour ink =
                 colourAt(fullest, fullest.GetWidth() / 2, fullest.GetHeight() / 2);
             editor.select({1});
             auto* combo = comboOf(editor);
             int entry = 1;
             for (const auto& c : cases)
             {
                 editor.set("ComboLineWeight", entry++);
                 const int expected = count(picture(c.picture), ink);
                 ASSERT_GT(expected, 0) << c.picture;
                 EXPECT_TRUE(waitFor([&] { return count(faceOf(combo), ink) == expected; }))
                     << c.millimeters << " is not shown as " << c.picture;
             }
         });
}
