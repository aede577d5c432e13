// The embedded files: their registration, their types and what the toolkit makes of them.

#include "psl.h"
#include "support/gui_support.h"

#include <gtest/gtest.h>

#include <wx/bitmap.h>
#include <wx/filesys.h>
#include <wx/fs_mem.h>
#include <wx/image.h>
#include <wx/stream.h>

#include <memory>
#include <set>

namespace
{

const wxString head = "memory:XRC_resource/psl_xrc.inl$";
const wxString documentHead = "_Users_vorlund_dev_tag_tarnvale_res_";

std::vector<wxString> numbered(const wxString& format, int first, int last)
{
    std::vector<wxString> names;
    for (int i = first; i <= last; ++i)
        names.push_back(wxString::Format(format, i));
    return names;
}

std::vector<wxString> pictureFiles()
{
    std::vector<wxString> names{"ctb_48x48_depth32", "stb_48x48_depth32", "mark_check",
                                "mark_empty", "style_color_box"};
    for (const auto& name : numbered("style_linetype_%02d", 0, 30))
        names.push_back(name);
    for (const auto& name : numbered("style_lineweight_%02d", 1, 14))
        names.push_back(name);
    for (const char* name : {"butt", "square", "round", "diamond"})
        names.push_back(wxString("style_end_") + name);
    for (const char* name : {"miter", "bevel", "round", "diamond"})
        names.push_back(wxString("style_join_") + name);
    for (const char* name : {"solid", "checkerboard", "crosshatch", "diamonds", "horizontal_bars",
                             "slant_left", "slant_right", "square_dots", "vertical_bars"})
        names.push_back(wxString("style_fill_") + name);
    return names;
}

std::vector<wxString> bitmapNames()
{
    std::vector<wxString> names{"BmpCTB", "BmpSTB", "MarkCheck", "MarkEmpty", "BmpStyleColorBox"};
    for (const auto& name : numbered("BmpLineType%02d", 0, 30))
        names.push_back(name);
    for (const auto& name : numbered("BmpLineWeight%02d", 1, 14))
        names.push_back(name);
    for (const char* name :
         {"BmpEndStyleButt", "BmpEndStyleSquare", "BmpEndStyleRound", "BmpEndStyleDiamond",
          "BmpJoinStyleMiter", "BmpJoinStyleBevel", "BmpJoinStyleRound", "BmpJoinStyleDiamond",
          "BmpFillStyleSolid", "BmpFillStyleCheckerboard", "BmpFillStyleCrosshatch",
          "BmpFillStyleDiamonds", "BmpFillStyleHorizontalBars", "BmpFillStyleSlantLeft",
          "BmpFillStyleSlantRight", "BmpFillStyleSquareDots", "BmpFillStyleVerticalBars"})
        names.push_back(name);
    return names;
}

// The names of all files, without their common head, in the order of registration.
std::vector<wxString> registeredNames()
{
    std::vector<wxString> names{
        ".._.._.._ico_tarnvale_app_16.ico",
        documentHead + "locale_en-US_xrc_psl_dlg_new_table.xrc",
        ".._.._.._bitmaps_ctb_48x48_depth32.png",
        documentHead + "locale_en-US_xrc_psl_dlg_plot_style_editor.xrc",
        documentHead + "locale_en-US_xrc_psl_dlg_select_table.xrc",
    };
    for (const wxString& file : pictureFiles())
        names.push_back(".._bitmaps_" + file + ".png");
    names.push_back(documentHead + "xrc_psl_graphics.xrc");
    return names;
}

std::string contents(const wxString& name)
{
    const std::unique_ptr<wxFSFile> file(wxFileSystem().OpenFile(head + name));
    if (!file)
        return {};
    std::string bytes;
    for (int byte; (byte = file->GetStream()->GetC()) != wxEOF;)
        bytes.push_back(static_cast<char>(byte));
    return bytes;
}

class Resources : public testing::Test
{
protected:
    static void SetUpTestSuite() { InitPslXmlResource(); }
};

} // namespace

TEST_F(Resources, AreSeventyThreeFiles)
{
    const auto names = registeredNames();
    ASSERT_EQ(names.size(), 73u);
    for (const wxString& name : names)
        EXPECT_FALSE(contents(name).empty()) << name;
}

TEST_F(Resources, HaveTheMimeTypesOfTheirKinds)
{
    for (const wxString& name : registeredNames())
    {
        const std::unique_ptr<wxFSFile> file(wxFileSystem().OpenFile(head + name));
        ASSERT_NE(file, nullptr) << name;
        const wxString expected = name.EndsWith(".ico")   ? "image/vnd.microsoft.icon"
                                  : name.EndsWith(".png") ? "image/png"
                                                          : "text/xml";
        EXPECT_EQ(file->GetMimeType(), expected) << name;
    }
}

