// The editor's fields for the properties of the selected styles.

#include "support/editor_driver.h"
#include "support/tables.h"

#include "wxgui/color_combo.h"
#include "wxgui/color_dialog.h"
#include "wxgui/image_combo.h"

#include <wx/combobox.h>
#include <wx/frame.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <tuple>

namespace
{

using Lines = std::vector<std::string>;
using Rows = std::vector<int>;
using Data = OdPsPlotStyleData;

// What the fields show when no style is selected.
const Shown ofNoStyle = {
    {"TextStyleDescr", ""},
    {"ComboColor", "Use entity color"},
    {"CheckDither", "checked"},
    {"CheckGrayscale", "unchecked"},
    {"SpinPhysPen", "Automatic"},
    {"SpinVirtPen", "Automatic"},
    {"SpinScreening", "100"},
    {"ComboLineType", "Use entity linetype"},
    {"CheckAdaptive", "checked"},
    {"ComboLineWeight", "Use object lineweight"},
    {"ComboEndStyle", "Use entity end style"},
    {"ComboJoinStyle", "Use entity join style"},
    {"ComboFillStyle", "Use entity fill style"},
};

const Shown ofADefaultStyle =
    with(ofNoStyle, {{"CheckDither", "unchecked"}, {"CheckAdaptive", "unchecked"}});

// A property: its control, an input of the user and what it makes of a style.
struct Property
{
    const char* control;
    int input;
    void (*change)(Data&);
    /// What the control shows then.
    const char* shown;
    /// The lines that the change of a coloured style leaves in a file.
    Lines lines;
};

void PrintTo(const Property& property, std::ostream* out)
{
    *out << property.control;
}

const std::vector<Property> properties = {
    {"ComboColor",
     1,
     [](Data& data)
     {
         data.color = OdCmEntityColor(255, 0, 0);
         data.colorPolicy = 4;
     },
     "Red",
     {"color=-1006698496", "mode_color=-1006698496"}},
    {"CheckDither", 1, [](Data& data) { data.colorPolicy = 1; }, "checked", {"color_policy=5"}},
    {"CheckGrayscale", 1, [](Data& data) { data.colorPolicy = 2; }, "checked", {"color_policy=2"}},
    {"SpinPhysPen",
     32,
     [](Data& data) { data.physicalPenNumber = 32; },
     "32",
     {"physical_pen_number=32"}},
    {"SpinVirtPen",
     255,
     [](Data& data) { data.virtualPenNumber = 255; },
     "255",
     {"virtual_pen_number=255"}},
    {"SpinScreening", 40, [](Data& data) { data.screening = 40; }, "40", {"screen=40"}},
    {"ComboLineType", 1, [](Data& data) { data.linetype = 0; }, "Solid ", {"linetype=0"}},
    {"CheckAdaptive",
     1,
     [](Data& data) { data.adaptiveLinetype = true; },
     "checked",
     {"adaptive_linetype=TRUE"}},
    {"ComboLineWeight", 3, [](Data& data) { data.lineweight = 3; }, "0.0900 mm", {"lineweight=3"}},
    {"ComboEndStyle", 4, [](Data& data) { data.endStyle = 3; }, "Diamond", {"end_style=3"}},
    {"ComboJoinStyle", 2, [](Data& data) { data.joinStyle = 1; }, "Bevel", {"join_style=1"}},
    {"ComboFillStyle",
     9,
     [](Data& data) { data.fillStyle = 72; },
     "Vertical Bars",
     {"fill_style=72"}},
};

// Gives a style values of its own in every property, none of which the inputs above give.
void makeColoured(Data& data)
{
    data.color = OdCmEntityColor(10, 20, 30);
    data.colorPolicy = 4;
    data.screening = 90;
    data.physicalPenNumber = 1;
    data.virtualPenNumber = 2;
    data.linetype = 7;
    data.fillStyle = 70;
    data.endStyle = 2;
    data.joinStyle = 2;
    data.linePatternSize = 0.5;
    data.lineweight = 9;
}

OdPsPlotStyleTablePtr coloured(OdPsPlotStyleTablePtr table)
{
    for (int i = 0; i < table->styleCount(); ++i)
        support::changeData(*table, i, makeColoured);
    return table;
}

class StyleFields : public EditorDriverTest
{
protected:
    // Opens a named table of default styles A, B and C, the first of which is changed.
    EditorDriver& openWith(void (*changeA)(Data&), void (*changeB)(Data&) = nullptr)
    {
        const OdPsPlotStyleTablePtr table = namedTable({L"A", L"B", L"C"});
        support::changeData(*table, 1, changeA);
        if (changeB)
            support::changeData(*table, 2, changeB);
        return open(table);
    }

