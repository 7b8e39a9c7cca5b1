#include "trace/traced_run.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace kest::trace
{

namespace
{

volatile std::sig_atomic_t program = 0;

void handOn(int signal)
{
    kill(program, signal);
}

[[noreturn]] void failed(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

using Variables = std::vector<std::pair<std::string, std::string>>;

Variables variablesFor(const Run& run, const SharedTable& table)
{
    const char* others = std::getenv("LD_AUDIT");
    Variables result = {
        {"LD_AUDIT", others != nullptr && *others != '\0' ? others + (":" + run.audit_library) : run.audit_library},
        {table_variable, table.path()}};
    if (run.calls)
    {
        result.emplace_back(calls_variable, *run.calls);
    }
    return result;
}

// The variables are for the program alone: an emulator gets them as options.
std::vector<std::string> commandLine(const Run& run, const Variables& variables)
{
    std::vector<std::string> words = run.emulator;
    if (!words.empty())
    {
        for (const auto& [name, value] : variables)
        {
            words.insert(words.end(), {"-E", name + "=" + value});
        }
    }
    words.insert(words.end(), run.command.begin(), run.command.end());
    return words;
}

// In the new process; tells what went wrong through the pipe, which a started program no longer has.
[[noreturn]] void become(const std::vector<char*>& words, int report)
{
    execvp(words.front(), words.data());
    const int error = errno;
    const ssize_t written = write(report, &error, sizeof error);
    _exit(written == sizeof error ? 127 : 126);
}

class HandledSignals
{
public:
    HandledSignals()
    {
        struct sigaction action = {};
        action.sa_handler = SIG_IGN;
        sigaction(SIGINT, &action, &previous_[0]);
        sigaction(SIGQUIT, &action, &previous_[1]);
        action.sa_handler = handOn;
        action.sa_flags = SA_RESTART;
        sigaction(SIGTERM, &action, &previous_[2]);
        sigaction(SIGHUP, &action, &previous_[3]);
    }

    ~HandledSignals() { restore(); }
    HandledSignals(const HandledSignals&) = delete;
    HandledSignals& operator=(const HandledSignals&) = delete;

    void restore() const
    {
        for (std::size_t index = 0; index < previous_.size(); ++index)
        {
            sigaction(signals[index], &previous_[index], nullptr);
        }
    }

private:
    static constexpr std::array<int, 4> signals = {SIGINT, SIGQUIT, SIGTERM, SIGHUP};
    std::array<struct sigaction, signals.size()> previous_{};
};

} // namespace

SharedTable::SharedTable() : file_(memfd_create("kest-trace", MFD_CLOEXEC))
{
    if (file_ == -1 || ftruncate(file_, sizeof(CallTable)) == -1)
    {
        failed("the table of calls");
    }
    void* memory = mmap(nullptr, sizeof(CallTable), PROT_READ | PROT_WRITE, MAP_SHARED, file_, 0);
    if (memory == MAP_FAILED)
    {
        failed("the table of calls");
    }
    table_ = static_cast<CallTable*>(memory);
}

SharedTable::~SharedTable()
{
    munmap(table_, sizeof(CallTable));
    close(file_);
}

std::string SharedTable::path() const
{
    return "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(file_);
}

int run(const Run& run, const SharedTable& table)
{
    const Variables variables = variablesFor(run, table);
    std::vector<std::string> words = commandLine(run, variables);
    std::vector<char*> pointers;
    for (std::string& word : words)
    {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    int report[2];
    if (pipe2(report, O_CLOEXEC) == -1)
    {
        failed("pipe");
    }

    // A request to end that arrives before the program's number is known waits for it.
    sigset_t ends;
    sigset_t before;
    sigemptyset(&ends);
    sigaddset(&ends, SIGTERM);
    sigaddset(&ends, SIGHUP);
    sigprocmask(SIG_BLOCK, &ends, &before);
    const HandledSignals signals;
    const pid_t child = fork();
    if (child == -1)
    {
        failed("fork");
    }
    if (child == 0)
    {
        signals.restore();
        sigprocmask(SIG_SETMASK, &before, nullptr);
        for (const auto& [name, value] : run.emulator.empty() ? variables : Variables())
        {
            setenv(name.c_str(), value.c_str(), 1);
        }
        become(pointers, report[1]);
    }
    program = child;
    sigprocmask(SIG_SETMASK, &before, nullptr);
    close(report[1]);
    int error = 0;
    const bool started = read(report[0], &error, sizeof error) != sizeof error;
    close(report[0]);
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR)
    {
    }
    if (!started)
    {
        throw StartFailure{error};
    }
    return status;
}

} // namespace kest::trace
