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

/// Copies a text with a NUL behind it. @return where the copy ends
wchar_t* copyText(std::wstring_view text, wchar_t* to)
{
    to = std::copy(text.begin(), text.end(), to);
    *to = L'\0';
    return to + 1;
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
    : m_copy(new wchar_t[text.size() + 1])
    , m_text(m_copy.get())
{
    (void)copyText(text, m_copy.get());
}

OdPsPlotStyleImpl* OdPsPlotStyleImpl::make(std::wstring_view name, std::wstring_view localizedName,
                                           std::wstring_view description,
                                           const OdPsPlotStyleData& data)
{
    // Nothing behind a NUL can be read from a style, so it shall take no memory that nobody knows
    // of. In the short texts that nearly all styles have, it is not worth looking for.
    constexpr std::size_t kShort = 12;
    for (std::wstring_view* text : {&name, &localizedName, &description})
        if (text->size() > kShort)
            *text = text->substr(0, text->find(L'\0'));
    const bool hasOneName = name == localizedName;
    const std::size_t length =
        localizedName.size() + 1 + description.size() + 1 + (hasOneName ? 0 : name.size() + 1);
    void* const block = ::operator new(sizeof(OdPsPlotStyleImpl) + length * sizeof(wchar_t));
    auto* const first =
        reinterpret_cast<wchar_t*>(static_cast<char*>(block) + sizeof(OdPsPlotStyleImpl));
    wchar_t* const second = copyText(localizedName, first);
    wchar_t* const third = copyText(description, second);
    if (!hasOneName)
        (void)copyText(name, third);
    return ::new (block) OdPsPlotStyleImpl(OdPs::Text::kept(hasOneName ? first : third),
                                           OdPs::Text::kept(first), OdPs::Text::kept(second), data);
}

OdPsPlotStyleImpl::OdPsPlotStyleImpl(OdPs::Text name, OdPs::Text localizedName,
                                     OdPs::Text description, const OdPsPlotStyleData& data) noexcept
    : m_data(data)
    , m_name(std::move(name))
    , m_localizedName(std::move(localizedName))
    , m_description(std::move(description))
{
}

void OdPsPlotStyleImpl::release()
{
    if (--m_references == 0)
        delete this;
}

void OdPsPlotStyleImpl::setData(const OdPsPlotStyleData& data)
{
    m_wasDataSet = true;
    m_data = data;
}

void OdPsPlotStyleImpl::setDescription(const OdString& description)
{
    m_wasTextSet = true;
    m_description = OdPs::Text(description.c_str());
}

void OdPsPlotStyleImpl::setName(const OdString& name)
{
    m_wasTextSet = true;
    m_name = OdPs::Text(name.c_str());
}

void OdPsPlotStyleImpl::setLocalizedName(const OdString& name)
{
    m_wasTextSet = true;
    m_formerLocalizedNames.push_front(std::move(m_localizedName));
    m_localizedName = OdPs::Text(name.c_str());
}

std::size_t OdPsPlotStyleImpl::memoryUse() const noexcept
{
    const auto size = [](const OdPs::Text& text)
    { return (std::wcslen(text.c_str()) + 1) * sizeof(wchar_t); };
    const bool hasOneName = m_name.c_str() == m_localizedName.c_str() ||
                            std::wcscmp(m_name.c_str(), m_localizedName.c_str()) == 0;
    return sizeof *this + kBlockOverhead + size(m_localizedName) + size(m_description) +
           (hasOneName ? 0 : size(m_name));
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
    const auto byLocalizedName = index().find(name.c_str());
    if (byLocalizedName != index().end())
        return byLocalizedName->second;
    const OdPs::OdPsStrLess isLess;
    for (const auto& entry : index())
    {
        const OdString other = entry.second->name();
        if (!isLess(name.c_str(), other.c_str()) && !isLess(other.c_str(), name.c_str()))
            return entry.second;
    }
    return nullptr;
}

OdPsPlotStylePtr OdPsPlotStyleTableImpl::styleAt(int index) const
{
    return hasIndex(m_styles, index) ? m_styles[static_cast<std::size_t>(index)] : nullptr;
}

OdPsPlotStylePtr OdPsPlotStyleTableImpl::addNewStyle(const OdString& name)
{
    m_styles.emplace_back(OdPsPlotStyleImpl::make(name.c_str(), name.c_str()));
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
