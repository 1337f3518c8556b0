#include <command/process/Process.h>

#include <array>

#ifdef _WIN32

#include <cstdlib>

#include <windows.h>

namespace command
{

namespace
{

/// Of the folders of PATH; not the current folder, which Windows would look into first.
std::string findOnPath(const std::string& program)
{
    std::array<char, 32768> found{};
    const char* path = std::getenv("PATH");
    const DWORD length = SearchPathA(path ? path : "", program.c_str(), ".exe",
                                     static_cast<DWORD>(found.size()), found.data(), nullptr);
    return length > 0 && length < found.size() ? std::string(found.data(), length) : "";
}

/// As programs take a command line apart again: backslashes count before a quotation mark alone.
std::string quoted(const std::string& argument)
{
    std::string text = "\"";
    std::size_t backslashes = 0;
    for (const char c : argument) {
        if (c == '"')
            text.append(backslashes + 1, '\\');
        backslashes = c == '\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, '\\') + '"';
}

std::string readAll(HANDLE pipe)
{
    std::string text;
    std::array<char, 4096> buffer{};
    DWORD count = 0;
    while (ReadFile(pipe, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr) &&
           count > 0)
        text.append(buffer.data(), count);
    return text;
}

} // namespace

std::optional<Finished> runProgram(const std::string& program,
                                   const std::vector<std::string>& arguments)
{
    const std::string path = findOnPath(program);
    if (path.empty())
        return std::nullopt;
    std::string line = quoted(path);
    for (const std::string& argument : arguments)
        line += " " + quoted(argument);
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    if (!CreatePipe(&reading, &writing, &inherited, 0))
        return std::nullopt;
    SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
    HANDLE null =
        CreateFileA("NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    &inherited, OPEN_EXISTING, 0, nullptr);
    STARTUPINFOA start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = null;
    start.hStdOutput = writing;
    start.hStdError = null;
    PROCESS_INFORMATION process{};
    const BOOL isStarted = CreateProcessA(path.c_str(), line.data(), nullptr, nullptr, TRUE,
                                          CREATE_NO_WINDOW, nullptr, nullptr, &start, &process);
    CloseHandle(writing);
    CloseHandle(null);
    std::optional<Finished> finished;
    if (isStarted) {
        finished = Finished{0, readAll(reading)};
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD status = 1;
        GetExitCodeProcess(process.hProcess, &status);
        finished->status = static_cast<int>(status);
        CloseHandle(process.hProcess);
        CloseHandle(process.hThread);
    }
    CloseHandle(reading);
    return finished;
}

} // namespace command

#else

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace command
{

namespace
{

std::string readAll(int pipe)
{
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = read(pipe, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(count));
    return text;
}

} // namespace

std::optional<Finished> runProgram(const std::string& program,
                                   const std::vector<std::string>& arguments)
{
    std::vector<std::string> texts = {program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    words.reserve(texts.size() + 1);
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);

    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return std::nullopt;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    posix_spawn_file_actions_addclose(&actions, ends[1]);
    pid_t child = 0;
    const int fault =
        posix_spawnp(&child, program.c_str(), &actions, nullptr, words.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    std::optional<Finished> finished;
    if (fault == 0) {
        finished = Finished{0, readAll(ends[0])};
        int status = 0;
        waitpid(child, &status, 0);
        finished->status = WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    }
    close(ends[0]);
    return finished;
}

} // namespace command

#endif
