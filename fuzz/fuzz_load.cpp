// Fuzzes loading: any bytes give a table or a reason, and a table is saved as it was.
//
// Random changes of a compressed stream hardly ever make another stream, so most changes are made
// to the inflated text, which is then packed again.

#include "fuzz/require.h"

#include "support/table_maker.h"
#include "support/tables.h"
#include "tablefile/container.h"

#include <algorithm>
#include <optional>
#include <random>

namespace
{

constexpr std::size_t kKindOffset = 19;
constexpr std::size_t kKindSize = 3;

std::optional<std::string> textOf(std::string_view file)
{
    try
    {
        return std::string(tablefile::unpack(file).view());
    }
    catch (const tablefile::Error&)
    {
        return std::nullopt;
    }
}

support::Container anyContainer(std::string_view file, std::minstd_rand& random)
{
    support::Container container;
    container.kind = file.substr(kKindOffset, kKindSize);
    container.finalNuls = static_cast<int>(random() % 3);
    container.wideNumbers = random() % 8 == 0;
    container.level = random() % 4 == 0 ? 1 : 0;
    return container;
}

} // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed)
{
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    std::minstd_rand random(seed);
    std::optional<std::string> text = random() % 8 == 0 ? std::nullopt : textOf(file);
    if (!text || text->size() >= maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    const std::size_t oldSize = text->size();
    text->resize(maxSize);
    text->resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text->data()), oldSize, maxSize));
    const std::string packed = support::pack(*text, anyContainer(file, random));
    if (packed.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(packed.begin(), packed.end(), data);
    return packed.size();
}

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
