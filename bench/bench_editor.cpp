// What the editor costs: opening it on tables of several sizes beside showing its dialog resource
// empty, changing the colour of all styles at once, and a click on one style while all are
// selected. Prints one line a measurement, with ratios. Needs a display: tools/with-display
// build/release/bin/bench_editor

#include "psl.h"
#include "psl_dlg_plot_style_editor.h"

#include "cmdapi/cma.h"
#include "wxutils/wut.h"

#include <wx/app.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/listctrl.h>
#include <wx/modalhook.h>
#include <wx/notebook.h>
#include <wx/odcombo.h>
#include <wx/stopwatch.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <utility>

namespace
{

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

// The best of several runs, in milliseconds.
double best(const std::function<double()>& measure)
{
    constexpr int runs = 7;
    double least = measure();
    for (int i = 1; i < runs; ++i)
        least = std::min(least, measure());
    return least;
}

// Shows a dialog until it has been painted, and does something then.
void showOnce(
    wxDialog& dialog, const std::function<void()>& work = [] {})
{
    bool isDone = false;
    dialog.Bind(wxEVT_PAINT,
                [&](wxPaintEvent& event)
                {
                    event.Skip();
                    dialog.CallAfter(
                        [&]
                        {
                            if (!std::exchange(isDone, true))
                                work();
                            dialog.EndModal(wxID_CANCEL);
                        });
                });
    dialog.ShowModal();
}

double openEmpty()
{
    const auto start = Clock::now();
    wxDialog dialog;
    wut::loadDialog(&dialog, nullptr, "DlgPlotStyleEditor");
    showOnce(dialog);
    return milliseconds(Clock::now() - start);
}

double openEditor(const wxString& file)
{
    const auto start = Clock::now();
    DlgPlotStyleEditor dialog(file, wxString(), nullptr);
    showOnce(dialog);
    return milliseconds(Clock::now() - start);
}

// Selects all styles by the key, and clicks the third.
double clickOneOfAll(const wxString& file)
{
    DlgPlotStyleEditor dialog(file, wxString(), nullptr);
    double time = 0;
    const auto clickRow = [&dialog, &time]
    {
        XRCCTRL(dialog, "NoteBook", wxNotebook)->SetSelection(1);
        auto* list = XRCCTRL(dialog, "ListStyles", wxListCtrl);
        list->Update();
        wxKeyEvent selectAll(wxEVT_CHAR_HOOK);
        selectAll.m_keyCode = 'A';
        selectAll.SetControlDown(true);
        list->HandleWindowEvent(selectAll);
        wxRect row;
        list->GetItemRect(2, row);
        const auto start = Clock::now();
        for (const auto type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP})
        {
            wxMouseEvent click(type);
            click.SetPosition(row.GetPosition() + row.GetSize() / 2);
            list->GetChildren().front()->HandleWindowEvent(click);
        }
        wxTheApp->ProcessPendingEvents();
        time = milliseconds(Clock::now() - start);
        if (list->GetSelectedItemCount() != 1)
            std::fprintf(stderr, "the click has not selected one style\n");
    };
    showOnce(dialog, clickRow);
    return time;
}

struct Edit
{
    double select;
    double change;
};

// Selects all styles by the key, and picks a colour for them.
Edit recolorAll(const wxString& file)
{
    DlgPlotStyleEditor dialog(file, wxString(), nullptr);
    dialog.InitDialog();
    XRCCTRL(dialog, "NoteBook", wxNotebook)->SetSelection(1);
    auto* list = XRCCTRL(dialog, "ListStyles", wxListCtrl);
    wxKeyEvent selectAll(wxEVT_CHAR_HOOK);
    selectAll.m_keyCode = 'A';
    selectAll.SetControlDown(true);
    const auto start = Clock::now();
    list->HandleWindowEvent(selectAll);
    const auto selected = Clock::now();
    auto* combo = XRCCTRL(dialog, "ComboColor", wxOwnerDrawnComboBox);
    combo->SetSelection(1);
    wxCommandEvent picked(wxEVT_COMBOBOX, combo->GetId());
    picked.SetEventObject(combo);
    combo->HandleWindowEvent(picked);
    return {milliseconds(selected - start), milliseconds(Clock::now() - selected)};
}

wxString makeTable(const wxString& folder, int styles)
{
    const bool colorDependent = styles == 255;
    const auto table = cma::createPlotStyleTable(colorDependent, L"");
    for (int i = table->styleCount(); i < styles; ++i)
        table->addNewStyle(OdString(wxString::Format("Style %d", i).wc_str()));
    const wxString file =
        wxString::Format("%s/%d.%s", folder, styles, colorDependent ? "ctb" : "stb");
    cma::savePlotStyleTable(OdString(file.wc_str()), table);
    return file;
}

} // namespace

class BenchApp : public wxApp
{
public:
    bool OnInit() override
    {
        wxInitAllImageHandlers();
        wxXmlResource::Get()->InitAllHandlers();
        InitPslXmlResource();
        return true;
    }

    int OnRun() override
    {
        const wxString folder = wxFileName::CreateTempFileName("bench-editor-") + ".d";
        wxFileName::Mkdir(folder);
        const double empty = best(openEmpty);
        std::printf("%-28s %9.1f ms\n", "empty dialog shown", empty);
        for (const int styles : {255, 1000, 10000})
            measure(makeTable(folder, styles), styles, empty);
        wxFileName::Rmdir(folder, wxPATH_RMDIR_RECURSIVE);
        wxRemoveFile(folder.BeforeLast('.'));
        return 0;
    }

private:
    static void measure(const wxString& file, int styles, double empty)
    {
        const double open = best([&file] { return openEditor(file); });
        const double select = best([&file] { return recolorAll(file).select; });
        const double change = best([&file] { return recolorAll(file).change; });
        std::printf("%6d styles: opened       %9.1f ms = %.2f x empty, %.2f us a style more\n",
                    styles, open, open / empty, (open - empty) * 1000 / styles);
        std::printf("%6d styles: all selected %9.1f ms, %.2f us a style\n", styles, select,
                    select * 1000 / styles);
        std::printf("%6d styles: recoloured   %9.1f ms, %.2f us a style\n", styles, change,
                    change * 1000 / styles);
        const double click = best([&file] { return clickOneOfAll(file); });
        std::printf("%6d styles: one clicked  %9.1f ms, %.2f us a style\n", styles, click,
                    click * 1000 / styles);
        std::fflush(stdout);
    }
};

wxIMPLEMENT_APP(BenchApp);
