// Drawing and operation of the colour palette.

#include "wxgui/color_palette.h"

#include "desktop/desktop.h"
#include "odps/od_color.h"
#include "wxgui/color_dialog.h"

#include <wx/dcbuffer.h>
#include <wx/intl.h>
#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>

namespace wxg
{

wxDEFINE_EVENT(EVT_COLOR_PICKED, wxCommandEvent);
wxDEFINE_EVENT(EVT_COLOR_CONFIRMED, wxCommandEvent);

namespace
{

constexpr int columns = 24;
constexpr int shades = 10;
constexpr int rows = shades + 2;
constexpr int cell = 18;
constexpr int rowGap = 8;

// Where the keys begin when no index colour is picked.
constexpr int first = 1;

// The full colour of a hue stands in the middle, its darker shades above and its paler below.
constexpr int shadeOfRow[shades] = {8, 6, 4, 2, 0, 1, 3, 5, 7, 9};

// The colour index in a place of the palette; 0 where there is none.
int indexAt(int row, int column)
{
    if (column < 0 || column >= columns || row < 0 || row >= rows)
        return 0;
    if (row < shades)
        return 10 * (column + 1) + shadeOfRow[row];
    if (row == shades)
        return column < 9 ? column + 1 : 0;
    return column < 6 ? 250 + column : 0;
}

int topOf(int row)
{
    return row * cell + std::max(0, row - shades + 1) * rowGap;
}

wxRect rectAt(int row, int column)
{
    return {column * cell, topOf(row), cell, cell};
}

// Calls `visit(row, column, index)` for every colour.
template <class Visit>
void forEachColor(Visit visit)
{
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            if (const int index = indexAt(row, column))
                visit(row, column, index);
}

wxPoint placeOf(int wanted)
{
    if (wanted == 0)
        wanted = first;
    wxPoint place;
    forEachColor(
        [&](int row, int column, int index)
        {
            if (index == wanted)
                place = wxPoint(column, row);
        });
    return place;
}

} // namespace

ColorPalette::ColorPalette(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxSize(columns * cell, topOf(rows)),
              wxWANTS_CHARS | wxBORDER_NONE)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(GetSize());
    desktop::setSpokenName(this, _("Index colors"));
    desktop::setSpokenRole(this, desktop::SpokenRole::ColorChooser);
    Bind(wxEVT_PAINT, &ColorPalette::onPaint, this);
    Bind(wxEVT_LEFT_DOWN, &ColorPalette::onMouse, this);
    Bind(wxEVT_LEFT_DCLICK, &ColorPalette::onMouse, this);
    Bind(wxEVT_KEY_DOWN, &ColorPalette::onKey, this);
    const auto repaint = [this](wxFocusEvent& event)
    {
        Refresh();
        event.Skip();
    };
    Bind(wxEVT_SET_FOCUS, repaint);
    Bind(wxEVT_KILL_FOCUS, repaint);
}

void ColorPalette::setIndex(int index)
{
    m_index = index;
    desktop::setSpokenValue(this, index == 0 ? wxString() : colorText(indexColor(index)));
    Refresh();
}

void ColorPalette::onPaint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(GetParent()->GetBackgroundColour()));
    dc.Clear();
    forEachColor(
        [&](int row, int column, int index)
        {
            dc.SetPen(wxPen(wxColour(0x80, 0x80, 0x80)));
            dc.SetBrush(wxBrush(toolkitColor(indexColor(index))));
            dc.DrawRectangle(rectAt(row, column).Deflate(1));
        });
    if (m_index == 0 && !HasFocus())
        return;
    const wxPoint place = placeOf(m_index);
    const auto ring = HasFocus() ? wxSYS_COLOUR_HIGHLIGHT : wxSYS_COLOUR_WINDOWTEXT;
    dc.SetPen(wxPen(wxSystemSettings::GetColour(ring), 2));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    dc.DrawRectangle(rectAt(place.y, place.x));
}

void ColorPalette::onMouse(wxMouseEvent& event)
{
    SetFocus();
    forEachColor(
        [&](int row, int column, int index)
        {
            if (rectAt(row, column).Contains(event.GetPosition()))
                pick(index, event.LeftDClick());
        });
}

void ColorPalette::onKey(wxKeyEvent& event)
{
    wxPoint place = placeOf(m_index);
    switch (event.GetKeyCode())
    {
    case WXK_LEFT:
        --place.x;
        break;
    case WXK_RIGHT:
        ++place.x;
        break;
    case WXK_UP:
        --place.y;
        break;
    case WXK_DOWN:
        ++place.y;
        break;
    case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                   : wxNavigationKeyEvent::IsForward);
        return;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        confirm();
        return;
    default:
        event.Skip();
        return;
    }
    // The last rows are shorter than the others.
    const int lastColumn = place.y < shades ? columns - 1 : place.y == shades ? 8 : 5;
    const int index = indexAt(place.y, std::min(place.x, lastColumn));
    // Without a colour picked yet, the keys begin where the ring is.
    pick(m_index == 0 ? first : index, false);
}

void ColorPalette::pick(int index, bool confirms)
{
    if (index == 0)
        return;
    setIndex(index);
    wxCommandEvent picked(EVT_COLOR_PICKED, GetId());
    picked.SetEventObject(this);
    picked.SetInt(index);
    HandleWindowEvent(picked);
    if (confirms)
        confirm();
}

void ColorPalette::confirm()
{
    wxCommandEvent confirmed(EVT_COLOR_CONFIRMED, GetId());
    confirmed.SetEventObject(this);
    HandleWindowEvent(confirmed);
}

} // namespace wxg
