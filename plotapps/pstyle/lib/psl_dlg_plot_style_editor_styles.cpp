// The editor's style list.

#include "psl_dlg_plot_style_editor.h"

#include "psl_controls.h"
#include "psl_style_names.h"
#include "psl_type_ahead.h"

#include <wx/button.h>
#include <wx/imaglist.h>
#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/log.h>
#include <wx/notebook.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>

#include <algorithm>

namespace
{

long focusedRow(const wxListCtrl& list)
{
    return list.GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED);
}

// The row to which a key moves the focus of a list, or -1 when it is none of the keys that do.
long rowOfKey(const wxListCtrl& list, int key)
{
    const long focused = focusedRow(list);
    const long last = list.GetItemCount() - 1;
    const long page = std::max(list.GetCountPerPage() - 1, 1);
    if (focused < 0)
        return -1;
    switch (key)
    {
    case WXK_UP:
        return std::max(focused - 1, 0L);
    case WXK_DOWN:
        return std::min(focused + 1, last);
    case WXK_PAGEUP:
        return std::max(focused - page, 0L);
    case WXK_PAGEDOWN:
        return std::min(focused + page, last);
    case WXK_HOME:
        return 0;
    case WXK_END:
        return last;
    default:
        return -1;
    }
}

} // namespace

// Names are compared as the table's style map does. The style that is being renamed takes part, so
// that a rename which only changes case is refused: names that differ in case alone are one name to
// the plotting system.
int findStyle(OdPsPlotStyleTable* table, const wxString& name, bool)
{
    const OdString wanted(name.wc_str());
    for (int i = 0; i < table->styleCount(); ++i)
        if (isSameName(wanted, table->styleAt(i)->localizedName()))
            return i;
    return -1;
}

void DlgPlotStyleEditor::updateStyles()
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    list->DeleteAllItems();
    m_rangeBegin = -1;
    if (m_table.isNull())
        return;
    list->SetImageList(isCtb() ? m_colorImages.get() : nullptr, wxIMAGE_LIST_SMALL);
    for (int i = 0; i < m_styleCount; ++i)
    {
        // A file may hold more styles than there are colours; those have no swatch.
        const int swatch = i < m_colorImages->GetImageCount() ? i : -1;
        if (isCtb())
            list->InsertItem(i, wxString::Format("%ls %d", _("Color"), i + 1), swatch);
        else
            list->InsertItem(i, shownInRow(m_table->styleAt(i)->localizedName().c_str()));
    }
}

void DlgPlotStyleEditor::updateNumStyles()
{
    findControl<wxStaticText>(*this, "StatNumStyles")
        ->SetLabel(_("Number of styles: ") + wxString::Format("%d", m_styleCount));
}

// A colour-dependent table has its fixed set of styles, so the buttons are not even shown.
void DlgPlotStyleEditor::updateStyleButtons()
{
    const bool show = !m_table.isNull() && !isCtb();
    for (const char* name :
         {"BtnStyleAddGrid", "BtnStyleDelGrid", "BtnStyleAddForm", "BtnStyleDelForm"})
        findControl<wxButton>(*this, name)->Show(show);
    findControl<wxButton>(*this, "BtnStyleAddForm")->GetParent()->Layout();
}

void DlgPlotStyleEditor::updateListWidths()
{
    constexpr int scrollBar = 22;
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    const int width = list->GetClientSize().x - scrollBar;
    // Called from the paint handler: setting the same width would paint again, for ever.
    if (list->GetColumnWidth(0) != width)
        list->SetColumnWidth(0, width);
}

bool DlgPlotStyleEditor::isFormViewCurrent() const
{
    constexpr int formViewPage = 1;
    return findControl<wxNotebook>(*this, "NoteBook")->GetSelection() == formViewPage;
}

