// The chooser: its rows and messages, its checks, and the editor that it opens.

#include "support/editor_test.h"
#include "support/table_maker.h"

#include "psl_dlg_select_table.h"

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/filedlg.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace
{

/// The chooser, initialised without being shown, with a user's hands.
class Chooser : public DlgSelectTable
{
public:
    Chooser()
        : DlgSelectTable(nullptr)
    {
        InitDialog();
    }

    void mode(const char* name)
    {
        auto* button = find<wxRadioButton>(*this, name);
        button->SetValue(true);
        wxCommandEvent event(wxEVT_RADIOBUTTON, button->GetId());
        event.SetEventObject(button);
        button->HandleWindowEvent(event);
    }

    void tableType(int type)
    {
        auto* choice = find<wxChoice>(*this, "ChoiceTableType");
        choice->SetSelection(type);
        wxCommandEvent event(wxEVT_CHOICE, choice->GetId());
        event.SetEventObject(choice);
        choice->HandleWindowEvent(event);
    }

    void source(const wxString& text)
    {
        find<wxComboBox>(*this, "ComboSourceFile")->SetValue(text);
    }
    void name(const wxString& text) { find<wxTextCtrl>(*this, "TextTableName")->SetValue(text); }
    wxString message() const { return find<wxStaticText>(*this, "StatMessage")->GetLabelText(); }

    bool isOkEnabled()
    {
        updateUi(*this);
        return FindWindow(wxID_OK)->IsEnabled();
    }

    void ok() { click(*this, wxID_OK); }
    bool endedWithOk() const { return m_ended == wxID_OK; }

private:
    bool IsModal() const override { return true; }
    void EndModal(int id) override { m_ended = id; }

    int m_ended = 0;
};

class ChooserTest : public EditorTest
{
protected:
    void SetUp() override { wxSetEnv("PSTYLE_PLOT_STYLE_PATH", folder.path()); }

    // Lets the editor, which comes up next, show what it was opened on, and cancels it.
    void expectEditor(const wxString& title, const wxString& path)
    {
        answers.run(
            [title, path](wxDialog* dialog)
            {
                EXPECT_EQ(dialog->GetTitle(), "Plot Style Table Editor - " + title);
                const wxString shown = find<wxStaticText>(*dialog, "StatFilePath")->GetLabelText();
                const wxString kept =
                    shown.EndsWith("...") ? shown.Left(shown.length() - 3) : shown;
                EXPECT_TRUE(("Path: " + path).StartsWith(kept)) << shown;
                dialog->EndModal(wxID_CANCEL);
            });
    }

    DialogAnswers answers;
    ErrorLog log;
};

using Messages = std::vector<wxString>;

} // namespace

TEST_F(ChooserTest, BeginsWithOpeningAndListsTheFolder)
{
    makeTable("a.ctb");
    makeTable("b.stb");
    makeFile("c.txt", "");
    Chooser chooser;
    EXPECT_EQ(chooser.GetTitle(), "Plot Style Table Editor");
    EXPECT_TRUE(find<wxRadioButton>(chooser, "RadOpen")->GetValue());
    EXPECT_EQ(find<wxChoice>(chooser, "ChoiceTableType")->GetStringSelection(), "CTB");
    const auto* combo = find<wxComboBox>(chooser, "ComboSourceFile");
    EXPECT_EQ(combo->GetCount(), 2u);
    EXPECT_NE(combo->FindString("a.ctb"), wxNOT_FOUND);
    EXPECT_NE(combo->FindString("b.stb"), wxNOT_FOUND);
    EXPECT_EQ(combo->GetValue(), "");
}

TEST_F(ChooserTest, IsFourHundredPixelsWide)
{
    answers.run([](wxDialog* dialog) { EXPECT_EQ(dialog->GetSize().x, 400); });
    DlgSelectTable(nullptr).ShowModal();
}