    // Shows the fields of style A on the screen.
    void showFields(const std::function<void(EditorDriver&)>& script)
    {
        show(namedTable({L"A", L"B"}),
             [&script](EditorDriver& editor)
             {
                 editor.select({1});
                 updateUi(editor.dialog());
                 script(editor);
             });
    }
};

// The same with every property.
class EveryProperty : public StyleFields, public testing::WithParamInterface<Property>
{
};

// Every property with selections of styles in both kinds of table.
struct Selection
{
    const char* name;
    bool colorDependent;
    Rows rows;
    /// The styles that a change reaches.
    Rows changed;
};

void PrintTo(const Selection& selection, std::ostream* out)
{
    *out << selection.name;
}

const std::vector<Selection> selections = {
    {"OneNamedStyle", false, {2}, {2}},
    {"SeveralNamedStyles", false, {1, 2, 3}, {1, 2, 3}},
    {"NormalAndTwoNamedStyles", false, {0, 1, 3}, {1, 3}},
    {"Color1", true, {0}, {0}},
    {"SeveralColors", true, {0, 9, 254}, {0, 9, 254}},
};

class EverySavedProperty : public StyleFields,
                           public testing::WithParamInterface<std::tuple<Property, Selection>>
{
};

Lines linesOf(const Property& property, const Rows& styles)
{
    Lines lines;
    for (const int style : styles)
        for (const std::string& line : property.lines)
            lines.push_back("plot_style/" + std::to_string(style) + "/" + line);
    return lines;
}

} // namespace

// --- What the fields show ----------------------------------------------------------------------

TEST_F(StyleFields, ShowTheUsualValuesWithoutASelection)
{
    EditorDriver& editor = open(coloured(namedTable({L"A"})));
    EXPECT_EQ(editor.fields(), ofNoStyle);
    editor.select({1});
    EXPECT_NE(editor.fields(), ofNoStyle);
    editor.select({});
    EXPECT_EQ(editor.fields(), ofNoStyle);
}

TEST_F(StyleFields, FollowEveryChangeOfTheSelection)
{
    const OdPsPlotStyleTablePtr table = namedTable({L"A", L"B", L"A again"});
    for (const int style : {1, 3})
    {
        support::changeData(*table, style, makeColoured);
        table->styleAt(style)->setDescription(L"thin");
    }
    support::changeData(*table, 2,
                        [](Data& data)
                        {
                            data.colorPolicy = 3;
                            data.adaptiveLinetype = true;
                            data.endStyle = 1;
                            data.joinStyle = 0;
                            data.screening = 7;
                        });
    const Shown ofA = {{"TextStyleDescr", "thin"},
                       {"ComboColor", "10,20,30"},
                       {"CheckDither", "unchecked"},
                       {"CheckGrayscale", "unchecked"},
                       {"SpinPhysPen", "1"},
                       {"SpinVirtPen", "2"},
                       {"SpinScreening", "90"},
                       {"ComboLineType", "Short Dash x2"},
                       {"CheckAdaptive", "unchecked"},
                       {"ComboLineWeight", "0.2500 mm"},
                       {"ComboEndStyle", "Round"},
                       {"ComboJoinStyle", "Round"},
                       {"ComboFillStyle", "Slant Right"}};
    const Shown ofB = with(ofADefaultStyle, {{"CheckDither", "checked"},
                                             {"CheckGrayscale", "checked"},
                                             {"CheckAdaptive", "checked"},
                                             {"SpinScreening", "7"},
                                             {"ComboEndStyle", "Square"},
                                             {"ComboJoinStyle", "Miter"}});
    Shown ofBoth = {{"TextStyleDescr", ""}, {"SpinScreening", "0"}};
    for (const char* name : {"CheckDither", "CheckGrayscale", "CheckAdaptive"})
        ofBoth[name] = "undetermined";
    for (const char* name :
         {"ComboColor", "SpinPhysPen", "SpinVirtPen", "ComboLineType", "ComboLineWeight",
          "ComboEndStyle", "ComboJoinStyle", "ComboFillStyle"})
        ofBoth[name] = "Varies";

    EditorDriver& editor = open(table);
    const std::pair<Rows, Shown> steps[] = {
        {{1}, ofA}, {{1, 3}, ofA},   {{1, 2, 3}, ofBoth},    {{2, 3}, ofBoth},
        {{2}, ofB}, {{}, ofNoStyle}, {{0}, ofADefaultStyle}, {{3, 2}, ofBoth},
        {{3}, ofA}, {{}, ofNoStyle},
    };
    for (const auto& [rows, expected] : steps)
    {
        editor.select(rows);
        EXPECT_EQ(editor.fields(), expected) << testing::PrintToString(rows);
    }
}

TEST_P(EveryProperty, ShowsTheValueOfOneStyle)
{
    EditorDriver& editor = openWith(GetParam().change);
    editor.select({1});
    EXPECT_EQ(editor.fields(), with(ofADefaultStyle, {{GetParam().control, GetParam().shown}}));
}