TEST_F(Resources, HoldTheColourDependentPictureTwice)
{
    EXPECT_EQ(contents(".._.._.._bitmaps_ctb_48x48_depth32.png"),
              contents(".._bitmaps_ctb_48x48_depth32.png"));
}

TEST_F(Resources, ProbeFileIsGone)
{
    const std::unique_ptr<wxFSFile> file(wxFileSystem().OpenFile("memory:XRC_resource/dummy_file"));
    EXPECT_EQ(file, nullptr);
}

TEST_F(Resources, NameEveryBitmap)
{
    const auto names = bitmapNames();
    ASSERT_EQ(names.size(), 67u);
    for (const wxString& name : names)
        EXPECT_TRUE(wxXmlResource::Get()->LoadBitmap(name).IsOk()) << name;
}

TEST_F(Resources, PicturesHaveTheSizesOfTheirPlaces)
{
    const auto size = [](const wxString& name)
    { return wxXmlResource::Get()->LoadBitmap(name).GetSize(); };
    EXPECT_EQ(size("BmpCTB"), wxSize(48, 48));
    EXPECT_EQ(size("BmpSTB"), wxSize(48, 48));
    EXPECT_EQ(size("MarkCheck"), wxSize(16, 16));
    EXPECT_EQ(size("MarkEmpty"), wxSize(16, 16));
    EXPECT_EQ(size("BmpStyleColorBox"), wxSize(14, 14));
    for (const wxString& name : numbered("BmpLineType%02d", 0, 30))
        EXPECT_EQ(size(name), wxSize(80, 6)) << name;
    for (const wxString& name : numbered("BmpLineWeight%02d", 1, 14))
        EXPECT_EQ(size(name), wxSize(80, 14)) << name;
}

TEST_F(Resources, ColourBoxHasAPureGreenField)
{
    const wxImage box = wxXmlResource::Get()->LoadBitmap("BmpStyleColorBox").ConvertToImage();
    int green = 0;
    for (int y = 0; y < box.GetHeight(); ++y)
        for (int x = 0; x < box.GetWidth(); ++x)
            green += box.GetRed(x, y) == 0 && box.GetGreen(x, y) == 255 && box.GetBlue(x, y) == 0;
    EXPECT_EQ(green, 12 * 12);
}

TEST_F(Resources, LineTypePicturesAllDiffer)
{
    std::set<std::string> pictures;
    for (const wxString& name : numbered("style_linetype_%02d", 0, 30))
        pictures.insert(contents(".._bitmaps_" + name + ".png"));
    EXPECT_EQ(pictures.size(), 31u);
}

TEST_F(Resources, AllDocumentsBuildTheirDialogs)
{
    for (const char* name : {"DlgNewTable", "DlgPlotStyleEditor", "DlgSelectTable"})
    {
        wxDialog dialog;
        EXPECT_TRUE(wxXmlResource::Get()->LoadDialog(&dialog, nullptr, name)) << name;
        EXPECT_TRUE(dialog.HasFlag(wxCAPTION)) << name;
        EXPECT_TRUE(dialog.HasFlag(wxRESIZE_BORDER)) << name;
        EXPECT_TRUE(dialog.HasFlag(wxSYSTEM_MENU)) << name;
        EXPECT_TRUE(dialog.HasFlag(wxCLOSE_BOX)) << name;
        EXPECT_TRUE(dialog.HasFlag(wxTAB_TRAVERSAL)) << name;
        EXPECT_TRUE(dialog.HasExtraStyle(wxWS_EX_BLOCK_EVENTS)) << name;
        EXPECT_EQ(dialog.GetIcons().GetIconCount(), 1u) << name;
    }
}

// A second registration is refused file by file, which shows the order of the first. It comes last:
// it loads the documents a second time.
TEST_F(Resources, ZRegisterInTheirOrder)
{
    ErrorLog log;
    InitPslXmlResource();
    std::vector<wxString> expected;
    for (const wxString& name : registeredNames())
        expected.push_back("Memory VFS already contains file 'XRC_resource/psl_xrc.inl$" + name +
                           "'!");
    EXPECT_EQ(log.messages(), expected);
}

TEST_F(Resources, ZInstallNoSecondMemoryFileSystem)
{
    ErrorLog log;
    wxFileSystem::CleanUpHandlers();
    auto* handler = new wxMemoryFSHandler;
    wxFileSystem::AddHandler(handler);
    InitPslXmlResource();
    const wxString name = registeredNames().front();
    EXPECT_FALSE(contents(name).empty());
    wxFileSystem::RemoveHandler(handler);
    EXPECT_TRUE(contents(name).empty()) << "another handler answers";
    wxFileSystem::AddHandler(handler);
}
