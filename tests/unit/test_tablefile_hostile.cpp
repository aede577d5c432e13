// Tests of reading what is no table, or made to do harm.

#include "support/sanitized.h"
#include "support/tables.h"
#include "support/test_files.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sys/stat.h>

using namespace support;

namespace
{

constexpr std::size_t kMostText = std::size_t{16} << 20;

bool isTable(std::string_view file)
{
    return !tablefile::decode(bufferOf(file)).table.isNull();
}

tablefile::Status statusOfFile(const std::filesystem::path& path)
{
    const tablefile::LoadResult result = tablefile::load(path.string());
    EXPECT_EQ(result.table.isNull(), result.error.status != tablefile::Status::Ok);
    return result.error.status;
}

/// What loading a file took in a process of its own, in MiB.
struct Memory
{
    double peak = 0;  ///< of the whole process
    double model = 0; ///< of the styles
};

Memory memoryOfLoading(const std::filesystem::path& path)
{
    const std::string command = std::string(LOAD_TABLE) + " '" + path.string() + "'";
    FILE* const output = ::popen(command.c_str(), "r");
    long peak = -1;
    long model = -1;
    EXPECT_EQ(std::fscanf(output, "%ld %ld", &peak, &model), 2);
    EXPECT_EQ(::pclose(output), 0);
    EXPECT_GT(peak, 0);
    return {static_cast<double>(peak) / 1024.0, static_cast<double>(model) / 1024.0};
}

double peakMemoryOfLoading(const std::filesystem::path& path)
{
    return memoryOfLoading(path).peak;
}

/// Texts that make much of little.
std::string repeated(std::string_view part, std::size_t size)
{
    std::string text;
    text.reserve(size);
    while (text.size() + part.size() <= size)
        text += part;
    return text;
}

struct HostileText
{
    const char* what;
    std::string start, part, end;
};

/// A style whose three texts differ, and begin with a NUL that ends them for all who read them.
std::string nulTexts(std::size_t size)
{
    const std::string text = '\0' + std::string(size, 'x');
    return "0{\nname=\"" + text + "a\nlocalized_name=\"" + text + "b\ndescription=\"" + text +
           "c\n}\n";
}

const HostileText kHostileTexts[] = {
    {"tiny styles", "plot_style{\n", "0{\n}\n", "}\n"},
    {"named styles", "plot_style{\n", "0{\nname=\"abcd\nlocalized_name=\"abcd1\n}\n", "}\n"},
    {"lineweights", "plot_style{\n}\ncustom_lineweight_table{\n", "0=0\n", "}\n"},
    {"deep groups", "plot_style{\n}\n", "{\n", ""},
    {"closings", "plot_style{\n", "}\n", ""},
    {"one long line", "plot_style{\n}\ndescription=\"", "x", "\n"},
    {"one long name", "plot_style{\n0{\nname=\"", "x", "\n}\n}\n"},
    {"one long line without a value", "plot_style{\n}\n", "x", "\n"},
    {"empty lines", "plot_style{\n}\n", "\n", ""},
    {"unknown keys", "plot_style{\n}\n", "k=\n", ""},
    {"short texts behind a NUL", "plot_style{\n", nulTexts(11), "}\n"},
    {"texts behind a NUL", "plot_style{\n", nulTexts(40), "}\n"},
    {"long texts behind a NUL", "plot_style{\n", nulTexts(2000), "}\n"},
};

} // namespace

TEST(Hostile, FilesThatAreNoTables)
{
    const TempFolder folder;
    using tablefile::Status;
    EXPECT_EQ(statusOfFile(folder / "missing.ctb"), Status::CannotRead);
    EXPECT_EQ(statusOfFile(folder.path()), Status::CannotRead);
    const std::pair<const char*, std::string> kFiles[] = {
        {"empty.ctb", ""},
        {"text.ctb", "description=\"A table?\n"},
        {"solid.stb", std::string(80, ' ') + std::string(4, '\1') + std::string(50, '\0')},
        {"header.stb", pack("").substr(0, 60)},
        {"archive.stb", "PK\3\4" + std::string(100, '\7')},
    };
    for (const auto& [name, bytes] : kFiles)
    {
        writeFile(folder / name, bytes);
        EXPECT_EQ(statusOfFile(folder / name), Status::NotATable) << name;
    }
}

