// One entry a build: shows which of them ran and what it was given.
#include <windows.h>

#include <cstdio>
#include <cwchar>

#if !defined(MAIN) && !defined(WINMAIN) && !defined(WWINMAIN)
static int show(const char* form, int count, const wchar_t* const* texts)
{
    std::printf("%s", form);
    for (int place = 1; place < count; ++place)
    {
        std::printf(" [%ls]", texts[place]);
    }
    std::printf("%s\n", count > 0 && texts[count] != nullptr ? " not ended by null" : "");
    return 7;
}
#endif

#if defined(WMAIN_ENVIRONMENT) || defined(WMAIN_CONSTANT_ENVIRONMENT)
static void showVariable(const wchar_t* const* variables)
{
    for (; *variables != nullptr; ++variables)
    {
        if (std::wcsncmp(*variables, L"KEST_SHOWN=", 11) == 0)
        {
            std::printf("%ls ", *variables);
        }
    }
}
#endif

#if defined(WMAIN_WITHOUT)
int wmain()
{
    return show("wmain()", 0, nullptr);
}
#elif defined(WMAIN_TEXTS)
int wmain(int argc, wchar_t* argv[])
{
    return show("wmain", argc, argv);
}
#elif defined(WMAIN_CONSTANT_TEXTS)
int wmain(int argc, const wchar_t* argv[])
{
    return show("wmain", argc, argv);
}
#elif defined(WMAIN_CONSTANTS)
int wmain(int argc, wchar_t* const argv[])
{
    return show("wmain", argc, argv);
}
#elif defined(WMAIN_ALL_CONSTANTS)
int wmain(int argc, const wchar_t* const* argv)
{
    return show("wmain", argc, argv);
}
#elif defined(WMAIN_ENVIRONMENT)
int wmain(int argc, wchar_t** argv, wchar_t** envp)
{
    showVariable(envp);
    return show("wmain", argc, argv);
}
#elif defined(WMAIN_CONSTANT_ENVIRONMENT)
int wmain(int argc, const wchar_t** argv, const wchar_t** envp)
{
    showVariable(envp);
    return show("wmain", argc, argv);
}
#elif defined(WMAIN_C_LINKAGE)
extern "C" int wmain(int argc, wchar_t** argv)
{
    return show("wmain", argc, argv);
}
#elif defined(MAIN)
int main(int argc, char** argv)
{
    std::printf("main [%s]\n", argc > 1 ? argv[1] : "");
    return 7;
}
#elif defined(WINMAIN)
int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand)
{
    std::printf("WinMain [%s] %d %d\n", commandLine, previous == nullptr && instance == GetModuleHandleW(nullptr),
                showCommand);
    return 7;
}
#elif defined(WWINMAIN)
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int showCommand)
{
    std::printf("wWinMain [%ls] %d %d\n", commandLine, previous == nullptr && instance == GetModuleHandleW(nullptr),
                showCommand);
    return 7;
}
#elif defined(NOTHING)
int unused()
{
    return show("nothing", 0, nullptr);
}
#endif
