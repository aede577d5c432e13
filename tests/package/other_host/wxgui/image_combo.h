// A combo box whose entries have a number and a picture.

#ifndef OTHER_HOST_IMAGE_COMBO_H
#define OTHER_HOST_IMAGE_COMBO_H

#include <wx/bitmap.h>
#include <wx/odcombo.h>

namespace wxg
{
class ImageCombo : public wxOwnerDrawnComboBox
{
public:
    /// @param withText  whether the texts are drawn beside the pictures
    ImageCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos = wxDefaultPosition,
               const wxSize& size = wxDefaultSize, bool withText = true);

    void appendItem(const wxString& text, int value, const wxBitmap& bitmap = wxNullBitmap);
    /// Changes an entry, but for its value.
    void setItem(int index, const wxString& text, const wxBitmap& bitmap);
    /// The room for the pictures; without any they have as much as they need.
    void setImageSize(const wxSize& size) { imageSize = size; }
    /// Selects the first entry of that value, or none.
    void setValue(int value);
    /// The value of the selected entry, or else the one that was set last.
    int value() const;
    /// Whether the closed field tells of several values; until the user picks an entry.
    void setVaries(bool doesVary);
    bool varies() const { return isVarying; }

private:
    void OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const override;

    bool hasText;
    bool isVarying = false;
    int lastValue = 0;
    wxSize imageSize;
};
} // namespace wxg

#endif
