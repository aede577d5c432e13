// The plot style table in memory. Objects are counted, and begin with no reference.

#ifndef OTHER_HOST_OD_PS_H
#define OTHER_HOST_OD_PS_H

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

class OdString
{
public:
    OdString() = default;
    OdString(const wchar_t* characters)
        : text(characters)
    {
    }
    const wchar_t* c_str() const { return text.c_str(); }
    bool isEmpty() const { return text.empty(); }
    friend bool operator==(const OdString& a, const OdString& b) { return a.text == b.text; }
    friend bool operator!=(const OdString& a, const OdString& b) { return a.text != b.text; }

private:
    std::wstring text;
};

template <typename T>
class OdArray : private std::vector<T>
{
public:
    using std::vector<T>::begin; // for the host itself, like end
    using std::vector<T>::end;
    using std::vector<T>::push_back;
    using std::vector<T>::size;
    using std::vector<T>::operator[];
};

class OdCounted
{
public:
    OdCounted() = default;
    OdCounted(const OdCounted&) = delete;
    OdCounted& operator=(const OdCounted&) = delete;
    void addRef() { ++references; }
    void release()
    {
        if (--references == 0)
            delete this;
    }

protected:
    virtual ~OdCounted() = default;

private:
    int references = 0;
};

template <typename T>
class OdSmartPtr
{
public:
    OdSmartPtr(T* object = nullptr)
        : pointer(object)
    {
        if (pointer)
            pointer->addRef();
    }
    OdSmartPtr(const OdSmartPtr& other)
        : OdSmartPtr(other.pointer)
    {
    }
    ~OdSmartPtr()
    {
        if (pointer)
            pointer->release();
    }
    OdSmartPtr& operator=(OdSmartPtr other)
    {
        std::swap(pointer, other.pointer);
        return *this;
    }
    T* get() const { return pointer; }
    T* operator->() const { return pointer; }
    T& operator*() const { return *pointer; }
    bool isNull() const { return !pointer; }

private:
    T* pointer;
};

/// A colour: the method in the highest byte, red, green and blue below, whatever the method.
class OdCmEntityColor
{
public:
    enum ColorMethod
    {
        kByColor = 0xC2,
        kByACI = 0xC3
    };
    OdCmEntityColor() = default;
    OdCmEntityColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
        : bits(0xC2000000 | std::uint32_t(red << 16 | green << 8 | blue))
    {
    }
    std::uint32_t color() const { return bits; }
    void setColor(std::uint32_t color) { bits = color; }
    ColorMethod colorMethod() const { return ColorMethod(bits >> 24); }
    void setColorIndex(int index) { bits = 0xC3000000 | lookUpRGB(index); }
    int colorIndex() const { return lookUpACI(red(), green(), blue()); }
    std::uint8_t red() const { return std::uint8_t(bits >> 16); }
    std::uint8_t green() const { return std::uint8_t(bits >> 8); }
    std::uint8_t blue() const { return std::uint8_t(bits); }
    /// @return 0xRRGGBB for an index from 1 to 255
    static std::uint32_t lookUpRGB(int index);
    /// @return the index of the nearest colour; of equal ones the first
    static int lookUpACI(std::uint8_t red, std::uint8_t green, std::uint8_t blue);

private:
    std::uint32_t bits = 0xC2FFFFFF;
};

/// A style's properties; each begins as that of the object.
struct OdPsPlotStyleData
{
    OdCmEntityColor color;
    int colorPolicy = 0;
    bool adaptiveLinetype = false;
    int screening = 100;
    int physicalPenNumber = -1;
    int virtualPenNumber = -1;
    int linetype = 31;
    int fillStyle = 73;
    int endStyle = 4;
    int joinStyle = 5;
    double linePatternSize = 0.0;
    double lineweight = -1.0;
};

class OdPsPlotStyle : public OdCounted
{
public:
    explicit OdPsPlotStyle(const OdString& text)
        : ownName(text)
        , shownName(text)
    {
    }
    OdString name() const { return ownName; }
    void setName(const OdString& text) { ownName = text; }
    OdString localizedName() const { return shownName; }
    void setLocalizedName(const OdString& text) { shownName = text; }
    OdString description() const { return about; }
    void setDescription(const OdString& text) { about = text; }
    void getData(OdPsPlotStyleData& data) const { data = record; }
    void setData(const OdPsPlotStyleData& data) { record = data; }

private:
    OdString ownName;
    OdString shownName;
    OdString about;
    OdPsPlotStyleData record;
};
using OdPsPlotStylePtr = OdSmartPtr<OdPsPlotStyle>;

namespace OdPs
{
/// Orders texts without regard to case.
struct OdPsStrLess
{
    bool operator()(const wchar_t* first, const wchar_t* second) const;
};
using OdPsStyleMap = std::map<const wchar_t*, OdPsPlotStylePtr, OdPsStrLess>;
} // namespace OdPs

class OdPsPlotStyleTable : public OdCounted
{
public:
    explicit OdPsPlotStyleTable(bool isOfColors)
        : colorDependent(isOfColors)
    {
    }
    bool isColorDependent() const { return colorDependent; }
    OdString description() const { return about; }
    void setDescription(const OdString& text) { about = text; }
    double scaleFactor() const { return scale; }
    void setScaleFactor(double factor) { scale = factor; }
    bool isApplyScaleFactor() const { return scales; }
    void setApplyScaleFactor(bool applies) { scales = applies; }
    bool isDisplayCustomLineweightUnits() const { return inches; }
    void setDisplayCustomLineweightUnits(bool areInches) { inches = areInches; }

    int lineweightCount() const { return int(lineweights.size()); }
    double lineweightAt(int index) const { return lineweights[std::size_t(index)]; }
    void setLineweightAt(int index, double mm) { lineweights[std::size_t(index)] = mm; }
    /// For those who make a table.
    void addLineweight(double mm) { lineweights.push_back(mm); }

    int styleCount() const { return int(styles.size()); }
    OdPsPlotStylePtr styleAt(int index) const { return styles[std::size_t(index)]; }
    OdPsPlotStylePtr findStyleByName(const OdString& name) const;
    OdPsPlotStylePtr addNewStyle(const OdString& name);
    void deleteStyle(const OdPsPlotStylePtr& style);
    OdArray<OdPsPlotStylePtr> styleArray() const { return styles; }
    void setStyleArray(const OdArray<OdPsPlotStylePtr>& array) { styles = array; }
    OdPs::OdPsStyleMap styleMap() const { return map; }
    void setStyleMap(const OdPs::OdPsStyleMap& newMap);

private:
    const wchar_t* keep(const wchar_t* text) { return texts.insert(text).first->c_str(); }

    bool colorDependent;
    OdString about;
    double scale = 1;
    bool scales = false;
    bool inches = false;
    std::vector<double> lineweights;
    OdArray<OdPsPlotStylePtr> styles;
    OdPs::OdPsStyleMap map;
    /// The map's keys, and those of maps that others may still hold.
    std::set<std::wstring> texts;
};
using OdPsPlotStyleTablePtr = OdSmartPtr<OdPsPlotStyleTable>;

#endif
