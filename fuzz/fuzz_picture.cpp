// Fuzzes pictures: every table that can be loaded can be drawn, in any size.

#include "fuzz/require.h"

#include "support/tables.h"
#include "table_picture.h"

#include <wx/init.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const wxInitializer toolkit;
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const tablefile::LoadResult result = tablefile::decode(support::bufferOf(file));
    if (result.table.isNull())
        return 0;
    static const int kSizes[] = {16, 37, 128, 512};
    const std::string picture = tablePicture(*result.table, kSizes[size % std::size(kSizes)]);
    require(picture.substr(0, 4) == "\x89PNG", "a table gives a picture");
    return 0;
}
