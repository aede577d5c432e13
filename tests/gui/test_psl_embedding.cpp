// What a host may rely on that is not pstyle: no call ends it, whatever it has left out or does
// meanwhile, and nothing is different after a call. Every case is run in a process of its own.

#include "psl.h"
#include "support/confirmations.h"
#include "support/editor_driver.h"
#include "support/gui_support.h"
#include "support/sanitized.h"

#include "cmdapi/cma.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/combobox.h>
#include <wx/filefn.h>
#include <wx/filesys.h>
#include <wx/frame.h>
#include <wx/fs_mem.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/panel.h>
#include <wx/textctrl.h>
#include <wx/timer.h>
#include <wx/weakref.h>
#include <wx/xrc/xh_bttn.h>
#include <wx/xrc/xh_dlg.h>
#include <wx/xrc/xh_notbk.h>
#include <wx/xrc/xh_panel.h>
#include <wx/xrc/xh_sizer.h>
#include <wx/xrc/xmlres.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <locale>
#include <malloc.h>
#include <unistd.h>

namespace
{

// Does nothing that the library's own documentation does not ask of a host.
class BareApp : public wxApp
{
public:
    bool OnInit() override
    {
        failOnAsserts();
        SetAppName("bare-host");
        delete wxLog::SetActiveTarget(new wxLogStderr);
        return true;
    }

    int OnRun() override { return RUN_ALL_TESTS(); }
};

const char* const documentHead = "XRC_resource/psl_xrc.inl$_Users_vorlund_dev_tag_tarnvale_res_";

const std::string allDialogs = "DlgPlotStyleEditor DlgPlotStyleEditor DlgSelectTable DlgNewTable ";

class Embedding : public testing::Test
{
protected:
    TemporaryFolder folder;
    const wxString table = folder.file("table.ctb");

    void SetUp() override
    {
        ASSERT_TRUE(
            cma::savePlotStyleTable(table.wc_str(), cma::createPlotStyleTable(true, L"old")));
    }

    static void initHandlers()
    {
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
    }

    // Opens every dialog and confirms it at once. @return the names of those that could be shown
    std::string shownDialogs()
    {
        ErrorLog log;
        support::Confirmations confirmations;
        wxString newTable;
        editPlotStyleTable(table, nullptr);
        editPlotStyleTable(folder.file("copy.ctb"), table, nullptr);
        startPlotStyleEditor(nullptr);
        newPlotStyleTable(newTable, true, folder.path(), nullptr);
        messages = log.messages();
        return confirmations.names;
    }

    // Edits the table by hand, and tells whether that reached the file.
    bool canEdit(DialogAnswers& answers, const wxString& description)
    {
        answers.start(
            [description](wxDialog* dialog)
            {
                EditorDriver editor(*dialog);
                find<wxTextCtrl>(*dialog, "TextTableDescr")->SetValue(description);
                editor.select({3});
                editor.set("SpinScreening", 50);
                click(*dialog, wxID_OK);
            });
        return editPlotStyleTable(table, nullptr) && isSaved(description);
    }

    bool isSaved(const wxString& description) const
    {
        const auto saved = cma::loadPlotStyleTable(table.wc_str());
        return !saved.isNull() && saved->description() == OdString(description.wc_str());
    }

    std::vector<wxString> messages;
};

} // namespace

// --- What a host may have left out -------------------------------------------------------------

TEST_F(Embedding, WithoutResourceHandlers)
{
    const size_t windows = wxTopLevelWindows.size();
    EXPECT_EQ(shownDialogs(), "");
    EXPECT_EQ(messages.size(), 4u); // of the toolkit, one a call
    EXPECT_EQ(wxTopLevelWindows.size(), windows);
    initHandlers();
    EXPECT_EQ(shownDialogs(), allDialogs);
    EXPECT_TRUE(messages.empty());
    DialogAnswers answers;
    EXPECT_TRUE(canEdit(answers, "new"));
}

