// The field of index colours: what it shows, and how keys move in it.

#include "support/gui_support.h"
#include "support/hands.h"
#include "support/image_colours.h"
#include "support/screen_image.h"

#include "odps/od_color.h"
#include "wxgui/color_dialog.h"
#include "wxgui/color_palette.h"

#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/settings.h>

namespace
{

constexpr int cell = 18;
constexpr int gap = 8;

/// A place of the field: its row, counted from above, and its column.
struct Place
{
    int row;
    int column;
};

// Where colours stand: the hues in their ten shades, and behind a gap each the first nine colours
// and the greys.
wxPoint cornerOf(Place place)
{
    return {place.column * cell, place.row * cell + std::max(0, place.row - 9) * gap};
}

class Palette : public testing::Test
{
protected:
    void SetUp() override
    {
        frame = new wxFrame(nullptr, wxID_ANY, "test", wxPoint(100, 100), wxSize(600, 400));
        auto* panel = new wxPanel(frame);
        before = new wxButton(panel, wxID_ANY, "before", wxPoint(10, 10));
        palette = new wxg::ColorPalette(panel);
        palette->SetPosition(wxPoint(50, 60));
        palette->Bind(wxg::EVT_COLOR_PICKED,
                      [this](wxCommandEvent& event) { picks.push_back(event.GetInt()); });
        palette->Bind(wxg::EVT_COLOR_CONFIRMED, [this](wxCommandEvent&) { ++confirmations; });
        frame->Show();
        ASSERT_TRUE(waitFor([this] { return palette->IsShownOnScreen(); }));
        // Without a window manager the keyboard belongs to the window under the pointer.
        const wxPoint inside = frame->GetScreenPosition() + wxPoint(590, 390);
        hands.moveTo({inside.x, inside.y});
    }
    void TearDown() override
    {
        frame->Destroy();
        waitFor([] { return wxPendingDelete.empty(); });
    }

    bool focus(wxWindow* window)
    {
        window->SetFocus();
        return waitFor([window] { return wxWindow::FindFocus() == window; });
    }

    /// The colour in a place of the field, given in pixels. That it is drawn anew is its own
    /// business.
    unsigned long rgbAt(wxPoint point) { return rgbOf(screenImage(*palette), point.x, point.y); }
    bool shows(wxPoint point, unsigned long rgb)
    {
        return waitFor([&] { return rgbAt(point) == rgb; });
    }
    bool showsRing(Place place, wxSystemColour colour)
    {
        const wxColour ring = wxSystemSettings::GetColour(colour);
        const auto rgb =
            static_cast<unsigned long>(ring.Red() << 16 | ring.Green() << 8 | ring.Blue());
        return shows(cornerOf(place) + wxPoint(cell / 2, 0), rgb);
    }

    void press(const char* chord) { hands.key(chord); }

    wxFrame* frame = nullptr;
    wxButton* before = nullptr;
    wxg::ColorPalette* palette = nullptr;
    std::vector<int> picks;
    int confirmations = 0;
    Hands hands;
};

} // namespace

TEST_F(Palette, ShowsEveryColourInItsPlace)
{
    EXPECT_EQ(palette->GetSize().x, 24 * cell);
    EXPECT_GE(palette->GetSize().y, 12 * cell + 2 * gap);
    const std::pair<Place, int> places[] = {
        {{0, 0}, 18},   {{4, 0}, 10}, {{5, 0}, 11}, {{9, 0}, 19},   {{0, 23}, 248},
        {{9, 23}, 249}, {{10, 0}, 1}, {{10, 8}, 9}, {{11, 0}, 250}, {{11, 5}, 255},
    };
    for (const auto& [place, index] : places)
        EXPECT_TRUE(
            shows(cornerOf(place) + wxPoint(cell / 2, cell / 2), OdCmEntityColor::lookUpRGB(index)))
            << index;
    const unsigned long paper = rgbAt(cornerOf({10, 20}));
    EXPECT_EQ(rgbAt(cornerOf({10, 9}) + wxPoint(9, 9)), paper);
    EXPECT_EQ(rgbAt(cornerOf({11, 6}) + wxPoint(9, 9)), paper);
    EXPECT_EQ(rgbAt(cornerOf({10, 0}) + wxPoint(9, -gap / 2)), paper) << "a gap";
}

