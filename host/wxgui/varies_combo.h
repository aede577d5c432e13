// What the host's picture combo boxes have in common.

#ifndef WXGUI_VARIES_COMBO_H
#define WXGUI_VARIES_COMBO_H

#include <wx/odcombo.h>

#include <utility>

namespace wxg
{

/// A drop-down list that draws a picture before each entry's text, and whose closed field can say
/// that several values are meant at once. Sends wxEVT_COMBOBOX when the user picks an entry, the
/// current one included; Escape closes an open list and nothing else. Where the field is too narrow
/// for its text, the text is the control's tool tip.
class VariesCombo : public wxOwnerDrawnComboBox
{
public:
    /// Shows the greyed text "Varies" in the closed field, whatever is selected. Cleared when the
    /// user picks an entry.
    void setVaries(bool varies);
    using wxOwnerDrawnComboBox::SetSelection;
    void SetSelection(int item) override;
    bool varies() const { return m_varies; }
    /// The list is no part of the field: with it as a child that takes the focus, the toolkit would
    /// take the field out of the tab order for good.
    bool IsClientAreaChild(const wxWindow*) const override { return false; }

protected:
    VariesCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size);

    /// The picture of an entry, to be drawn at its own size; may be invalid for none.
    virtual wxBitmap picture(int item) const = 0;
    /// The room kept for pictures before the text of every entry.
    virtual wxSize pictureSize() const = 0;
    virtual bool showsText() const { return true; }

    bool ProcessEvent(wxEvent& event) override;
    /// Whether the pick that is being handled was made by a key while the list was closed; tells it
    /// once.
    bool takePickedByKey() { return std::exchange(m_pickedByKey, false); }

private:
    void OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const override;
    void OnDrawBackground(wxDC& dc, const wxRect& rect, int item, int flags) const override;
    wxCoord OnMeasureItem(size_t item) const override;
    wxCoord OnMeasureItemWidth(size_t item) const override;
    void drawText(wxDC& dc, const wxRect& rect, const wxString& text, int flags) const;
    void onCharHook(wxKeyEvent& event);
    void onListChar(wxKeyEvent& event);
    void highlightByPrefix();
    void onPicked(wxCommandEvent& event);
    void tellValue();
    int textIndent(const wxBitmap& entryPicture) const;

    bool m_varies = false;
    bool m_pickedByKey = false;
    /// The letters typed into the open list, and when the last of them was.
    wxString m_prefix;
    long m_prefixTime = 0;

    wxDECLARE_CLASS(VariesCombo);
};

} // namespace wxg

#endif