TEST_P(EveryProperty, ShowsTheCommonValueOfEqualStyles)
{
    EditorDriver& editor = openWith(GetParam().change, GetParam().change);
    editor.select({1, 2});
    EXPECT_EQ(editor.fields(), with(ofADefaultStyle, {{GetParam().control, GetParam().shown}}));
}

TEST_P(EveryProperty, VariesAloneWhenItAloneDiffers)
{
    EditorDriver& editor = openWith(GetParam().change);
    const std::string name = GetParam().control;
    const std::string differing = name == "SpinScreening"   ? "0"
                                  : name.find("Check") == 0 ? "undetermined"
                                                            : "Varies";
    for (const Rows& rows : {Rows{1, 2}, Rows{2, 1}, Rows{1, 2, 3}})
    {
        editor.select(rows);
        EXPECT_EQ(editor.fields(), with(ofADefaultStyle, {{name, differing}}));
    }
    editor.select({2, 3});
    EXPECT_EQ(editor.fields(), ofADefaultStyle);
}

TEST_F(StyleFields, ShowTheCommonDescriptionOrNone)
{
    const OdPsPlotStyleTablePtr table = namedTable({L"A", L"B", L"C"});
    table->styleAt(1)->setDescription(L"thin");
    table->styleAt(2)->setDescription(L"thin");
    table->styleAt(3)->setDescription(L"Thin");
    EditorDriver& editor = open(table);
    const std::pair<Rows, std::string> cases[] = {{{1}, "thin"},   {{1, 2}, "thin"}, {{1, 3}, ""},
                                                  {{1, 2, 3}, ""}, {{3}, "Thin"},    {{0}, ""}};
    for (const auto& [rows, description] : cases)
    {
        editor.select(rows);
        EXPECT_EQ(editor.shown("TextStyleDescr"), description) << testing::PrintToString(rows);
    }
}

TEST_F(StyleFields, ShowZeroForDifferingScreenings)
{
    EditorDriver& editor = openWith([](Data& data) { data.screening = 30; });
    editor.select({1, 2});
    EXPECT_EQ(find<wxSpinCtrl>(editor.dialog(), "SpinScreening")->GetValue(), 0);
    EXPECT_EQ(editor.fields()["SpinScreening"], "0");
}

TEST_F(StyleFields, ShowAWordForPensWithoutANumber)
{
    EditorDriver& editor = openWith(
        [](Data& data)
        {
            data.physicalPenNumber = 3;
            data.virtualPenNumber = 4;
        });
    const struct
    {
        Rows rows;
        const char* physical;
        const char* virtualPen;
    } cases[] = {{{1}, "3", "4"},
                 {{2}, "Automatic", "Automatic"},
                 {{2, 3}, "Automatic", "Automatic"},
                 {{1, 2}, "Varies", "Varies"},
                 {{1}, "3", "4"}};
    for (const auto& c : cases)
    {
        editor.select(c.rows);
        const Shown fields = editor.fields();
        EXPECT_EQ(fields.at("SpinPhysPen"), c.physical);
        EXPECT_EQ(fields.at("SpinVirtPen"), c.virtualPen);
    }
}

TEST_F(StyleFields, ShowVaryingPensUntilThePenIsChanged)
{
    for (const char* pen : {"SpinPhysPen", "SpinVirtPen"})
    {
        EditorDriver& editor = openWith(
            [](Data& data)
            {
                data.physicalPenNumber = 3;
                data.virtualPenNumber = 4;
            });
        editor.select({1, 2});
        const Shown before = editor.fields();
        editor.set(pen, 0);
        EXPECT_EQ(editor.fields(), with(before, {{pen, "Automatic"}}));
        editor.set(pen, 9);
        EXPECT_EQ(editor.fields(), with(before, {{pen, "9"}}));
    }
}

TEST_F(StyleFields, LeaveTheColourFieldOnItsFirstEntryWhenColoursDiffer)
{
    EditorDriver& editor = openWith([](Data& data) { data.color = OdCmEntityColor(255, 0, 0); });
    const auto* combo = find<wxg::ColorCombo>(editor.dialog(), "ComboColor");
    editor.select({1});
    EXPECT_EQ(combo->GetSelection(), 1);
    editor.select({1, 2});
    EXPECT_EQ(combo->GetSelection(), 0);
    EXPECT_TRUE(combo->varies());
    editor.select({2});
    EXPECT_EQ(combo->GetSelection(), 0);
    EXPECT_FALSE(combo->varies());
}

