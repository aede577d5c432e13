// Runs the host on an empty folder, and operates it as a user does: drive_other_host FOLDER
// The keys and the pointer are real ones, which come from the X server. Ends with 0 when every
// dialog did what it was told, and the tables hold it.

#include "cmdapi/cma.h"
#include "other_host.h"

#include <wx/combo.h>
#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/statusbr.h>
#include <wx/stopwatch.h>
#include <wx/textdlg.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <cstdio>
#include <deque>
#include <memory>

namespace
{

bool hasFailed = false;

void expect(bool isTrue, const wxString& what)
{
    if (isTrue)
        return;
    hasFailed = true;
    std::fprintf(stderr, "Not as expected: %s\n", what.utf8_str().data());
}

void onAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
              const wxString& message)
{
    expect(false, wxString::Format("%s:%d: %s: %s %s", file, line, function, condition, message));
}

class Complaints : public wxLog
{
    void DoLogTextAtLevel(wxLogLevel level, const wxString& text) override
    {
        expect(level > wxLOG_Warning, text);
    }
};

// Keeps the text of the last message box.
class Messages : public wxModalDialogHook
{
public:
    wxString last;

private:
    int Enter(wxDialog* dialog) override
    {
        if (const auto* box = dynamic_cast<wxMessageDialog*>(dialog))
            last = box->GetMessage() + box->GetExtendedMessage();
        return wxID_NONE;
    }
};

// Null while a message box is active, which is GTK's own.
wxWindow* activeWindow()
{
    for (wxWindow* window : wxTopLevelWindows)
    {
        if (window->IsShown() && static_cast<wxTopLevelWindow*>(window)->IsActive())
            return window;
    }
    return nullptr;
}

template <typename Control>
Control* find(const wxString& name)
{
    return dynamic_cast<Control*>(wxWindow::FindWindowByName(name, activeWindow()));
}

// Where a control, or a list's row, is on the screen; empty if it cannot be clicked.
wxRect placeOf(const wxString& name, long row)
{
    const auto* control = find<wxWindow>(name);
    if (!control || !control->IsShownOnScreen() || !control->IsEnabled())
        return {};
    wxRect place(control->GetSize());
    const auto* list = dynamic_cast<const wxListCtrl*>(control);
    if (row >= 0 && (!list || row >= list->GetItemCount() || !list->GetItemRect(row, place)))
        return {};
    place.Offset(control->GetScreenPosition());
    return place;
}

// The user: takes one step after another, each as soon as the program is ready for it.
class User : public wxTimer
{
public:
    User()
    {
        const auto onIdle = [this](wxIdleEvent& event) { event.Skip(isIdle = true); };
        wxTheApp->Bind(wxEVT_IDLE, onIdle);
    }

    using Condition = std::function<bool()>;
    using Action = std::function<void()>;

    /// Waits until something is so.
    void until(const wxString& what, Condition isSo)
    {
        steps.push_back({what, std::move(isSo), [] {}});
    }
    void then(Action act)
    {
        steps.push_back({"its turn", [] { return true; }, std::move(act)});
    }
    void key(int code, int modifiers = wxMOD_NONE)
    {
        then([=] { hand.Char(code, modifiers); });
    }
    /// Waits until a window is the active one.
    void in(const wxString& window)
    {
        until(window, [=] { return activeWindow() && activeWindow()->GetName() == window; });
    }
    /// Clicks a control near its left edge as soon as it does not move any more.
    void click(const wxString& control, long row = -1)
    {
        const auto stands = [=, last = wxRect()]() mutable
        {
            const wxRect before = std::exchange(last, placeOf(control, row));
            return !last.IsEmpty() && last == before;
        };
        const auto press = [=]
        {
            const wxRect place = placeOf(control, row);
            hand.MouseMove(place.x + std::min(20, place.width / 2), place.y + place.height / 2);
            hand.MouseClick();
        };
        steps.push_back({control, stands, press});
    }
    void select(const wxString& list, long row)
    {
        const auto isSelected = [=]
        {
            const auto* control = find<wxListCtrl>(list);
            return control && control->GetItemState(row, wxLIST_STATE_SELECTED) != 0;
        };
        click(list, row);
        until("a selected row of " + list, isSelected);
    }
    /// Replaces the text of a field.
    void type(const wxString& field, const char* text)
    {
        click(field);
        const auto hasFocus = [=] { return wxWindow::FindFocus() == find<wxWindow>(field); };
        until("focus in " + field, hasFocus);
        replaceText(text);
    }
    /// Waits for an edit that has just begun, replaces its text and confirms it.
    void enter(const char* text)
    {
        const auto isEdit = [] { return dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus()); };
        until("an edit", isEdit);
        replaceText(text);
        key(WXK_RETURN);
    }
    /// Picks an entry of a combo box, so many below the selected one.
    void pick(const wxString& combo, int below)
    {
        const auto isListShown = [=]
        {
            const auto* control = find<wxComboCtrl>(combo);
            return control && control->IsPopupWindowState(wxComboCtrl::Visible);
        };
        click(combo);
        until("the list of " + combo, isListShown);
        for (int i = 0; i < below; ++i)
            key(WXK_DOWN);
        key(WXK_RETURN);
        until("the end of the list of " + combo, [=] { return !isListShown(); });
    }

