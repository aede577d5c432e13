// What the tests of dialogs share: answers to dialogs, captured error messages, and ways to find
// and operate controls as a user would.

#ifndef TESTS_GUI_SUPPORT_H
#define TESTS_GUI_SUPPORT_H

#include "support/test_files.h"

#include <wx/dialog.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/string.h>
#include <wx/window.h>
#include <wx/xrc/xmlres.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

class wxFileDialog;

/// Has an assertion of the toolkit fail the test that meets it.
void failOnAsserts();

/// A folder of its own for a test's files, by the toolkit's kind of paths.
class TemporaryFolder
{
public:
    wxString path() const { return wxString::FromUTF8(m_folder.path().string()); }
    /// The full path of a file in the folder.
    wxString file(const wxString& name) const { return path() + "/" + name; }

private:
    support::TempFolder m_folder;
};

/// The bytes of a file.
std::string readBytes(const wxString& path);
void writeBytes(const wxString& path, const std::string& bytes);

/// Captures the messages logged at error level, which users see as message boxes.
class ErrorLog
{
public:
    ErrorLog();
    ~ErrorLog();
    ErrorLog(const ErrorLog&) = delete;
    ErrorLog& operator=(const ErrorLog&) = delete;

    const std::vector<wxString>& messages() const { return m_messages; }
    void clear() { m_messages.clear(); }

private:
    class Target : public wxLog
    {
    public:
        explicit Target(std::vector<wxString>& messages)
            : m_messages(messages)
        {
        }

    protected:
        void DoLogRecord(wxLogLevel level, const wxString& message,
                         const wxLogRecordInfo&) override;

    private:
        std::vector<wxString>& m_messages;
    };

    std::vector<wxString> m_messages;
    Target m_target{m_messages};
    wxLog* m_old;
};

/// A dialog that was answered.
struct ShownDialog
{
    wxString className;
    /// The message of a message box or prompt, the caption of a file dialog.
    wxString message;
    wxString caption;
    long style = 0;
    wxWindow* parent = nullptr;
    /// Of a file dialog.
    wxString directory;
    wxString fileName;
    wxString wildcard;
    /// The text that a prompt proposes.
    wxString value;
};

/// Answers modal dialogs in the order in which they appear; a dialog without an answer fails the
/// test, and so does an answer that was not used.
class DialogAnswers : public wxModalDialogHook
{
public:
    using Answer = std::function<int(wxDialog*)>;

    DialogAnswers();
    ~DialogAnswers() override;

    /// Has a function answer the next dialog.
    void answer(Answer answer) { m_answers.push_back(std::move(answer)); }
    /// Answers the next dialog with a button.
    void press(int id);
    /// Confirms the next file dialog with a path.
    void choose(const wxString& path);
    /// Confirms the next prompt with a text.
    void type(const wxString& text);
    /// Runs `script` in the next dialog's own loop and then ends that loop, unless the script did.
    void run(std::function<void(wxDialog*)> script);
    /// The same, but it is what the script sets off that ends the dialog.
    void start(std::function<void(wxDialog*)> script);

    const std::vector<ShownDialog>& shown() const { return m_shown; }

protected:
    int Enter(wxDialog* dialog) override;

private:
    void run(std::function<void(wxDialog*)> script, bool endsAfterwards);

    std::deque<Answer> m_answers;
    std::vector<ShownDialog> m_shown;
};

/// The control with this resource name; fails the test, and gives null, when there is none.
template <class Control>
Control* find(const wxWindow& dialog, const char* name)
{
    auto* control = dynamic_cast<Control*>(dialog.FindWindow(wxXmlResource::GetXRCID(name)));
    if (!control)
        throw std::runtime_error(std::string("no such control: ") + name);
    return control;
}

/// Runs the update-UI handlers of all controls, as an idle program does.
void updateUi(wxWindow& dialog);

/// Clicks a button. One that is disabled or hidden fails the test.
void click(wxWindow& dialog, int id);
void click(wxWindow& dialog, const char* name);

/// Lets the event loop run until `done`, at most for a generous time.
/// @return whether it came about
bool waitFor(const std::function<bool()>& done);

#endif