TEST_F(Embedding, WithoutTheHandlersOfControls)
{
    wxXmlResource::Get()->AddHandler(new wxDialogXmlHandler);
    EXPECT_EQ(shownDialogs(), "");
    EXPECT_FALSE(messages.empty());
    initHandlers();
    EXPECT_EQ(shownDialogs(), allDialogs);
}

// The toolkit asserts where a window of the layout is missing.
TEST_F(Embedding, WithoutTheHandlersOfTexts)
{
    for (wxXmlResourceHandler* handler : std::initializer_list<wxXmlResourceHandler*>{
             new wxDialogXmlHandler, new wxSizerXmlHandler, new wxPanelXmlHandler,
             new wxNotebookXmlHandler, new wxButtonXmlHandler,
             new wxStdDialogButtonSizerXmlHandler})
        wxXmlResource::Get()->AddHandler(handler);
    EXPECT_EQ(shownDialogs(), "");
    EXPECT_FALSE(messages.empty());
}

TEST_F(Embedding, WithAnotherResourceLoader)
{
    initHandlers();
    EXPECT_EQ(shownDialogs(), allDialogs);
    delete wxXmlResource::Set(new wxXmlResource);
    initHandlers();
    EXPECT_EQ(shownDialogs(), "");
    EXPECT_EQ(messages.size(), 4u);
    {
        ErrorLog refusals; // of files that are there already
        InitPslXmlResource();
    }
    EXPECT_EQ(shownDialogs(), allDialogs);
}

TEST_F(Embedding, WithARejectedDocument)
{
    initHandlers();
    wxFileSystem::AddHandler(new wxMemoryFSHandler);
    const wxString name = wxString(documentHead) + "locale_en-US_xrc_psl_dlg_plot_style_editor.xrc";
    wxMemoryFSHandler::AddFile(name, wxString("<resource><object"));
    EXPECT_EQ(shownDialogs(), "DlgSelectTable DlgNewTable ");
    EXPECT_GE(messages.size(), 3u);
}

TEST_F(Embedding, WithADialogOfTheHostThatHasTheSameName)
{
    initHandlers();
    wxFileSystem::AddHandler(new wxMemoryFSHandler);
    wxMemoryFSHandler::AddFile("host.xrc", wxString("<resource><object class='wxDialog' "
                                                    "name='DlgSelectTable'/></resource>"));
    wxXmlResource::Get()->Load("memory:host.xrc");
    EXPECT_EQ(shownDialogs(), "DlgPlotStyleEditor DlgPlotStyleEditor DlgNewTable ");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_TRUE(messages[0].StartsWith("The dialog 'DlgSelectTable' cannot be shown: it lacks '"))
        << messages[0];
}

TEST_F(Embedding, WithoutImageHandlers)
{
    wxXmlResource::Get()->InitAllHandlers();
    const size_t handlers = wxImage::GetHandlers().size();
    EXPECT_EQ(shownDialogs(), allDialogs);
    EXPECT_TRUE(messages.empty()) << messages[0];
    DialogAnswers answers;
    EXPECT_TRUE(canEdit(answers, "new"));
    EXPECT_EQ(wxImage::GetHandlers().size(), handlers);
}

TEST_F(Embedding, WithoutPictures)
{
    initHandlers();
    wxFileSystem::AddHandler(new wxMemoryFSHandler);
    wxMemoryFSHandler::AddFile(wxString(documentHead) + "xrc_psl_graphics.xrc",
                               wxString("<resource><object"));
    EXPECT_EQ(shownDialogs(), allDialogs);
    EXPECT_EQ(messages.size(), 4u); // of the file that is there already, and of its contents
    DialogAnswers answers;
    EXPECT_TRUE(canEdit(answers, "new"));
}

TEST_F(Embedding, AHostThatRegistersTheResourcesItself)
{
    initHandlers();
    InitPslXmlResource();
    EXPECT_EQ(shownDialogs(), allDialogs);
    EXPECT_TRUE(messages.empty()) << messages[0];
}

// --- What a host may do meanwhile --------------------------------------------------------------