TEST_F(StyleFields, ShowColoursByIndexWhereAnIndexHasThemExactly)
{
    const struct
    {
        OdCmEntityColor color;
        const char* shown;
    } cases[] = {
        {{255, 0, 0}, "Red"},         {{255, 255, 0}, "Yellow"},
        {{255, 0, 255}, "Magenta"},   {{0, 0, 0}, "Black"},
        {{255, 63, 0}, "Color 20"},   {{214, 214, 214}, "Color 254"},
        {{128, 128, 128}, "Color 8"}, {{254, 0, 0}, "254,0,0"},
        {{0, 0, 1}, "0,0,1"},         {{255, 255, 254}, "255,255,254"},
    };
    const OdPsPlotStyleTablePtr table = colorTable();
    int style = 0;
    for (const auto& c : cases)
        support::changeData(*table, style++, [&c](Data& data) { data.color = c.color; });
    EditorDriver& editor = open(table);
    const auto* combo = find<wxg::ColorCombo>(editor.dialog(), "ComboColor");
    style = 0;
    for (const auto& c : cases)
    {
        editor.select({style++});
        EXPECT_EQ(editor.shown("ComboColor"), c.shown);
        ASSERT_TRUE(combo->color()) << c.shown;
        const bool isIndex = combo->color()->colorMethod() == OdCmEntityColor::kByACI;
        const int index = combo->color()->colorIndex();
        EXPECT_EQ(isIndex ? OdCmEntityColor::lookUpRGB(index) : combo->color()->color() & 0xFFFFFF,
                  c.color.color() & 0xFFFFFF);
    }
}

TEST_F(StyleFields, SelectTheSeventhEntryForBlack)
{
    EditorDriver& editor = openWith([](Data& data) { data.color = OdCmEntityColor(0, 0, 0); });
    editor.select({1});
    EXPECT_EQ(find<wxg::ColorCombo>(editor.dialog(), "ComboColor")->GetSelection(), 7);
}

TEST_F(StyleFields, ShowTheObjectsLineweightForAStyleThatUsesIt)
{
    EditorDriver& editor = openWith([](Data& data) { data.lineweight = -1.0; },
                                    [](Data& data) { data.lineweight = 0.0; });
    const auto* combo = find<wxg::ImageCombo>(editor.dialog(), "ComboLineWeight");
    for (const Rows& rows : {Rows{1}, Rows{2}, Rows{1, 2}})
    {
        editor.select(rows);
        EXPECT_EQ(combo->value(), 0);
        EXPECT_EQ(combo->GetSelection(), 0);
        EXPECT_FALSE(combo->varies());
    }
}

TEST_F(StyleFields, GiveTheCombosOfDifferingStylesAReservedValue)
{
    constexpr int differs = -3;
    EditorDriver& editor = openWith(makeColoured);
    editor.select({1, 2});
    for (const char* name :
         {"ComboLineType", "ComboLineWeight", "ComboEndStyle", "ComboJoinStyle", "ComboFillStyle"})
    {
        const auto* combo = find<wxg::ImageCombo>(editor.dialog(), name);
        EXPECT_EQ(combo->value(), differs) << name;
        EXPECT_EQ(combo->GetSelection(), wxNOT_FOUND) << name;
    }
}

// A combo box is blank for a value that it does not list; a number is held to the spin's range.
TEST_F(StyleFields, ShowValuesOutsideTheListsWithoutChangingThem)
{
    EditorDriver& editor = openWith(
        [](Data& data)
        {
            data.linetype = 40;
            data.endStyle = 9;
            data.joinStyle = 4;
            data.fillStyle = 80;
            data.lineweight = 40;
            data.physicalPenNumber = 200;
            data.virtualPenNumber = 300;
            data.screening = 150;
        });
    editor.select({1});
    const Shown expected = with(ofADefaultStyle, {{"ComboLineType", ""},
                                                  {"ComboEndStyle", ""},
                                                  {"ComboJoinStyle", ""},
                                                  {"ComboFillStyle", ""},
                                                  {"ComboLineWeight", ""},
                                                  {"SpinPhysPen", "32"},
                                                  {"SpinVirtPen", "255"},
                                                  {"SpinScreening", "100"}});
    EXPECT_EQ(editor.fields(), expected);
    EXPECT_EQ(find<wxg::ImageCombo>(editor.dialog(), "ComboLineType")->value(), 40);
    EXPECT_EQ(find<wxg::ImageCombo>(editor.dialog(), "ComboLineWeight")->value(), 40);
    EXPECT_FALSE(isModified());
    editor.select({1});
    editor.set("CheckDither", 1);
    save();
    EXPECT_EQ(savedChanges(), Lines{"plot_style/1/color_policy=1"});
}

TEST_F(StyleFields, ShowNegativeNumbersAsTheSmallestOfTheRange)
{
    EditorDriver& editor = openWith([](Data& data) { data.screening = -5; });
    editor.select({1});
    EXPECT_EQ(editor.fields()["SpinScreening"], "0");
}

// --- Enabling ----------------------------------------------------------------------------------

TEST_F(StyleFields, AreEnabledForStylesThatCanBeEdited)
{
    const struct
    {
        bool colorDependent;
        Rows rows;
        bool enabled;
    } cases[] = {
        {false, {}, false}, {false, {0}, false}, {false, {1}, true},   {false, {0, 1}, true},
        {true, {}, false},  {true, {0}, true},   {true, {0, 9}, true},
    };
    for (const auto& c : cases)
    {
        EditorDriver& editor = open(c.colorDependent ? colorTable() : namedTable({L"A"}));
        editor.select(c.rows);
        for (const char* name : propertyControls)
            EXPECT_EQ(editor.isEnabled(name), c.enabled)
                << name << " " << testing::PrintToString(c.rows);
    }
}

