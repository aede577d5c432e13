// The host's combo boxes and window helpers.

#include "support/gui_support.h"
#include "support/hands.h"
#include "support/image_colours.h"
#include "support/screen_image.h"

#include "wxgui/color_combo.h"
#include "wxgui/color_dialog.h"
#include "wxgui/color_palette.h"
#include "wxgui/image_combo.h"
#include "wxgui/wxgui.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/combobox.h>
#include <wx/frame.h>
#include <wx/image.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/uiaction.h>

#include <functional>
#include <set>

using wxg::indexColor;

namespace
{

wxBitmap solid(const wxColour& colour, const wxSize& size)
{
    wxImage image(size);
    image.SetRGB(wxRect(size), colour.Red(), colour.Green(), colour.Blue());
    return wxBitmap(image);
}

// A window with one control, shown on the screen.
class Controls : public testing::Test
{
protected:
    void SetUp() override
    {
        frame = new wxFrame(nullptr, wxID_ANY, "test", wxPoint(100, 100), wxSize(400, 300));
        panel = new wxPanel(frame);
    }
    void TearDown() override
    {
        frame->Destroy();
        waitFor([] { return wxPendingDelete.empty(); });
    }

    void show()
    {
        frame->Show();
        frame->Raise();
        ASSERT_TRUE(waitFor([this] { return frame->IsShownOnScreen(); }));
    }

    // The pixels of a control as the screen shows them; every colour once.
    std::set<unsigned long> coloursOf(wxWindow* control)
    {
        control->Refresh();
        control->Update();
        return ::coloursOf(screenImage(*control));
    }

    // The brightness of what is darkest in a control, from 0 to 255, its edges aside.
    static int darkestOf(wxWindow* control)
    {
        constexpr int edge = 4;
        control->Refresh();
        control->Update();
        const wxImage image = screenImage(*control);
        int darkest = 255;
        for (int y = edge; y < image.GetHeight() - edge; ++y)
            for (int x = edge; x < image.GetWidth() / 2; ++x)
                darkest = std::min<int>(darkest, image.GetGreen(x, y));
        return darkest;
    }

    bool showsColour(wxWindow* control, unsigned long rgb)
    {
        return waitFor([this, control, rgb] { return coloursOf(control).count(rgb) > 0; });
    }

    // The smallest rectangle that holds all that a control shows of a colour.
    static wxRect boundsOf(wxWindow* control, unsigned long rgb)
    {
        const wxImage image = screenImage(*control);
        wxRect bounds;
        for (int y = 0; y < image.GetHeight(); ++y)
            for (int x = 0; x < image.GetWidth(); ++x)
                if (rgbOf(image, x, y) == rgb)
                    bounds.Union(wxRect(x, y, 1, 1));
        return bounds;
    }

    bool hidesColour(wxWindow* control, unsigned long rgb)
    {
        return waitFor([this, control, rgb] { return coloursOf(control).count(rgb) == 0; });
    }

    // Sends a key to a control, as the user's keyboard would.
    void press(wxWindow* control, int key)
    {
        control->SetFocus();
        wxUIActionSimulator simulator;
        simulator.MouseMove(control->GetScreenPosition() + wxPoint(20, 10));
        simulator.Char(key);
    }

    wxFrame* frame = nullptr;
    wxPanel* panel = nullptr;
};

class ImageCombos : public Controls
{
protected:
    void SetUp() override
    {
        Controls::SetUp();
        combo = new wxg::ImageCombo(panel, wxID_ANY, wxPoint(10, 10), wxSize(250, 34), true);
        combo->appendItem("None", 31);
        combo->appendItem("Red", 0, solid(*wxRED, wxSize(80, 6)));
        combo->appendItem("Blue", 5, solid(*wxBLUE, wxSize(80, 6)));
        frame->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) { ++picks; });
    }

    wxg::ImageCombo* combo = nullptr;
    int picks = 0;
};

