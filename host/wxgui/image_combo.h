// The host's combo box of values with pictures.

#ifndef WXGUI_IMAGE_COMBO_H
#define WXGUI_IMAGE_COMBO_H

#include "wxgui/varies_combo.h"

#include <wx/bitmap.h>

#include <vector>

namespace wxg
{

/// A drop-down list whose entries carry a text, an integer value and a picture.
class ImageCombo : public VariesCombo
{
public:
    /// @param withText  whether entries show their texts beside the pictures
    ImageCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size,
               bool withText);

    /// Appends an entry. @param bitmap  its picture; invalid for none
    /// @return the entry's index
    int appendItem(const wxString& text, int value, const wxBitmap& bitmap = wxNullBitmap);
    /// Changes an entry's text and picture, and keeps its value and the selection. An index outside
    /// the list is ignored.
    void setItem(int index, const wxString& text, const wxBitmap& bitmap);
    /// Sets the room kept for pictures, in pixels; the size of the first picture by default.
    void setImageSize(const wxSize& size);

    /// Selects the first entry that carries the value. When none does the field is blank, and
    /// value() gives the value back until an entry is picked. Sends no event.
    void setValue(int value);
    /// The selected entry's value, else the one set last.
    int value() const;

private:
    struct Item
    {
        int value;
        wxBitmap bitmap;
    };

    wxBitmap picture(int item) const override { return m_items[static_cast<size_t>(item)].bitmap; }
    wxSize pictureSize() const override { return m_imageSize; }
    bool showsText() const override { return m_withText; }

    bool m_withText;
    std::vector<Item> m_items;
    wxSize m_imageSize{0, 0};
    int m_value = 0;

    wxDECLARE_CLASS(ImageCombo);
};

} // namespace wxg

#endif
