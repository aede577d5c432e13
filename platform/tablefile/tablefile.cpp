// The road of a table between its file and its objects.

#include "tablefile/tablefile.h"

#include "tablefile/container.h"
#include "tablefile/file_io.h"
#include "tablefile/limits.h"
#include "tablefile/text_editor.h"
#include "tablefile/text_reader.h"
#include "tablefile/text_writer.h"

#include "files/files.h"
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
        return {Status::TooLarge, 0, reason("out of memory")};
    }
}

OdPsPlotStyleTablePtr tableOf(Buffer file)
{
    auto origin = std::make_shared<Origin>();
    origin->file = std::move(file);
    origin->textBytes = unpack(origin->file.view());
    return readTable(std::move(origin));
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

/// The bytes of a table's file: those that it was made of where nothing has changed.
/// @param made takes the bytes that have to be made
std::string_view bytesOf(const OdPsPlotStyleTable& table, Buffer& made)
{
    const auto* const own = dynamic_cast<const OdPsPlotStyleTableImpl*>(&table);
    const auto* const origin = own ? dynamic_cast<const Origin*>(own->origin().get()) : nullptr;
    const std::optional<std::string> text = origin ? changedText(*own, *origin) : freshText(table);
    if (!text)
        return origin->file.view();
    const std::string_view magic =
        origin ? magicOf(origin->file.view()) : magicFor(table.isColorDependent());
    made = pack(magic, *text);
    checkReadable(table, made.size(), text->size());
    return made.view();
}

Buffer copyOf(std::string_view bytes)
{
    Buffer copy(bytes.size());
    std::copy(bytes.begin(), bytes.end(), copy.data());
    return copy;
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
    result.error = errorOf(
        [&]
        {
            const std::string_view bytes = bytesOf(table, result.bytes);
            if (result.bytes.size() == 0)
                result.bytes = copyOf(bytes);
        });
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
    return errorOf(
        [&]
        {
            Buffer made;
            const std::string_view bytes = bytesOf(table, made);
            try
            {
                files::replace(path, bytes);
            }
            catch (const std::filesystem::filesystem_error& error)
            {
                throw Error{Status::CannotWrite, 0, files::reasonOf(error, path)};
            }
        });
}

} // namespace tablefile