class ColorCombos : public Controls
{
protected:
    void SetUp() override
    {
        Controls::SetUp();
        combo = new wxg::ColorCombo(panel, wxID_ANY, wxPoint(10, 10), wxSize(250, 34), true, 0,
                                    OdDbObjectId(), 41, false, 0, OdString(L"Color Control"));
        frame->Bind(wxEVT_COMBOBOX, [this](wxCommandEvent&) { ++picks; });
    }

    void pick(int entry)
    {
        combo->SetSelection(entry);
        wxCommandEvent event(wxEVT_COMBOBOX, combo->GetId());
        event.SetEventObject(combo);
        event.SetInt(entry);
        combo->GetEventHandler()->ProcessEvent(event);
    }

    wxg::ColorCombo* combo = nullptr;
    int picks = 0;
};

} // namespace

TEST_F(ImageCombos, HoldsTextsValuesAndPictures)
{
    EXPECT_EQ(combo->GetCount(), 3u);
    EXPECT_EQ(combo->GetString(1), "Red");
    combo->setValue(5);
    EXPECT_EQ(combo->GetSelection(), 2);
    EXPECT_EQ(combo->value(), 5);
    combo->SetSelection(0);
    EXPECT_EQ(combo->value(), 31);
}

TEST_F(ImageCombos, IsBlankForAValueThatNoEntryCarries)
{
    combo->setValue(5);
    for (const int value : {-2, -3, 99})
    {
        combo->setValue(value);
        EXPECT_EQ(combo->GetSelection(), wxNOT_FOUND);
        EXPECT_EQ(combo->GetValue(), "");
        EXPECT_EQ(combo->value(), value);
    }
}

TEST_F(ImageCombos, SendsNoEventForValuesSetByTheProgram)
{
    combo->setValue(5);
    combo->setVaries(true);
    combo->setItem(2, "Other", wxNullBitmap);
    EXPECT_EQ(picks, 0);
}

TEST_F(ImageCombos, RelabelsTheSelectedEntryInPlace)
{
    combo->setValue(5);
    combo->setItem(2, "Green", solid(*wxGREEN, wxSize(80, 6)));
    EXPECT_EQ(combo->GetSelection(), 2);
    EXPECT_EQ(combo->GetValue(), "Green");
    EXPECT_EQ(combo->value(), 5);
    combo->setItem(-1, "x", wxNullBitmap);
    combo->setItem(3, "x", wxNullBitmap);
    EXPECT_EQ(combo->GetCount(), 3u);
}

TEST_F(ImageCombos, DrawsThePictureOfTheSelectedEntry)
{
    show();
    combo->setValue(0);
    EXPECT_TRUE(showsColour(combo, 0xFF0000));
    combo->setValue(5);
    EXPECT_TRUE(showsColour(combo, 0x0000FF));
    EXPECT_FALSE(coloursOf(combo).count(0xFF0000));
}

TEST_F(ImageCombos, DrawsVariesInsteadOfAnEntry)
{
    show();
    combo->setValue(0);
    ASSERT_TRUE(showsColour(combo, 0xFF0000));
    combo->setVaries(true);
    EXPECT_TRUE(combo->varies());
    EXPECT_TRUE(hidesColour(combo, 0xFF0000));
    combo->setVaries(false);
    EXPECT_TRUE(showsColour(combo, 0xFF0000));
}

TEST_F(ImageCombos, DrawsVariesInABlankField)
{
    show();
    combo->setValue(-3);
    ASSERT_TRUE(waitFor([this] { return combo->IsShownOnScreen(); }));
    const auto blank = coloursOf(combo);
    combo->setVaries(true);
    EXPECT_TRUE(waitFor([this, &blank] { return coloursOf(combo) != blank; }));
}

TEST_F(ImageCombos, DrawsAGreyPictureWhenDisabled)
{
    show();
    combo->setValue(0);
    ASSERT_TRUE(showsColour(combo, 0xFF0000));
    combo->Disable();
    EXPECT_TRUE(hidesColour(combo, 0xFF0000));
}

