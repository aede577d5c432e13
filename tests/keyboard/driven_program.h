// A program that a test operates with real keys and a real pointer, and looks at through the eye.

#ifndef TESTS_KEYBOARD_DRIVEN_PROGRAM_H
#define TESTS_KEYBOARD_DRIVEN_PROGRAM_H

#include "support/hands.h"
#include "support/test_files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

/// What the eye sees of a control.
struct SeenControl
{
    ScreenRect place;
    bool isEnabled = false;
    bool isShown = false;
    /// Its text; "checked", "unchecked" or "undetermined"; the title of the page in front.
    std::string text;
};

/// A drop-down list that is open.
struct OpenList
{
    ScreenRect place;
    /// The entry under the highlight; -1 for none.
    int highlighted = -1;
};

/// A program in a process of its own. Hands and eye are its user's: after everything that the
/// hands do the test waits until the program has nothing more to do.
class DrivenProgram
{
public:
    /// Starts a program and waits for its first dialog. @throw std::runtime_error when there is
    /// none
    DrivenProgram(const std::string& program, const std::vector<std::string>& arguments);
    /// Kills the program if it still runs.
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    void key(std::string_view chord);
    void keys(const std::vector<std::string_view>& chords);
    void type(std::string_view text);
    void click(const std::string& name, std::string_view modifier = "");
    void clickAt(ScreenPoint point, std::string_view modifier = "");
    bool isRowInView(const std::string& list, int row);
    /// Clicks the text of a row that is scrolled into view. @throw std::runtime_error where it is
    /// not
    void clickRow(const std::string& list, int row, std::string_view modifier = "");
    void rightClickRow(const std::string& list, int row);
    /// The same where there is such a row in view. @return whether there was
    bool tryClickRow(const std::string& list, int row, std::string_view modifier = "");
    void wheel(const std::string& name, int notches);
    /// Keys and pointer that nobody waits for.
    Hands& hands() { return m_hands; }

    /// Waits until the program has nothing more to do, or has ended.
    void settle();
    /// Waits for what `done` tells. @return whether it came about
    bool waitFor(const std::function<bool()>& done);

    /// The titles of the open dialogs, the innermost last; of a message box its message.
    std::vector<std::string> dialogs();
    /// Waits for one dialog more, whose title or message contains a text, and for its turn.
    bool waitForDialog(std::string_view text);
    /// The width of the innermost dialog, without the window manager's frame.
    int dialogWidth();
    SeenControl control(const std::string& name);
    std::string text(const std::string& name) { return control(name).text; }
    /// The resource name of the control that has the focus.
    std::string focus();
    std::vector<std::string> rows(const std::string& list);
    std::vector<int> selected(const std::string& list);
    /// The text that is being edited in a row of a list.
    std::optional<std::string> edit(const std::string& list);
    std::optional<OpenList> openList(const std::string& combo);
    /// Asks the eye. @return the words of its answer
    std::vector<std::string> ask(const std::string& request);

    bool hasEnded();
    /// Waits for the program's end. @return its exit status; -1 when a signal ended it
    int wait();
    /// What it wrote to standard error so far.
    std::string errors() const;

private:
    void start(const std::string& program, const std::vector<std::string>& arguments);
    std::string answer(const std::string& request);
    std::optional<ScreenRect> rowInView(const std::string& list, int row);

    support::TempFolder m_folder;
    Hands m_hands;
    int m_server = -1;
    int m_eye = -1;
    pid_t m_process = -1;
    std::optional<int> m_status;
    unsigned long m_markWindow = 0;
    long m_marks = 0;
};

#endif
