// Opens the editor on a table as a host does, and confirms it at once: open_editor TABLE
// Ends with 0 when the editor showed the table's name and said that it was confirmed.

#include <psl.h>

#include <cmdapi/cma.h>

#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/wx.h>
#include <wx/xrc/xmlres.h>

namespace
{

class Confirm : public wxModalDialogHook
{
public:
    wxString title;

private:
    int Enter(wxDialog* dialog) override
    {
        dialog->InitDialog();
        title = dialog->GetTitle();
        return wxID_OK;
    }
};

class OpenEditor : public wxApp
{
    bool OnInit() override
    {
        wxXmlResource::Get()->InitAllHandlers();
        return argc == 2;
    }

    int OnRun() override
    {
        const wxString table = argv[1];
        Confirm confirm;
        confirm.Register();
        const bool isTable = !cma::loadPlotStyleTable(table.wc_str()).isNull();
        const bool isConfirmed = editPlotStyleTable(table, nullptr);
        return isTable && isConfirmed && confirm.title.EndsWith(table.AfterLast('/')) ? 0 : 1;
    }
};

} // namespace

wxIMPLEMENT_APP(OpenEditor);
