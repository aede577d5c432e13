// How table files are changed for the fuzzers that take whole files.
//
// Random changes of a compressed stream hardly ever make another stream, so most changes are made
// to the inflated text, which is then packed again. Changes of single bytes hardly ever make a
// whole group, so groups are put in, too: those of a list, and copies of the text's own.

#include "support/table_maker.h"
#include "tablefile/container.h"
#include "tablefile/error.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <random>

namespace
{

constexpr std::size_t kKindOffset = 19;
constexpr std::size_t kKindSize = 3;

// clang-format off
const char* const kGroups[] = {
    "plot_style{\n 0{\n  name=\"Normal\n  localized_name=\"Normal\n }\n}\n",
    (" 1{\n  name=\"\n  localized_name=\"\n  description=\"\n  color=-1\n  mode_color=-1006632961\n"
    "  color_policy=7\n  physical_pen_number=32\n  virtual_pen_number=255\n  screen=50\n"
    "  linepattern_size=0.5\n  linetype=30\n  adaptive_linetype=TRUE\n  lineweight=27\n"
    "  fill_style=64\n  end_style=3\n  join_style=3\n }\n"),
    (" 2{\n  lineweight=2147483647\n  screen=-32768\n  linetype=32767\n  end_style=-1\n"
    "  join_style=4\n  fill_style=0\n  linepattern_size=1e308\n }\n"),
    " 4294967295{\n }\n",
    " 254{\n  mode_color=-1023410176\n  lineweight=1\n }\n",
    "custom_lineweight_table{\n 0=0.0\n 26=2.11\n 27=-1e300\n 65535=1.0\n}\n",
    "aci_table{\n 0=\"Normal\n 255=\"\n 65536=\"x\n}\n",
    "unknown{\n inner{\n  key=value\n }\n}\n",
    "}\n",
    "{\n",
};
// clang-format on

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

/// Where some line of a text begins.
std::size_t anyLine(const std::string& text, std::minstd_rand& random)
{
    const std::size_t end = text.find('\n', random() % (text.size() + 1));
    return end == std::string::npos ? text.size() : end + 1;
}

/// A group of the text, with its braces; empty where there is none.
std::string anyGroup(const std::string& text, std::minstd_rand& random)
{
    const std::size_t begin = anyLine(text, random);
    const std::size_t opening = text.find("{", begin);
    const std::size_t closing = text.find("}\n", opening);
    return closing == std::string::npos ? std::string() : text.substr(begin, closing + 2 - begin);
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
    switch (random() % 6)
    {
    case 0:
        text->insert(anyLine(*text, random), kGroups[random() % std::size(kGroups)]);
        break;
    case 1:
        text->insert(anyLine(*text, random), anyGroup(*text, random));
        break;
    default:
        const std::size_t oldSize = text->size();
        text->resize(maxSize);
        text->resize(
            LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text->data()), oldSize, maxSize));
    }
    const std::string packed = support::pack(*text, anyContainer(file, random));
    if (packed.size() > maxSize)
        return LLVMFuzzerMutate(data, size, maxSize);
    std::copy(packed.begin(), packed.end(), data);
    return packed.size();
}
