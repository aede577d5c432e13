// The editor's style list.

#include "support/editor_driver.h"
#include "support/image_colours.h"
#include "support/tables.h"

#include <wx/imaglist.h>
#include <wx/listctrl.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

namespace
{

using Names = std::vector<std::string>;
using Rows = std::vector<int>;

const char* const styleButtons[] = {"BtnStyleAddGrid", "BtnStyleDelGrid", "BtnStyleAddForm",
                                    "BtnStyleDelForm"};

const char* const invalidCharacters = "<>/\\\":?*|,=`;";

std::string duplicateMessage(const std::string& name)
{
    return "A style named '" + name + "' already exists. Please enter a unique style name.";
}

std::string characterMessage()
{
    return std::string("A style name cannot contain any of the following characters: ") +
           invalidCharacters;
}

Names namesOf(const OdPsPlotStyleTable& table)
{
    Names names;
    for (int i = 0; i < table.styleCount(); ++i)
        names.push_back(wxString(table.styleAt(i)->name().c_str()).utf8_string());
    return names;
}

Names localizedNamesOf(const OdPsPlotStyleTable& table)
{
    Names names;
    for (int i = 0; i < table.styleCount(); ++i)
        names.push_back(wxString(table.styleAt(i)->localizedName().c_str()).utf8_string());
    return names;
}

// The middle of a row on the screen.
wxPoint centreOf(const wxListCtrl* list, int row)
{
    wxRect rect;
    list->GetItemRect(row, rect);
    return list->ClientToScreen(rect.GetPosition() + wxPoint(10, rect.height / 2));
}

class StyleList : public EditorDriverTest
{
protected:
    // Adds a style under a name by a click and an answered prompt.
    void add(EditorDriver& editor, const wxString& name)
    {
        answers.type(name);
        click(editor.dialog(), "BtnStyleAddForm");
    }
};

// Types a name into the first style behind "Normal" and leaves the edit open.
void startToRename(EditorDriver& editor, const char* name)
{
    editor.select({1});
    wxTextCtrl* edit = editor.styles()->EditLabel(1);
    ASSERT_NE(edit, nullptr);
    ASSERT_TRUE(focus(edit));
    edit->SetValue(name);
}

// A table with a style of its own kind in the middle.
OdPsPlotStyleTablePtr tableWithModel()
{
    OdPsPlotStyleTablePtr table = namedTable({L"First", L"Model", L"Last"});
    table->styleAt(2)->setDescription(L"of the model");
    support::changeData(*table, 2,
                        [](OdPsPlotStyleData& data)
                        {
                            data.color = OdCmEntityColor(10, 20, 30);
                            data.colorPolicy = 5;
                            data.screening = 40;
                            data.linePatternSize = 0.5;
                            data.lineweight = 9;
                        });
    return table;
}

constexpr int modelRow = 2;

} // namespace

// --- Listing -----------------------------------------------------------------------------------

TEST_F(StyleList, NamesTheColoursOfAColorDependentTable)
{
    EditorDriver& editor = open(colorTable());
    Names expected;
    for (int color = 1; color <= 255; ++color)
        expected.push_back("Color " + std::to_string(color));
    EXPECT_EQ(editor.styleNames(), expected);
}

TEST_F(StyleList, ShowsASwatchForEveryColour)
{
    const EditorDriver& editor = open(colorTable());
    const wxListCtrl* list = editor.styles();
    const wxImageList* swatches = list->GetImageList(wxIMAGE_LIST_SMALL);
    ASSERT_NE(swatches, nullptr);
    ASSERT_EQ(swatches->GetImageCount(), 255);
    constexpr int black = 7;
    for (int color = 1; color <= 255; ++color)
    {
        const std::uint32_t rgb = color == black ? 0 : OdCmEntityColor::lookUpRGB(color);
        EXPECT_EQ(imageOf(list, color - 1), color - 1);
        EXPECT_EQ(coloursOf(swatches->GetBitmap(color - 1).ConvertToImage()).count(rgb), 1u)
            << color;
    }
}

