// The road of a table between its file and its objects.

#include "tablefile/tablefile.h"

#include "tablefile/container.h"
#include "tablefile/file_io.h"
#include "tablefile/limits.h"
#include "tablefile/text_editor.h"
#include "tablefile/text_reader.h"
#include "tablefile/text_writer.h"

#include "odps/od_ps_impl.h"

#include <algorithm>

namespace tablefile
{
namespace
{

/// Runs a step of the codec and turns what it throws into a returned error.
template <class Step>
Error errorOf(const Step& step)
{
    try
    {
        step();
        return {};
    }
    catch (const Error& error)
    {
        return error;
    }
    catch (const std::bad_alloc&)
    {
        return {Status::TooLarge, 0, "out of memory"};
    }
}

OdPsPlotStyleTablePtr tableOf(Buffer file)
{
    auto origin = std::make_shared<Origin>();
    origin->file = std::move(file);
    origin->textBytes = unpack(origin->file.view());
    return readTable(std::move(origin));
}

std::shared_ptr<const Origin> originOf(const OdPsPlotStyleTable& table)
{
    const auto* own = dynamic_cast<const OdPsPlotStyleTableImpl*>(&table);
    return own ? std::dynamic_pointer_cast<const Origin>(own->origin()) : nullptr;
}

std::size_t memoryUse(const OdPsPlotStyle& style)
{
    if (const auto* own = dynamic_cast<const OdPsPlotStyleImpl*>(&style))
        return tablefile::memoryUse(*own);
    const OdPsPlotStylePtr copy = OdPsPlotStyleImpl::make(
        style.name().str(), style.localizedName().str(), style.description().str());
    return memoryUse(*copy);
}

/// Refuses what the reader would refuse, so that no save makes a file that is lost.
void checkReadable(const OdPsPlotStyleTable& table, std::size_t fileSize, std::size_t textSize)
{
    MemoryBudget budget;
    budget.add(fileSize + textSize);
    for (int i = 0; i < table.styleCount(); ++i)
        budget.add(memoryUse(*table.styleAt(i)));
}

Buffer copyOf(std::string_view bytes)
{
    Buffer copy(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy.data());
    return copy;
}

Buffer bytesOf(const OdPsPlotStyleTable& table)
{
    const std::shared_ptr<const Origin> origin = originOf(table);
    const std::optional<std::string> text = origin ? changedText(table, *origin) : freshText(table);
    if (!text)
        return copyOf(origin->file.view());
    const std::string_view magic =
        origin ? magicOf(origin->file.view()) : magicFor(table.isColorDependent());
    Buffer file = pack(magic, *text);
    checkReadable(table, file.size(), text->size());
    return file;
}

} // namespace

LoadResult decode(Buffer file)
{
    LoadResult result;
    result.error = errorOf([&] { result.table = tableOf(std::move(file)); });
    return result;
}

EncodeResult encode(const OdPsPlotStyleTable& table)
{
    EncodeResult result;
    result.error = errorOf([&] { result.bytes = bytesOf(table); });
    return result;
}

LoadResult load(const std::string& path)
{
    LoadResult result;
    result.error = errorOf([&] { result.table = tableOf(readFile(path)); });
    return result;
}

Error save(const std::string& path, const OdPsPlotStyleTable& table)
{
    return errorOf([&] { replaceFile(path, bytesOf(table).view()); });
}

} // namespace tablefile
