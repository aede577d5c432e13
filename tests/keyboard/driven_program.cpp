// Starts a program with the eye in it, and operates it.

#include "tests/keyboard/driven_program.h"

#include "tests/keyboard/eye.h"

#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using namespace std::chrono_literals;

/// How long a program may take for anything; far more than it ever does.
constexpr auto patience = 20s;

int listenAt(const std::string& path)
{
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(server, 1) != 0)
        throw std::runtime_error("no socket for the eye");
    return server;
}

bool isReadable(int descriptor, std::chrono::milliseconds time)
{
    pollfd wanted{descriptor, POLLIN, 0};
    return poll(&wanted, 1, static_cast<int>(time.count())) > 0;
}

std::vector<std::string> wordsOf(const std::string& line)
{
    std::vector<std::string> words;
    if (line.empty())
        return words;
    std::size_t begin = 0;
    for (std::size_t tab; (tab = line.find('\t', begin)) != std::string::npos; begin = tab + 1)
        words.push_back(line.substr(begin, tab - begin));
    words.push_back(line.substr(begin));
    return words;
}

ScreenRect placeOf(const std::vector<std::string>& words)
{
    return {std::stoi(words[0]), std::stoi(words[1]), std::stoi(words[2]), std::stoi(words[3])};
}

} // namespace

DrivenProgram::DrivenProgram(const std::string& program, const std::vector<std::string>& arguments)
    : m_server(listenAt((m_folder / "eye").string()))
{
    if (!waitFor([this] { return m_hands.isManaged(); }))
        throw std::runtime_error("no window manager");
    // Away from where the dialogs open.
    m_hands.moveTo({1, 1});
    start(program, arguments);
    while (!isReadable(m_server, 100ms))
        if (hasEnded())
            throw std::runtime_error("the program has ended at once: " + errors());
    m_eye = accept4(m_server, nullptr, nullptr, SOCK_CLOEXEC);
    if (!waitFor([this]
                 { return hasEnded() || (!dialogs().empty() && answer("active") == "yes"); }))
        throw std::runtime_error("the program shows no dialog: " + errors());
    m_markWindow = std::stoul("0" + answer("mark window"));
    settle();
}

DrivenProgram::~DrivenProgram()
{
    if (!hasEnded())
    {
        kill(m_process, SIGKILL);
        wait();
    }
    close(m_eye);
    close(m_server);
}

void DrivenProgram::start(const std::string& program, const std::vector<std::string>& arguments)
{
    m_process = fork();
    if (m_process != 0)
        return;
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    setenv("GTK_MODULES", PSTYLE_EYE, 1);
    setenv("GSETTINGS_BACKEND", "memory", 1); // there is no daemon that keeps settings
    setenv(eyeVariable, (m_folder / "eye").c_str(), 1);
    const int file = open((m_folder / "errors").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(file, STDERR_FILENO);
    execv(argv[0], argv.data());
    _exit(127);
}

// A user's modifiers are down for a while before the key.
void DrivenProgram::key(std::string_view chord)
{
    const std::size_t plus = chord.rfind('+');
    const std::string_view modifiers = plus == std::string_view::npos ? "" : chord.substr(0, plus);
    if (!modifiers.empty())
    {
        m_hands.hold(modifiers);
        settle();
    }
    m_hands.key(modifiers.empty() ? chord : chord.substr(plus + 1));
    if (!modifiers.empty())
        m_hands.letGo(modifiers);
    settle();
}

void DrivenProgram::keys(const std::vector<std::string_view>& chords)
{
    for (const std::string_view chord : chords)
        key(chord);
}

void DrivenProgram::type(std::string_view text)
{
    m_hands.type(text);
    settle();
}

void DrivenProgram::click(const std::string& name, std::string_view modifier)
{
    const SeenControl seen = control(name);
    if (!seen.isShown)
        throw std::runtime_error(name + " is not on the screen");
    clickAt(seen.place.text(), modifier);
}

void DrivenProgram::clickAt(ScreenPoint point, std::string_view modifier)
{
    m_hands.click(point, modifier);
    settle();
}

void DrivenProgram::clickRow(const std::string& list, int row, std::string_view modifier)
{
    if (!tryClickRow(list, row, modifier))
        throw std::runtime_error("no row " + std::to_string(row) + " in view in " + list);
}

bool DrivenProgram::tryClickRow(const std::string& list, int row, std::string_view modifier)
{
    const auto place = rowInView(list, row);
    if (place)
        clickAt(place->inRow(), modifier);
    return place.has_value();
}

void DrivenProgram::rightClickRow(const std::string& list, int row)
{
    m_hands.rightClick(rowInView(list, row).value().inRow());
    settle();
}

bool DrivenProgram::isRowInView(const std::string& list, int row)
{
    return rowInView(list, row).has_value();
}

std::optional<ScreenRect> DrivenProgram::rowInView(const std::string& list, int row)
{
    const auto words = ask("row\t" + list + "\t" + std::to_string(row));
    if (words.empty())
        return std::nullopt;
    const ScreenRect place = placeOf(words);
    const ScreenRect window = control(list).place;
    const int y = place.centre().y;
    const bool isInView = y >= window.y && y < window.y + window.height;
    return isInView ? std::optional(place) : std::nullopt;
}

void DrivenProgram::wheel(const std::string& name, int notches)
{
    m_hands.wheel(control(name).place.text(), notches);
    settle();
}

void DrivenProgram::settle()
{
    m_hands.mark(m_markWindow, markMessage, ++m_marks);
    answer("idle\t" + std::to_string(m_marks));
}

bool DrivenProgram::waitFor(const std::function<bool()>& done)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!done())
    {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}

