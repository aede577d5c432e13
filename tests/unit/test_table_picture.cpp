// Pictures of tables: what is drawn, and how it becomes a file.

#include "table_picture.h"

#include "cmdapi/cma.h"
#include "files/files.h"
#include "odps/od_ps.h"
#include "support/kills.h"
#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <cairo.h>
#include <wx/init.h>

#include <cmath>
#include <cstring>
#include <functional>

namespace
{

/// The pixels of a picture.
class Sheet
{
public:
    explicit Sheet(const std::string& png)
    {
        std::pair<const char*, const char*> rest(png.data(), png.data() + png.size());
        m_surface = cairo_image_surface_create_from_png_stream(
            [](void* from, unsigned char* to, unsigned length)
            {
                auto& [at, end] = *static_cast<std::pair<const char*, const char*>*>(from);
                if (end - at < static_cast<std::ptrdiff_t>(length))
                    return CAIRO_STATUS_READ_ERROR;
                std::memcpy(to, at, length);
                at += length;
                return CAIRO_STATUS_SUCCESS;
            },
            &rest);
        EXPECT_EQ(cairo_surface_status(m_surface), CAIRO_STATUS_SUCCESS);
    }
    ~Sheet() { cairo_surface_destroy(m_surface); }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    int width() const { return cairo_image_surface_get_width(m_surface); }
    int height() const { return cairo_image_surface_get_height(m_surface); }

    /// The colour that covers a point, as RGB.
    unsigned rgb(double x, double y) const
    {
        unsigned pixel = 0;
        std::memcpy(&pixel,
                    cairo_image_surface_get_data(m_surface) +
                        static_cast<int>(y) * cairo_image_surface_get_stride(m_surface) +
                        static_cast<int>(x) * 4,
                    sizeof pixel);
        return pixel & 0xFFFFFF;
    }
    bool isInk(double x, double y) const { return rgb(x, y) != 0xFFFFFF; }

    /// How many pieces of ink lie between two places of a row.
    int pieces(double from, double to, double y) const
    {
        int count = 0;
        for (int x = static_cast<int>(from); x < static_cast<int>(to); ++x)
            count += isInk(x, y) && !isInk(x - 1, y);
        return count;
    }

private:
    cairo_surface_t* m_surface = nullptr;
};

class TablePicture : public testing::Test
{
protected:
    /// The sheet of a table whose only style is so changed, with a line of 2 mm.
    Sheet sheetOf(const std::function<void(OdPsPlotStyleData&)>& change)
    {
        int wide = 0;
        while (names->lineweightAt(wide) != 2.0)
            ++wide;
        support::changeData(*names, 0,
                            [&](OdPsPlotStyleData& data)
                            {
                                data.lineweight = wide + 1;
                                change(data);
                            });
        return Sheet(tablePicture(*names, size));
    }

    /// Adds styles that are no run: each has another screening than its neighbours.
    void addStyles(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            OdPsPlotStyleData data;
            data.screening = static_cast<std::int16_t>(i % 2 == 0 ? 50 : 60);
            names->addNewStyle(std::to_wstring(i).c_str())->setData(data);
        }
    }

    const wxInitializer toolkit;
    const OdPsPlotStyleTablePtr names = cma::createPlotStyleTable(false, L"");

    // The places of the only line on a sheet of this size, in pixels: half of its width, where it
    // begins, bends upwards, bends down again, and ends.
    static constexpr int size = 2000;
    static constexpr double half = 40;
    static constexpr double begin = 674.88;
    static constexpr double bend = 987.33;
    static constexpr double end = 1254;
    static constexpr double y = 333;
    static constexpr double top = (bend + end) / 2;
    static constexpr double topY = y - (end - bend) / 2;
};

} // namespace

TEST_F(TablePicture, IsAnUprightSheetWithAnEdge)
{
    const Sheet sheet(tablePicture(*names, 1000));
    EXPECT_EQ(sheet.height(), 1000);
    EXPECT_EQ(sheet.width(), 707);
    EXPECT_EQ(sheet.rgb(0, 0), 0xB0B0B0u);
    EXPECT_EQ(sheet.rgb(706, 999), 0xB0B0B0u);
    EXPECT_EQ(sheet.rgb(2, 2), 0xFFFFFFu);
    EXPECT_GT(sheet.pieces(50, 300, 133), 0) << "a label";
}

