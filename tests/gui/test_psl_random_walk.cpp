// A user who does anything, for a long time. The program saves by a function of its own, which
// sees the table in memory.

#include "support/editor_driver.h"

#include "support/table_maker.h"
#include "support/tables.h"
#include "tablefile/tablefile.h"

#include <wx/filedlg.h>
#include <wx/listctrl.h>
#include <wx/msgdlg.h>
#include <wx/odcombo.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>
#include <wx/textdlg.h>

#include <algorithm>
#include <random>

namespace
{

constexpr int steps = 2000;

const wxString names[] = {"A",   "b",         "Style 1",       "style 2", "NORMAL", "a/b",
                          "x=y", "100%s %ls", L"\u00C4\u4E2D", "Z z",     "1",      "Thin lines"};

const char* const lineweightTexts[] = {"0",   "0.25", "0.25",    "1.06",  "2",        "7.5",
                                       "200", "0.31", "-1",      "200.5", "-0.00001", "",
                                       "abc", "nan",  "5.00005", "0.0098"};

// All of them are written as the field shows them.
const char* const scaleFactors[] = {"1", "2.5", "0.001", "1000", "0.333333"};

const char* const expectedMessages[] = {
    "A style named '",
    "A style name cannot contain any of the following characters: ",
    "Custom lineweights must be greater than or equal to 0 and less than or equal to 200 mm",
    " is not a valid name to save to.",
};

using NoDifferences = std::vector<std::string>;

/// The table that was saved last, as it was in memory.
OdPsPlotStyleTablePtr savedInMemory;

/// What an editor shows of its table; of many styles some. The marks of used lineweights are left
/// out: they are brought up to date by changes of lineweights, not by added and deleted styles.
std::vector<std::string> everythingShown(EditorDriver& editor)
{
    constexpr int samples = 12;
    std::vector<std::string> shown;
    // Switching the unit to what it is refreshes texts that the user left empty.
    editor.useInches(find<wxRadioButton>(editor.dialog(), "RadLwIn")->GetValue());
    for (const char* name : {"StatFileType", "StatNumStyles"})
        shown.push_back(editor.label(name).utf8_string());
    for (const char* name : {"TextTableDescr", "CheckScale", "TextScale"})
        shown.push_back(editor.shown(name));
    for (const std::string& text : editor.styleNames())
        shown.push_back(text);
    for (const std::string& text : editor.lineweightTexts())
        shown.push_back(text);
    const int count = editor.styles()->GetItemCount();
    for (int style = 0; style < count; style += count / samples + 1)
    {
        editor.select({style});
        for (const auto& [name, contents] : editor.fields())
            shown.push_back(std::to_string(style) + " " + name + ": " + contents);
    }
    return shown;
}

void expectEqualLines(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i)
        EXPECT_EQ(a[i], b[i]);
}

