// The platform's colour of a drawing entity.

#ifndef ODPS_OD_COLOR_H
#define ODPS_OD_COLOR_H

#include <cstdint>

/// A colour in 32 bits: the colour method in bits 24 to 31, below it red (bits 16 to 23), green
/// and blue, or the colour index (ACI) in bits 0 to 7 where the method is `kByACI`.
class OdCmEntityColor
{
public:
    enum ColorMethod : std::uint8_t
    {
        kByLayer = 0xC0,
        kByBlock = 0xC1,
        kByColor = 0xC2,
        kByACI = 0xC3,
    };

    /// By colour, white: what a plot style takes for "use object color".
    OdCmEntityColor() = default;
    /// By colour, with these components (0 to 255 each).
    OdCmEntityColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    /// The RGB of a colour index, packed as 0xRRGGBB. The 255 colours are the CAD industry's
    /// index palette; index 7 is white here, whatever the background.
    /// @param index 1 to 255; any other value gives 0 (black)
    static std::uint32_t lookUpRGB(int index);
    /// The colour index (1 to 255) nearest to an RGB, by the sum of the squared differences of the
    /// components; the lowest index on a tie.
    static std::uint8_t lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

    /// All 32 bits.
    std::uint32_t color() const noexcept { return m_bits; }
    void setColor(std::uint32_t bits) noexcept { m_bits = bits; }

    ColorMethod colorMethod() const noexcept { return static_cast<ColorMethod>(m_bits >> 24); }
    /// Changes the method and keeps the 24 bits below it.
    void setColorMethod(ColorMethod method) noexcept;

    /// The colour index: the one stored where the method is `kByACI`, 256 by layer, 0 by block,
    /// and the nearest index (1 to 255) of any other colour.
    int colorIndex() const;
    /// Makes the colour an index colour. @param index 0 to 255
    void setColorIndex(int index) noexcept;

    /// Makes the colour a by-colour one with these components.
    void setRGB(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept;
    /// The stored components; meaningless for an index colour (see lookUpRGB).
    std::uint8_t red() const noexcept { return static_cast<std::uint8_t>(m_bits >> 16); }
    std::uint8_t green() const noexcept { return static_cast<std::uint8_t>(m_bits >> 8); }
    std::uint8_t blue() const noexcept { return static_cast<std::uint8_t>(m_bits); }

    friend bool operator==(OdCmEntityColor a, OdCmEntityColor b) { return a.m_bits == b.m_bits; }
    friend bool operator!=(OdCmEntityColor a, OdCmEntityColor b) { return a.m_bits != b.m_bits; }

private:
    std::uint32_t m_bits = 0xC2FFFFFF;
};

#endif
