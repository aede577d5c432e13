// The eye of the keyboard tests: a module that GTK loads into the program under test (GTK_MODULES)
// and that tells over a socket what stands on the screen. It looks and never touches: what the
// tests do, they do with keys and the pointer.
//
// A request is a line of words separated by tabs; the answer is one line of the same kind.

#include "tests/keyboard/eye.h"

#include <wx/anybutton.h>
#include <wx/app.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/listctrl.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/vlbox.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <future>
#include <thread>

#include <X11/Xlib.h>
#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{

// --- Marks -----------------------------------------------------------------------------------

// GDK's functions; its headers are not needed for this.
template <class Function>
Function* gdkFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

/// The number of the last mark that has come along the road of the user's input. Everything that
/// was done before it has been dealt with, which nothing else would tell: GDK holds input back
/// while it paints.
std::atomic<long> lastMark{0};

int takeMark(void* xEvent, void*, void*)
{
    constexpr int goOn = 0; // GDK_FILTER_CONTINUE
    constexpr int remove = 2;
    const auto* event = static_cast<const XEvent*>(xEvent);
    static const auto atomOf = gdkFunction<Atom(const char*)>("gdk_x11_get_xatom_by_name");
    if (event->type != ClientMessage || event->xclient.message_type != atomOf(markMessage))
        return goOn;
    lastMark = event->xclient.data.l[0];
    return remove;
}

// The window to which marks are sent; it lives as long as the program.
wxString markWindow()
{
    const auto display = gdkFunction<void*()>("gdk_display_get_default")();
    const auto leader = gdkFunction<void*(void*)>("gdk_display_get_default_group")(display);
    gdkFunction<void(void*, int (*)(void*, void*, void*), void*)>("gdk_window_add_filter")(
        nullptr, takeMark, nullptr);
    return wxString::Format("%lu",
                            gdkFunction<unsigned long(void*)>("gdk_x11_window_get_xid")(leader));
}

// --- Looking ---------------------------------------------------------------------------------

/// Remembers which modal dialogs are open, the innermost last.
class OpenDialogs : public wxModalDialogHook
{
public:
    const std::vector<wxDialog*>& all() const { return m_dialogs; }

protected:
    int Enter(wxDialog* dialog) override
    {
        m_dialogs.push_back(dialog);
        return wxID_NONE;
    }
    void Exit(wxDialog*) override { m_dialogs.pop_back(); }

private:
    std::vector<wxDialog*> m_dialogs;
};

OpenDialogs* openDialogs = nullptr;

wxString answer(const wxArrayString& words)
{
    wxString line;
    for (wxString word : words)
    {
        word.Replace("\t", " ");
        word.Replace("\n", " ");
        line += (line.empty() ? "" : "\t") + word;
    }
    return line;
}

wxArrayString place(const wxRect& onScreen)
{
    wxArrayString words;
    for (const int number : {onScreen.x, onScreen.y, onScreen.width, onScreen.height})
        words.Add(wxString::Format("%d", number));
    return words;
}

wxWindow* innermostDialog()
{
    return openDialogs->all().empty() ? nullptr : openDialogs->all().back();
}

// A control by its resource name, in the innermost dialog that has it.
wxWindow* control(const wxString& name)
{
    const auto& dialogs = openDialogs->all();
    for (auto dialog = dialogs.rbegin(); dialog != dialogs.rend(); ++dialog)
        if (wxWindow* found = (*dialog)->FindWindow(wxXmlResource::GetXRCID(name)))
            return found;
    return nullptr;
}

// What a screen reader is told of a control that draws itself.
wxString spokenText(const wxWindow* window)
{
    const auto accessible = gdkFunction<void*(WXWidget)>("gtk_widget_get_accessible");
    const auto description = gdkFunction<const char*(void*)>("atk_object_get_description");
    const char* told = description(accessible(window->m_wxwindow));
    return wxString::FromUTF8(told ? told : "");
}

