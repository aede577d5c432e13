// The editor's frame: construction, initialisation, events, the General page and the transfer of
// values between controls and table.

#include "psl_dlg_plot_style_editor.h"

#include "psl.h"
#include "psl_controls.h"
#include "psl_disk_version.h"
#include "psl_numbers.h"
#include "psl_path_text.h"
#include "psl_spoken.h"

#include "desktop/desktop.h"
#include "odps/od_db_object_id.h"
#include "wxgui/color_combo.h"
#include "wxgui/image_combo.h"
#include "wxgui/wxgui.h"

#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/dcclient.h>
#include <wx/imaglist.h>
#include <wx/intl.h>
#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/valgen.h>
#include <wx/valtext.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
#include <cmath>

wxIMPLEMENT_CLASS(DlgPlotStyleEditor, wxDialog);

// clang-format off
wxBEGIN_EVENT_TABLE(DlgPlotStyleEditor, wxDialog)
    EVT_INIT_DIALOG(DlgPlotStyleEditor::onInitDialog)
    EVT_BUTTON(wxID_OK, DlgPlotStyleEditor::onOk)
    EVT_BUTTON(wxID_CANCEL, DlgPlotStyleEditor::onCancel)
    EVT_BUTTON(XRCID("BtnStyleAddGrid"), DlgPlotStyleEditor::onStyleAdd)
    EVT_BUTTON(XRCID("BtnStyleAddForm"), DlgPlotStyleEditor::onStyleAdd)
    EVT_BUTTON(XRCID("BtnStyleDelGrid"), DlgPlotStyleEditor::onStyleDel)
    EVT_BUTTON(XRCID("BtnStyleDelForm"), DlgPlotStyleEditor::onStyleDel)
    EVT_BUTTON(XRCID("BtnOpen"), DlgPlotStyleEditor::onOpen)
    EVT_BUTTON(XRCID("BtnSaveAs"), DlgPlotStyleEditor::onSaveAs)
    EVT_BUTTON(XRCID("BtnExport"), DlgPlotStyleEditor::onExport)
    EVT_BUTTON(XRCID("BtnLwEdit"), DlgPlotStyleEditor::onLwEdit)
    EVT_BUTTON(XRCID("BtnLwSort"), DlgPlotStyleEditor::onLwSort)
    EVT_RADIOBUTTON(XRCID("RadLwMm"), DlgPlotStyleEditor::onLwMm)
    EVT_RADIOBUTTON(XRCID("RadLwIn"), DlgPlotStyleEditor::onLwIn)
    EVT_UPDATE_UI(XRCID("TextScale"), DlgPlotStyleEditor::onUpdateUIScale)
    EVT_UPDATE_UI(XRCID("StatScale"), DlgPlotStyleEditor::onUpdateUIScale)
    EVT_UPDATE_UI(XRCID("BtnStyleDelGrid"), DlgPlotStyleEditor::onUpdateUIStyleDelGrid)
    EVT_UPDATE_UI(XRCID("BtnStyleDelForm"), DlgPlotStyleEditor::onUpdateUIStyleDelForm)
    EVT_UPDATE_UI(XRCID("BtnLwEdit"), DlgPlotStyleEditor::onUpdateUILwEdit)
    EVT_UPDATE_UI(XRCID("ComboColor"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("CheckDither"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("CheckGrayscale"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("SpinPhysPen"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("SpinVirtPen"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("SpinScreening"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("ComboLineType"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("CheckAdaptive"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("ComboLineWeight"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("ComboEndStyle"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("ComboJoinStyle"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(XRCID("ComboFillStyle"), DlgPlotStyleEditor::onUpdateUIStyleField)
    EVT_UPDATE_UI(wxID_OK, DlgPlotStyleEditor::onUpdateUISave)
    EVT_UPDATE_UI(XRCID("BtnSaveAs"), DlgPlotStyleEditor::onUpdateUISave)
    EVT_UPDATE_UI(XRCID("BtnExport"), DlgPlotStyleEditor::onUpdateUISave)
    EVT_LIST_BEGIN_LABEL_EDIT(wxID_ANY, DlgPlotStyleEditor::onBeginLabelEdit)
    EVT_LIST_END_LABEL_EDIT(wxID_ANY, DlgPlotStyleEditor::onEndLabelEdit)
    EVT_LIST_ITEM_SELECTED(XRCID("ListStyles"), DlgPlotStyleEditor::onStyleSelected)
    EVT_LIST_ITEM_DESELECTED(XRCID("ListStyles"), DlgPlotStyleEditor::onStyleSelected)
    EVT_COMBOBOX(wxID_ANY, DlgPlotStyleEditor::onComboChanged)
    EVT_CHECKBOX(wxID_ANY, DlgPlotStyleEditor::onCheckChanged)
    EVT_SPINCTRL(wxID_ANY, DlgPlotStyleEditor::onSpinChanged)
    EVT_SIZE(DlgPlotStyleEditor::onSize)
    EVT_PAINT(DlgPlotStyleEditor::onPaint)
wxEND_EVENT_TABLE()
    // clang-format on

    DlgPlotStyleEditor::DlgPlotStyleEditor(const wxString& fileName, const wxString& sourceFile,
                                           wxWindow* parent)
    : m_fileName(fileName)
    , m_sourceFile(sourceFile)
    , m_diskVersion(std::make_unique<DiskVersion>())
{
    m_isBuilt = buildDialog(this, parent, "DlgPlotStyleEditor");
}

// The controls go first: they lose the focus on the way, and nothing shall be entered any more.
DlgPlotStyleEditor::~DlgPlotStyleEditor()
{
    m_typedInto = nullptr;
    m_quietList.reset();
    DestroyChildren();
}

// The event is not skipped: the default handling would transfer the values once more.
void DlgPlotStyleEditor::onInitDialog(wxInitDialogEvent&)
{
    constexpr int width = 600;
    placeDialog(this, width);

    constexpr size_t tableViewPage = 1;
    wxNotebook* book = findControl<wxNotebook>(*this, "NoteBook");
    wxWindow* tableView = book->GetPage(tableViewPage);
    book->RemovePage(tableViewPage);
    tableView->Hide();

    fillColorImages();
    replaceCombos();
    preparePens();
    setValidators();
    fillLists();
    bindLists();
    Bind(wxEVT_CHAR_HOOK, &DlgPlotStyleEditor::onCharHook, this);
    nameControls();
    load();
    SetFocus();
}

// For screen readers, where no label does.
void DlgPlotStyleEditor::nameControls()
{
    speakList(findControl<wxListCtrl>(*this, "ListStyles"), _("Plot styles"));
    speakList(findControl<wxListCtrl>(*this, "ListLineWeights"), _("Lineweights"));
    desktop::setSpokenName(findControl<wxNotebook>(*this, "NoteBook"), _("Views"));
}

void DlgPlotStyleEditor::fillColorImages()
{
    wxImage box(14, 14); // for a host whose resources have no pictures
    box.SetRGB(wxRect(box.GetSize()), 0, 255, 0);
    const wxBitmap framedBox = loadPicture("BmpStyleColorBox");
    if (framedBox.IsOk())
        box = framedBox.ConvertToImage();
    if (wxg::isDpiForLargeIcons())
        box.Rescale(32, 32);
    m_colorImages = std::make_unique<wxImageList>(box.GetWidth(), box.GetHeight());
    constexpr int black = 7;
    for (int index = 1; index <= 255; ++index)
    {
        const std::uint32_t rgb = index == black ? 0 : OdCmEntityColor::lookUpRGB(index);
        wxImage swatch = box.Copy();
        swatch.Replace(0, 255, 0, static_cast<unsigned char>(rgb >> 16),
                       static_cast<unsigned char>(rgb >> 8), static_cast<unsigned char>(rgb));
        m_colorImages->Add(wxBitmap(swatch));
    }
}

namespace
{

struct ImageItem
{
    int value;
    const char* bitmap;
};

// clang-format off
const ImageItem endStyleItems[] = {
    {4, nullptr},
    {0, "BmpEndStyleButt"}, {1, "BmpEndStyleSquare"},
    {2, "BmpEndStyleRound"}, {3, "BmpEndStyleDiamond"},
};

const ImageItem joinStyleItems[] = {
    {5, nullptr},
    {0, "BmpJoinStyleMiter"}, {1, "BmpJoinStyleBevel"},
    {2, "BmpJoinStyleRound"}, {3, "BmpJoinStyleDiamond"},
};

const ImageItem fillStyleItems[] = {
    {73, nullptr},
    {64, "BmpFillStyleSolid"}, {65, "BmpFillStyleCheckerboard"},
    {66, "BmpFillStyleCrosshatch"}, {67, "BmpFillStyleDiamonds"},
    {68, "BmpFillStyleHorizontalBars"}, {69, "BmpFillStyleSlantLeft"},
    {70, "BmpFillStyleSlantRight"}, {71, "BmpFillStyleSquareDots"},
    {72, "BmpFillStyleVerticalBars"},
};
// clang-format on

template <std::size_t count>
void appendItems(wxg::ImageCombo* combo, const ImageItem (&items)[count], wxString (*text)(int))
{
    for (const ImageItem& item : items)
        combo->appendItem(text(item.value), item.value,
                          item.bitmap ? loadPicture(item.bitmap) : wxNullBitmap);
}

void appendLineTypes(wxg::ImageCombo* combo)
{
    constexpr int objectLineType = 31;
    combo->setImageSize(wxSize(80, 6));
    combo->appendItem(strLineType(objectLineType), objectLineType);
    for (int type = 0; type < objectLineType; ++type)
        combo->appendItem(strLineType(type), type,
                          loadPicture(wxString::Format("BmpLineType%02d", type)));
}

} // namespace

void DlgPlotStyleEditor::replaceCombos()
{
    wxComboBox* color = findControl<wxComboBox>(*this, "ComboColor");
    auto* colorCombo = new wxg::ColorCombo(color->GetParent(), color->GetId(), color->GetPosition(),
                                           color->GetSize(), true, 0, OdDbObjectId(), 41, false, 0,
                                           OdString(_("Color Control").wc_str()));
    wxg::replaceWnd(color, colorCombo);
    color->Destroy();

    appendLineTypes(replaceImageCombo(findControl<wxComboBox>(*this, "ComboLineType")));
    appendItems(replaceImageCombo(findControl<wxComboBox>(*this, "ComboEndStyle")), endStyleItems,
                strEndStyle);
    appendItems(replaceImageCombo(findControl<wxComboBox>(*this, "ComboJoinStyle")), joinStyleItems,
                strJoinStyle);
    appendItems(replaceImageCombo(findControl<wxComboBox>(*this, "ComboFillStyle")), fillStyleItems,
                strFillStyle);
    wxg::ImageCombo* lineWeight =
        replaceImageCombo(findControl<wxComboBox>(*this, "ComboLineWeight"));
    lineWeight->setImageSize(wxSize(80, 14));
    lineWeight->appendItem(_("Use object lineweight"), 0);

    for (const char* name : {"ComboColor", "ComboLineType", "ComboLineWeight", "ComboEndStyle",
                             "ComboJoinStyle", "ComboFillStyle"})
        ignoreWheelWithoutFocus(findControl<wxWindow>(*this, name));
}

// The pen fields show words for 0, which the user replaces by typing a number. A field of numbers
// alone would make 37 of "3,7".
void DlgPlotStyleEditor::preparePens()
{
    allowSpinText(findControl<wxSpinCtrl>(*this, "SpinScreening"));
    for (const char* name : {"SpinPhysPen", "SpinVirtPen"})
    {
        wxSpinCtrl* spin = findControl<wxSpinCtrl>(*this, name);
        allowSpinText(spin);
        const auto selectWord = [spin]
        {
            if (spin->GetValue() == 0)
                spin->SetSelection(-1, -1);
        };
        spin->Bind(wxEVT_LEFT_UP,
                   [spin, selectWord](wxMouseEvent& event)
                   {
                       // The toolkit drops a selection that was clicked into only after this.
                       event.Skip();
                       spin->CallAfter(selectWord);
                   });
        spin->Bind(wxEVT_SET_FOCUS,
                   [spin, selectWord](wxFocusEvent& event)
                   {
                       event.Skip();
                       spin->CallAfter(selectWord);
                   });
    }
    bindNumberFields();
    widenSpins();
}

// Makes room for the words, in whatever size the text is drawn.
void DlgPlotStyleEditor::widenSpins()
{
    const wxSpinCtrl* pen = findControl<wxSpinCtrl>(*this, "SpinPhysPen");
    const int padding = pen->GetTextExtent("00").x;
    const int text =
        std::max(pen->GetTextExtent(_("Automatic")).x, pen->GetTextExtent(_("Varies")).x);
    const wxSize size = pen->GetSizeFromTextSize(text + padding);
    for (const char* name : {"SpinPhysPen", "SpinVirtPen", "SpinScreening"})
        findControl<wxSpinCtrl>(*this, name)->SetMinSize(size);
    pen->GetParent()->Layout();
}

void DlgPlotStyleEditor::setValidators()
{
    const auto bindText = [this](const char* name, const wxTextValidator& validator)
    { findControl<wxTextCtrl>(*this, name)->SetValidator(validator); };
    const auto bindValue = [this](const char* name, auto& value)
    { findControl<wxWindow>(*this, name)->SetValidator(wxGenericValidator(&value)); };

    bindText("TextTableDescr", wxTextValidator(wxFILTER_NONE, &m_tableDescription));
    bindValue("CheckScale", m_applyScale);
    bindText("TextScale", NumberValidator(&m_scaleText));
    bindText("TextStyleDescr", wxTextValidator(wxFILTER_NONE, &m_styleDescription));
    bindValue("SpinPhysPen", m_physicalPen);
    bindValue("SpinVirtPen", m_virtualPen);
    bindValue("SpinScreening", m_screening);
    bindValue("RadLwMm", m_unitsMm);
    bindValue("RadLwIn", m_unitsIn);
}

void DlgPlotStyleEditor::fillLists()
{
    findControl<wxListCtrl>(*this, "ListStyles")->InsertColumn(0, _("Name"));

    wxListCtrl* lineWeights = findControl<wxListCtrl>(*this, "ListLineWeights");
    lineWeights->InsertColumn(0, _("Value"), wxLIST_FORMAT_LEFT, 160);
    auto* marks = new wxImageList(16, 16);
    // An image list takes no missing picture.
    wxImage blank(marks->GetSize());
    blank.SetMaskColour(0, 0, 0);
    for (const char* name : {"MarkEmpty", "MarkCheck"})
    {
        const wxBitmap mark = loadPicture(name);
        marks->Add(mark.IsOk() ? mark : wxBitmap(blank));
    }
    lineWeights->AssignImageList(marks, wxIMAGE_LIST_SMALL);
    auto* combo = findControl<wxg::ImageCombo>(*this, "ComboLineWeight");
    for (int row = 0; row < lineWeightRows; ++row)
    {
        lineWeights->InsertItem(row, wxString(), 0);
        combo->appendItem(wxString(), row + 1);
    }

    for (size_t i = 0; i < m_lineWeightImages.size(); ++i)
        m_lineWeightImages[i] = loadPicture(wxString::Format("BmpLineWeight%02zu", i + 1));

    updateListWidths();
}

bool DlgPlotStyleEditor::TransferDataToWindow()
{
    const auto show = [this](const char* name, int state)
    {
        wxCheckBox* box = findControl<wxCheckBox>(*this, name);
        const bool isPossible = state != wxCHK_UNDETERMINED || box->Is3State();
        box->Set3StateValue(
            static_cast<wxCheckBoxState>(isPossible ? state : int(wxCHK_UNCHECKED)));
    };
    show("CheckDither", m_dither);
    show("CheckGrayscale", m_grayscale);
    show("CheckAdaptive", m_adaptive);
    return wxDialog::TransferDataToWindow();
}

bool DlgPlotStyleEditor::TransferDataFromWindow()
{
    if (!wxDialog::TransferDataFromWindow() || m_table.isNull())
        return false;
    transferDescription();
    if (m_applyScale != m_table->isApplyScaleFactor())
    {
        m_table->setApplyScaleFactor(m_applyScale);
        m_modified = true;
    }
    transferScaleFactor();
    const auto state = [this](const char* name) -> int
    {
        const wxCheckBox* box = findControl<wxCheckBox>(*this, name);
        return box->Get3StateValue();
    };
    m_dither = state("CheckDither");
    m_grayscale = state("CheckGrayscale");
    m_adaptive = state("CheckAdaptive");
    return true;
}

// The field cannot show every text that a file may hold. One that the user left alone stays, and so
// does the end of one that is too long.
void DlgPlotStyleEditor::transferDescription()
{
    if (m_tableDescription == m_shownDescription)
        return;
    if (!isEdited(m_tableDescription, m_shownDescription))
        m_hiddenDescription.clear();
    const OdString description((m_tableDescription + m_hiddenDescription).wc_str());
    if (description == m_table->description())
        return;
    m_table->setDescription(description);
    m_shownDescription = m_tableDescription;
    m_modified = true;
}

// The text shows six digits of the factor; a factor with more of them keeps them until the user
// changes the text.
void DlgPlotStyleEditor::transferScaleFactor()
{
    const bool isAsShown = !findControl<wxTextCtrl>(*this, "TextScale")->IsModified() &&
                           m_scaleText == scaleFactorText();
    const auto factor = parseReal(m_scaleText);
    if (isAsShown || !factor || !std::isfinite(*factor))
        return;
    if (std::abs(*factor - m_table->scaleFactor()) > 1e-10)
    {
        m_table->setScaleFactor(*factor);
        m_modified = true;
    }
}

wxString DlgPlotStyleEditor::scaleFactorText() const
{
    return generalText(m_table->scaleFactor());
}

void DlgPlotStyleEditor::updateFileInfo()
{
    updateFileName();
    updateNumStyles();
    findControl<wxStaticBitmap>(*this, "StatFileIcon")
        ->SetBitmap(loadPicture(isCtb() ? "BmpCTB" : "BmpSTB"));
    // Colour-dependent tables are the older kind, which drawings have been moving away from.
    const wxString type = m_table.isNull() ? _("No table")
                          : isCtb()        ? _("Legacy (can be used to import old DWGs)")
                                           : _("Regular");
    findControl<wxStaticText>(*this, "StatFileType")->SetLabel(type);
}

void DlgPlotStyleEditor::updateFileName()
{
    const wxString name = m_fileName.GetFullName();
    SetTitle(wxString::Format(_("Plot Style Table Editor - %ls"), name));
    findControl<wxStaticText>(*this, "StatFileName")->SetLabelText(name);
    updateFilePath();
}

void DlgPlotStyleEditor::updateFilePath()
{
    wxStaticText* label = findControl<wxStaticText>(*this, "StatFilePath");
    if (!label->IsShown())
        return;
    const wxString text = _("Path: ") + m_fileName.GetFullPath();
    const auto measure = [label](const wxString& s) { return label->GetTextExtent(s).x; };
    const wxString fitted = fitPath(text, label->GetClientSize().x, measure);
    // Called from the paint handler: setting the same text would paint again, for ever.
    if (label->GetLabelText() != fitted)
        label->SetLabelText(fitted);
}

void DlgPlotStyleEditor::onPaint(wxPaintEvent&)
{
    wxPaintDC dc(this);
    updateListWidths();
    updateFilePath();
}

void DlgPlotStyleEditor::onSize(wxSizeEvent& event)
{
    event.Skip();
}

void DlgPlotStyleEditor::onUpdateUIScale(wxUpdateUIEvent& event)
{
    event.Enable(findControl<wxCheckBox>(*this, "CheckScale")->IsChecked());
}
