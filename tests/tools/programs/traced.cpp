// A program to trace. Its arguments are what it does, in order.
#include <kest/crt.h>
#include <kest/geometry.h>
#include <kest/kernel.h>
#include <kest/registry.h>
#include <kest/user_interface.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <dlfcn.h>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

// The second name, as code has it that declares the function without C linkage.
BOOL isLeadByteByItsSecondName(BYTE value) __asm__("_Z14IsDBCSLeadByteh");

namespace
{

void waitFor(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
}

// Arguments of every kind, more than there are registers for.
void passArguments()
{
    wchar_t text[200];
    const int length = wsprintfW(text, L"%d %d %d %d %d %d %ls", 1, 2, 3, 4, 5, 6, L"seven");
    int point = 0;
    int sign = 0;
    SetLastError(77);
    const std::string digits = _fcvt(-12.5, 2, &point, &sign);
    const int product = MulDiv(6, 7, 2);
    std::printf("%d %ls %s %d %d %d %u\n", length, text, digits.c_str(), point, sign, product, GetLastError());
}

void callByBothNames()
{
    wchar_t text[8] = L"";
    wcscpy_s(text, L"encoded");
    std::printf("%ls %d %d %d\n", text, IsDBCSLeadByte('a'), isLeadByteByItsSecondName('a'),
                static_cast<int>(RegCloseKey(nullptr)));
}

void callFromThreads()
{
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
    {
        threads.emplace_back(
            []
            {
                for (int call = 0; call < 250; ++call)
                {
                    GetTickCount();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}

void callFromModule(const char* path)
{
    void* module = dlopen(path, RTLD_NOW | RTLD_DEEPBIND);
    const auto enter = module != nullptr ? reinterpret_cast<int (*)()>(dlsym(module, "enter")) : nullptr;
    std::printf("%d\n", enter != nullptr ? enter() : -1);
}

void callInChild()
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0)
    {
        GetACP();
        _exit(0);
    }
    waitFor(child);
}

// Starts itself anew, without descriptors other than the standard ones.
void callInStartedProgram(const std::string& emulator, const std::string& program)
{
    std::istringstream command(emulator + program + " fixed");
    std::vector<std::string> words;
    for (std::string word; command >> word;)
    {
        words.push_back(word);
    }
    std::vector<char*> pointers;
    for (std::string& word : words)
    {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0)
    {
        close_range(3, ~0U, 0);
        execvp(pointers.front(), pointers.data());
        _exit(127);
    }
    waitFor(child);
}

} // namespace

int main(int argc, char** argv)
{
    for (int index = 1; index < argc; ++index)
    {
        const std::string what = argv[index];
        if (what == "fixed")
        {
            std::printf("%u\n", GetACP());
        }
        else if (what == "arguments")
        {
            passArguments();
        }
        else if (what == "encoded")
        {
            callByBothNames();
        }
        else if (what == "threads")
        {
            callFromThreads();
        }
        else if (what == "module")
        {
            callFromModule(argv[++index]);
        }
        else if (what == "child")
        {
            callInChild();
        }
        else if (what == "started")
        {
            callInStartedProgram(argv[index + 1], argv[0]);
            ++index;
        }
        else if (what == "lookup")
        {
            const auto function = reinterpret_cast<UINT (*)()>(dlsym(RTLD_DEFAULT, "GetACP"));
            std::printf("%u\n", function());
        }
        else if (what == "unsupported")
        {
            _mbsrev(nullptr);
        }
        else if (what == "leave")
        {
            _exit(std::atoi(argv[index + 1]));
        }
        else if (what == "end-tracer")
        {
            kill(getppid(), SIGTERM);
            pause();
        }
    }
    return 3;
}
