// Gathering and changing the properties of styles.

#include "psl_style_fields.h"

#include "psl_lineweight_list.h"

#include <algorithm>

namespace
{

enum PolicyFlag : std::int16_t
{
    ditherFlag = 1,
    grayscaleFlag = 2,
    explicitColorFlag = 4,
};

bool hasFlag(const OdPsPlotStyleData& data, PolicyFlag flag)
{
    return (data.colorPolicy & flag) != 0;
}

void setFlag(OdPsPlotStyleData& data, PolicyFlag flag, bool on)
{
    data.colorPolicy =
        static_cast<std::int16_t>(on ? data.colorPolicy | flag : data.colorPolicy & ~flag);
}

void fold(int& field, int value)
{
    if (field == fieldUnset)
        field = value;
    else if (field != value)
        field = fieldDiffers;
}

void foldStyle(StyleFields& fields, const OdPsPlotStyle& style)
{
    OdPsPlotStyleData data;
    style.getData(data);
    fold(fields.dither, hasFlag(data, ditherFlag));
    fold(fields.grayscale, hasFlag(data, grayscaleFlag));
    fold(fields.adaptive, data.adaptiveLinetype);
    fold(fields.physicalPen, data.physicalPenNumber);
    fold(fields.virtualPen, data.virtualPenNumber);
    fold(fields.screening, data.screening);
    fold(fields.lineWeight, lineweightIndex(data.lineweight));
    fold(fields.lineType, data.linetype);
    fold(fields.endStyle, data.endStyle);
    fold(fields.joinStyle, data.joinStyle);
    fold(fields.fillStyle, data.fillStyle);
    fields.color.add(styleRgb(data.color));
    if (fields.description.state != fields.description.Differs)
        fields.description.add(style.description());
}

bool allDiffer(const StyleFields& fields)
{
    const int integers[] = {fields.dither,      fields.grayscale,  fields.adaptive,
                            fields.physicalPen, fields.virtualPen, fields.screening,
                            fields.lineType,    fields.lineWeight, fields.endStyle,
                            fields.joinStyle,   fields.fillStyle};
    return fields.color.state == fields.color.Differs &&
           fields.description.state == fields.description.Differs &&
           std::all_of(std::begin(integers), std::end(integers),
                       [](int value) { return value == fieldDiffers; });
}

StyleFields fieldsOfNoStyle()
{
    StyleFields fields;
    fields.dither = 1;
    fields.grayscale = 0;
    fields.adaptive = 1;
    fields.physicalPen = 0;
    fields.virtualPen = 0;
    fields.screening = 100;
    fields.lineType = 31;
    fields.lineWeight = 0;
    fields.endStyle = 4;
    fields.joinStyle = 5;
    fields.fillStyle = 73;
    return fields;
}

} // namespace

StyleFields gatherStyleFields(const std::function<OdPsPlotStylePtr()>& next)
{
    OdPsPlotStylePtr style = next();
    if (style.isNull())
        return fieldsOfNoStyle();
    StyleFields fields;
    for (; !style.isNull(); style = next())
    {
        foldStyle(fields, *style);
        if (allDiffer(fields))
            break;
    }
    return fields;
}

std::uint32_t styleRgb(OdCmEntityColor color)
{
    if (color.colorMethod() == OdCmEntityColor::kByACI)
        return OdCmEntityColor::lookUpRGB(color.colorIndex());
    return color.color() & 0xFFFFFF;
}

OdCmEntityColor byColor(std::uint32_t rgb)
{
    OdCmEntityColor color;
    color.setColor(static_cast<std::uint32_t>(OdCmEntityColor::kByColor) << 24 | rgb);
    return color;
}

void changeColor(OdPsPlotStyleData& data, std::uint32_t rgb)
{
    data.color = byColor(rgb);
    setFlag(data, explicitColorFlag, rgb != objectColor && !hasFlag(data, grayscaleFlag));
}

void changeDither(OdPsPlotStyleData& data, bool dither)
{
    setFlag(data, ditherFlag, dither);
}

void changeGrayscale(OdPsPlotStyleData& data, bool grayscale)
{
    setFlag(data, grayscaleFlag, grayscale);
    setFlag(data, explicitColorFlag, !grayscale && styleRgb(data.color) != objectColor);
}
