// Drawing the sheet of a table's styles.

#include "table_picture.h"

#include "sheet_lines.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

namespace
{

constexpr double sheetRatio = 1.41421356; // of the ISO 216 paper sizes
constexpr double millimetersPerSheet = 50;

template <auto release>
struct Release
{
    template <class T>
    void operator()(T* object) const
    {
        release(object);
    }
};

using Surface = std::unique_ptr<cairo_surface_t, Release<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Release<cairo_destroy>>;
using Pattern = std::unique_ptr<cairo_pattern_t, Release<cairo_pattern_destroy>>;
using Layout = std::unique_ptr<PangoLayout, Release<g_object_unref>>;
using Font = std::unique_ptr<PangoFontDescription, Release<pango_font_description_free>>;

// Red, green and blue, each from 0 to 1.
std::array<double, 3> channels(std::uint32_t rgb)
{
    return {(rgb >> 16 & 0xFF) / 255.0, (rgb >> 8 & 0xFF) / 255.0, (rgb & 0xFF) / 255.0};
}

struct Point
{
    double x;
    double y;
};

// Where the lines stand: in columns from left to right, each from top to bottom. All in pixels.
struct Grid
{
    double left;
    double top;
    int rows;
    int columns;
    double rowHeight;
    double columnWidth;
    double gap;
    /// Of a line's label; 0 where there is no room for labels.
    double labelWidth;

    Grid(double width, double height, int lines)
    {
        left = top = std::round(height / 20);
        gap = top / 2;
        const double leastRow = std::max(3.0, height / 48);
        const double mostRow = height / 6;
        const double room = height - 2 * top;
        const int mostRows = std::max(1, static_cast<int>(room / leastRow));
        columns = std::clamp((lines + mostRows - 1) / mostRows, 1, 8);
        rows = std::clamp((lines + columns - 1) / columns, 1, mostRows);
        rowHeight = std::min(room / rows, mostRow);
        columnWidth = (width - 2 * left - (columns - 1) * gap) / columns;
        constexpr double leastLabel = 40;
        labelWidth = columnWidth * 0.42;
        if (labelWidth < leastLabel || rowHeight < 8)
            labelWidth = 0;
    }

    Point corner(int line) const
    {
        return {left + line / rows * (columnWidth + gap), top + line % rows * rowHeight};
    }
};

class SheetPainter
{
public:
    SheetPainter(cairo_t* context, double width, double height)
        : m_context(context)
        , m_width(width)
        , m_height(height)
        , m_pixelsPerMillimeter(height / millimetersPerSheet)
    {
    }

    void draw(const std::vector<SheetLine>& lines)
    {
        drawPaper();
        const Grid grid(m_width, m_height, static_cast<int>(lines.size()));
        const std::size_t shown =
            std::min(lines.size(), static_cast<std::size_t>(grid.rows * grid.columns));
        for (std::size_t i = 0; i < shown; ++i)
        {
            const Point corner = grid.corner(static_cast<int>(i));
            if (grid.labelWidth > 0)
                drawLabel(lines[i].label, corner, grid);
            const double left = grid.labelWidth > 0 ? grid.labelWidth + grid.gap / 2 : 0;
            drawLine(lines[i], {corner.x + left, corner.y}, grid.columnWidth - left,
                     grid.rowHeight);
        }
    }

private:
    void setColor(std::uint32_t rgb)
    {
        const auto [red, green, blue] = channels(rgb);
        cairo_set_source_rgb(m_context, red, green, blue);
    }

    void drawPaper()
    {
        setColor(0xFFFFFF);
        cairo_paint(m_context);
        setColor(0xB0B0B0);
        cairo_set_line_width(m_context, 1);
        cairo_rectangle(m_context, 0.5, 0.5, m_width - 1, m_height - 1);
        cairo_stroke(m_context);
    }

