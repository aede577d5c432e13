// Drawing and keys of the picture combo boxes.

#include "wxgui/varies_combo.h"

#include "desktop/desktop.h"

#include <wx/dc.h>
#include <wx/intl.h>
#include <wx/settings.h>

#include <algorithm>

namespace wxg
{

wxIMPLEMENT_ABSTRACT_CLASS(VariesCombo, wxOwnerDrawnComboBox);

namespace
{

constexpr int gap = 4;

} // namespace

VariesCombo::VariesCombo(wxWindow* parent, wxWindowID id, const wxPoint& pos, const wxSize& size)
    : wxOwnerDrawnComboBox(parent, id, wxString(), pos, size, 0, nullptr, wxCB_READONLY)
{
    Bind(wxEVT_CHAR_HOOK, &VariesCombo::onCharHook, this);
    Bind(wxEVT_COMBOBOX, &VariesCombo::onPicked, this);
    Bind(wxEVT_COMBOBOX_DROPDOWN,
         [this](wxCommandEvent& event)
         {
             event.Skip();
             m_prefix.clear();
         });
    GetPopupControl()->GetControl()->Bind(wxEVT_CHAR, &VariesCombo::onListChar, this);
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             event.Skip();
             // The toolkit lays the field out after this.
             CallAfter(&VariesCombo::tellValue);
         });
    desktop::setSpokenRole(this, desktop::SpokenRole::ComboBox);
}

void VariesCombo::SetSelection(int item)
{
    wxOwnerDrawnComboBox::SetSelection(item);
    tellValue();
}

// The field is drawn, which tells a screen reader nothing, and may be too narrow for its text.
void VariesCombo::tellValue()
{
    const wxString text = m_varies ? wxString(_("Varies")) : GetValue();
    const bool hasPicture = !m_varies && GetSelection() >= 0;
    const int indent = hasPicture ? textIndent(picture(GetSelection())) : 0;
    const int room = GetTextRect().width - indent - 2 * gap;
    if (showsText() && GetTextExtent(text).x > room)
        SetToolTip(text);
    else
        UnsetToolTip();
    desktop::setSpokenValue(this, text);
}

// How far an entry's text is behind its picture.
int VariesCombo::textIndent(const wxBitmap& entryPicture) const
{
    return entryPicture.IsOk() ? pictureSize().x + gap : 0;
}

void VariesCombo::setVaries(bool varies)
{
    if (varies == m_varies)
        return;
    m_varies = varies;
    tellValue();
    Refresh();
}

void VariesCombo::onPicked(wxCommandEvent& event)
{
    setVaries(false);
    tellValue();
    event.Skip();
}

// The toolkit hands Escape on to the dialog, which would take it for Cancel.
void VariesCombo::onCharHook(wxKeyEvent& event)
{
    if (IsPopupShown() && event.GetKeyCode() == WXK_ESCAPE)
        Dismiss();
    else if (!IsPopupShown() || !event.ControlDown()) // the dialog's keys have to wait
        event.Skip();
}

// The toolkit's list would take a letter for a pick, before the user has confirmed anything.
void VariesCombo::onListChar(wxKeyEvent& event)
{
    const wxUniChar letter = event.GetUnicodeKey();
    if (event.GetModifiers() & ~wxMOD_SHIFT || !wxIsprint(letter))
    {
        event.Skip();
        return;
    }
    constexpr long timeout = 1000; // milliseconds
    const long now = event.GetTimestamp();
    if (now - m_prefixTime > timeout)
        m_prefix.clear();
    m_prefixTime = now;
    m_prefix += letter;
    highlightByPrefix();
}

void VariesCombo::highlightByPrefix()
{
    for (unsigned item = 0; item < GetCount(); ++item)
        if (GetString(item).Lower().StartsWith(m_prefix.Lower()))
        {
            auto* list = static_cast<wxVListBox*>(GetVListBoxComboPopup());
            list->SetSelection(static_cast<int>(item));
            return;
        }
}

// The toolkit takes a letter for the beginning of an entry's text even with Alt, where it is a
// mnemonic of the dialog.
bool VariesCombo::ProcessEvent(wxEvent& event)
{
    const auto* key = dynamic_cast<wxKeyEvent*>(&event);
    const bool isMnemonic = key && key->AltDown() && key->GetKeyCode() < WXK_START;
    if (isMnemonic &&
        (event.GetEventType() == wxEVT_KEY_DOWN || event.GetEventType() == wxEVT_CHAR))
        return false;
    const int before = GetSelection();
    const bool isClosed = !IsPopupShown();
    const bool processed = wxOwnerDrawnComboBox::ProcessEvent(event);
    // The toolkit tells of the pick later.
    if (key && isClosed && GetSelection() != before)
        m_pickedByKey = true;
    return processed;
}

// A field without a selected entry is drawn by the background alone.
void VariesCombo::OnDrawBackground(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    wxOwnerDrawnComboBox::OnDrawBackground(dc, rect, item, flags);
    if (item < 0 && m_varies)
        drawText(dc, rect, _("Varies"), flags);
}

void VariesCombo::OnDrawItem(wxDC& dc, const wxRect& rect, int item, int flags) const
{
    const bool isField = flags & wxODCB_PAINTING_CONTROL;
    if (isField && m_varies)
    {
        drawText(dc, rect, _("Varies"), flags);
        return;
    }
    wxRect textRect = rect;
    const wxBitmap bitmap = picture(item);
    if (bitmap.IsOk())
    {
        const wxSize room = pictureSize();
        const wxSize size = bitmap.GetLogicalSize();
        const wxPoint corner =
            rect.GetPosition() + wxPoint(gap + (room.x - size.x) / 2, (rect.height - size.y) / 2);
        const bool disabled = isField && !IsThisEnabled();
        dc.DrawBitmap(disabled ? bitmap.ConvertToDisabled() : bitmap, corner);
        textRect.x += textIndent(bitmap);
        textRect.width -= textIndent(bitmap);
    }
    if (showsText())
        drawText(dc, textRect, GetString(static_cast<unsigned>(item)), flags);
}

void VariesCombo::drawText(wxDC& dc, const wxRect& rect, const wxString& text, int flags) const
{
    const bool isField = flags & wxODCB_PAINTING_CONTROL;
    const bool isOnHighlight = flags & wxODCB_PAINTING_SELECTED;
    if (isField && !isOnHighlight && (m_varies || !IsEnabled()))
        dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    wxRect inner = rect;
    inner.Deflate(gap, 0);
    const wxString shown = wxControl::Ellipsize(text, dc, wxELLIPSIZE_END, inner.width);
    dc.DrawLabel(shown, inner, wxALIGN_LEFT | wxALIGN_CENTRE_VERTICAL);
}

wxCoord VariesCombo::OnMeasureItem(size_t) const
{
    return std::max(GetCharHeight(), pictureSize().y) + 2 * gap;
}

wxCoord VariesCombo::OnMeasureItemWidth(size_t item) const
{
    const int text = showsText() ? GetTextExtent(GetString(static_cast<unsigned>(item))).x : 0;
    return pictureSize().x + text + 3 * gap;
}

} // namespace wxg
