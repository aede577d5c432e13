// The editor on a host of the test's own: what it asks of the table and in which order, and what it
// makes of a host that fails. The command interface is replaced by the functions of this program.

#include "support/gui_support.h"

#include "psl.h"
#include "psl_dlg_plot_style_editor.h"

#include "cmdapi/cma.h"

#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

/// What was asked of the host and its table.
std::vector<std::string> calls;

void record(const std::string& call)
{
    calls.push_back(call);
}

/// A style that tells when its properties are read.
class RecordingStyle : public OdPsPlotStyle
{
public:
    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    OdString name() const override { return L"Style"; }
    OdString description() const override { return OdString(); }
    void getData(OdPsPlotStyleData&) const override { record("getData"); }
    OdString localizedName() const override
    {
        record("localizedName");
        return L"Style";
    }
    void setData(const OdPsPlotStyleData&) override { record("setData"); }
    void setDescription(const OdString&) override { record("setDescription"); }
    void setName(const OdString&) override { record("setName"); }
    void setLocalizedName(const OdString&) override { record("setLocalizedName"); }

private:
    int m_references = 0;
};

/// A table with one style, which tells every operation.
class RecordingTable : public OdPsPlotStyleTable
{
public:
    explicit RecordingTable(bool colorDependent)
        : m_colorDependent(colorDependent)
    {
    }

    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    bool isApplyScaleFactor() const override { return recorded("isApplyScaleFactor", false); }
    OdString description() const override { return recorded("description", OdString(L"text")); }
    double scaleFactor() const override { return recorded("scaleFactor", 1.0); }
    bool isDisplayCustomLineweightUnits() const override
    {
        return recorded("isDisplayCustomLineweightUnits", false);
    }
    double lineweightAt(int) const override { return recorded("lineweightAt", 0.0); }
    OdPsPlotStylePtr findStyleByName(const OdString&) const override
    {
        return recorded("findStyleByName", OdPsPlotStylePtr());
    }
    OdPsPlotStylePtr styleAt(int) const override { return recorded("styleAt", m_style); }
    int styleCount() const override { return recorded("styleCount", 1); }
    int lineweightCount() const override { return recorded("lineweightCount", 1); }
    bool isColorDependent() const override
    {
        return recorded("isColorDependent", m_colorDependent);
    }
    OdPsPlotStylePtr addNewStyle(const OdString&) override
    {
        return recorded("addNewStyle", OdPsPlotStylePtr());
    }
    void deleteStyle(const OdPsPlotStylePtr&) override { record("deleteStyle"); }
    void setDescription(const OdString&) override { record("setDescription"); }
    void setScaleFactor(double) override { record("setScaleFactor"); }
    void setApplyScaleFactor(bool) override { record("setApplyScaleFactor"); }
    void setDisplayCustomLineweightUnits(bool) override
    {
        record("setDisplayCustomLineweightUnits");
    }
    void setLineweightAt(int, double) override { record("setLineweightAt"); }
    void setStyleArray(const OdArray<OdPsPlotStylePtr>&) override { record("setStyleArray"); }
    void setStyleMap(const OdPs::OdPsStyleMap&) override { record("setStyleMap"); }
    OdPs::OdPsStyleMap styleMap() const override
    {
        return recorded("styleMap", OdPs::OdPsStyleMap());
    }
    OdArray<OdPsPlotStylePtr> styleArray() const override
    {
        return recorded("styleArray", OdArray<OdPsPlotStylePtr>());
    }

private:
    template <class Value>
    static Value recorded(const char* call, Value value)
    {
        record(call);
        return value;
    }

    bool m_colorDependent;
    OdPsPlotStylePtr m_style = new RecordingStyle;
    int m_references = 0;
};

/// How the host behaves.
bool createFails = false;
bool saveFails = false;

// Gives the calls without those that repeat their predecessor.
std::vector<std::string> distinctCalls()
{
    std::vector<std::string> distinct = calls;
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    return distinct;
}

class OnAHost : public testing::Test
{
protected:
    static void SetUpTestSuite() { InitPslXmlResource(); }
    void SetUp() override
    {
        calls.clear();
        createFails = saveFails = false;
    }

    TemporaryFolder folder;
};

} // namespace

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString& path)
{
    record("load " + wxString(path.c_str()).utf8_string());
    return new RecordingTable(wxString(path.c_str()).EndsWith(".ctb"));
}

bool cma::savePlotStyleTable(const OdString& path, OdPsPlotStyleTablePtr)
{
    record("save " + wxString(path.c_str()).utf8_string());
    return !saveFails;
}

OdPsPlotStyleTablePtr cma::createPlotStyleTable(bool colorDependent, const OdString& description)
{
    record(std::string("create ") + (colorDependent ? "colours" : "names") +
           (description.isEmpty() ? "" : " with a description"));
    return createFails ? OdPsPlotStyleTablePtr()
                       : OdPsPlotStyleTablePtr(new RecordingTable(colorDependent));
}

TEST_F(OnAHost, NothingIsAskedBeforeTheDialogInitialises)
{
    const DlgPlotStyleEditor dialog(folder.file("new.stb"), "", nullptr);
    EXPECT_TRUE(calls.empty());
}

