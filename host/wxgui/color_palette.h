// The 255 index colours as a field to pick from.

#ifndef WXGUI_COLOR_PALETTE_H
#define WXGUI_COLOR_PALETTE_H

#include <wx/event.h>
#include <wx/panel.h>

namespace wxg
{

/// Shows the index colours: the 24 hues in ten shades each, below them colours 1 to 9 and the
/// greys. The mouse and the arrow keys pick one.
class ColorPalette : public wxPanel
{
public:
    explicit ColorPalette(wxWindow* parent);

    /// The picked colour's index, 1 to 255; 0 for none.
    int index() const { return m_index; }
    /// Picks a colour and sends no event. @param index  0 to 255
    void setIndex(int index);

private:
    void onPaint(wxPaintEvent& event);
    void onMouse(wxMouseEvent& event);
    void onKey(wxKeyEvent& event);
    void pick(int index, bool confirms);
    void confirm();

    int m_index = 0;
};

/// Sent by a palette when the user picks a colour; the event's integer is its index.
wxDECLARE_EVENT(EVT_COLOR_PICKED, wxCommandEvent);
/// Sent after EVT_COLOR_PICKED when the user confirms the pick, by a double click or Return.
wxDECLARE_EVENT(EVT_COLOR_CONFIRMED, wxCommandEvent);

} // namespace wxg

#endif
