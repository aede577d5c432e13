// What the tests of the plot style table editor share: an editor on a table of the test's own, and
// its operation through the controls.

#ifndef TESTS_EDITOR_DRIVER_H
#define TESTS_EDITOR_DRIVER_H

#include "support/editor_test.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class wxListCtrl;

/// The controls of the twelve style properties, in the order of the page.
extern const std::vector<const char*> propertyControls;

/// What the controls of a page show, by their names.
using Shown = std::map<std::string, std::string>;

/// Gives some controls other contents.
Shown with(Shown shown, const Shown& changes);

/// Operates an editor through its controls, as a user does. The editor need not be on the screen.
/// Using a control that is disabled or hidden throws.
class EditorDriver
{
public:
    enum Page
    {
        General,
        FormView,
        Lineweights
    };

    explicit EditorDriver(wxDialog& dialog)
        : m_dialog(dialog)
    {
    }

    wxDialog& dialog() { return m_dialog; }
    void turnTo(Page page);

    /// Whether a control could be used now.
    bool isEnabled(const char* name);
    bool isShown(const char* name) const;
    /// What a control shows: a text, "Varies", or "checked", "unchecked" and "undetermined".
    std::string shown(const char* name) const;
    wxString label(const char* name) const;

    /// Gives a control a value by an event of its own: an entry of a combo box, a number, or 1 and
    /// 0 for a check box.
    void set(const char* name, int value);
    /// The same, even if the control is disabled.
    void force(const char* name, int value);
    /// Clicks a button that may be hidden or disabled.
    void forceClick(const char* name);

    wxListCtrl* styles() const;
    std::vector<std::string> styleNames() const;
    /// Turns to the Form View page and selects exactly these styles there.
    void select(const std::vector<int>& rows);
    std::vector<int> selected() const;
    /// Types a name into a row of the style list. @return whether the row could be edited
    bool rename(int row, const wxString& name);
    /// What the twelve fields and the description show.
    Shown fields();

    wxListCtrl* lineweights() const;
    /// The texts of the lineweight rows.
    std::vector<std::string> lineweightTexts() const;
    /// The numbers of the rows that carry the mark of a used lineweight.
    std::vector<int> usedLineweights() const;
    void selectLineweight(int row);
    int selectedLineweight() const;
    /// Turns to the Lineweights page and types a value into a row. @return whether the row could
    /// be edited
    bool editLineweight(int row, const wxString& text);
    /// Starts to edit a row, and gives up.
    void cancelLineweightEdit(int row);
    void useInches(bool inches);

    /// Closes the editor by Cancel; fails the test when it asks to save changes.
    void closeUnasked();

private:
    void requireUse(const char* name);

    wxDialog& m_dialog;
};

/// Tests that drive an editor on one stored file. An error message that the test does not take
/// fails it.
class EditorDriverTest : public EditorTest
{
protected:
    void TearDown() override;

    /// Makes the file that the editor opens.
    void store(const OdPsPlotStyleTablePtr& table);
    void store(const std::string& bytes, const char* extension);

    /// Opens the editor, not on the screen, on the stored file.
    EditorDriver& open();
    EditorDriver& open(const OdPsPlotStyleTablePtr& table);
    /// Shows the editor on the screen and runs the script while it is open.
    void show(const OdPsPlotStyleTablePtr& table, const std::function<void(EditorDriver&)>& script);

    /// Whether the opened editor holds changes that are not saved.
    bool isModified();
    /// Clicks "Save & Close".
    void save();
    /// The table that the file holds now.
    OdPsPlotStyleTablePtr savedTable() const;
    OdPsPlotStyleData savedData(int style) const;
    /// The lines of the file that differ from those of the stored file.
    std::vector<std::string> savedChanges() const;
    /// The error messages since the last call.
    std::vector<std::string> takeErrors();

    DialogAnswers answers;
    ErrorLog errors;
    wxString file;

private:
    std::string m_stored;
    std::unique_ptr<Editor> m_editor;
    std::unique_ptr<EditorDriver> m_driver;
};

/// A new named table with these styles behind "Normal".
OdPsPlotStyleTablePtr namedTable(const std::vector<std::wstring>& names = {});
OdPsPlotStyleTablePtr colorTable();

/// The image of a row; -1 for none.
int imageOf(const wxListCtrl* list, long row);
/// Whether a row of a list on the screen is scrolled into view.
bool isVisible(const wxListCtrl* list, long row);

/// Moves the focus to a control and waits until it is there. @return whether it came about
bool focus(wxWindow* control);
/// Sends keys to a control that is on the screen, as the user's keyboard would.
void typeInto(wxWindow* control, const char* text);
void pressKey(wxWindow* control, int key, int modifiers = 0);

#endif
