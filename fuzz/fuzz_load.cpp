// Fuzzes loading: any bytes give a table or a reason, and a table is saved as it was.

#include "fuzz/require.h"

#include "support/tables.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const tablefile::LoadResult result = tablefile::decode(support::bufferOf(file));
    const bool isTable = !result.table.isNull();
    require(isTable == (result.error.status == tablefile::Status::Ok), "a table or a reason");
    require(isTable == result.error.what.empty(), "a reason has words");
    if (!isTable)
        return 0;
    require(result.table->lineweightCount() >= 27, "every table has the usual lineweights");
    const tablefile::EncodeResult saved = tablefile::encode(*result.table);
    require(saved.error.status == tablefile::Status::Ok, "what was loaded can be saved");
    require(saved.bytes.view() == file, "an unchanged table is saved as it was");
    return 0;
}
