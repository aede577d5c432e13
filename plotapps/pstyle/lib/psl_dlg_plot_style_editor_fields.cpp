// The editor's fields for the properties of the selected styles.

#include "psl_dlg_plot_style_editor.h"

#include "psl_controls.h"
#include "psl_numbers.h"
#include "psl_style_fields.h"

#include "wxgui/color_combo.h"
#include "wxgui/image_combo.h"
#include "wxgui/wxgui.h"

#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

#include <algorithm>

wxg::ImageCombo* replaceImageCombo(wxComboBox* combo)
{
    auto* imageCombo = new wxg::ImageCombo(combo->GetParent(), combo->GetId(), combo->GetPosition(),
                                           combo->GetSize(), true);
    wxg::replaceWnd(combo, imageCombo);
    combo->Destroy();
    return imageCombo;
}

namespace
{

// A selection of many styles changes row by row; only what shows something else is touched.

void showCheck(wxCheckBox* box, int value)
{
    wxCheckBoxState state = value == fieldUnset || value == 0 ? wxCHK_UNCHECKED : wxCHK_CHECKED;
    if (value == fieldDiffers)
        state = box->Is3State() ? wxCHK_UNDETERMINED : wxCHK_UNCHECKED;
    if (box->Get3StateValue() != state)
        box->Set3StateValue(state);
}

// What a pen field shows for 0.
wxString penWord(bool varies)
{
    return varies ? _("Varies") : _("Automatic");
}

void showSpin(wxSpinCtrl* spin, int value, const wxString& wordForZero)
{
    const wxString text = spin->GetTextValue();
    const int shown = std::clamp(value, spin->GetMin(), spin->GetMax());
    const bool isShown =
        text == wxString::Format("%d", shown) || (shown == 0 && text == wordForZero);
    if (value == fieldUnset)
        spin->SetValue(wxString());
    else if (!isShown)
        spin->SetValue(shown);
}

void showValue(wxg::ImageCombo* combo, int value)
{
    combo->setVaries(value == fieldDiffers);
    const bool mayHaveEntry = value != fieldDiffers && combo->GetSelection() == wxNOT_FOUND;
    if (combo->value() != value || mayHaveEntry)
        combo->setValue(value);
}

// A colour that an index has exactly is shown under that index.
OdCmEntityColor shownColor(std::uint32_t rgb)
{
    OdCmEntityColor color = byColor(rgb);
    const int index = OdCmEntityColor::lookUpACI(color.red(), color.green(), color.blue());
    if (OdCmEntityColor::lookUpRGB(index) == rgb)
        color.setColorIndex(index);
    return color;
}

void showColor(wxg::ColorCombo* combo, const Gathered<std::uint32_t>& color)
{
    combo->setVaries(color.state == color.Differs);
    const std::uint32_t rgb = color.state == color.Same ? color.value : objectColor;
    const OdCmEntityColor wanted = rgb == objectColor ? OdCmEntityColor()
                                   : rgb == 0         ? byColor(rgb)
                                                      : shownColor(rgb);
    const OdCmEntityColor shown = combo->color().value_or(OdCmEntityColor());
    if (wanted.color() != shown.color())
        combo->setColor(wanted);
}

void showText(wxTextCtrl* field, const wxString& text)
{
    if (field->GetValue() != text)
        field->ChangeValue(text);
}

// What the selected styles have in common.
StyleFields gatherSelected(const wxListCtrl* list, const OdPsPlotStyleTablePtr& table)
{
    const auto next = [&, row = -1L]() mutable -> OdPsPlotStylePtr
    {
        row = list->GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
        return row < 0 || table.isNull() ? nullptr : table->styleAt(static_cast<int>(row));
    };
    return gatherStyleFields(next);
}

} // namespace

