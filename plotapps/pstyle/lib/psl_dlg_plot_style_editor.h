// The plot style table editor.

#ifndef PSL_DLG_PLOT_STYLE_EDITOR_H
#define PSL_DLG_PLOT_STYLE_EDITOR_H

#include "psl_api.h"
#include "psl_lineweights.h"
#include "psl_stack_dialog.h"

#include "odps/od_ps.h"

#include <wx/bitmap.h>
#include <wx/filename.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class DiskVersion;
class wxComboBox;
class wxEventBlocker;
class wxFileDialog;
class wxImageList;
class wxListCtrl;
class wxListEvent;
class wxSpinCtrl;
class wxSpinEvent;

namespace wxg
{
class ImageCombo;
}

/// The dialog in which one plot style table file is edited: its general settings, its styles and
/// its lineweights. Edits change the table in memory; nothing reaches the disk until a save.
class PSL_API DlgPlotStyleEditor : public StackDialog
{
public:
    /// Changes one property in a style's record.
    using StyleChange = std::function<void(OdPsPlotStyleData&)>;

    /// Builds the dialog; the table is read when the dialog is shown.
    /// @param fileName    the table file to edit and save; need not exist
    /// @param sourceFile  a table file whose contents are read in its stead; empty for none
    /// @param parent      the parent window, or null
    DlgPlotStyleEditor(const wxString& fileName, const wxString& sourceFile, wxWindow* parent);
    ~DlgPlotStyleEditor() override;

    bool TransferDataToWindow() override;
    bool TransferDataFromWindow() override;

protected:
    bool TryBefore(wxEvent& event) override;

private:
    /// An edit of a list row whose text was refused, until it is begun anew.
    struct RefusedEdit
    {
        wxListCtrl* list;
        long row;
        wxString text;
        /// Whether the reason is on the screen.
        bool isBeingTold;
    };

    // The frame and the General page
    void onInitDialog(wxInitDialogEvent& event);
    void onUpdateUIScale(wxUpdateUIEvent& event);
    void onSize(wxSizeEvent& event);
    void onPaint(wxPaintEvent& event);

    // File operations
    void onOk(wxCommandEvent& event);
    void onCancel(wxCommandEvent& event);
    void onOpen(wxCommandEvent& event);
    void onSaveAs(wxCommandEvent& event);
    void onExport(wxCommandEvent& event);
    void onUpdateUISave(wxUpdateUIEvent& event);

    // The style list
    void onStyleAdd(wxCommandEvent& event);
    void onStyleDel(wxCommandEvent& event);
    void onUpdateUIStyleDelGrid(wxUpdateUIEvent& event);
    void onUpdateUIStyleDelForm(wxUpdateUIEvent& event);
    void onBeginLabelEdit(wxListEvent& event);
    void onEndLabelEdit(wxListEvent& event);
    void onStyleSelected(wxListEvent& event);

    // The properties of the selected styles
    void onUpdateUIStyleField(wxUpdateUIEvent& event);
    void onComboChanged(wxCommandEvent& event);
    void onCheckChanged(wxCommandEvent& event);
    void onSpinChanged(wxSpinEvent& event);

    // The lineweight list
    void onLwEdit(wxCommandEvent& event);
    void onLwSort(wxCommandEvent& event);
    void onLwMm(wxCommandEvent& event);
    void onLwIn(wxCommandEvent& event);
    void onUpdateUILwEdit(wxUpdateUIEvent& event);

    void nameControls();
    void fillColorImages();
    void replaceCombos();
    void preparePens();
    void widenSpins();
    void setValidators();
    void fillLists();
    void updateFileInfo();
    void updateFileName();
    void updateFilePath();

    void load();
    OdPsPlotStyleTablePtr readTable(const wxString& path) const;
    void takeTableValues();
    void takeNoTable(const wxString& message);
    bool save(const wxString& path);
    std::optional<wxString> keepOtherVersion(const wxString& path);
    static void tellOfOtherVersion(const wxString& path, const wxString& kept);
    bool checkSave();
    bool mayReplace(const wxFileName& file);
    bool isCtb() const;
    void transferDescription();
    void transferScaleFactor();
    wxString scaleFactorText() const;

