// The editor's frame: initialisation, the General page, the transfer of values, and the file
// operations with their questions and messages.

#include "support/editor_test.h"
#include "support/image_colours.h"
#include "support/table_maker.h"

#include "wxgui/color_combo.h"
#include "wxgui/image_combo.h"
#include "wxgui/wxgui.h"

#include <wx/checkbox.h>
#include <wx/filedlg.h>
#include <wx/frame.h>
#include <wx/imaglist.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>
#include <wx/valgen.h>
#include <wx/valtext.h>

#include <clocale>
#include <filesystem>

#include <dlfcn.h>

namespace
{

wxString text(const wxWindow& dialog, const char* name)
{
    return find<wxStaticText>(dialog, name)->GetLabelText();
}

unsigned long centreColour(const wxBitmap& bitmap)
{
    const wxImage image = bitmap.ConvertToImage();
    return rgbOf(image, image.GetWidth() / 2, image.GetHeight() / 2);
}

} // namespace

// --- Initialisation ------------------------------------------------------------------------

TEST_F(EditorTest, IsSixHundredPixelsWideAndCentred)
{
    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            // Text of twice the size needs more.
            EXPECT_EQ(dialog->GetSize().x,
                      wxg::isDpiForLargeIcons() ? dialog->GetMinSize().x : 600);
            const wxRect screen = wxGetClientDisplayRect();
            const wxRect window = dialog->GetScreenRect();
            EXPECT_NEAR(window.x + window.width / 2, screen.width / 2, 2);
            EXPECT_NEAR(window.y + window.height / 2, screen.height / 2, 2);
        });
    DlgPlotStyleEditor dialog(makeTable("table.ctb"), "", nullptr);
    dialog.ShowModal();
}

TEST_F(EditorTest, ReadsNothingBeforeItIsInitialised)
{
    const wxString file = makeTable("table.ctb");
    DlgPlotStyleEditor dialog(file, "", nullptr);
    EXPECT_EQ(find<wxListCtrl>(dialog, "ListStyles")->GetItemCount(), 0);
    dialog.InitDialog();
    EXPECT_EQ(find<wxListCtrl>(dialog, "ListStyles")->GetItemCount(), 255);
}

TEST_F(EditorTest, ShowsThreePages)
{
    Editor editor(makeTable("table.ctb"));
    const auto* book = find<wxNotebook>(editor, "NoteBook");
    ASSERT_EQ(book->GetPageCount(), 3u);
    EXPECT_EQ(book->GetPageText(0), "General");
    EXPECT_EQ(book->GetPageText(1), "Form View");
    EXPECT_EQ(book->GetPageText(2), "Lineweights");
    EXPECT_EQ(book->GetSelection(), 0);
}

TEST_F(EditorTest, GridButtonsActLikeTheirFormTwins)
{
    for (const char* twin : {"Grid", "Form"})
    {
        Editor editor(makeTable("table.stb"));
        find<wxNotebook>(editor, "NoteBook")->SetSelection(1);
        const auto* list = find<wxListCtrl>(editor, "ListStyles");
        DialogAnswers answers;
        answers.type("Added");
        editor.press("BtnStyleAdd" + std::string(twin));
        ASSERT_EQ(list->GetItemCount(), 2) << twin;
        EXPECT_EQ(list->GetItemText(1), "Added") << twin;
        editor.press("BtnStyleDel" + std::string(twin));
        EXPECT_EQ(list->GetItemCount(), 1) << twin;
    }
}

TEST_F(EditorTest, SwatchesShowTheIndexColoursWithSevenInBlack)
{
    Editor editor(makeTable("table.ctb"));
    const wxImageList* swatches =
        find<wxListCtrl>(editor, "ListStyles")->GetImageList(wxIMAGE_LIST_SMALL);
    ASSERT_NE(swatches, nullptr);
    ASSERT_EQ(swatches->GetImageCount(), 255);
    const int side = wxg::isDpiForLargeIcons() ? 32 : 14;
    EXPECT_EQ(swatches->GetSize(), wxSize(side, side));
    for (int i = 0; i < 255; ++i)
    {
        const std::uint32_t expected = i + 1 == 7 ? 0 : OdCmEntityColor::lookUpRGB(i + 1);
        EXPECT_EQ(centreColour(swatches->GetBitmap(i)), expected) << "index " << i + 1;
        EXPECT_EQ(swatches->GetBitmap(i).GetSize(), wxSize(side, side));
    }
}

// The second run of this program is one with text at 192 pixels per inch.
TEST_F(EditorTest, LargeIconsGoWithTheResolution)
{
    wxString scale;
    const bool isLarge = wxGetEnv("GDK_DPI_SCALE", &scale) && scale == "2";
    EXPECT_EQ(wxg::isDpiForLargeIcons(), isLarge);
}

TEST_F(EditorTest, CombosHoldTheirEntries)
{
    struct Combo
    {
        const char* name;
        std::vector<int> values;
        const char* first;
        const char* second;
    };
    std::vector<int> lineTypes{31};
    for (int i = 0; i <= 30; ++i)
        lineTypes.push_back(i);
    std::vector<int> lineWeights;
    for (int i = 0; i <= 27; ++i)
        lineWeights.push_back(i);
    const Combo combos[] = {
        {"ComboLineType", lineTypes, "Use entity linetype", "Solid "},
        {"ComboEndStyle", {4, 0, 1, 2, 3}, "Use entity end style", "Butt"},
        {"ComboJoinStyle", {5, 0, 1, 2, 3}, "Use entity join style", "Miter"},
        {"ComboFillStyle",
         {73, 64, 65, 66, 67, 68, 69, 70, 71, 72},
         "Use entity fill style",
         "Solid  "},
        {"ComboLineWeight", lineWeights, "Use object lineweight", "0.0000 mm"},
    };
    Editor editor(makeTable("table.ctb"));
    for (const Combo& expected : combos)
    {
        auto* combo = find<wxg::ImageCombo>(editor, expected.name);
        ASSERT_EQ(combo->GetCount(), expected.values.size()) << expected.name;
        EXPECT_EQ(combo->GetString(0), expected.first);
        EXPECT_EQ(combo->GetString(1), expected.second);
        for (size_t i = 0; i < expected.values.size(); ++i)
        {
            combo->SetSelection(static_cast<int>(i));
            EXPECT_EQ(combo->value(), expected.values[i]) << expected.name << " entry " << i;
        }
    }
    EXPECT_EQ(find<wxg::ColorCombo>(editor, "ComboColor")->GetCount(), 9u);
}

