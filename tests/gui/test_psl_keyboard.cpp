// The dialogs by keyboard alone: where the focus starts, how Tab goes round, Return and Escape.

#include "support/editor_driver.h"

#include "wxgui/color_dialog.h"

#include <wx/checkbox.h>
#include <wx/combobox.h>
#include <wx/notebook.h>
#include <wx/radiobut.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <algorithm>

namespace
{

// The focus is on a part of a control that the toolkit does not know, as the arrow of a combo box.
const char* const anotherPart = "nothing";

class Keyboard : public EditorTest
{
protected:
    // The entry points bring the resources along.
    static void SetUpTestSuite() {}

    // Shows the dialog that `open` opens, runs the script, and leaves the dialog to be closed.
    void inspect(const std::function<void()>& open, const std::function<void(wxDialog&)>& script)
    {
        answers.run(
            [&](wxDialog* dialog)
            {
                ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
                putPointerOn(*dialog);
                script(*dialog);
            });
        open();
    }

    // Without a window manager the keyboard belongs to the window under the pointer.
    static void putPointerOn(const wxWindow& window)
    {
        wxUIActionSimulator().MouseMove(window.GetScreenPosition() + wxPoint(2, 2));
    }

    // The resource name of the control that has the focus, of which it may be a part.
    static std::string focused()
    {
        for (const wxWindow* window = wxWindow::FindFocus(); window; window = window->GetParent())
        {
            const std::string name = window->GetName().utf8_string();
            if (wxXmlResource::GetXRCID(name, wxID_NONE) != wxID_NONE && name.substr(0, 3) != "Dlg")
                return name;
            if (window->IsTopLevel())
                return "the dialog";
        }
        return anotherPart;
    }

    // Where Tab takes the focus from a control, once round.
    static std::vector<std::string> tabOrder(wxWindow& first)
    {
        constexpr size_t most = 50;
        if (!focus(&first))
            return {};
        std::vector<std::string> order{focused()};
        while (order.size() < most)
        {
            const std::string before = focused();
            wxUIActionSimulator().Char(WXK_TAB);
            if (!waitFor([&] { return focused() != before; }) || focused() == order.front())
                break;
            order.push_back(focused());
        }
        return order;
    }

    static void choose(wxDialog& chooser, const char* mode)
    {
        auto* button = find<wxRadioButton>(chooser, mode);
        button->SetValue(true);
        wxCommandEvent event(wxEVT_RADIOBUTTON, button->GetId());
        event.SetEventObject(button);
        button->HandleWindowEvent(event);
    }

    DialogAnswers answers;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(Keyboard, GoesThroughTheEditorAsTheEyeDoes)
{
    const wxString table = makeTable("table.stb",
                                     [](OdPsPlotStyleTable& names)
                                     {
                                         names.setApplyScaleFactor(true);
                                         names.addNewStyle(L"Walls");
                                         names.setLineweightAt(0, 1.0); // out of order
                                     });
    inspect([&] { editPlotStyleTable(table, nullptr); },
            [](wxDialog& dialog)
            {
                EXPECT_EQ(focused(), "TextTableDescr");
                EditorDriver editor(dialog);
                auto* book = find<wxNotebook>(dialog, "NoteBook");
                EXPECT_EQ(tabOrder(*book),
                          (Names{"NoteBook", "TextTableDescr", "CheckScale", "TextScale", "BtnOpen",
                                 "BtnSaveAs", "wxID_OK", "wxID_CANCEL"}));
                editor.select({1});
                updateUi(dialog);
                EXPECT_EQ(tabOrder(*book),
                          (Names{"NoteBook",        "ListStyles",      "BtnStyleAddForm",
                                 "BtnStyleDelForm", "TextStyleDescr",  "ComboColor",
                                 "CheckDither",     "CheckGrayscale",  "SpinPhysPen",
                                 "SpinVirtPen",     "SpinScreening",   "ComboLineType",
                                 "CheckAdaptive",   "ComboLineWeight", "ComboEndStyle",
                                 "ComboJoinStyle",  "ComboFillStyle",  "BtnOpen",
                                 "BtnSaveAs",       "wxID_OK",         "wxID_CANCEL"}));
                editor.turnTo(EditorDriver::Lineweights);
                editor.selectLineweight(2);
                updateUi(dialog);
                EXPECT_EQ(tabOrder(*book),
                          (Names{"NoteBook", "ListLineWeights", "RadLwMm", "BtnLwEdit", "BtnLwSort",
                                 "BtnOpen", "BtnSaveAs", "wxID_OK", "wxID_CANCEL"}));
            });
}

TEST_F(Keyboard, GoesThroughTheChooserAsTheEyeDoes)
{
    inspect([] { startPlotStyleEditor(nullptr); },
            [](wxDialog& dialog)
            {
                EXPECT_EQ(focused(), "RadOpen");
                const auto order = [&](const char* mode)
                {
                    choose(dialog, mode);
                    return tabOrder(*find<wxWindow>(dialog, mode));
                };
                EXPECT_EQ(order("RadOpen"), (Names{"RadOpen", "ComboSourceFile", anotherPart,
                                                   "BtnBrowse", "wxID_CANCEL"}));
                EXPECT_EQ(order("RadNew"),
                          (Names{"RadNew", anotherPart, "TextTableName", "wxID_CANCEL"}))
                    << "the choice of the kind comes first";
                EXPECT_EQ(order("RadCopy"), (Names{"RadCopy", "ComboSourceFile", anotherPart,
                                                   "BtnBrowse", "TextTableName", "wxID_CANCEL"}));
            });
}

TEST_F(Keyboard, GoesThroughTheNewTableDialogAsTheEyeDoes)
{
    inspect(
        [this]
        {
            wxString name;
            newPlotStyleTable(name, true, folder.path(), nullptr);
        },
        [](wxDialog& dialog)
        {
            EXPECT_EQ(focused(), "TextTableName");
            typeInto(find<wxWindow>(dialog, "TextTableName"), "new");
            ASSERT_TRUE(
                waitFor([&] { return find<wxWindow>(dialog, "wxID_OK")->IsThisEnabled(); }));
            EXPECT_EQ(tabOrder(*find<wxWindow>(dialog, "TextTableName")),
                      (Names{"TextTableName", "CheckLaunchEditor", "CheckUseInDrawing",
                             "wxID_CANCEL", "wxID_OK"}));
        });
}

// What the keys do is seen by how the dialog ends by itself.
class Closing : public Keyboard
{
protected:
    // Presses a key in the next dialog: in a control of it, or where the focus starts.
    void press(int key, const char* control = nullptr,
               EditorDriver::Page page = EditorDriver::General)
    {
        answers.start(
            [=](wxDialog* dialog)
            {
                ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
                putPointerOn(*dialog);
                if (page != EditorDriver::General)
                {
                    EditorDriver editor(*dialog);
                    editor.select({0});
                    editor.turnTo(page);
                    updateUi(*dialog);
                }
                ASSERT_TRUE(!control || focus(find<wxWindow>(*dialog, control)));
                wxUIActionSimulator().Char(key);
            });
    }

