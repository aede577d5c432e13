// The platform's text type.

#ifndef ODPS_OD_STRING_H
#define ODPS_OD_STRING_H

#include <string>
#include <utility>

/// A wide-character text of the platform. A plain value: copying copies the text.
class OdString
{
public:
    OdString() = default;
    /// Takes the text up to its NUL; a null pointer gives the empty text.
    OdString(const wchar_t* text)
        : m_text(text ? text : L"")
    {
    }
    OdString(std::wstring text)
        : m_text(std::move(text))
    {
    }

    /// The text, ended by a NUL; valid until the object is changed or destroyed.
    const wchar_t* c_str() const noexcept { return m_text.c_str(); }
    bool isEmpty() const noexcept { return m_text.empty(); }
    const std::wstring& str() const noexcept { return m_text; }

    friend bool operator==(const OdString& a, const OdString& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const OdString& a, const OdString& b) { return a.m_text != b.m_text; }

private:
    std::wstring m_text;
};

#endif