// The selected rows in ascending order. The list's own count is not relied on: it stays too high
// after selected rows have been deleted.
std::vector<int> DlgPlotStyleEditor::selectedStyles() const
{
    const wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    std::vector<int> rows;
    for (long row = -1;
         (row = list->GetNextItem(row, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED)) != -1;)
        rows.push_back(static_cast<int>(row));
    return rows;
}

// The first style of a named table is never edited; among several styles it is passed over.
bool DlgPlotStyleEditor::hasEditableSelection() const
{
    const wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    const long first = list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
    if (first == 0 && !isCtb())
        return list->GetNextItem(first, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED) > 0;
    return first >= 0;
}

void DlgPlotStyleEditor::onStyleAdd(wxCommandEvent&)
{
    if (m_table.isNull() || isCtb())
        return;
    const wxString name = storableText(askForStyleName());
    if (name.empty())
        return;
    if (findStyle(m_table.get(), name, true) >= 0)
    {
        refuseTakenName(name);
        return;
    }
    int index = m_styleCount - 1;
    OdPsPlotStylePtr model;
    const std::vector<int> selected = selectedStyles();
    if (isFormViewCurrent() && selected.size() == 1)
    {
        index = selected.front();
        model = m_table->styleAt(index);
    }
    // A host's own look-up may know other names than the styles tell.
    if (index >= m_table->styleCount() ||
        !m_table->findStyleByName(OdString(name.wc_str())).isNull() ||
        isNameTaken(*m_table, name, nullptr))
        return;
    insertStyle(name, index, model);
}

wxString DlgPlotStyleEditor::askForStyleName()
{
    const wxString proposal = wxString::Format(_("Style %d"), m_styleCount);
    wxTextEntryDialog prompt(nullptr, _("Enter style name:"), _("Add Plot Style"), proposal);
    outliveParent(&prompt); // the toolkit gives it one
    return prompt.ShowModal() == wxID_OK ? prompt.GetValue() : wxString();
}