TEST_F(ChooserTest, ShowsTheRowsOfItsMode)
{
    const std::pair<const char*, std::vector<const char*>> modes[] = {
        {"RadOpen", {"StatSourceFile", "ComboSourceFile", "BtnBrowse", "StatOpen1", "StatOpen2"}},
        {"RadNew", {"StatTableType", "ChoiceTableType", "StatTableName", "TextTableName"}},
        {"RadCopy",
         {"StatSourceFile", "ComboSourceFile", "BtnBrowse", "StatTableName", "TextTableName"}},
    };
    Chooser chooser;
    for (const auto& [mode, shown] : modes)
    {
        chooser.mode(mode);
        for (const char* name :
             {"StatTableType", "ChoiceTableType", "StatSourceFile", "ComboSourceFile", "BtnBrowse",
              "StatTableName", "TextTableName", "StatOpen1", "StatOpen2"})
        {
            const bool isExpected = std::find_if(shown.begin(), shown.end(),
                                                 [name](const char* s)
                                                 { return std::string(s) == name; }) != shown.end();
            EXPECT_EQ(find<wxWindow>(chooser, name)->IsShown(), isExpected) << mode << " " << name;
        }
    }
}

TEST_F(ChooserTest, TellsWhatItsModeDoes)
{
    Chooser chooser;
    EXPECT_EQ(chooser.message(), "Open an existing plot style table file.");
    chooser.mode("RadNew");
    EXPECT_EQ(chooser.message(),
              "A color-dependent plot style table will be created (CTB), containing 255 plot "
              "styles, one for every color index.");
    chooser.tableType(1);
    EXPECT_EQ(chooser.message(),
              "A named plot style table will be created (STB), containing one plot style named "
              "'Normal'. New plot styles can be added in the editor.");
    chooser.mode("RadCopy");
    EXPECT_EQ(chooser.message(), "A new plot style table will be created based on an existing plot "
                                 "style table file.");
    chooser.mode("RadOpen");
    EXPECT_EQ(chooser.message(), "Open an existing plot style table file.");
}

TEST_F(ChooserTest, OkNeedsWhatTheModeNeeds)
{
    Chooser chooser;
    EXPECT_FALSE(chooser.isOkEnabled()) << "open, nothing chosen";
    chooser.source("a.ctb");
    EXPECT_TRUE(chooser.isOkEnabled()) << "open";
    chooser.mode("RadCopy");
    EXPECT_FALSE(chooser.isOkEnabled()) << "copy, no name";
    chooser.name("b");
    EXPECT_TRUE(chooser.isOkEnabled()) << "copy";
    chooser.source("");
    EXPECT_FALSE(chooser.isOkEnabled()) << "copy, nothing chosen";
    chooser.mode("RadNew");
    EXPECT_TRUE(chooser.isOkEnabled()) << "new";
    chooser.name("");
    EXPECT_FALSE(chooser.isOkEnabled()) << "new, no name";
}

TEST_F(ChooserTest, OpensATable)
{
    makeTable("A.CTB");
    Chooser chooser;
    chooser.source("A.CTB");
    expectEditor("A.CTB", folder.file("A.CTB"));
    chooser.ok();
    EXPECT_TRUE(chooser.endedWithOk()) << "whatever became of the editor";
}

TEST_F(ChooserTest, OpensATableByItsPath)
{
    wxMkdir(folder.file("elsewhere"));
    const wxString file = makeTable("elsewhere/b.stb");
    Chooser chooser;
    chooser.source(file);
    expectEditor("b.stb", file);
    chooser.ok();
    EXPECT_TRUE(chooser.endedWithOk());
}

TEST_F(ChooserTest, RefusesWhatIsNoTable)
{
    makeFile("a.txt", "");
    wxMkdir(folder.file("folder.ctb"));
    Chooser chooser;
    for (const char* name : {"a.txt", "missing.ctb", "folder.ctb", "100%s.ctb"})
    {
        log.clear();
        chooser.source(name);
        chooser.ok();
        EXPECT_EQ(log.messages(),
                  Messages{wxString(name) + " is not a valid plot style table file."});
        EXPECT_FALSE(chooser.endedWithOk());
        EXPECT_EQ(find<wxComboBox>(chooser, "ComboSourceFile")->GetValue(), name);
    }
}

