// Finding a row of a list by typing the beginning of its text. Knows no control.

#ifndef PSL_TYPE_AHEAD_H
#define PSL_TYPE_AHEAD_H

#include <wx/string.h>

#include <vector>

/// The characters that a user types in one go.
class TypeAhead
{
public:
    /// The pause, in milliseconds, after which a character begins a new text.
    static constexpr long pause = 1000;

    /// Whether characters have been typed that one at this time would be added to.
    /// @param time  in milliseconds, from any beginning
    bool isRunning(long time) const { return !m_text.empty() && time - m_last <= pause; }
    /// Adds a character. @return all that has been typed in one go
    const wxString& add(wxUniChar character, long time);
    /// Lets the next character begin a new text.
    void clear() { m_text.clear(); }

private:
    wxString m_text;
    long m_last = 0;
};

/// The row that a typed text leads to: the first whose text begins with it, without regard to case.
/// One character, or one typed again and again, goes from the current row to the next that begins
/// with it.
/// @param current     the row to go on from; -1 for none
/// @param areNumbered whether the rows are those of colour 1, colour 2 …, and go by their numbers
/// @return -1 when there is none
int findTypedRow(const std::vector<wxString>& rows, int current, const wxString& typed,
                 bool areNumbered);

#endif