TEST_F(StyleFields, AreDisabledWithoutATable)
{
    store("no table", "ctb");
    answers.press(wxID_OK);
    EditorDriver& editor = open();
    for (const char* name : propertyControls)
    {
        EXPECT_FALSE(editor.isEnabled(name)) << name;
        editor.force(name, 1);
    }
    EXPECT_FALSE(isModified());
}

// --- Changing ----------------------------------------------------------------------------------

TEST_P(EverySavedProperty, ChangesInTheSelectedStylesAndNothingElseInTheFile)
{
    const auto& [property, selection] = GetParam();
    EditorDriver& editor =
        open(coloured(selection.colorDependent ? colorTable() : namedTable({L"A", L"B", L"C"})));
    editor.select(selection.rows);
    editor.set(property.control, property.input);
    EXPECT_EQ(editor.shown(property.control), property.shown);
    save();
    EXPECT_EQ(savedChanges(), linesOf(property, selection.changed));
}

TEST_P(EveryProperty, ChangesNothingInNormal)
{
    EditorDriver& editor = openWith(makeColoured);
    editor.select({0});
    editor.force(GetParam().control, GetParam().input);
    EXPECT_TRUE(isModified()) << "the table counts as modified all the same";
    save();
    EXPECT_EQ(savedChanges(), Lines{});
}

TEST_P(EveryProperty, ChangesNothingWithoutASelection)
{
    EditorDriver& editor = openWith(makeColoured);
    editor.select({});
    editor.force(GetParam().control, GetParam().input);
    EXPECT_FALSE(isModified());
}

TEST_P(EveryProperty, ChangesNothingFromAnotherPage)
{
    EditorDriver& editor = openWith(makeColoured);
    editor.select({1});
    editor.turnTo(EditorDriver::General);
    editor.force(GetParam().control, GetParam().input);
    EXPECT_FALSE(isModified());
}

TEST_P(EveryProperty, EndsToVaryWithAChange)
{
    EditorDriver& editor = openWith(makeColoured);
    editor.select({1, 2});
    const Shown before = editor.fields();
    editor.set(GetParam().control, GetParam().input);
    const Shown expected = with(before, {{GetParam().control, GetParam().shown}});
    EXPECT_EQ(editor.fields(), expected);
    editor.select({});
    editor.select({1, 2});
    EXPECT_EQ(editor.fields(), expected) << "as gathered from the styles anew";
}

INSTANTIATE_TEST_SUITE_P(, EveryProperty, testing::ValuesIn(properties),
                         [](const auto& test) { return test.param.control; });

INSTANTIATE_TEST_SUITE_P(
    , EverySavedProperty,
    testing::Combine(testing::ValuesIn(properties), testing::ValuesIn(selections)),
    [](const auto& test)
    { return std::string(std::get<0>(test.param).control) + "Of" + std::get<1>(test.param).name; });

TEST_F(StyleFields, GiveBackTheObjectsOwnProperties)
{
    EditorDriver& editor = openWith(makeColoured);
    editor.select({1});
    for (const char* name : {"ComboColor", "ComboLineType", "ComboLineWeight", "ComboEndStyle",
                             "ComboJoinStyle", "ComboFillStyle"})
        editor.set(name, 0);
    save();
    OdPsPlotStyleData expected;
    makeColoured(expected);
    expected.color = OdCmEntityColor();
    expected.colorPolicy = 0;
    expected.linetype = 31;
    expected.lineweight = -1.0;
    expected.endStyle = 4;
    expected.joinStyle = 5;
    expected.fillStyle = 73;
    EXPECT_TRUE(savedData(1) == expected);
}

TEST_F(StyleFields, StoreIndexColoursAsTheirRgb)
{
    EditorDriver& editor = open(colorTable());
    for (int entry = 1; entry <= 7; ++entry)
    {
        editor.select({entry});
        editor.set("ComboColor", entry);
    }
    save();
    const std::uint32_t colours[] = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF,
                                     0x0000FF, 0xFF00FF, 0x000000};
    for (int entry = 1; entry <= 7; ++entry)
    {
        EXPECT_EQ(savedData(entry).color.color(), 0xC2000000 | colours[entry - 1]);
        EXPECT_EQ(savedData(entry).colorPolicy, 4);
    }
}

