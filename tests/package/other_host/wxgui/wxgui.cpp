#include "wxgui/wxgui.h"

#include "wxgui/color_combo.h"

#include <wx/dcmemory.h>
#include <wx/intl.h>
#include <wx/sizer.h>

namespace
{

constexpr int otherValue = 256;

struct Entry : wxClientData
{
    int value = 0;
    wxBitmap bitmap;
};

Entry& entryOf(const wxg::ImageCombo& combo, int index)
{
    return static_cast<Entry&>(*combo.GetClientObject(unsigned(index)));
}

wxBitmap swatch(const OdCmEntityColor& color)
{
    wxBitmap bitmap(14, 14);
    wxMemoryDC dc(bitmap);
    dc.SetBackground(wxColour(color.red(), color.green(), color.blue()));
    dc.Clear();
    return bitmap;
}

} // namespace

wxg::ImageCombo::ImageCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size,
                            bool withText)
    : wxOwnerDrawnComboBox(parent, id, "", pos, size, wxArrayString(), wxCB_READONLY)
    , hasText(withText)
{
    Bind(wxEVT_COMBOBOX,
         [this](wxCommandEvent& event)
         {
             setVaries(false);
             event.Skip();
         });
}

void wxg::ImageCombo::appendItem(const wxString& text, int value, const wxBitmap& bitmap)
{
    auto* entry = new Entry;
    entry->value = value;
    entry->bitmap = bitmap;
    Append(text, entry);
}

void wxg::ImageCombo::setItem(int index, const wxString& text, const wxBitmap& bitmap)
{
    SetString(unsigned(index), text);
    entryOf(*this, index).bitmap = bitmap;
    if (index == GetSelection())
        Select(index); // the closed field has its own copy of the text
    Refresh();
}

void wxg::ImageCombo::setValue(int value)
{
    lastValue = value;
    int index = int(GetCount()) - 1;
    for (int i = index; i >= 0; --i)
        index = entryOf(*this, i).value == value ? i : index;
    const bool isFound = index >= 0 && entryOf(*this, index).value == value;
    Select(isFound ? index : wxNOT_FOUND);
}

int wxg::ImageCombo::value() const
{
    return GetSelection() < 0 ? lastValue : entryOf(*this, GetSelection()).value;
}

void wxg::ImageCombo::setVaries(bool doesVary)
{
    isVarying = doesVary;
    Refresh();
}

void wxg::ImageCombo::OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    wxRect rest = rect.Deflate(2, 0);
    if (flags & wxODCB_PAINTING_CONTROL && isVarying)
        return dc.DrawLabel(_("(several)"), rest, wxALIGN_CENTER_VERTICAL);
    if (item < 0)
        return;
    const wxBitmap& bitmap = entryOf(*this, item).bitmap;
    if (bitmap.IsOk())
    {
        dc.DrawBitmap(bitmap, rest.x, rest.y + (rest.height - bitmap.GetHeight()) / 2, true);
        const int room = std::max(imageSize.x, bitmap.GetWidth()) + 4;
        rest = wxRect(rest.x + room, rest.y, rest.width - room, rest.height);
    }
    if (hasText || !bitmap.IsOk())
        dc.DrawLabel(GetString(unsigned(item)), rest, wxALIGN_CENTER_VERTICAL);
}

wxg::ColorCombo::ColorCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size,
                            bool, unsigned, OdDbObjectId, int, bool, long, const OdString& title)
    : ImageCombo(parent, id, pos, size)
{
    SetToolTip(title.c_str());
    appendItem(_("Of the object"), 0);
    for (int index = 1; index < otherValue; ++index)
    {
        OdCmEntityColor color;
        color.setColorIndex(index);
        appendItem(wxString::Format("%d", index), index, swatch(color));
    }
    setValue(0);
}

void wxg::ColorCombo::setColor(const OdCmEntityColor& color)
{
    if (color.color() == OdCmEntityColor().color())
        return setValue(0);
    if (color.colorMethod() == OdCmEntityColor::kByACI)
        return setValue(color.colorIndex());
    otherColor = color;
    const wxString text = wxString::Format("%d, %d, %d", color.red(), color.green(), color.blue());
    if (GetCount() == otherValue)
        appendItem(text, otherValue);
    setItem(otherValue, text, swatch(color));
    setValue(otherValue);
}

std::optional<OdCmEntityColor> wxg::ColorCombo::color() const
{
    if (value() == 0)
        return std::nullopt;
    OdCmEntityColor color = otherColor;
    if (value() != otherValue)
        color.setColorIndex(value());
    return color;
}

void wxg::replaceWnd(wxWindow* oldWindow, wxWindow* newWindow)
{
    oldWindow->GetContainingSizer()->Replace(oldWindow, newWindow);
    newWindow->MoveAfterInTabOrder(oldWindow);
    newWindow->SetName(oldWindow->GetName());
}

bool wxg::isDpiForLargeIcons()
{
    return false;
}
