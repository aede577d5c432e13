// A session of a user with the editor: a table file, the program opened on it, and what the file
// holds afterwards.

#ifndef TESTS_KEYBOARD_EDITOR_SESSION_H
#define TESTS_KEYBOARD_EDITOR_SESSION_H

#include "odps/od_ps.h"
#include "tests/keyboard/driven_program.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Tests in which the editor is opened on a file. Whatever the program writes to standard error
/// beyond what is expected, and any assertion of the toolkit, fails them.
class EditorSession : public testing::Test
{
protected:
    void TearDown() override;

    /// Opens the editor on a new named table of "Normal" and these styles, with the Form View page
    /// in front and the focus in its list.
    void openNamed(const std::vector<std::string>& names);
    /// The same on a new colour-dependent table. @param change  what is changed beforehand
    void openColors(const std::function<void(OdPsPlotStyleTable&)>& change = nullptr);
    /// Opens the editor on a file of these bytes, with the General page in front.
    DrivenProgram& open(const std::string& name, const std::string& bytes);
    /// Starts the program with these arguments.
    DrivenProgram& start(const std::vector<std::string>& arguments);
    DrivenProgram& editor() { return *m_program; }

    void turnToFormView();
    void turnToLineweights();
    /// Types into the focused field in the place of what it holds.
    void retype(std::string_view text);
    /// Edits a row of the lineweight list by the keyboard, and leaves the edit open.
    void startLineweight(int row, std::string_view text);

    /// Presses "Save & Close" and gives what the file holds then; fails the test where the program
    /// does not end with success.
    OdPsPlotStyleTablePtr saved();
    /// The table that the file holds now.
    OdPsPlotStyleTablePtr stored() const;
    std::vector<std::string> savedNames();
    OdPsPlotStyleData savedData(int style);

    /// What the program itself shall have written to standard error: its messages about files.
    std::string expectedErrors;
    support::TempFolder folder;
    std::string file;

private:
    std::optional<DrivenProgram> m_program;
};

/// The data record of a style.
OdPsPlotStyleData dataOf(const OdPsPlotStyleTablePtr& table, int style);

#endif