TEST_F(EditorTest, CombosStandInThePlaceOfTheirPredecessors)
{
    Editor editor(makeTable("table.ctb"));
    for (const char* name : {"ComboColor", "ComboLineType", "ComboLineWeight", "ComboEndStyle",
                             "ComboJoinStyle", "ComboFillStyle"})
    {
        const auto* combo = find<wxg::VariesCombo>(editor, name);
        EXPECT_EQ(combo->GetName(), name);
        EXPECT_NE(combo->GetContainingSizer(), nullptr) << name;
    }
}

TEST_F(EditorTest, BindsItsFieldsThroughValidators)
{
    Editor editor(makeTable("table.ctb"));
    const auto filter = [&editor](const char* name)
    {
        const auto* validator =
            dynamic_cast<wxTextValidator*>(find<wxTextCtrl>(editor, name)->GetValidator());
        return validator ? validator->GetStyle() : -1L;
    };
    EXPECT_EQ(filter("TextTableDescr"), wxFILTER_NONE);
    EXPECT_EQ(filter("TextScale"), wxFILTER_NUMERIC);
    EXPECT_EQ(filter("TextStyleDescr"), wxFILTER_NONE);
    for (const char* name :
         {"CheckScale", "SpinPhysPen", "SpinVirtPen", "SpinScreening", "RadLwMm", "RadLwIn"})
        EXPECT_NE(dynamic_cast<wxGenericValidator*>(find<wxWindow>(editor, name)->GetValidator()),
                  nullptr)
            << name;
    for (const char* name : {"CheckDither", "CheckGrayscale", "CheckAdaptive"})
    {
        EXPECT_EQ(find<wxCheckBox>(editor, name)->GetValidator(), nullptr) << name;
        EXPECT_TRUE(find<wxCheckBox>(editor, name)->Is3State()) << name;
    }
}

TEST_F(EditorTest, ListsHaveTheirColumnsAndRows)
{
    Editor editor(makeTable("table.ctb"));
    const auto* styles = find<wxListCtrl>(editor, "ListStyles");
    wxListItem column;
    column.SetMask(wxLIST_MASK_TEXT);
    ASSERT_EQ(styles->GetColumnCount(), 1);
    styles->GetColumn(0, column);
    EXPECT_EQ(column.GetText(), "Name");

    const auto* lineWeights = find<wxListCtrl>(editor, "ListLineWeights");
    ASSERT_EQ(lineWeights->GetColumnCount(), 1);
    lineWeights->GetColumn(0, column);
    EXPECT_EQ(column.GetText(), "Value");
    EXPECT_EQ(lineWeights->GetColumnWidth(0), 160);
    EXPECT_EQ(lineWeights->GetItemCount(), 27);
    const wxImageList* marks = lineWeights->GetImageList(wxIMAGE_LIST_SMALL);
    ASSERT_EQ(marks->GetImageCount(), 2);
    EXPECT_EQ(marks->GetSize(), wxSize(16, 16));
}

TEST_F(EditorTest, ExportStaysHidden)
{
    Editor editor(makeTable("table.ctb"));
    updateUi(editor);
    EXPECT_FALSE(find<wxWindow>(editor, "BtnExport")->IsShown());
    EXPECT_EQ(find<wxWindow>(editor, "BtnExport")->GetToolTipText(),
              "This button is only visible in debug build");
}

TEST_F(EditorTest, ButtonsHaveTheirLabels)
{
    Editor editor(makeTable("table.ctb"));
    EXPECT_EQ(find<wxButton>(editor, "BtnOpen")->GetLabelText(), "Open...");
    EXPECT_EQ(find<wxButton>(editor, "BtnSaveAs")->GetLabelText(), "Save As...");
    EXPECT_EQ(find<wxButton>(editor, "BtnExport")->GetLabelText(), "Export...");
    EXPECT_EQ(find<wxButton>(editor, "wxID_OK")->GetLabelText(), "Save & Close");
    EXPECT_EQ(find<wxButton>(editor, "wxID_CANCEL")->GetLabelText(), "Cancel");
}

// --- The General page ----------------------------------------------------------------------

TEST_F(EditorTest, ShowsTheFileNameInTitleAndPage)
{
    const wxString file = makeTable("monochrome.ctb");
    Editor editor(file);
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - monochrome.ctb");
    EXPECT_EQ(text(editor, "StatFileName"), "monochrome.ctb");
}

TEST_F(EditorTest, ShowsAnAmpersandOfAFileNameAsItIs)
{
    Editor editor(makeTable("R&D.ctb"));
    EXPECT_EQ(text(editor, "StatFileName"), "R&D.ctb");
    EXPECT_EQ(find<wxStaticText>(editor, "StatFileName")->GetLabel(), "R&&D.ctb");
    EXPECT_TRUE(text(editor, "StatFilePath").Contains("R&D") ||
                text(editor, "StatFilePath").EndsWith("..."));
}

TEST_F(EditorTest, TellsTheKindOfTheTable)
{
    const auto picture = [](const wxWindow& dialog)
    { return bytesOf(find<wxStaticBitmap>(dialog, "StatFileIcon")->GetBitmap()); };
    const auto resource = [](const char* name)
    { return bytesOf(wxXmlResource::Get()->LoadBitmap(name)); };
    ASSERT_NE(resource("BmpCTB"), resource("BmpSTB"));

    Editor colours(makeTable("table.ctb"));
    EXPECT_EQ(text(colours, "StatFileType"), "Legacy (can be used to import old DWGs)");
    EXPECT_EQ(text(colours, "StatNumStyles"), "Number of styles: 255");
    EXPECT_EQ(picture(colours), resource("BmpCTB"));

    Editor names(makeTable("table.stb"));
    EXPECT_EQ(text(names, "StatFileType"), "Regular");
    EXPECT_EQ(text(names, "StatNumStyles"), "Number of styles: 1");
    EXPECT_EQ(picture(names), resource("BmpSTB"));

    DialogAnswers answers;
    answers.press(wxID_OK);
    Editor none(makeFile("none.ctb", "no table"));
    EXPECT_EQ(text(none, "StatFileType"), "No table");
    EXPECT_EQ(text(none, "StatNumStyles"), "Number of styles: 0");
    EXPECT_EQ(picture(none), resource("BmpSTB"));
}

TEST_F(EditorTest, ScaleFieldsFollowTheCheckBox)
{
    Editor editor(makeTable("table.ctb"));
    for (const bool apply : {true, false, true})
    {
        find<wxCheckBox>(editor, "CheckScale")->SetValue(apply);
        updateUi(editor);
        EXPECT_EQ(find<wxWindow>(editor, "TextScale")->IsEnabled(), apply);
        EXPECT_EQ(find<wxWindow>(editor, "StatScale")->IsEnabled(), apply);
    }
}

