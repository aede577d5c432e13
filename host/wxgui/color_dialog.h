// The host's dialog that asks for a colour.

#ifndef WXGUI_COLOR_DIALOG_H
#define WXGUI_COLOR_DIALOG_H

#include "odps/od_color.h"

#include <wx/colour.h>
#include <wx/dialog.h>

class wxStaticText;

namespace wxg
{

class ColorPalette;

/// The colour with this index. @param index  0 to 255
OdCmEntityColor indexColor(int index);

/// The colour of a drawing entity as the toolkit's colour: the one that is plotted, so index 7 is
/// black.
wxColour toolkitColor(OdCmEntityColor color);

/// How users name a colour: "Color 30", or the components of a true colour.
wxString colorText(OdCmEntityColor color);

/// Lets the user pick one of the 255 index colours, or any true colour. A double click on an index
/// colour confirms.
class ColorDialog : public wxDialog
{
public:
    /// @param current  the colour to begin with
    ColorDialog(wxWindow* parent, const wxString& title, OdCmEntityColor current);

    /// The colour that the user picked, meaningful when the dialog ended with OK.
    OdCmEntityColor color() const { return m_color; }

private:
    void show(OdCmEntityColor color);
    void askForTrueColor();

    OdCmEntityColor m_color;
    ColorPalette* m_palette;
    wxStaticText* m_text;
    wxWindow* m_swatch;
};

} // namespace wxg

#endif
