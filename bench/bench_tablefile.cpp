// What reading and writing a table costs, beside what its bytes cost anyway: inflating them,
// deflating them, writing them to the disk. The best of several runs of everything.

#include "support/tables.h"
#include "support/test_files.h"
#include "tablefile/tablefile.h"

#include <libdeflate.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{

using Clock = std::chrono::steady_clock;

/// Ends the program when a step of a benchmark did not do its work.
void require(bool ok, const char* what)
{
    if (ok)
        return;
    std::fprintf(stderr, "bench_tablefile: %s failed\n", what);
    std::exit(1);
}

/// The shortest time of `step` in microseconds, over half a second and five runs at least. What it
/// returns is destroyed after the clock has stopped.
template <class Step>
double microseconds(const Step& step)
{
    constexpr int kLeastRuns = 5;
    constexpr auto kLeastTime = std::chrono::milliseconds(500);
    double best = 1e12;
    const Clock::time_point start = Clock::now();
    for (int run = 0; run < kLeastRuns || Clock::now() - start < kLeastTime; ++run)
    {
        const Clock::time_point before = Clock::now();
        [[maybe_unused]] const auto result = step();
        const std::chrono::duration<double, std::micro> time = Clock::now() - before;
        best = std::min(best, time.count());
    }
    return best;
}

/// Inflates a file's stream into a buffer of the right size.
double timeInflate(std::string_view file, std::string& text)
{
    constexpr std::size_t kHeaderSize = 60;
    const std::string_view stream = file.substr(kHeaderSize);
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    const auto inflate = [&]
    {
        const libdeflate_result result = libdeflate_zlib_decompress(
            decompressor.get(), stream.data(), stream.size(), text.data(), text.size(), nullptr);
        require(result == LIBDEFLATE_SUCCESS, "inflating");
        return result;
    };
    return microseconds(inflate);
}

double timeDeflate(std::string_view text)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
        libdeflate_alloc_compressor(6), libdeflate_free_compressor);
    std::string stream(libdeflate_zlib_compress_bound(compressor.get(), text.size()), '\0');
    const auto deflate = [&]
    {
        const std::size_t size = libdeflate_zlib_compress(
            compressor.get(), text.data(), text.size(), stream.data(), stream.size());
        require(size != 0, "deflating");
        return size;
    };
    return microseconds(deflate);
}

double timeEncode(const OdPsPlotStyleTable& table)
{
    const auto encode = [&]
    {
        tablefile::EncodeResult result = tablefile::encode(table);
        require(result.error.status == tablefile::Status::Ok, "encoding");
        return result;
    };
    return microseconds(encode);
}

double timeSave(const std::string& path, const OdPsPlotStyleTable& table)
{
    const auto save = [&]
    {
        const tablefile::Error error = tablefile::save(path, table);
        require(error.status == tablefile::Status::Ok, "saving");
        return error.status;
    };
    return microseconds(save);
}

/// Writes a file and brings it to the disk, as every save that may not lose data has to.
double timePlainWrite(const std::string& path, std::string_view bytes)
{
    const auto write = [&]
    {
        const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        require(written == static_cast<ssize_t>(bytes.size()) && ::fsync(file) == 0, "writing");
        return ::close(file);
    };
    return microseconds(write);
}

/// Changes every style, so that none of the old text can be copied as it is.
void changeAll(OdPsPlotStyleTable& table)
{
    for (int i = 0; i < table.styleCount(); ++i)
    {
        OdPsPlotStyleData data;
        table.styleAt(i)->getData(data);
        data.lineweight = data.lineweight > 0 ? 0 : 5;
        table.styleAt(i)->setData(data);
    }
}

void row(const char* what, double time, double base, const char* baseName)
{
    std::printf("  %-28s %10.1f us  = %5.2f x %s (%.1f us)\n", what, time, time / base, baseName,
                base);
}

void benchmark(const char* name, const std::string& file)
{
    std::string text = support::unpack(file);
    std::printf("%s: %zu bytes, %zu of text\n", name, file.size(), text.size());
    const support::TempFolder folder;
    const std::string path = folder / "table";

    text.push_back('\0');
    const double inflate = timeInflate(file, text);
    const double deflate = timeDeflate(text);
    const double write = timePlainWrite(path, file);
    row("decode", microseconds([&] { return support::tableOf(file); }), inflate, "inflate");
    row("load file", microseconds([&] { return tablefile::load(path); }), inflate, "inflate");

    const OdPsPlotStyleTablePtr table = support::tableOf(file);
    row("encode unchanged", timeEncode(*table), deflate, "deflate");
    row("save unchanged file", timeSave(path, *table), write, "write");
    table->setDescription(L"changed");
    row("encode, description changed", timeEncode(*table), deflate, "deflate");
    row("save file, same", timeSave(path, *table), deflate + write, "deflate and write");
    changeAll(*table);
    row("encode, every style changed", timeEncode(*table), deflate, "deflate");
}

} // namespace

int main()
{
    support::Container named;
    named.kind = "STB";
    benchmark("colour-dependent, 255 styles", support::pack(support::colorTableText()));
    for (const int count : {1000, 10000, 100000})
    {
        const std::string name = "named, " + std::to_string(count) + " styles";
        benchmark(name.c_str(), support::pack(support::largeTableText(count), named));
    }
    return 0;
}