namespace
{

// A window of the host that goes while a dialog is open on it, and how.
struct GoingParent
{
    const char* name;
    wxWindow* (*parentIn)(wxFrame* frame);
    void (*end)(wxFrame* frame);
};

wxWindow* frameItself(wxFrame* frame)
{
    return frame;
}

wxWindow* panelIn(wxFrame* frame)
{
    return new wxPanel(new wxPanel(frame));
}

const GoingParent goingParents[] = {
    {"a frame that is destroyed", frameItself, [](wxFrame* frame) { frame->Destroy(); }},
    {"a frame that is deleted", frameItself, [](wxFrame* frame) { delete frame; }},
    {"a frame that is closed", frameItself, [](wxFrame* frame) { frame->Close(true); }},
    {"the frame of a panel", panelIn, [](wxFrame* frame) { frame->Destroy(); }},
    {"a frame that drops its children", frameItself,
     [](wxFrame* frame) { frame->DestroyChildren(); }},
    {"the panel around it", panelIn, [](wxFrame* frame) { frame->DestroyChildren(); }},
};

} // namespace

TEST_F(Embedding, AParentThatGoes)
{
    initHandlers();
    wxFrame stays(nullptr, wxID_ANY, "Main window");
    int call = 0;
    for (const GoingParent& going : goingParents)
    {
        SCOPED_TRACE(going.name);
        const wxString description = wxString::Format("call %d", ++call);
        auto* frame = new wxFrame(&stays, wxID_ANY, "Host");
        frame->Show();
        const wxWeakRef<wxWindow> parent = going.parentIn(frame);
        DialogAnswers answers;
        answers.start(
            [&](wxDialog* dialog)
            {
                find<wxTextCtrl>(*dialog, "TextTableDescr")->SetValue(description);
                going.end(frame);
                EXPECT_TRUE(waitFor([&] { return !parent || parent->GetChildren().empty(); }));
                EXPECT_TRUE(dialog->IsShown());
                click(*dialog, wxID_OK);
            });
        EXPECT_TRUE(editPlotStyleTable(table, parent));
        EXPECT_TRUE(isSaved(description));
        stays.DestroyChildren();
    }
}

TEST_F(Embedding, AParentThatGoesUnderTheChooserAndItsEditor)
{
    initHandlers();
    auto* frame = new wxFrame(nullptr, wxID_ANY, "Host");
    wxFrame other(nullptr, wxID_ANY, "Main window");
    const wxWeakRef<wxWindow> parent = frame;
    DialogAnswers answers;
    answers.start(
        [&](wxDialog* chooser)
        {
            find<wxComboBox>(*chooser, "ComboSourceFile")->SetValue(table);
            answers.start(
                [&](wxDialog* editor)
                {
                    find<wxTextCtrl>(*editor, "TextTableDescr")->SetValue("without a parent");
                    frame->Destroy();
                    EXPECT_TRUE(waitFor([&parent] { return !parent; }));
                    click(*editor, wxID_OK);
                });
            click(*chooser, wxID_OK);
        });
    EXPECT_TRUE(startPlotStyleEditor(frame));
    EXPECT_TRUE(isSaved("without a parent"));
}

TEST_F(Embedding, ATimerThatOpensEveryDialogOnTopOfAnEditor)
{
    initHandlers();
    const wxString other = folder.file("other.ctb");
    cma::savePlotStyleTable(other.wc_str(), cma::createPlotStyleTable(true, L""));
    DialogAnswers answers;
    answers.start(
        [&](wxDialog* dialog)
        {
            find<wxTextCtrl>(*dialog, "TextTableDescr")->SetValue("below");
            bool isDone = false;
            wxTimer timer;
            timer.Bind(wxEVT_TIMER,
                       [&](wxTimerEvent&)
                       {
                           for (int i = 0; i < 3; ++i)
                               answers.run([](wxDialog*) {});
                           editPlotStyleTable(other, nullptr);
                           startPlotStyleEditor(nullptr);
                           wxString name;
                           newPlotStyleTable(name, true, folder.path(), nullptr);
                           isDone = true;
                       });
            timer.StartOnce(1);
            EXPECT_TRUE(waitFor([&isDone] { return isDone; }));
            click(*dialog, wxID_OK);
        });
    EXPECT_TRUE(editPlotStyleTable(table, nullptr));
    EXPECT_TRUE(isSaved("below"));
}

