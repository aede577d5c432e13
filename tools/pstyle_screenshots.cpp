// Takes pictures of the editor's pages as they look on the screen.
//
// Usage: pstyle_screenshots FOLDER TABLE [STYLE...]
// Opens TABLE in the editor, selects the styles with the given numbers (the second one when none is
// given), and writes one PNG per page into FOLDER.

#include "psl.h"

#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/dialog.h>
#include <wx/evtloop.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/listctrl.h>
#include <wx/modalhook.h>
#include <wx/notebook.h>
#include <wx/stopwatch.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

// Lets the window system catch up: there is no event that says that everything is painted.
void settle()
{
    constexpr long milliseconds = 300;
    for (wxStopWatch watch; watch.Time() < milliseconds;)
    {
        wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
        wxTheApp->ProcessIdle();
    }
}

bool shoot(const wxWindow* window, const wxString& path)
{
    const wxRect area = window->GetScreenRect();
    wxBitmap bitmap;
    bitmap.CreateWithDIPSize(area.GetSize(), window->GetContentScaleFactor());
    wxMemoryDC memory(bitmap);
    wxScreenDC screen;
    memory.Blit(wxPoint(0, 0), area.GetSize(), &screen, area.GetPosition());
    memory.SelectObject(wxNullBitmap);
    return bitmap.ConvertToImage().SaveFile(path, wxBITMAP_TYPE_PNG);
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
    int Enter(wxDialog* dialog) override
    {
        dialog->CallAfter([this, dialog] { photograph(dialog); });
        return wxID_NONE;
    }

private:
    void photograph(wxDialog* dialog)
    {
        auto* book = XRCCTRL(*dialog, "NoteBook", wxNotebook);
        auto* list = XRCCTRL(*dialog, "ListStyles", wxListCtrl);
        for (size_t page = 0; page < book->GetPageCount(); ++page)
        {
            book->SetSelection(page);
            settle();
            for (const long style : m_styles)
                if (style < list->GetItemCount())
                    list->SetItemState(style, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
            settle();
            wxString name = book->GetPageText(page).Lower();
            name.Replace(" ", "-");
            const wxFileName file(m_folder, "editor-" + name, "png");
            m_succeeded = shoot(dialog, file.GetFullPath()) && m_succeeded;
        }
        dialog->EndModal(wxID_CANCEL);
    }

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
