// Shows one of the dialogs until it is closed: show_dialog editor|chooser|new-table|colors TABLE

#include "psl.h"

#include "util/ut.h"
#include "wxgui/color_dialog.h"

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/xrc/xmlres.h>

#include <functional>
#include <map>

class ShowDialog : public wxApp
{
    bool OnInit() override
    {
        ut::loadTranslations();
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        return argc == 3;
    }

    int OnRun() override
    {
        const wxString table = argv[2];
        const std::map<wxString, std::function<void()>> dialogs{
            {"editor", [&] { editPlotStyleTable(table, nullptr); }},
            {"chooser", [] { startPlotStyleEditor(nullptr); }},
            {"new-table",
             [&]
             {
                 wxString name;
                 newPlotStyleTable(name, true, wxFileName(table).GetPath(), nullptr);
             }},
            {"colors",
             [] { wxg::ColorDialog(nullptr, "Colors", OdCmEntityColor(255, 0, 0)).ShowModal(); }},
        };
        dialogs.at(argv[1])();
        return 0;
    }
};

wxIMPLEMENT_APP(ShowDialog);
