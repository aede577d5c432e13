// Fuzzes exports: every table that can be loaded can be exported, a line for each of its parts.

#include "fuzz/require.h"

#include "psl_csv.h"
#include "support/tables.h"

#include <wx/init.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const wxInitializer toolkit;
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const tablefile::LoadResult result = tablefile::decode(support::bufferOf(file));
    if (result.table.isNull())
        return 0;
    constexpr std::size_t kSettings = 8;
    constexpr std::size_t kHeadersOfStyles = 3;
    constexpr std::size_t kHeadersOfColors = 2;
    constexpr std::size_t kLineweights = 1 + 27;
    const auto styles = static_cast<std::size_t>(result.table->styleCount());
    const std::size_t colors = result.table->isColorDependent() ? kHeadersOfColors + styles : 0;
    const wxArrayString lines = csvLines(*result.table, "a.ctb");
    require(lines.size() == kSettings + colors + kHeadersOfStyles + styles + kLineweights,
            "every part has its lines");
    for (const wxString& line : lines)
        require(!line.utf8_string().empty(), "every line can be written as UTF-8");
    require(exportCsv(*result.table, "a.ctb", "/dev/null", Replaceable::Exports).result ==
                CsvExport::Done,
            "a device takes an export");
    return 0;
}
