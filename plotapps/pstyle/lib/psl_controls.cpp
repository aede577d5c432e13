// Keys, the wheel, and file dialogs.

#include "psl_controls.h"

#include "psl_gtk.h"

#include <wx/arrstr.h>
#include <wx/combobox.h>
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

wxString shownInRow(const wxString& text)
{
    constexpr size_t mostShown = 250; // more than any row has room for
    return text.Left(mostShown);
}

bool isEdited(const wxString& typed, const wxString& shown)
{
    constexpr size_t enoughToTell = 20;
    const wxString parts[] = {shown.Left(enoughToTell), shown.Mid(shown.length() / 2, enoughToTell),
                              shown.Right(enoughToTell)};
    return std::any_of(std::begin(parts), std::end(parts),
                       [&typed](const wxString& part) { return typed.Contains(part); });
}

void showEntriesInList(wxComboBox* combo)
{
    const auto newProvider = gtkFunction<void*()>("gtk_css_provider_new");
    const auto load =
        gtkFunction<int(void*, const char*, long, void*)>("gtk_css_provider_load_from_data");
    const auto contextOf = gtkFunction<void*(WXWidget)>("gtk_widget_get_style_context");
    const auto add = gtkFunction<void(void*, void*, unsigned)>("gtk_style_context_add_provider");
    const auto emit = gtkFunction<void(void*, const char*)>("g_signal_emit_by_name");
    const auto release = gtkFunction<void(void*)>("g_object_unref");
    if (!newProvider || !load || !contextOf || !add || !emit || !release)
        return;
    constexpr unsigned applicationPriority = 600; // GTK_STYLE_PROVIDER_PRIORITY_APPLICATION
    void* const provider = newProvider();
    load(provider, "combobox { -GtkComboBox-appears-as-list: 1; }", -1, nullptr);
    add(contextOf(combo->GetHandle()), provider, applicationPriority);
    release(provider);
    // It would look at its style only when it is drawn, after the entries have come.
    emit(combo->GetHandle(), "style-updated");
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
