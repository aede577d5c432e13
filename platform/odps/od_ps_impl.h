// The plot style tables that the bundled platform works with, behind the interfaces of od_ps.h.
// Only code that makes tables (the file layer, the host's command interface) includes this.

#ifndef ODPS_OD_PS_IMPL_H
#define ODPS_OD_PS_IMPL_H

#include "odps/od_ps.h"

#include <array>
#include <cstddef>
#include <forward_list>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace OdPs
{

/// The lineweights of a new table, in millimetres.
constexpr std::array<double, 27> kDefaultLineweights = {
    0,    0.05, 0.09, 0.1, 0.13, 0.15, 0.18, 0.2,  0.25, 0.3, 0.35, 0.4, 0.45, 0.5,
    0.53, 0.6,  0.65, 0.7, 0.8,  0.9,  1,    1.06, 1.2,  1.4, 1.58, 2,   2.11};

/// The styles of a colour-dependent table: one for every colour index.
constexpr int kColorStyleCount = 255;

/// The name of a colour-dependent table's style at a 0-based position: "Color_1" for 0.
OdString colorStyleName(int position);

/// A text of a style: a copy of its own, or one that the style keeps elsewhere.
class Text
{
public:
    explicit Text(std::wstring_view text);
    /// Takes a text that stays where it is as long as it is needed.
    static Text kept(const wchar_t* text) noexcept { return Text(nullptr, text); }

    const wchar_t* c_str() const noexcept { return m_text; }

private:
    Text(std::unique_ptr<wchar_t[]> copy, const wchar_t* text) noexcept
        : m_copy(std::move(copy))
        , m_text(text)
    {
    }

    std::unique_ptr<wchar_t[]> m_copy;
    const wchar_t* m_text;
};

} // namespace OdPs

/// A plot style in memory.
class OdPsPlotStyleImpl final : public OdPsPlotStyle
{
public:
    /// Makes a style in one block of memory with its texts: a table may hold a hundred thousand
    /// styles, and to allocate costs more than all else that makes one.
    static OdPsPlotStyleImpl* make(std::wstring_view name, std::wstring_view localizedName,
                                   std::wstring_view description = {},
                                   const OdPsPlotStyleData& data = {});
    /// The block is larger than the object, so its size must not be told.
    static void operator delete(void* block) { ::operator delete(block); }

    void addRef() override { ++m_references; }
    void release() override;

    OdString name() const override { return m_name.c_str(); }
    OdString description() const override { return m_description.c_str(); }
    void getData(OdPsPlotStyleData& data) const override { data = m_data; }
    OdString localizedName() const override { return m_localizedName.c_str(); }
    void setData(const OdPsPlotStyleData& data) override;
    void setDescription(const OdString& description) override;
    void setName(const OdString& name) override;
    void setLocalizedName(const OdString& name) override;

    /// The style's own text of its localized name. It stays valid as long as the style, even when
    /// the name is changed: copies of a style map hold such pointers, and they hold the style.
    const wchar_t* localizedNameText() const noexcept { return m_localizedName.c_str(); }
    /// Whether the data record has been set since the style was made, to whatever value.
    bool wasDataSet() const noexcept { return m_wasDataSet; }
    /// Whether a name or the description has been set since the style was made.
    bool wasTextSet() const noexcept { return m_wasTextSet; }
    /// The bytes of memory that the style takes when it is made with its present texts.
    std::size_t memoryUse() const noexcept;

private:
    OdPsPlotStyleImpl(OdPs::Text name, OdPs::Text localizedName, OdPs::Text description,
                      const OdPsPlotStyleData& data) noexcept;
    ~OdPsPlotStyleImpl() override = default;

    int m_references = 0;
    bool m_wasDataSet = false;
    bool m_wasTextSet = false;
    OdPsPlotStyleData m_data;
    OdPs::Text m_name; // mostly the very text of the localized name
    OdPs::Text m_localizedName;
    OdPs::Text m_description;
    std::forward_list<OdPs::Text> m_formerLocalizedNames;
};

/// Whatever the layer that made a table wants to find again when the table comes back to it.
class OdPsTableOrigin
{
public:
    virtual ~OdPsTableOrigin() = default;
};

/// A plot style table in memory.
class OdPsPlotStyleTableImpl final : public OdPsPlotStyleTable
{
public:
    /// Makes a table without styles and description: scale factor 1, not applied, millimetres,
    /// the default lineweights.
    explicit OdPsPlotStyleTableImpl(bool colorDependent);

    void addRef() override { ++m_references; }
    void release() override;

    bool isApplyScaleFactor() const override { return m_applyScaleFactor; }
    OdString description() const override { return m_description; }
    double scaleFactor() const override { return m_scaleFactor; }
    bool isDisplayCustomLineweightUnits() const override { return m_inches; }
    double lineweightAt(int index) const override;
    OdPsPlotStylePtr findStyleByName(const OdString& name) const override;
    OdPsPlotStylePtr styleAt(int index) const override;
    int styleCount() const override { return static_cast<int>(m_styles.size()); }
    int lineweightCount() const override { return static_cast<int>(m_lineweights.size()); }
    bool isColorDependent() const override { return m_colorDependent; }
    OdPsPlotStylePtr addNewStyle(const OdString& name) override;
    void deleteStyle(const OdPsPlotStylePtr& style) override;
    void setDescription(const OdString& description) override { m_description = description; }
    void setScaleFactor(double factor) override { m_scaleFactor = factor; }
    void setApplyScaleFactor(bool apply) override { m_applyScaleFactor = apply; }
    void setDisplayCustomLineweightUnits(bool inches) override { m_inches = inches; }
    void setLineweightAt(int index, double value) override;
    /// Null pointers are left out.
    void setStyleArray(const OdArray<OdPsPlotStylePtr>& styles) override;
    /// Takes over the styles of the map and gives each its own localized name as the key. The
    /// given keys are not read: a caller outside cannot point into a style's text, and what its
    /// keys point to may be gone after the call.
    void setStyleMap(const OdPs::OdPsStyleMap& styles) override;
    OdPs::OdPsStyleMap styleMap() const override { return index(); }
    OdArray<OdPsPlotStylePtr> styleArray() const override { return m_styles; }

    /// The ordered styles themselves; styleArray() copies them.
    const OdArray<OdPsPlotStylePtr>& styles() const noexcept { return m_styles; }
    /// Replaces the lineweights and their number. @param values in millimetres
    void setLineweights(std::vector<double> values) { m_lineweights = std::move(values); }

    const std::shared_ptr<const OdPsTableOrigin>& origin() const noexcept { return m_origin; }
    void setOrigin(std::shared_ptr<const OdPsTableOrigin> origin) { m_origin = std::move(origin); }

private:
    ~OdPsPlotStyleTableImpl() override = default;

    const OdPs::OdPsStyleMap& index() const;

    int m_references = 0;
    bool m_colorDependent;
    bool m_applyScaleFactor = false;
    bool m_inches = false;
    double m_scaleFactor = 1.0;
    OdString m_description;
    std::vector<double> m_lineweights;
    OdArray<OdPsPlotStylePtr> m_styles;
    // Made when first asked for, so that loading a large table does not sort its names.
    mutable std::optional<OdPs::OdPsStyleMap> m_styleMap;
    std::shared_ptr<const OdPsTableOrigin> m_origin;
};

#endif