namespace
{

// Has a shown dialog painted, and comes back when that is done.
void paint(wxWindow& dialog)
{
    int paints = 0;
    const auto count = [&paints](wxPaintEvent& event)
    {
        ++paints;
        event.Skip();
    };
    dialog.Bind(wxEVT_PAINT, count);
    dialog.Refresh();
    EXPECT_TRUE(waitFor([&paints] { return paints > 0; }));
    dialog.Unbind(wxEVT_PAINT, count);
}

} // namespace

TEST_F(EditorTest, CutsThePathToItsControl)
{
    const wxString file = makeTable("a-table-with-quite-a-long-name-for-the-general-page.ctb");
    DialogAnswers answers;
    answers.run(
        [&file](wxDialog* dialog)
        {
            auto* label = find<wxStaticText>(*dialog, "StatFilePath");
            const wxString whole = "Path: " + file;
            const int width = label->GetTextExtent(whole).x;
            const auto shownAt = [&](int controlWidth)
            {
                label->SetSize(controlWidth, -1);
                paint(*dialog);
                return label->GetLabelText();
            };
            EXPECT_EQ(shownAt(width + 4), whole);
            EXPECT_EQ(shownAt(6), whole);
            const wxString cut = shownAt(width + 3);
            EXPECT_TRUE(cut.EndsWith("...")) << cut;
            EXPECT_TRUE(whole.StartsWith(cut.Left(cut.length() - 3))) << cut;
            EXPECT_EQ(shownAt(40), whole.Left(12) + "...");
            label->Hide();
            EXPECT_EQ(shownAt(width + 4), whole.Left(12) + "...") << "hidden, so left alone";
        });
    DlgPlotStyleEditor(file, "", nullptr).ShowModal();
}

TEST_F(EditorTest, FitsTheListColumnWhenPainted)
{
    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            auto* list = find<wxListCtrl>(*dialog, "ListStyles");
            list->SetSize(300, -1);
            paint(*dialog);
            EXPECT_EQ(list->GetColumnWidth(0), list->GetClientSize().x - 22);
        });
    DlgPlotStyleEditor(makeTable("table.stb"), "", nullptr).ShowModal();
}

TEST_F(EditorTest, PaintsOnlyWhenSomethingChanged)
{
    DialogAnswers answers;
    int paints = 0;
    answers.run(
        [&paints](wxDialog* dialog)
        {
            dialog->Bind(wxEVT_PAINT,
                         [&paints](wxPaintEvent& event)
                         {
                             ++paints;
                             event.Skip();
                         });
            dialog->Refresh();
            ASSERT_TRUE(waitFor([&paints] { return paints > 0; }));
            // A handler that asks for the next paint gets one with every frame of the screen, as
            // the one of this window does.
            wxFrame other(nullptr, wxID_ANY, "Frames");
            int frames = 0;
            other.Bind(wxEVT_PAINT,
                       [&](wxPaintEvent& event)
                       {
                           ++frames;
                           event.Skip();
                           other.Refresh();
                       });
            other.Show();
            ASSERT_TRUE(waitFor([&frames] { return frames > 40; }));
            EXPECT_LE(paints, 20);
        });
    DlgPlotStyleEditor dialog(makeTable("table.ctb"), "", nullptr);
    dialog.ShowModal();
}

// --- The transfer of values ----------------------------------------------------------------

TEST_F(EditorTest, TakesChangedValuesIntoTheTable)
{
    const wxString file = makeTable("table.ctb");
    Editor editor(file);
    find<wxTextCtrl>(editor, "TextTableDescr")->SetValue(L"Pläne A1");
    find<wxCheckBox>(editor, "CheckScale")->SetValue(true);
    find<wxTextCtrl>(editor, "TextScale")->SetValue("2.5");
    editor.press(wxID_OK);
    EXPECT_TRUE(editor.endedWith(wxID_OK));
    const auto saved = loadTable(file);
    EXPECT_EQ(saved->description(), OdString(L"Pläne A1"));
    EXPECT_TRUE(saved->isApplyScaleFactor());
    EXPECT_EQ(saved->scaleFactor(), 2.5);
}

TEST_F(EditorTest, AScaleThatIsNoNumberOrNoChangeModifiesNothing)
{
    for (const char* scale : {"abc", "", "1.00000000001", "0.99999999999", "1", "nan", "inf"})
    {
        const wxString file = makeTable("table.ctb");
        Editor editor(file);
        find<wxTextCtrl>(editor, "TextScale")->SetValue(scale);
        EXPECT_TRUE(editor.TransferDataFromWindow()) << scale;
        EXPECT_FALSE(editor.isModified()) << scale;
        // Another change has the table written, and the factor with it.
        find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("changed");
        EXPECT_TRUE(editor.TransferDataFromWindow()) << scale;
        find<wxTextCtrl>(editor, "TextScale")->SetValue("1");
        editor.press(wxID_OK);
        EXPECT_EQ(loadTable(file)->scaleFactor(), 1.0) << scale;
    }
}

TEST_F(EditorTest, AScaleBeyondTheToleranceIsAChange)
{
    for (const char* scale : {"1.0000000002", "0.9999999998", "2", "-1", "1e3"})
    {
        Editor editor(makeTable("table.ctb"));
        find<wxTextCtrl>(editor, "TextScale")->SetValue(scale);
        EXPECT_TRUE(editor.TransferDataFromWindow()) << scale;
        EXPECT_TRUE(editor.isModified()) << scale;
    }
}

TEST_F(EditorTest, AFactorWithMoreDigitsThanShownIsKept)
{
    const wxString file =
        makeTable("table.ctb", [](OdPsPlotStyleTable& table) { table.setScaleFactor(1.23456789); });
    const std::string before = readBytes(file);
    Editor editor(file);
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextScale")->GetValue(), "1.23457");
    editor.press(wxID_OK);
    EXPECT_EQ(readBytes(file), before);
}

TEST_F(EditorTest, AFactorTypedAsShownIsTaken)
{
    const wxString file =
        makeTable("table.ctb", [](OdPsPlotStyleTable& table) { table.setScaleFactor(1.23456789); });
    Editor editor(file);
    auto* scale = find<wxTextCtrl>(editor, "TextScale");
    scale->SetValue("1.23457");
    scale->MarkDirty(); // as typing does
    editor.press(wxID_OK);
    EXPECT_EQ(loadTable(file)->scaleFactor(), 1.23457);
}