TEST_F(ImageCombos, DrawsNothingWhereThePictureIsMaskedOut)
{
    show();
    wxBitmap masked = solid(*wxGREEN, wxSize(80, 6));
    masked.SetMask(new wxMask(masked, *wxGREEN));
    combo->setItem(1, "Masked", masked);
    combo->setValue(0);
    EXPECT_TRUE(hidesColour(combo, 0xFF0000));
    EXPECT_FALSE(coloursOf(combo).count(0x00FF00));
}

TEST_F(ImageCombos, DrawsAPaleTextWhenDisabledOrVaried)
{
    auto* other = new wxButton(panel, wxID_ANY, "other", wxPoint(10, 100));
    show();
    combo->setValue(31);
    other->SetFocus();
    ASSERT_TRUE(waitFor([&] { return other->HasFocus(); }));
    ASSERT_TRUE(waitFor([this] { return coloursOf(combo).size() > 10; })) << "it is painted";
    const auto darkest = [this] { return darkestOf(combo); };
    const int usual = darkest();
    combo->setVaries(true);
    EXPECT_TRUE(waitFor([&] { return darkest() > usual; }));
    // Pale on the background of the focus nobody could read it.
    combo->SetFocus();
    EXPECT_TRUE(showsColour(combo, 0xFFFFFF));
    other->SetFocus();
    combo->setVaries(false);
    EXPECT_TRUE(waitFor([&] { return darkest() == usual; }));
    combo->Disable();
    EXPECT_TRUE(waitFor([&] { return darkest() > usual; }));
}

TEST_F(ImageCombos, ItsListHasRoomForEveryText)
{
    show();
    const wxString wide(60, 'w');
    combo->appendItem(wide, 6);
    combo->Popup();
    ASSERT_TRUE(waitFor([this] { return combo->IsPopupShown(); }));
    const wxWindow* list = combo->GetPopupControl()->GetControl();
    EXPECT_GE(list->GetSize().x, combo->GetTextExtent(wide).x + 80 + 12);
    EXPECT_LE(list->GetSize().x, combo->GetTextExtent(wide).x + 80 + 60);
    EXPECT_GE(list->GetSize().y, 4 * combo->GetCharHeight());
    combo->Dismiss();
}

TEST_F(ImageCombos, IsOperatedByArrowKeysAndTypedLetters)
{
    show();
    combo->setValue(31);
    press(combo, WXK_DOWN);
    EXPECT_TRUE(waitFor([this] { return combo->value() == 0; }));
    EXPECT_EQ(picks, 1);
    press(combo, 'b');
    EXPECT_TRUE(waitFor([this] { return combo->value() == 5; }));
    EXPECT_EQ(picks, 2);
}

TEST_F(ImageCombos, HasATipWhereTheFieldIsTooNarrow)
{
    show();
    combo->setValue(5);
    EXPECT_EQ(combo->GetToolTipText(), "");
    combo->SetSize(60, -1);
    EXPECT_TRUE(waitFor([this] { return combo->GetToolTipText() == combo->GetValue(); }));
    combo->SetSize(400, -1);
    EXPECT_TRUE(waitFor([this] { return combo->GetToolTipText().empty(); }));
    const wxString longText(300, 'x');
    combo->setItem(0, longText, wxNullBitmap);
    combo->SetSelection(0);
    EXPECT_EQ(combo->GetToolTipText(), longText);
    combo->setVaries(true);
    EXPECT_EQ(combo->GetToolTipText(), "") << "the word has room";
}

TEST_F(ImageCombos, LeavesMnemonicsToTheDialog)
{
    auto* button = new wxButton(panel, wxID_ANY, "&Blue", wxPoint(10, 100));
    int clicks = 0;
    button->Bind(wxEVT_BUTTON, [&clicks](wxCommandEvent&) { ++clicks; });
    show();
    combo->setValue(31);
    combo->SetFocus();
    Hands hands;
    const wxPoint inside = combo->GetScreenPosition() + wxPoint(20, 10);
    hands.moveTo({inside.x, inside.y});
    hands.key("alt+b");
    EXPECT_TRUE(waitFor([&clicks] { return clicks == 1; }));
    EXPECT_EQ(combo->value(), 31) << "no entry is picked";
}