// The one that was saved last is in the file, and nothing of the other is lost.
TEST_F(Embedding, ATimerThatOpensTheSameTableAgain)
{
    initHandlers();
    DialogAnswers answers;
    answers.start(
        [&](wxDialog* dialog)
        {
            find<wxTextCtrl>(*dialog, "TextTableDescr")->SetValue("first");
            EXPECT_TRUE(canEdit(answers, "second"));
            click(*dialog, wxID_OK);
        });
    ErrorLog log;
    EXPECT_TRUE(editPlotStyleTable(table, nullptr));
    EXPECT_TRUE(isSaved("first"));
    const auto files =
        std::distance(std::filesystem::directory_iterator(folder.path().utf8_string()), {});
    EXPECT_EQ(files, 2) << "the second version is gone";
}

// As hosts do when they end.
TEST_F(Embedding, AHostThatDestroysAllWindows)
{
    initHandlers();
    const auto destroyAll = []
    {
        for (wxWindow* window : wxWindowList(wxTopLevelWindows))
            window->Destroy();
    };
    DialogAnswers answers;
    answers.start(
        [&](wxDialog* editor)
        {
            find<wxTextCtrl>(*editor, "TextTableDescr")->SetValue("new");
            destroyAll();
            destroyAll();
        });
    EXPECT_FALSE(editPlotStyleTable(table, new wxFrame(nullptr, wxID_ANY, "Host")));
    EXPECT_TRUE(isSaved("old"));

    answers.start(
        [&](wxDialog* chooser)
        {
            find<wxComboBox>(*chooser, "ComboSourceFile")->SetValue(table);
            answers.start([&](wxDialog*) { destroyAll(); });
            click(*chooser, wxID_OK);
        });
    startPlotStyleEditor(new wxFrame(nullptr, wxID_ANY, "Host"));
    wxString name;
    answers.start([&](wxDialog*) { destroyAll(); });
    EXPECT_FALSE(newPlotStyleTable(name, true, folder.path(), nullptr));
    EXPECT_TRUE(waitFor([] { return wxTopLevelWindows.empty(); }));
}

TEST_F(Embedding, AModalDialogOfTheHost)
{
    initHandlers();
    wxFrame frame(nullptr, wxID_ANY, "Host");
    wxDialog options(&frame, wxID_ANY, "Options");
    bool isSavedByEditor = false;
    DialogAnswers answers;
    answers.start(
        [&](wxDialog* dialog)
        {
            answers.start(
                [](wxDialog* editor)
                {
                    find<wxTextCtrl>(*editor, "TextTableDescr")->SetValue("from the options");
                    click(*editor, wxID_OK);
                });
            isSavedByEditor = editPlotStyleTable(table, dialog);
            EXPECT_TRUE(dialog->IsModal());
            dialog->EndModal(wxID_OK);
        });
    EXPECT_EQ(options.ShowModal(), wxID_OK);
    EXPECT_TRUE(isSavedByEditor);
    EXPECT_TRUE(isSaved("from the options"));
}

// --- What is as before after a call ------------------------------------------------------------