TEST_F(EditorTest, TransferFailsWithoutATable)
{
    DialogAnswers answers;
    answers.press(wxID_OK);
    Editor editor(makeFile("none.ctb", "no table"));
    EXPECT_FALSE(editor.TransferDataFromWindow());
}

TEST_F(EditorTest, CheckBoxStatesTravelBothWays)
{
    Editor editor(makeTable("table.ctb"));
    auto* dither = find<wxCheckBox>(editor, "CheckDither");
    for (const wxCheckBoxState state : {wxCHK_UNDETERMINED, wxCHK_CHECKED, wxCHK_UNCHECKED})
    {
        dither->Set3StateValue(state);
        EXPECT_TRUE(editor.TransferDataFromWindow());
        dither->Set3StateValue(state == wxCHK_CHECKED ? wxCHK_UNCHECKED : wxCHK_CHECKED);
        EXPECT_TRUE(editor.TransferDataToWindow());
        EXPECT_EQ(dither->Get3StateValue(), state);
    }
}

// --- Loading -------------------------------------------------------------------------------

TEST_F(EditorTest, AMissingFileBecomesANewTableOfTheKindOfItsExtension)
{
    const struct
    {
        const char* name;
        bool colorDependent;
    } cases[] = {{"new.ctb", true},  {"new.CTB", true}, {"new.Ctb", true},
                 {"new.stb", false}, {"new", false},    {"new.txt", false}};
    for (const auto& c : cases)
    {
        const wxString file = folder.file(c.name);
        Editor editor(file);
        EXPECT_TRUE(editor.isModified()) << c.name;
        EXPECT_FALSE(wxFileExists(file)) << c.name;
        editor.press(wxID_OK);
        const auto saved = loadTable(file);
        EXPECT_EQ(saved->isColorDependent(), c.colorDependent) << c.name;
        EXPECT_EQ(saved->styleCount(), c.colorDependent ? 255 : 1) << c.name;
        wxRemoveFile(file);
    }
}

TEST_F(EditorTest, ShowsTheValuesOfTheTable)
{
    Editor editor(makeTable("table.stb",
                            [](OdPsPlotStyleTable& table)
                            {
                                table.setDescription(L"Office standard");
                                table.setApplyScaleFactor(true);
                                table.setScaleFactor(0.25);
                                table.setDisplayCustomLineweightUnits(true);
                            }));
    EXPECT_FALSE(editor.isModified());
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "Office standard");
    EXPECT_TRUE(find<wxCheckBox>(editor, "CheckScale")->GetValue());
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextScale")->GetValue(), "0.25");
    EXPECT_TRUE(find<wxRadioButton>(editor, "RadLwIn")->GetValue());
    EXPECT_FALSE(find<wxRadioButton>(editor, "RadLwMm")->GetValue());
}

TEST_F(EditorTest, ASourceFileIsReadInstead)
{
    const wxString source = makeTable("source.stb", describe(L"the source"));
    const wxString target = folder.file("target.stb");
    Editor editor(target, source);
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "the source");
    EXPECT_TRUE(editor.isModified());
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - target.stb");
    const std::string before = readBytes(source);
    editor.press(wxID_OK);
    EXPECT_EQ(readBytes(target), before);
    EXPECT_EQ(readBytes(source), before);
}

TEST_F(EditorTest, ASourceFileForAnExistingTargetIsNoChangeYet)
{
    const wxString source = makeTable("source.stb", describe(L"the source"));
    Editor editor(makeTable("target.stb"), source);
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "the source");
    EXPECT_FALSE(editor.isModified());
}

TEST_F(EditorTest, AfterASourceFileOpenReadsTheChosenFile)
{
    const wxString source = makeTable("source.stb", describe(L"the source"));
    const wxString other = makeTable("other.stb", describe(L"the other"));
    Editor editor(folder.file("target.stb"), source);
    DialogAnswers answers;
    answers.press(wxID_NO);
    answers.choose(other);
    editor.press("BtnOpen");
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "the other");
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - other.stb");
    EXPECT_FALSE(editor.isModified());
}

TEST_F(EditorTest, AMissingSourceFileFallsBack)
{
    const wxString missing = folder.file("missing.stb");
    Editor existing(makeTable("table.stb", describe(L"the table itself")), missing);
    EXPECT_EQ(find<wxTextCtrl>(existing, "TextTableDescr")->GetValue(), "the table itself");
    EXPECT_FALSE(existing.isModified());

    Editor fresh(folder.file("new.ctb"), missing);
    EXPECT_EQ(text(fresh, "StatNumStyles"), "Number of styles: 255");
    EXPECT_TRUE(fresh.isModified());
}

TEST_F(EditorTest, SortButtonIsThereOnlyForAListOutOfOrder)
{
    const auto isShownFor = [this](const std::vector<double>& first)
    {
        Editor editor(makeTable("table.ctb",
                                [&first](OdPsPlotStyleTable& table)
                                {
                                    for (size_t i = 0; i < first.size(); ++i)
                                        table.setLineweightAt(static_cast<int>(i), first[i]);
                                }));
        return find<wxWindow>(editor, "BtnLwSort")->IsShown();
    };
    EXPECT_FALSE(isShownFor({})) << "ascending";
    EXPECT_FALSE(isShownFor({0.05, 0.05, 0.09})) << "equal neighbours";
    EXPECT_TRUE(isShownFor({0.05, 0.04})) << "one descending pair";
}

