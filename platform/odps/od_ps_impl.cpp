// The plot styles and tables of the bundled platform.

#include "odps/od_ps_impl.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace
{

/// What the allocator adds to every block, roughly.
constexpr std::size_t kBlockOverhead = 16;

template <class Values>
bool hasIndex(const Values& values, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < values.size();
}

/// Adds a style under its own localized name; the first of several alike names wins.
void addToMap(OdPs::OdPsStyleMap& map, const OdPsPlotStylePtr& style)
{
    // A style of another implementation keeps its text to itself, so no key can point into it.
    if (const auto* own = dynamic_cast<const OdPsPlotStyleImpl*>(style.get()))
        map.emplace(own->localizedNameText(), style);
}

} // namespace

OdString OdPs::colorStyleName(int position)
{
    return L"Color_" + std::to_wstring(position + 1);
}

OdPs::Text::Text(std::wstring_view text)
{
    if (text.empty())
        return;
    m_text.reset(new wchar_t[text.size() + 1]);
    *std::copy(text.begin(), text.end(), m_text.get()) = L'\0';
}

std::size_t OdPs::Text::memoryUse() const noexcept
{
    return m_text ? (std::wcslen(m_text.get()) + 1) * sizeof(wchar_t) + kBlockOverhead : 0;
}

OdPsPlotStyleImpl::OdPsPlotStyleImpl(std::wstring_view name, std::wstring_view localizedName,
                                     std::wstring_view description, const OdPsPlotStyleData& data)
    : m_nameIsLocalizedName(name == localizedName)
    , m_data(data)
    , m_name(m_nameIsLocalizedName ? std::wstring_view() : name)
    , m_localizedName(localizedName)
    , m_description(description)
{
}

void OdPsPlotStyleImpl::release()
{
    if (--m_references == 0)
        delete this;
}

OdString OdPsPlotStyleImpl::name() const
{
    return m_nameIsLocalizedName ? localizedName() : OdString(m_name.c_str());
}

void OdPsPlotStyleImpl::setData(const OdPsPlotStyleData& data)
{
    m_wasSet = true;
    m_data = data;
}

void OdPsPlotStyleImpl::setDescription(const OdString& description)
{
    m_wasSet = true;
    m_description = OdPs::Text(description.c_str());
}

void OdPsPlotStyleImpl::setName(const OdString& name)
{
    m_wasSet = true;
    m_nameIsLocalizedName = name == localizedName();
    m_name = m_nameIsLocalizedName ? OdPs::Text() : OdPs::Text(name.c_str());
}

void OdPsPlotStyleImpl::setLocalizedName(const OdString& name)
{
    const OdString unchanged = this->name();
    m_formerLocalizedNames.push_front(std::move(m_localizedName));
    m_localizedName = OdPs::Text(name.c_str());
    setName(unchanged);
}

std::size_t OdPsPlotStyleImpl::memoryUse() const noexcept
{
    return sizeof *this + kBlockOverhead + m_name.memoryUse() + m_localizedName.memoryUse() +
           m_description.memoryUse();
}

OdPsPlotStyleTableImpl::OdPsPlotStyleTableImpl(bool colorDependent)
    : m_colorDependent(colorDependent)
    , m_lineweights(OdPs::kDefaultLineweights.begin(), OdPs::kDefaultLineweights.end())
{
}

void OdPsPlotStyleTableImpl::release()
{
    if (--m_references == 0)
        delete this;
}

double OdPsPlotStyleTableImpl::lineweightAt(int index) const
{
    return hasIndex(m_lineweights, index) ? m_lineweights[static_cast<std::size_t>(index)] : 0.0;
}

void OdPsPlotStyleTableImpl::setLineweightAt(int index, double value)
{
    if (hasIndex(m_lineweights, index))
        m_lineweights[static_cast<std::size_t>(index)] = value;
}

OdPsPlotStylePtr OdPsPlotStyleTableImpl::findStyleByName(const OdString& name) const
{
    const auto found = index().find(name.c_str());
    return found == index().end() ? nullptr : found->second;
}

OdPsPlotStylePtr OdPsPlotStyleTableImpl::styleAt(int index) const
{
    return hasIndex(m_styles, index) ? m_styles[static_cast<std::size_t>(index)] : nullptr;
}

OdPsPlotStylePtr OdPsPlotStyleTableImpl::addNewStyle(const OdString& name)
{
    m_styles.emplace_back(new OdPsPlotStyleImpl(name.c_str(), name.c_str()));
    if (m_styleMap)
        addToMap(*m_styleMap, m_styles.back());
    return m_styles.back();
}

void OdPsPlotStyleTableImpl::deleteStyle(const OdPsPlotStylePtr& style)
{
    const auto found = std::find(m_styles.begin(), m_styles.end(), style);
    if (found == m_styles.end())
        return;
    m_styles.erase(found);
    m_styleMap.reset();
}

void OdPsPlotStyleTableImpl::setStyleArray(const OdArray<OdPsPlotStylePtr>& styles)
{
    OdArray<OdPsPlotStylePtr> kept;
    kept.reserve(styles.size());
    std::copy_if(styles.begin(), styles.end(), std::back_inserter(kept),
                 [](const OdPsPlotStylePtr& style) { return !style.isNull(); });
    m_styles = std::move(kept);
    m_styleMap.reset();
}

void OdPsPlotStyleTableImpl::setStyleMap(const OdPs::OdPsStyleMap& styles)
{
    OdPs::OdPsStyleMap own;
    for (const auto& entry : styles)
        addToMap(own, entry.second);
    m_styleMap = std::move(own);
}

const OdPs::OdPsStyleMap& OdPsPlotStyleTableImpl::index() const
{
    if (!m_styleMap)
    {
        m_styleMap.emplace();
        for (const OdPsPlotStylePtr& style : m_styles)
            addToMap(*m_styleMap, style);
    }
    return *m_styleMap;
}
