// The combo box of colours.

#include "wxgui/color_combo.h"

#include "wxgui/color_dialog.h"

#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/intl.h>

namespace wxg
{

wxIMPLEMENT_CLASS(ColorCombo, VariesCombo);

namespace
{

constexpr int objectEntry = 0;
constexpr int blackEntry = 7;
constexpr int selectEntry = 8;
constexpr int otherEntry = 9;

const wxSize swatchSize(24, 12);

} // namespace

ColorCombo::ColorCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size,
                       bool, unsigned, const OdDbObjectId&, int, bool, long, const OdString& title)
    : VariesCombo(parent, id, pos, size)
    , m_title(title.c_str())
{
    const wxString entries[] = {
        _("Use entity color"),
        _("Red"),
        _("Yellow"),
        _("Green"),
        _("Cyan"),
        _("Blue"),
        _("Magenta"),
        _("Black"),
        _(L"Select color\u2026"),
    };
    for (const wxString& entry : entries)
        Append(entry);
    SetSelection(objectEntry);
    Bind(wxEVT_COMBOBOX, &ColorCombo::onPicked, this);
}

void ColorCombo::setColor(OdCmEntityColor color)
{
    const bool isIndex = color.colorMethod() == OdCmEntityColor::kByACI;
    const int index = isIndex ? color.colorIndex() : 0;
    const std::uint32_t rgb =
        isIndex ? OdCmEntityColor::lookUpRGB(index) : color.color() & 0xFFFFFF;
    if (index >= 1 && index <= blackEntry)
        SetSelection(index);
    else if (rgb == 0xFFFFFF)
        SetSelection(objectEntry);
    else if (rgb == 0)
        SetSelection(blackEntry);
    else
        selectOther(color);
    m_selected = GetSelection();
    Refresh();
}

void ColorCombo::selectOther(OdCmEntityColor color)
{
    m_other = color;
    if (GetCount() == otherEntry)
        Append(colorText(color));
    else
        SetString(otherEntry, colorText(color));
    SetSelection(otherEntry);
}

std::optional<OdCmEntityColor> ColorCombo::color() const
{
    return entryColor(GetSelection());
}

std::optional<OdCmEntityColor> ColorCombo::entryColor(int item) const
{
    if (item == blackEntry)
        return OdCmEntityColor(0, 0, 0);
    if (item > objectEntry && item < blackEntry)
        return indexColor(item);
    if (item == otherEntry)
        return m_other;
    return std::nullopt;
}

wxBitmap ColorCombo::picture(int item) const
{
    const auto color = entryColor(item);
    if (!color)
        return wxNullBitmap;
    wxBitmap bitmap(swatchSize);
    wxMemoryDC dc(bitmap);
    dc.SetPen(wxPen(wxColour(0x80, 0x80, 0x80)));
    dc.SetBrush(wxBrush(toolkitColor(*color)));
    dc.DrawRectangle(wxPoint(0, 0), swatchSize);
    return bitmap;
}

wxSize ColorCombo::pictureSize() const
{
    return swatchSize;
}

// "Select color…" is a command, not a value: it becomes a picked colour or leaves no trace.
void ColorCombo::onPicked(wxCommandEvent& event)
{
    const bool isByKey = takePickedByKey();
    const bool asks = GetSelection() == selectEntry;
    const bool isPicked = !asks || (isByKey ? stepOver() : askForColor());
    if (!isPicked)
    {
        SetSelection(m_selected);
        return;
    }
    m_selected = GetSelection();
    event.Skip();
}

// The keys that step through the closed list pass the command by. Gives false where nothing lies
// beyond it.
bool ColorCombo::stepOver()
{
    const bool goesDown = m_selected < selectEntry;
    const bool hasOther = GetCount() > otherEntry;
    SetSelection(goesDown && hasOther ? otherEntry : blackEntry);
    return GetSelection() != m_selected;
}

bool ColorCombo::askForColor()
{
    const auto current = entryColor(m_selected);
    ColorDialog dialog(this, m_title, current ? *current : OdCmEntityColor());
    if (dialog.ShowModal() != wxID_OK)
        return false;
    setColor(dialog.color());
    return true;
}

} // namespace wxg