    wxString table;

private:
    void SetUp() override { table = makeTable("table.ctb", describe(L"")); }
};

TEST_F(Closing, EscapeCancelsEveryDialog)
{
    press(WXK_ESCAPE);
    EXPECT_FALSE(editPlotStyleTable(table, nullptr));
    press(WXK_ESCAPE);
    EXPECT_FALSE(startPlotStyleEditor(nullptr));
    press(WXK_ESCAPE);
    wxString name;
    EXPECT_FALSE(newPlotStyleTable(name, true, folder.path(), nullptr));
    press(WXK_ESCAPE);
    EXPECT_EQ(wxg::ColorDialog(nullptr, "Colors", wxg::indexColor(5)).ShowModal(), wxID_CANCEL);
}

TEST_F(Closing, ReturnConfirmsEveryDialog)
{
    const std::pair<EditorDriver::Page, const char*> controls[] = {
        {EditorDriver::General, "NoteBook"},
        {EditorDriver::FormView, "ComboFillStyle"},
        {EditorDriver::FormView, "ComboColor"}};
    for (const auto& [page, control] : controls)
    {
        press(WXK_RETURN, control, page);
        EXPECT_TRUE(editPlotStyleTable(table, nullptr)) << control;
    }
    press(WXK_RETURN);
    EXPECT_EQ(wxg::ColorDialog(nullptr, "Colors", wxg::indexColor(5)).ShowModal(), wxID_OK);

    answers.start(
        [](wxDialog* dialog)
        {
            ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
            find<wxCheckBox>(*dialog, "CheckLaunchEditor")->SetValue(false);
            typeInto(find<wxWindow>(*dialog, "TextTableName"), "new");
            ASSERT_TRUE(
                waitFor([=] { return find<wxWindow>(*dialog, "wxID_OK")->IsThisEnabled(); }));
            wxUIActionSimulator().Char(WXK_RETURN);
        });
    wxString name;
    EXPECT_TRUE(newPlotStyleTable(name, true, folder.path(), nullptr));
    EXPECT_EQ(name, "new.ctb");

    answers.start(
        [this](wxDialog* dialog)
        {
            ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
            find<wxComboBox>(*dialog, "ComboSourceFile")->SetValue(table);
            ASSERT_TRUE(
                waitFor([=] { return find<wxWindow>(*dialog, "wxID_OK")->IsThisEnabled(); }));
            ASSERT_TRUE(focus(find<wxWindow>(*dialog, "ComboSourceFile")));
            wxUIActionSimulator().Char(WXK_RETURN);
        });
    press(WXK_RETURN, "NoteBook");
    EXPECT_TRUE(startPlotStyleEditor(nullptr));
}

TEST_F(Closing, ReturnDoesFirstWhatItIsForInAField)
{
    answers.start(
        [](wxDialog* dialog)
        {
            ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
            auto* description = find<wxTextCtrl>(*dialog, "TextTableDescr");
            pressKey(description, WXK_RETURN);
            EXPECT_TRUE(waitFor([&] { return description->GetValue() == "\n"; }));
            description->SetValue("");

            EditorDriver editor(*dialog);
            editor.select({0});
            updateUi(*dialog);
            auto* pen = find<wxSpinCtrl>(*dialog, "SpinPhysPen");
            int entries = 0;
            pen->Bind(wxEVT_SPINCTRL,
                      [&entries](wxSpinEvent& event)
                      {
                          ++entries;
                          event.Skip();
                      });
            typeInto(pen, "12");
            EXPECT_EQ(entries, 0);
            wxUIActionSimulator().Char(WXK_RETURN);
            ASSERT_TRUE(waitFor([&] { return entries == 1; }));
            EXPECT_TRUE(dialog->IsModal()) << "Return has ended the entry only";
            pressKey(find<wxWindow>(*dialog, "ComboFillStyle"), WXK_RETURN);
        });
    EXPECT_TRUE(editPlotStyleTable(table, nullptr));
    OdPsPlotStyleData data;
    loadTable(table)->styleAt(0)->getData(data);
    EXPECT_EQ(data.physicalPenNumber, 12);
}