TEST_F(ChooserTest, CreatesFromScratch)
{
    const struct
    {
        int type;
        const char* typed;
        const char* file;
    } cases[] = {
        {1, "MyTable", "MyTable.stb"},       {0, "MyTable", "MyTable.ctb"},
        {0, "Other.CTB", "Other.CTB"},       {1, "sub/Deep.stb", "Deep.stb"},
        {0, "two.dots.ctb", "two.dots.ctb"},
    };
    for (const auto& c : cases)
    {
        Chooser chooser;
        chooser.mode("RadNew");
        chooser.tableType(c.type);
        chooser.name(c.typed);
        expectEditor(c.file, folder.file(c.file));
        chooser.ok();
        EXPECT_TRUE(chooser.endedWithOk()) << c.typed;
        EXPECT_FALSE(wxFileExists(folder.file(c.file))) << "the editor was cancelled";
    }
    EXPECT_TRUE(log.messages().empty());
}

TEST_F(ChooserTest, RefusesExtensionsOfAnotherKind)
{
    makeTable("x.ctb");
    const struct
    {
        const char* mode;
        int type;
        const char* typed;
        const char* extension;
    } cases[] = {
        {"RadNew", 0, "MyTable.stb", "stb"}, {"RadNew", 1, "MyTable.CTB", "ctb"},
        {"RadNew", 0, "MyTable.txt", "txt"}, {"RadCopy", 0, "y.STB", "stb"},
        {"RadCopy", 0, "y.txt", "txt"},
    };
    for (const auto& c : cases)
    {
        log.clear();
        Chooser chooser;
        chooser.source("x.ctb");
        chooser.mode(c.mode);
        chooser.tableType(c.type);
        chooser.name(c.typed);
        chooser.ok();
        EXPECT_EQ(
            log.messages(),
            Messages{wxString::Format(
                "Extension '%s' is not valid for this type of plot style table.", c.extension)});
        EXPECT_FALSE(chooser.endedWithOk());
    }
}

TEST_F(ChooserTest, RefusesAFileThatExists)
{
    makeTable("MyTable.ctb");
    for (const char* mode : {"RadNew", "RadCopy"})
    {
        log.clear();
        Chooser chooser;
        chooser.source("MyTable.ctb");
        chooser.mode(mode);
        chooser.name("MyTable");
        chooser.ok();
        EXPECT_EQ(log.messages(), Messages{"File 'MyTable' exists already."});
        EXPECT_FALSE(chooser.endedWithOk());
    }
}

TEST_F(ChooserTest, ChecksTheSourceBeforeTheTarget)
{
    Chooser chooser;
    chooser.source("missing.ctb");
    chooser.mode("RadCopy");
    chooser.name("y.stb");
    chooser.ok();
    EXPECT_EQ(log.messages(), Messages{"missing.ctb is not a valid plot style table file."});
}

TEST_F(ChooserTest, CopiesATable)
{
    const wxString source = makeTable("x.ctb", describe(L"the original"));
    Chooser chooser;
    chooser.source("x.ctb");
    chooser.mode("RadCopy");
    chooser.name("y");
    answers.run(
        [](wxDialog* dialog)
        {
            EXPECT_EQ(dialog->GetTitle(), "Plot Style Table Editor - y.ctb");
            EXPECT_EQ(find<wxTextCtrl>(*dialog, "TextTableDescr")->GetValue(), "the original");
            click(*dialog, wxID_OK);
        });
    chooser.ok();
    EXPECT_TRUE(chooser.endedWithOk());
    EXPECT_EQ(readBytes(folder.file("y.ctb")), readBytes(source));
}

TEST_F(ChooserTest, BrowsesFromThePlotStyleFolderOrTheTypedPath)
{
    const wxString chosen = makeTable("chosen.ctb");
    Chooser chooser;
    chooser.source("relative.ctb");
    answers.choose(chosen);
    click(chooser, "BtnBrowse");
    const ShownDialog& first = answers.shown().back();
    EXPECT_EQ(first.message, "Select a Plot Style File");
    EXPECT_EQ(first.directory, folder.path());
    EXPECT_EQ(first.fileName, "");
    EXPECT_EQ(first.wildcard, "Plot Style files (*.ctb;*.stb)|*.ctb;*.stb|All files (*.*)|*.*");
    EXPECT_TRUE(first.style & wxFD_OPEN);
    EXPECT_TRUE(first.style & wxFD_FILE_MUST_EXIST);
    const auto* combo = find<wxComboBox>(chooser, "ComboSourceFile");
    EXPECT_EQ(combo->GetValue(), chosen);

    answers.press(wxID_CANCEL);
    click(chooser, "BtnBrowse");
    EXPECT_EQ(answers.shown().back().directory, chosen) << "the whole text";
    EXPECT_EQ(combo->GetValue(), chosen) << "cancelled";
}

