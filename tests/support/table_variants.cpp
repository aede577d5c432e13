// Tables that say the same in every way in which files are written.

#include "support/table_variants.h"

#include "support/table_maker.h"

#include <algorithm>
#include <ostream>

namespace support
{
namespace
{

using Lines = std::vector<std::string>;

bool isColors(const TableVariant& variant)
{
    return std::string(variant.kind) != "STB";
}

/// A group: its first line, its contents in the order of the variant, its last line.
Lines group(const TableVariant& variant, const std::string& indent, const std::string& name,
            std::vector<Lines> contents)
{
    if (variant.isReversed)
        std::reverse(contents.begin(), contents.end());
    Lines lines = {indent + name + "{"};
    for (const Lines& part : contents)
        lines.insert(lines.end(), part.begin(), part.end());
    lines.push_back(indent + "}");
    return lines;
}

std::string inForm(NumberForm form, const std::string& number)
{
    switch (form)
    {
    case NumberForm::Shortest:
        return number;
    case NumberForm::Padded:
        return number + "00000";
    default:
        return number + "000000000 (44F=@\";\"QC\\SM0)";
    }
}

/// The lines between the first and the last line of what the table makers give for a group.
Lines inside(const std::string& text)
{
    const Lines lines = splitLines(text);
    return {lines.begin() + 1, lines.end() - 2};
}

Lines styleGroup(const TableVariant& variant, int number)
{
    const std::string name = variantStyleName(variant, number);
    std::vector<Lines> contents;
    for (const std::string& line : inside(styleText(number, name)))
        contents.push_back({line == "  linepattern_size=0.5"
                                ? "  linepattern_size=" + inForm(variant.numbers, "0.5")
                                : line});
    if (variant.hasUnknownKeys)
    {
        const std::string mark = std::to_string(number);
        contents.insert(contents.begin() + 4, {"  future_" + mark + "=\"=" + mark});
        contents.push_back({"  deep{", "   screen=" + mark, "  }"});
    }
    return group(variant, " ", std::to_string(number), contents);
}

Lines stylesGroup(const TableVariant& variant)
{
    std::vector<Lines> styles;
    for (int i = 0; i < kVariantStyles; ++i)
        styles.push_back(styleGroup(variant, i));
    Lines lines = group(variant, "", "plot_style", styles);
    if (variant.hasUnknownKeys)
        lines.insert(lines.begin() + 1, " count=5");
    return lines;
}

Lines colorsGroup(const TableVariant& variant)
{
    std::vector<Lines> rows;
    for (int i = 0; i < 255; ++i)
        rows.push_back(
            {" " + std::to_string(i) + "=\"" + variantStyleName(variant, i % kVariantStyles)});
    return group(variant, "", "aci_table", rows);
}

Lines lineweightGroup(const TableVariant& variant)
{
    std::vector<Lines> rows;
    for (const std::string& line : inside(lineweightText()))
    {
        const std::size_t number = line.find('=') + 1;
        rows.push_back({line.substr(0, number) + inForm(variant.numbers, line.substr(number))});
    }
    if (variant.hasUnknownKeys)
        rows.push_back({" source=metric"});
    return group(variant, "", "custom_lineweight_table", rows);
}

} // namespace

std::vector<TableVariant> allVariants()
{
    constexpr unsigned kFlags = 5;
    std::vector<TableVariant> variants;
    for (const char* const kind : {"CTB", "STB", "TTB"})
    {
        for (const NumberForm form :
             {NumberForm::Shortest, NumberForm::Padded, NumberForm::Suffixed})
        {
            for (unsigned flags = 0; flags < 1u << kFlags; ++flags)
                variants.push_back({kind, (flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0,
                                    (flags & 8) != 0, (flags & 16) != 0, form});
        }
    }
    return variants;
}

void PrintTo(const TableVariant& variant, std::ostream* stream)
{
    *stream << variant.kind << (variant.isReversed ? ", reversed" : "")
            << (variant.isFlat ? ", flat" : "") << (variant.isWindows1252 ? ", Windows-1252" : "")
            << (variant.hasCrLf ? ", CR LF" : "")
            << (variant.hasUnknownKeys ? ", unknown keys" : "") << ", number form "
            << static_cast<int>(variant.numbers);
}

std::string variantStyleName(const TableVariant& variant, int style)
{
    if (style == 1)
        return variant.isWindows1252 ? "W\xE4nde" : "W\xC3\xA4nde";
    static const char* const kNames[kVariantStyles] = {"Normal", "", "Doors", " a=\"b\" {", "Text"};
    return kNames[style];
}

std::string variantText(const TableVariant& variant)
{
    const Lines top = {"description=\"" + variantStyleName(variant, 1),
                       std::string("aci_table_available=") + (isColors(variant) ? "TRUE" : "FALSE"),
                       "scale_factor=" + inForm(variant.numbers, "1.0"), "apply_factor=FALSE",
                       "custom_lineweight_display_units=0"};
    std::vector<Lines> parts;
    for (const std::string& line : top)
        parts.push_back({line});
    if (variant.hasUnknownKeys)
        parts.insert(parts.begin(), {"filetype=\"" + std::string(variant.kind)});
    if (isColors(variant))
        parts.push_back(colorsGroup(variant));
    parts.push_back(stylesGroup(variant));
    parts.push_back(lineweightGroup(variant));
    if (variant.isReversed)
        std::reverse(parts.begin(), parts.end());
    std::string text;
    for (const Lines& part : parts)
    {
        for (const std::string& line : part)
            text += line.substr(variant.isFlat ? line.find_first_not_of(' ') : 0) + "\n";
    }
    return variant.hasCrLf ? withCrLf(text) : text;
}

} // namespace support
