// The lines of a table's text: `key=value`, `group{` and `}`.

#ifndef TABLEFILE_TEXT_LINES_H
#define TABLEFILE_TEXT_LINES_H

#include <cstdint>
#include <cstring>
#include <string_view>

namespace tablefile
{

/// A part of the text. No value begins at the text's first byte, so there the span is none.
struct Span
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    explicit operator bool() const noexcept { return begin != 0; }
    std::string_view in(std::string_view text) const { return text.substr(begin, end - begin); }
    Span moved(std::uint32_t distance) const { return {begin + distance, end + distance}; }
};

/// The number of bytes that two texts have in common at their beginnings.
std::uint32_t commonPrefix(std::string_view a, std::string_view b);

/// Walks over the lines of a text.
class LineCursor
{
public:
    enum class Kind
    {
        Value, ///< `key=value`
        Open,  ///< `key{`; a line with a `=` never is one, since a value may end in `{`
        Close, ///< `}`
        Other, ///< anything else
    };

    LineCursor(std::string_view text, std::size_t position)
        : m_text(text)
        , m_next(position)
    {
    }

    /// Goes to the next line. @return false at the end of the text
    bool next();

    /// Goes to the next line, of which it is known that it has a value and where that begins.
    void nextValue(std::uint32_t value);
    /// Passes over lines, to the one that begins at a position.
    void skipTo(std::uint32_t position) noexcept { m_next = position; }

    Kind kind() const noexcept { return m_kind; }
    /// What stands in front of `=` or `{`.
    std::string_view key() const noexcept { return m_key; }
    /// What follows the `=`, without the line's end.
    Span value() const noexcept { return m_value; }
    /// What follows the line.
    std::string_view rest() const { return m_text.substr(m_next); }
    /// Where the line begins.
    std::uint32_t begin() const noexcept { return m_begin; }
    /// Where the next line begins.
    std::uint32_t end() const noexcept { return static_cast<std::uint32_t>(m_next); }

private:
    const char* endLine(const char* from);

    std::string_view m_text;
    std::size_t m_next;
    std::uint32_t m_begin = 0;
    Kind m_kind = Kind::Other;
    std::string_view m_key;
    Span m_value;
};

/// Ends the next line where the first line break comes. @return the end of what is on it
inline const char* LineCursor::endLine(const char* from)
{
    const char* const end = m_text.data() + m_text.size();
    const auto length = static_cast<std::size_t>(end - from);
    const auto* last = static_cast<const char*>(std::memchr(from, '\n', length));
    m_begin = static_cast<std::uint32_t>(m_next);
    m_next = last ? static_cast<std::size_t>(last + 1 - m_text.data()) : m_text.size();
    if (!last)
        last = end;
    return last > from && last[-1] == '\r' ? last - 1 : last;
}

inline void LineCursor::nextValue(std::uint32_t value)
{
    const char* const last = endLine(m_text.data() + value);
    m_kind = Kind::Value;
    m_value = {value, static_cast<std::uint32_t>(last - m_text.data())};
}

inline bool LineCursor::next()
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    if (m_next >= m_text.size())
        return false;
    const char* const text = m_text.data();
    const char* first = text + m_next;
    const char* last = endLine(first);
    while (first < last && isBlank(*first))
        ++first;

    const auto length = [&first](const char* end) { return static_cast<std::size_t>(end - first); };
    if (const auto* equals = static_cast<const char*>(std::memchr(first, '=', length(last))))
    {
        m_kind = Kind::Value;
        m_key = {first, length(equals)};
        m_value = {static_cast<std::uint32_t>(equals + 1 - text),
                   static_cast<std::uint32_t>(last - text)};
        return true;
    }
    while (last > first && isBlank(last[-1]))
        --last;
    m_key = {first, length(last)};
    m_kind = m_key == "}" ? Kind::Close : Kind::Other;
    if (!m_key.empty() && m_key.back() == '{')
    {
        m_kind = Kind::Open;
        m_key.remove_suffix(1);
    }
    return true;
}

} // namespace tablefile

#endif
