// The display names of property values, plain and translated.

#include "psl.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <wx/init.h>
#include <wx/translation.h>

#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{

struct Names
{
    wxString (*function)(int);
    int first;
    std::vector<const char*> names;
    const char* fallback;
};

const Names colors{
    strColor,
    0,
    {"Use entity color", "Red", "Yellow", "Green", "Cyan", "Blue", "Magenta", "Black"},
    "Color "};

const Names lineTypes{strLineType,
                      0,
                      {"Solid ",
                       "Dashed",
                       "Dotted",
                       "Dash Dot",
                       "Short Dash",
                       "Medium Dash",
                       "Long Dash",
                       "Short Dash x2",
                       "Medium Dash x2",
                       "Long Dash x2",
                       "Medium Long Dash",
                       "Medium Dash Short Dash Short Dash",
                       "Long Dash Short Dash",
                       "Long Dash Dot Dot",
                       "Long Dash Dot",
                       "Medium Dash Dot Short Dash Dot",
                       "Sparse Dot",
                       "ISO Dash",
                       "ISO Dash Space",
                       "ISO Long Dash Dot",
                       "ISO Long Dash Double Dot",
                       "ISO Long Dash Triple Dot",
                       "ISO Dot",
                       "ISO Long Dash Short Dash",
                       "ISO Long Dash Double Short Dash",
                       "ISO Dash Dot",
                       "ISO Double Dash Dot",
                       "ISO Dash Double Dot",
                       "ISO Double Dash Double Dot",
                       "ISO Dash Triple Dot",
                       "ISO Double Dash Triple Dot",
                       "Use entity linetype"},
                      "Line type "};

const Names endStyles{
    strEndStyle, 0, {"Butt", "Square", "Round", "Diamond", "Use entity end style"}, "End style "};

const Names joinStyles{
    strJoinStyle,
    0,
    {"Miter", "Bevel", "Round", "Diamond", "Join style 4", "Use entity join style"},
    "Join style "};

const Names fillStyles{strFillStyle,
                       64,
                       {"Solid  ", "Checkerboard", "Crosshatch", "Diamonds", "Horizontal Bars",
                        "Slant Left", "Slant Right", "Square Dots", "Vertical Bars",
                        "Use entity fill style"},
                       "Fill style "};

const Names allNames[] = {colors, lineTypes, endStyles, joinStyles, fillStyles};

class PropertyNames : public testing::TestWithParam<Names>
{
};

} // namespace

TEST_P(PropertyNames, NamesEveryKnownValue)
{
    int value = GetParam().first;
    for (const char* name : GetParam().names)
        EXPECT_EQ(GetParam().function(value++), name);
}

TEST_P(PropertyNames, NumbersEveryOtherValue)
{
    const int first = GetParam().first;
    const int last = first + static_cast<int>(GetParam().names.size()) - 1;
    for (const int value : {first - 1, last + 1, -1, -2, 1000, INT_MAX, INT_MIN})
        EXPECT_EQ(GetParam().function(value), GetParam().fallback + std::to_string(value));
}

INSTANTIATE_TEST_SUITE_P(All, PropertyNames, testing::ValuesIn(allNames));

TEST(PropertyNameBounds, AreTheseTexts)
{
    EXPECT_EQ(strColor(8), "Color 8");
    EXPECT_EQ(strColor(-1), "Color -1");
    EXPECT_EQ(strLineType(0), "Solid ");
    EXPECT_EQ(strLineType(32), "Line type 32");
    EXPECT_EQ(strJoinStyle(4), "Join style 4");
    EXPECT_EQ(strJoinStyle(5), "Use entity join style");
    EXPECT_EQ(strFillStyle(0), "Fill style 0");
    EXPECT_EQ(strFillStyle(64), "Solid  ");
    EXPECT_EQ(strFillStyle(74), "Fill style 74");
}

TEST(PropertyNameTranslation, CoversNamesAndFallbacks)
{
    const support::TempFolder folder;
    std::filesystem::create_directories(folder / "de/LC_MESSAGES");
    support::writeFile(folder / "de.po",
                       "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                       "msgid \"Red\"\nmsgstr \"Rot\"\n"
                       "msgid \"Solid \"\nmsgstr \"Durchgezogen\"\n"
                       "msgid \"Solid  \"\nmsgstr \"Gefüllt\"\n"
                       "msgid \"Color %d\"\nmsgstr \"Farbe %d\"\n"
                       "msgid \"Line type %d\"\nmsgstr \"Linientyp %d\"\n"
                       "msgid \"End style %d\"\nmsgstr \"Ende %d\"\n"
                       "msgid \"Join style %d\"\nmsgstr \"Ecke %d\"\n"
                       "msgid \"Fill style %d\"\nmsgstr \"Füllung %d\"\n");
    const std::string command = "msgfmt -o '" + (folder / "de/LC_MESSAGES/names.mo").string() +
                                "' '" + (folder / "de.po").string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);

    const wxInitializer toolkit;
    wxFileTranslationsLoader::AddCatalogLookupPathPrefix(
        wxString::FromUTF8(folder.path().string()));
    auto* translations = new wxTranslations;
    wxTranslations::Set(translations);
    translations->SetLanguage("de");
    ASSERT_TRUE(translations->AddCatalog("names"));

    EXPECT_EQ(strColor(1), "Rot");
    EXPECT_EQ(strColor(2), "Yellow") << "a text that the catalogue lacks";
    EXPECT_EQ(strLineType(0), "Durchgezogen");
    EXPECT_EQ(strFillStyle(64), wxString::FromUTF8("Gefüllt"));
    EXPECT_EQ(strColor(8), "Farbe 8");
    EXPECT_EQ(strLineType(-1), "Linientyp -1");
    EXPECT_EQ(strEndStyle(5), "Ende 5");
    EXPECT_EQ(strJoinStyle(4), "Ecke 4");
    EXPECT_EQ(strFillStyle(0), wxString::FromUTF8("Füllung 0"));
    wxTranslations::Set(nullptr);
}