TEST_F(StyleList, HidesTheButtonsOfAColorDependentTable)
{
    const EditorDriver& editor = open(colorTable());
    for (const char* name : styleButtons)
        EXPECT_FALSE(editor.isShown(name)) << name;
}

TEST_F(StyleList, RefusesToRenameAColour)
{
    EditorDriver& editor = open(colorTable());
    for (int row = 0; row < 255; ++row)
        ASSERT_FALSE(editor.rename(row, "Red")) << row;
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, IgnoresTheHiddenButtonsOfAColorDependentTable)
{
    EditorDriver& editor = open(colorTable());
    editor.select({3});
    for (const char* name : styleButtons)
        editor.forceClick(name);
    EXPECT_EQ(editor.styleNames().size(), 255u);
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, OfANewNamedTableHoldsNormalAlone)
{
    file = folder.file("new.stb");
    EditorDriver& editor = open();
    EXPECT_EQ(editor.styleNames(), Names{"Normal"});
    EXPECT_EQ(editor.styles()->GetImageList(wxIMAGE_LIST_SMALL), nullptr);
    for (const char* name : styleButtons)
        EXPECT_TRUE(editor.isShown(name)) << name;
    editor.select({0});
    EXPECT_FALSE(editor.isEnabled("BtnStyleDelForm"));
    EXPECT_FALSE(editor.rename(0, "Other"));
    EXPECT_EQ(editor.styleNames(), Names{"Normal"});
}

TEST_F(StyleList, ShowsLocalizedNamesInTheOrderOfTheTable)
{
    const OdPsPlotStyleTablePtr table = namedTable({L"zebra", L"apple", L"Mango"});
    table->styleAt(1)->setLocalizedName(L"Z\u00E9bra");
    const EditorDriver& editor = open(table);
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "Z\u00E9bra", "apple", "Mango"}));
}

TEST_F(StyleList, IsRefilledWhenAnotherTableIsOpened)
{
    EditorDriver& editor = open(colorTable());
    editor.select({3, 4});
    const wxString other = folder.file("other.stb");
    cma::savePlotStyleTable(OdString(other.wc_str()), namedTable({L"A"}));
    answers.choose(other);
    click(editor.dialog(), "BtnOpen");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A"}));
    EXPECT_EQ(editor.selected(), Rows{});
    EXPECT_EQ(imageOf(editor.styles(), 1), -1);
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 2");
    for (const char* name : styleButtons)
        EXPECT_TRUE(editor.isShown(name)) << name;
    // The list's own images must not be gone with the first table's.
    answers.choose(file);
    click(editor.dialog(), "BtnOpen");
    EXPECT_EQ(editor.styleNames().size(), 255u);
    EXPECT_EQ(imageOf(editor.styles(), 254), 254);
}

TEST_F(StyleList, IsEmptyWithoutATable)
{
    store("no table", "stb");
    answers.press(wxID_OK);
    EditorDriver& editor = open();
    EXPECT_EQ(editor.styleNames(), Names{});
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 0");
    for (const char* name : styleButtons)
    {
        EXPECT_FALSE(editor.isShown(name)) << name;
        editor.forceClick(name);
    }
    EXPECT_EQ(editor.styleNames(), Names{});
    EXPECT_EQ(answers.shown().size(), 1u) << "no prompt, only the message that there is no table";
}

// --- Adding ------------------------------------------------------------------------------------

TEST_F(StyleList, AsksForTheNameOfANewStyle)
{
    EditorDriver& editor = open(namedTable({L"A", L"B"}));
    add(editor, "C");
    ASSERT_EQ(answers.shown().size(), 1u);
    const ShownDialog& prompt = answers.shown().front();
    EXPECT_EQ(prompt.className, "wxTextEntryDialog");
    EXPECT_EQ(prompt.message, "Enter style name:");
    EXPECT_EQ(prompt.caption, "Add Plot Style");
    EXPECT_EQ(prompt.value, "Style 3");
}

TEST_F(StyleList, ProposesANameByTheNumberOfStyles)
{
    EditorDriver& editor = open(namedTable());
    for (int count = 1; count <= 3; ++count)
    {
        const std::string name = "Style " + std::to_string(count);
        add(editor, name);
        EXPECT_EQ(answers.shown().back().value, name);
    }
}

