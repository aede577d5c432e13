// The plot style table model: what the editor and the host know of a table in memory.

#ifndef ODPS_OD_PS_H
#define ODPS_OD_PS_H

#include "odps/od_array.h"
#include "odps/od_color.h"
#include "odps/od_smart_ptr.h"
#include "odps/od_string.h"

#include <cstdint>
#include <map>

/// The properties of one plot style: a plain value record. A default-constructed one takes every
/// property from the object that is plotted.
struct OdPsPlotStyleData
{
    /// Output colour; by colour with RGB 0xFFFFFF means the object's own colour.
    OdCmEntityColor color;
    /// Bit set: 1 dither, 2 convert to grayscale, 4 explicit colour.
    std::int16_t colorPolicy = 0;
    /// Whether linetypes are scaled so that they end in a whole pattern.
    bool adaptiveLinetype = false;
    /// Ink in percent, 0 to 100.
    std::int16_t screening = 100;
    /// Pen of a pen plotter; -1 chooses it automatically.
    std::int16_t physicalPenNumber = -1;
    /// Pen that a raster plotter simulates; -1 chooses it automatically.
    std::int16_t virtualPenNumber = -1;
    /// 0 to 30 are the fixed linetypes; 31 is the object's own.
    std::int16_t linetype = 31;
    /// 64 to 72 are the fill patterns; 73 is the object's own.
    std::int16_t fillStyle = 73;
    /// 0 butt, 1 square, 2 round, 3 diamond; 4 is the object's own.
    std::int16_t endStyle = 4;
    /// 0 mitre, 1 bevel, 2 round, 3 diamond; 5 is the object's own.
    std::int16_t joinStyle = 5;
    /// Size of the line pattern. Kept for the plotting system.
    double linePatternSize = 0.0;
    /// 1-based position in the table's lineweight list, held as a double and read as the nearest
    /// integer (add 0.5, truncate); 0 or less is the object's own lineweight.
    double lineweight = -1.0;
};

bool operator==(const OdPsPlotStyleData& a, const OdPsPlotStyleData& b);
inline bool operator!=(const OdPsPlotStyleData& a, const OdPsPlotStyleData& b)
{
    return !(a == b);
}

/// One plot style of a table. Objects are counted by their references and delete themselves when
/// the last one is released. No operation reports an error.
class OdPsPlotStyle
{
public:
    virtual void addRef() = 0;
    virtual void release() = 0;

    virtual OdString name() const = 0;
    virtual OdString description() const = 0;
    /// Copies the style's properties into `data`.
    virtual void getData(OdPsPlotStyleData& data) const = 0;
    /// The name that users see. In a named table it is also the key of the table's style map.
    virtual OdString localizedName() const = 0;
    virtual void setData(const OdPsPlotStyleData& data) = 0;
    virtual void setDescription(const OdString& description) = 0;
    virtual void setName(const OdString& name) = 0;
    /// Changes the text alone: the table's style map is the caller's to bring up to date
    /// (OdPsPlotStyleTable::setStyleMap).
    virtual void setLocalizedName(const OdString& name) = 0;

protected:
    virtual ~OdPsPlotStyle() = default;
};

using OdPsPlotStylePtr = OdSmartPtr<OdPsPlotStyle>;

namespace OdPs
{

/// Orders style names without regard to case: of wide characters, by Unicode's case tables whatever
/// the locale.
struct OdPsStrLess
{
    bool operator()(const wchar_t* a, const wchar_t* b) const;
};

/// The styles of a table by their localized names. The keys point into the names that the styles
/// themselves hold.
using OdPsStyleMap = std::map<const wchar_t*, OdPsPlotStylePtr, OdPsStrLess>;

} // namespace OdPs

/// A plot style table: colour-dependent (255 styles, one for every colour index) or named.
/// Counted by its references like a style. No operation reports an error: a position outside a
/// list gives null or 0, and a change at such a position is ignored.
class OdPsPlotStyleTable
{
public:
    virtual void addRef() = 0;
    virtual void release() = 0;

    /// Whether the scale factor is applied to non-ISO linetypes.
    virtual bool isApplyScaleFactor() const = 0;
    virtual OdString description() const = 0;
    virtual double scaleFactor() const = 0;
    /// The unit in which lineweights are shown: true = inches, false = millimetres.
    virtual bool isDisplayCustomLineweightUnits() const = 0;
    /// A lineweight in millimetres. @param index 0-based
    virtual double lineweightAt(int index) const = 0;
    /// The style of the style map with this localized name, else one with this name, both without
    /// regard to case; null when there is none. The two differ in older tables, whose names have
    /// `_` for blanks.
    virtual OdPsPlotStylePtr findStyleByName(const OdString& name) const = 0;
    /// @param index 0-based
    virtual OdPsPlotStylePtr styleAt(int index) const = 0;
    virtual int styleCount() const = 0;
    virtual int lineweightCount() const = 0;
    /// Whether the table is colour-dependent; never changes.
    virtual bool isColorDependent() const = 0;
    /// Appends a style with default properties whose name and localized name are `name`.
    virtual OdPsPlotStylePtr addNewStyle(const OdString& name) = 0;
    /// Removes a style; one that is not in the table, or null, is ignored.
    virtual void deleteStyle(const OdPsPlotStylePtr& style) = 0;
    virtual void setDescription(const OdString& description) = 0;
    virtual void setScaleFactor(double factor) = 0;
    virtual void setApplyScaleFactor(bool apply) = 0;
    /// @param inches the unit in which lineweights are shown
    virtual void setDisplayCustomLineweightUnits(bool inches) = 0;
    /// @param index 0-based  @param value in millimetres
    virtual void setLineweightAt(int index, double value) = 0;
    /// Replaces the styles and their order.
    virtual void setStyleArray(const OdArray<OdPsPlotStylePtr>& styles) = 0;
    /// Replaces the style map, as after a rename.
    virtual void setStyleMap(const OdPs::OdPsStyleMap& styles) = 0;
    /// A copy of the style map.
    virtual OdPs::OdPsStyleMap styleMap() const = 0;
    /// A copy of the ordered styles.
    virtual OdArray<OdPsPlotStylePtr> styleArray() const = 0;

protected:
    virtual ~OdPsPlotStyleTable() = default;
};

using OdPsPlotStyleTablePtr = OdSmartPtr<OdPsPlotStyleTable>;

#endif
