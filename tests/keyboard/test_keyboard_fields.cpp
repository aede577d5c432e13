// The fields of the style properties: what is typed, clicked and scrolled in them is what the
// selected styles get.

#include "tests/keyboard/editor_session.h"

#include "support/tables.h"

namespace
{

class TypedNumber : public EditorSession
{
protected:
    // Selects a style and types into one of its number fields.
    void typeInto(const std::string& field, int row, std::string_view text)
    {
        editor().clickRow("ListStyles", row);
        editor().click(field);
        retype(text);
    }

    static int physicalPen(const OdPsPlotStyleTablePtr& table, int style)
    {
        return dataOf(table, style).physicalPenNumber;
    }
};

void vary(OdPsPlotStyleTable& table)
{
    support::changeData(table, 1, [](auto& data) { data.physicalPenNumber = 7; });
    support::changeData(table, 2, [](auto& data) { data.physicalPenNumber = 8; });
    support::changeData(table, 2, [](auto& data) { data.screening = 50; });
    support::changeData(table, 2, [](auto& data) { data.virtualPenNumber = 90; });
}

} // namespace

TEST_F(TypedNumber, IsTakenByAClickOnAnotherStyle)
{
    for (const char* modifier : {"", "ctrl", "shift"})
    {
        openColors();
        typeInto("SpinPhysPen", 4, "9");
        editor().clickRow("ListStyles", 5, modifier);
        editor().clickRow("ListStyles", 4);
        EXPECT_EQ(editor().text("SpinPhysPen"), "9") << modifier;
        const auto table = saved();
        EXPECT_EQ(physicalPen(table, 4), 9) << modifier;
        EXPECT_EQ(physicalPen(table, 5), -1) << modifier;
    }
}

TEST_F(TypedNumber, IsTakenByAllStylesThatWereSelected)
{
    openColors();
    editor().clickRow("ListStyles", 2);
    editor().clickRow("ListStyles", 4, "shift");
    editor().click("SpinScreening");
    retype("33");
    editor().clickRow("ListStyles", 6);
    const auto table = saved();
    for (int style = 1; style < 8; ++style)
        EXPECT_EQ(dataOf(table, style).screening, style >= 2 && style <= 4 ? 33 : 100) << style;
}

TEST_F(TypedNumber, IsTakenHoweverTheFieldIsLeft)
{
    for (const char* key :
         {"Tab", "shift+Tab", "Return", "ctrl+Next", "ctrl+Tab", "alt+g", "alt+t"})
    {
        openColors();
        typeInto("SpinVirtPen", 3, "77");
        editor().key(key);
        if (editor().openList("ComboLineType"))
            editor().key("Escape");
        EXPECT_EQ(savedData(3).virtualPenNumber, 77) << key;
    }
}

TEST_F(TypedNumber, IsTakenBySaving)
{
    openColors();
    typeInto("SpinVirtPen", 3, "77");
    EXPECT_EQ(savedData(3).virtualPenNumber, 77);
}

TEST_F(TypedNumber, IsAskedForByCancelAndOpen)
{
    for (const char* command : {"Escape", "alt+o"})
    {
        openColors();
        typeInto("SpinVirtPen", 3, "77");
        editor().hands().key(command);
        ASSERT_TRUE(editor().waitForDialog("Do you want to save changes?")) << command;
        editor().key("alt+y");
        editor().waitFor([this] { return dataOf(stored(), 3).virtualPenNumber == 77; });
        EXPECT_EQ(dataOf(stored(), 3).virtualPenNumber, 77) << command;
    }
}

TEST_F(TypedNumber, IsTakenBeforeTheArrowsAndTheWheelStep)
{
    openColors();
    typeInto("SpinPhysPen", 3, "7");
    editor().key("Up");
    EXPECT_EQ(editor().text("SpinPhysPen"), "8");
    retype("20");
    editor().wheel("SpinPhysPen", -1);
    EXPECT_EQ(editor().text("SpinPhysPen"), "21");
    EXPECT_EQ(savedData(3).physicalPenNumber, 21);
}

TEST_F(TypedNumber, ZeroOverVariesMakesAllAutomatic)
{
    openColors(vary);
    editor().clickRow("ListStyles", 1);
    editor().clickRow("ListStyles", 2, "shift");
    EXPECT_EQ(editor().text("SpinPhysPen"), "Varies");
    EXPECT_EQ(editor().text("SpinScreening"), "0");
    for (const char* field : {"SpinPhysPen", "SpinVirtPen", "SpinScreening"})
    {
        editor().click(field);
        retype("0");
        EXPECT_EQ(editor().text(field), "0");
        editor().key("Tab");
    }
    EXPECT_EQ(editor().text("SpinPhysPen"), "Automatic");
    const auto table = saved();
    for (const int style : {1, 2})
    {
        EXPECT_EQ(physicalPen(table, style), -1) << style;
        EXPECT_EQ(dataOf(table, style).virtualPenNumber, -1) << style;
        EXPECT_EQ(dataOf(table, style).screening, 0) << style;
    }
}

