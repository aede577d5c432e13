// Writes the files that a fuzzer starts from, and a list of them: make_seeds FUZZER FOLDER
// fuzz_edit takes texts followed by the bytes that choose changes, the others whole table files.

#include "support/table_maker.h"
#include "support/test_files.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace support;

namespace
{

/// Texts that differ in what they hold and in how it is written.
std::vector<std::string> texts()
{
    const std::vector<std::string> names = {"Normal", "Walls", "Doors"};
    const std::string named = namedTableText(names);
    const std::string suffix = "0.17780000000 (44F=@\";\"QC\\SM0)";
    return {
        named,
        withCrLf(named),
        mappedTableText(names),
        colorTableText(),
        largeTableText(20),
        namedTableText({"W\xC3\xA4nde = {", "W\xE4nde", "", " blank ", "\xF0\x9F\x98\x80"}),
        withoutKey(withoutKey(named, "mode_color"), "localized_name"),
        replaced(replaced(named, "factor=1.0", "factor=1 "), "=0.18\n", "=" + suffix + "\n"),
        "filetype=\"stb\n" + replaced(named, "  screen=100\n", "  later{\n  }\n  screen=5\n  x=\n"),
        lineweightText() + "plot_style{\n" + styleText(7, "b") + styleText(0, "a") + "}",
        "plot_style{\n0{\n}\n}",
    };
}

/// The files of a text in every kind of container.
std::vector<std::string> filesOf(const std::string& text)
{
    std::vector<Container> containers(4);
    containers[0].level = 0;
    containers[1].kind = "STB";
    containers[2].kind = "TTB";
    containers[2].wideNumbers = true;
    containers[3].kind = "STB";
    containers[3].finalNuls = 0;
    containers[3].padding = "padding";
    std::vector<std::string> files;
    for (const Container& container : containers)
        files.push_back(pack(text, container));
    return files;
}

std::vector<std::string> seedsFor(std::string_view fuzzer)
{
    std::vector<std::string> seeds;
    for (const std::string& text : texts())
    {
        const std::vector<std::string> files = filesOf(text);
        if (fuzzer != "fuzz_edit")
            seeds.insert(seeds.end(), files.begin(), files.end());
        else
            seeds.push_back(text + std::string("\3\1\2\5\4\7\6\1\2", 9));
    }
    return seeds;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return EXIT_FAILURE;
    const std::filesystem::path folder = argv[2];
    std::filesystem::create_directories(folder / argv[1]);
    std::string list;
    for (const std::string& seed : seedsFor(argv[1]))
    {
        const std::string number = std::to_string(std::count(list.begin(), list.end(), ','));
        const std::filesystem::path file = folder / argv[1] / number;
        writeFile(file, seed);
        list += file.string() + ",";
    }
    list.pop_back();
    writeFile(folder / (std::string(argv[1]) + ".list"), list);
    return EXIT_SUCCESS;
}