TEST_F(StyleFields, ClearAndRestoreTheExplicitColourFlagByGrayscale)
{
    const struct
    {
        const char* name;
        OdCmEntityColor color;
        std::int16_t before;
        std::int16_t gray;
        std::int16_t after;
    } cases[] = {{"red", {255, 0, 0}, 4, 2, 4},
                 {"dithered red", {255, 0, 0}, 5, 3, 5},
                 {"object's colour", {}, 0, 2, 0},
                 {"dithered object's colour", {}, 1, 3, 1}};
    for (const auto& c : cases)
        for (const bool isGray : {true, false})
        {
            const OdPsPlotStyleTablePtr table = namedTable({L"A"});
            support::changeData(*table, 1,
                                [&c](Data& data)
                                {
                                    data.color = c.color;
                                    data.colorPolicy = c.before;
                                });
            EditorDriver& editor = open(table);
            editor.select({1});
            editor.set("CheckGrayscale", 1);
            if (!isGray)
                editor.set("CheckGrayscale", 0);
            save();
            EXPECT_EQ(savedData(1).colorPolicy, isGray ? c.gray : c.after) << c.name;
            EXPECT_EQ(savedData(1).color, c.color) << c.name;
        }
}

TEST_F(StyleFields, KeepTheExplicitColourFlagClearWhileGrayscaleIsOn)
{
    EditorDriver& editor = openWith([](Data& data) { data.colorPolicy = 2; });
    editor.select({1});
    editor.set("ComboColor", 1);
    save();
    EXPECT_EQ(savedData(1).colorPolicy, 2);
    EXPECT_EQ(savedData(1).color.color(), 0xC2FF0000u);
}

// The first state that a click gives a box of differing styles is unchecked.
TEST_F(StyleFields, ClearTheFlagsOfDifferingStyles)
{
    EditorDriver& editor = openWith(
        [](Data& data)
        {
            data.colorPolicy = 1;
            data.adaptiveLinetype = true;
        });
    editor.select({1, 2});
    editor.set("CheckDither", 0);
    editor.set("CheckAdaptive", 0);
    save();
    EXPECT_EQ(savedChanges(),
              (Lines{"plot_style/1/color_policy=0", "plot_style/1/adaptive_linetype=FALSE"}));
}

// An event of a control that belongs to no property writes every selected style as it is.
TEST_F(StyleFields, TakeTheEventsOfOtherControlsForAModification)
{
    EditorDriver& editor = open(coloured(namedTable({L"A"})));
    editor.select({1});
    editor.force("CheckScale", 0);
    EXPECT_TRUE(isModified());
    save();
    EXPECT_EQ(savedChanges(), Lines{});
}

TEST_F(StyleFields, DoNotStoreTheShownDescription)
{
    const OdPsPlotStyleTablePtr table = namedTable({L"A"});
    table->styleAt(1)->setDescription(L"as it was");
    EditorDriver& editor = open(table);
    editor.select({1});
    find<wxTextCtrl>(editor.dialog(), "TextStyleDescr")->SetValue("typed");
    editor.set("SpinScreening", 10);
    save();
    EXPECT_EQ(savedTable()->styleAt(1)->description(), L"as it was");
}

TEST_F(StyleFields, ReachSeveralSelectionsOneAfterAnother)
{
    EditorDriver& editor = open(namedTable({L"A", L"B", L"C"}));
    editor.select({1});
    editor.set("SpinScreening", 10);
    editor.select({1, 2});
    editor.set("SpinPhysPen", 5);
    editor.select({3});
    editor.set("ComboEndStyle", 1);
    save();
    EXPECT_EQ(savedChanges(),
              (Lines{"plot_style/1/physical_pen_number=5", "plot_style/1/screen=10",
                     "plot_style/2/physical_pen_number=5", "plot_style/3/end_style=0"}));
}

TEST_F(StyleFields, StoreAColourThatWasAskedFor)
{
    constexpr int selectEntry = 8;
    EditorDriver& editor = openWith([](Data& data) { data.color = OdCmEntityColor(18, 52, 86); });
    editor.select({1});
    // The dialog starts with the style's colour; the style learns that it is explicit.
    answers.press(wxID_OK);
    editor.set("ComboColor", selectEntry);
    EXPECT_EQ(editor.shown("ComboColor"), "18,52,86");
    save();
    EXPECT_EQ(savedChanges(), Lines{"plot_style/1/color_policy=4"});
}

// Giving up the choice of a colour must show the colour of the styles that are selected now.
TEST_F(StyleFields, ShowTheStylesColourAfterAChoiceThatWasGivenUp)
{
    constexpr int selectEntry = 8;
    EditorDriver& editor = openWith([](Data& data) { data.color = OdCmEntityColor(255, 0, 0); },
                                    [](Data& data) { data.color = OdCmEntityColor(0, 0, 0); });
    for (const int style : {2, 3})
    {
        editor.select({1});
        editor.select({style});
        const std::string before = editor.shown("ComboColor");
        answers.press(wxID_CANCEL);
        editor.set("ComboColor", selectEntry);
        EXPECT_EQ(editor.shown("ComboColor"), before);
    }
    EXPECT_FALSE(isModified());
}

