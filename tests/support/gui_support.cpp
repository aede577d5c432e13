// Dialog answers, log capture and control operation for the tests.

#include "support/gui_support.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/msgdlg.h>
#include <wx/stopwatch.h>
#include <wx/textdlg.h>

namespace
{

void failOnAssert(const wxString& file, int line, const wxString& function,
                  const wxString& condition, const wxString& message)
{
    ADD_FAILURE() << "toolkit assertion " << condition << " (" << message << ") in " << function
                  << ", " << file << ":" << line;
}

} // namespace

void failOnAsserts()
{
    wxSetAssertHandler(failOnAssert);
}

std::string readBytes(const wxString& path)
{
    return support::readFile(path.utf8_string());
}

void writeBytes(const wxString& path, const std::string& bytes)
{
    support::writeFile(path.utf8_string(), bytes);
}

ErrorLog::ErrorLog()
    : m_old(wxLog::SetActiveTarget(&m_target))
{
}

ErrorLog::~ErrorLog()
{
    wxLog::SetActiveTarget(m_old);
}

void ErrorLog::Target::DoLogRecord(wxLogLevel level, const wxString& message,
                                   const wxLogRecordInfo&)
{
    if (level <= wxLOG_Error)
        m_messages.push_back(message);
}

namespace
{

ShownDialog describe(wxDialog* dialog)
{
    ShownDialog shown;
    shown.className = dialog->GetClassInfo()->GetClassName();
    shown.caption = dialog->GetTitle();
    shown.style = dialog->GetWindowStyle();
    shown.parent = dialog->GetParent();
    if (const auto* box = dynamic_cast<wxMessageDialog*>(dialog))
    {
        shown.className = "wxMessageDialog";
        shown.message = box->GetMessage();
        shown.caption = box->GetCaption();
        shown.style = box->GetMessageDialogStyle();
    }
    else if (const auto* file = dynamic_cast<wxFileDialog*>(dialog))
    {
        shown.className = "wxFileDialog";
        shown.message = file->GetMessage();
        shown.directory = file->GetDirectory();
        shown.fileName = file->GetFilename();
        shown.wildcard = file->GetWildcard();
    }
    else if (const auto* prompt = dynamic_cast<wxTextEntryDialog*>(dialog))
    {
        shown.className = "wxTextEntryDialog";
        shown.value = prompt->GetValue();
        for (const wxWindow* child : prompt->GetChildren())
            if (child->GetId() == wxID_ANY || child->GetName() == "staticText")
            {
                shown.message = child->GetLabel();
                break;
            }
    }
    return shown;
}

} // namespace

DialogAnswers::DialogAnswers()
{
    Register();
}

DialogAnswers::~DialogAnswers()
{
    Unregister();
    EXPECT_TRUE(m_answers.empty()) << m_answers.size() << " expected dialogs did not appear";
}

void DialogAnswers::press(int id)
{
    m_answers.push_back([id](wxDialog*) { return id; });
}

void DialogAnswers::choose(const wxString& path)
{
    m_answers.push_back(
        [path](wxDialog* dialog)
        {
            auto* file = dynamic_cast<wxFileDialog*>(dialog);
            EXPECT_NE(file, nullptr) << "not a file dialog";
            if (!file)
                return int(wxID_CANCEL);
            file->SetPath(path);
            return int(wxID_OK);
        });
}

void DialogAnswers::type(const wxString& text)
{
    m_answers.push_back(
        [text](wxDialog* dialog)
        {
            auto* prompt = dynamic_cast<wxTextEntryDialog*>(dialog);
            EXPECT_NE(prompt, nullptr) << "not a prompt";
            if (!prompt)
                return int(wxID_CANCEL);
            prompt->SetValue(text);
            return int(wxID_OK);
        });
}

void DialogAnswers::run(std::function<void(wxDialog*)> script)
{
    run(std::move(script), true);
}

void DialogAnswers::start(std::function<void(wxDialog*)> script)
{
    run(std::move(script), false);
}

void DialogAnswers::run(std::function<void(wxDialog*)> script, bool endsAfterwards)
{
    m_answers.push_back(
        [script, endsAfterwards](wxDialog* dialog)
        {
            dialog->CallAfter(
                [script, endsAfterwards, dialog]
                {
                    try
                    {
                        script(dialog);
                    }
                    catch (const std::exception& error)
                    {
                        ADD_FAILURE() << error.what();
                    }
                    const bool isStuck = testing::Test::HasFatalFailure();
                    if ((endsAfterwards || isStuck) && dialog->IsModal())
                        dialog->EndModal(wxID_CANCEL);
                });
            return int(wxID_NONE);
        });
}

int DialogAnswers::Enter(wxDialog* dialog)
{
    m_shown.push_back(describe(dialog));
    if (m_answers.empty())
    {
        ADD_FAILURE() << "unexpected dialog: " << m_shown.back().className << " "
                      << m_shown.back().caption << " " << m_shown.back().message;
        return wxID_CANCEL;
    }
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    return answer(dialog);
}

void updateUi(wxWindow& dialog)
{
    dialog.UpdateWindowUI(wxUPDATE_UI_RECURSE);
}

void click(wxWindow& dialog, int id)
{
    updateUi(dialog);
    auto* button = dynamic_cast<wxButton*>(dialog.FindWindow(id));
    ASSERT_NE(button, nullptr);
    ASSERT_TRUE(button->IsEnabled()) << button->GetLabelText() << " is disabled";
    ASSERT_TRUE(button->IsShown()) << button->GetLabelText() << " is hidden";
    wxCommandEvent event(wxEVT_BUTTON, id);
    event.SetEventObject(button);
    button->GetEventHandler()->ProcessEvent(event);
}

void click(wxWindow& dialog, const char* name)
{
    click(dialog, wxXmlResource::GetXRCID(name));
}

bool waitFor(const std::function<bool()>& done)
{
    constexpr long patience = 20000;
    wxGUIEventLoop loop;
    wxEventLoopActivator active(&loop);
    for (wxStopWatch watch; watch.Time() < patience;)
    {
        if (done())
            return true;
        loop.YieldFor(wxEVT_CATEGORY_ALL);
        wxTheApp->ProcessIdle();
    }
    return false;
}