TEST_F(ImageCombos, APickEndsTheVariesState)
{
    show();
    combo->setVaries(true);
    combo->setValue(-3);
    press(combo, WXK_DOWN);
    EXPECT_TRUE(waitFor([this] { return picks == 1; }));
    EXPECT_FALSE(combo->varies());
}

TEST_F(ImageCombos, EscapeClosesTheOpenListAndReachesNobodyElse)
{
    show();
    int escapes = 0;
    frame->Bind(wxEVT_CHAR_HOOK,
                [&escapes](wxKeyEvent& event)
                {
                    escapes += event.GetKeyCode() == WXK_ESCAPE;
                    event.Skip();
                });
    combo->Popup();
    ASSERT_TRUE(waitFor([this] { return combo->IsPopupShown(); }));
    wxKeyEvent escape(wxEVT_CHAR_HOOK);
    escape.m_keyCode = WXK_ESCAPE;
    escape.SetEventObject(combo);
    combo->GetEventHandler()->ProcessEvent(escape);
    EXPECT_TRUE(waitFor([this] { return !combo->IsPopupShown(); }));
    EXPECT_EQ(escapes, 0);
    combo->GetEventHandler()->ProcessEvent(escape);
    EXPECT_EQ(escapes, 1) << "with the list closed the key is the dialog's";
}

TEST_F(ColorCombos, OffersTheObjectsColourTheFirstIndexColoursAndAChoice)
{
    const char* const texts[] = {"Use entity color", "Red",  "Yellow", "Green", "Cyan", "Blue",
                                 "Magenta",          "Black"};
    ASSERT_EQ(combo->GetCount(), 9u);
    for (unsigned i = 0; i < 8; ++i)
        EXPECT_EQ(combo->GetString(i), texts[i]);
    EXPECT_EQ(combo->GetString(8), wxString(L"Select color\u2026"));
    EXPECT_EQ(combo->GetSelection(), 0);
    EXPECT_FALSE(combo->color());
}

TEST_F(ColorCombos, GivesIndexColoursAndPlainBlack)
{
    for (int index = 1; index <= 6; ++index)
    {
        combo->SetSelection(index);
        ASSERT_TRUE(combo->color());
        EXPECT_EQ(combo->color()->colorMethod(), OdCmEntityColor::kByACI);
        EXPECT_EQ(combo->color()->colorIndex(), index);
    }
    combo->SetSelection(7);
    ASSERT_TRUE(combo->color());
    EXPECT_EQ(combo->color()->color(), 0xC2000000);
}

TEST_F(ColorCombos, SelectsTheEntryOfAColour)
{
    combo->setColor(indexColor(3));
    EXPECT_EQ(combo->GetSelection(), 3);
    combo->setColor({0, 0, 0});
    EXPECT_EQ(combo->GetSelection(), 7);
    for (const OdCmEntityColor white : {OdCmEntityColor(255, 255, 255), indexColor(255)})
    {
        combo->setColor(indexColor(3));
        combo->setColor(white);
        EXPECT_EQ(combo->GetSelection(), 0);
        EXPECT_FALSE(combo->color());
    }
    EXPECT_EQ(combo->GetCount(), 9u);
    EXPECT_EQ(picks, 0);
}

TEST_F(ColorCombos, GivesOtherColoursAnEntryAtTheEnd)
{
    combo->setColor(indexColor(30));
    EXPECT_EQ(combo->GetSelection(), 9);
    EXPECT_EQ(combo->GetValue(), "Color 30");
    EXPECT_EQ(combo->color()->colorIndex(), 30);
    combo->setColor({1, 2, 3});
    EXPECT_EQ(combo->GetCount(), 10u);
    EXPECT_EQ(combo->GetValue(), "1,2,3");
    EXPECT_EQ(combo->color()->color(), 0xC2010203);
}

