// The host's combo box of colours.

#ifndef WXGUI_COLOR_COMBO_H
#define WXGUI_COLOR_COMBO_H

#include "odps/od_color.h"
#include "odps/od_db_object_id.h"
#include "odps/od_string.h"
#include "wxgui/varies_combo.h"

#include <optional>

namespace wxg
{

/// A drop-down list of colours: the object's own (entry 0), the first seven index colours, the
/// seventh of them as black, and "Select color…", which asks for any other. A colour that has no
/// entry of its own gets one at the end.
class ColorCombo : public VariesCombo
{
public:
    /// The arguments between the size and the title belong to the host's richer control, which
    /// takes colours from a drawing and from colour books; this one has no use for them.
    /// @param title  the caption of the dialog that asks for a colour
    ColorCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size, bool,
               unsigned, const OdDbObjectId&, int, bool, long, const OdString& title);

    /// Shows a colour. Black and the object's colour (by-colour white) select their entries,
    /// whatever way they are given. Sends no event.
    void setColor(OdCmEntityColor color);
    /// The colour shown; empty for the object's own. The black entry gives RGB 0 by colour.
    std::optional<OdCmEntityColor> color() const;

private:
    wxBitmap picture(int item) const override;
    wxSize pictureSize() const override;

    std::optional<OdCmEntityColor> entryColor(int item) const;
    void selectOther(OdCmEntityColor color);
    void onPicked(wxCommandEvent& event);
    bool stepOver();
    bool askForColor();

    wxString m_title;
    /// The colour of the entry behind "Select color…".
    std::optional<OdCmEntityColor> m_other;
    /// What was selected before the user picked an entry.
    int m_selected = 0;

    wxDECLARE_CLASS(ColorCombo);
};

} // namespace wxg

#endif