TEST_F(EditorTest, BadFilesGiveAMessageAndNoTable)
{
    const char* const noTable =
        "The file does not have the header of a plot style table (at byte 0 of the file)";
    const char* const noStream =
        "The compressed data is incomplete or damaged (at byte 60 of the file)";
    const wxString subfolder = folder.file("folder.ctb");
    wxMkdir(subfolder);
    const wxString good = makeTable("good.ctb");
    const std::string bytes = readBytes(good);
    const struct
    {
        const char* name;
        std::string bytes;
        const char* reason;
    } cases[] = {
        {"empty.ctb", "", noTable},
        {"text.stb", "This is a letter.\n", noTable},
        {"printer.stb", "solid cube\n facet normal 0 0 1\nendsolid cube\n", noTable},
        {"cut.ctb", bytes.substr(0, bytes.size() / 2), noStream},
        {"header.ctb", bytes.substr(0, 60), noStream},
        {"magic.ctb", "X" + bytes.substr(1), noTable},
        {"bomb.ctb", support::pack(std::string(size_t{64} << 20, ' ')),
         "The text is too long (at byte 60 of the file)"},
        {"value.ctb", support::pack("apply_factor=maybe\nplot_style{\n}\n"),
         "A value is neither TRUE nor FALSE (at byte 13 of the uncompressed text)"},
    };
    for (const auto& c : cases)
    {
        DialogAnswers answers;
        answers.press(wxID_OK);
        const wxString file = makeFile(c.name, c.bytes);
        Editor editor(file);
        ASSERT_EQ(answers.shown().size(), 1u) << c.name;
        const ShownDialog& box = answers.shown().front();
        EXPECT_EQ(box.message,
                  wxString("Invalid file format - failed to open plotstyle table file.\n") +
                      c.reason);
        EXPECT_EQ(box.caption, "Plot Style Table Editor");
        EXPECT_EQ(box.style & (wxOK | wxCANCEL | wxYES_NO | wxICON_MASK), wxOK | wxICON_ERROR);
        expectNoTable(editor);
        EXPECT_EQ(readBytes(file), c.bytes) << "the file is left as it is";
    }
}

TEST_F(EditorTest, ClaimedSizesAreNotBelieved)
{
    support::Container container;
    container.inflatedSize = container.compressedSize = 1u << 30;
    Editor editor(makeFile("claims.ctb", support::pack(support::colorTableText(), container)));
    EXPECT_EQ(text(editor, "StatNumStyles"), "Number of styles: 255");
}

// A folder is no existing file: the editor starts a new table, which the save then cannot write.
TEST_F(EditorTest, AFolderIsNotOverwritten)
{
    const wxString subfolder = folder.file("folder.ctb");
    wxMkdir(subfolder);
    Editor editor(subfolder);
    ErrorLog log;
    editor.press(wxID_OK);
    EXPECT_FALSE(editor.hasEnded());
    EXPECT_EQ(log.messages(),
              std::vector<wxString>{"Failed to save file: " + subfolder + "\nIs a directory"});
    EXPECT_TRUE(wxDirExists(subfolder));
}

TEST_F(EditorTest, StylesBeyondTheColoursAreListedWithoutASwatch)
{
    Editor editor(makeTable("more.ctb",
                            [](OdPsPlotStyleTable& table)
                            {
                                table.addNewStyle(L"Color_256");
                                table.addNewStyle(L"Color_257");
                            }));
    const auto* list = find<wxListCtrl>(editor, "ListStyles");
    ASSERT_EQ(list->GetItemCount(), 257);
    const auto imageOf = [list](int row)
    {
        wxListItem item;
        item.SetId(row);
        item.SetMask(wxLIST_MASK_IMAGE);
        list->GetItem(item);
        return item.GetImage();
    };
    EXPECT_EQ(imageOf(254), 254);
    EXPECT_EQ(imageOf(255), -1);
    EXPECT_EQ(imageOf(256), -1);
}

TEST_F(EditorTest, WithoutATableNothingIsSaved)
{
    DialogAnswers answers;
    answers.press(wxID_OK);
    const wxString file = makeFile("none.ctb", "no table");
    Editor editor(file);
    ErrorLog log;
    editor.press(wxID_OK);
    editor.press("BtnSaveAs");
    EXPECT_FALSE(editor.hasEnded());
    EXPECT_TRUE(log.messages().empty());
    EXPECT_EQ(readBytes(file), "no table");
}

TEST_F(EditorTest, WithoutATableCancelClosesWithoutAsking)
{
    DialogAnswers answers;
    answers.press(wxID_OK);
    Editor editor(makeFile("none.ctb", "no table"));
    editor.press(wxID_CANCEL);
    EXPECT_TRUE(editor.endedWith(wxID_CANCEL));
    EXPECT_EQ(answers.shown().size(), 1u);
}

TEST_F(EditorTest, OpenLeavesTheStateWithoutATable)
{
    DialogAnswers answers;
    answers.press(wxID_OK);
    Editor editor(makeFile("none.ctb", "no table"));
    answers.choose(makeTable("good.ctb"));
    editor.press("BtnOpen");
    EXPECT_EQ(text(editor, "StatFileType"), "Legacy (can be used to import old DWGs)");
    updateUi(editor);
    EXPECT_TRUE(find<wxWindow>(editor, "BtnSaveAs")->IsEnabled());
    EXPECT_TRUE(editor.FindWindow(wxID_OK)->IsEnabled());
}

TEST_F(EditorTest, AFailedOpenAfterATableLeavesNone)
{
    Editor editor(makeTable("good.ctb", describe(L"good")));
    DialogAnswers answers;
    answers.choose(makeFile("bad.ctb", "bad"));
    answers.press(wxID_OK);
    editor.press("BtnOpen");
    expectNoTable(editor);
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - bad.ctb");
}

// --- Saving --------------------------------------------------------------------------------

TEST_F(EditorTest, OkOnAnUnchangedTableWritesNothing)
{
    const wxString file = makeTable("table.ctb");
    const auto path = std::filesystem::path(file.utf8_string());
    const auto longAgo = std::filesystem::last_write_time(path) - std::chrono::hours(1);
    std::filesystem::last_write_time(path, longAgo);
    Editor editor(file);
    editor.press(wxID_OK);
    EXPECT_TRUE(editor.endedWith(wxID_OK));
    EXPECT_EQ(std::filesystem::last_write_time(path), longAgo);
}

TEST_F(EditorTest, AFailedSaveIsReportedAndStaysOpen)
{
    const wxString subfolder = folder.file("sub");
    wxMkdir(subfolder);
    const wxString file = subfolder + "/new.ctb";
    Editor editor(file);
    wxRmdir(subfolder);
    ErrorLog log;
    editor.press(wxID_OK);
    EXPECT_FALSE(editor.hasEnded());
    EXPECT_EQ(log.messages(), std::vector<wxString>{"Failed to save file: " + file + "\n" +
                                                    subfolder + ": No such file or directory"});
    EXPECT_TRUE(editor.isModified());
    wxMkdir(subfolder);
    editor.press(wxID_OK);
    EXPECT_TRUE(editor.endedWith(wxID_OK));
    EXPECT_TRUE(wxFileExists(file));
}

TEST_F(EditorTest, AConflictOfAFieldKeepsTheDialogOpen)
{
    Editor editor(makeTable("table.ctb"));
    find<wxCheckBox>(editor, "CheckScale")->SetValue(true);
    updateUi(editor);
    find<wxTextCtrl>(editor, "TextScale")->SetValue("abc");
    DialogAnswers answers;
    answers.press(wxID_OK);
    editor.press(wxID_OK);
    EXPECT_FALSE(editor.hasEnded());
    EXPECT_EQ(answers.shown().size(), 1u) << "the toolkit's own message";
}

