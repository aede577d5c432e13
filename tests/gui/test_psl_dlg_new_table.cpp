// The new-table dialog: the file that it writes, its checks, and what its entry point gives back.

#include "support/editor_test.h"

#include "psl_dlg_new_table.h"

#include <wx/checkbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace
{

using Messages = std::vector<wxString>;

class NewTableTest : public EditorTest
{
protected:
    // Types a name into the dialog that comes up next, sets its boxes, and presses OK.
    void name(const wxString& typed, bool launch, bool use)
    {
        answers.run(
            [=](wxDialog* dialog)
            {
                find<wxTextCtrl>(*dialog, "TextTableName")->SetValue(typed);
                find<wxCheckBox>(*dialog, "CheckLaunchEditor")->SetValue(launch);
                find<wxCheckBox>(*dialog, "CheckUseInDrawing")->SetValue(use);
                click(*dialog, wxID_OK);
            });
    }

    // Whether the dialog created its table.
    bool create(bool colorDependent)
    {
        return DlgNewTable(colorDependent, folder.path(), nullptr).ShowModal() == wxID_OK;
    }

    bool isTable(const wxString& file, bool colorDependent) const
    {
        return wxFileExists(folder.file(file)) &&
               loadTable(folder.file(file))->isColorDependent() == colorDependent;
    }

    std::vector<std::string> files() const { return support::namesIn(folder.path().utf8_string()); }

    DialogAnswers answers;
    ErrorLog log;
};

} // namespace

TEST_F(NewTableTest, BeginsWithBothBoxesTicked)
{
    DlgNewTable dialog(true, folder.path(), nullptr);
    dialog.InitDialog();
    EXPECT_EQ(dialog.GetTitle(), "Add Plot Style Table");
    EXPECT_EQ(find<wxTextCtrl>(dialog, "TextTableName")->GetValue(), "");
    EXPECT_TRUE(find<wxCheckBox>(dialog, "CheckLaunchEditor")->GetValue());
    EXPECT_TRUE(find<wxCheckBox>(dialog, "CheckUseInDrawing")->GetValue());
    EXPECT_EQ(find<wxStaticText>(dialog, "StatMessage")->GetLabelText(),
              "A new color-dependent plot style table will be created (CTB). It will contain 255 "
              "plot styles that have initially been set to the default values. Use the Editor to "
              "modify any of the plot styles.");
    DlgNewTable named(false, folder.path(), nullptr);
    named.InitDialog();
    EXPECT_EQ(find<wxStaticText>(named, "StatMessage")->GetLabelText(),
              "A new named plot style table will be created (STB). It will contain one plot style "
              "named 'Normal'. New plot styles can be added in the Editor.");
}

TEST_F(NewTableTest, OkNeedsAName)
{
    DlgNewTable dialog(true, folder.path(), nullptr);
    dialog.InitDialog();
    const auto isEnabledFor = [&dialog](const char* typed)
    {
        find<wxTextCtrl>(dialog, "TextTableName")->SetValue(typed);
        updateUi(dialog);
        return dialog.FindWindow(wxID_OK)->IsEnabled();
    };
    EXPECT_FALSE(isEnabledFor(""));
    EXPECT_TRUE(isEnabledFor(" "));
    EXPECT_TRUE(isEnabledFor("a"));
}

TEST_F(NewTableTest, WritesTheFileOfItsKind)
{
    const struct
    {
        bool colorDependent;
        const char* typed;
        const char* file;
    } cases[] = {
        {true, "Plot1", "Plot1.ctb"},      {false, "Plot1", "Plot1.stb"},
        {false, "Plot2.Stb", "Plot2.Stb"}, {true, "sub/Plot3", "Plot3.ctb"},
        {true, "/tmp/Plot4", "Plot4.ctb"}, {true, "Plot5.", "Plot5.ctb"},
        {false, "Pläne", "Pläne.stb"},
    };
    for (const auto& c : cases)
    {
        name(wxString::FromUTF8(c.typed), false, true);
        EXPECT_TRUE(create(c.colorDependent)) << c.typed;
        EXPECT_TRUE(isTable(wxString::FromUTF8(c.file), c.colorDependent)) << c.file;
    }
    EXPECT_EQ(files().size(), 7u);
}

