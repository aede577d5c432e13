// What the tests of the editor share: tables to edit, and the editor with a user's hands.

#ifndef TESTS_EDITOR_TEST_H
#define TESTS_EDITOR_TEST_H

#include "psl.h"
#include "psl_dlg_plot_style_editor.h"
#include "support/gui_support.h"

#include "cmdapi/cma.h"

#include <gtest/gtest.h>

#include <wx/bitmap.h>
#include <wx/button.h>

#include <functional>
#include <string>

/// The editor, initialised without being shown, which is enough for everything that does not depend
/// on the screen.
class Editor : public DlgPlotStyleEditor
{
public:
    explicit Editor(const wxString& file, const wxString& source = wxString());

    /// Presses a button by its event, wherever it stands and whether or not it is enabled.
    void press(int id);
    void press(const std::string& name);

    bool hasEnded() const { return m_ended != 0; }
    bool endedWith(int id) const { return m_ended == id; }

    /// Whether closing would ask to save changes. Leaves the editor as it is.
    bool isModified();

private:
    // To the handlers the dialog is one that was shown modally.
    bool IsModal() const override { return true; }
    void EndModal(int id) override { m_ended = id; }

    int m_ended = 0;
};

class EditorTest : public testing::Test
{
protected:
    static void SetUpTestSuite();

    /// Makes a new table file of the kind that the name's extension tells.
    /// @param change  what is changed in the table before it is written
    /// @return the file's full path
    wxString makeTable(const wxString& name,
                       const std::function<void(OdPsPlotStyleTable&)>& change = nullptr);
    wxString makeFile(const wxString& name, const std::string& bytes);

    TemporaryFolder folder;
};

/// A change for makeTable: sets the description.
std::function<void(OdPsPlotStyleTable&)> describe(const wchar_t* description);

/// Reads a table; fails the test when there is none.
OdPsPlotStyleTablePtr loadTable(const wxString& file);

/// Expects everything that the editor shows in the state without a table.
void expectNoTable(Editor& editor);

/// The pixels of a picture.
std::string bytesOf(const wxBitmap& bitmap);

#endif
