// What reading and writing a table costs, beside what its bytes cost anyway: inflating them,
// deflating them, writing them to the disk. The best of several runs of everything. The tables of
// the folder that PSTYLE_REAL_TABLES names are measured, too.

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

/// How long something takes at best, in microseconds, and something to measure it by.
struct Times
{
    double time = 1e12;
    double base = 1e12;
};

/// Runs a step once. What it returns is destroyed after the clock has stopped.
template <class Step>
double microseconds(const Step& step)
{
    const Clock::time_point before = Clock::now();
    [[maybe_unused]] const auto result = step();
    return std::chrono::duration<double, std::micro>(Clock::now() - before).count();
}

/// Runs a step and its base by turns, so that both meet the same disk and the same clock rate:
/// over a while, and five times at least.
template <class Step, class Base>
Times compare(const Step& step, const Base& base)
{
    constexpr int kLeastRuns = 5;
    constexpr auto kLeastTime = std::chrono::milliseconds(300);
    Times best;
    const Clock::time_point start = Clock::now();
    for (int run = 0; run < kLeastRuns || Clock::now() - start < kLeastTime; ++run)
    {
        best.base = std::min(best.base, microseconds(base));
        best.time = std::min(best.time, microseconds(step));
    }
    return best;
}

/// Inflates the stream of a file into a buffer of the right size.
class Inflate
{
public:
    explicit Inflate(std::string_view file)
        : m_stream(file.substr(60)) // behind the header
        , m_text(support::unpack(file).size() + 1, '\0')
    {
    }

    std::size_t operator()() const
    {
        std::size_t size = 0;
        const libdeflate_result result =
            libdeflate_zlib_decompress(m_decompressor.get(), m_stream.data(), m_stream.size(),
                                       m_text.data(), m_text.size(), &size);
        require(result == LIBDEFLATE_SUCCESS, "inflating");
        return size;
    }

private:
    std::string_view m_stream;
    mutable std::string m_text;
    std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> m_decompressor{
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor};
};

/// Deflates the text that a table is saved as.
class Deflate
{
public:
    explicit Deflate(const OdPsPlotStyleTable& table)
        : m_text(support::textOf(table) + '\0')
        , m_stream(libdeflate_zlib_compress_bound(m_compressor.get(), m_text.size()), '\0')
    {
    }

    std::size_t operator()() const
    {
        const std::size_t size = libdeflate_zlib_compress(
            m_compressor.get(), m_text.data(), m_text.size(), m_stream.data(), m_stream.size());
        require(size != 0, "deflating");
        return size;
    }

private:
    std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> m_compressor{
        libdeflate_alloc_compressor(6), libdeflate_free_compressor};
    std::string m_text;
    mutable std::string m_stream;
};

tablefile::EncodeResult encode(const OdPsPlotStyleTable& table)
{
    tablefile::EncodeResult result = tablefile::encode(table);
    require(result.error.status == tablefile::Status::Ok, "encoding");
    return result;
}

bool save(const std::string& path, const OdPsPlotStyleTable& table)
{
    const tablefile::Error error = tablefile::save(path, table);
    require(error.status == tablefile::Status::Ok, "saving");
    return true;
}

/// Replaces a file in one step and brings it to the disk, as every save that may not lose data
/// has to: a new file, its synchronization, the rename, the folder's synchronization.
bool write(const std::string& folder, const std::string& path, std::string_view bytes)
{
    const std::string temporary = path + "~";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    const bool isWritten = written == static_cast<ssize_t>(bytes.size()) && ::fsync(file) == 0 &&
                           ::close(file) == 0 && ::rename(temporary.c_str(), path.c_str()) == 0;
    const int opened = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    require(isWritten && ::fsync(opened) == 0 && ::close(opened) == 0, "writing");
    return true;
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

void row(const char* what, const Times& times, const char* base)
{
    std::printf("  %-28s %10.1f us  = %5.2f x %s (%.1f us)\n", what, times.time,
                times.time / times.base, base, times.base);
}

void benchmarkSaves(const support::TempFolder& folder, OdPsPlotStyleTable& table,
                    const char* encoded, const char* saved)
{
    const std::string path = folder / "table";
    const std::string bytes = support::bytesOf(table);
    const Deflate deflate(table);
    const auto deflateAndWrite = [&] { return deflate() > 0 && write(folder.path(), path, bytes); };
    row(encoded, compare([&] { return encode(table); }, deflate), "deflate");
    row(saved, compare([&] { return save(path, table); }, deflateAndWrite), "deflate and write");
}

void benchmark(const std::string& name, const std::string& file)
{
    const support::TempFolder folder;
    const std::string path = folder / "table";
    support::writeFile(path, file);
    const Inflate inflate(file);
    std::printf("%s: %zu bytes, %zu of text\n", name.c_str(), file.size(), inflate());
    row("decode", compare([&] { return support::tableOf(file); }, inflate), "inflate");
    row("load file", compare([&] { return tablefile::load(path); }, inflate), "inflate");

    const OdPsPlotStyleTablePtr table = support::tableOf(file);
    const auto writeFile = [&] { return write(folder.path(), path, file); };
    row("save, nothing changed", compare([&] { return save(path, *table); }, writeFile), "write");
    table->setDescription(L"changed");
    benchmarkSaves(folder, *table, "encode, description changed", "save, description changed");
    changeAll(*table);
    benchmarkSaves(folder, *table, "encode, every style changed", "save, every style changed");
}

/// A table whose styles say nothing that we know: what is changed in them needs a line of its own.
std::string silentTableText(int count)
{
    const std::string other = "  note=" + std::string(230, 'x') + "\n";
    std::string text = "plot_style{\n";
    for (int i = 0; i < count; ++i)
        text += std::to_string(i) + "{\n" + other + "}\n";
    return text + "}\n";
}

void benchmarkAddedLines(int count)
{
    support::Container named;
    named.kind = "STB";
    const support::TempFolder folder;
    const OdPsPlotStyleTablePtr table =
        support::tableOf(support::pack(silentTableText(count), named));
    std::printf("named, %d styles without a line\n", count);
    changeAll(*table);
    benchmarkSaves(folder, *table, "encode, lines in every style", "save, lines in every style");
}

} // namespace

int main()
{
    benchmark("colour-dependent, 255 styles", support::pack(support::colorTableText()));
    for (const std::filesystem::path& path : support::realTables())
        benchmark(path.filename(), support::readFile(path));
    support::Container named;
    named.kind = "STB";
    for (const int count : {1000, 10000, 100000})
        benchmark("named, " + std::to_string(count) + " styles",
                  support::pack(support::largeTableText(count), named));
    for (const int count : {4000, 15000, 60000})
        benchmarkAddedLines(count);
    return 0;
}
