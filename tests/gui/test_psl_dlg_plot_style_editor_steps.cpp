// What the editor does to a table, step by step: the host's table of this program records every
// change.

#include "support/editor_driver.h"

#include <wx/listctrl.h>

#include <algorithm>
#include <list>

namespace
{

using Steps = std::vector<std::string>;

/// The changes of the table and its styles, in their order.
Steps steps;

std::string narrow(const OdString& text)
{
    return wxString(text.c_str()).utf8_string();
}

std::string number(double value)
{
    return wxString::Format("%g", value).utf8_string();
}

/// A style that records its changes.
class ObservedStyle final : public OdPsPlotStyle
{
public:
    explicit ObservedStyle(const OdString& name)
        : m_name(name)
        , m_localizedNames{name}
    {
    }

    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    OdString name() const override { return m_name; }
    OdString description() const override { return m_description; }
    void getData(OdPsPlotStyleData& data) const override { data = m_data; }
    OdString localizedName() const override { return m_localizedNames.back(); }
    void setData(const OdPsPlotStyleData& data) override
    {
        record(m_data == data ? "setData, unchanged" : "setData");
        m_data = data;
    }
    void setDescription(const OdString& description) override
    {
        record("setDescription " + narrow(description));
        m_description = description;
    }
    void setName(const OdString& name) override
    {
        record("setName " + narrow(name));
        m_name = name;
    }
    void setLocalizedName(const OdString& name) override
    {
        record("setLocalizedName " + narrow(name));
        m_localizedNames.push_back(name);
    }

    /// The text that a style map points to. It outlives a change of the name.
    const wchar_t* key() const { return m_localizedNames.back().c_str(); }

private:
    ~ObservedStyle() override = default;

    void record(const std::string& change) const
    {
        steps.push_back(narrow(localizedName()) + ": " + change);
    }

    int m_references = 0;
    OdString m_name;
    std::list<OdString> m_localizedNames;
    OdString m_description;
    OdPsPlotStyleData m_data;
};

/// A named table of three lineweights that records its changes.
class ObservedTable final : public OdPsPlotStyleTable
{
public:
    explicit ObservedTable(const std::vector<std::wstring>& names)
    {
        for (const std::wstring& name : names)
            m_styles.push_back(new ObservedStyle(name));
    }

    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    bool isApplyScaleFactor() const override { return false; }
    OdString description() const override { return {}; }
    double scaleFactor() const override { return 1.0; }
    bool isDisplayCustomLineweightUnits() const override { return m_inches; }
    double lineweightAt(int index) const override { return lineweights.at(at(index)); }
    /// Looks for names, not for localized names.
    OdPsPlotStylePtr findStyleByName(const OdString& name) const override
    {
        const auto found =
            std::find_if(m_styles.begin(), m_styles.end(),
                         [&name](const OdPsPlotStylePtr& style) { return style->name() == name; });
        return found == m_styles.end() ? nullptr : *found;
    }
    OdPsPlotStylePtr styleAt(int index) const override { return m_styles.at(at(index)); }
    int styleCount() const override { return static_cast<int>(m_styles.size()); }
    int lineweightCount() const override { return static_cast<int>(lineweights.size()); }
    bool isColorDependent() const override { return false; }
    OdPsPlotStylePtr addNewStyle(const OdString& name) override
    {
        steps.push_back("addNewStyle " + narrow(name));
        m_styles.push_back(new ObservedStyle(name));
        return m_styles.back();
    }
    void deleteStyle(const OdPsPlotStylePtr& style) override
    {
        steps.push_back("deleteStyle " + narrow(style->localizedName()));
        m_styles.erase(std::find(m_styles.begin(), m_styles.end(), style));
    }
    void setDescription(const OdString&) override { steps.push_back("setDescription"); }
    void setScaleFactor(double) override { steps.push_back("setScaleFactor"); }
    void setApplyScaleFactor(bool) override { steps.push_back("setApplyScaleFactor"); }
    void setDisplayCustomLineweightUnits(bool inches) override
    {
        steps.push_back(inches ? "inches" : "millimetres");
        m_inches = inches;
    }
    void setLineweightAt(int index, double value) override
    {
        steps.push_back("lineweight " + std::to_string(index) + " = " + number(value));
        lineweights.at(at(index)) = value;
    }
    void setStyleArray(const OdArray<OdPsPlotStylePtr>& styles) override
    {
        std::string names;
        for (const OdPsPlotStylePtr& style : styles)
            names += " " + narrow(style->localizedName());
        steps.push_back("setStyleArray" + names);
        m_styles = styles;
    }
    void setStyleMap(const OdPs::OdPsStyleMap& styles) override
    {
        std::string entries;
        for (const auto& [key, style] : styles)
            entries += " " + narrow(key) + "=" + narrow(style->localizedName());
        steps.push_back("setStyleMap" + entries);
    }
    OdPs::OdPsStyleMap styleMap() const override
    {
        OdPs::OdPsStyleMap map;
        for (const OdPsPlotStylePtr& style : m_styles)
            map.emplace(static_cast<const ObservedStyle&>(*style).key(), style);
        return map;
    }
    OdArray<OdPsPlotStylePtr> styleArray() const override { return m_styles; }