namespace
{

wxg::ColorPalette* paletteOf(wxDialog* dialog)
{
    for (wxWindow* child : dialog->GetChildren())
        if (auto* palette = dynamic_cast<wxg::ColorPalette*>(child))
            return palette;
    throw std::runtime_error("no palette");
}

void sendKey(wxWindow* window, int key)
{
    wxKeyEvent event(wxEVT_KEY_DOWN);
    event.m_keyCode = key;
    event.SetEventObject(window);
    window->GetEventHandler()->ProcessEvent(event);
}

void sendMouse(wxWindow* window, wxEventType type, const wxPoint& position)
{
    wxMouseEvent event(type);
    event.SetPosition(position);
    event.SetEventObject(window);
    window->GetEventHandler()->ProcessEvent(event);
}

} // namespace

TEST_F(ColorCombos, KeysOfTheClosedListStepOverTheChoice)
{
    show();
    combo->setColor(indexColor(6));
    press(combo, WXK_DOWN);
    EXPECT_TRUE(waitFor([this] { return combo->GetSelection() == 7; }));
    press(combo, WXK_DOWN);
    EXPECT_TRUE(waitFor([this] { return combo->GetSelection() == 7; }));
    EXPECT_EQ(picks, 1) << "there is nothing behind the choice";
    combo->setColor(indexColor(30));
    press(combo, WXK_UP);
    EXPECT_TRUE(waitFor([this] { return combo->GetSelection() == 7; }));
    press(combo, WXK_DOWN);
    EXPECT_TRUE(waitFor([this] { return combo->GetSelection() == 9; }));
}

TEST_F(ColorCombos, ThePaletteOfATrueColourBeginsAtTheFirstColour)
{
    combo->setColor({18, 52, 86});
    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            wxg::ColorPalette* palette = paletteOf(dialog);
            EXPECT_EQ(palette->index(), 0);
            sendKey(palette, WXK_RIGHT);
            EXPECT_EQ(palette->index(), 1);
            sendKey(palette, WXK_UP);
            sendKey(palette, WXK_RETURN);
        });
    pick(8);
    EXPECT_EQ(combo->color()->colorIndex(), 19);
    answers.run([](wxDialog* dialog) { sendKey(paletteOf(dialog), WXK_RETURN); });
    combo->setColor({18, 52, 86});
    pick(8);
    EXPECT_EQ(combo->color()->color(), 0xC2123456) << "Return confirms the colour that is shown";
}

TEST_F(ColorCombos, DrawsTheColour)
{
    show();
    combo->setColor(indexColor(1));
    EXPECT_TRUE(showsColour(combo, 0xFF0000));
    combo->setColor({18, 52, 86});
    EXPECT_TRUE(showsColour(combo, 0x123456));
    EXPECT_EQ(boundsOf(combo, 0x123456).GetSize(), wxSize(22, 10)) << "in a frame of a pixel";
    EXPECT_EQ(boundsOf(combo, 0x808080).GetSize(), wxSize(24, 12));
    combo->setVaries(true);
    EXPECT_TRUE(hidesColour(combo, 0x123456));
}

TEST_F(ColorCombos, ACancelledChoiceLeavesNoTrace)
{
    combo->setColor(indexColor(2));
    DialogAnswers answers;
    answers.press(wxID_CANCEL);
    pick(8);
    EXPECT_EQ(combo->GetSelection(), 2);
    EXPECT_EQ(picks, 0);
}

TEST_F(ColorCombos, AChosenColourIsPickedLikeAnEntry)
{
    combo->setColor({18, 52, 86});
    DialogAnswers answers;
    // The dialog starts with the current colour.
    answers.press(wxID_OK);
    pick(8);
    EXPECT_EQ(answers.shown().front().caption, "Color Control");
    EXPECT_EQ(picks, 1);
    ASSERT_TRUE(combo->color());
    EXPECT_EQ(combo->color()->color(), 0xC2123456);
}

TEST_F(ColorCombos, TheChoiceOffersEveryIndexColour)
{
    DialogAnswers answers;
    std::set<int> found;
    answers.run(
        [&found](wxDialog* dialog)
        {
            wxg::ColorPalette* palette = paletteOf(dialog);
            for (int y = 4; y < palette->GetSize().y; y += 6)
                for (int x = 4; x < palette->GetSize().x; x += 6)
                {
                    sendMouse(palette, wxEVT_LEFT_DOWN, wxPoint(x, y));
                    found.insert(palette->index());
                }
        });
    pick(8);
    found.erase(0);
    EXPECT_EQ(found.size(), 255u);
    EXPECT_EQ(*found.begin(), 1);
    EXPECT_EQ(*found.rbegin(), 255);
    EXPECT_EQ(picks, 0) << "the dialog was cancelled";
}