TEST_F(ChooserTest, AnEmptyFolderSettingMeansTheCurrentFolder)
{
    wxSetEnv("PSTYLE_PLOT_STYLE_PATH", "");
    Chooser chooser;
    EXPECT_EQ(find<wxComboBox>(chooser, "ComboSourceFile")->GetCount(), 0u);
    makeTable("here.ctb");
    const wxString before = wxGetCwd();
    wxSetWorkingDirectory(folder.path());
    chooser.source("here.ctb");
    answers.run([](wxDialog*) {});
    chooser.ok();
    EXPECT_TRUE(chooser.endedWithOk());
    wxSetWorkingDirectory(before);
}

// One road from the chooser to the file, on a real table where there is one.
TEST_F(ChooserTest, TheRoadOfACopyChangesNothingButWhatWasEdited)
{
    const auto tables = support::realTables();
    const auto colours = std::find_if(tables.begin(), tables.end(),
                                      [](const auto& path) { return path.extension() == ".ctb"; });
    const wxString source = colours == tables.end()
                                ? makeTable("source.ctb")
                                : makeFile("source.ctb", support::readFile(*colours));
    ASSERT_TRUE(loadTable(source)->isColorDependent());
    Chooser chooser;
    chooser.source("source.ctb");
    chooser.mode("RadCopy");
    chooser.name("copy");
    answers.run(
        [](wxDialog* dialog)
        {
            find<wxNotebook>(*dialog, "NoteBook")->SetSelection(1);
            auto* list = find<wxListCtrl>(*dialog, "ListStyles");
            for (const int row : {10, 20})
                list->SetItemState(row, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
            auto* combo = find<wxOwnerDrawnComboBox>(*dialog, "ComboLineWeight");
            combo->SetSelection(9);
            wxCommandEvent picked(wxEVT_COMBOBOX, combo->GetId());
            picked.SetEventObject(combo);
            combo->HandleWindowEvent(picked);
            click(*dialog, wxID_OK);
        });
    chooser.ok();
    EXPECT_TRUE(chooser.endedWithOk());

    const auto before = loadTable(source);
    const auto after = loadTable(folder.file("copy.ctb"));
    for (int i = 0; i < 255; ++i)
    {
        OdPsPlotStyleData expected;
        OdPsPlotStyleData found;
        before->styleAt(i)->getData(expected);
        after->styleAt(i)->getData(found);
        if (i == 10 || i == 20)
            expected.lineweight = 9.0;
        EXPECT_EQ(found, expected) << i;
    }
    const auto changed = support::changedLines(support::unpack(readBytes(source)),
                                               support::unpack(readBytes(folder.file("copy.ctb"))));
    EXPECT_EQ(changed.size(), 2u);
}

// The entry point comes last: it registers the resources itself.
TEST(ChooserEntryPoint, TellsThatTheEditorWasOpened)
{
    ErrorLog log;
    DialogAnswers answers;
    const TemporaryFolder folder;
    wxSetEnv("PSTYLE_PLOT_STYLE_PATH", folder.path());
    answers.run(
        [](wxDialog* dialog)
        {
            find<wxComboBox>(*dialog, "ComboSourceFile")->SetValue("a.ctb");
            const auto table = cma::createPlotStyleTable(true, L"");
            wxString path;
            wxGetEnv("PSTYLE_PLOT_STYLE_PATH", &path);
            cma::savePlotStyleTable(OdString((path + "/a.ctb").wc_str()), table);
            click(*dialog, wxID_OK);
        });
    answers.run([](wxDialog* editor) { click(*editor, wxID_CANCEL); });
    EXPECT_TRUE(startPlotStyleEditor(nullptr)) << "the editor was cancelled, but it was opened";
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_CANCEL); });
    EXPECT_FALSE(startPlotStyleEditor(nullptr));
}