private:
    struct Step
    {
        wxString what;
        Condition isSo;
        Action act;
    };

    void replaceText(const char* text)
    {
        key('A', wxMOD_CONTROL);
        then([=] { hand.Text(text); });
    }

    // Only when the program has come to rest since the last time, and so enabled what is to be.
    void Notify() override
    {
        StartOnce(10); // before the step, which may run a dialog
        const bool hasRested = std::exchange(isIdle, false);
        wxWakeUpIdle();
        if (steps.empty())
            return;
        if (hasRested && steps.front().isSo())
        {
            const Step step = std::move(steps.front());
            steps.pop_front();
            watch.Start();
            step.act();
        }
        else if (watch.Time() > 60000)
        {
            expect(false, "waited in vain for " + steps.front().what);
            std::_Exit(1); // whatever dialog is open
        }
    }

    wxUIActionSimulator hand;
    std::deque<Step> steps;
    wxStopWatch watch;
    bool isIdle = false;
};

class DrivenHost : public OtherHost
{
    bool OnInit() override;
    int OnRun() override { return OtherHost::OnRun() != 0 || hasFailed ? 1 : 0; }

    void editTable(int row);
    void addStyle(const char* name);
    void refuseBrokenTable();
    void editColorTable();
    void createNamedTable();
    void copyTable();

    wxString pathOf(const char* table) const { return wxFileName(argv[1], table).GetFullPath(); }
    wxString namesIn(const char* table) const;
    void checkColorTable() const;
    void checkNamedTables() const;
    void leave();

    Messages messages;
    std::unique_ptr<User> user;
};

bool DrivenHost::OnInit()
{
    wxSetAssertHandler(onAssert);
    delete wxLog::SetActiveTarget(new Complaints);
    if (argc != 2)
        return false;
    wxFFile(pathOf("Broken.ctb"), "w").Write("plot_style_table = 1\ncolor_dependent = maybe\n");
    const auto table = cma::createPlotStyleTable(true, L"");
    expect(cma::savePlotStyleTable(pathOf("Office.ctb").wc_str(), table), "a table to edit");
    if (!OtherHost::OnInit())
        return false;
    const bool isGerman = wxString(wxGetenv("LANGUAGE")) == "de";
    expect(GetTopWindow()->GetLabel() == (isGerman ? "Plotstiltabellen" : "Plot style tables"),
           "the host's own texts");
    messages.Register();
    user = std::make_unique<User>();
    refuseBrokenTable();
    editColorTable();
    createNamedTable();
    copyTable();
    user->then([this] { leave(); });
    user->StartOnce(1);
    return true;
}

void DrivenHost::editTable(int row)
{
    user->in("MainWindow");
    user->select("ListTables", row);
    user->click("BtnEdit");
}

void DrivenHost::addStyle(const char* name)
{
    user->click("BtnStyleAddForm");
    user->until("the question for a name",
                [] { return dynamic_cast<wxTextEntryDialog*>(activeWindow()); });
    user->enter(name);
    user->in("DlgPlotStyleEditor");
}

void DrivenHost::refuseBrokenTable()
{
    editTable(0);
    const auto isTold = [this]
    { return !activeWindow() && messages.last.Contains("valid \"color_dependent\""); };
    user->until("the reason why a table is not opened", isTold);
    user->key(WXK_RETURN);
    user->in("DlgPlotStyleEditor");
    user->key(WXK_ESCAPE);
}

