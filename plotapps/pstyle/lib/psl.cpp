// The library's entry points and the names of property values.

#include "psl.h"

#include "psl_dlg_new_table.h"
#include "psl_dlg_plot_style_editor.h"
#include "psl_dlg_select_table.h"
#include "psl_resources.h"
#include "psl_table_paths.h"
#include "psl_traverse.h"

#include <wx/arrstr.h>
#include <wx/dir.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/translation.h>

#include <cstddef>

namespace
{

// Every function that opens a dialog calls this first.
void initWx()
{
    static bool inited = false;
    if (inited)
        return;
    if (!areResourcesRegistered()) // by the host
        InitPslXmlResource();
    inited = true;
}

} // namespace

bool editPlotStyleTable(const wxString& file, wxWindow* parent)
{
    return editPlotStyleTable(file, wxString(), parent);
}

bool editPlotStyleTable(const wxString& file, const wxString& sourceFile, wxWindow* parent)
{
    initWx();
    DlgPlotStyleEditor dialog(file, sourceFile, parent);
    return dialog.ShowModal() == wxID_OK;
}

bool startPlotStyleEditor(wxWindow* parent)
{
    initWx();
    DlgSelectTable dialog(parent);
    return dialog.ShowModal() == wxID_OK;
}

bool newPlotStyleTable(wxString& fileName, bool colorDependent, const wxString& directory,
                       wxWindow* parent)
{
    initWx();
    fileName.clear();
    DlgNewTable dialog(colorDependent, directory, parent);
    if (dialog.ShowModal() != wxID_OK)
        return false;
    if (dialog.isForDrawing())
        fileName = dialog.fileName().GetFullName();
    return true;
}

namespace
{

// Collects the names of table files. That a name does not tell its folder is intended: the names
// stand for files that lie directly in the plot style folder.
class PlotStyleTraverser : public wxDirTraverser
{
public:
    explicit PlotStyleTraverser(wxArrayString& files)
        : m_files(files)
    {
    }

    wxDirTraverseResult OnFile(const wxString& path) override
    {
        const wxFileName file(path);
        const wxString extension = file.GetExt().Lower();
        if (extension == "ctb" || extension == "stb")
            m_files.Add(file.GetFullName());
        return wxDIR_CONTINUE;
    }

    wxDirTraverseResult OnDir(const wxString&) override { return wxDIR_CONTINUE; }

private:
    wxArrayString& m_files;
};

} // namespace

size_t getPlotStyleFiles(wxArrayString& files)
{
    const wxString folder = plotStyleFolder();
    if (!wxDir::Exists(folder))
        return 0;
    PlotStyleTraverser traverser(files);
    traverseFolder(folder, traverser);
    return files.size();
}

namespace
{

// The texts are the keys of the translation lookup, trailing blanks included.
const char* const colors[] = {
    wxTRANSLATE("Use entity color"),
    wxTRANSLATE("Red"),
    wxTRANSLATE("Yellow"),
    wxTRANSLATE("Green"),
    wxTRANSLATE("Cyan"),
    wxTRANSLATE("Blue"),
    wxTRANSLATE("Magenta"),
    wxTRANSLATE("Black"),
};

const char* const lineTypes[] = {
    wxTRANSLATE("Solid "),
    wxTRANSLATE("Dashed"),
    wxTRANSLATE("Dotted"),
    wxTRANSLATE("Dash Dot"),
    wxTRANSLATE("Short Dash"),
    wxTRANSLATE("Medium Dash"),
    wxTRANSLATE("Long Dash"),
    wxTRANSLATE("Short Dash x2"),
    wxTRANSLATE("Medium Dash x2"),
    wxTRANSLATE("Long Dash x2"),
    wxTRANSLATE("Medium Long Dash"),
    wxTRANSLATE("Medium Dash Short Dash Short Dash"),
    wxTRANSLATE("Long Dash Short Dash"),
    wxTRANSLATE("Long Dash Dot Dot"),
    wxTRANSLATE("Long Dash Dot"),
    wxTRANSLATE("Medium Dash Dot Short Dash Dot"),
    wxTRANSLATE("Sparse Dot"),
    wxTRANSLATE("ISO Dash"),
    wxTRANSLATE("ISO Dash Space"),
    wxTRANSLATE("ISO Long Dash Dot"),
    wxTRANSLATE("ISO Long Dash Double Dot"),
    wxTRANSLATE("ISO Long Dash Triple Dot"),
    wxTRANSLATE("ISO Dot"),
    wxTRANSLATE("ISO Long Dash Short Dash"),
    wxTRANSLATE("ISO Long Dash Double Short Dash"),
    wxTRANSLATE("ISO Dash Dot"),
    wxTRANSLATE("ISO Double Dash Dot"),
    wxTRANSLATE("ISO Dash Double Dot"),
    wxTRANSLATE("ISO Double Dash Double Dot"),
    wxTRANSLATE("ISO Dash Triple Dot"),
    wxTRANSLATE("ISO Double Dash Triple Dot"),
    wxTRANSLATE("Use entity linetype"),
};

const char* const endStyles[] = {
    wxTRANSLATE("Butt"),
    wxTRANSLATE("Square"),
    wxTRANSLATE("Round"),
    wxTRANSLATE("Diamond"),
    wxTRANSLATE("Use entity end style"),
};

// Value 4 has no name: the plotting system does not use it.
const char* const joinStyles[] = {
    wxTRANSLATE("Miter"),
    wxTRANSLATE("Bevel"),
    wxTRANSLATE("Round"),
    wxTRANSLATE("Diamond"),
    nullptr,
    wxTRANSLATE("Use entity join style"),
};

constexpr int firstFillStyle = 64;
const char* const fillStyles[] = {
    wxTRANSLATE("Solid  "),         wxTRANSLATE("Checkerboard"),
    wxTRANSLATE("Crosshatch"),      wxTRANSLATE("Diamonds"),
    wxTRANSLATE("Horizontal Bars"), wxTRANSLATE("Slant Left"),
    wxTRANSLATE("Slant Right"),     wxTRANSLATE("Square Dots"),
    wxTRANSLATE("Vertical Bars"),   wxTRANSLATE("Use entity fill style"),
};

// Names the value at `names[value - first]`; `fallback` takes the value where there is no name.
template <std::size_t count>
wxString nameOf(const char* const (&names)[count], int value, const char* fallback, int first = 0)
{
    // In unsigned arithmetic a value below the first is past the end as well.
    const std::size_t index = static_cast<unsigned>(value) - static_cast<unsigned>(first);
    if (index < count && names[index])
        return wxGetTranslation(names[index]);
    return wxString::Format(wxGetTranslation(fallback), value);
}

} // namespace

wxString strColor(int color)
{
    return nameOf(colors, color, wxTRANSLATE("Color %d"));
}

wxString strLineType(int lineType)
{
    return nameOf(lineTypes, lineType, wxTRANSLATE("Line type %d"));
}

wxString strEndStyle(int endStyle)
{
    return nameOf(endStyles, endStyle, wxTRANSLATE("End style %d"));
}

wxString strJoinStyle(int joinStyle)
{
    return nameOf(joinStyles, joinStyle, wxTRANSLATE("Join style %d"));
}

wxString strFillStyle(int fillStyle)
{
    return nameOf(fillStyles, fillStyle, wxTRANSLATE("Fill style %d"), firstFillStyle);
}
