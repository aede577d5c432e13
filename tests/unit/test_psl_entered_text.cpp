// What users type: numbers, names, and the beginnings of rows.

#include "psl_numbers.h"
#include "psl_style_names.h"
#include "psl_type_ahead.h"

#include "cmdapi/cma.h"
#include "odps/od_ps.h"

#include <gtest/gtest.h>

#include <clocale>

TEST(Numbers, RealsHaveAPointOrAComma)
{
    for (const char* text : {"1.5", "1,5"})
        EXPECT_EQ(parseReal(text), 1.5) << text;
    EXPECT_EQ(parseReal("-2"), -2.0);
    EXPECT_EQ(parseReal("1e2"), 100.0);
    for (const char* text : {"", "-", "abc", "1.2.3", "1,2,3", "1.234,5", "1 mm", "1.5 "})
        EXPECT_FALSE(parseReal(text)) << text;
}

TEST(Numbers, IntegersAreTakenToTheirRange)
{
    EXPECT_EQ(parseInteger("12", 0, 32), 12);
    EXPECT_EQ(parseInteger(" 12 ", 0, 32), 12);
    EXPECT_EQ(parseInteger("99", 0, 32), 32);
    EXPECT_EQ(parseInteger("-5", 0, 32), 0);
    EXPECT_EQ(parseInteger("32", 0, 32), 32);
    EXPECT_EQ(parseInteger("33", 0, 32), 32);
    for (const char* text : {"", "abc", "12abc", "1.5", "Automatic", "99999999999999999999"})
        EXPECT_FALSE(parseInteger(text, 0, 32)) << text;
}

TEST(Numbers, AreShownWithAPointInEveryLocale)
{
    EXPECT_EQ(fixedText(0.25, 4), "0.2500");
    EXPECT_EQ(fixedText(-2, 0), "-2");
    EXPECT_EQ(generalText(1.5), "1.5");
    EXPECT_EQ(generalText(1234567), "1.23457e+06");
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr) << "it is named in LOCPATH";
    EXPECT_EQ(fixedText(0.25, 4), "0.2500");
    EXPECT_EQ(generalText(1.5), "1.5");
    EXPECT_EQ(parseReal("1.5"), 1.5);
    EXPECT_EQ(parseReal("1,5"), 1.5);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(StyleNames, AreWhatAFileCanHold)
{
    EXPECT_EQ(storableText("Thin red"), "Thin red");
    EXPECT_EQ(storableText("Thin\nred"), "Thin red");
    EXPECT_EQ(storableText("Thin\r\nred\r"), "Thin red ");
    EXPECT_EQ(storableText(wxString(L"Thin\0red", 8)), "Thin");
}

TEST(StyleNames, AreTakenByNameAndByLocalizedName)
{
    const OdPsPlotStyleTablePtr table = cma::createPlotStyleTable(false, L"");
    const OdPsPlotStylePtr red = table->addNewStyle(L"Thin red");
    red->setName(L"Thin_red");
    for (const char* name : {"normal", "thin red", "THIN_RED"})
        EXPECT_TRUE(isNameTaken(*table, name, nullptr)) << name;
    EXPECT_FALSE(isNameTaken(*table, "Thin", nullptr));
    EXPECT_FALSE(isNameTaken(*table, "Thin_red", red.get())) << "its own";
    EXPECT_TRUE(isNameTaken(*table, "Normal", red.get()));
}

TEST(TypeAheads, CharactersInOneGoMakeAText)
{
    TypeAhead typed;
    EXPECT_FALSE(typed.isRunning(0));
    EXPECT_EQ(typed.add('a', 5000), "a");
    EXPECT_TRUE(typed.isRunning(5000 + TypeAhead::pause));
    EXPECT_EQ(typed.add('b', 5000 + TypeAhead::pause), "ab");
    EXPECT_FALSE(typed.isRunning(5001 + 2 * TypeAhead::pause));
    EXPECT_EQ(typed.add('c', 5001 + 2 * TypeAhead::pause), "c");
}

TEST(TypeAheads, LeadToARow)
{
    const std::vector<wxString> rows{"Axis", "Area", "Beam", "aa"};
    EXPECT_EQ(findTypedRow(rows, 0, "ar", false), 1);
    EXPECT_EQ(findTypedRow(rows, 3, "Ar", false), 1) << "the first, wherever one is";
    EXPECT_EQ(findTypedRow(rows, 0, "A", false), 1) << "one letter goes on";
    EXPECT_EQ(findTypedRow(rows, 3, "A", false), 0) << "and round";
    EXPECT_EQ(findTypedRow(rows, 0, "aa", false), 3) << "a text goes before the next of its letter";
    EXPECT_EQ(findTypedRow(rows, 2, "bb", false), 2) << "the only one again";
    EXPECT_EQ(findTypedRow(rows, -1, "x", false), -1);
    EXPECT_EQ(findTypedRow({}, -1, "xx", false), -1);
    const std::vector<wxString> more{"Axis", "Area", "Beam"};
    EXPECT_EQ(findTypedRow(more, 0, "aa", false), 1);
    EXPECT_EQ(findTypedRow(more, 1, "aaa", false), 0);
}

TEST(TypeAheads, DigitsLeadToAColour)
{
    const std::vector<wxString> rows{"Color 1", "Color 2", "Color 3"};
    EXPECT_EQ(findTypedRow(rows, 0, "3", true), 2);
    EXPECT_EQ(findTypedRow(rows, 0, "03", true), 2);
    for (const char* none : {"0", "4", "99999999999999999999"})
        EXPECT_EQ(findTypedRow(rows, 0, none, true), -1) << none;
    EXPECT_EQ(findTypedRow(rows, 0, "3", false), -1) << "where rows go by their texts";
    EXPECT_EQ(findTypedRow(rows, 0, "color 2", true), 1);
}
