// Loads a table file and prints what the process took of memory at most and what the table's
// styles take, both in KiB: load_table FILE
// A program of its own, since memory that a test has used before would count too.

#include "odps/od_ps_impl.h"
#include "tablefile/tablefile.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace
{

constexpr const char* kPeak = "VmHWM:";

long peakMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
    {
        long kib = 0;
        if (word == kPeak && status >> kib)
            return kib;
    }
    return -1;
}

/// The memory of a table's styles and of the list of them.
std::size_t modelMemory(const OdPsPlotStyleTablePtr& table)
{
    std::size_t bytes = 0;
    for (int i = 0; table && i < table->styleCount(); ++i)
        bytes += static_cast<const OdPsPlotStyleImpl&>(*table->styleAt(i)).memoryUse() +
                 sizeof(OdPsPlotStylePtr);
    return bytes;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const tablefile::LoadResult result = tablefile::load(argv[1]);
    std::printf("%ld %zu\n", peakMemory(), modelMemory(result.table) / 1024);
    return 0;
}
