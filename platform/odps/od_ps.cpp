// The parts of the table model that are plain values: the data record and the order of names.

#include "odps/od_ps.h"

#include <cwctype>
#include <locale.h>

bool operator==(const OdPsPlotStyleData& a, const OdPsPlotStyleData& b)
{
    return a.color == b.color && a.colorPolicy == b.colorPolicy &&
           a.adaptiveLinetype == b.adaptiveLinetype && a.screening == b.screening &&
           a.physicalPenNumber == b.physicalPenNumber && a.virtualPenNumber == b.virtualPenNumber &&
           a.linetype == b.linetype && a.fillStyle == b.fillStyle && a.endStyle == b.endStyle &&
           a.joinStyle == b.joinStyle && a.linePatternSize == b.linePatternSize &&
           a.lineweight == b.lineweight;
}

namespace
{

/// Names compare alike in every process, so the case tables are never those of the user's locale:
/// they are Unicode's, and where the C library lacks them only A to Z have two cases.
wint_t lowered(wchar_t c)
{
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const auto code = static_cast<wint_t>(c);
    if (code < 0x80)
        return code >= L'A' && code <= L'Z' ? code + (L'a' - L'A') : code;
    return unicode ? towlower_l(code, unicode) : code;
}

} // namespace

bool OdPs::OdPsStrLess::operator()(const wchar_t* a, const wchar_t* b) const
{
    while (*a && lowered(*a) == lowered(*b))
    {
        ++a;
        ++b;
    }
    return lowered(*a) < lowered(*b);
}