TEST_F(StyleList, AppendsADefaultStyleWhenNothingIsSelected)
{
    EditorDriver& editor = open(tableWithModel());
    editor.select({});
    add(editor, "Style 4");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "Model", "Last", "Style 4"}));
    EXPECT_EQ(editor.selected(), Rows{4});
    save();
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "First", "Model", "Last", "Style 4"}));
    EXPECT_EQ(localizedNamesOf(*savedTable()), namesOf(*savedTable()));
    EXPECT_TRUE(savedData(4) == OdPsPlotStyleData());
}

TEST_F(StyleList, InsertsACopyBehindTheOneSelectedStyle)
{
    EditorDriver& editor = open(tableWithModel());
    editor.select({modelRow});
    const Shown model = editor.fields();
    add(editor, "Copy");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "Model", "Copy", "Last"}));
    EXPECT_EQ(editor.selected(), Rows{3});
    EXPECT_EQ(editor.fields(), model);
    save();
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "First", "Model", "Copy", "Last"}));
    EXPECT_TRUE(savedData(3) == savedData(modelRow));
    EXPECT_EQ(savedTable()->styleAt(3)->description(), L"of the model");
}

TEST_F(StyleList, AppendsACopyOfTheLastStyle)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.select({1});
    editor.set("SpinScreening", 30);
    add(editor, "B");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A", "B"}));
    save();
    EXPECT_EQ(savedData(2).screening, 30);
}

TEST_F(StyleList, InsertsACopyBehindNormal)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.select({0});
    add(editor, "B");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "B", "A"}));
    EXPECT_TRUE(editor.isEnabled("SpinScreening"));
    save();
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "B", "A"}));
}

TEST_F(StyleList, AppendsADefaultStyleWhenSeveralAreSelected)
{
    EditorDriver& editor = open(tableWithModel());
    editor.select({1, modelRow});
    add(editor, "New");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "Model", "Last", "New"}));
    EXPECT_EQ(editor.selected(), Rows{4});
    save();
    EXPECT_TRUE(savedData(4) == OdPsPlotStyleData());
    EXPECT_TRUE(savedTable()->styleAt(4)->description().isEmpty());
}

// The selection of a page that is not current does not count.
TEST_F(StyleList, AppendsADefaultStyleFromAnotherPage)
{
    for (const char* button : {"BtnStyleAddForm", "BtnStyleAddGrid"})
    {
        EditorDriver& editor = open(tableWithModel());
        editor.select({modelRow});
        editor.turnTo(EditorDriver::General);
        answers.type("New");
        editor.forceClick(button);
        EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "Model", "Last", "New"}));
    }
}

TEST_F(StyleList, HasTwinButtonsForTheGrid)
{
    EditorDriver& editor = open(tableWithModel());
    editor.select({1});
    answers.type("New");
    editor.forceClick("BtnStyleAddGrid");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "New", "Model", "Last"}));
    editor.forceClick("BtnStyleDelGrid");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "Model", "Last"}));
}

TEST_F(StyleList, AddsNothingWithoutAName)
{
    EditorDriver& editor = open(namedTable());
    add(editor, "");
    answers.press(wxID_CANCEL);
    click(editor.dialog(), "BtnStyleAddForm");
    EXPECT_EQ(editor.styleNames(), Names{"Normal"});
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, RefusesToAddANameThatDiffersInCaseAlone)
{
    EditorDriver& editor = open(namedTable({L"Style 1"}));
    for (const char* name : {"normal", "NORMAL", "Normal", "STYLE 1"})
    {
        add(editor, name);
        EXPECT_EQ(takeErrors(), Names{duplicateMessage(name)});
    }
    EXPECT_EQ(answers.shown().size(), 4u) << "the prompt is not shown again";
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "Style 1"}));
    EXPECT_FALSE(isModified());
}