TEST_F(TypedNumber, VaryingFieldsThatAreOnlyPassedKeepTheirValues)
{
    openColors(vary);
    editor().clickRow("ListStyles", 1);
    editor().clickRow("ListStyles", 2, "shift");
    for (const char* field : {"SpinPhysPen", "SpinVirtPen", "SpinScreening"})
    {
        editor().click(field);
        editor().key("Tab");
    }
    editor().click("SpinPhysPen");
    editor().key("BackSpace");
    editor().key("Tab");
    EXPECT_EQ(editor().text("SpinPhysPen"), "Varies");
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed, so nothing is asked";
}

TEST_F(TypedNumber, LettersGiveTheOldValueBack)
{
    openColors(vary);
    for (const char* leave : {"Tab", "Return", "Up"})
    {
        typeInto("SpinPhysPen", 1, "abc");
        editor().key(leave);
        const bool steps = leave == std::string("Up");
        EXPECT_EQ(editor().text("SpinPhysPen"), steps ? "8" : "7") << leave;
    }
    typeInto("SpinPhysPen", 1, "9z");
    editor().clickRow("ListStyles", 3);
    editor().clickRow("ListStyles", 1);
    EXPECT_EQ(editor().text("SpinPhysPen"), "8");
    EXPECT_EQ(savedData(1).physicalPenNumber, 8);
}

TEST_F(TypedNumber, FractionsGiveTheOldValueBack)
{
    openColors();
    for (const char* field : {"SpinPhysPen", "SpinVirtPen", "SpinScreening"})
        for (const char* text : {"3,7", "3.7", "1e1"})
        {
            typeInto(field, 1, text);
            editor().clickRow("ListStyles", 2);
        }
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed, so nothing is asked";
}

TEST_F(TypedNumber, AnEmptiedPenIsAutomatic)
{
    openColors(vary);
    typeInto("SpinPhysPen", 1, "7");
    editor().key("BackSpace");
    EXPECT_EQ(editor().text("SpinPhysPen"), "Automatic");
    editor().key("Tab");
    EXPECT_EQ(savedData(1).physicalPenNumber, -1);
}

namespace
{

class Wheel : public EditorSession
{
};

const char* const wheelControls[] = {"ComboColor",    "ComboLineType",  "ComboLineWeight",
                                     "ComboEndStyle", "ComboJoinStyle", "ComboFillStyle",
                                     "SpinPhysPen",   "SpinVirtPen",    "SpinScreening"};

} // namespace

TEST_F(Wheel, ChangesNothingThatHasNotTheFocus)
{
    openColors();
    editor().key("ctrl+a");
    for (const char* control : wheelControls)
    {
        editor().wheel(control, 2);
        editor().wheel(control, -1);
    }
    editor().key("Escape");
    EXPECT_EQ(editor().wait(), 1) << "nothing was changed, so nothing is asked";
}

TEST_F(Wheel, StepsThroughTheControlThatHasTheFocus)
{
    openColors();
    editor().click("SpinScreening");
    editor().wheel("SpinScreening", 2);
    editor().key("alt+n");
    ASSERT_EQ(editor().focus(), "ComboJoinStyle");
    editor().wheel("ComboJoinStyle", 1);
    EXPECT_EQ(editor().text("ComboJoinStyle"), "Miter");
    const auto data = savedData(0);
    EXPECT_EQ(data.screening, 98);
    EXPECT_EQ(data.joinStyle, 0);
}

namespace
{

class ScaleFactor : public EditorSession
{
protected:
    void typeFactor(std::string_view text)
    {
        openColors();
        editor().key("ctrl+Prior");
        editor().click("CheckScale");
        ASSERT_TRUE(editor().waitFor([this] { return editor().control("TextScale").isEnabled; }));
        editor().key("alt+f");
        ASSERT_TRUE(editor().waitFor([this] { return editor().focus() == "TextScale"; }));
        retype(text);
    }
};

} // namespace

TEST_F(ScaleFactor, TakesAPointAndAComma)
{
    for (const char* text : {"1.5", "1,5"})
    {
        typeFactor(text);
        EXPECT_EQ(saved()->scaleFactor(), 1.5) << text;
    }
    open("again.ctb", support::readFile(file));
    EXPECT_EQ(editor().text("TextScale"), "1.5");
}

TEST_F(ScaleFactor, IsKeptWhereTheTextIsNoNumber)
{
    for (const char* text : {"1.2.3", "1,2,3", "-"})
    {
        typeFactor(text);
        EXPECT_EQ(saved()->scaleFactor(), 1) << text;
    }
}