    std::vector<double> lineweights = {1, 2, 3};

private:
    ~ObservedTable() override = default;

    static std::size_t at(int index) { return static_cast<std::size_t>(index); }

    int m_references = 0;
    bool m_inches = false;
    OdArray<OdPsPlotStylePtr> m_styles;
};

OdPsPlotStyleTablePtr hostTable;

/// Opens the editor on a host table with Normal and the styles A to E.
class EditorSteps : public EditorTest
{
protected:
    void SetUp() override
    {
        m_table = new ObservedTable({L"Normal", L"A", L"B", L"C", L"D", L"E"});
        hostTable = m_table;
        m_dialog = std::make_unique<Editor>(makeFile("table.stb", "the host reads it"));
        m_editor = std::make_unique<EditorDriver>(*m_dialog);
        steps.clear();
    }
    void TearDown() override
    {
        m_dialog.reset();
        hostTable = nullptr;
    }

    EditorDriver& editor() { return *m_editor; }
    ObservedTable& table() { return *m_table; }

    // Lets a style refer to a lineweight, unrecorded.
    void refer(int style, double lineweight)
    {
        OdPsPlotStyleData data;
        data.lineweight = lineweight;
        table().styleAt(style)->setData(data);
        steps.clear();
    }

    void add(const wxString& name)
    {
        DialogAnswers answers;
        answers.type(name);
        click(*m_dialog, "BtnStyleAddForm");
    }

private:
    ObservedTable* m_table = nullptr;
    std::unique_ptr<Editor> m_dialog;
    std::unique_ptr<EditorDriver> m_editor;
};

} // namespace

OdPsPlotStyleTablePtr cma::loadPlotStyleTable(const OdString&)
{
    return hostTable;
}

TEST_F(EditorSteps, OfSelectingAndShowingChangeNothing)
{
    editor().select({0, 1, 2});
    editor().fields();
    editor().turnTo(EditorDriver::Lineweights);
    editor().selectLineweight(1);
    editor().select({});
    EXPECT_EQ(steps, Steps{});
}

TEST_F(EditorSteps, OfAppendingAStyle)
{
    editor().select({});
    add("New");
    EXPECT_EQ(steps, Steps{"addNewStyle New"});
}

TEST_F(EditorSteps, OfAppendingACopyOfTheLastStyle)
{
    editor().select({5});
    add("New");
    EXPECT_EQ(steps, (Steps{"addNewStyle New", "New: setData, unchanged", "New: setDescription "}));
}

