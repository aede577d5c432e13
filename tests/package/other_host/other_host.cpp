#include "other_host.h"

#include "util/ut.h"

#include <psl.h>

#include <wx/button.h>
#include <wx/filename.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/translation.h>
#include <wx/xrc/xmlres.h>

namespace
{

wxString tableFolder()
{
    return ut::getString(ut::ECfgGroup(6), "PlotStylePath");
}

} // namespace

MainWindow::MainWindow()
    : wxFrame(nullptr, wxID_ANY, _("Plot style tables"), wxDefaultPosition, wxDefaultSize,
              wxDEFAULT_FRAME_STYLE, "MainWindow")
    , tables(new wxListView(this, wxID_ANY, wxDefaultPosition, wxSize(300, 200),
                            wxLC_REPORT | wxLC_SINGLE_SEL))
{
    tables->SetName("ListTables");
    tables->AppendColumn(_("Table"), wxLIST_FORMAT_LEFT, 280);
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(tables, wxSizerFlags(1).Expand().Border());
    addButton("BtnEdit", _("&Edit plot styles..."), [this] { editTable(); });
    addButton("BtnNewColor", _("New &color table..."), [this] { createTable(true); });
    addButton("BtnNewNamed", _("New &named table..."), [this] { createTable(false); });
    addButton("BtnChoose", _("C&hoose table..."), [this] { startPlotStyleEditor(this); });
    CreateStatusBar();
    GetSizer()->SetSizeHints(this);
    listTables();
}

void MainWindow::addButton(const char* name, const wxString& label,
                           const std::function<void()>& action)
{
    auto* button = new wxButton(this, wxID_ANY, label);
    button->SetName(name);
    button->Bind(wxEVT_BUTTON,
                 [this, action](wxCommandEvent&)
                 {
                     action();
                     listTables();
                 });
    GetSizer()->Add(button, wxSizerFlags().Expand().Border());
}

void MainWindow::editTable()
{
    const long row = tables->GetFirstSelected();
    const wxString name = row < 0 ? "" : tables->GetItemText(row);
    if (!name.empty() && editPlotStyleTable(wxFileName(tableFolder(), name).GetFullPath(), this))
        SetStatusText(wxString::Format(_("Saved: %s"), name));
}

void MainWindow::createTable(bool isColorDependent)
{
    wxString tableOfDrawing;
    if (newPlotStyleTable(tableOfDrawing, isColorDependent, tableFolder(), this))
        SetStatusText(wxString::Format(_("The drawing's table: %s"), tableOfDrawing));
}

void MainWindow::listTables()
{
    wxArrayString names;
    getPlotStyleFiles(names);
    names.Sort();
    tables->DeleteAllItems();
    for (const wxString& name : names)
        tables->InsertItem(tables->GetItemCount(), name);
}

bool OtherHost::OnInit()
{
    if (argc != 2)
        return false;
    wxXmlResource::Get()->InitAllHandlers();
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(OWN_CATALOGUES);
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(EDITOR_CATALOGUES);
    wxTranslations::Set(new wxTranslations);
    for (const char* catalogue : {"other_host", "pstyle"})
        wxTranslations::Get()->AddCatalog(catalogue);
    ut::setTableFolder(argv[1]);
    (new MainWindow)->Show();
    return true;
}
