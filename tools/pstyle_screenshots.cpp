// Takes pictures of the editor's pages as they look on the screen.
//
// Usage: pstyle_screenshots FOLDER TABLE [STYLE...]
// Opens TABLE in the editor, selects the styles with the given numbers (the second one when none is
// given), and writes one PNG per page into FOLDER.

#include "psl.h"
#include "support/screen_image.h"

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/listctrl.h>
#include <wx/modalhook.h>
#include <wx/notebook.h>
#include <wx/timer.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

bool save(const wxWindow& window, const wxString& path)
{
    const wxImage image = screenImage(window);
    return image.IsOk() && image.SaveFile(path, wxBITMAP_TYPE_PNG);
}

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
        m_dialog = dialog;
        m_page = 0;
        m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { photograph(); });
        m_timer.Start(settlingTime);
        return wxID_NONE;
    }

private:
    static constexpr int settlingTime = 400; // milliseconds

    void photograph()
    {
        auto* book = XRCCTRL(*m_dialog, "NoteBook", wxNotebook);
        if (m_page > 0)
        {
            wxString name = book->GetPageText(m_page - 1).Lower();
            name.Replace(" ", "-");
            const wxFileName file(m_folder, "editor-" + name, "png");
            m_succeeded = save(*m_dialog, file.GetFullPath()) && m_succeeded;
        }
        if (m_page == book->GetPageCount())
        {
            m_timer.Stop();
            m_dialog->EndModal(wxID_CANCEL);
            return;
        }
        book->SetSelection(m_page++);
        selectStyles();
    }

    void selectStyles()
    {
        auto* list = XRCCTRL(*m_dialog, "ListStyles", wxListCtrl);
        for (const long style : m_styles)
            if (style < list->GetItemCount())
                list->SetItemState(style, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }

    wxDialog* m_dialog = nullptr;
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
