// Keys, the wheel, and file dialogs.

#include "psl_controls.h"

#include "psl_gtk.h"

#include <wx/arrstr.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/listctrl.h>

#include <algorithm>

wxString shownPart(const wxString& text)
{
    constexpr size_t mostShown = 5000; // as many as other programs take
    return text.Left(mostShown);
}

bool isOneOf(int key, std::initializer_list<int> keys)
{
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

wxTextCtrl* editRow(wxListCtrl* list, long row)
{
    list->EnsureVisible(row);
    return list->EditLabel(row);
}

// Not on the toolkit's own table, whose handler would come after this one.
// clang-format off
wxBEGIN_EVENT_TABLE(NumberValidator, wxValidator)
    EVT_CHAR(NumberValidator::onChar)
wxEND_EVENT_TABLE()
    // clang-format on

    void NumberValidator::onChar(wxKeyEvent& event)
{
    if (event.AltDown())
        event.Skip();
    else
        OnChar(event);
}

void ignoreWheelWithoutFocus(wxWindow* control)
{
    control->Bind(wxEVT_MOUSEWHEEL,
                  [control](wxMouseEvent& event)
                  {
                      wxWindow* focused = wxWindow::FindFocus();
                      const bool isMeant =
                          focused && (focused == control || control->IsDescendant(focused));
                      event.Skip(isMeant);
                  });
}

namespace
{

// "*.ctb" as a pattern for capitals, too: "*.[cC][tT][bB]".
wxString caselessPattern(const wxString& pattern)
{
    wxString result;
    for (const wxUniChar character : pattern)
        if (wxIsalpha(character))
            result << '[' << wxUniChar(wxTolower(character)) << wxUniChar(wxToupper(character))
                   << ']';
        else
            result << character;
    return result;
}

struct GtkList
{
    void* data;
    GtkList* next;
};

} // namespace

void ignoreCaseOfFilters(const wxFileDialog& dialog)
{
    const auto listFilters = gtkFunction<GtkList*(WXWidget)>("gtk_file_chooser_list_filters");
    const auto addPattern = gtkFunction<void(void*, const char*)>("gtk_file_filter_add_pattern");
    const auto freeList = gtkFunction<void(GtkList*)>("g_slist_free");
    wxArrayString texts;
    wxArrayString filters;
    wxParseCommonDialogsFilter(dialog.GetWildcard(), texts, filters);
    if (!listFilters || !addPattern || !freeList)
        return;
    GtkList* const shown = listFilters(dialog.GetHandle());
    const GtkList* filter = shown;
    for (size_t i = 0; filter && i < filters.size(); ++i, filter = filter->next)
        for (const wxString& pattern : wxSplit(filters[i], ';', '\0'))
            addPattern(filter->data, caselessPattern(pattern).utf8_str());
    freeList(shown);
}

wxString chosenPath(const wxFileDialog& dialog)
{
    const wxString path = dialog.GetPath();
    if (!path.empty())
        return path;
    return wxFileName(dialog.GetDirectory(), dialog.GetFilename()).GetFullPath();
}

wxString askForTable(wxWindow* parent, const wxString& directory)
{
    wxFileDialog dialog(parent, _("Select a Plot Style File"), directory, wxString(),
                        _("Plot Style files (*.ctb;*.stb)|*.ctb;*.stb|All files (*.*)|*.*"),
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    ignoreCaseOfFilters(dialog);
    return dialog.ShowModal() == wxID_OK ? chosenPath(dialog) : wxString();
}
