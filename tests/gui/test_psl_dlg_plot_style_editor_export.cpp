// The editor's hidden export button.

#include "support/editor_test.h"

#include <wx/filedlg.h>
#include <wx/textctrl.h>

namespace
{

class ExportButton : public EditorTest
{
protected:
    DialogAnswers answers;
    ErrorLog log;
};

} // namespace

TEST_F(ExportButton, ProposesAFileBesideTheTable)
{
    Editor editor(makeTable("monochrome.ctb"));
    answers.press(wxID_CANCEL);
    editor.press("BtnExport");
    ASSERT_EQ(answers.shown().size(), 1u);
    const ShownDialog& dialog = answers.shown().front();
    EXPECT_EQ(dialog.message, "Export Plot Style File To");
    EXPECT_EQ(dialog.directory, folder.path());
    EXPECT_EQ(dialog.fileName, "monochrome.ctb.csv");
    EXPECT_EQ(dialog.wildcard,
              "Comma-separated-value files (*.csv)|*.csv|Text files (*.txt)|*.txt|All files "
              "(*.*)|*.*");
    EXPECT_TRUE(dialog.style & wxFD_SAVE);
    EXPECT_TRUE(dialog.style & wxFD_OVERWRITE_PROMPT);
    EXPECT_FALSE(wxFileExists(folder.file("monochrome.ctb.csv")));
}

TEST_F(ExportButton, WritesPendingEditsUnderTheTablesOwnName)
{
    Editor editor(makeTable("table.stb"));
    find<wxTextCtrl>(editor, "TextTableDescr")->SetValue("typed, not saved");
    answers.choose(folder.file("other.csv"));
    editor.press("BtnExport");
    const std::string text = readBytes(folder.file("other.csv"));
    EXPECT_NE(text.find(",FileName,table.stb\n,Description,typed, not saved\n"), std::string::npos);
    EXPECT_EQ(editor.GetTitle(), "Plot Style Table Editor - table.stb");
}

TEST_F(ExportButton, IsNoChange)
{
    Editor editor(makeTable("table.ctb"));
    answers.choose(folder.file("table.csv"));
    editor.press("BtnExport");
    EXPECT_FALSE(editor.isModified());
}

TEST_F(ExportButton, ReportsAFileThatCannotBeOpened)
{
    Editor editor(makeTable("table.ctb"));
    const wxString target = folder.file("missing/100%s.csv");
    answers.choose(target);
    editor.press("BtnExport");
    EXPECT_EQ(log.messages(),
              std::vector<wxString>{"Failed to create or open file: " + target + "\n" +
                                    folder.file("missing") + ": No such file or directory"});
    EXPECT_FALSE(editor.isModified());
}

TEST_F(ExportButton, DoesNothingWithoutATable)
{
    answers.press(wxID_OK);
    Editor editor(makeFile("none.ctb", "no table"));
    editor.press("BtnExport");
    EXPECT_EQ(answers.shown().size(), 1u) << "only the message about the file";
}
