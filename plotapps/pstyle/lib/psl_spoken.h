// What screen readers are told of the dialogs' lists.

#ifndef PSL_SPOKEN_H
#define PSL_SPOKEN_H

class wxListCtrl;
class wxString;

/// Makes a list known to screen readers: its name, and the text of the row that has the focus.
/// @param name  translated, without mnemonic
void speakList(wxListCtrl* list, const wxString& name);
/// Tells the text of the row that has the focus anew, when the program has changed it.
void speakFocusedRow(wxListCtrl* list);

#endif
