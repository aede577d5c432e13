// Takes everything of the interface, so that the debug information of this library has the layouts
// of the classes and the results of the functions.

#include "psl.h"
#include "psl_dlg_new_table.h"
#include "psl_dlg_plot_style_editor.h"
#include "psl_dlg_select_table.h"
#include "psl_lineweights.h"

struct Functions
{
    bool (*edit)(const wxString&, wxWindow*) = editPlotStyleTable;
    bool (*copy)(const wxString&, const wxString&, wxWindow*) = editPlotStyleTable;
    decltype(&startPlotStyleEditor) start;
    decltype(&newPlotStyleTable) make;
    decltype(&getPlotStyleFiles) list;
    decltype(&InitPslXmlResource) init;
    decltype(&strColor) name;
    decltype(&findStyle) find;
    decltype(&replaceImageCombo) replace;
    decltype(&compareLineWeightData) compare;
};

PSL_API void layouts(DlgNewTable&, DlgPlotStyleEditor&, DlgSelectTable&, LineWeightData&,
                     Functions&)
{
}
