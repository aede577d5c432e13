// Paths on the screen and for the system.

#include "psl_path_text.h"

wxString fitPath(const wxString& text, int width,
                 const std::function<int(const wxString&)>& measure)
{
    constexpr int margin = 4;
    constexpr int leastWidth = 7;
    constexpr size_t leastCutLength = 16;
    constexpr size_t leastKept = 12;
    const int room = width - margin;
    if (width < leastWidth || measure(text) <= room || text.length() < leastCutLength)
        return text;
    for (size_t kept = text.length() - 4;; --kept)
    {
        const wxString candidate = text.Left(kept) + "...";
        const bool fits = measure(candidate) <= room;
        if (fits || kept <= leastKept)
            return candidate;
    }
}

std::string systemPath(const wxString& path)
{
    const std::string native(path.fn_str());
    return native.empty() ? path.utf8_string() : native;
}

wxString systemText(const std::string& text)
{
    const wxString known(text.c_str(), *wxConvFileName);
    return known.empty() ? wxString(text.c_str(), wxConvWhateverWorks) : known;
}