// Adds a style after the one at `index`, as a copy of `model` where there is one.
void DlgPlotStyleEditor::insertStyle(const wxString& name, int index, const OdPsPlotStylePtr& model)
{
    const bool isLast = index < 0 || index == m_table->styleCount() - 1;
    const OdPsPlotStylePtr style = m_table->addNewStyle(OdString(name.wc_str()));
    if (!model.isNull())
    {
        OdPsPlotStyleData data;
        model->getData(data);
        style->setData(data);
        style->setDescription(model->description());
    }
    if (!isLast)
    {
        const OdArray<OdPsPlotStylePtr> appended = m_table->styleArray();
        OdArray<OdPsPlotStylePtr> styles;
        for (decltype(appended.size()) i = 0; i + 1 < appended.size(); ++i)
        {
            styles.push_back(appended[i]);
            if (static_cast<int>(i) == index)
                styles.push_back(style);
        }
        m_table->setStyleArray(styles);
    }
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    const long row = list->InsertItem(index + 1, shownInRow(name));
    {
        wxEventBlocker noEvents(list, wxEVT_LIST_ITEM_DESELECTED);
        list->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
    }
    list->SetItemState(row, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                       wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
    list->EnsureVisible(row);
    stylesChanged();
}

void DlgPlotStyleEditor::stylesChanged()
{
    m_modified = true;
    m_rangeBegin = -1;
    m_styleCount = m_table->styleCount();
    updateNumStyles();
}

void DlgPlotStyleEditor::onStyleDel(wxCommandEvent&)
{
    if (m_table.isNull() || isCtb() || !isFormViewCurrent())
        return;
    std::vector<int> rows = selectedStyles();
    if (rows.empty())
        return;
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    std::vector<OdPsPlotStylePtr> styles;
    std::reverse(rows.begin(), rows.end());
    for (const int row : rows)
    {
        if (row == 0)
            break;
        styles.push_back(m_table->styleAt(row));
        // A selected row that is deleted would stay in the list's count of selected rows.
        {
            wxEventBlocker noEvents(list, wxEVT_LIST_ITEM_DESELECTED);
            list->SetItemState(row, 0, wxLIST_STATE_SELECTED);
        }
        list->DeleteItem(row);
    }
    for (const OdPsPlotStylePtr& style : styles)
        m_table->deleteStyle(style);
    m_clickedRowIsGone = true;
    updateStyleFields();
    stylesChanged();
}

void DlgPlotStyleEditor::onUpdateUIStyleDelForm(wxUpdateUIEvent& event)
{
    event.Enable(hasEditableSelection());
}

void DlgPlotStyleEditor::onUpdateUIStyleDelGrid(wxUpdateUIEvent& event)
{
    event.Skip();
}

// The keys do what the buttons do, and only where those are there to be pressed.
void DlgPlotStyleEditor::bindLists()
{
    using KeyHandler = bool (DlgPlotStyleEditor::*)(const wxKeyEvent&);
    const auto bindKeys = [this](const char* name, KeyHandler take)
    {
        wxListCtrl* list = findControl<wxListCtrl>(*this, name);
        list->Bind(wxEVT_CHAR_HOOK, [this, list, take](wxKeyEvent& event)
                   { event.Skip(list->GetEditControl() || !(this->*take)(event)); });
        bindTypeAhead(list);
    };
    bindKeys("ListStyles", &DlgPlotStyleEditor::onStyleKey);
    bindKeys("ListLineWeights", &DlgPlotStyleEditor::onLineWeightKey);

    wxListCtrl* styles = findControl<wxListCtrl>(*this, "ListStyles");
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_DCLICK, wxEVT_LEFT_UP, wxEVT_RIGHT_DOWN})
        styles->Bind(type, &DlgPlotStyleEditor::onStyleListPress, this);
    styles->Bind(wxEVT_CHAR,
                 [this, styles](wxKeyEvent& event)
                 {
                     gatherOnce();
                     const long row = rowOfKey(*styles, event.GetKeyCode());
                     if (row >= 0 && event.ShiftDown())
                     {
                         selectRangeTo(row);
                         return;
                     }
                     if (row < 0 || !event.ControlDown())
                         m_rangeBegin = -1;
                     else if (m_rangeBegin < 0)
                         m_rangeBegin = focusedRow(*styles);
                     event.Skip();
                 });
}

// Ranges are selected here, since the list itself has no row in which one begins at first, keeps
// that row when it is gone, and then reaches for rows that are not there and never comes back.
void DlgPlotStyleEditor::selectRangeTo(long row)
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    if (m_rangeBegin < 0)
        m_rangeBegin = std::max(focusedRow(*list), 0L);
    const auto [first, last] = std::minmax(m_rangeBegin, row);
    for (long i = 0; i < list->GetItemCount(); ++i)
        list->SetItemState(i, i >= first && i <= last ? wxLIST_STATE_SELECTED : 0,
                           wxLIST_STATE_SELECTED);
    list->SetItemState(row, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    list->EnsureVisible(row);
}

// Comes before the list itself, which selects a row before it takes the focus from a field.
void DlgPlotStyleEditor::onStyleListPress(wxMouseEvent& event)
{
    event.Skip();
    m_clickedRowIsGone = false;
    takeTypedNumber();
    gatherOnce();
    if (event.LeftUp())
        return;
    int where = 0;
    const long row =
        findControl<wxListCtrl>(*this, "ListStyles")->HitTest(event.GetPosition(), where);
    if (!event.RightDown() && event.GetModifiers() == wxMOD_SHIFT && row >= 0)
    {
        event.Skip(false);
        selectRangeTo(row);
    }
    else
        m_rangeBegin = -1;
}

