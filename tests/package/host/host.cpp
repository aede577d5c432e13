// A host of the plot style table editor: a window with a button that opens the editor's chooser.
#include <psl.h>
#include <wx/wx.h>
#include <wx/xrc/xmlres.h>

class Host : public wxApp
{
public:
    bool OnInit() override
    {
        // The editor's dialogs need its handlers.
        wxXmlResource::Get()->InitAllHandlers();
        if (argc == 2) // a table: edit it and leave
            return editPlotStyleTable(argv[1], nullptr) && false;
        auto* frame = new wxFrame(nullptr, wxID_ANY, "Host");
        auto* button = new wxButton(frame, wxID_ANY, "&Plot styles...");
        button->Bind(wxEVT_BUTTON, [frame](wxCommandEvent&) { startPlotStyleEditor(frame); });
        frame->Show();
        return true;
    }
};

wxIMPLEMENT_APP(Host);
