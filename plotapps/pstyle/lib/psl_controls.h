// How the dialogs are built, find and prepare their controls, and ask for files.

#ifndef PSL_CONTROLS_H
#define PSL_CONTROLS_H

#include <wx/bitmap.h>
#include <wx/valtext.h>
#include <wx/window.h>
#include <wx/xrc/xmlres.h>

#include <initializer_list>

class wxComboBox;
class wxDialog;
class wxFileDialog;
class wxListCtrl;
class wxSpinCtrl;
class wxTextCtrl;

/// Builds a dialog from the resource of its name, and looks whether all controls are there: the
/// toolkit leaves out those that the host has initialised no handler for.
/// @return false, with the reason in the log, when the dialog must not be shown
bool buildDialog(wxDialog* dialog, wxWindow* parent, const char* name);

/// Lets a dialog go on without its parent, should that be destroyed while the dialog is open: the
/// toolkit deletes all children of a window, and this one lies on somebody's stack. It stays in
/// front of the window that was its parent.
void outliveParent(wxDialog* dialog);

/// Gives a dialog its width, in pixels, centres it on its parent, and lets it outlive that.
void placeDialog(wxDialog* dialog, int width);

/// The embedded picture with this resource name. The host need not have image handlers.
/// @return an invalid bitmap when there is none
wxBitmap loadPicture(const wxString& name);

/// The control of a window with this resource name, which the window's resource has to have.
template <class Control>
Control* findControl(const wxWindow& window, const char* name)
{
    return wxStaticCast(window.FindWindow(wxXmlResource::GetXRCID(name)), Control);
}

/// Whether a key is one of several.
bool isOneOf(int key, std::initializer_list<int> keys);

/// The beginning of a text, as much of it as a field can show quickly: it lays out all of what it
/// is given, and a description may be a quarter of a million letters long.
wxString shownPart(const wxString& text);
/// The same for a row of a list, of which there are many.
wxString shownInRow(const wxString& text);

/// Whether a text whose beginning was shown has been edited, and so keeps the end that was not
/// shown; else the user has replaced it as a whole, and nothing of its beginning, middle or end is
/// left.
/// @param shown  the beginning that was shown
bool isEdited(const wxString& typed, const wxString& shown);

/// Begins to edit a row of a list, scrolled into view. @return the control; null when it is refused
wxTextCtrl* editRow(wxListCtrl* list, long row);

/// A validator of numbers that leaves the dialog's mnemonics alone. The toolkit's own takes their
/// letters for letters that are typed into the field, and swallows them.
class NumberValidator : public wxTextValidator
{
public:
    explicit NumberValidator(wxString* value)
        : wxTextValidator(wxFILTER_NUMERIC, value)
    {
    }
    wxObject* Clone() const override { return new NumberValidator(*this); }

private:
    void onChar(wxKeyEvent& event);

    wxDECLARE_EVENT_TABLE();
};

/// Has a combo box show its entries in a list that scrolls, not in a menu: a menu takes a time that
/// grows with the square of their number. Called before there are many entries.
void showEntriesInList(wxComboBox* combo);

/// Lets a spin control show texts that are not numbers. What the user types is still taken as a
/// number.
void allowSpinText(wxSpinCtrl* spin);

/// Keeps the wheel from changing a control that has not got the focus: a user who scrolls past it
/// means something else.
void ignoreWheelWithoutFocus(wxWindow* control);

/// Has a file dialog's filters show files whose extensions are in capitals, too.
void ignoreCaseOfFilters(const wxFileDialog& dialog);

/// The path that a confirmed file dialog gives. The dialog knows the whole path only after it has
/// really been shown.
wxString chosenPath(const wxFileDialog& dialog);

/// Asks for an existing table file. @param directory  where the dialog starts
/// @return the file's full path; empty when the user cancelled
wxString askForTable(wxWindow* parent, const wxString& directory);

#endif
