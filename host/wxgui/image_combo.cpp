// The combo box of values with pictures.

#include "wxgui/image_combo.h"

#include <algorithm>

namespace wxg
{

wxIMPLEMENT_CLASS(ImageCombo, VariesCombo);

ImageCombo::ImageCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size,
                       bool withText)
    : VariesCombo(parent, id, pos, size)
    , m_withText(withText)
{
}

int ImageCombo::appendItem(const wxString& text, int value, const wxBitmap& bitmap)
{
    if (bitmap.IsOk() && m_imageSize == wxSize(0, 0))
        m_imageSize = bitmap.GetLogicalSize();
    m_items.push_back({value, bitmap});
    return Append(text);
}

void ImageCombo::setItem(int index, const wxString& text, const wxBitmap& bitmap)
{
    if (index < 0 || index >= static_cast<int>(m_items.size()))
        return;
    m_items[static_cast<size_t>(index)].bitmap = bitmap;
    SetString(static_cast<unsigned>(index), text);
    // The field keeps the old text until its entry is selected anew.
    if (index == GetSelection())
        SetSelection(index);
    Refresh();
}

void ImageCombo::setImageSize(const wxSize& size)
{
    m_imageSize = size;
    Refresh();
}

void ImageCombo::setValue(int value)
{
    m_value = value;
    const auto item = std::find_if(m_items.begin(), m_items.end(),
                                   [value](const Item& i) { return i.value == value; });
    SetSelection(item == m_items.end() ? wxNOT_FOUND : static_cast<int>(item - m_items.begin()));
    Refresh();
}

int ImageCombo::value() const
{
    const int selection = GetSelection();
    return selection == wxNOT_FOUND ? m_value : m_items[static_cast<size_t>(selection)].value;
}

} // namespace wxg