// Only a rename looks at the characters.
TEST_F(StyleList, AddsNamesWithAnyCharacters)
{
    EditorDriver& editor = open(namedTable());
    add(editor, invalidCharacters);
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", invalidCharacters}));
    save();
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", invalidCharacters}));
}

TEST_F(StyleList, MarksTheTableModifiedByAdding)
{
    EditorDriver& editor = open(namedTable());
    add(editor, "A");
    EXPECT_TRUE(isModified());
}

// --- Deleting ----------------------------------------------------------------------------------

TEST_F(StyleList, DeletesTheSelectedStylesButNotNormal)
{
    EditorDriver& editor = open(namedTable({L"1", L"2", L"3", L"4", L"5", L"6"}));
    editor.select({0, 3, 5});
    click(editor.dialog(), "BtnStyleDelForm");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "1", "2", "4", "6"}));
    save();
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "1", "2", "4", "6"}));
}

TEST_F(StyleList, KeepsARightSelectionAfterDeleting)
{
    EditorDriver& editor = open(namedTable({L"1", L"2", L"3", L"4", L"5"}));
    editor.select({0, 3, 5});
    click(editor.dialog(), "BtnStyleDelForm");
    EXPECT_EQ(editor.selected(), Rows{0});
    EXPECT_EQ(editor.styles()->GetSelectedItemCount(), 1);
    editor.select({1, 2});
    click(editor.dialog(), "BtnStyleDelForm");
    EXPECT_EQ(editor.selected(), Rows{});
    EXPECT_EQ(editor.styles()->GetSelectedItemCount(), 0);
    for (const char* name : propertyControls)
        EXPECT_FALSE(editor.isEnabled(name)) << name;
    editor.select({1});
    EXPECT_EQ(editor.styles()->GetSelectedItemCount(), 1);
}

TEST_F(StyleList, EditsTheRightStylesAfterDeleting)
{
    EditorDriver& editor = open(namedTable({L"1", L"2", L"3"}));
    editor.select({1});
    click(editor.dialog(), "BtnStyleDelForm");
    editor.select({1});
    editor.set("SpinScreening", 20);
    save();
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "2", "3"}));
    EXPECT_EQ(savedData(1).screening, 20);
    EXPECT_EQ(savedData(2).screening, 100);
}

TEST_F(StyleList, EnablesTheDeleteButtonForEverySelectionButNormalAlone)
{
    EditorDriver& editor = open(namedTable({L"A", L"B"}));
    const struct
    {
        Rows rows;
        bool enabled;
    } cases[] = {{{}, false}, {{0}, false}, {{1}, true}, {{0, 1}, true}, {{0, 1, 2}, true}};
    for (const auto& c : cases)
    {
        editor.select(c.rows);
        EXPECT_EQ(editor.isEnabled("BtnStyleDelForm"), c.enabled) << testing::PrintToString(c.rows);
        EXPECT_TRUE(editor.isEnabled("BtnStyleDelGrid"));
    }
}

TEST_F(StyleList, DeletesNothingFromAnotherPage)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.select({1});
    editor.turnTo(EditorDriver::General);
    editor.forceClick("BtnStyleDelForm");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A"}));
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, MarksTheTableModifiedByDeleting)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.select({1});
    click(editor.dialog(), "BtnStyleDelForm");
    EXPECT_TRUE(isModified());
}

TEST_F(StyleList, DeletesNothingWithoutASelection)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.select({});
    editor.forceClick("BtnStyleDelForm");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A"}));
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, CountsTheStylesAfterEveryChange)
{
    EditorDriver& editor = open(namedTable());
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 1");
    add(editor, "A");
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 2");
    add(editor, "B");
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 3");
    editor.rename(1, "C");
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 3");
    editor.select({0, 1, 2});
    click(editor.dialog(), "BtnStyleDelForm");
    EXPECT_EQ(editor.label("StatNumStyles"), "Number of styles: 1");
}

// --- Renaming ----------------------------------------------------------------------------------

TEST_F(StyleList, RenamesAStyle)
{
    EditorDriver& editor = open(tableWithModel());
    EXPECT_TRUE(editor.rename(modelRow, "Renamed"));
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "First", "Renamed", "Last"}));
    EXPECT_TRUE(isModified());
    save();
    EXPECT_EQ(savedChanges(),
              (Names{"plot_style/2/name=\"Renamed", "plot_style/2/localized_name=\"Renamed"}));
}

