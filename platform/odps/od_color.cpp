// The index palette and the conversions between colour indices and RGB.

#include "odps/od_color.h"

#include <array>

namespace
{

/// The RGB of the colour indices 1 to 255, packed as 0xRRGGBB.
// clang-format off
constexpr std::array<std::uint32_t, 255> kPalette = {
    0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080,
    0xC0C0C0, 0xFF0000, 0xFF7F7F, 0xA50000, 0xA55252, 0x7F0000, 0x7F3F3F, 0x4C0000,
    0x4C2626, 0x260000, 0x261313, 0xFF3F00, 0xFF9F7F, 0xA52900, 0xA56752, 0x7F1F00,
    0x7F4F3F, 0x4C1300, 0x4C2F26, 0x260900, 0x261713, 0xFF7F00, 0xFFBF7F, 0xA55200,
    0xA57C52, 0x7F3F00, 0x7F5F3F, 0x4C2600, 0x4C3926, 0x261300, 0x261C13, 0xFFBF00,
    0xFFDF7F, 0xA57C00, 0xA59152, 0x7F5F00, 0x7F6F3F, 0x4C3900, 0x4C4226, 0x261C00,
    0x262113, 0xFFFF00, 0xFFFF7F, 0xA5A500, 0xA5A552, 0x7F7F00, 0x7F7F3F, 0x4C4C00,
    0x4C4C26, 0x262600, 0x262613, 0xBFFF00, 0xDFFF7F, 0x7CA500, 0x91A552, 0x5F7F00,
    0x6F7F3F, 0x394C00, 0x424C26, 0x1C2600, 0x212613, 0x7FFF00, 0xBFFF7F, 0x52A500,
    0x7CA552, 0x3F7F00, 0x5F7F3F, 0x264C00, 0x394C26, 0x132600, 0x1C2613, 0x3FFF00,
    0x9FFF7F, 0x29A500, 0x67A552, 0x1F7F00, 0x4F7F3F, 0x134C00, 0x2F4C26, 0x092600,
    0x172613, 0x00FF00, 0x7FFF7F, 0x00A500, 0x52A552, 0x007F00, 0x3F7F3F, 0x004C00,
    0x264C26, 0x002600, 0x132613, 0x00FF3F, 0x7FFF9F, 0x00A529, 0x52A567, 0x007F1F,
    0x3F7F4F, 0x004C13, 0x264C2F, 0x002609, 0x132617, 0x00FF7F, 0x7FFFBF, 0x00A552,
    0x52A57C, 0x007F3F, 0x3F7F5F, 0x004C26, 0x264C39, 0x002613, 0x13261C, 0x00FFBF,
    0x7FFFDF, 0x00A57C, 0x52A591, 0x007F5F, 0x3F7F6F, 0x004C39, 0x264C42, 0x00261C,
    0x132621, 0x00FFFF, 0x7FFFFF, 0x00A5A5, 0x52A5A5, 0x007F7F, 0x3F7F7F, 0x004C4C,
    0x264C4C, 0x002626, 0x132626, 0x00BFFF, 0x7FDFFF, 0x007CA5, 0x5291A5, 0x005F7F,
    0x3F6F7F, 0x00394C, 0x26424C, 0x001C26, 0x132126, 0x007FFF, 0x7FBFFF, 0x0052A5,
    0x527CA5, 0x003F7F, 0x3F5F7F, 0x00264C, 0x26394C, 0x001326, 0x131C26, 0x003FFF,
    0x7F9FFF, 0x0029A5, 0x5267A5, 0x001F7F, 0x3F4F7F, 0x00134C, 0x262F4C, 0x000926,
    0x131726, 0x0000FF, 0x7F7FFF, 0x0000A5, 0x5252A5, 0x00007F, 0x3F3F7F, 0x00004C,
    0x26264C, 0x000026, 0x131326, 0x3F00FF, 0x9F7FFF, 0x2900A5, 0x6752A5, 0x1F007F,
    0x4F3F7F, 0x13004C, 0x2F264C, 0x090026, 0x171326, 0x7F00FF, 0xBF7FFF, 0x5200A5,
    0x7C52A5, 0x3F007F, 0x5F3F7F, 0x26004C, 0x39264C, 0x130026, 0x1C1326, 0xBF00FF,
    0xDF7FFF, 0x7C00A5, 0x9152A5, 0x5F007F, 0x6F3F7F, 0x39004C, 0x42264C, 0x1C0026,
    0x211326, 0xFF00FF, 0xFF7FFF, 0xA500A5, 0xA552A5, 0x7F007F, 0x7F3F7F, 0x4C004C,
    0x4C264C, 0x260026, 0x261326, 0xFF00BF, 0xFF7FDF, 0xA5007C, 0xA55291, 0x7F005F,
    0x7F3F6F, 0x4C0039, 0x4C2642, 0x26001C, 0x261321, 0xFF007F, 0xFF7FBF, 0xA50052,
    0xA5527C, 0x7F003F, 0x7F3F5F, 0x4C0026, 0x4C2639, 0x260013, 0x26131C, 0xFF003F,
    0xFF7F9F, 0xA50029, 0xA55267, 0x7F001F, 0x7F3F4F, 0x4C0013, 0x4C262F, 0x260009,
    0x261317, 0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0xFFFFFF,
};
// clang-format on

constexpr int squared(int value)
{
    return value * value;
}

/// The squared distance of two packed colours.
constexpr int distance(std::uint32_t a, std::uint32_t b)
{
    const auto component = [](std::uint32_t rgb, int shift)
    { return static_cast<int>((rgb >> shift) & 0xFF); };
    return squared(component(a, 16) - component(b, 16)) +
           squared(component(a, 8) - component(b, 8)) + squared(component(a, 0) - component(b, 0));
}

constexpr std::uint32_t packed(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    return static_cast<std::uint32_t>(red) << 16 | static_cast<std::uint32_t>(green) << 8 | blue;
}

constexpr std::uint32_t kRgbMask = 0xFFFFFF;
constexpr int kIndexByLayer = 256;

} // namespace

OdCmEntityColor::OdCmEntityColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    setRGB(red, green, blue);
}

std::uint32_t OdCmEntityColor::lookUpRGB(int index)
{
    const bool inPalette = index >= 1 && index <= static_cast<int>(kPalette.size());
    return inPalette ? kPalette[static_cast<std::size_t>(index - 1)] : 0;
}

std::uint8_t OdCmEntityColor::lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    const std::uint32_t wanted = packed(red, green, blue);
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < kPalette.size(); ++i)
    {
        if (distance(kPalette[i], wanted) < distance(kPalette[nearest], wanted))
            nearest = i;
    }
    return static_cast<std::uint8_t>(nearest + 1);
}

void OdCmEntityColor::setColorMethod(ColorMethod method) noexcept
{
    m_bits = static_cast<std::uint32_t>(method) << 24 | (m_bits & kRgbMask);
}

int OdCmEntityColor::colorIndex() const
{
    switch (colorMethod())
    {
    case kByLayer:
        return kIndexByLayer;
    case kByBlock:
        return 0;
    case kByACI:
        return static_cast<int>(m_bits & 0xFF);
    default:
        return lookUpACI(red(), green(), blue());
    }
}

void OdCmEntityColor::setColorIndex(int index) noexcept
{
    m_bits = static_cast<std::uint32_t>(kByACI) << 24 | (static_cast<std::uint32_t>(index) & 0xFF);
}

void OdCmEntityColor::setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept
{
    m_bits = static_cast<std::uint32_t>(kByColor) << 24 | packed(red, green, blue);
}