TEST_F(EditorTest, AFailedSaveAsStaysWithTheNewName)
{
    Editor editor(makeTable("a.ctb"));
    find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("changed");
    ErrorLog log;
    DialogAnswers answers;
    const wxString target = folder.file("missing/100%s.ctb");
    answers.choose(target);
    editor.press("BtnSaveAs");
    EXPECT_EQ(log.messages(),
              std::vector<wxString>{"Failed to save file: " + target + "\n" +
                                    folder.file("missing") + ": No such file or directory"});
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - 100%s.ctb");
    EXPECT_TRUE(editor.isModified());
    EXPECT_EQ(loadTable(folder.file("a.ctb"))->description(), OdString());
}

TEST_F(EditorTest, SaveAsStopsAtAConflictOfAField)
{
    Editor editor(makeTable("a.ctb"));
    find<wxCheckBox>(editor, "CheckScale")->SetValue(true);
    updateUi(editor);
    find<wxTextCtrl>(editor, "TextScale")->SetValue("abc");
    DialogAnswers answers;
    answers.press(wxID_OK);
    editor.press("BtnSaveAs");
    ASSERT_EQ(answers.shown().size(), 1u);
    EXPECT_EQ(answers.shown().front().className, "wxMessageDialog") << "no file dialog";
}

TEST_F(EditorTest, SaveAsOffersTheKindOfTheTable)
{
    const struct
    {
        const char* name;
        const char* wildcard;
    } cases[] = {
        {"a.ctb", "Color-dependent Plot Style files (*.ctb)|*.ctb|All files (*.*)|*.*"},
        {"a.stb", "Named Plot Style files (*.stb)|*.stb|All files (*.*)|*.*"},
    };
    for (const auto& c : cases)
    {
        Editor editor(makeTable(c.name));
        DialogAnswers answers;
        answers.press(wxID_CANCEL);
        editor.press("BtnSaveAs");
        ASSERT_EQ(answers.shown().size(), 1u);
        const ShownDialog& dialog = answers.shown().front();
        EXPECT_EQ(dialog.message, "Save Plot Style File As");
        EXPECT_EQ(dialog.wildcard, c.wildcard);
        EXPECT_EQ(dialog.directory, folder.path());
        EXPECT_EQ(dialog.fileName, c.name);
        EXPECT_TRUE(dialog.style & wxFD_SAVE);
        EXPECT_TRUE(dialog.style & wxFD_OVERWRITE_PROMPT);
        EXPECT_EQ(editor.GetTitle(), wxString("Plot Style Table Editor - ") + c.name);
    }
}

TEST_F(EditorTest, SaveAsGoesOnWithTheNewFile)
{
    const wxString old = makeTable("a.ctb");
    const std::string before = readBytes(old);
    Editor editor(old);
    find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("renamed");
    const wxString target = folder.file("x.CTB");
    DialogAnswers answers;
    answers.choose(target);
    editor.press("BtnSaveAs");
    EXPECT_EQ(loadTable(target)->description(), OdString(L"renamed"));
    EXPECT_EQ(readBytes(old), before);
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - x.CTB");
    EXPECT_EQ(text(editor, "StatFileName"), "x.CTB");
    EXPECT_FALSE(editor.isModified());
    find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("again");
    editor.press(wxID_OK);
    EXPECT_EQ(loadTable(target)->description(), OdString(L"again"));
    EXPECT_EQ(readBytes(old), before);
}

TEST_F(EditorTest, SaveAsGivesANameWithoutAnExtensionThatOfTheKind)
{
    for (const char* extension : {"ctb", "stb"})
    {
        Editor editor(makeTable(wxString("a.") + extension));
        DialogAnswers answers;
        answers.choose(folder.file("x"));
        editor.press("BtnSaveAs");
        EXPECT_EQ(editor.GetTitle(), wxString("Plot Style Table Editor - x.") + extension);
        EXPECT_TRUE(wxFileExists(folder.file(wxString("x.") + extension)));
        EXPECT_FALSE(wxFileExists(folder.file("x")));
    }
}

TEST_F(EditorTest, ADescriptionThatTheFieldCannotShowIsNoChange)
{
    const std::string text = support::colorTableText();
    for (const std::string& description : {std::string("a\0b", 3), std::string("a\rb"),
                                           std::string("a\x01\tb"), std::string("a\xE4\0", 3)})
    {
        const std::string bytes = support::pack(
            support::replaced(text, "description=\"\n", "description=\"" + description + "\n"));
        const wxString file = makeFile("table.ctb", bytes);
        Editor editor(file);
        EXPECT_FALSE(editor.isModified());
        find<wxListCtrl>(editor, "ListLineWeights")->EditLabel(26)->SetValue("3");
        editor.press(wxID_OK);
        EXPECT_EQ(support::changedLines(text, support::unpack(readBytes(file))).size(), 2u)
            << "the description and the lineweight";
        EXPECT_NE(support::unpack(readBytes(file)).find(description), std::string::npos);
    }
}

// The filters of the desktop's file dialog go by the case of a name, tables do not.
TEST_F(EditorTest, FileDialogsShowTablesInCapitals)
{
    struct Info // GtkFileFilterInfo
    {
        int contains;
        const char* path;
        const char* uri;
        const char* name;
        const char* type;
    };
    struct List // GSList
    {
        void* filter;
        List* next;
    };
    constexpr int hasName = 4; // GTK_FILE_FILTER_DISPLAY_NAME
    const auto filters =
        reinterpret_cast<List* (*)(WXWidget)>(dlsym(RTLD_DEFAULT, "gtk_file_chooser_list_filters"));
    const auto shows = reinterpret_cast<int (*)(void*, const Info*)>(
        dlsym(RTLD_DEFAULT, "gtk_file_filter_filter"));
    const auto shown = [&](const wxDialog* dialog, const char* name)
    {
        const Info info{hasName, nullptr, nullptr, name, nullptr};
        return shows(filters(dialog->GetHandle())->filter, &info) != 0;
    };
    for (const char* button : {"BtnOpen", "BtnSaveAs"})
    {
        Editor editor(makeTable("a.ctb"));
        DialogAnswers answers;
        answers.answer(
            [&](wxDialog* dialog)
            {
                for (const char* name : {"x.ctb", "X.CTB", "X.Ctb"})
                    EXPECT_TRUE(shown(dialog, name)) << button << " " << name;
                EXPECT_FALSE(shown(dialog, "x.txt")) << button;
                return int(wxID_CANCEL);
            });
        editor.press(button);
    }
}

