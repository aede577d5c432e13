// The keys of the style list.

#include "support/editor_test.h"

#include <wx/listctrl.h>
#include <wx/notebook.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>

namespace
{

class StyleKeys : public EditorTest
{
protected:
    // An editor with the Form View page in front, on a named table of "Normal", "A", "B" and "C".
    void openNames()
    {
        open(makeTable("names.stb",
                       [](OdPsPlotStyleTable& table)
                       {
                           for (const wchar_t* name : {L"A", L"B", L"C"})
                               table.addNewStyle(name);
                       }));
    }

    void open(const wxString& file)
    {
        editor = std::make_unique<Editor>(file);
        find<wxNotebook>(*editor, "NoteBook")->SetSelection(1);
        list = find<wxListCtrl>(*editor, "ListStyles");
    }

    // Whether the list took the key, rather than leaving it to the dialog.
    bool press(int key, bool control = false)
    {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = key;
        event.SetControlDown(control);
        event.SetEventObject(list);
        return list->GetEventHandler()->ProcessEventLocally(event);
    }

    void select(int row)
    {
        list->SetItemState(row, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED,
                           wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
    }

    bool isSelected(int row) const
    {
        return list->GetItemState(row, wxLIST_STATE_SELECTED) == wxLIST_STATE_SELECTED;
    }

    std::vector<wxString> rows() const
    {
        std::vector<wxString> texts;
        for (int row = 0; row < list->GetItemCount(); ++row)
            texts.push_back(list->GetItemText(row));
        return texts;
    }

    std::unique_ptr<Editor> editor;
    wxListCtrl* list = nullptr;
};

using Rows = std::vector<wxString>;

} // namespace

TEST_F(StyleKeys, CtrlASelectsAllStylesAndShowsWhatTheyHaveInCommon)
{
    open(makeTable("colours.ctb",
                   [](OdPsPlotStyleTable& table)
                   {
                       for (int i = 0; i < table.styleCount(); ++i)
                       {
                           OdPsPlotStyleData data;
                           data.screening = 40;
                           table.styleAt(i)->setData(data);
                       }
                   }));
    EXPECT_TRUE(press('A', true));
    for (int row = 0; row < 255; ++row)
        EXPECT_TRUE(isSelected(row)) << row;
    EXPECT_EQ(find<wxSpinCtrl>(*editor, "SpinScreening")->GetValue(), 40);
}

TEST_F(StyleKeys, F2StartsARename)
{
    openNames();
    select(1);
    EXPECT_TRUE(press(WXK_F2));
    ASSERT_NE(list->GetEditControl(), nullptr);
    list->GetEditControl()->SetValue("Walls");
    list->EndEditLabel(false);
    EXPECT_EQ(rows(), (Rows{"Normal", "Walls", "B", "C"}));
}

TEST_F(StyleKeys, F2RenamesNeitherNormalNorColours)
{
    openNames();
    select(0);
    EXPECT_TRUE(press(WXK_F2));
    EXPECT_EQ(list->GetEditControl(), nullptr);
    open(makeTable("colours.ctb"));
    select(5);
    EXPECT_TRUE(press(WXK_F2));
    EXPECT_EQ(list->GetEditControl(), nullptr);
}

TEST_F(StyleKeys, DeleteDeletesWhereTheButtonWould)
{
    openNames();
    select(0);
    press(WXK_DELETE);
    EXPECT_EQ(list->GetItemCount(), 4) << "Normal alone";
    select(2);
    press(WXK_DELETE);
    EXPECT_EQ(rows(), (Rows{"Normal", "A", "C"})) << "Normal among others";
    open(makeTable("colours.ctb"));
    select(5);
    press(WXK_DELETE);
    EXPECT_EQ(list->GetItemCount(), 255);
}

TEST_F(StyleKeys, InsertAddsAStyleToANamedTable)
{
    openNames();
    select(1);
    DialogAnswers answers;
    answers.type("New");
    EXPECT_TRUE(press(WXK_INSERT));
    EXPECT_EQ(rows(), (Rows{"Normal", "A", "New", "B", "C"}));
    open(makeTable("colours.ctb"));
    press(WXK_INSERT);
    EXPECT_EQ(list->GetItemCount(), 255);
}

TEST_F(StyleKeys, ARenameKeepsItsKeysToItself)
{
    openNames();
    select(1);
    list->EditLabel(1);
    for (const int key : {WXK_DELETE, WXK_INSERT, WXK_F2})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_FALSE(press('A', true));
    list->EndEditLabel(true);
    EXPECT_EQ(rows(), (Rows{"Normal", "A", "B", "C"}));
    EXPECT_FALSE(isSelected(2));
}

TEST_F(StyleKeys, OtherKeysAreLeftAlone)
{
    openNames();
    for (const int key : {int(WXK_ESCAPE), int(WXK_DOWN), int('A'), int(WXK_RETURN)})
        EXPECT_FALSE(press(key)) << key;
    EXPECT_FALSE(press(WXK_DELETE, true));
}