void DrivenHost::editColorTable()
{
    editTable(1);
    user->in("DlgPlotStyleEditor");
    user->type("TextTableDescr", "Walls, doors");
    user->click("CheckScale");
    user->type("TextScale", "2.125");
    user->key(WXK_PAGEDOWN, wxMOD_CONTROL);
    user->select("ListStyles", 2);
    user->type("SpinScreening", "40");
    user->pick("ComboColor", 1);
    user->pick("ComboLineWeight", 3);
    user->pick("ComboFillStyle", 2);
    user->key(WXK_PAGEDOWN, wxMOD_CONTROL);
    user->select("ListLineWeights", 2);
    user->key(WXK_F2);
    user->enter("0.57");
    user->click("wxID_OK");
    user->in("MainWindow");
    user->then([this] { checkColorTable(); });
}

void DrivenHost::checkColorTable() const
{
    const auto table = cma::loadPlotStyleTable(pathOf("Office.ctb").wc_str());
    if (table.isNull() || table->styleCount() != 255)
        return expect(false, "a table of 255 styles");
    expect(table->description() == L"Walls, doors", "description");
    expect(table->isApplyScaleFactor() && table->scaleFactor() == 2.125, "scale factor");
    expect(table->lineweightAt(2) == 0.15 && table->lineweightAt(11) == 0.57, "lineweights");
    OdPsPlotStyleData data;
    table->styleAt(2)->getData(data);
    expect(data.screening == 40, "screening");
    expect(data.color.color() == 0xC2FF0000, "color");
    expect(data.lineweight == 12, "the style's lineweight");
    expect(data.fillStyle == 65, "fill style");
    table->styleAt(3)->getData(data);
    expect(data.screening == 100 && data.lineweight == -1.0, "other styles stay");
}

void DrivenHost::createNamedTable()
{
    user->click("BtnNewNamed");
    user->in("DlgNewTable");
    user->type("TextTableName", "Mine");
    user->key(WXK_RETURN);
    user->in("DlgPlotStyleEditor");
    user->key(WXK_PAGEDOWN, wxMOD_CONTROL);
    addStyle("Walls");
    user->type("SpinScreening", "60");
    user->click("wxID_OK");
    user->in("MainWindow");
}

void DrivenHost::copyTable()
{
    user->click("BtnChoose");
    user->in("DlgSelectTable");
    user->click("RadCopy");
    user->type("ComboSourceFile", "Mine.stb");
    user->type("TextTableName", "Copy");
    user->key(WXK_RETURN);
    user->in("DlgPlotStyleEditor");
    user->key(WXK_PAGEDOWN, wxMOD_CONTROL);
    user->select("ListStyles", 1);
    user->key(WXK_F2);
    user->enter("Doors");
    user->select("ListStyles", 0);
    addStyle("Attic");
    addStyle("Spare");
    user->click("BtnStyleDelForm");
    user->click("wxID_OK");
    user->in("MainWindow");
    user->then([this] { checkNamedTables(); });
}

wxString DrivenHost::namesIn(const char* table) const
{
    const auto loaded = cma::loadPlotStyleTable(pathOf(table).wc_str());
    wxString names;
    for (int i = 0; !loaded.isNull() && i < loaded->styleCount(); ++i)
        names << loaded->styleAt(i)->localizedName().c_str() << ' ';
    return names;
}

void DrivenHost::checkNamedTables() const
{
    expect(namesIn("Mine.stb") == "Normal Walls ", "styles of the new table");
    expect(namesIn("Copy.stb") == "Normal Attic Doors ", "styles of the copy");
    const auto* status = static_cast<wxFrame*>(GetTopWindow())->GetStatusBar();
    expect(status->GetStatusText().EndsWith(": Mine.stb"), "the drawing's table");
    const auto copy = cma::loadPlotStyleTable(pathOf("Copy.stb").wc_str());
    OdPsPlotStyleData data;
    if (!copy.isNull() && !copy->findStyleByName(L"doors").isNull())
        copy->findStyleByName(L"doors")->getData(data);
    expect(data.screening == 60, "screening of the copied style");
}

void DrivenHost::leave()
{
    expect(wxTopLevelWindows.GetCount() == 1, "no window but the main one");
    GetTopWindow()->Close();
}

} // namespace

wxIMPLEMENT_APP(DrivenHost);