TEST_F(StyleList, MakesTheOldNameFreeByARename)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.rename(1, "B");
    add(editor, "b");
    EXPECT_EQ(takeErrors(), Names{duplicateMessage("b")});
    editor.select({});
    add(editor, "A");
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "B", "A"}));
    editor.rename(1, "C");
    editor.rename(2, "B");
    save();
    EXPECT_EQ(localizedNamesOf(*savedTable()), (Names{"Normal", "C", "B"}));
}

TEST_F(StyleList, RefusesEveryInvalidCharacterInANewName)
{
    EditorDriver& editor = open(namedTable({L"Style 1"}));
    Names names = {"a/b"};
    for (const char* c = invalidCharacters; *c; ++c)
        names.push_back(std::string(1, *c));
    ASSERT_EQ(names.size(), 14u);
    for (const std::string& name : names)
    {
        EXPECT_TRUE(editor.rename(1, name));
        EXPECT_EQ(takeErrors(), Names{characterMessage()}) << name;
        EXPECT_EQ(editor.styleNames(), (Names{"Normal", "Style 1"})) << name;
    }
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, AcceptsEveryOtherCharacterInANewName)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    const wxString name = L"%ls %d %s !#$&'()+-.@[]^_{}~ \u00E4\u4E2D";
    EXPECT_TRUE(editor.rename(1, name));
    EXPECT_EQ(editor.styleNames().back(), name.utf8_string());
    save();
    EXPECT_EQ(namesOf(*savedTable()).back(), name.utf8_string());
}

TEST_F(StyleList, LooksAtTheCharactersBeforeTheOtherNames)
{
    const OdPsPlotStyleTablePtr table = namedTable({L"A", L"a/b"});
    EditorDriver& editor = open(table);
    editor.rename(1, "A/B");
    EXPECT_EQ(takeErrors(), Names{characterMessage()});
}

TEST_F(StyleList, RefusesANameThatAStyleHas)
{
    EditorDriver& editor = open(namedTable({L"Style 1", L"Style 2"}));
    for (const char* name : {"Style 2", "style 2", "NORMAL", "style 1", "STYLE 1"})
    {
        EXPECT_TRUE(editor.rename(1, name));
        EXPECT_EQ(takeErrors(), Names{duplicateMessage(name)});
        EXPECT_EQ(editor.styleNames(), (Names{"Normal", "Style 1", "Style 2"}));
    }
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, ReportsNamesWithPercentSignsAsTheyAre)
{
    EditorDriver& editor = open(namedTable({L"100%s", L"A"}));
    editor.rename(2, "100%S");
    EXPECT_EQ(takeErrors(), Names{duplicateMessage("100%S")});
}

TEST_F(StyleList, TakesARenameToTheSameNameForNone)
{
    EditorDriver& editor = open(namedTable({L"Style 1", L"a/b"}));
    EXPECT_TRUE(editor.rename(1, "Style 1"));
    EXPECT_TRUE(editor.rename(2, "a/b")) << "even when the name could not be given anew";
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "Style 1", "a/b"}));
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, KeepsTheNameOfAStyleWhenTheTextIsEmptied)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    EXPECT_TRUE(editor.rename(1, ""));
    EXPECT_FALSE(isModified());
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "A"}));
}

TEST_F(StyleList, TakesACancelledRenameForNone)
{
    EditorDriver& editor = open(namedTable({L"A"}));
    editor.turnTo(EditorDriver::FormView);
    wxTextCtrl* edit = editor.styles()->EditLabel(1);
    ASSERT_NE(edit, nullptr);
    edit->SetValue("B");
    editor.styles()->EndEditLabel(true);
    EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A"}));
    EXPECT_FALSE(isModified());
}