// --- On the screen -----------------------------------------------------------------------------

namespace
{

// Types a number into a pen and leaves the focus there.
void typePen(EditorDriver& editor, const char* pen, const char* number)
{
    auto* spin = find<wxSpinCtrl>(editor.dialog(), pen);
    typeInto(spin, number);
    EXPECT_TRUE(waitFor([spin, number] { return spin->GetTextValue() == number; }))
        << spin->GetTextValue();
}

} // namespace

TEST_F(StyleFields, TakeATypedPenForTheWord)
{
    for (const char* pen : {"SpinPhysPen", "SpinVirtPen"})
        showFields([pen](EditorDriver& editor) { typePen(editor, pen, "12"); });
}

// The second click falls into the selected word.
TEST_F(StyleFields, TakeATypedPenForTheWordThatWasClicked)
{
    showFields(
        [](EditorDriver& editor)
        {
            auto* spin = find<wxSpinCtrl>(editor.dialog(), "SpinPhysPen");
            int clicks = 0;
            const auto count = [spin, &clicks](wxMouseEvent& event)
            {
                event.Skip();
                spin->CallAfter([&clicks] { ++clicks; });
            };
            spin->Bind(wxEVT_LEFT_UP, count);
            wxUIActionSimulator user;
            for (const int click : {1, 2})
            {
                user.MouseMove(spin->GetScreenPosition() +
                               wxPoint(30 * click, spin->GetSize().y / 2));
                user.MouseClick();
                ASSERT_TRUE(waitFor([&clicks, click] { return clicks == click; }));
            }
            EXPECT_TRUE(spin->Unbind(wxEVT_LEFT_UP, count));
            user.Text("12");
            EXPECT_TRUE(waitFor([spin] { return spin->GetTextValue() == "12"; }))
                << spin->GetTextValue();
        });
}

// Colour 10 is the same red as colour 1.
TEST_F(StyleFields, ShowAColourUnderItsFirstIndexWhateverWasPickedBefore)
{
    const OdPsPlotStyleTablePtr table = colorTable();
    for (const int style : {1, 2})
        support::changeData(*table, style,
                            [](auto& data) { data.color = OdCmEntityColor(255, 0, 0); });
    EditorDriver& editor = open(table);
    editor.select({1});
    EXPECT_EQ(editor.shown("ComboColor"), "Red");
    find<wxg::ColorCombo>(editor.dialog(), "ComboColor")->setColor(wxg::indexColor(10));
    EXPECT_EQ(editor.shown("ComboColor"), "Color 10");
    editor.select({2});
    EXPECT_EQ(editor.shown("ComboColor"), "Red");
}

// The word comes back as soon as there is no number, while the user goes on to type.
TEST_F(StyleFields, TakeATypedPenForTheWordThatCameBack)
{
    showFields(
        [](EditorDriver& editor)
        {
            auto* spin = find<wxSpinCtrl>(editor.dialog(), "SpinPhysPen");
            typePen(editor, "SpinPhysPen", "7");
            wxUIActionSimulator().Char(WXK_BACK);
            EXPECT_TRUE(waitFor([spin] { return spin->GetTextValue() == "Automatic"; }))
                << spin->GetTextValue();
            wxUIActionSimulator().Char('3');
            EXPECT_TRUE(waitFor([spin] { return spin->GetTextValue() == "3"; }))
                << spin->GetTextValue();
        });
}

TEST_F(StyleFields, SaveAPenThatIsBeingTyped)
{
    showFields(
        [](EditorDriver& editor)
        {
            typePen(editor, "SpinPhysPen", "12");
            click(editor.dialog(), wxID_OK);
        });
    EXPECT_EQ(savedChanges(), Lines{"plot_style/1/physical_pen_number=12"});
}

TEST_F(StyleFields, OfferToSaveAPenThatIsBeingTyped)
{
    showFields(
        [this](EditorDriver& editor)
        {
            typePen(editor, "SpinVirtPen", "34");
            answers.press(wxID_YES);
            click(editor.dialog(), wxID_CANCEL);
        });
    EXPECT_EQ(savedChanges(), Lines{"plot_style/1/virtual_pen_number=34"});
}

TEST_F(StyleFields, HoldATypedPenToItsRange)
{
    showFields(
        [](EditorDriver& editor)
        {
            typePen(editor, "SpinPhysPen", "99");
            click(editor.dialog(), wxID_OK);
        });
    EXPECT_EQ(savedData(1).physicalPenNumber, 32);
}

TEST_F(StyleFields, ShowTheWordAgainForAPenThatIsSetBackToZero)
{
    showFields(
        [](EditorDriver& editor)
        {
            editor.set("SpinPhysPen", 7);
            auto* spin = find<wxSpinCtrl>(editor.dialog(), "SpinPhysPen");
            ASSERT_TRUE(focus(spin));
            spin->SetSelection(-1, -1);
            wxUIActionSimulator().Char('0');
            ASSERT_TRUE(waitFor([spin] { return spin->GetTextValue() != "7"; }));
            find<wxWindow>(editor.dialog(), "CheckDither")->SetFocus();
            EXPECT_TRUE(
                waitFor([&editor] { return editor.fields()["SpinPhysPen"] == "Automatic"; }));
        });
}

