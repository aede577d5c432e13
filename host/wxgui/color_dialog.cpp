// Asking for a colour.

#include "wxgui/color_dialog.h"

#include "desktop/desktop.h"
#include "wxgui/color_palette.h"

#include <wx/button.h>
#include <wx/colordlg.h>
#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace wxg
{

OdCmEntityColor indexColor(int index)
{
    OdCmEntityColor color;
    color.setColorIndex(index);
    return color;
}

wxColour toolkitColor(OdCmEntityColor color)
{
    constexpr int blackOnPaper = 7;
    if (color.colorMethod() == OdCmEntityColor::kByACI)
    {
        const int index = color.colorIndex();
        color.setColor(index == blackOnPaper ? 0 : OdCmEntityColor::lookUpRGB(index));
    }
    return {color.red(), color.green(), color.blue()};
}

wxString colorText(OdCmEntityColor color)
{
    if (color.colorMethod() == OdCmEntityColor::kByACI)
        return wxString::Format(_("Color %d"), color.colorIndex());
    return wxString::Format("%d,%d,%d", color.red(), color.green(), color.blue());
}

ColorDialog::ColorDialog(wxWindow* parent, const wxString& title, OdCmEntityColor current)
    : wxDialog(parent, wxID_ANY, title)
    , m_palette(new ColorPalette(this))
    , m_text(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxST_NO_AUTORESIZE))
    , m_swatch(new wxWindow(this, wxID_ANY, wxDefaultPosition, wxSize(48, 24), wxBORDER_SIMPLE))
{
    m_swatch->SetCanFocus(false);
    auto* trueColor = new wxButton(this, wxID_ANY, _("&True Color..."));
    auto* shown = new wxBoxSizer(wxHORIZONTAL);
    shown->Add(m_swatch, wxSizerFlags().CenterVertical().Border(wxRIGHT, 12));
    shown->Add(m_text, wxSizerFlags(1).CenterVertical());
    shown->Add(trueColor, wxSizerFlags().CenterVertical());
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(m_palette, wxSizerFlags().Border(wxALL, 12));
    all->Add(shown, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, 12));
    all->Add(CreateButtonSizer(wxOK | wxCANCEL),
             wxSizerFlags().Expand().Border(wxTOP | wxBOTTOM, 12));
    desktop::showOwnLabels(this);
    SetSizerAndFit(all);
    CentreOnParent();

    m_palette->Bind(EVT_COLOR_PICKED,
                    [this](wxCommandEvent& event) { show(indexColor(event.GetInt())); });
    m_palette->Bind(EVT_COLOR_CONFIRMED, [this](wxCommandEvent&) { EndDialog(wxID_OK); });
    trueColor->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { askForTrueColor(); });
    show(current);
    m_palette->SetFocus();
}

void ColorDialog::show(OdCmEntityColor color)
{
    m_color = color;
    const bool isIndex = color.colorMethod() == OdCmEntityColor::kByACI;
    m_palette->setIndex(isIndex ? color.colorIndex() : 0);
    const bool isObjects = color == OdCmEntityColor();
    m_text->SetLabel(isObjects ? _("Use entity color") : colorText(color));
    m_swatch->SetBackgroundColour(toolkitColor(color));
    m_swatch->Refresh();
}

void ColorDialog::askForTrueColor()
{
    wxColourData data;
    data.SetChooseFull(true);
    data.SetColour(toolkitColor(m_color));
    wxColourDialog dialog(this, &data);
    dialog.SetTitle(GetTitle());
    if (dialog.ShowModal() != wxID_OK)
        return;
    const wxColour picked = dialog.GetColourData().GetColour();
    show({picked.Red(), picked.Green(), picked.Blue()});
}

} // namespace wxg