TEST_F(TablePicture, ShowsTheEndsOfLines)
{
    // Places before the line's beginning that a square end covers, and those that the others do.
    const double inAll = begin - 0.5 * half;
    const double inRound[] = {begin - 0.57 * half, y - 0.6 * half};
    const double inSquare[] = {begin - 0.77 * half, y - 0.75 * half};
    enum
    {
        butt,
        square,
        rounded,
        diamond
    };
    for (std::int16_t style = butt; style <= diamond; ++style)
    {
        const Sheet sheet = sheetOf([=](OdPsPlotStyleData& data) { data.endStyle = style; });
        EXPECT_TRUE(sheet.isInk(begin + 10, y - half + 10)) << style;
        EXPECT_EQ(sheet.isInk(inAll, y), style != butt) << style;
        EXPECT_EQ(sheet.isInk(inRound[0], inRound[1]), style == square || style == rounded)
            << style;
        EXPECT_EQ(sheet.isInk(inSquare[0], inSquare[1]), style == square) << style;
        EXPECT_FALSE(sheet.isInk(begin - half - 5, y)) << style;
        // Behind a slope the diamond stands on a side.
        EXPECT_EQ(sheet.isInk(end + 0.62 * half, y + 0.62 * half),
                  style == square || style == rounded || style == diamond)
            << style;
        EXPECT_EQ(sheet.isInk(end + 0.1 * half, y + 0.95 * half),
                  style == square || style == rounded)
            << style;
    }
}

TEST_F(TablePicture, ShowsTheJoinsOfLines)
{
    // On the outer side of the bend, in the direction that halves it: a bevel ends before a round
    // join does, and a mitre goes on.
    const auto out = [](double distance)
    { return std::pair(bend + distance * std::sin(M_PI / 8), y + distance * std::cos(M_PI / 8)); };
    const auto [roundX, roundY] = out(0.9625 * half);
    const auto [miterX, miterY] = out(1.04 * half);
    enum
    {
        miter,
        bevel,
        rounded,
        diamond
    };
    for (std::int16_t style = miter; style <= diamond; ++style)
    {
        const Sheet sheet = sheetOf([=](OdPsPlotStyleData& data) { data.joinStyle = style; });
        EXPECT_EQ(sheet.isInk(roundX, roundY), style != bevel) << style;
        EXPECT_EQ(sheet.isInk(miterX, miterY), style == miter || style == diamond) << style;
        EXPECT_EQ(sheet.isInk(bend, y + 1.25 * half), style == diamond) << style;
        EXPECT_FALSE(sheet.isInk(bend, y + 1.5 * half)) << style;
        // The other bend, at a right angle, has its outer side above.
        EXPECT_EQ(sheet.isInk(top, topY - 1.25 * half), style == miter || style == diamond)
            << style;
        EXPECT_FALSE(sheet.isInk(top, topY - 1.5 * half)) << style;
    }
}

TEST_F(TablePicture, ShowsTheToneOfAScreen)
{
    const Sheet sheet = sheetOf(
        [](OdPsPlotStyleData& data)
        {
            data.color.setRGB(255, 0, 0);
            data.screening = 20;
        });
    EXPECT_EQ(sheet.rgb(begin + 50, y), 0xFFCCCCu);
    EXPECT_EQ(sheet.rgb(begin + 50, y - half - 3), 0xFFFFFFu);
    const Sheet pale = sheetOf([](OdPsPlotStyleData& data) { data.screening = 0; });
    EXPECT_EQ(pale.rgb(begin + 50, y), 0xFFFFFFu);
    EXPECT_EQ(pale.rgb(begin + 50, y - half - 0.5), 0xC8C8C8u) << "an outline";
}

TEST_F(TablePicture, ShowsTheDashesOfLinetypes)
{
    const auto dashesOf = [this](std::int16_t linetype)
    {
        const Sheet sheet = sheetOf(
            [=](OdPsPlotStyleData& data)
            {
                data.linetype = linetype;
                data.endStyle = 0;
            });
        return sheet.pieces(begin - half, bend, y);
    };
    constexpr std::int16_t solid = 0;
    constexpr std::int16_t dashed = 1;
    EXPECT_EQ(dashesOf(solid), 1);
    EXPECT_GT(dashesOf(dashed), 1);
}

TEST_F(TablePicture, StandsInAsManyColumnsAsItsLinesNeed)
{
    // 101 lines of at least a 48th of the height: three columns of 34 rows.
    addStyles(100);
    const Sheet sheet(tablePicture(*names, 1000));
    constexpr double columnWidth = (707.0 - 2 * 50 - 2 * 25) / 3;
    constexpr double rowHeight = 900.0 / 34;
    const auto hasLine = [&](int column, int row)
    {
        const double x = 50 + column * (columnWidth + 25) + 0.42 * columnWidth + 25;
        const double base = std::round(50 + row * rowHeight + rowHeight * 0.7);
        return sheet.isInk(x, base);
    };
    for (int line = 0; line < 3 * 34; ++line)
        EXPECT_EQ(hasLine(line / 34, line % 34), line < 101) << line;
    // A small sheet has no room for labels, and ends where it is full.
    const Sheet small(tablePicture(*names, 100));
    EXPECT_EQ(small.height(), 100);
}

TEST_F(TablePicture, IsWholeAtAnyMoment)
{
    const support::TempFolder folder;
    const std::filesystem::path path = folder / "table.png";
    support::killWhileReplacing(path, tablePicture(*names, 32), tablePicture(*names, 64),
                                [&]
                                {
                                    files::replace(path, tablePicture(*names, 64));
                                    return true;
                                });
}