TEST(Hostile, AStreamThatNeedsADictionary)
{
    std::string file = pack(namedTableText({"Normal"}));
    ASSERT_TRUE(isTable(file));
    constexpr std::size_t kStream = 60;
    ASSERT_EQ(file[kStream], '\x78');
    file[kStream + 1] = '\xBB'; // the flag, and the check digit that goes with it
    EXPECT_FALSE(isTable(file));
}

TEST(Hostile, OtherKindsOfTheSameContainer)
{
    for (const char* const kind : {"PC3", "PMP", "XTB", "ctb"})
    {
        Container container;
        container.kind = kind;
        EXPECT_FALSE(isTable(pack(colorTableText(), container))) << kind;
    }
}

TEST(Hostile, PipesAndDevicesAreNotWaitedFor)
{
    const TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe.ctb").c_str(), 0600), 0);
    EXPECT_EQ(statusOfFile(folder / "pipe.ctb"), tablefile::Status::CannotRead);
    EXPECT_EQ(statusOfFile("/dev/zero"), tablefile::Status::CannotRead);
}

TEST(Hostile, ATableCutAnywhere)
{
    const std::string file = pack(namedTableText({"Normal", "Walls"}));
    constexpr std::size_t kTrailer = 4;
    for (std::size_t size = 0; size < file.size(); ++size)
    {
        const tablefile::LoadResult result =
            tablefile::decode(bufferOf(std::string_view(file).substr(0, size)));
        const bool isWhole = !result.table.isNull() && result.table->styleCount() == 2;
        const bool isInTrailer = size >= file.size() - kTrailer;
        EXPECT_TRUE(result.table.isNull() || (isInTrailer && isWhole)) << size;
    }
}

TEST(Hostile, ATextCutAnywhere)
{
    const std::string text = namedTableText({"Normal"});
    for (std::size_t size = 0; size < text.size() - 1; ++size)
    {
        // Between two groups the text is that of a table with fewer groups.
        const std::size_t weights = text.find("custom_lineweight_table{");
        const std::size_t weightsOpened =
            weights + std::string_view("custom_lineweight_table{").size();
        const bool isBetween = size + 1 >= weights && size < weightsOpened;
        EXPECT_EQ(isTable(pack(std::string_view(text).substr(0, size))), isBetween) << size;
    }
}

TEST(Hostile, AFileThatIsTooLarge)
{
    const TempFolder folder;
    writeFile(folder / "a.ctb", pack(colorTableText()));
    std::filesystem::resize_file(folder / "a.ctb", kMostText + (2 << 20));
    EXPECT_EQ(statusOfFile(folder / "a.ctb"), tablefile::Status::TooLarge);
}

TEST(Hostile, HeaderBytesFlipped)
{
    const std::string file = pack(colorTableText());
    for (std::size_t i = 0; i < 60; ++i)
    {
        for (const int flip : {0x01, 0x10, 0x20, 0x80, 0xFF})
        {
            std::string flipped = file;
            flipped[i] = static_cast<char>(flipped[i] ^ flip);
            const bool isNumber = i >= 48;
            const bool isOtherKind = i == 19 && flipped[i] == 'S'; // C to S is one bit
            EXPECT_EQ(isTable(flipped), isNumber || isOtherKind) << i << ' ' << flip;
        }
    }
}

TEST(Hostile, StreamBytesFlippedNeverDoHarm)
{
    const std::string file = pack(namedTableText({"Normal", "Walls", "Doors"}));
    for (std::size_t i = 60; i < file.size(); ++i)
    {
        for (int bit = 0; bit < 8; ++bit)
        {
            std::string flipped = file;
            flipped[i] = static_cast<char>(flipped[i] ^ (1 << bit));
            const tablefile::LoadResult result = tablefile::decode(bufferOf(flipped));
            EXPECT_TRUE(result.table.isNull() || bytesOf(*result.table) == flipped);
        }
    }
}

TEST(Hostile, TextsThatAreTooLong)
{
    const std::string start = namedTableText({"Normal"});
    const std::string most = start + repeated("k=v\n", kMostText - start.size() - 1);
    EXPECT_TRUE(isTable(pack(most)));
    const tablefile::LoadResult result =
        tablefile::decode(bufferOf(pack(most + repeated("k=v\n", 100))));
    EXPECT_EQ(result.error.status, tablefile::Status::TooLarge);
}

