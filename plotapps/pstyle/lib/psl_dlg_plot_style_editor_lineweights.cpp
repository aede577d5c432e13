// The editor's lineweight list.

#include "psl_dlg_plot_style_editor.h"

#include "psl_controls.h"
#include "psl_lineweight_list.h"
#include "psl_spoken.h"

#include "wxgui/image_combo.h"

#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/log.h>

namespace
{

constexpr long selectedAndFocused = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;

int firstSelected(const wxListCtrl* list)
{
    return static_cast<int>(list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED));
}

} // namespace

void DlgPlotStyleEditor::onLwEdit(wxCommandEvent&)
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListLineWeights");
    const int row = firstSelected(list);
    if (row >= 0)
        editRow(list, row);
}

bool DlgPlotStyleEditor::onLineWeightKey(const wxKeyEvent& event)
{
    if (event.GetKeyCode() != WXK_F2 || event.HasAnyModifiers())
        return false;
    press(XRCID("BtnLwEdit"));
    return true;
}

void DlgPlotStyleEditor::onLwSort(wxCommandEvent&)
{
    sortLineWeights();
}

void DlgPlotStyleEditor::onLwMm(wxCommandEvent&)
{
    setLineWeightUnits(false);
}

void DlgPlotStyleEditor::onLwIn(wxCommandEvent&)
{
    setLineWeightUnits(true);
}

void DlgPlotStyleEditor::setLineWeightUnits(bool inches)
{
    m_unitsMm = !inches;
    m_unitsIn = inches;
    if (!m_table.isNull())
        m_table->setDisplayCustomLineweightUnits(inches);
    updateLineWeights(true);
    m_modified = true;
}

void DlgPlotStyleEditor::onUpdateUILwEdit(wxUpdateUIEvent& event)
{
    event.Enable(firstSelected(findControl<wxListCtrl>(*this, "ListLineWeights")) >= 0);
}

void DlgPlotStyleEditor::updateLineWeightUse(bool refreshList)
{
    m_lineWeightUse = lineWeightUse(m_table.get());
    if (!refreshList)
        return;
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListLineWeights");
    for (int row = 0; row < lineWeightRows; ++row)
        list->SetItemImage(row, m_lineWeightUse[static_cast<size_t>(row)]);
}

// The rows and entries are there for good; those past the table's list are blank.
void DlgPlotStyleEditor::updateLineWeights(bool keepComboSelection)
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListLineWeights");
    auto* combo = findControl<wxg::ImageCombo>(*this, "ComboLineWeight");
    const int selection = keepComboSelection ? combo->GetSelection() : wxNOT_FOUND;
    for (int row = 0; row < lineWeightRows; ++row)
    {
        const bool isListed = !m_table.isNull() && row < m_table->lineweightCount();
        const double value = isListed ? m_table->lineweightAt(row) : 0.0;
        const auto picture = static_cast<size_t>(lineWeightPicture(value) - 1);
        combo->setItem(row + 1, isListed ? lineWeightLabel(value, m_unitsIn) : wxString(),
                       isListed ? m_lineWeightImages[picture] : wxNullBitmap);
        list->SetItem(row, 0, isListed ? lineWeightText(value, m_unitsIn) : wxString(),
                      m_lineWeightUse[static_cast<size_t>(row)]);
    }
    if (selection != wxNOT_FOUND)
        combo->SetSelection(selection);
    speakFocusedRow(list);
}

void DlgPlotStyleEditor::sortLineWeights()
{
    if (m_table.isNull())
        return;
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListLineWeights");
    auto* combo = findControl<wxg::ImageCombo>(*this, "ComboLineWeight");
    const int row = firstSelected(list);
    const int entry = combo->GetSelection();

    const std::vector<int> newPosition = sortLineWeightList(*m_table);
    updateLineWeightUse(false);
    updateLineWeights(false);

    // A value may have come from behind the last row, or gone there.
    const auto positionOf = [&newPosition](int old)
    {
        const auto i = static_cast<size_t>(old);
        return i < newPosition.size() ? newPosition[i] : -1;
    };
    const int newRow = row >= 0 ? positionOf(row) : -1;
    if (newRow >= 0 && newRow < lineWeightRows)
    {
        list->SetItemState(newRow, selectedAndFocused, selectedAndFocused);
        list->EnsureVisible(newRow);
    }
    if (entry > 0)
        combo->setValue(positionOf(entry - 1) + 1);
    m_modified = true;
}

// The values are re-sorted at once, so the typed text never stays: the refreshed one replaces it.
// A cancelled edit is taken like an accepted one; it carries the row's text, which rounds the value
// to what the row shows.
void DlgPlotStyleEditor::endLineWeightEdit(wxListEvent& event)
{
    const wxString label = event.GetLabel();
    if (label.empty() || m_table.isNull())
        return;
    const auto value = parseLineWeight(label, m_unitsIn);
    if (!value)
    {
        // Newer versions of gettext do not take %lf for a format by themselves. xgettext:c-format
        wxLogError(_("Custom lineweights must be greater than or equal to 0 and less than or equal "
                     "to %.0lf mm (%.4lf\")."),
                   maxLineWeight, maxLineWeight / millimetersPerInch);
        refuseEdit(event);
        return;
    }
    m_table->setLineweightAt(static_cast<int>(event.GetIndex()), *value);
    sortLineWeights();
    event.Veto();
}