// Passing through the fields with the keyboard must not write what they show.
TEST_F(StyleFields, WriteNothingWhenTheFocusPasses)
{
    const OdPsPlotStyleTablePtr table = coloured(namedTable({L"A", L"B"}));
    support::changeData(*table, 1, [](Data& data) { data = Data(); });
    show(table,
         [](EditorDriver& editor)
         {
             editor.select({1, 2});
             updateUi(editor.dialog());
             for (const char* name : propertyControls)
                 EXPECT_TRUE(focus(find<wxWindow>(editor.dialog(), name))) << name;
             ASSERT_TRUE(focus(editor.styles()));
             EXPECT_EQ(editor.fields()["SpinPhysPen"], "Varies");
             editor.closeUnasked();
         });
}

TEST_F(StyleFields, CloseAnOpenListByEscapeAndLeaveTheDialogOpen)
{
    showFields(
        [this](EditorDriver& editor)
        {
            for (const char* name : {"ComboColor", "ComboLineType"})
            {
                auto* combo = find<wxg::VariesCombo>(editor.dialog(), name);
                ASSERT_TRUE(focus(combo));
                combo->Popup();
                ASSERT_TRUE(waitFor([combo] { return combo->IsPopupShown(); }));
                wxUIActionSimulator().Char(WXK_ESCAPE);
                EXPECT_TRUE(waitFor([combo] { return !combo->IsPopupShown(); }));
                ASSERT_TRUE(editor.dialog().IsModal());
            }
            editor.set("SpinScreening", 10);
            answers.press(wxID_NO);
            click(editor.dialog(), wxID_CANCEL);
        });
}

TEST_F(StyleFields, AnswerArrowKeysAndTypedLetters)
{
    showFields(
        [](EditorDriver& editor)
        {
            auto* combo = find<wxg::ImageCombo>(editor.dialog(), "ComboEndStyle");
            pressKey(combo, WXK_DOWN);
            EXPECT_TRUE(waitFor([combo] { return combo->value() == 0; }));
            pressKey(combo, 'd');
            EXPECT_TRUE(waitFor([combo] { return combo->value() == 3; }));
            click(editor.dialog(), wxID_OK);
        });
    EXPECT_EQ(savedChanges(), Lines{"plot_style/1/end_style=3"});
}

TEST_F(StyleFields, RepaintTheCombosOnEveryUpdate)
{
    showFields(
        [](EditorDriver& editor)
        {
            for (const char* name : {"ComboColor", "ComboLineType", "ComboLineWeight",
                                     "ComboEndStyle", "ComboJoinStyle", "ComboFillStyle"})
            {
                int paints = 0;
                const auto count = [&paints](wxPaintEvent& event)
                {
                    ++paints;
                    event.Skip();
                };
                auto* combo = find<wxWindow>(editor.dialog(), name);
                combo->Bind(wxEVT_PAINT, count);
                ASSERT_TRUE(waitFor([combo] { return combo->IsShownOnScreen(); }));
                // The first paints may be those of the window's appearance.
                for (int update = 1; update <= 10; ++update)
                {
                    paints = 0;
                    updateUi(editor.dialog());
                    ASSERT_TRUE(waitFor([&paints] { return paints > 0; })) << name << update;
                }
                EXPECT_TRUE(combo->Unbind(wxEVT_PAINT, count));
            }
        });
}

// --- replaceImageCombo -------------------------------------------------------------------------

TEST(ReplaceImageCombo, PutsAnImageComboInThePlaceOfAComboBox)
{
    auto* frame = new wxFrame(nullptr, wxID_ANY, "test");
    auto* old = new wxComboBox(frame, wxWindow::NewControlId(), "", wxPoint(5, 6), wxSize(150, 40));
    old->SetName("TheCombo");
    const int id = old->GetId();
    const wxPoint position = old->GetPosition();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(old);
    frame->SetSizer(sizer);

    wxg::ImageCombo* combo = replaceImageCombo(old);
    EXPECT_EQ(frame->GetChildren().GetCount(), 1u) << "the old one is destroyed";
    EXPECT_EQ(combo->GetParent(), frame);
    EXPECT_EQ(combo->GetId(), id);
    EXPECT_EQ(combo->GetPosition(), position);
    EXPECT_EQ(combo->GetName(), "TheCombo");
    EXPECT_EQ(sizer->GetItem(size_t{0})->GetWindow(), combo);
    EXPECT_EQ(frame->FindWindow(id), combo);
    combo->appendItem("with text", 1);
    EXPECT_EQ(combo->GetString(0), "with text");
    frame->Destroy();
}