// The parameter is the seed.
class Walk : public EditorDriverTest,
             public testing::WithParamInterface<unsigned>,
             public wxModalDialogHook
{
protected:
    using Action = void (Walk::*)();

    void SetUp() override
    {
        Register();
        makeTables();
        file = m_tables.front();
        m_editor = &open();
    }
    void TearDown() override
    {
        Unregister();
        savedInMemory = nullptr;
        EditorDriverTest::TearDown();
    }

    void step()
    {
        static const struct
        {
            int weight;
            Action action;
        } actions[] = {
            {20, &Walk::selectStyles},
            {10, &Walk::toggleStyle},
            {40, &Walk::changeField},
            {3, &Walk::addStyle},
            {2, &Walk::deleteStyles},
            {5, &Walk::renameStyle},
            {3, &Walk::sort},
            {8, &Walk::editLineweight},
            {2, &Walk::cancelLineweight},
            {2, &Walk::editByTheButton},
            {3, &Walk::switchUnit},
            {2, &Walk::turnPage},
            {3, &Walk::describe},
            {3, &Walk::changeScale},
            {2, &Walk::typeDescription},
            {1, &Walk::saveAs},
            {1, &Walk::saveAndReopen},
            {1, &Walk::openTable},
            {1, &Walk::askToClose},
        };
        int total = 0;
        for (const auto& a : actions)
            total += a.weight;
        int draw = below(total);
        for (const auto& a : actions)
            if ((draw -= a.weight) < 0)
                return (this->*a.action)();
    }

    void checkMessages()
    {
        for (const std::string& message : takeErrors())
            EXPECT_TRUE(std::any_of(std::begin(expectedMessages), std::end(expectedMessages),
                                    [&message](const char* expected)
                                    { return message.find(expected) != std::string::npos; }))
                << message;
    }

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    template <class Values>
    const auto& anyOf(const Values& values)
    {
        return *(std::begin(values) + below(static_cast<int>(std::size(values))));
    }

    int Enter(wxDialog* dialog) override
    {
        if (auto* chooser = dynamic_cast<wxFileDialog*>(dialog))
            return choose(*chooser);
        if (auto* prompt = dynamic_cast<wxTextEntryDialog*>(dialog))
            prompt->SetValue(anyOf(names));
        const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
        if (!box || !(box->GetMessageDialogStyle() & wxYES_NO))
            return below(5) ? wxID_OK : wxID_CANCEL;
        const int buttons[] = {wxID_YES, wxID_NO, wxID_NO, wxID_CANCEL};
        return anyOf(buttons);
    }

    int choose(wxFileDialog& chooser)
    {
        m_chosen.clear();
        if (below(6) == 0)
            return wxID_CANCEL;
        m_chosen = anyOf(m_tables);
        if (chooser.GetWindowStyle() & wxFD_SAVE)
        {
            const bool colorDependent = chooser.GetWildcard().Contains("*.ctb");
            const bool isWrong = below(8) == 0;
            m_chosen = folder.file(colorDependent != isWrong ? "saved.ctb" : "saved.stb");
        }
        chooser.SetPath(m_chosen);
        return wxID_OK;
    }

    void addTable(const wxString& name, const std::string& bytes)
    {
        m_tables.push_back(folder.file(name));
        writeBytes(m_tables.back(), bytes);
    }

    void makeTables()
    {
        using namespace support;
        Container named;
        named.kind = "STB";
        Container mapped;
        mapped.kind = "TTB";
        const std::string text = namedTableText({"Normal", "A", "B", "C", "D", "E"});
        std::string manyRows = replaced(text, "lineweight=0", "lineweight=40");
        manyRows = replaced(manyRows, " 26=2.11\n", " 26=2.11\n 27=3.0\n 28=0.5\n 29=200.0\n");
        std::string strange = replaced(text, "linetype=31", "linetype=99");
        strange = replaced(strange, "physical_pen_number=0", "physical_pen_number=77");
        addTable("color.ctb", pack(colorTableText()));
        addTable("named.stb", pack(text, named));
        addTable("mapped.stb", pack(mappedTableText({"Normal", "A", "B"}), mapped));
        addTable("many_rows.stb", pack(manyRows, named));
        addTable("strange.stb", pack(strange, named));
        addTable("broken.stb", "no table");
    }

    int styleCount() const { return m_editor->styles()->GetItemCount(); }
    std::vector<int> anyStyles()
    {
        std::vector<int> rows;
        for (int i = below(5); i > 0 && styleCount() > 0; --i)
            rows.push_back(below(styleCount()));
        return rows;
    }

    void clickIfPossible(const char* button)
    {
        if (m_editor->isEnabled(button) && m_editor->isShown(button))
            click(m_editor->dialog(), button);
    }

    void selectStyles() { m_editor->select(anyStyles()); }

    void toggleStyle()
    {
        if (styleCount() == 0)
            return;
        wxListCtrl* list = m_editor->styles();
        const int row = below(styleCount());
        const int state = list->GetItemState(row, wxLIST_STATE_SELECTED) ^ wxLIST_STATE_SELECTED;
        list->SetItemState(row, state, wxLIST_STATE_SELECTED);
    }

    void changeField()
    {
        const char* name = anyOf(propertyControls);
        m_editor->turnTo(EditorDriver::FormView);
        if (m_editor->isEnabled(name))
            m_editor->set(name, anyInput(*find<wxWindow>(m_editor->dialog(), name)));
    }

    int anyInput(const wxWindow& control)
    {
        if (const auto* combo = dynamic_cast<const wxOwnerDrawnComboBox*>(&control))
            return below(static_cast<int>(combo->GetCount()));
        if (const auto* spin = dynamic_cast<const wxSpinCtrl*>(&control))
            return below(spin->GetMax() + 1);
        return below(2);
    }

    void addStyle() { clickIfPossible("BtnStyleAddForm"); }
    void deleteStyles() { clickIfPossible("BtnStyleDelForm"); }

    void renameStyle()
    {
        if (styleCount() > 0)
            m_editor->rename(below(styleCount()), anyOf(names));
    }

    void sort() { clickIfPossible("BtnLwSort"); }
    int anyLineweight() { return below(m_editor->lineweights()->GetItemCount()); }
    void editLineweight() { m_editor->editLineweight(anyLineweight(), anyOf(lineweightTexts)); }

    void cancelLineweight()
    {
        if (m_editor->lineweights()->EditLabel(anyLineweight()))
            m_editor->lineweights()->EndEditLabel(true);
    }

    void editByTheButton()
    {
        m_editor->selectLineweight(anyLineweight());
        clickIfPossible("BtnLwEdit");
        wxTextCtrl* edit = m_editor->lineweights()->GetEditControl();
        if (!edit)
            return;
        edit->SetValue(anyOf(lineweightTexts));
        m_editor->lineweights()->EndEditLabel(below(4) == 0);
    }

    void switchUnit() { m_editor->useInches(below(2) == 0); }
    void turnPage() { m_editor->turnTo(static_cast<EditorDriver::Page>(below(3))); }

    void describe()
    {
        find<wxTextCtrl>(m_editor->dialog(), "TextTableDescr")->SetValue(anyOf(names));
    }

    void changeScale()
    {
        m_editor->turnTo(EditorDriver::General);
        m_editor->set("CheckScale", below(2));
        if (m_editor->isEnabled("TextScale"))
            find<wxTextCtrl>(m_editor->dialog(), "TextScale")->SetValue(anyOf(scaleFactors));
    }

    void typeDescription()
    {
        find<wxTextCtrl>(m_editor->dialog(), "TextStyleDescr")->SetValue(anyOf(names));
    }

    void saveAs()
    {
        if (!m_editor->isEnabled("BtnSaveAs"))
            return;
        const std::vector<std::string> shown = everythingShown(*m_editor);
        m_chosen.clear();
        click(m_editor->dialog(), "BtnSaveAs");
        const bool isSaved = !m_chosen.empty() && errors.messages().empty();
        if (!isSaved)
            return;
        ++m_saves;
        expectSaved(m_chosen, shown);
        file = m_chosen;
        if (std::find(m_tables.begin(), m_tables.end(), m_chosen) == m_tables.end())
            m_tables.push_back(m_chosen);
    }

    void saveAndReopen()
    {
        if (!m_editor->isEnabled("wxID_OK"))
            return;
        const std::vector<std::string> shown = everythingShown(*m_editor);
        click(m_editor->dialog(), wxID_OK);
        ++m_saves;
        expectSaved(file, shown);
        m_editor = &open();
    }

    // The file holds the table, and another editor shows of it what this one showed.
    void expectSaved(const wxString& path, const std::vector<std::string>& shown)
    {
        // An unchanged table is not written.
        if (!savedInMemory.isNull())
        {
            EXPECT_EQ(support::differences(*loadTable(path), *savedInMemory), NoDifferences{});
        }
        Editor other(path);
        EditorDriver driver(other);
        expectEqualLines(everythingShown(driver), shown);
    }

    void openTable()
    {
        m_chosen.clear();
        click(m_editor->dialog(), "BtnOpen");
        if (!m_chosen.empty())
            file = m_chosen;
    }

    void askToClose() { click(m_editor->dialog(), wxID_CANCEL); }

protected:
    int m_saves = 0;

private:
    std::mt19937 m_random{GetParam()};
    std::vector<wxString> m_tables;
    wxString m_chosen;
    EditorDriver* m_editor = nullptr;
};

} // namespace

bool cma::savePlotStyleTable(const OdString& path, OdPsPlotStyleTablePtr table)
{
    savedInMemory = table;
    const std::string name = wxString(path.c_str()).utf8_string();
    return tablefile::save(name, *table).status == tablefile::Status::Ok;
}

TEST_P(Walk, NeverLosesWhatTheEditorShows)
{
    for (int i = 0; i < steps && !HasFailure(); ++i)
    {
        SCOPED_TRACE("step " + std::to_string(i) + " of seed " + std::to_string(GetParam()));
        step();
        checkMessages();
    }
    EXPECT_GT(m_saves, 10) << "a walk without saves shows little";
}

INSTANTIATE_TEST_SUITE_P(Seeds, Walk, testing::Values(1u, 2u, 3u),
                         [](const auto& test) { return "Seed" + std::to_string(test.param); });