    // What the user is still entering
    bool endPendingEntry();
    void showStoredChoices();
    void refuseEdit(wxListEvent& event);
    void resumeRefusedEdit();
    void bindNumberFields();
    std::optional<int> typedNumber(const wxSpinCtrl& field) const;
    void takeTypedNumber();
    static int onFocusLeaves(WXWidget field, void* event, void* editor);
    void onCharHook(wxKeyEvent& event);
    void press(int id);

    void updateStyles();
    void updateNumStyles();
    void updateStyleButtons();
    void updateListWidths();
    bool isFormViewCurrent() const;
    bool hasEditableSelection() const;
    std::vector<int> selectedStyles() const;
    void bindLists();
    void bindTypeAhead(wxListCtrl* list);
    void onStyleListPress(wxMouseEvent& event);
    bool onStyleKey(const wxKeyEvent& event);
    bool onLineWeightKey(const wxKeyEvent& event);
    void selectAllStyles();
    void selectOnly(wxListCtrl* list, long row);
    void selectRangeTo(long row);
    void gatherOnce();
    wxString askForStyleName();
    void showStyleName(long row);
    void refuseTakenName(const wxString& name);
    void insertStyle(const wxString& name, int index, const OdPsPlotStylePtr& model);
    void stylesChanged();
    void endStyleEdit(wxListEvent& event);
    void renameStyle(const OdPsPlotStylePtr& style, const wxString& name);

    void updateStyleFields();
    bool isStored(const wxSpinCtrl& field, int number) const;
    void updatePenText(wxSpinCtrl* spin, bool varies);
    bool changeSelectedStyles(const StyleChange& change);

    void updateLineWeights(bool keepComboSelection);
    void updateLineWeightUse(bool refreshList);
    void sortLineWeights();
    void setLineWeightUnits(bool inches);
    void endLineWeightEdit(wxListEvent& event);

    wxFileName m_fileName;
    wxString m_sourceFile;
    bool m_modified = false;
    int m_styleCount = 0;
    OdPsPlotStyleTablePtr m_table;
    wxString m_tableDescription;
    wxString m_styleDescription;
    bool m_applyScale = false;
    wxString m_scaleText = "1";
    int m_dither = wxCHK_UNCHECKED;
    int m_grayscale = wxCHK_UNCHECKED;
    int m_physicalPen = 0;
    int m_virtualPen = 0;
    int m_screening = 100;
    int m_adaptive = wxCHK_UNCHECKED;
    bool m_unitsMm = true;
    bool m_unitsIn = false;
    /// The swatches of the colour indices; image i shows index i + 1.
    std::unique_ptr<wxImageList> m_colorImages;
    /// The pictures of lineweights, by their number less 1.
    std::array<wxBitmap, lineWeightPictures> m_lineWeightImages;
    bool m_physicalPenVaries = false;
    bool m_virtualPenVaries = false;
    /// Also the image of each row of the lineweight list.
    LineWeightUse m_lineWeightUse{};
    /// The edit control whose label was refused last, while its edit goes on.
    const void* m_vetoedEdit = nullptr;
    std::optional<RefusedEdit> m_refusedEdit;
    /// Keeps the style list from telling of every row while the user's input is dealt with.
    std::unique_ptr<wxEventBlocker> m_quietList;
    /// The number field that the user has typed into and not left yet.
    wxSpinCtrl* m_typedInto = nullptr;
    /// Whether styles have been deleted since the style list was clicked.
    bool m_clickedRowIsGone = false;
    /// The row of the style list in which a range of rows begins; -1: the one with the focus.
    long m_rangeBegin = -1;
    /// The table's description as its field showed it first; the field cannot show every text.
    wxString m_shownDescription;
    /// The end of a description that is too long for the field.
    wxString m_hiddenDescription;
    /// What the file held when it was read or saved last.
    std::unique_ptr<DiskVersion> m_diskVersion;

    wxDECLARE_CLASS(DlgPlotStyleEditor);
    wxDECLARE_EVENT_TABLE();
};

/// Finds a style by its localized name, without regard to case.
/// @param flag  has no effect; hosts pass it
/// @return the style's index, or -1
PSL_API int findStyle(OdPsPlotStyleTable* table, const wxString& name, bool flag);

/// Puts an image combo box in the place of a combo box and destroys the latter.
/// @return the new control, which its parent owns
PSL_API wxg::ImageCombo* replaceImageCombo(wxComboBox* combo);

#endif
