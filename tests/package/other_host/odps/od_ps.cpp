#include "odps/od_ps.h"

#include <cwchar>

namespace
{

int squareDistance(std::uint32_t first, std::uint32_t second)
{
    int sum = 0;
    for (const int shift : {0, 8, 16})
    {
        const int difference = int(first >> shift & 0xFF) - int(second >> shift & 0xFF);
        sum += difference * difference;
    }
    return sum;
}

} // namespace

// Seven plain colours; all others have three bits of red, three of green and two of blue.
std::uint32_t OdCmEntityColor::lookUpRGB(int index)
{
    constexpr int plain[] = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF};
    const int mixed = (index >> 5) * 36 << 16 | (index >> 2 & 7) * 36 << 8 | (index & 3) * 85;
    return std::uint32_t(index < 8 ? plain[index - 1] : mixed);
}

int OdCmEntityColor::lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    const std::uint32_t rgb = std::uint32_t(red << 16 | green << 8 | blue);
    int nearest = 1;
    for (int index = 2; index < 256; ++index)
    {
        if (squareDistance(lookUpRGB(index), rgb) < squareDistance(lookUpRGB(nearest), rgb))
            nearest = index;
    }
    return nearest;
}

bool OdPs::OdPsStrLess::operator()(const wchar_t* first, const wchar_t* second) const
{
    return wcscasecmp(first, second) < 0;
}

OdPsPlotStylePtr OdPsPlotStyleTable::findStyleByName(const OdString& name) const
{
    const auto isIt = [&name](const OdString& other)
    { return wcscasecmp(other.c_str(), name.c_str()) == 0; };
    for (const auto& style : styles)
    {
        if (isIt(style->name()) || isIt(style->localizedName()))
            return style;
    }
    return nullptr;
}

OdPsPlotStylePtr OdPsPlotStyleTable::addNewStyle(const OdString& name)
{
    const OdPsPlotStylePtr style = new OdPsPlotStyle(name);
    styles.push_back(style);
    map[keep(name.c_str())] = style;
    return style;
}

void OdPsPlotStyleTable::deleteStyle(const OdPsPlotStylePtr& style)
{
    for (auto entry = map.begin(); entry != map.end();)
        entry = entry->second.get() == style.get() ? map.erase(entry) : std::next(entry);
    OdArray<OdPsPlotStylePtr> others;
    for (const auto& other : styles)
    {
        if (other.get() != style.get())
            others.push_back(other);
    }
    styles = others;
}

void OdPsPlotStyleTable::setStyleMap(const OdPs::OdPsStyleMap& newMap)
{
    map.clear();
    for (const auto& [name, style] : newMap)
        map[keep(name)] = style;
}
