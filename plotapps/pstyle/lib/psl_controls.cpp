// Building of dialogs, keys, the wheel, and file dialogs.

#include "psl_controls.h"

#include "psl_resources.h"

#include "desktop/desktop.h"
#include "wxutils/wut.h"

#include <wx/arrstr.h>
#include <wx/combobox.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/spinctrl.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace
{

// The toolkit's handlers for the kinds of pictures that the library has. What the host lacks is
// there while this lives.
class ImageHandlers
{
public:
    ImageHandlers()
    {
        lend(std::make_unique<wxPNGHandler>());
        lend(std::make_unique<wxICOHandler>());
    }
    ~ImageHandlers()
    {
        for (const wxString& name : m_lent)
            wxImage::RemoveHandler(name);
    }
    ImageHandlers(const ImageHandlers&) = delete;
    ImageHandlers& operator=(const ImageHandlers&) = delete;

private:
    void lend(std::unique_ptr<wxImageHandler> handler)
    {
        if (wxImage::FindHandler(handler->GetName()))
            return;
        m_lent.push_back(handler->GetName());
        wxImage::AddHandler(handler.release());
    }

    std::vector<wxString> m_lent;
};

} // namespace

bool buildDialog(wxDialog* dialog, wxWindow* parent, const char* name)
{
    const ImageHandlers handlers;
    // The toolkit asserts where a control that has a place in the layout is missing. What is
    // missing is told below.
    const wxAssertHandler_t onAssert = wxSetAssertHandler(nullptr);
    const bool isLoaded = wut::loadDialog(dialog, parent, name);
    wxSetAssertHandler(onAssert);
    if (!isLoaded)
        return false;
    desktop::showOwnLabels(dialog);
    for (const EmbeddedControl& control : embeddedControls(name))
    {
        const wxWindow* window = dialog->FindWindow(wxXmlResource::GetXRCID(control.name));
        if (!window || !window->IsKindOf(control.kind))
        {
            wxLogError(_("The dialog '%ls' cannot be shown: it lacks '%ls'."), wxString(name),
                       control.name);
            return false;
        }
    }
    return true;
}

void outliveParent(wxDialog* dialog)
{
    if (wxWindow* parent = dialog->GetParent())
        parent->RemoveChild(dialog);
}

void placeDialog(wxDialog* dialog, int width)
{
    dialog->SetSize(width, -1);
    dialog->Centre(wxBOTH);
    outliveParent(dialog);
}

wxBitmap loadPicture(const wxString& name)
{
    const ImageHandlers handlers;
    wxXmlResource* const resource = wxXmlResource::Get();
    return resource->GetResourceNode(name) ? resource->LoadBitmap(name) : wxBitmap();
}

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
    const auto newProvider = desktop::gtkFunction<void*()>("gtk_css_provider_new");
    const auto load = desktop::gtkFunction<int(void*, const char*, long, void*)>(
        "gtk_css_provider_load_from_data");
    const auto contextOf = desktop::gtkFunction<void*(WXWidget)>("gtk_widget_get_style_context");
    const auto add =
        desktop::gtkFunction<void(void*, void*, unsigned)>("gtk_style_context_add_provider");
    const auto emit = desktop::gtkFunction<void(void*, const char*)>("g_signal_emit_by_name");
    const auto release = desktop::gtkFunction<void(void*)>("g_object_unref");
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

void allowSpinText(wxSpinCtrl* spin)
{
    const auto setNumeric =
        desktop::gtkFunction<void(WXWidget, int)>("gtk_spin_button_set_numeric");
    if (setNumeric)
        setNumeric(spin->GetHandle(), 0);
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
    const auto listFilters =
        desktop::gtkFunction<GtkList*(WXWidget)>("gtk_file_chooser_list_filters");
    const auto addPattern =
        desktop::gtkFunction<void(void*, const char*)>("gtk_file_filter_add_pattern");
    const auto freeList = desktop::gtkFunction<void(GtkList*)>("g_slist_free");
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