TEST_F(NewTableTest, NamesItsFileWithoutBeingShown)
{
    const DlgNewTable dialog(true, "/tables", nullptr);
    EXPECT_EQ(dialog.fileName().GetPath(), "/tables");
    EXPECT_EQ(dialog.fileName().GetExt(), "ctb");
}

TEST_F(NewTableTest, RefusesTheExtensionOfAnotherKind)
{
    const struct
    {
        bool colorDependent;
        const char* typed;
        const char* extension;
    } cases[] = {{true, "Plot1.STB", "stb"}, {false, "Plot1.ctb", "ctb"}, {true, "a.txt", "txt"}};
    for (const auto& c : cases)
    {
        log.clear();
        name(c.typed, false, true);
        EXPECT_FALSE(create(c.colorDependent));
        EXPECT_EQ(
            log.messages(),
            Messages{wxString::Format(
                "Extension '%s' is not valid for this type of plot style table.", c.extension)});
    }
    EXPECT_TRUE(files().empty());
}

TEST_F(NewTableTest, RefusesAFileThatExists)
{
    const wxString file = makeFile("Plot1.ctb", "not to be touched");
    name("Plot1", false, true);
    EXPECT_FALSE(create(true));
    EXPECT_EQ(log.messages(), Messages{"File 'Plot1' exists already."});
    EXPECT_EQ(readBytes(file), "not to be touched");
}

TEST_F(NewTableTest, ReportsAFolderThatCannotBeWritten)
{
    const wxString missing = folder.file("missing");
    answers.run(
        [](wxDialog* dialog)
        {
            find<wxTextCtrl>(*dialog, "TextTableName")->SetValue("Plot1");
            click(*dialog, wxID_OK);
            EXPECT_TRUE(dialog->IsModal()) << "the dialog stays open";
            EXPECT_EQ(find<wxTextCtrl>(*dialog, "TextTableName")->GetValue(), "Plot1");
        });
    EXPECT_EQ(DlgNewTable(true, missing, nullptr).ShowModal(), wxID_CANCEL);
    EXPECT_EQ(log.messages(), Messages{"Failed to save file: " + missing + "/Plot1.ctb\n" +
                                       missing + ": No such file or directory"});
}

TEST_F(NewTableTest, RunsTheEditorOnTheNewFile)
{
    name("Plot1", true, true);
    answers.run(
        [this](wxDialog* editor)
        {
            EXPECT_EQ(editor->GetTitle(), "Plot Style Table Editor - Plot1.stb");
            EXPECT_TRUE(isTable("Plot1.stb", false)) << "the file is there before the editor";
            click(*editor, wxID_CANCEL);
        });
    EXPECT_TRUE(create(false)) << "however the editor ended";
}

// The entry point comes last: it registers the resources itself.
TEST_F(NewTableTest, ZEntryPointGivesTheNameForTheDrawing)
{
    wxString given = "stale";
    name("MyTable", false, true);
    EXPECT_TRUE(newPlotStyleTable(given, true, folder.path(), nullptr));
    EXPECT_EQ(given, "MyTable.ctb");

    given = "stale";
    name("Other", false, false);
    EXPECT_TRUE(newPlotStyleTable(given, true, folder.path(), nullptr));
    EXPECT_EQ(given, "");
    EXPECT_TRUE(isTable("Other.ctb", true));

    given = "stale";
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_CANCEL); });
    EXPECT_FALSE(newPlotStyleTable(given, true, folder.path(), nullptr));
    EXPECT_EQ(given, "");
    EXPECT_EQ(files().size(), 2u);
}
