// Tables of texts and texts of tables.

#include "support/tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace support
{

tablefile::Buffer bufferOf(std::string_view bytes)
{
    tablefile::Buffer buffer(bytes.size());
    std::copy(bytes.begin(), bytes.end(), buffer.data());
    return buffer;
}

OdPsPlotStyleTablePtr tableOf(std::string_view file)
{
    const tablefile::LoadResult result = tablefile::decode(bufferOf(file));
    if (result.table.isNull())
        throw std::runtime_error("not a table: " + result.error.what);
    return result.table;
}

OdPsPlotStyleTablePtr tableOfText(std::string_view text, const char* kind)
{
    Container container;
    container.kind = kind;
    return tableOf(pack(text, container));
}

std::string bytesOf(const OdPsPlotStyleTable& table)
{
    const tablefile::EncodeResult result = tablefile::encode(table);
    EXPECT_EQ(result.error.status, tablefile::Status::Ok) << result.error.what;
    return std::string(result.bytes.view());
}

std::string textOf(const OdPsPlotStyleTable& table)
{
    return unpack(bytesOf(table));
}

OdPsPlotStyleData dataOf(const OdPsPlotStyleTable& table, int index)
{
    OdPsPlotStyleData data;
    table.styleAt(index)->getData(data);
    return data;
}

} // namespace support