wxString text(wxWindow* window)
{
    if (const auto* spin = dynamic_cast<wxSpinCtrl*>(window))
        return spin->GetTextValue();
    if (dynamic_cast<wxComboCtrl*>(window))
        return spokenText(window);
    if (const auto* box = dynamic_cast<wxCheckBox*>(window))
        return box->Get3StateValue() == wxCHK_UNDETERMINED ? "undetermined"
               : box->GetValue()                           ? "checked"
                                                           : "unchecked";
    if (const auto* radio = dynamic_cast<wxRadioButton*>(window))
        return radio->GetValue() ? "checked" : "unchecked";
    if (const auto* entry = dynamic_cast<wxTextCtrl*>(window))
        return entry->GetValue();
    if (const auto* book = dynamic_cast<wxNotebook*>(window))
        return book->GetPageText(static_cast<size_t>(book->GetSelection()));
    if (const auto* combo = dynamic_cast<wxComboBox*>(window))
        return combo->GetValue();
    if (const auto* choice = dynamic_cast<wxChoice*>(window))
        return choice->GetStringSelection();
    return wxControl::GetLabelText(window->GetLabel());
}

// The resource name of the control that has the focus, or that it is a part of.
wxString focus()
{
    for (const wxWindow* window = wxWindow::FindFocus(); window; window = window->GetParent())
    {
        const wxString& name = window->GetName();
        if (wxXmlResource::GetXRCID(name, wxID_NONE) != wxID_NONE)
            return name;
    }
    return "nothing";
}

wxString dialogs()
{
    wxArrayString words;
    for (wxDialog* dialog : openDialogs->all())
    {
        const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
        const auto* file = dynamic_cast<wxFileDialog*>(dialog);
        words.Add(box ? box->GetMessage() : file ? file->GetMessage() : dialog->GetTitle());
    }
    return answer(words);
}

wxString describe(wxWindow* window)
{
    wxArrayString words = place(window->GetScreenRect());
    words.Add(window->IsEnabled() ? "enabled" : "disabled");
    words.Add(window->IsShownOnScreen() ? "shown" : "hidden");
    words.Add(text(window));
    return answer(words);
}

wxString rowPlace(const wxListCtrl* list, long row)
{
    wxRect rect;
    if (!list || row >= list->GetItemCount() || !list->GetItemRect(row, rect))
        return "";
    rect.SetPosition(list->ClientToScreen(rect.GetPosition()));
    return answer(place(rect));
}

wxString rows(const wxListCtrl* list)
{
    wxArrayString words;
    for (long row = 0; list && row < list->GetItemCount(); ++row)
        words.Add(list->GetItemText(row));
    return answer(words);
}

wxString selectedRows(const wxListCtrl* list)
{
    wxArrayString words;
    for (long row = -1;
         list && (row = list->GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) != -1;)
        words.Add(wxString::Format("%ld", row));
    return answer(words);
}

wxString openList(wxWindow* window)
{
    auto* combo = dynamic_cast<wxOwnerDrawnComboBox*>(window);
    if (!combo || !combo->IsPopupShown())
        return "";
    wxWindow* list = combo->GetPopupControl()->GetControl();
    wxArrayString words = place(list->GetScreenRect());
    words.Add(wxString::Format("%d", dynamic_cast<wxVListBox*>(list)->GetSelection()));
    return answer(words);
}

wxString look(const wxArrayString& request)
{
    const wxString what = request[0];
    if (what == "mark window")
        return markWindow();
    if (what == "dialogs")
        return dialogs();
    if (what == "focus")
        return focus();
    if (what == "width")
        return wxString::Format("%d", innermostDialog()->GetClientSize().x);
    if (what == "active")
    {
        const auto isActive = gdkFunction<int(WXWidget)>("gtk_window_is_active");
        const wxWindow* dialog = innermostDialog();
        return dialog && dialog->GetHandle() && isActive(dialog->GetHandle()) ? "yes" : "";
    }
    if (what == "style")
    {
        const auto tell = gdkFunction<const char*(int)>("tellStyle");
        return tell ? wxString::FromUTF8(tell(wxAtoi(request[1]))) : wxString();
    }
    wxWindow* window = request.size() > 1 ? control(request[1]) : nullptr;
    if (!window)
        return "";
    const auto* list = dynamic_cast<wxListCtrl*>(window);
    if (what == "control")
        return describe(window);
    if (what == "rows")
        return rows(list);
    if (what == "row")
        return rowPlace(list, wxAtol(request[2]));
    if (what == "selected")
        return selectedRows(list);
    if (what == "edit")
        return list && list->GetEditControl() ? "=" + list->GetEditControl()->GetValue() : "";
    if (what == "list")
        return openList(window);
    return "";
}