TEST_F(OnAHost, LoadingRefreshesInItsOrder)
{
    writeBytes(folder.file("first.ctb"), "first");
    writeBytes(folder.file("second.stb"), "second");
    DlgPlotStyleEditor dialog(folder.file("first.ctb"), "", nullptr);
    dialog.InitDialog();

    // The toolkit's own events tell where the steps that ask nothing of the table come.
    find<wxButton>(dialog, "BtnStyleDelForm")
        ->Bind(wxEVT_SHOW, [](wxShowEvent&) { record("(style buttons shown)"); });
    find<wxListCtrl>(dialog, "ListStyles")
        ->Bind(wxEVT_LIST_DELETE_ALL_ITEMS, [](wxListEvent&) { record("(style list cleared)"); });
    find<wxTextCtrl>(dialog, "TextTableDescr")
        ->Bind(wxEVT_TEXT, [](wxCommandEvent&) { record("(values transferred)"); });
    find<wxSpinCtrl>(dialog, "SpinScreening")->SetValue(50);
    DialogAnswers answers;
    answers.choose(folder.file("second.stb"));
    click(dialog, "BtnOpen");

    calls.erase(calls.begin(), std::find(calls.begin(), calls.end(),
                                         "load " + folder.file("second.stb").utf8_string()));
    const std::vector<std::string> expected{"load " + folder.file("second.stb").utf8_string(),
                                            // the table's values
                                            "styleCount", "isApplyScaleFactor", "scaleFactor",
                                            "description", "isDisplayCustomLineweightUnits",
                                            "lineweightCount",
                                            // file information, then the style buttons
                                            "isColorDependent", "(style buttons shown)",
                                            // the style list
                                            "(style list cleared)", "styleAt", "localizedName",
                                            // lineweight use
                                            "styleCount", "styleAt", "getData", "styleCount",
                                            // the lineweight list
                                            "lineweightCount", "lineweightAt", "lineweightCount",
                                            // the values
                                            "(values transferred)"};
    std::vector<std::string> found = distinctCalls();
    // After the buttons the kind is asked for as often as a step needs it.
    found.erase(std::remove(std::find(found.begin(), found.end(), "(style buttons shown)"),
                            found.end(), "isColorDependent"),
                found.end());
    EXPECT_EQ(found, expected);
    // The fields come last: the transfer alone would show the 50 that was there before.
    EXPECT_EQ(find<wxSpinCtrl>(dialog, "SpinScreening")->GetValue(), 100);
}

TEST_F(OnAHost, TheTableIsAskedForByItsFullPath)
{
    const wxString file = folder.file("table.ctb");
    const wxString source = folder.file("source.stb");
    writeBytes(file, "file");
    writeBytes(source, "source");
    DlgPlotStyleEditor(file, "", nullptr).InitDialog();
    EXPECT_EQ(calls.front(), "load " + file.utf8_string());
    calls.clear();
    DlgPlotStyleEditor(file, source, nullptr).InitDialog();
    EXPECT_EQ(calls.front(), "load " + source.utf8_string());
}

TEST_F(OnAHost, NewTablesHaveTheKindOfTheExtensionAndNoDescription)
{
    DlgPlotStyleEditor(folder.file("new.CtB"), "", nullptr).InitDialog();
    EXPECT_EQ(calls.front(), "create colours");
    calls.clear();
    DlgPlotStyleEditor(folder.file("new.stb"), "", nullptr).InitDialog();
    EXPECT_EQ(calls.front(), "create names");
    calls.clear();
    DlgPlotStyleEditor(folder.file("new"), "", nullptr).InitDialog();
    EXPECT_EQ(calls.front(), "create names");
}

TEST_F(OnAHost, AFailedCreationIsReported)
{
    createFails = true;
    DialogAnswers answers;
    answers.press(wxID_OK);
    DlgPlotStyleEditor dialog(folder.file("new.ctb"), "", nullptr);
    dialog.InitDialog();
    ASSERT_EQ(answers.shown().size(), 1u);
    const ShownDialog& box = answers.shown().front();
    EXPECT_EQ(box.message, "Failed to create plotstyle table file.");
    EXPECT_EQ(box.caption, "Plot Style Table Editor");
    EXPECT_EQ(box.style & (wxOK | wxCANCEL | wxYES_NO | wxICON_MASK), wxOK | wxICON_ERROR);
    EXPECT_EQ(find<wxStaticText>(dialog, "StatFileType")->GetLabelText(), "No table");
    // No table, so there are no changes to ask about.
    wxCommandEvent cancel(wxEVT_BUTTON, wxID_CANCEL);
    dialog.GetEventHandler()->ProcessEvent(cancel);
}

TEST_F(OnAHost, AFailedSaveKeepsTheChangesUnsaved)
{
    DialogAnswers answers;
    ErrorLog log;
    const wxString file = folder.file("new.stb");
    answers.run(
        [](wxDialog* dialog)
        {
            saveFails = true;
            click(*dialog, wxID_OK);
            EXPECT_TRUE(dialog->IsModal()) << "the dialog stays open";
            saveFails = false;
            click(*dialog, wxID_OK);
            EXPECT_FALSE(dialog->IsModal());
        });
    DlgPlotStyleEditor dialog(file, "", nullptr);
    EXPECT_EQ(dialog.ShowModal(), wxID_OK);
    const std::string save = "save " + file.utf8_string();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), save), 2);
    EXPECT_EQ(log.messages(), std::vector<wxString>{"Failed to save file: " + file});
}

TEST_F(OnAHost, OnlyChangedValuesReachTheTable)
{
    const wxString file = folder.file("table.stb");
    writeBytes(file, "file");
    DlgPlotStyleEditor dialog(file, "", nullptr);
    dialog.InitDialog();
    calls.clear();
    EXPECT_TRUE(dialog.TransferDataFromWindow());
    for (const std::string& call : calls)
        EXPECT_NE(call.substr(0, 3), "set") << call;
    calls.clear();
    find<wxTextCtrl>(dialog, "TextTableDescr")->SetValue("other");
    EXPECT_TRUE(dialog.TransferDataFromWindow());
    std::vector<std::string> changes;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(changes),
                 [](const std::string& call) { return call.substr(0, 3) == "set"; });
    EXPECT_EQ(changes, std::vector<std::string>{"setDescription"});
}
