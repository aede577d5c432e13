// Drawing the sheet of a table's styles.

#include "table_picture.h"

#include "sheet_lines.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numeric>
#include <vector>

namespace
{

constexpr double sheetRatio = 1.41421356; // of the ISO 216 paper sizes
constexpr double millimetersPerSheet = 50;
// Wider lines are drawn as wide as this, in millimetres, so that they leave the others visible.
constexpr double mostWidth = 2.5;
// No sheet has room for more: its rows are at least a 48th of its height high.
constexpr int mostColumns = 8;
constexpr double rowsPerSheet = 48;
constexpr std::size_t mostLines = mostColumns * static_cast<std::size_t>(rowsPerSheet);

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
        const double leastRow = std::max(3.0, height / rowsPerSheet);
        const double mostRow = height / 6;
        const double room = height - 2 * top;
        const int mostRows = std::max(1, static_cast<int>(room / leastRow));
        columns = std::clamp((lines + mostRows - 1) / mostRows, 1, mostColumns);
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
    {
    }

    void draw(const std::vector<SheetLine>& lines)
    {
        drawPaper();
        const Grid grid(m_width, m_height, static_cast<int>(lines.size()));
        m_pixelsPerMillimeter =
            std::min(m_height / millimetersPerSheet, grid.rowHeight * 0.4 / widest(lines));
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

    static double widest(const std::vector<SheetLine>& lines)
    {
        double width = SheetLine::usualWidth;
        for (const SheetLine& line : lines)
            width = std::max(width, std::min(line.width, mostWidth));
        return width;
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
        const double width = drawnWidth(line);
        const double rise = height * 0.4;
        const double base = std::round(corner.y + height * 0.7) + (width < 2 ? 0.5 : 0);
        // Room for the ends.
        const double left = corner.x + width / 2;
        const double right = corner.x + length - width * 0.75;
        const Point points[] = {{left, base},
                                {std::max(left, right - 2 * rise), base},
                                {std::max(left, right - rise), base - rise},
                                {right, base}};
        if (isPale(line))
        {
            setColor(0xC8C8C8);
            stroke(line, points, width, 2);
        }
        setColors(line.colors, corner.x, corner.x + length);
        stroke(line, points, width, 0);
    }

    double drawnWidth(const SheetLine& line) const
    {
        return std::max(1.0, std::min(line.width, mostWidth) * m_pixelsPerMillimeter);
    }

    // Ink that cannot be told from the paper gets an outline.
    static bool isPale(const SheetLine& line)
    {
        constexpr int pale = 0xE8;
        return std::all_of(
            line.colors.begin(), line.colors.end(),
            [](std::uint32_t rgb) {
                return std::min({rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF}) >= pale;
            });
    }

    // The dashes of a line, in pixels, of which at least one and a half patterns fit its straight
    // part. Round and square ends take their length from the gaps.
    std::vector<double> pixelDashes(const SheetLine& line, double width, double straight) const
    {
        std::vector<double> dashes = line.dashes;
        const double unit = line.dashesAreWidths
                                ? std::max(width, SheetLine::usualWidth * m_pixelsPerMillimeter)
                                : m_pixelsPerMillimeter;
        const double pattern = std::accumulate(dashes.begin(), dashes.end(), 0.0);
        const double scale = std::min(unit, straight / (1.5 * std::max(pattern, 1e-6)));
        const bool extends =
            line.end == SheetLine::End::Round || line.end == SheetLine::End::Square;
        for (std::size_t i = 0; i < dashes.size(); ++i)
        {
            const double length = dashes[i] * scale;
            const double ink = std::max(0.05, extends ? length - width : std::max(1.0, length));
            dashes[i] = i % 2 == 0 ? ink : std::max(1.0, length) + (extends ? width : 0.0);
        }
        return dashes;
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

    // @param outline  by how much the line is drawn wider
    void stroke(const SheetLine& line, const Point (&points)[4], double width, double outline)
    {
        static const cairo_line_cap_t caps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_SQUARE,
                                                CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_BUTT};
        static const cairo_line_join_t joins[] = {CAIRO_LINE_JOIN_MITER, CAIRO_LINE_JOIN_BEVEL,
                                                  CAIRO_LINE_JOIN_ROUND, CAIRO_LINE_JOIN_BEVEL};
        cairo_set_line_width(m_context, width + outline);
        cairo_set_line_cap(m_context, caps[static_cast<int>(line.end)]);
        cairo_set_line_join(m_context, joins[static_cast<int>(line.join)]);
        const auto dashes = pixelDashes(line, width, points[1].x - points[0].x);
        cairo_set_dash(m_context, dashes.data(), static_cast<int>(dashes.size()), 0);
        cairo_new_path(m_context);
        for (const Point& point : points)
            cairo_line_to(m_context, point.x, point.y);
        cairo_stroke(m_context);
        const double radius = (width + outline) / 2;
        if (line.end == SheetLine::End::Diamond)
        {
            drawDiamond(points[0], radius, false);
            drawDiamond(points[3], radius, true); // where the line comes down
        }
        if (line.join == SheetLine::Join::Diamond)
        {
            drawDiamond(points[1], radius * sheetRatio, false);
            drawDiamond(points[2], radius * sheetRatio, false);
        }
    }

    // A diamond on its point, or on a side at the end of a slope.
    void drawDiamond(Point centre, double radius, bool isOnSlope)
    {
        cairo_save(m_context);
        cairo_translate(m_context, centre.x, centre.y);
        if (isOnSlope)
            cairo_rotate(m_context, std::acos(-1.0) / 4);
        cairo_move_to(m_context, -radius, 0);
        cairo_line_to(m_context, 0, -radius);
        cairo_line_to(m_context, radius, 0);
        cairo_line_to(m_context, 0, radius);
        cairo_close_path(m_context);
        cairo_restore(m_context);
        cairo_fill(m_context);
    }

    cairo_t* m_context;
    double m_width;
    double m_height;
    /// One for all lines, so that their widths can be compared.
    double m_pixelsPerMillimeter = 0;
};

} // namespace

std::string tablePicture(const OdPsPlotStyleTable& table, int size)
{
    const int width = static_cast<int>(std::lround(size / sheetRatio));
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, size));
    const Context context(cairo_create(surface.get()));
    SheetPainter(context.get(), width, size).draw(sheetLines(table, mostLines));
    std::string bytes;
    const auto append = [](void* to, const unsigned char* data, unsigned length)
    {
        static_cast<std::string*>(to)->append(reinterpret_cast<const char*>(data), length);
        return CAIRO_STATUS_SUCCESS;
    };
    cairo_surface_write_to_png_stream(surface.get(), append, &bytes);
    return bytes;
}