TEST_F(StyleList, KeepsTheSelectionThroughARename)
{
    EditorDriver& editor = open(namedTable({L"A", L"B", L"C"}));
    editor.select({1, 3});
    editor.rename(1, "D");
    EXPECT_EQ(editor.selected(), (Rows{1, 3}));
    editor.set("SpinScreening", 10);
    save();
    EXPECT_EQ(savedData(1).screening, 10);
    EXPECT_EQ(savedData(2).screening, 100);
    EXPECT_EQ(savedData(3).screening, 10);
}

// --- On the screen -----------------------------------------------------------------------------

// The end of an edit by the loss of the focus, when it is refused, is followed by a second end.
TEST_F(StyleList, ReportsARefusedRenameOnceWhenTheFocusGoes)
{
    show(namedTable({L"A"}),
         [this](EditorDriver& editor)
         {
             startToRename(editor, "a/b");
             find<wxWindow>(editor.dialog(), "CheckDither")->SetFocus();
             EXPECT_TRUE(waitFor([&editor] { return !editor.styles()->GetEditControl(); }));
             EXPECT_EQ(takeErrors(), Names{characterMessage()});
             EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A"}));
             editor.closeUnasked();
         });
}

TEST_F(StyleList, TakesANameAsItWillBeStored)
{
    show(namedTable({L"A", L"Thin red"}),
         [this](EditorDriver& editor)
         {
             editor.select({1});
             EXPECT_TRUE(editor.rename(1, "Thick\nred"));
             EXPECT_TRUE(waitFor([&editor] { return editor.styleNames()[1] == "Thick red"; }));
             EXPECT_TRUE(editor.rename(1, "thin\nred"));
             EXPECT_EQ(takeErrors(), Names{duplicateMessage("thin red")});
             click(editor.dialog(), wxID_OK);
         });
    EXPECT_EQ(savedTable()->styleAt(1)->name(), OdString(L"Thick red"));
}

// A mnemonic presses the button while the edit goes on.
TEST_F(StyleList, SavesTheNameThatIsBeingTyped)
{
    show(namedTable({L"A"}),
         [](EditorDriver& editor)
         {
             startToRename(editor, "Typed");
             click(editor.dialog(), wxID_OK);
         });
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "Typed"}));
}

// The window manager's close box takes no focus from the edit, either.
TEST_F(StyleList, OffersToSaveTheNameThatIsBeingTyped)
{
    show(namedTable({L"A"}),
         [this](EditorDriver& editor)
         {
             startToRename(editor, "Typed");
             answers.press(wxID_YES);
             editor.dialog().Close();
         });
    EXPECT_EQ(namesOf(*savedTable()), (Names{"Normal", "Typed"}));
}

TEST_F(StyleList, SelectsRangesWithTheMouseAfterDeleting)
{
    show(namedTable({L"1", L"2", L"3", L"4", L"5", L"6", L"7"}),
         [](EditorDriver& editor)
         {
             editor.select({1, 2});
             click(editor.dialog(), "BtnStyleDelForm");
             wxUIActionSimulator mouse;
             mouse.MouseMove(centreOf(editor.styles(), 2));
             mouse.MouseClick();
             EXPECT_TRUE(waitFor([&editor] { return editor.selected() == Rows{2}; }));
             mouse.MouseMove(centreOf(editor.styles(), 5));
             mouse.KeyDown(WXK_SHIFT);
             mouse.MouseClick();
             mouse.KeyUp(WXK_SHIFT);
             EXPECT_TRUE(waitFor(
                 [&editor] {
                     return editor.selected() == Rows{2, 3, 4, 5};
                 }))
                 << testing::PrintToString(editor.selected());
         });
}

TEST_F(StyleList, SelectsAllStylesByControlA)
{
    show(colorTable(),
         [](EditorDriver& editor)
         {
             editor.select({7});
             pressKey(editor.styles(), 'A', wxMOD_CONTROL);
             EXPECT_TRUE(waitFor([&editor] { return editor.selected().size() == 255; }));
         });
}

TEST_F(StyleList, StartsARenameByF2)
{
    show(namedTable({L"A"}),
         [](EditorDriver& editor)
         {
             editor.select({1});
             pressKey(editor.styles(), WXK_F2);
             ASSERT_TRUE(waitFor([&editor] { return editor.styles()->GetEditControl(); }));
             EXPECT_EQ(editor.styles()->GetEditControl()->GetValue(), "A");
             editor.styles()->EndEditLabel(true);
         });
}

