// Finding a row by its beginning or its number.

#include "psl_type_ahead.h"

#include "psl_numbers.h"

#include <limits>

const wxString& TypeAhead::add(wxUniChar character, long time)
{
    if (!isRunning(time))
        m_text.clear();
    m_last = time;
    return m_text += character;
}

namespace
{

// The first row from `first` on, once round, whose text begins with `text`.
int rowThatBegins(const std::vector<wxString>& rows, size_t first, const wxString& text)
{
    for (size_t i = 0; i < rows.size(); ++i)
    {
        const size_t row = (first + i) % rows.size();
        if (rows[row].Left(text.length()).IsSameAs(text, false))
            return static_cast<int>(row);
    }
    return -1;
}

bool isOneCharacterRepeated(const wxString& text)
{
    return text.length() > 1 && text.find_first_not_of(text[0]) == wxString::npos;
}

} // namespace

int findTypedRow(const std::vector<wxString>& rows, int current, const wxString& typed,
                 bool areNumbered)
{
    if (areNumbered && typed.find_first_not_of("0123456789") == wxString::npos)
    {
        const int number = parseInteger(typed, 0, std::numeric_limits<int>::max()).value_or(0);
        const bool exists = number >= 1 && static_cast<size_t>(number) <= rows.size();
        return exists ? number - 1 : -1;
    }
    const auto next = static_cast<size_t>(current + 1);
    if (typed.length() == 1)
        return rowThatBegins(rows, next, typed);
    const int row = rowThatBegins(rows, 0, typed);
    return row < 0 && isOneCharacterRepeated(typed) ? rowThatBegins(rows, next, typed.Left(1))
                                                    : row;
}