std::vector<std::string> DrivenProgram::dialogs()
{
    return ask("dialogs");
}

bool DrivenProgram::waitForDialog(std::string_view text)
{
    const bool came = waitFor(
        [&]
        {
            const auto open = dialogs();
            return hasEnded() || (!open.empty() && open.back().find(text) != std::string::npos &&
                                  answer("active") == "yes");
        });
    settle();
    return came && !hasEnded();
}

int DrivenProgram::dialogWidth()
{
    return std::stoi("0" + answer("width"));
}

SeenControl DrivenProgram::control(const std::string& name)
{
    const auto words = ask("control\t" + name);
    if (words.size() < 6)
        throw std::runtime_error("no control " + name +
                                 (hasEnded() ? ": the program has ended" : ""));
    return {placeOf(words), words[4] == "enabled", words[5] == "shown",
            words.size() > 6 ? words[6] : std::string()};
}

std::string DrivenProgram::focus()
{
    return answer("focus");
}

std::vector<std::string> DrivenProgram::rows(const std::string& list)
{
    return ask("rows\t" + list);
}

std::vector<int> DrivenProgram::selected(const std::string& list)
{
    std::vector<int> numbers;
    for (const std::string& word : ask("selected\t" + list))
        numbers.push_back(std::stoi(word));
    return numbers;
}

std::optional<std::string> DrivenProgram::edit(const std::string& list)
{
    const std::string text = answer("edit\t" + list);
    return text.empty() ? std::nullopt : std::optional(text.substr(1));
}

std::optional<OpenList> DrivenProgram::openList(const std::string& combo)
{
    const auto words = ask("list\t" + combo);
    if (words.empty())
        return std::nullopt;
    return OpenList{placeOf(words), std::stoi(words[4])};
}

std::vector<std::string> DrivenProgram::ask(const std::string& request)
{
    return wordsOf(answer(request));
}

// A program that has ended gives no answer.
std::string DrivenProgram::answer(const std::string& request)
{
    const std::string line = request + "\n";
    if (send(m_eye, line.data(), line.size(), MSG_NOSIGNAL) < 0)
        return "";
    std::string reply;
    for (char byte = 0;; reply += byte)
    {
        if (!isReadable(m_eye, patience))
            throw std::runtime_error("the program does not answer to " + request);
        if (read(m_eye, &byte, 1) != 1)
            return "";
        if (byte == '\n')
            return reply;
    }
}

bool DrivenProgram::hasEnded()
{
    int status = 0;
    if (!m_status && waitpid(m_process, &status, WNOHANG) == m_process)
        m_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return m_status.has_value();
}

int DrivenProgram::wait()
{
    if (!waitFor([this] { return hasEnded(); }))
        throw std::runtime_error("the program does not end");
    return *m_status;
}

std::string DrivenProgram::errors() const
{
    return support::withoutLoaderWarnings(support::readFile(m_folder / "errors"));
}