TEST_F(EditorSteps, OfInsertingACopy)
{
    refer(2, 3);
    table().styleAt(2)->setDescription(L"model");
    steps.clear();
    editor().select({2});
    add("New");
    EXPECT_EQ(steps, (Steps{"addNewStyle New", "New: setData", "New: setDescription model",
                            "setStyleArray Normal A B New C D E"}));
}

// The table knows the name although no style shows it.
TEST_F(EditorSteps, OfAddingANameThatTheTableKnowsAreNone)
{
    editor().rename(1, "Shown");
    table().styleAt(1)->setName(L"Known");
    steps.clear();
    ErrorLog errors;
    editor().select({});
    add("Known");
    EXPECT_EQ(steps, Steps{});
    EXPECT_TRUE(errors.messages().empty());
    EXPECT_EQ(editor().styleNames().size(), 6u);
}

TEST_F(EditorSteps, OfDeletingGoFromTheLastStyleToTheFirst)
{
    editor().select({0, 3, 5});
    click(editor().dialog(), "BtnStyleDelForm");
    EXPECT_EQ(steps, (Steps{"deleteStyle E", "deleteStyle C"}));
}

// The entry of the old name has gone from the map that comes back.
TEST_F(EditorSteps, OfARename)
{
    editor().rename(2, "New");
    EXPECT_EQ(steps, (Steps{"B: setName New", "B: setLocalizedName New",
                            "setStyleMap A=A C=C D=D E=E New=New Normal=Normal"}));
}

TEST_F(EditorSteps, OfARefusedRenameAreNone)
{
    ErrorLog errors;
    for (const char* name : {"a/b", "b", "B", "normal", ""})
        editor().rename(2, name);
    EXPECT_EQ(steps, Steps{});
}

TEST_F(EditorSteps, OfAChangeReachTheStylesInTheirOrder)
{
    editor().select({4, 0, 2});
    editor().set("SpinScreening", 50);
    EXPECT_EQ(steps, (Steps{"B: setData", "D: setData"}));
}

TEST_F(EditorSteps, OfAnEventOfAnotherControlWriteTheStylesAsTheyAre)
{
    editor().select({0, 1, 2});
    editor().force("CheckScale", 0);
    EXPECT_EQ(steps, (Steps{"A: setData, unchanged", "B: setData, unchanged"}));
}

TEST_F(EditorSteps, OfSwitchingTheUnit)
{
    editor().useInches(true);
    editor().useInches(false);
    EXPECT_EQ(steps, (Steps{"inches", "millimetres"}));
}

TEST_F(EditorSteps, OfSortingSortedValuesWriteNoStyle)
{
    refer(1, 2);
    editor().forceClick("BtnLwSort");
    EXPECT_EQ(steps, (Steps{"lineweight 0 = 1", "lineweight 1 = 2", "lineweight 2 = 3"}));
}

TEST_F(EditorSteps, OfASortWriteTheValuesAndThenTheStylesThatMoved)
{
    refer(1, 1);
    refer(2, 3);
    refer(3, 2);
    refer(4, 0);
    refer(5, 9);
    table().lineweights = {2, 1, 3};
    editor().forceClick("BtnLwSort");
    EXPECT_EQ(steps, (Steps{"lineweight 0 = 1", "lineweight 1 = 2", "lineweight 2 = 3",
                            "A: setData", "C: setData", "E: setData"}));
}

TEST_F(EditorSteps, OfAnEditedLineweightStoreItAndSort)
{
    refer(1, 1);
    editor().editLineweight(0, "2.5");
    EXPECT_EQ(steps, (Steps{"lineweight 0 = 2.5", "lineweight 0 = 2", "lineweight 1 = 2.5",
                            "lineweight 2 = 3", "A: setData"}));
}

TEST_F(EditorSteps, OfARefusedOrEmptyLineweightAreNone)
{
    ErrorLog errors;
    for (const char* text : {"", "abc", "-1", "200.0001"})
        editor().editLineweight(0, text);
    EXPECT_EQ(steps, Steps{});
}