void DlgPlotStyleEditor::updateStyleFields()
{
    const StyleFields fields =
        gatherSelected(findControl<wxListCtrl>(*this, "ListStyles"), m_table);
    showText(findControl<wxTextCtrl>(*this, "TextStyleDescr"),
             shownPart(fields.description.value.c_str()));
    showCheck(findControl<wxCheckBox>(*this, "CheckDither"), fields.dither);
    showCheck(findControl<wxCheckBox>(*this, "CheckGrayscale"), fields.grayscale);
    showCheck(findControl<wxCheckBox>(*this, "CheckAdaptive"), fields.adaptive);
    showColor(findControl<wxg::ColorCombo>(*this, "ComboColor"), fields.color);
    showValue(findControl<wxg::ImageCombo>(*this, "ComboLineType"), fields.lineType);
    showValue(findControl<wxg::ImageCombo>(*this, "ComboLineWeight"), fields.lineWeight);
    showValue(findControl<wxg::ImageCombo>(*this, "ComboEndStyle"), fields.endStyle);
    showValue(findControl<wxg::ImageCombo>(*this, "ComboJoinStyle"), fields.joinStyle);
    showValue(findControl<wxg::ImageCombo>(*this, "ComboFillStyle"), fields.fillStyle);
    m_physicalPenVaries = fields.physicalPen == fieldDiffers;
    m_virtualPenVaries = fields.virtualPen == fieldDiffers;
    showSpin(findControl<wxSpinCtrl>(*this, "SpinPhysPen"), fields.physicalPen,
             penWord(m_physicalPenVaries));
    showSpin(findControl<wxSpinCtrl>(*this, "SpinVirtPen"), fields.virtualPen,
             penWord(m_virtualPenVaries));
    showSpin(findControl<wxSpinCtrl>(*this, "SpinScreening"), fields.screening, wxString());
}

bool DlgPlotStyleEditor::changeSelectedStyles(const StyleChange& change)
{
    if (!isFormViewCurrent() || m_table.isNull())
        return false;
    const std::vector<int> rows = selectedStyles();
    if (rows.empty())
        return false;
    for (const int row : rows)
    {
        const bool isProtected = row == 0 && !m_table->isColorDependent();
        if (isProtected)
            continue;
        const OdPsPlotStylePtr style = m_table->styleAt(row);
        OdPsPlotStyleData data;
        style->getData(data);
        change(data);
        style->setData(data);
    }
    m_modified = true;
    return true;
}

namespace
{

using Data = OdPsPlotStyleData;

/// A control of one property and what its value does to a style's record.
struct Field
{
    const char* name;
    void (*change)(Data& data, int value);
};

std::int16_t toInt16(int value)
{
    return static_cast<std::int16_t>(value);
}

const Field comboFields[] = {
    {"ComboLineType", [](Data& data, int value) { data.linetype = toInt16(value); }},
    {"ComboLineWeight", [](Data& data, int value) { data.lineweight = value; }},
    {"ComboEndStyle", [](Data& data, int value) { data.endStyle = toInt16(value); }},
    {"ComboJoinStyle", [](Data& data, int value) { data.joinStyle = toInt16(value); }},
    {"ComboFillStyle", [](Data& data, int value) { data.fillStyle = toInt16(value); }},
};

const Field checkFields[] = {
    {"CheckDither", [](Data& data, int value) { changeDither(data, value == 1); }},
    {"CheckGrayscale", [](Data& data, int value) { changeGrayscale(data, value == 1); }},
    {"CheckAdaptive", [](Data& data, int value) { data.adaptiveLinetype = value == 1; }},
};

const Field spinFields[] = {
    {"SpinPhysPen", [](Data& data, int value) { data.physicalPenNumber = toInt16(value); }},
    {"SpinVirtPen", [](Data& data, int value) { data.virtualPenNumber = toInt16(value); }},
    {"SpinScreening", [](Data& data, int value) { data.screening = toInt16(value); }},
};

/// What the selected styles have of the property of a number field.
int gatheredNumber(const StyleFields& fields, const wxString& name)
{
    return name == "SpinPhysPen"   ? fields.physicalPen
           : name == "SpinVirtPen" ? fields.virtualPen
                                   : fields.screening;
}

bool isFrom(const wxEvent& event, const char* name)
{
    return event.GetId() == wxXmlResource::GetXRCID(name);
}

/// What an event of one of the fields' controls changes; an event of another control changes
/// nothing.
template <std::size_t count>
DlgPlotStyleEditor::StyleChange changeOf(const Field (&fields)[count], const wxEvent& event,
                                         int value)
{
    for (const Field& field : fields)
        if (isFrom(event, field.name))
            return [change = field.change, value](Data& data) { change(data, value); };
    return [](Data&) {};
}

} // namespace

