// Lists and screen readers.

#include "psl_spoken.h"

#include "desktop/desktop.h"

#include <wx/listctrl.h>

void speakList(wxListCtrl* list, const wxString& name)
{
    desktop::setSpokenName(list, name);
    desktop::setSpokenRole(list, desktop::SpokenRole::List);
    const auto speakRow = [list](wxListEvent& event)
    {
        event.Skip();
        // The new text of a row is there after the event.
        list->CallAfter([list] { speakFocusedRow(list); });
    };
    list->Bind(wxEVT_LIST_ITEM_FOCUSED, speakRow);
    list->Bind(wxEVT_LIST_END_LABEL_EDIT, speakRow);
}

void speakFocusedRow(wxListCtrl* list)
{
    const long row = list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
    desktop::setSpokenValue(list, row < 0 ? wxString() : list->GetItemText(row));
}