// The file dialog asks about the name as it was typed, which is another.
TEST_F(EditorTest, SaveAsAsksBeforeItReplacesAFileByTheExtensionItAdds)
{
    const wxString other = makeTable("x.ctb", describe(L"not this one"));
    const std::string before = readBytes(other);
    Editor editor(makeTable("a.ctb"));
    DialogAnswers answers;
    answers.choose(folder.file("x"));
    answers.press(wxID_NO);
    editor.press("BtnSaveAs");
    EXPECT_EQ(answers.shown().back().message, "File 'x.ctb' exists already. Replace it?");
    EXPECT_EQ(readBytes(other), before);
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - a.ctb");
    answers.choose(folder.file("x"));
    answers.press(wxID_YES);
    editor.press("BtnSaveAs");
    EXPECT_NE(readBytes(other), before);
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - x.ctb");
}

TEST_F(EditorTest, SaveAsRefusesAnotherExtension)
{
    const struct
    {
        const char* table;
        const char* target;
    } cases[] = {{"a.ctb", "x.stb"}, {"a.ctb", "x.txt"}, {"a.stb", "x.ctb"}, {"a.stb", "x.stb2"}};
    for (const auto& c : cases)
    {
        Editor editor(makeTable(c.table));
        find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("changed");
        ErrorLog log;
        DialogAnswers answers;
        answers.choose(folder.file(c.target));
        editor.press("BtnSaveAs");
        EXPECT_EQ(log.messages(),
                  std::vector<wxString>{wxString(c.target) + " is not a valid name to save to."});
        EXPECT_FALSE(wxFileExists(folder.file(c.target))) << c.target;
        EXPECT_EQ(editor.GetTitle(), wxString("Plot Style Table Editor - ") + c.table);
        EXPECT_TRUE(editor.isModified());
    }
}

TEST_F(EditorTest, MessagesTakeFileNamesAsTheyAre)
{
    Editor editor(makeTable("a.ctb"));
    ErrorLog log;
    DialogAnswers answers;
    answers.choose(folder.file("100%s%n.stb"));
    editor.press("BtnSaveAs");
    EXPECT_EQ(log.messages(), std::vector<wxString>{"100%s%n.stb is not a valid name to save to."});
}

// --- Asking before changes are lost --------------------------------------------------------

namespace
{

enum class Outcome
{
    Unmodified,
    Yes,
    No,
    Cancel
};

} // namespace

class CheckSave : public EditorTest, public testing::WithParamInterface<Outcome>
{
protected:
    const wxString file = makeTable("table.ctb", describe(L"before"));
    Editor editor{file};
    DialogAnswers answers;

    // Changes the table, except where nothing is to be saved, and prepares the answer.
    void prepare()
    {
        if (GetParam() == Outcome::Unmodified)
            return;
        find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("after");
        answers.press(GetParam() == Outcome::Yes  ? wxID_YES
                      : GetParam() == Outcome::No ? wxID_NO
                                                  : wxID_CANCEL);
    }

    void expectQuestionAndFile()
    {
        if (GetParam() != Outcome::Unmodified)
        {
            ASSERT_FALSE(answers.shown().empty());
            const ShownDialog& question = answers.shown().front();
            EXPECT_EQ(question.message, "Do you want to save changes?");
            EXPECT_EQ(question.caption, "Plot Style Table Editor");
            EXPECT_EQ(question.style & (wxYES_NO | wxCANCEL | wxICON_MASK),
                      wxYES_NO | wxCANCEL | wxICON_QUESTION);
        }
        EXPECT_EQ(loadTable(file)->description(),
                  OdString(GetParam() == Outcome::Yes ? L"after" : L"before"));
    }
};

TEST_P(CheckSave, OnCancel)
{
    prepare();
    editor.press(wxID_CANCEL);
    expectQuestionAndFile();
    EXPECT_EQ(editor.endedWith(wxID_CANCEL), GetParam() != Outcome::Cancel);
}

TEST_P(CheckSave, OnOpen)
{
    const wxString other = makeTable("other.ctb", describe(L"other"));
    prepare();
    const bool goesOn = GetParam() != Outcome::Cancel;
    if (goesOn)
        answers.choose(other);
    editor.press("BtnOpen");
    expectQuestionAndFile();
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), goesOn ? "other" : "after");
    EXPECT_EQ(editor.isModified(), !goesOn);
    if (goesOn)
    {
        const ShownDialog& dialog = answers.shown().back();
        EXPECT_EQ(dialog.message, "Select a Plot Style File");
        EXPECT_EQ(dialog.directory, folder.path());
        EXPECT_EQ(dialog.fileName, "");
        EXPECT_EQ(dialog.wildcard,
                  "Plot Style files (*.ctb;*.stb)|*.ctb;*.stb|All files (*.*)|*.*");
        EXPECT_TRUE(dialog.style & wxFD_OPEN);
        EXPECT_TRUE(dialog.style & wxFD_FILE_MUST_EXIST);
    }
}

INSTANTIATE_TEST_SUITE_P(Outcomes, CheckSave,
                         testing::Values(Outcome::Unmodified, Outcome::Yes, Outcome::No,
                                         Outcome::Cancel));

TEST_F(EditorTest, AFailedSaveAfterTheQuestionStaysOpen)
{
    const wxString subfolder = folder.file("sub");
    wxMkdir(subfolder);
    Editor editor(subfolder + "/new.stb");
    wxRmdir(subfolder);
    ErrorLog log;
    DialogAnswers answers;
    answers.press(wxID_YES);
    editor.press(wxID_CANCEL);
    EXPECT_FALSE(editor.hasEnded());
    EXPECT_EQ(log.messages().size(), 1u);
}

TEST_F(EditorTest, ACancelledOpenKeepsTheTable)
{
    Editor editor(makeTable("table.ctb", describe(L"kept")));
    DialogAnswers answers;
    answers.press(wxID_CANCEL);
    editor.press("BtnOpen");
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "kept");
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - table.ctb");
}