// A click or a key may change thousands of rows, and the list tells of each. What the selected
// styles have in common is gathered once, behind it.
void DlgPlotStyleEditor::gatherOnce()
{
    if (m_quietList)
        return;
    m_quietList = std::make_unique<wxEventBlocker>(findControl<wxListCtrl>(*this, "ListStyles"),
                                                   wxEVT_LIST_ITEM_SELECTED);
    m_quietList->Block(wxEVT_LIST_ITEM_DESELECTED);
    CallAfter(
        [this]
        {
            m_quietList.reset();
            updateStyleFields();
        });
}

bool DlgPlotStyleEditor::onStyleKey(const wxKeyEvent& event)
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    const long focused = focusedRow(*list);
    const int key = event.GetKeyCode();
    const bool isPlain = event.GetModifiers() == wxMOD_NONE;
    if (event.GetModifiers() == wxMOD_CONTROL && key == 'A')
        selectAllStyles();
    else if (isPlain && key == WXK_F2)
    {
        m_clickedRowIsGone = false;
        if (focused >= 0 && list->GetItemState(focused, wxLIST_STATE_SELECTED) != 0)
            editRow(list, focused);
    }
    else if (isPlain && isOneOf(key, {WXK_INSERT, WXK_NUMPAD_INSERT}))
        press(XRCID("BtnStyleAddForm"));
    else if (isPlain && isOneOf(key, {WXK_DELETE, WXK_NUMPAD_DELETE}))
    {
        if (hasEditableSelection())
            press(XRCID("BtnStyleDelForm"));
    }
    else
        return false;
    return true;
}

// The list's own search takes a blank for the key that selects a row.
void DlgPlotStyleEditor::bindTypeAhead(wxListCtrl* list)
{
    const auto typed = std::make_shared<TypeAhead>();
    list->Bind(wxEVT_SET_FOCUS,
               [typed](wxFocusEvent& event)
               {
                   event.Skip();
                   typed->clear();
               });
    list->Bind(wxEVT_CHAR_HOOK,
               [typed](wxKeyEvent& event)
               {
                   event.Skip();
                   if (event.GetKeyCode() > WXK_START && event.GetKeyCode() != WXK_SHIFT)
                       typed->clear();
               });
    const auto take = [this, list, typed](wxKeyEvent& event)
    {
        const wxUniChar character = event.GetUnicodeKey();
        const long time = event.GetTimestamp();
        const bool isText = !event.HasModifiers() && wxIsprint(character);
        if (!isText || (character == ' ' && !typed->isRunning(time)))
        {
            event.Skip();
            return;
        }
        std::vector<wxString> rows;
        for (long row = 0; row < list->GetItemCount(); ++row)
            rows.push_back(list->GetItemText(row));
        const long current = focusedRow(*list);
        const bool areNumbered = isCtb() && list == findControl<wxListCtrl>(*this, "ListStyles");
        const int row =
            findTypedRow(rows, static_cast<int>(current), typed->add(character, time), areNumbered);
        if (row >= 0)
            selectOnly(list, row);
    };
    list->Bind(wxEVT_CHAR, take);
}

// The fields are gathered once for all rows, not once for each.
void DlgPlotStyleEditor::selectAllStyles()
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    {
        wxEventBlocker noEvents(list, wxEVT_LIST_ITEM_SELECTED);
        for (int row = 0; row < list->GetItemCount(); ++row)
            list->SetItemState(row, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
    }
    updateStyleFields();
}

void DlgPlotStyleEditor::selectOnly(wxListCtrl* list, long row)
{
    constexpr long selectedAndFocused = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
    list->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
    list->SetItemState(row, selectedAndFocused, selectedAndFocused);
    list->EnsureVisible(row);
}

void DlgPlotStyleEditor::onStyleSelected(wxListEvent&)
{
    updateStyleFields();
}

