// Loads a table file and prints what the process took of memory at most, in KiB: load_table FILE
// A program of its own, since memory that a test has used before would count too.

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

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    const tablefile::LoadResult result = tablefile::load(argv[1]);
    std::printf("%ld %s\n", peakMemory(), result.table.isNull() ? "no table" : "a table");
    return 0;
}
