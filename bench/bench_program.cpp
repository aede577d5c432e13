// What the program's commands cost on extreme files and folders, beside what they cost on ordinary
// ones: bench_program PSTYLE. The best time of several runs, and the most memory.

#include "support/table_maker.h"
#include "support/test_files.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

struct Cost
{
    double milliseconds = 1e12;
    double megabytes = 0;
};

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// Runs a program once. Ends the benchmark when the program fails.
Cost costOf(std::vector<std::string> words)
{
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const Clock::time_point before = Clock::now();
    const pid_t child = ::fork();
    if (child == 0)
    {
        ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    struct rusage usage = {};
    ::wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    {
        std::fprintf(stderr, "bench_program: %s failed\n", words[1].c_str());
        std::exit(1);
    }
    return {Milliseconds(Clock::now() - before).count(),
            static_cast<double>(usage.ru_maxrss) / 1024};
}

Cost bestOf(const std::vector<std::string>& words)
{
    constexpr int kRuns = 5;
    Cost best;
    for (int i = 0; i < kRuns; ++i)
    {
        const Cost cost = costOf(words);
        best.milliseconds = std::min(best.milliseconds, cost.milliseconds);
        best.megabytes = std::max(best.megabytes, cost.megabytes);
    }
    return best;
}

void row(const std::string& what, const Cost& cost, const Cost& base)
{
    std::printf("  %-44s %7.1f ms = %5.2f x   %6.1f MB = %+6.1f MB\n", what.c_str(),
                cost.milliseconds, cost.milliseconds / base.milliseconds, cost.megabytes,
                cost.megabytes - base.megabytes);
}

/// Styles of a table, each with a group of these lines.
std::string stylesText(int count, const std::function<std::string(int)>& lines)
{
    std::string text = "plot_style{\n";
    for (int i = 0; i < count; ++i)
        text += std::to_string(i) + "{\n" + lines(i) + "}\n";
    return text + "}\n";
}

void benchmarkPictures(const std::string& program)
{
    const support::TempFolder folder;
    const std::string table = folder / "table";
    const std::string picture = folder / "picture.png";
    const auto draw = [&](const std::string& text, const char* kind)
    {
        support::Container container;
        container.kind = kind;
        support::writeFile(table, support::pack(text, container));
        return bestOf({program, "--picture", table, picture});
    };
    const Cost ordinary = draw(support::colorTableText(), "CTB");
    std::printf("--picture, beside an ordinary table\n");
    row("ordinary", ordinary, ordinary);
    const auto nothing = [](int) { return std::string(); };
    const auto different = [](int i) { return "screen=" + std::to_string(i % 100) + "\n"; };
    for (const int count : {15000, 60000, 250000})
    {
        for (const char* const kind : {"CTB", "STB"})
            row(std::to_string(count) + " equal styles, " + kind,
                draw(stylesText(count, nothing), kind), ordinary);
    }
    for (const int count : {7500, 30000, 120000})
        row(std::to_string(count) + " styles, no two neighbours equal",
            draw(stylesText(count, different), "STB"), ordinary);
    for (const int count : {1, 4, 16})
        row(std::to_string(count) + " names of 250,000 letters",
            draw(stylesText(count,
                            [](int i) {
                                return "name=\"" + std::string(250000, 'n') +
                                       "\nscreen=" + std::to_string(i) + "\n";
                            }),
                 "STB"),
            ordinary);
}

void benchmarkListings(const std::string& program)
{
    const support::TempFolder empty;
    const auto list = [&](const support::TempFolder& folder)
    {
        ::setenv("PSTYLE_PLOT_STYLE_PATH", folder.path().c_str(), 1);
        return bestOf({program, "--list"});
    };
    const Cost none = list(empty);
    std::printf("--list, beside an empty folder\n");
    row("empty", none, none);
    for (const int count : {6250, 25000, 100000})
    {
        const support::TempFolder folder;
        constexpr int kPerFolder = 1000;
        for (int i = 0; i < count; ++i)
        {
            const auto sub = folder / std::to_string(i / kPerFolder);
            std::filesystem::create_directory(sub);
            support::writeFile(sub / (std::to_string(i) + ".ctb"), "");
        }
        row(std::to_string(count) + " files", list(folder), none);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2)
    {
        std::fprintf(stderr, "Usage: bench_program PSTYLE\n");
        return 2;
    }
    benchmarkPictures(argv[1]);
    benchmarkListings(argv[1]);
    return 0;
}
