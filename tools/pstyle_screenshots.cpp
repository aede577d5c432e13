// Takes pictures of every dialog and page as they look on the screen.
//
// Usage: pstyle_screenshots FOLDER TABLE [STYLE...]
// Opens TABLE in the editor, selects the styles with the given numbers (the second one when none is
// given), then opens the other dialogs, and writes one PNG for each of their states into FOLDER.

#include "psl.h"
#include "psl_dlg_new_table.h"
#include "psl_dlg_plot_style_editor.h"
#include "psl_dlg_select_table.h"
#include "support/screen_image.h"

#include "util/ut.h"

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/timer.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <functional>
#include <vector>

namespace
{

// One picture of a dialog: its file's name, and what is done before it is taken.
struct Shot
{
    wxString name;
    std::function<void()> prepare;
};

class Photographer : public wxModalDialogHook
{
public:
    Photographer(wxString folder, std::vector<long> styles)
        : m_folder(std::move(folder))
        , m_styles(std::move(styles))
    {
        m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { next(); });
    }

    bool succeeded() const { return m_succeeded; }

protected:
    int Enter(wxDialog* dialog) override
    {
        if (const auto* message = wxDynamicCast(dialog, wxMessageDialog))
        {
            std::fprintf(stderr, "%s\n",
                         static_cast<const char*>(message->GetMessage().utf8_str()));
            m_succeeded = false;
            return wxID_OK;
        }
        m_dialog = dialog;
        // What there is to see is known when the dialog has been initialised.
        m_shots = {{wxString(), [this, dialog] { m_shots = shotsOf(dialog); }}};
        m_timer.Start(settlingTime);
        return wxID_NONE;
    }

private:
    static constexpr int settlingTime = 400; // milliseconds

    std::deque<Shot> shotsOf(wxDialog* dialog)
    {
        if (wxDynamicCast(dialog, DlgPlotStyleEditor))
            return editorShots(dialog);
        if (wxDynamicCast(dialog, DlgSelectTable))
            return {{"select-open", [=] { choose(dialog, "RadOpen"); }},
                    {"select-new", [=] { choose(dialog, "RadNew"); }},
                    {"select-copy", [=] { choose(dialog, "RadCopy"); }}};
        return {{wxDynamicCast(dialog, DlgNewTable) ? "new-table" : "colors", [] {}}};
    }

    std::deque<Shot> editorShots(wxDialog* dialog)
    {
        std::deque<Shot> shots;
        auto* book = XRCCTRL(*dialog, "NoteBook", wxNotebook);
        const char* const names[] = {"editor-general", "editor-form-view", "editor-lineweights"};
        for (size_t page = 0; page < book->GetPageCount(); ++page)
        {
            const wxString name = names[page];
            shots.push_back({name, [=]
                             {
                                 book->SetSelection(page);
                                 selectStyles(dialog);
                             }});
        }
        return shots;
    }

    void selectStyles(wxDialog* dialog)
    {
        auto* list = XRCCTRL(*dialog, "ListStyles", wxListCtrl);
        for (const long style : m_styles)
            if (style < list->GetItemCount())
                list->SetItemState(style, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }

    static void choose(wxDialog* dialog, const char* mode)
    {
        auto* button =
            wxStaticCast(dialog->FindWindow(wxXmlResource::GetXRCID(mode)), wxRadioButton);
        button->SetValue(true);
        wxCommandEvent event(wxEVT_RADIOBUTTON, button->GetId());
        event.SetEventObject(button);
        button->HandleWindowEvent(event);
    }

    // The dialog's own loop runs the timer: what is prepared at one tick has been painted at the
    // next.
    void next()
    {
        if (!m_prepared.empty())
            photograph(m_dialog, m_prepared);
        m_prepared.clear();
        if (!m_shots.empty())
        {
            const Shot shot = m_shots.front();
            m_shots.pop_front();
            shot.prepare();
            // The toolkit does it when it is idle, which may be after the picture.
            m_dialog->UpdateWindowUI(wxUPDATE_UI_RECURSE);
            m_prepared = shot.name;
            return;
        }
        m_timer.Stop();
        wxDialog* dialog = m_dialog;
        if (wxDynamicCast(dialog, DlgPlotStyleEditor))
            openColors(dialog);
        dialog->EndModal(wxID_CANCEL);
    }

    // The last entry of the colour field opens the dialog with the palette.
    static void openColors(wxDialog* dialog)
    {
        auto* combo = XRCCTRL(*dialog, "ComboColor", wxOwnerDrawnComboBox);
        constexpr int selectColor = 8;
        combo->SetSelection(selectColor);
        wxCommandEvent event(wxEVT_COMBOBOX, combo->GetId());
        event.SetEventObject(combo);
        combo->HandleWindowEvent(event);
    }

    void photograph(const wxWindow* window, const wxString& name)
    {
        const wxImage image = screenImage(*window);
        const wxFileName file(m_folder, name, "png");
        if (!image.IsOk() || !image.SaveFile(file.GetFullPath(), wxBITMAP_TYPE_PNG))
            m_succeeded = false;
    }

    wxTimer m_timer;
    wxDialog* m_dialog = nullptr;
    std::deque<Shot> m_shots;
    /// The name of the picture that the next tick takes.
    wxString m_prepared;
    wxString m_folder;
    std::vector<long> m_styles;
    bool m_succeeded = true;
};

} // namespace

class ScreenshotApp : public wxApp
{
public:
    bool OnInit() override
    {
        // A message box would wait for somebody.
        delete wxLog::SetActiveTarget(new wxLogStderr);
        ut::loadTranslations();
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        return argc >= 3;
    }

    int OnRun() override
    {
        std::vector<long> styles;
        for (int i = 3; i < argc; ++i)
            styles.push_back(std::atol(argv[i]));
        if (styles.empty())
            styles.push_back(1);
        const wxString folder = argv[1];
        wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxFileName table(argv[2]);
        table.MakeAbsolute();
        Photographer photographer(folder, styles);
        photographer.Register();
        editPlotStyleTable(table.GetFullPath(), nullptr);
        startPlotStyleEditor(nullptr);
        wxString name;
        newPlotStyleTable(name, true, table.GetPath(), nullptr);
        return photographer.succeeded() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
};

wxIMPLEMENT_APP(ScreenshotApp);