void DlgPlotStyleEditor::onComboChanged(wxCommandEvent& event)
{
    if (isFrom(event, "ComboColor"))
    {
        const auto picked = findControl<wxg::ColorCombo>(*this, "ComboColor")->color();
        const std::uint32_t rgb = picked ? styleRgb(*picked) : objectColor;
        changeSelectedStyles([rgb](Data& data) { changeColor(data, rgb); });
        return;
    }
    const auto* combo = dynamic_cast<wxg::ImageCombo*>(event.GetEventObject());
    const bool isBlank = isFrom(event, "ComboLineWeight") && combo && !m_table.isNull() &&
                         combo->value() > m_table->lineweightCount();
    if (isBlank)
    {
        updateStyleFields();
        return;
    }
    const bool changed =
        changeSelectedStyles(changeOf(comboFields, event, combo ? combo->value() : 0));
    if (changed && isFrom(event, "ComboLineWeight"))
        updateLineWeightUse(true);
}

void DlgPlotStyleEditor::onCheckChanged(wxCommandEvent& event)
{
    changeSelectedStyles(changeOf(checkFields, event, event.GetInt()));
}

void DlgPlotStyleEditor::onSpinChanged(wxSpinEvent& event)
{
    if (!changeSelectedStyles(changeOf(spinFields, event, event.GetPosition())))
        return;
    if (isFrom(event, "SpinPhysPen"))
        m_physicalPenVaries = false;
    if (isFrom(event, "SpinVirtPen"))
        m_virtualPenVaries = false;
    m_typedInto = nullptr;
}

// Whether all selected styles have this number. Automatic pens are held as -1 or as 0.
bool DlgPlotStyleEditor::isStored(const wxSpinCtrl& field, int number) const
{
    const StyleFields fields =
        gatherSelected(findControl<wxListCtrl>(*this, "ListStyles"), m_table);
    const int stored = gatheredNumber(fields, field.GetName());
    return stored == number || (stored == -1 && number == 0);
}

void DlgPlotStyleEditor::onUpdateUIStyleField(wxUpdateUIEvent& event)
{
    event.Enable(hasEditableSelection());
    if (isFrom(event, "SpinPhysPen"))
        updatePenText(findControl<wxSpinCtrl>(*this, "SpinPhysPen"), m_physicalPenVaries);
    else if (isFrom(event, "SpinVirtPen"))
        updatePenText(findControl<wxSpinCtrl>(*this, "SpinVirtPen"), m_virtualPenVaries);
    else if (auto* combo = dynamic_cast<wxOwnerDrawnComboBox*>(event.GetEventObject()))
        combo->Refresh(true);
}

// The text is set only where it differs, and selected while the user is in the field, so that
// typing replaces it. What is being typed is left alone.
void DlgPlotStyleEditor::updatePenText(wxSpinCtrl* spin, bool varies)
{
    const wxString text = penWord(varies);
    const bool isBeingTyped = spin == m_typedInto && !spin->GetTextValue().empty();
    if (isBeingTyped || spin->GetValue() != 0 || spin->GetTextValue() == text)
        return;
    spin->SetValue(text);
    if (FindFocus() == spin)
        spin->SetSelection(-1, -1);
}
