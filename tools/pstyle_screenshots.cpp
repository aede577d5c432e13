// Takes pictures of the editor's pages as they look on the screen.
//
// Usage: pstyle_screenshots FOLDER TABLE [STYLE...]
// Opens TABLE in the editor, selects the styles with the given numbers (the second one when none is
// given), and writes one PNG per page, and one of the colour palette, into FOLDER.

#include "psl.h"
#include "support/screen_image.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/listctrl.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/timer.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

class Photographer : public wxModalDialogHook
{
public:
    Photographer(wxString folder, std::vector<long> styles)
        : m_folder(std::move(folder))
        , m_styles(std::move(styles))
    {
    }

    bool succeeded() const { return m_succeeded; }

protected:
    // The dialog's own loop runs the timer: a page is painted between its being shown and its
    // being photographed.
    int Enter(wxDialog* dialog) override
    {
        if (dialog->FindWindow(XRCID("NoteBook")))
        {
            m_editor = dialog;
            m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { photographPage(); });
            m_timer.Start(settlingTime);
            return wxID_NONE;
        }
        if (const auto* message = wxDynamicCast(dialog, wxMessageDialog))
        {
            std::fprintf(stderr, "%s\n",
                         static_cast<const char*>(message->GetMessage().utf8_str()));
            m_succeeded = false;
            return wxID_OK;
        }
        dialog->CallAfter([this, dialog] { photographColors(dialog); });
        return wxID_NONE;
    }

private:
    static constexpr int settlingTime = 400; // milliseconds

    void photographPage()
    {
        auto* book = XRCCTRL(*m_editor, "NoteBook", wxNotebook);
        if (m_page > 0)
        {
            wxString name = book->GetPageText(m_page - 1).Lower();
            name.Replace(" ", "-");
            photograph(m_editor, "editor-" + name);
        }
        if (m_page < book->GetPageCount())
        {
            book->SetSelection(m_page++);
            selectStyles();
            return;
        }
        m_timer.Stop();
        openColors();
        m_editor->EndModal(wxID_CANCEL);
    }

    void selectStyles()
    {
        auto* list = XRCCTRL(*m_editor, "ListStyles", wxListCtrl);
        for (const long style : m_styles)
            if (style < list->GetItemCount())
                list->SetItemState(style, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }

    // The last entry of the colour field opens the dialog with the palette.
    void openColors()
    {
        auto* combo = XRCCTRL(*m_editor, "ComboColor", wxOwnerDrawnComboBox);
        combo->SetSelection(static_cast<int>(combo->GetCount()) - 1);
        wxCommandEvent event(wxEVT_COMBOBOX, combo->GetId());
        event.SetEventObject(combo);
        combo->HandleWindowEvent(event);
    }

    void photographColors(wxDialog* dialog)
    {
        auto* timer = new wxTimer(dialog);
        dialog->Bind(wxEVT_TIMER,
                     [this, dialog, timer](wxTimerEvent&)
                     {
                         photograph(dialog, "colors");
                         delete timer;
                         dialog->EndModal(wxID_CANCEL);
                     });
        timer->StartOnce(settlingTime);
    }

    void photograph(const wxWindow* window, const wxString& name)
    {
        const wxImage image = screenImage(*window);
        const wxFileName file(m_folder, name, "png");
        if (!image.IsOk() || !image.SaveFile(file.GetFullPath(), wxBITMAP_TYPE_PNG))
            m_succeeded = false;
    }

    wxDialog* m_editor = nullptr;
    size_t m_page = 0;
    wxTimer m_timer;
    wxString m_folder;
    std::vector<long> m_styles;
    bool m_succeeded = true;
};

class ScreenshotApp : public wxApp
{
public:
    bool OnInit() override
    {
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
        return photographer.succeeded() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
};

} // namespace

wxIMPLEMENT_APP(ScreenshotApp);