TEST_F(ColorCombos, ADoubleClickOnAnIndexColourPicksIt)
{
    DialogAnswers answers;
    answers.run([](wxDialog* dialog)
                { sendMouse(paletteOf(dialog), wxEVT_LEFT_DCLICK, wxPoint(4, 4)); });
    pick(8);
    EXPECT_EQ(picks, 1);
    EXPECT_EQ(combo->color()->colorIndex(), 18);
    EXPECT_EQ(combo->GetValue(), "Color 18");
}

TEST_F(ColorCombos, ArrowKeysAndReturnPickAnIndexColour)
{
    combo->setColor(indexColor(10));
    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            wxg::ColorPalette* palette = paletteOf(dialog);
            EXPECT_EQ(palette->index(), 10);
            for (const auto& [key, index] : {std::pair(WXK_RIGHT, 20),
                                             {WXK_UP, 22},
                                             {WXK_LEFT, 12},
                                             {WXK_LEFT, 12},
                                             {WXK_DOWN, 10},
                                             {WXK_DOWN, 11},
                                             {WXK_DOWN, 13},
                                             {WXK_DOWN, 15},
                                             {WXK_DOWN, 17},
                                             {WXK_DOWN, 19},
                                             {WXK_DOWN, 1},
                                             {WXK_DOWN, 250},
                                             {WXK_DOWN, 250}})
            {
                sendKey(palette, key);
                EXPECT_EQ(palette->index(), index);
            }
            sendKey(palette, WXK_RETURN);
        });
    pick(8);
    EXPECT_EQ(picks, 1);
    EXPECT_EQ(combo->color()->colorIndex(), 250);
}

TEST_F(ColorCombos, ATrueColourCanBeChosen)
{
    combo->setColor({18, 52, 86});
    DialogAnswers answers;
    answers.run(
        [](wxDialog* dialog)
        {
            for (wxWindow* child : dialog->GetChildren())
                if (wxControl::GetLabelText(child->GetLabel()) == "True Color...")
                {
                    wxCommandEvent event(wxEVT_BUTTON, child->GetId());
                    child->GetEventHandler()->ProcessEvent(event);
                }
            click(*dialog, wxID_OK);
        });
    answers.press(wxID_OK);
    pick(8);
    ASSERT_EQ(answers.shown().size(), 2u);
    EXPECT_EQ(answers.shown()[1].className, "wxColourDialog");
    EXPECT_EQ(combo->color()->color(), 0xC2123456);
}

TEST_F(Controls, ReplacedWindowsKeepPlaceNameAndOrder)
{
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    auto* old = new wxComboBox(panel, wxWindow::NewControlId());
    old->SetName("TheCombo");
    auto* next = new wxSpinCtrl(panel);
    sizer->Add(old);
    sizer->Add(next);
    panel->SetSizer(sizer);
    auto* replacement =
        new wxg::ImageCombo(panel, old->GetId(), old->GetPosition(), old->GetSize(), true);
    EXPECT_TRUE(wxg::replaceWnd(old, replacement));
    EXPECT_EQ(sizer->GetItem(size_t(0))->GetWindow(), replacement);
    EXPECT_EQ(replacement->GetName(), "TheCombo");
    old->Destroy();
    EXPECT_EQ(panel->GetChildren().front(), replacement);
    EXPECT_EQ(panel->GetChildren()[1], next);
    auto* loose = new wxSpinCtrl(panel);
    EXPECT_FALSE(wxg::replaceWnd(loose, new wxSpinCtrl(panel)));
}

TEST(DockStates, HaveTheHostsKeys)
{
    EXPECT_EQ(rightDockState.key, "RDOCK");
    EXPECT_EQ(leftDockState.key, "LDOCK");
}