TEST_F(Palette, RingsThePickedColour)
{
    ASSERT_TRUE(focus(before));
    palette->setIndex(18);
    EXPECT_TRUE(showsRing({0, 0}, wxSYS_COLOUR_WINDOWTEXT));
    ASSERT_TRUE(focus(palette));
    EXPECT_TRUE(showsRing({0, 0}, wxSYS_COLOUR_HIGHLIGHT));
    EXPECT_TRUE(shows(wxPoint(cell / 2, cell / 2), OdCmEntityColor::lookUpRGB(18)))
        << "and leaves its colour to be seen";
    palette->setIndex(250);
    EXPECT_TRUE(showsRing({11, 0}, wxSYS_COLOUR_HIGHLIGHT));
    // Without a picked colour the keys begin at the first one, which is only of use with the focus.
    palette->setIndex(0);
    EXPECT_TRUE(showsRing({10, 0}, wxSYS_COLOUR_HIGHLIGHT));
    ASSERT_TRUE(focus(before));
    EXPECT_TRUE(shows(cornerOf({10, 0}) + wxPoint(cell / 2, 0), rgbAt(cornerOf({10, 20}))));
    EXPECT_TRUE(picks.empty());
}

TEST_F(Palette, KeysGoToTheNeighbourAndStopAtTheEdges)
{
    ASSERT_TRUE(focus(palette));
    palette->setIndex(248);
    std::vector<int> expected;
    for (const auto& [key, index] :
         {std::pair("Up", 0), {"Right", 248}, {"Left", 238}, {"Down", 236}, {"Right", 246}})
    {
        press(key);
        if (index == 0)
            continue; // above the first row there is nothing
        expected.push_back(index);
        EXPECT_TRUE(waitFor([&] { return picks == expected; })) << key;
        EXPECT_EQ(palette->index(), index);
    }
    // The rows at the bottom are shorter.
    palette->setIndex(249);
    for (const auto& [key, index] :
         {std::pair("Down", 9), {"Right", 9}, {"Down", 255}, {"Right", 255}, {"Up", 6}})
    {
        press(key);
        expected.push_back(index);
        EXPECT_TRUE(waitFor([&] { return picks == expected; })) << key;
    }
    EXPECT_EQ(confirmations, 0);
    press("Return");
    EXPECT_TRUE(waitFor([this] { return confirmations == 1; }));
    press("KP_Enter");
    EXPECT_TRUE(waitFor([this] { return confirmations == 2; }));
    EXPECT_EQ(picks, expected);
}

TEST_F(Palette, TabLeavesItBothWays)
{
    DialogAnswers answers;
    answers.run(
        [this](wxDialog* dialog)
        {
            ASSERT_TRUE(waitFor([dialog] { return dialog->IsShownOnScreen(); }));
            const wxPoint inside = dialog->GetScreenPosition() + wxPoint(4, 4);
            hands.moveTo({inside.x, inside.y});
            const auto isOnField = []
            { return dynamic_cast<wxg::ColorPalette*>(wxWindow::FindFocus()) != nullptr; };
            ASSERT_TRUE(waitFor(isOnField));
            const auto focusIsOn = [](const wxString& label)
            {
                return waitFor(
                    [&]
                    {
                        const wxWindow* focused = wxWindow::FindFocus();
                        return focused && wxControl::GetLabelText(focused->GetLabel()) == label;
                    });
            };
            press("Tab");
            EXPECT_TRUE(focusIsOn("True Color..."));
            press("shift+Tab");
            EXPECT_TRUE(waitFor(isOnField));
            press("shift+Tab");
            EXPECT_TRUE(focusIsOn("OK")) << "the last one";
        });
    wxg::ColorDialog(frame, "Colors", wxg::indexColor(3)).ShowModal();
}

TEST_F(Palette, AClickPicksAndADoubleClickConfirms)
{
    ASSERT_TRUE(focus(before));
    const wxPoint black = palette->GetScreenPosition() + cornerOf({10, 6}) + wxPoint(9, 9);
    hands.click({black.x, black.y});
    EXPECT_TRUE(waitFor([this] { return picks == std::vector<int>{7}; }));
    EXPECT_EQ(confirmations, 0);
    EXPECT_EQ(wxWindow::FindFocus(), palette);
    const wxPoint other = palette->GetScreenPosition() + cornerOf({10, 5}) + wxPoint(9, 9);
    hands.click({other.x, other.y});
    hands.click({other.x, other.y});
    EXPECT_TRUE(waitFor([this] { return confirmations == 1; }));
    const std::vector<int> picked = picks;
    const wxPoint nothing = palette->GetScreenPosition() + cornerOf({11, 20}) + wxPoint(9, 9);
    hands.click({nothing.x, nothing.y});
    hands.key("Return");
    EXPECT_TRUE(waitFor([this] { return confirmations == 2; }));
    EXPECT_EQ(picks, picked);
}
