// A locale in which numbers look different from those of a table file.

#ifndef SUPPORT_COMMA_LOCALE_H
#define SUPPORT_COMMA_LOCALE_H

#include <locale>
#include <string>

namespace support
{

/// Makes a locale with decimal commas and grouped digits the global one for its scope.
class CommaLocale
{
public:
    CommaLocale()
        : m_before(std::locale::global(std::locale(std::locale(), new Comma)))
    {
    }
    ~CommaLocale() { std::locale::global(m_before); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    struct Comma : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_before;
};

} // namespace support

#endif