// Colours are named by their numbers and the first style of a named table is "Normal" for good.
void DlgPlotStyleEditor::onBeginLabelEdit(wxListEvent& event)
{
    const auto* list = wxStaticCast(event.GetEventObject(), wxListCtrl);
    // A slow click begins an edit after a while, in which a key may have begun it, or have deleted
    // the row, so that another one is in its place.
    if (list->GetEditControl() || m_clickedRowIsGone)
    {
        event.Veto();
        return;
    }
    m_vetoedEdit = nullptr;
    m_refusedEdit.reset();
    if (list == findControl<wxListCtrl>(*this, "ListStyles"))
    {
        if (isCtb() || event.GetIndex() == 0)
            event.Veto();
    }
    else if (list == findControl<wxListCtrl>(*this, "ListLineWeights"))
    {
        const bool isListed = !m_table.isNull() && event.GetIndex() < m_table->lineweightCount();
        if (!isListed)
            event.Veto();
    }
}

void DlgPlotStyleEditor::onEndLabelEdit(wxListEvent& event)
{
    auto* list = wxDynamicCast(event.GetEventObject(), wxListCtrl);
    // An edit that ends with the loss of the focus ends twice when it is refused the first time:
    // the second event carries the row's own text.
    const void* edit = list->GetEditControl();
    if (event.IsEditCancelled() && m_vetoedEdit && m_vetoedEdit == edit)
        return;
    if (list == findControl<wxListCtrl>(*this, "ListStyles"))
        endStyleEdit(event);
    else if (list == findControl<wxListCtrl>(*this, "ListLineWeights"))
        endLineWeightEdit(event);
    if (!event.IsAllowed())
        m_vetoedEdit = edit;
}

void DlgPlotStyleEditor::endStyleEdit(wxListEvent& event)
{
    const wxString invalidCharacters = "<>/\\\":?*|,=`;";
    if (m_table.isNull())
        return;
    // The list takes over what was typed, whether or not it became a name.
    CallAfter([this, row = event.GetIndex()] { showStyleName(row); });
    const wxString typed = storableText(event.GetLabel());
    const OdPsPlotStylePtr style = m_table->styleAt(static_cast<int>(event.GetIndex()));
    const wxString oldName = style->localizedName().c_str();
    const wxString hiddenEnd = oldName.Mid(shownInRow(oldName).length());
    const wxString shownName = storableText(shownInRow(oldName));
    if (typed.empty() || typed == oldName || typed == shownName)
        return;
    const wxString name = isEdited(typed, shownName) ? typed + hiddenEnd : typed;
    if (name.find_first_of(invalidCharacters) != wxString::npos)
    {
        wxLogError(_("A style name cannot contain any of the following characters: %ls"),
                   invalidCharacters);
        refuseEdit(event);
    }
    else if (findStyle(m_table.get(), name, true) >= 0 || isNameTaken(*m_table, name, style.get()))
    {
        refuseTakenName(name);
        refuseEdit(event);
    }
    else
        renameStyle(style, name);
}

void DlgPlotStyleEditor::refuseTakenName(const wxString& name)
{
    wxLogError(_("A style named '%ls' already exists. Please enter a unique style name."),
               shownInRow(name));
}

void DlgPlotStyleEditor::showStyleName(long row)
{
    wxListCtrl* list = findControl<wxListCtrl>(*this, "ListStyles");
    const OdPsPlotStylePtr style =
        m_table.isNull() || isCtb() ? nullptr : m_table->styleAt(static_cast<int>(row));
    if (!style.isNull() && row < list->GetItemCount())
        list->SetItemText(row, shownInRow(style->localizedName().c_str()));
}

// The map's keys point into the styles' names: the old entry goes before the name does.
void DlgPlotStyleEditor::renameStyle(const OdPsPlotStylePtr& style, const wxString& name)
{
    OdPs::OdPsStyleMap styles = m_table->styleMap();
    styles.erase(style->localizedName().c_str());
    style->setName(OdString(name.wc_str()));
    style->setLocalizedName(OdString(name.wc_str()));
    const OdString newKey = style->localizedName();
    styles.emplace(newKey.c_str(), style);
    m_table->setStyleMap(styles);
    m_modified = true;
}