/// How often in a row the program has to be idle.
constexpr int idleRounds = 3;

bool isButtonPressed(const wxWindow* window)
{
    constexpr int active = 1; // GTK_STATE_FLAG_ACTIVE
    static const auto stateFlags = gdkFunction<int(WXWidget)>("gtk_widget_get_state_flags");
    static const auto hasGrab = gdkFunction<int(WXWidget)>("gtk_widget_has_grab");
    const bool isButton = dynamic_cast<const wxAnyButton*>(window) ||
                          dynamic_cast<const wxCheckBox*>(window) ||
                          dynamic_cast<const wxRadioButton*>(window);
    if (isButton && ((stateFlags(window->GetHandle()) & active) || hasGrab(window->GetHandle())))
        return true;
    for (const wxWindow* child : window->GetChildren())
        if (isButtonPressed(child))
            return true;
    return false;
}

/// A wait for the program to have nothing more to do.
struct Wait
{
    long mark;
    int rounds;
    std::promise<wxString> promise;
};

// Called by the main loop when nothing else is left for it, again and again until it gives 0. A
// button that was pressed by a key acts only after a while.
int whenIdle(void* argument)
{
    auto* wait = static_cast<Wait*>(argument);
    const auto& dialogs = openDialogs->all();
    const bool isBusy = lastMark < wait->mark || wxTheApp->HasPendingEvents() ||
                        std::any_of(dialogs.begin(), dialogs.end(), isButtonPressed);
    wait->rounds = isBusy ? idleRounds : wait->rounds - 1;
    if (wait->rounds > 0)
        return 1;
    wait->promise.set_value("idle");
    return 0;
}

wxString waitUntilIdle(long mark)
{
    static const auto start =
        gdkFunction<unsigned(int, unsigned, int (*)(void*), void*, void*)>("g_timeout_add_full");
    constexpr int lastOfAll = 300; // G_PRIORITY_LOW, behind input, painting and the toolkit's idle
    constexpr unsigned milliseconds = 2;
    Wait wait{mark, idleRounds, {}};
    start(lastOfAll, milliseconds, whenIdle, &wait, nullptr);
    return wait.promise.get_future().get();
}

wxString ask(const wxString& line)
{
    const wxArrayString request = wxSplit(line, '\t', '\0');
    if (request[0] == "idle")
        return waitUntilIdle(wxAtol(request[1]));
    std::promise<wxString> promise;
    wxTheApp->CallAfter([&] { promise.set_value(look(request)); });
    return promise.get_future().get();
}

void serve(int socket)
{
    std::string line;
    char byte = 0;
    while (read(socket, &byte, 1) == 1)
    {
        if (byte != '\n')
        {
            line += byte;
            continue;
        }
        const std::string reply = ask(wxString::FromUTF8(line)).utf8_string() + "\n";
        line.clear();
        if (send(socket, reply.data(), reply.size(), MSG_NOSIGNAL) < 0)
            return;
    }
}

} // namespace

extern "C" void gtk_module_init(int*, char***)
{
    const char* path = std::getenv(eyeVariable);
    sockaddr_un address{AF_UNIX, {}};
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (!path || std::string(path).copy(address.sun_path, sizeof address.sun_path - 1) == 0 ||
        connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return;
    openDialogs = new OpenDialogs; // until the process ends
    openDialogs->Register();
    std::thread(serve, server).detach();
}