TEST(Hostile, MemoryStaysBounded)
{
    if (kIsSanitized)
        GTEST_SKIP() << "the sanitizer's own memory is in the way";
    const TempFolder folder;
    const std::filesystem::path path = folder / "hostile.stb";
    constexpr double kMostMemory = 64;
    for (const HostileText& hostile : kHostileTexts)
    {
        for (const int level : {0, 6})
        {
            Container container;
            container.level = level;
            const std::size_t room = kMostText - 1 - hostile.start.size() - hostile.end.size();
            writeFile(path,
                      pack(hostile.start + repeated(hostile.part, room) + hostile.end, container));
            const double peak = peakMemoryOfLoading(path);
            EXPECT_LT(peak, kMostMemory) << hostile.what << ", level " << level;
        }
    }
    Container bomb;
    bomb.inflatedSize = 0x40000000;
    writeFile(path, pack(repeated("x", std::size_t{256} << 20), bomb));
    EXPECT_LT(peakMemoryOfLoading(path), kMostMemory);
    writeFile(path, pack(largeTableText(100000)));
    EXPECT_LT(peakMemoryOfLoading(path), kMostMemory);
}

TEST(Hostile, LoadingTakesLessThanThreeTextsAndTheModel)
{
    if (kIsSanitized)
        GTEST_SKIP() << "the sanitizer's own memory is in the way";
    const TempFolder folder;
    const std::filesystem::path path = folder / "large.stb";
    const double empty = peakMemoryOfLoading(folder / "missing.stb");
    for (const int count : {10000, 30000, 100000})
    {
        const std::string text = largeTableText(count);
        writeFile(path, pack(text));
        const Memory memory = memoryOfLoading(path);
        const double textSize = static_cast<double>(text.size()) / (1 << 20);
        EXPECT_GT(memory.model, 0.0);
        EXPECT_LT(memory.peak - empty, 3 * textSize + memory.model) << count;
        RecordProperty("texts_for_" + std::to_string(count),
                       std::to_string((memory.peak - empty - memory.model) / textSize));
    }
}

TEST(Hostile, LargeTablesLoad)
{
    Container container;
    container.kind = "STB";
    const std::string file = pack(largeTableText(100000), container);
    const OdPsPlotStyleTablePtr table = tableOf(file);
    ASSERT_EQ(table->styleCount(), 100000);
    EXPECT_EQ(table->styleAt(99999)->name(), OdString(L"Style 99999"));
    EXPECT_EQ(bytesOf(*table), file);
    EXPECT_EQ(table->findStyleByName(L"STYLE 5"), table->styleAt(5));
}

TEST(Hostile, ATableThatFillsTheMemoryCannotGrow)
{
    const auto tableOfTinyStyles = [](int count)
    {
        std::string text = "plot_style{\n";
        for (int i = 0; i < count; ++i)
            text += std::to_string(i) + "{\n}\n";
        Container container;
        container.kind = "STB";
        return tablefile::decode(bufferOf(pack(text + "}\n", container))).table;
    };
    int most = 1000;
    for (int step = 1 << 19; step >= 512; step /= 2)
    {
        if (!tableOfTinyStyles(most + step).isNull())
            most += step;
    }
    const std::wstring description(200000, L'x');
    const OdPsPlotStyleTablePtr full = tableOfTinyStyles(most);
    ASSERT_FALSE(full.isNull());
    full->styleAt(0)->setDescription(description);
    EXPECT_EQ(tablefile::encode(*full).error.status, tablefile::Status::TooLarge);

    const OdPsPlotStyleTablePtr half = tableOfTinyStyles(most / 2);
    half->styleAt(0)->setDescription(description);
    EXPECT_EQ(tableOf(bytesOf(*half))->styleAt(0)->description(), OdString(description));
}

TEST(Hostile, LargeTablesCanBeSavedAsLongAsTheyCanBeRead)
{
    const OdPsPlotStyleTablePtr table = tableOfText(namedTableText({"Normal"}), "STB");
    for (int i = 0; i < 30000; ++i)
        table->addNewStyle(L"Style " + std::to_wstring(i));
    const std::string file = bytesOf(*table);
    EXPECT_EQ(tableOf(file)->styleCount(), 30001);
    for (int i = 0; i < 30000; ++i)
        table->addNewStyle(L"More styles " + std::to_wstring(i));
    EXPECT_EQ(tablefile::encode(*table).error.status, tablefile::Status::TooLarge);
}