    void drawLabel(const wxString& text, Point corner, const Grid& grid)
    {
        const double size = std::min({grid.rowHeight * 0.6, m_height / 32, 24.0});
        const Font font(pango_font_description_from_string("Sans"));
        pango_font_description_set_absolute_size(font.get(), size * PANGO_SCALE);
        const Layout layout(pango_cairo_create_layout(m_context));
        pango_layout_set_font_description(layout.get(), font.get());
        pango_layout_set_single_paragraph_mode(layout.get(), true);
        pango_layout_set_width(layout.get(), static_cast<int>(grid.labelWidth * PANGO_SCALE));
        pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_MIDDLE);
        const auto utf8 = text.utf8_str();
        pango_layout_set_text(layout.get(), utf8, -1);
        int textHeight = 0;
        pango_layout_get_pixel_size(layout.get(), nullptr, &textHeight);
        setColor(0x404040);
        cairo_move_to(m_context, corner.x, corner.y + (grid.rowHeight - textHeight) / 2);
        pango_cairo_show_layout(m_context, layout.get());
    }

    // A line that rises to a point near its end, so that its join is seen as well.
    void drawLine(const SheetLine& line, Point corner, double length, double height)
    {
        const double width =
            std::clamp(line.width * m_pixelsPerMillimeter, 1.0, std::max(1.0, height * 0.4));
        const double rise = height * 0.4;
        const double base = std::round(corner.y + height * 0.7) + (width < 2 ? 0.5 : 0);
        const double left = corner.x + width / 2;
        const double right = corner.x + length - width / 2;
        const Point points[] = {{left, base},
                                {std::max(left, right - 2 * rise), base},
                                {std::max(left, right - rise), base - rise},
                                {right, base}};
        setColors(line.colors, corner.x, corner.x + length);
        stroke(line, points, width);
    }

    // Several colours follow one another along the line.
    void setColors(const std::vector<std::uint32_t>& colors, double left, double right)
    {
        setColor(colors.front());
        if (colors.size() == 1)
            return;
        const Pattern pattern(cairo_pattern_create_linear(left, 0, right, 0));
        for (std::size_t i = 0; i < colors.size(); ++i)
        {
            const double place = static_cast<double>(i) / static_cast<double>(colors.size() - 1);
            const auto [red, green, blue] = channels(colors[i]);
            cairo_pattern_add_color_stop_rgb(pattern.get(), place, red, green, blue);
        }
        cairo_set_source(m_context, pattern.get());
    }

    void stroke(const SheetLine& line, const Point (&points)[4], double width)
    {
        static const cairo_line_cap_t caps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_SQUARE,
                                                CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_BUTT};
        static const cairo_line_join_t joins[] = {CAIRO_LINE_JOIN_MITER, CAIRO_LINE_JOIN_BEVEL,
                                                  CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_JOIN_BEVEL};
        cairo_set_line_width(m_context, width);
        cairo_set_line_cap(m_context, caps[static_cast<int>(line.end)]);
        cairo_set_line_join(m_context, joins[static_cast<int>(line.join)]);
        std::vector<double> dashes = line.dashes;
        for (double& dash : dashes)
            dash = std::max(1.0, dash * m_pixelsPerMillimeter);
        cairo_set_dash(m_context, dashes.data(), static_cast<int>(dashes.size()), 0);
        cairo_new_path(m_context);
        for (const Point& point : points)
            cairo_line_to(m_context, point.x, point.y);
        cairo_stroke(m_context);
        if (line.end == SheetLine::End::Diamond)
        {
            drawDiamond(points[0], width / 2);
            drawDiamond(points[3], width / 2);
        }
        if (line.join == SheetLine::Join::Diamond)
        {
            drawDiamond(points[1], width * 0.7);
            drawDiamond(points[2], width * 0.7);
        }
    }

    void drawDiamond(Point centre, double radius)
    {
        cairo_move_to(m_context, centre.x - radius, centre.y);
        cairo_line_to(m_context, centre.x, centre.y - radius);
        cairo_line_to(m_context, centre.x + radius, centre.y);
        cairo_line_to(m_context, centre.x, centre.y + radius);
        cairo_close_path(m_context);
        cairo_fill(m_context);
    }

    cairo_t* m_context;
    double m_width;
    double m_height;
    double m_pixelsPerMillimeter;
};

} // namespace

bool writeTablePicture(const OdPsPlotStyleTable& table, int size, const std::string& path)
{
    const int width = static_cast<int>(std::lround(size / sheetRatio));
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, size));
    const Context context(cairo_create(surface.get()));
    SheetPainter(context.get(), width, size).draw(sheetLines(table));
    return cairo_surface_write_to_png(surface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}