namespace
{

std::string environment()
{
    std::string all;
    for (char** variable = environ; *variable; ++variable)
        all += std::string(*variable) + '\n';
    return all;
}

std::string openFiles()
{
    std::string all;
    for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd"))
    {
        std::error_code isGone; // that of the listing itself
        const auto target = std::filesystem::read_symlink(file, isGone);
        if (!isGone)
            all += target.string() + '\n';
    }
    return all;
}

std::string clipboard()
{
    wxClipboardLocker lock;
    wxTextDataObject text;
    return wxTheClipboard->GetData(text) ? text.GetText().utf8_string() : "none";
}

std::string imageHandlers()
{
    std::string all;
    for (const wxObject* handler : wxImage::GetHandlers())
        all += static_cast<const wxImageHandler*>(handler)->GetName().utf8_string() + '\n';
    return all;
}

// What a host may have set up, by its names.
std::map<std::string, std::string> hostState()
{
    const auto number = [](auto value) { return std::to_string(static_cast<long>(value)); };
    return {
        {"focus", wxWindow::FindFocus() ? wxWindow::FindFocus()->GetName().utf8_string() : "none"},
        {"C locale", std::setlocale(LC_ALL, nullptr)},
        {"C++ locale", std::locale().name()},
        {"log target", number(reinterpret_cast<std::intptr_t>(wxLog::GetActiveTarget()))},
        {"log level", number(wxLog::GetLogLevel())},
        {"log masks", wxJoin(wxLog::GetTraceMasks(), ' ').utf8_string()},
        {"clipboard", clipboard()},
        {"environment", environment()},
        {"folder", wxGetCwd().utf8_string()},
        {"image handlers", imageHandlers()},
        {"resource flags", number(wxXmlResource::Get()->GetFlags())},
        {"idle mode", number(wxIdleEvent::GetMode())},
        {"update interval", number(wxUpdateUIEvent::GetUpdateInterval())},
        {"update mode", number(wxUpdateUIEvent::GetMode())},
        {"windows", number(wxTopLevelWindows.size())},
        {"top window", number(reinterpret_cast<std::intptr_t>(wxTheApp->GetTopWindow()))},
        {"pending events", number(wxTheApp->HasPendingEvents())},
        {"exits with its last window", number(wxTheApp->GetExitOnFrameDelete())},
    };
}

} // namespace

TEST_F(Embedding, NothingIsDifferentAfterACall)
{
    wxXmlResource::Get()->InitAllHandlers();
    wxFrame frame(nullptr, wxID_ANY, "Host");
    auto* field = new wxTextCtrl(&frame, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0,
                                 wxDefaultValidator, "the host's field");
    frame.Show();
    field->SetFocus();
    ASSERT_TRUE(waitFor([field] { return field->HasFocus(); }));
    {
        wxClipboardLocker lock;
        wxTheClipboard->SetData(new wxTextDataObject("the host's text"));
    }

    const auto before = hostState();
    std::string filesBefore;
    for (const char* description : {"first", "second"})
    {
        {
            DialogAnswers answers;
            EXPECT_TRUE(canEdit(answers, description));
        }
        EXPECT_EQ(shownDialogs(), allDialogs);
        EXPECT_TRUE(waitFor([field] { return field->HasFocus(); }));
        EXPECT_EQ(hostState(), before) << description;
        // With the first dialog the desktop's libraries open files of their own.
        if (!filesBefore.empty())
        {
            EXPECT_EQ(openFiles(), filesBefore);
        }
        filesBefore = openFiles();
    }
}

namespace
{

// Resident memory in KiB, without what the allocator keeps for later.
long residentMemory()
{
    malloc_trim(0);
    long pages = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

} // namespace

// OPENINGS says how often. The sanitizers take memory of their own, and time.
TEST_F(Embedding, ManyOpeningsLeakNothing)
{
    initHandlers();
    const char* wanted = std::getenv("OPENINGS");
    const int openings = wanted ? std::stoi(wanted) : support::kIsSanitized ? 9 : 90;
    long memory = 0;
    size_t windows = 0;
    for (int i = 1; i <= openings; ++i)
    {
        DialogAnswers answers;
        answers.run([](wxDialog*) {});
        editPlotStyleTable(table, nullptr);
        if (i == openings / 3)
        {
            memory = residentMemory();
            windows = wxTopLevelWindows.size();
        }
    }
    EXPECT_EQ(wxTopLevelWindows.size(), windows);
    const long growth = residentMemory() - memory;
    std::printf("%d openings: %ld KiB, %ld KiB more than after a third of them\n", openings,
                memory + growth, growth);
    if (!support::kIsSanitized)
    {
        EXPECT_LT(growth, 4 * (openings - openings / 3)); // KiB an opening
    }
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    wxApp::SetInstance(new BareApp);
    return wxEntry(argc, argv);
}