TEST_F(StyleList, DeletesStylesByTheDeleteKey)
{
    show(namedTable({L"A", L"B"}),
         [](EditorDriver& editor)
         {
             editor.select({1});
             pressKey(editor.styles(), WXK_DELETE);
             EXPECT_TRUE(waitFor([&editor] { return editor.styleNames().size() == 2; }));
             EXPECT_EQ(editor.styleNames(), (Names{"Normal", "B"}));
         });
}

TEST_F(StyleList, AddsAStyleByTheInsertKey)
{
    show(namedTable({L"A"}),
         [this](EditorDriver& editor)
         {
             editor.select({1});
             answers.type("B");
             pressKey(editor.styles(), WXK_INSERT);
             EXPECT_TRUE(waitFor([&editor] { return editor.styleNames().size() == 3; }));
             EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A", "B"}));
         });
}

// The keys act only where the buttons would.
TEST_F(StyleList, TakesNoKeyForAStyleThatCannotBeDeletedOrAdded)
{
    for (const OdPsPlotStyleTablePtr& table : {namedTable({L"A"}), colorTable()})
        show(table,
             [](EditorDriver& editor)
             {
                 const Names before = editor.styleNames();
                 editor.select({0});
                 if (before.size() == 255)
                     pressKey(editor.styles(), WXK_INSERT);
                 pressKey(editor.styles(), WXK_DELETE);
                 // Keys come in their order: when this one has come, so have the others.
                 pressKey(editor.styles(), 'A', wxMOD_CONTROL);
                 EXPECT_TRUE(waitFor([&] { return editor.selected().size() == before.size(); }));
                 EXPECT_EQ(editor.styleNames(), before);
                 editor.closeUnasked();
             });
}

TEST_F(StyleList, LeavesTheKeysToARunningRename)
{
    show(namedTable({L"A"}),
         [](EditorDriver& editor)
         {
             startToRename(editor, "AB");
             wxTextCtrl* edit = editor.styles()->GetEditControl();
             edit->SetSelection(-1, -1);
             pressKey(edit, WXK_DELETE);
             EXPECT_TRUE(waitFor([edit] { return edit->GetValue().empty(); }));
             EXPECT_EQ(editor.styleNames(), (Names{"Normal", "A"}));
             editor.styles()->EndEditLabel(true);
         });
}

TEST_F(StyleList, ScrollsToANewStyle)
{
    std::vector<std::wstring> names;
    for (int i = 1; i <= 100; ++i)
        names.push_back(L"Style number " + std::to_wstring(i));
    show(namedTable(names),
         [this](EditorDriver& editor)
         {
             editor.select({});
             ASSERT_TRUE(waitFor([&editor] { return isVisible(editor.styles(), 0); }));
             ASSERT_FALSE(isVisible(editor.styles(), 100));
             add(editor, "New");
             EXPECT_TRUE(waitFor([&editor] { return isVisible(editor.styles(), 101); }));
         });
}

// --- findStyle ---------------------------------------------------------------------------------

TEST(FindStyle, LooksForLocalizedNamesWithoutRegardToCase)
{
    const OdPsPlotStyleTablePtr table = namedTable({L"Thin", L"thick_lines", L"THIN"});
    table->styleAt(2)->setLocalizedName(L"Thick lines");
    for (const bool flag : {false, true})
    {
        EXPECT_EQ(findStyle(table.get(), "normal", flag), 0);
        EXPECT_EQ(findStyle(table.get(), "tHIN", flag), 1) << "the first of several";
        EXPECT_EQ(findStyle(table.get(), "THICK LINES", flag), 2);
        EXPECT_EQ(findStyle(table.get(), "thick_lines", flag), -1);
        EXPECT_EQ(findStyle(table.get(), "", flag), -1);
        EXPECT_EQ(findStyle(table.get(), "Thin ", flag), -1);
    }
}
