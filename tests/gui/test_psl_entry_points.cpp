// The functions that open the editor.

#include "psl.h"
#include "support/gui_support.h"

#include "cmdapi/cma.h"

#include <gtest/gtest.h>

#include <wx/filename.h>
#include <wx/filesys.h>
#include <wx/textctrl.h>

#include <memory>

namespace
{

bool isRegistered()
{
    const wxString name = "memory:XRC_resource/psl_xrc.inl$.._.._.._ico_tarnvale_app_16.ico";
    return std::unique_ptr<wxFSFile>(wxFileSystem().OpenFile(name)) != nullptr;
}

class EntryPoints : public testing::Test
{
protected:
    TemporaryFolder folder;
    const wxString table = folder.file("table.ctb");

    void SetUp() override
    {
        cma::savePlotStyleTable(OdString(table.wc_str()), cma::createPlotStyleTable(true, L""));
    }
};

} // namespace

// Tests run in this order: the first one makes the process's first call.
TEST_F(EntryPoints, AFirstCallRegistersTheResourcesOnce)
{
    EXPECT_FALSE(isRegistered());
    ErrorLog log;
    DialogAnswers answers;
    for (int call = 1; call <= 3; ++call)
    {
        answers.run([](wxDialog* dialog) { click(*dialog, wxID_CANCEL); });
        editPlotStyleTable(table, nullptr);
        EXPECT_TRUE(isRegistered());
    }
    // A second registration would be logged as an error, file by file.
    EXPECT_TRUE(log.messages().empty()) << log.messages().front();
}

TEST_F(EntryPoints, TellWhetherTheEditorEndedWithOk)
{
    DialogAnswers answers;
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_OK); });
    EXPECT_TRUE(editPlotStyleTable(table, nullptr));
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_CANCEL); });
    EXPECT_FALSE(editPlotStyleTable(table, nullptr));
    answers.run([](wxDialog* dialog) { dialog->Close(); });
    EXPECT_FALSE(editPlotStyleTable(table, nullptr)) << "the close box";
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_OK); });
    EXPECT_TRUE(editPlotStyleTable(table, wxString(), nullptr));
}

TEST_F(EntryPoints, MakeNoTestOfTheFile)
{
    const wxString missing = folder.file("missing.stb");
    DialogAnswers answers;
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_OK); });
    EXPECT_TRUE(editPlotStyleTable(missing, nullptr));
    const auto made = cma::loadPlotStyleTable(OdString(missing.wc_str()));
    ASSERT_FALSE(made.isNull());
    EXPECT_FALSE(made->isColorDependent());
}

TEST_F(EntryPoints, CopyFromTheSourceFile)
{
    const wxString copy = folder.file("copy.ctb");
    auto source = cma::loadPlotStyleTable(OdString(table.wc_str()));
    source->setDescription(L"the original");
    cma::savePlotStyleTable(OdString(table.wc_str()), source);

    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            EXPECT_EQ(find<wxTextCtrl>(*dialog, "TextTableDescr")->GetValue(), "the original");
            click(*dialog, wxID_OK);
        });
    EXPECT_TRUE(editPlotStyleTable(copy, table, nullptr));
    EXPECT_EQ(readBytes(copy), readBytes(table));
}

TEST_F(EntryPoints, LeaveNoDialogBehind)
{
    DialogAnswers answers;
    answers.run([](wxDialog* dialog) { click(*dialog, wxID_CANCEL); });
    const size_t before = wxTopLevelWindows.size();
    editPlotStyleTable(table, nullptr);
    EXPECT_EQ(wxTopLevelWindows.size(), before);
}
