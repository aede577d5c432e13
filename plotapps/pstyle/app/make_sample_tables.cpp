// Writes the sample tables that are installed with the program: make_sample_tables DIR

#include "cmdapi/cma.h"

#include <cstdio>
#include <filesystem>
#include <functional>
#include <iterator>
#include <system_error>

namespace
{

constexpr std::int16_t kGrayscale = 2;
constexpr std::int16_t kExplicitColor = 4;

/// A lineweight of a table's list in millimetres, and the screening that goes with it.
struct Pen
{
    double millimetres;
    std::int16_t screening = 100;
};

struct NamedStyle
{
    const wchar_t* name;
    const wchar_t* description;
    Pen pen;
};

/// Applies a change to the properties of a style.
void change(OdPsPlotStyle& style, const std::function<void(OdPsPlotStyleData&)>& apply)
{
    OdPsPlotStyleData data;
    style.getData(data);
    apply(data);
    style.setData(data);
}

void changeAll(OdPsPlotStyleTable& table, const std::function<void(OdPsPlotStyleData&)>& apply)
{
    for (int i = 0; i < table.styleCount(); ++i)
        change(*table.styleAt(i), apply);
}

void makeBlack(OdPsPlotStyleData& data)
{
    data.color.setRGB(0, 0, 0);
    data.colorPolicy |= kExplicitColor;
}

/// The 1-based position of a lineweight in a table's list; 0, the object's own, if it has none.
int lineweightPosition(const OdPsPlotStyleTable& table, double millimetres)
{
    for (int i = 0; i < table.lineweightCount(); ++i)
    {
        if (table.lineweightAt(i) == millimetres)
            return i + 1;
    }
    return 0;
}

void plotBlackWith(const OdPsPlotStyleTable& table, OdPsPlotStyle& style, Pen pen)
{
    change(style,
           [&](OdPsPlotStyleData& data)
           {
               makeBlack(data);
               data.lineweight = lineweightPosition(table, pen.millimetres);
               data.screening = pen.screening;
           });
}

OdPsPlotStyleTablePtr colorTable(const wchar_t* description)
{
    return cma::createPlotStyleTable(true, description);
}

OdPsPlotStyleTablePtr standard()
{
    return colorTable(L"Everything as in the drawing");
}

OdPsPlotStyleTablePtr monochrome()
{
    OdPsPlotStyleTablePtr table = colorTable(L"Every colour plots black");
    changeAll(*table, makeBlack);
    return table;
}

OdPsPlotStyleTablePtr grayscale()
{
    OdPsPlotStyleTablePtr table = colorTable(L"Every colour plots as its gray");
    changeAll(*table, [](OdPsPlotStyleData& data) { data.colorPolicy |= kGrayscale; });
    return table;
}

OdPsPlotStyleTablePtr lineweightsByColor()
{
    // Colours 1 to 9: red, yellow, green, cyan, blue, magenta, white and the two grays.
    constexpr Pen kPens[] = {{0.18}, {0.25}, {0.35},     {0.5},     {0.7},
                             {1.0},  {0.35}, {0.13, 60}, {0.13, 40}};
    constexpr Pen kOthers = {0.25};
    OdPsPlotStyleTablePtr table =
        colorTable(L"Black; the first nine colours choose the lineweight, the others plot 0.25 mm");
    for (int i = 0; i < table->styleCount(); ++i)
    {
        const bool isListed = i < static_cast<int>(std::size(kPens));
        plotBlackWith(*table, *table->styleAt(i), isListed ? kPens[i] : kOthers);
    }
    return table;
}

OdPsPlotStyleTablePtr office()
{
    constexpr NamedStyle kStyles[] = {
        {L"Walls cut", L"Walls and columns cut by the section plane", {0.7}},
        {L"Walls beyond", L"Walls seen behind the section plane", {0.35}},
        {L"Hidden edges", L"Edges behind other parts, thin and light", {0.18, 60}},
        {L"Doors and windows", L"Frames, leaves and sills", {0.25}},
        {L"Furniture", L"Loose and fixed furniture", {0.18, 70}},
        {L"Dimensions", L"Dimension lines and figures", {0.18}},
        {L"Text", L"Notes, titles and leaders", {0.25}},
        {L"Hatching", L"Material hatches, screened back", {0.13, 50}},
        {L"Grid lines", L"Structural grid and its bubbles", {0.18, 80}},
        {L"Title block", L"Border and title block", {0.5}},
    };
    OdPsPlotStyleTablePtr table =
        cma::createPlotStyleTable(false, L"Named styles of a drawing office; all of them black");
    table->styleAt(0)->setDescription(L"As in the drawing");
    for (const NamedStyle& named : kStyles)
    {
        const OdPsPlotStylePtr style = table->addNewStyle(named.name);
        style->setDescription(named.description);
        plotBlackWith(*table, *style, named.pen);
    }
    return table;
}

struct Sample
{
    const wchar_t* fileName;
    OdPsPlotStyleTablePtr (*make)();
};

constexpr Sample kSamples[] = {
    {L"Standard.ctb", standard},   {L"Monochrome.ctb", monochrome},
    {L"Grayscale.ctb", grayscale}, {L"Lineweights by Color.ctb", lineweightsByColor},
    {L"Office.stb", office},
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "usage: %s DIR\n", argv[0]);
        return 2;
    }
    // The names of the tables are plain, whatever the locale makes of the folder's.
    std::error_code error;
    std::filesystem::current_path(argv[1], error);
    if (error)
    {
        std::fprintf(stderr, "%s: %s\n", argv[1], error.message().c_str());
        return 1;
    }
    for (const Sample& sample : kSamples)
    {
        if (!cma::savePlotStyleTable(sample.fileName, sample.make()))
        {
            std::fprintf(stderr, "cannot write %ls in %s\n", sample.fileName, argv[1]);
            return 1;
        }
    }
    return 0;
}