TEST_F(EditorTest, DefaultsOfANewTableAreShown)
{
    Editor editor(folder.file("new.stb"));
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextTableDescr")->GetValue(), "");
    EXPECT_EQ(find<wxTextCtrl>(editor, "TextScale")->GetValue(), "1");
    EXPECT_FALSE(find<wxCheckBox>(editor, "CheckScale")->GetValue());
    EXPECT_TRUE(find<wxRadioButton>(editor, "RadLwMm")->GetValue());
    EXPECT_EQ(find<wxSpinCtrl>(editor, "SpinPhysPen")->GetMax(), 32);
    EXPECT_EQ(find<wxSpinCtrl>(editor, "SpinVirtPen")->GetMax(), 255);
    EXPECT_EQ(find<wxSpinCtrl>(editor, "SpinScreening")->GetMax(), 100);
}

TEST_F(EditorTest, FileDialogsBelongToTheEditor)
{
    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            click(*dialog, "BtnOpen");
            click(*dialog, "BtnSaveAs");
        });
    answers.press(wxID_CANCEL);
    answers.press(wxID_CANCEL);
    DlgPlotStyleEditor dialog(makeTable("table.ctb"), "", nullptr);
    dialog.ShowModal();
    ASSERT_EQ(answers.shown().size(), 3u);
    EXPECT_EQ(answers.shown()[1].parent, &dialog);
    EXPECT_EQ(answers.shown()[2].parent, &dialog);
}

// --- Edits that end with a button ----------------------------------------------------------

class EndsOfEdits : public EditorTest, public testing::WithParamInterface<const char*>
{
protected:
    const wxString file =
        makeTable("names.stb", [](OdPsPlotStyleTable& table) { table.addNewStyle(L"Walls"); });

    // Shows the editor, types a text into the second style's name, and presses the button of the
    // test while the name has the focus, as its mnemonic does.
    void rename(const wxString& name, DialogAnswers& answers,
                const std::function<void(wxDialog*)>& afterwards)
    {
        answers.run(
            [=](wxDialog* dialog)
            {
                find<wxNotebook>(*dialog, "NoteBook")->SetSelection(1);
                wxListCtrl* list = find<wxListCtrl>(*dialog, "ListStyles");
                wxTextCtrl* edit = list->EditLabel(1);
                edit->SetValue(name);
                edit->SetFocus();
                ASSERT_TRUE(waitFor([edit] { return wxWindow::FindFocus() == edit; }));
                click(*dialog, GetParam());
                afterwards(dialog);
            });
    }
};

TEST_P(EndsOfEdits, TakeTheNewName)
{
    const std::string button = GetParam();
    DialogAnswers answers;
    rename("Cut walls", answers, [](wxDialog*) {});
    if (button == "BtnOpen" || button == "wxID_CANCEL")
        answers.press(wxID_YES);
    if (button == "BtnOpen")
        answers.press(wxID_CANCEL);
    if (button == "BtnSaveAs")
        answers.choose(file);
    DlgPlotStyleEditor(file, "", nullptr).ShowModal();
    EXPECT_EQ(loadTable(file)->styleAt(1)->name(), OdString(L"Cut walls"));
}

TEST_P(EndsOfEdits, WithARefusedNameStayOpen)
{
    const std::string before = readBytes(file);
    ErrorLog log;
    DialogAnswers answers;
    rename("a/b", answers,
           [](wxDialog* dialog)
           {
               EXPECT_TRUE(dialog->IsModal());
               EXPECT_EQ(find<wxListCtrl>(*dialog, "ListStyles")->GetItemText(1), "Walls");
           });
    DlgPlotStyleEditor(file, "", nullptr).ShowModal();
    EXPECT_EQ(log.messages().size(), 1u);
    EXPECT_EQ(answers.shown().size(), 1u) << "no file dialog came up";
    EXPECT_EQ(readBytes(file), before);
}

INSTANTIATE_TEST_SUITE_P(Buttons, EndsOfEdits,
                         testing::Values("wxID_OK", "BtnSaveAs", "BtnOpen", "wxID_CANCEL"));

TEST_F(EditorTest, AClickThatEndsARefusedEditStaysOpen)
{
    const wxString file =
        makeTable("names.stb", [](OdPsPlotStyleTable& table) { table.addNewStyle(L"Walls"); });
    ErrorLog log;
    DialogAnswers answers;
    answers.run(
        [&log](wxDialog* dialog)
        {
            find<wxNotebook>(*dialog, "NoteBook")->SetSelection(1);
            wxTextCtrl* edit = find<wxListCtrl>(*dialog, "ListStyles")->EditLabel(1);
            edit->SetValue("a/b");
            edit->SetFocus();
            wxWindow* ok = dialog->FindWindow(wxID_OK);
            int clicks = 0;
            ok->Bind(wxEVT_BUTTON,
                     [&clicks](wxCommandEvent& event)
                     {
                         ++clicks;
                         event.Skip();
                     });
            ASSERT_TRUE(waitFor([edit] { return wxWindow::FindFocus() == edit; }));
            wxUIActionSimulator mouse;
            const wxRect place = ok->GetScreenRect();
            mouse.MouseMove(place.GetPosition() + place.GetSize() / 2);
            mouse.MouseClick();
            EXPECT_TRUE(waitFor([&clicks] { return clicks == 1; }));
            EXPECT_EQ(log.messages().size(), 1u);
            EXPECT_TRUE(dialog->IsModal()) << "the refusal holds the dialog open";
            wxListCtrl* list = find<wxListCtrl>(*dialog, "ListStyles");
            ASSERT_TRUE(waitFor([list] { return list->GetEditControl(); }));
            EXPECT_EQ(list->GetEditControl()->GetValue(), "a/b") << "the edit goes on";
            list->EndEditLabel(true);
            click(*dialog, wxID_OK);
            EXPECT_FALSE(dialog->IsModal()) << "nothing is left to refuse";
        });
    DlgPlotStyleEditor(file, "", nullptr).ShowModal();
    EXPECT_EQ(loadTable(file)->styleAt(1)->name(), OdString(L"Walls"));
}

// --- Real tables ---------------------------------------------------------------------------

TEST_F(EditorTest, RealTablesOpenAndCloseUnchanged)
{
    const auto tables = support::realTables();
    if (tables.empty())
        GTEST_SKIP() << "PSTYLE_REAL_TABLES names no folder of tables";
    for (const auto& path : tables)
    {
        const wxString name = wxString::FromUTF8(path.filename().string());
        const std::string bytes = support::readFile(path);
        const wxString file = makeFile(name, bytes);
        Editor editor(file);
        EXPECT_FALSE(editor.isModified()) << name;
        EXPECT_NE(text(editor, "StatFileType"), "No table") << name;
        editor.press(wxID_OK);
        EXPECT_TRUE(editor.endedWith(wxID_OK)) << name;
        EXPECT_EQ(readBytes(file), bytes) << name;
    }
}
